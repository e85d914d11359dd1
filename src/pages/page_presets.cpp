#include "pages/page_presets.h"

#include "host/flash_image.h"
#include "store/system_words.h"
#include "store/variable_store.h"

#include <algorithm>
#include <array>

namespace panel {
namespace {

constexpr std::size_t RecordHead = 3; // u16 id, u8 length of the items
constexpr std::size_t ItemBytes = 4;  // u16 word address, u16 value

std::array<std::uint8_t, PagePresetCapacity> Presets{};
std::size_t PresetBytes = 0;

/// A preset may write word 0x7014 and so apply another one. A chain that comes back to itself has to end
/// somewhere.
constexpr int LongestChain = 16;
int ChainLength = 0;

std::uint16_t littleEndianWord(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

/// A copy of a preset's items, since applying one may load the presets of another page.
struct PresetItems {
    std::array<std::uint8_t, 255> bytes{};
    std::size_t count = 0;
};

PresetItems findItems(std::uint16_t id) {
    PresetItems items;
    auto rest = std::span<const std::uint8_t>(Presets).first(PresetBytes);
    while (rest.size() >= RecordHead) {
        const std::size_t length = std::min<std::size_t>(rest[2], rest.size() - RecordHead);
        if (littleEndianWord(rest, 0) == id) {
            std::ranges::copy(rest.subspan(RecordHead, length), items.bytes.begin());
            items.count = length / ItemBytes;
            break;
        }
        rest = rest.subspan(RecordHead + length);
    }
    return items;
}

void applyItem(std::uint16_t address, std::uint16_t value) {
    StoreWord(address, value);
    if (SystemRange(address) && address != word::Page) ApplySystemWord(address);
}

} // namespace

void LoadPagePresets(std::uint16_t page) {
    const std::uint32_t row = Sections.PagePresetTable + PagePresetRowBytes * page;
    PresetBytes = std::min<std::size_t>(ReadU16(row + 4), PagePresetCapacity);
    FlashRead(Presets.data(), ReadU32(row), PresetBytes);
}

void ApplyPagePreset(std::uint16_t id) {
    if (ChainLength >= LongestChain) return;
    ++ChainLength;
    const int nested = ChainLength;
    const PresetItems items = findItems(id);
    for (std::size_t i = 0; i < items.count; ++i)
        applyItem(littleEndianWord(items.bytes, ItemBytes * i),
                  littleEndianWord(items.bytes, ItemBytes * i + 2));
    ApplySystemWord(word::Page);
    if (nested == 1) ChainLength = 0; // the budget is for the whole chain, branches included
}

} // namespace panel
