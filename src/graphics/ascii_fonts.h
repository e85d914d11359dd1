// The four fonts that are part of the program, and the text of the error screen, which is drawn with them.
#pragma once

#include <QPoint>

#include <cstdint>
#include <span>
#include <string_view>

namespace panel {

/// A font of the characters 0x20..0x7E, one bit a pixel from the most significant on, each row in whole
/// bytes.
struct AsciiFont {
    int width = 0; // px, half the height
    int height = 0;
    std::span<const std::uint8_t> glyphs{};

    int rowBytes() const { return (width + 7) / 8; }
    /// The rows of a character 0x20..0x7E.
    std::span<const std::uint8_t> glyph(char character) const;
};

/// The font of that height, or nullptr when it is not 12, 16, 24 or 32.
const AsciiFont* FindAsciiFont(int height);

/// What lies behind the characters of DrawAsciiText().
enum class AsciiBackground : std::uint8_t { Colour = 0, Page = 1 };

/// Draws a text on the FrameSurface, and goes on at x 0 of the next line at the right edge of the panel. Ends
/// at its bottom edge and at a character that the fonts do not have; a height without a font draws nothing.
/// Colours are words of the image's colour mode. Engine thread.
void DrawAsciiText(QPoint at, int fontHeight, AsciiBackground background, std::uint32_t colour,
                   std::uint32_t backColour, std::string_view text);

} // namespace panel
