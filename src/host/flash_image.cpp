#include "host/flash_image.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace panel {
namespace {

constexpr std::size_t CheckWordA = 0xEC; // offsets in the settings block
constexpr std::size_t CheckWordB = 0xF0;

std::uint32_t loadLittleEndian(const std::uint8_t* bytes, int count) {
    std::uint32_t value = 0;
    for (int i = count; i-- > 0;) value = value << 8 | bytes[i];
    return value;
}

void storeU32(std::uint8_t* bytes, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) bytes[i] = static_cast<std::uint8_t>(value >> 8 * i);
}

std::uint32_t readNumber(std::uint32_t address, int byteCount) {
    std::array<std::uint8_t, 4> bytes{};
    FlashRead(bytes.data(), address, static_cast<std::size_t>(byteCount));
    return loadLittleEndian(bytes.data(), byteCount);
}

constexpr std::array<std::uint32_t, 256> makeCrcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t crc = i;
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320u : 0u);
        table[i] = crc;
    }
    return table;
}

} // namespace

void FlashBlock::replace(std::unique_ptr<std::uint8_t[]> bytes, std::int32_t byteCount) {
    data = std::move(bytes);
    size = data ? byteCount : 0;
}

std::span<const std::uint8_t> FlashBytes(std::uint32_t address, std::size_t byteCount) {
    const auto size = static_cast<std::size_t>(FlashImage.size);
    if (address >= size) return {};
    return {FlashImage.data.get() + address, std::min(byteCount, size - address)};
}

void FlashRead(void* destination, std::uint32_t address, std::size_t byteCount) {
    const auto there = FlashBytes(address, byteCount);
    auto* out = static_cast<std::uint8_t*>(destination);
    if (!there.empty()) std::memcpy(out, there.data(), there.size());
    std::fill(out + there.size(), out + byteCount, std::uint8_t{0});
}

std::uint8_t ReadU8(std::uint32_t address) { return static_cast<std::uint8_t>(readNumber(address, 1)); }
std::uint16_t ReadU16(std::uint32_t address) { return static_cast<std::uint16_t>(readNumber(address, 2)); }
std::uint32_t ReadU24(std::uint32_t address) { return readNumber(address, 3); }
std::uint32_t ReadU32(std::uint32_t address) { return readNumber(address, 4); }

void LoadSectionTable() {
    const auto word = [](std::uint32_t index) { return ReadU32(4 * index); };
    Sections = {.InitialVariablesAddress = word(0),
                .PageTable = word(2),
                .PageTableCount = word(3),
                .FontTable = word(4),
                .AudioTable = word(6),
                .AudioTableCount = word(7),
                .PageImageTable = word(8),
                .PageCount = word(9),
                .ImageSequenceTable = word(10),
                .ImageTable = word(12),
                .ImageCount = word(13),
                .PinyinTable = word(16),
                .LanguagePresetTable = word(20),
                .LanguagePresetCount = word(21),
                .GroupStreamTable = word(22),
                .StringTable = word(24),
                .StringCount = word(25),
                .PagePresetTable = word(28)};
}

std::uint32_t ImageCheckValue(std::span<const std::uint8_t, CheckedBytes> block) {
    static constexpr auto crcTable = makeCrcTable();
    std::array<std::uint8_t, CheckedBytes> salted{};
    std::ranges::copy(block, salted.begin());
    storeU32(&salted[CheckWordA], 0x4E21A7B3);
    storeU32(&salted[CheckWordB], 0x6C05D19F);
    std::uint32_t crc = 0;
    for (const std::uint8_t byte : salted) crc = crc >> 8 ^ crcTable[(crc ^ byte) & 0xFF];
    return crc;
}

void CheckImageIntegrity() {
    LoadSectionTable();
    std::array<std::uint8_t, CheckedBytes> block{};
    FlashRead(block.data(), ConfigBlockAddress, block.size());
    const std::uint32_t a = loadLittleEndian(&block[CheckWordA], 4);
    const std::uint32_t b = loadLittleEndian(&block[CheckWordB], 4);
    if (b != ~a) return; // the image carries no check
    if (ImageCheckValue(block) != b) IllegalImage = 1;
}

} // namespace panel
