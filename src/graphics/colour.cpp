#include "graphics/colour.h"

#include "graphics/pixels.h"
#include "host/config_block.h"

namespace panel {
namespace {

/// The colour of a word, not premultiplied.
Pixel straightPixel(std::uint32_t word, ColourKind kind) {
    const bool opaque = kind == ColourKind::Opaque;
    if (ColourMode == 0) return opaque ? FromRgb565(word) : FromArgb4444(word);
    return opaque ? word | OpaqueBlack : word;
}

} // namespace

QColor ExpandColour(std::uint32_t word, ColourKind kind) {
    return QColor::fromRgba(straightPixel(word, kind));
}

std::uint32_t ExpandPixel(std::uint32_t word, ColourKind kind) {
    return Premultiplied(straightPixel(word, kind));
}

} // namespace panel
