#include "store/language.h"

#include "graphics/image_row.h"
#include "host/config_block.h"
#include "host/flash_image.h"
#include "pages/page_switch.h"
#include "store/system_words.h"
#include "store/variable_store.h"

#include <algorithm>

namespace panel {
namespace {

std::uint16_t littleEndianWord(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

/// Copies the records of a preset stream to the store: word address, byte count, bytes in store order.
void storePresets(std::span<const std::uint8_t> stream) {
    constexpr std::size_t headBytes = 4;
    while (stream.size() >= headBytes) {
        const std::uint16_t address = littleEndianWord(stream, 0);
        const std::size_t count = littleEndianWord(stream, 2);
        stream = stream.subspan(headBytes);
        const std::size_t held = std::min(count, stream.size());
        if (IsStoreWord(address)) StoreBytes(2 * std::size_t{address}, stream.first(held));
        stream = stream.subspan(held);
    }
}

void loadLanguagePresets(std::uint8_t language) {
    if (Sections.LanguagePresetCount == 0) return;
    const std::uint32_t row = Sections.LanguagePresetTable + LanguagePresetRowBytes * language;
    storePresets(FlashBytes(ReadU32(row), ReadU32(row + 4)));
}

void showAgain() {
    if (PopupActive) {
        if (PopupPage < Sections.PageCount) OpenPopup(PopupPage, PopupOriginX, PopupOriginY);
    } else if (CurrentPage < Sections.PageCount) {
        ShowPageUnchecked(CurrentPage);
    }
}

} // namespace

void ChangeLanguage() {
    const std::uint8_t wanted = ReadLowByte(word::Language);
    if (wanted >= LanguageCount || wanted == Language) {
        StoreLowByte(word::Language, Language);
        return;
    }
    Language = wanted;
    loadLanguagePresets(wanted);
    showAgain();
}

} // namespace panel
