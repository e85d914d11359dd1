#include "graphics/ascii_fonts.h"

#include "graphics/ascii_art.h"
#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"

#include <algorithm>
#include <array>

namespace panel {
namespace {

constexpr char FirstCharacter = 0x20;
constexpr char LastCharacter = 0x7E;
constexpr std::size_t CharacterCount = LastCharacter - FirstCharacter + 1;
constexpr std::size_t ArtColumns = 8; // glyphs side by side

constexpr bool isDrawn(char character) { return character >= FirstCharacter && character <= LastCharacter; }
constexpr std::size_t rowBytes(std::size_t width) { return (width + 7) / 8; }

template <std::size_t Height>
using Table = std::array<std::uint8_t, CharacterCount * Height * rowBytes(Height / 2)>;

/// The pixels of a table under construction; what lies outside a glyph is not set.
template <std::size_t Height>
struct Canvas {
    static constexpr int Width = Height / 2;
    Table<Height> table{};

    constexpr std::size_t at(std::size_t glyph, int x, int y) const {
        const std::size_t row = glyph * Height + static_cast<std::size_t>(y);
        return row * rowBytes(Width) + static_cast<std::size_t>(x) / 8;
    }
    constexpr bool isSet(std::size_t glyph, int x, int y) const {
        if (x < 0 || y < 0 || x >= Width || y >= static_cast<int>(Height)) return false;
        return (table[at(glyph, x, y)] & 0x80 >> x % 8) != 0;
    }
    constexpr void set(std::size_t glyph, int x, int y) {
        std::uint8_t& byte = table[at(glyph, x, y)];
        byte = static_cast<std::uint8_t>(byte | 0x80 >> x % 8);
    }
};

template <std::size_t Height>
constexpr Table<Height> tableOfArt(std::string_view art) {
    constexpr std::size_t bandPixels = ArtColumns * Height * (Height / 2);
    Canvas<Height> canvas;
    std::size_t band = 0, inBand = 0;
    for (const char pixel : art) {
        if (pixel != '#' && pixel != '.') continue;
        const std::size_t columns = std::min(ArtColumns, CharacterCount - band * ArtColumns);
        const std::size_t lineWidth = columns * canvas.Width;
        const std::size_t glyph = band * ArtColumns + inBand % lineWidth / canvas.Width;
        if (pixel == '#')
            canvas.set(glyph, static_cast<int>(inBand % lineWidth % canvas.Width),
                       static_cast<int>(inBand / lineWidth));
        if (++inBand == bandPixels) ++band, inBand = 0;
    }
    return canvas.table;
}

/// Every pixel becomes four. Where two pixels meet by their corners alone, the quarters beside that corner
/// are set too, so that slanting strokes become smooth and square corners stay.
template <std::size_t Height>
constexpr Table<2 * Height> doubled(const Table<Height>& table) {
    const Canvas<Height> from{table};
    Canvas<2 * Height> to;
    for (std::size_t glyph = 0; glyph < CharacterCount; ++glyph)
        for (int y = 0; y < to.Width * 2; ++y)
            for (int x = 0; x < to.Width; ++x) {
                const int fromX = x / 2, fromY = y / 2;
                const int sideX = fromX + (x % 2 == 0 ? -1 : 1), sideY = fromY + (y % 2 == 0 ? -1 : 1);
                const bool fillsStep = from.isSet(glyph, sideX, fromY) && from.isSet(glyph, fromX, sideY)
                                       && !from.isSet(glyph, sideX, sideY);
                if (from.isSet(glyph, fromX, fromY) || fillsStep) to.set(glyph, x, y);
            }
    return to.table;
}

constexpr auto Glyphs12 = tableOfArt<12>(SmallAsciiArt);
constexpr auto Glyphs16 = tableOfArt<16>(LargeAsciiArt);
constexpr auto Glyphs24 = doubled<12>(Glyphs12);
constexpr auto Glyphs32 = doubled<16>(Glyphs16);

constexpr AsciiFont Fonts[] = {{6, 12, Glyphs12}, {8, 16, Glyphs16}, {12, 24, Glyphs24}, {16, 32, Glyphs32}};

void drawCharacter(const AsciiFont& font, char character, std::uint32_t colour) {
    const auto rows = font.glyph(character);
    for (int y = 0; y < font.height; ++y)
        for (int x = 0; x < font.width; ++x) {
            const std::uint8_t byte = rows[static_cast<std::size_t>(y * font.rowBytes() + x / 8)];
            if ((byte & 0x80 >> x % 8) != 0) PlotWork(x, y, colour);
        }
}

} // namespace

std::span<const std::uint8_t> AsciiFont::glyph(char character) const {
    const auto bytes = static_cast<std::size_t>(rowBytes() * height);
    return glyphs.subspan(static_cast<std::size_t>(character - FirstCharacter) * bytes, bytes);
}

const AsciiFont* FindAsciiFont(int height) {
    const auto* found = std::ranges::find(Fonts, height, &AsciiFont::height);
    return found == std::end(Fonts) ? nullptr : found;
}

void DrawAsciiText(QPoint at, int fontHeight, AsciiBackground background, std::uint32_t colour,
                   std::uint32_t backColour, std::string_view text) {
    const AsciiFont* font = FindAsciiFont(fontHeight);
    if (!font) return;
    const QRect workCell(0, 0, font->width, font->height);
    for (const char character : text) {
        if (!isDrawn(character)) return;
        if (at.x() + font->width > DisplayWidth) at = {0, at.y() + font->height};
        if (at.y() + font->height > DisplayHeight) return;
        if (background == AsciiBackground::Page)
            BlitPage({0, 0}, {at, workCell.size()});
        else
            FillWorkRect(workCell, backColour);
        drawCharacter(*font, character, colour);
        CopyToFrame(WorkSurface, workCell, at);
        at.rx() += font->width;
    }
}

} // namespace panel
