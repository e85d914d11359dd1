#include "widgets/touch/pinyin_table.h"

#include "host/flash_image.h"

#include <algorithm>

namespace panel {
namespace {

constexpr std::uint32_t OffsetField = 7; // big-endian, in units of two bytes
constexpr std::uint32_t CountField = 9;  // big-endian

std::uint16_t bigEndian(std::uint32_t address) {
    return static_cast<std::uint16_t>(ReadU8(address) << 8 | ReadU8(address + 1));
}

} // namespace

PinyinCandidates ReadPinyinRow(std::uint32_t address) {
    return {.offset = 2u * bigEndian(address + OffsetField), .count = bigEndian(address + CountField)};
}

PinyinCandidates FindCandidates(std::span<const std::uint8_t> letters, PinyinCandidates before) {
    for (std::uint32_t index = 0; index < PinyinIndexRows; ++index) {
        const std::uint32_t address = Sections.PinyinTable + PinyinRowBytes * index;
        const auto row = FlashBytes(address, PinyinRowBytes);
        if (row.size() < PinyinRowBytes) return before;
        if (letters[0] < row[0]) return {};
        if (std::ranges::equal(letters, row.first(letters.size()))) return ReadPinyinRow(address);
    }
    return before;
}

std::array<std::uint8_t, CandidatePageBytes> ReadCandidatePage(PinyinCandidates candidates, unsigned page) {
    std::array<std::uint8_t, CandidatePageBytes> bytes{};
    const auto start = static_cast<std::uint32_t>(candidates.offset + CandidatePageBytes * page);
    FlashRead(bytes.data(), Sections.PinyinTable + start, bytes.size());
    return bytes;
}

} // namespace panel
