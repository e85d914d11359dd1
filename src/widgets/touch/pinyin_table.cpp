#include "widgets/touch/pinyin_table.h"

#include "host/flash_image.h"

#include <algorithm>

namespace panel {
namespace {

constexpr std::size_t OffsetField = 7; // big-endian, in units of two bytes
constexpr std::size_t CountField = 9;  // big-endian

std::uint16_t bigEndian(std::span<const std::uint8_t> row, std::size_t at) {
    return static_cast<std::uint16_t>(row[at] << 8 | row[at + 1]);
}

} // namespace

PinyinCandidates FindCandidates(std::span<const std::uint8_t> letters, PinyinCandidates before) {
    for (std::uint32_t index = 0; index < PinyinIndexRows; ++index) {
        const auto row = FlashBytes(Sections.PinyinTable + PinyinRowBytes * index, PinyinRowBytes);
        if (row.size() < PinyinRowBytes) return before;
        if (letters[0] < row[0]) return {};
        if (std::ranges::equal(letters, row.first(letters.size())))
            return {.offset = 2u * bigEndian(row, OffsetField), .count = bigEndian(row, CountField)};
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
