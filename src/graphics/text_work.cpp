#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "graphics/text.h"
#include "graphics/text_layout.h"
#include "host/config_block.h"

namespace panel {
namespace {

/// Where the lines of a text begin that is composed on the WorkSurface and runs with the panel's rotation.
class TurnedLines {
public:
    TurnedLines(const TextStyle& style, QRect box)
        : style_(style), origin_(box.topLeft()), room_(TurnedSize(box.size())) {}

    QSize room() const { return room_; }

    QPoint first(int width, int lines) const {
        switch (style_.anchor) {
        case PointCentre: return {origin_.x() - width / 2 + 1, origin_.y()};
        case PointRight: return {origin_.x() - width + 1, origin_.y()};
        default: break;
        }
        const int spare = room_.height() - lines * style_.font.height;
        return {origin_.x() + part(HorizontalSide(style_.anchor), room_.width() - width),
                origin_.y() + part(VerticalSide(style_.anchor), spare)};
    }

    /// The start of line `number` (from 1), when the line before it has ended at `pen`.
    QPoint next(int number, int width, QPoint firstLine, QPoint pen) const {
        const int spare = room_.width() - width;
        const int down = number * style_.font.height;
        const int x = origin_.x(), y = origin_.y();
        if (!HasWideUnits(style_.font.encoding))
            return {along(pen.x(), x, x + spare / 2, x + spare), firstLine.y() + down};
        const int end = style_.font.encoding == Encoding::Sparse ? room_.width() : room_.height();
        switch (Rotation) {
        case 1: return {firstLine.x() - down, along(pen.y(), y, y + spare / 2, y + spare)};
        case 2:
            return {along(pen.x(), x + room_.width(), x + room_.width() - spare / 2, x + width),
                    firstLine.y() - down};
        case 3: return {firstLine.x() + down, along(pen.y(), y + end, y + end - spare / 2, y - 1 + width)};
        default: return {along(pen.x(), x, x + spare / 2, x + spare), firstLine.y() + down};
        }
    }

    static QPoint step(int advance) {
        switch (Rotation) {
        case 1: return {0, advance};
        case 2: return {-advance, 0};
        case 3: return {0, -advance};
        default: return {advance, 0};
        }
    }

private:
    static constexpr std::uint8_t PointLeft = 9, PointCentre = 10, PointRight = 11;

    static int part(Side side, int spare) {
        return side == Side::Near ? 0 : side == Side::Centre ? spare / 2 : spare;
    }

    /// The coordinate that the anchor sets; those at a point leave it where the pen is.
    int along(int pen, int near, int centre, int far) const {
        if (style_.anchor >= PointLeft && style_.anchor <= PointRight) return pen;
        const Side side = HorizontalSide(style_.anchor);
        return side == Side::Near ? near : side == Side::Centre ? centre : far;
    }

    const TextStyle& style_;
    QPoint origin_;
    QSize room_;
};

/// A masked text stands where the text that it hides would stand: `measured` are the lines of that text.
void drawLines(const TextLayout& layout, const std::vector<LaidLine>& measured, int lines,
               const TurnedLines& place, const GlyphPainter& painter) {
    const QPoint first = place.first(measured.front().width, lines);
    QPoint pen = first;
    for (std::size_t n = 0; n < layout.lines.size(); ++n) {
        const int width = n < measured.size() ? measured[n].width : layout.lines[n].width;
        if (n > 0) pen = place.next(static_cast<int>(n), width, first, pen);
        for (const LaidGlyph& glyph : layout.glyphsOf(layout.lines[n])) {
            painter.paint(WorkSurface, pen, glyph.advance, glyph.glyph);
            pen += TurnedLines::step(glyph.advance);
        }
    }
}

} // namespace

void DrawTextWork(const TextStyle& style, QRect box, TextBytes text, bool masked) {
    const int height = style.font.height;
    if (height == 0 || !IsKnownEncoding(style.font.encoding)) return;
    const FontReader font(style.font);
    const TurnedLines place(style, box);
    const LineRules rules{.width = place.room().width(),
                          .height = place.room().height(),
                          .glyphHeight = height,
                          .charSpacing = style.charSpacing};
    TextLayout layout = LayOutText(font, text, rules);
    const int lines = LinesInside(layout, height, rules.height);
    SetLastTextWidth(layout.lines.back().width);
    if (lines == 0) return;
    const std::vector<LaidLine> measured = layout.lines;
    if (masked) layout = MaskedLayout(layout, font, rules, 0);
    if (style.opaque) FillWorkRect({box.topLeft(), place.room()}, style.backColour);
    drawLines(layout, measured, lines, place, GlyphPainter(style, font.depthCode()));
}

void DrawGlyphAt(const TextStyle& style, std::uint8_t depthCode, QPoint at, int cellWidth,
                 std::uint32_t glyph) {
    GlyphPainter(style, depthCode).paint(WorkSurface, at, cellWidth, glyph);
}

} // namespace panel
