#include "pages/language_strings.h"

#include "host/flash_image.h"
#include "store/language.h"

#include <algorithm>

namespace panel {

std::uint32_t StringAddress(std::uint16_t index) {
    if (index == 0 || index > Sections.StringCount) return NoString;
    const std::uint32_t row = Sections.StringCount * Language + index - 1;
    return ReadU32(Sections.StringTable + StringRowBytes * row);
}

LanguageString ReadString(std::uint32_t address) {
    const std::uint16_t length = ReadU16(address + 4);
    return {.colour = ReadU24(address),
            .font = ReadU8(address + 3),
            .length = length,
            .text = FlashBytes(address + StringHeadBytes, std::min(length, LongestString))};
}

} // namespace panel
