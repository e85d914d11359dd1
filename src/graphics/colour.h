// Colour words of the image, in the encoding that the image's colour mode selects.
#pragma once

#include <QColor>

#include <cstdint>

namespace panel {

/// Whether a colour word carries alpha.
enum class ColourKind : std::uint32_t { Opaque = 0, WithAlpha = 2 };

/// The colour of a word: RGB565 or aRGB4444 in colour mode 0, 0x00RRGGBB or 0xAARRGGBB in colour mode 1.
QColor ExpandColour(std::uint32_t word, ColourKind kind);

/// The same colour as a premultiplied pixel of the surfaces.
std::uint32_t ExpandPixel(std::uint32_t word, ColourKind kind);

} // namespace panel
