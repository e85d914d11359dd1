#include "graphics/image_row.h"

#include "host/flash_image.h"
#include "store/language.h"

namespace panel {

ImageRow ReadImageRow(std::uint32_t address) {
    return {.Address = ReadU32(address),
            .Width = ReadU16(address + 4),
            .Height = ReadU16(address + 6),
            .Extra = ReadU24(address + 8),
            .Format = ReadU8(address + 11)};
}

// Addresses wrap in 32 bits; a wrong table leads to some other place of the image or beyond its end, never
// outside.

ImageRow PageImageRow(std::uint16_t page) {
    if (page >= Sections.PageCount) return {};
    return ReadImageRow(Sections.PageImageTable + ImageRowBytes * page);
}

ImageRow TableImageRow(std::uint16_t index) {
    if (index >= Sections.ImageCount) return {};
    const std::uint32_t rows = Sections.ImageCount * Language + index;
    return ReadImageRow(Sections.ImageTable + ImageRowBytes * rows);
}

} // namespace panel
