// Text from the fonts of the image: three entries with nearly the same contract, for the frame, for a sliding
// list and for a picture that is composed on the WorkSurface. Engine thread.
//
// Anchors: 0..8 place the text in its box, 0, 3, 6 left, 1, 4, 7 centred, 2, 5, 8 right; 0..2 in the
// middle, 3..5 at the top, 6..8 at the bottom. 9, 10 and 11, of DrawTextWork() alone, place its first line at
// a point, which is left of it, at its centre or right of it. An anchor that an entry does not know is taken
// as left and top.
//
// Lines break between any two characters, and at code 10. A text ends at its length or at the first byte that
// the encoding does not know; a zero byte is one. What does not fit into the height of the box is dropped.
#pragma once

#include "graphics/font.h"
#include "graphics/glyphs.h"
#include "graphics/image_row.h"

#include <QPoint>
#include <QRect>

#include <cstdint>
#include <span>

namespace panel {

/// Width in px of the line measured last; after a masked text the width of its asterisks.
inline std::uint16_t LastTextWidth = 0;

/// What lies behind a text that is not opaque.
enum class BackSource : std::uint8_t { Page = 0, Image = 1, Text = 2 };
struct TextBackground {
    BackSource source = BackSource::Page;
    PlacedImageRow image{}; // of BackSource::Image; its stored rows are as long as it is wide
};

/// Where a text goes, in px of the target; all four bounds are inside.
struct TextBox {
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

enum class TextMode : std::uint8_t {
    Draw = 0,
    Masked = 1,  // every character as "*"
    Measure = 2, // nothing is drawn
};

using TextBytes = std::span<const std::uint8_t>;

// Draw a text and clean what the box has around it. They give LastTextWidth; or 0, and nothing is touched,
// when not even one line fits into the box, when the font has no height or when the encoding is unknown.

std::uint16_t DrawTextFrame(const TextStyle& style, const TextBackground& background, TextBox box,
                            TextBytes text, TextMode mode = TextMode::Draw);
/// On ListSurfaceA; some of its cleaning lands on the FrameSurface, as on the panel.
std::uint16_t DrawTextList(const TextStyle& style, const TextBackground& background, TextBox box,
                           TextBytes text, TextMode mode = TextMode::Draw);

/// Draws a text on the WorkSurface, along the direction of the panel's Rotation; glyphs are not turned.
/// Cleans nothing but, in an opaque style, the box. The lines follow each other without spacing.
void DrawTextWork(const TextStyle& style, QRect box, TextBytes text, bool masked = false);

// One character, by the glyph that FontReader::unitAt() gives. `depthCode` is that of the FontReader.

/// Draws the character with the background of its cell on the FrameSurface, by way of the WorkSurface where
/// need be.
void DrawGlyphCell(const TextStyle& style, std::uint8_t depthCode, const TextBackground& background,
                   QPoint at, int cellWidth, std::uint32_t glyph);
/// The same for ListSurfaceA.
void DrawGlyphCellList(const TextStyle& style, std::uint8_t depthCode, const TextBackground& background,
                       QPoint at, int cellWidth, std::uint32_t glyph);
/// Paints the glyph alone on the WorkSurface.
void DrawGlyphAt(const TextStyle& style, std::uint8_t depthCode, QPoint at, int cellWidth,
                 std::uint32_t glyph);

} // namespace panel
