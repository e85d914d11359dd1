#include "graphics/text.h"

#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "graphics/text_layout.h"
#include "host/config_block.h"

namespace panel {
namespace {

/// A line of proportional characters may be this much wider than its box, on the frame and on lists.
constexpr int ProportionalTolerance = 2; // px

/// What differs between texts on the frame and texts on a sliding list.
struct BoxTarget {
    void (*fill)(QRect rect, std::uint32_t word);
    void (*restorePage)(QRect rect);    // the first strip
    void (*restoreCell)(QRect cell);    // from the page to the WorkSurface
    void (*land)(QRect cell);           // from the WorkSurface
    bool (*restoreInPlace)(QRect cell); // from the page; false where that needs the WorkSurface
    QImage& surface;
    int maskedExtra;     // px that each asterisk adds to the width of a masked text
    int sparseCellExtra; // px that the cell of a sparse character is wider than its advance
};

void restorePageOnFrame(QRect rect) { RestoreFrameRect(rect.topLeft(), PageImage, rect, DisplayWidth); }
void restoreListStrip(QRect rect) {
    CopySurfaceRect(ListSurfaceB, rect, WorkSurface, {0, 0});
    CopySurfaceRect(ListSurfaceB, rect, ListSurfaceA, rect.topLeft());
}
void restoreFrameCell(QRect cell) { RestoreWorkRect({0, 0}, cell); }
void restoreListCell(QRect cell) { CopySurfaceRect(ListSurfaceB, cell, WorkSurface, {0, 0}); }
void landOnFrame(QRect cell) { CopyToFrame(WorkSurface, {{0, 0}, cell.size()}, cell.topLeft()); }
void landOnList(QRect cell) {
    CopySurfaceRect(WorkSurface, {{0, 0}, cell.size()}, ListSurfaceA, cell.topLeft());
}

/// A page that replaces every pixel of a cell looks the same wherever it is put first.
bool restoreFrameInPlace(QRect cell) {
    if (PopupActive == 1 || PageImage.Format == format::ZipImage) {
        CopySurfaceRect(PageBackground, cell, FrameSurface, cell.topLeft());
        return true;
    }
    if (PageImage.Format != format::RGB565 && PageImage.Format != format::PngOpaque
        && PageImage.Format != format::SolidColour)
        return false;
    BlitImage(FrameSurface, cell.topLeft(), PageImage, cell, DisplayWidth);
    return true;
}
bool restoreListInPlace(QRect cell) {
    CopySurfaceRect(ListSurfaceB, cell, ListSurfaceA, cell.topLeft());
    return true;
}

const BoxTarget FrameTarget{.fill = FillFrameRect,
                            .restorePage = restorePageOnFrame,
                            .restoreCell = restoreFrameCell,
                            .land = landOnFrame,
                            .restoreInPlace = restoreFrameInPlace,
                            .surface = FrameSurface,
                            .maskedExtra = 2,
                            .sparseCellExtra = 0};
const BoxTarget ListTarget{.fill = FillListRect,
                           .restorePage = restoreListStrip,
                           .restoreCell = restoreListCell,
                           .land = landOnList,
                           .restoreInPlace = restoreListInPlace,
                           .surface = ListSurfaceA,
                           .maskedExtra = 0,
                           .sparseCellExtra = 2};

QRect inImage(const TextBackground& background, QRect rect) {
    return rect.translated(-background.image.OriginX, -background.image.OriginY);
}

/// The image behind a cell, and the page behind the image where that may be transparent.
void restoreImageCell(const TextBackground& background, QRect cell) {
    const ImageRow& image = background.image;
    if (image.Format == format::SolidColour) return FillWorkRect({{0, 0}, cell.size()}, PageImage.Extra);
    if (image.Format != format::RGB565) BlitPage({0, 0}, cell);
    BlitImage(WorkSurface, {0, 0}, image, inImage(background, cell), image.Width);
}

/// Draws characters with the background of their cells. A cell is composed on the WorkSurface and lands from
/// there; where the outcome is the same it is composed in its place, which saves two copies of it.
class CellPainter {
public:
    CellPainter(const TextStyle& style, std::uint8_t depthCode, const TextBackground& background,
                const BoxTarget& target)
        : style_(style), background_(background), target_(target), painter_(style, depthCode),
          drawsPixels_(IsKnownDepth(depthCode)) {}

    void draw(QPoint at, int width, std::uint32_t glyph) const {
        const QRect cell(at, QSize(width, style_.font.height));
        if (!cell.intersects(target_.surface.rect())) return;
        if (composesInPlace(cell)) return paintGlyph(target_.surface, cell, glyph);
        composeBackground(cell);
        paintGlyph(WorkSurface, {{0, 0}, cell.size()}, glyph);
        target_.land(cell);
    }

    /// Draws the characters of a line. Cells that do not overlap have their background in one piece.
    void drawLine(QPoint at, int width, std::span<const LaidGlyph> glyphs, int cellExtra) const {
        const int height = style_.font.height;
        const bool ready = cellExtra == 0 && composesInPlace({at, QSize(width, height)});
        for (const LaidGlyph& glyph : glyphs) {
            if (ready)
                paintGlyph(target_.surface, {at, QSize(glyph.advance, height)}, glyph.glyph);
            else
                draw(at, glyph.advance + cellExtra, glyph.glyph);
            at.rx() += glyph.advance;
        }
    }

private:
    void paintGlyph(QImage& surface, QRect cell, std::uint32_t glyph) const {
        if (drawsPixels_) painter_.paint(surface, cell.topLeft(), cell.width(), glyph);
    }

    /// Puts the background where the cells lie; false, and nothing is done, where that would make a
    /// difference: small chips cut large cells, and so does a small WorkSurface.
    bool composesInPlace(QRect cells) const {
        if (SmallChip() || cells.width() > WorkSurface.width() || cells.height() > WorkSurface.height())
            return false;
        if (style_.opaque) {
            target_.fill(cells, style_.backColour);
            return true;
        }
        return background_.source == BackSource::Page && target_.restoreInPlace(cells);
    }

    void composeBackground(QRect cell) const {
        if (style_.opaque) return FillWorkRect({{0, 0}, cell.size()}, style_.backColour);
        switch (background_.source) {
        case BackSource::Page: return target_.restoreCell(cell);
        case BackSource::Image: return restoreImageCell(background_, cell);
        case BackSource::Text: return CopySurfaceRect(TextSurface, cell, WorkSurface, {0, 0});
        }
    }

    const TextStyle& style_;
    const TextBackground& background_;
    const BoxTarget& target_;
    GlyphPainter painter_;
    bool drawsPixels_; // an unknown depth leaves the cells empty
};

/// A text in a box: measured once, then cleaned and drawn line by line from the top.
class BoxText {
public:
    BoxText(const TextStyle& style, const TextBackground& background, TextBox box, const BoxTarget& target)
        : style_(style), background_(background), target_(target), font_(style.font),
          cells_(style, font_.depthCode(), background, target),
          rect_(QPoint(box.x1, box.y1), QPoint(box.x2, box.y2)), turnedSize_(TurnedSize(rect_.size())) {}

    std::uint16_t draw(TextBytes text, TextMode mode) {
        if (style_.font.height == 0 || !IsKnownEncoding(style_.font.encoding)) return 0;
        const LineRules rules = lineRules();
        TextLayout layout = LayOutText(font_, text, rules);
        const int lines = LinesInside(layout, style_.font.height, rect_.height());
        SetLastTextWidth(layout.lines.back().width);
        if (lines == 0) return 0;
        if (mode == TextMode::Masked) layout = MaskedLayout(layout, font_, rules, target_.maskedExtra);
        if (mode != TextMode::Measure) drawLines(layout, lines);
        return LastTextWidth;
    }

private:
    bool isSparse() const { return style_.font.encoding == Encoding::Sparse; }

    LineRules lineRules() const {
        const QSize room = isSparse() ? turnedSize_ : rect_.size();
        const bool proportional = style_.font.encoding == Encoding::Proportional;
        return {.width = room.width(),
                .height = room.height(),
                .glyphHeight = style_.font.height,
                .charSpacing = style_.charSpacing,
                .lineSpacing = style_.lineSpacing,
                .tolerance = proportional ? ProportionalTolerance : 0};
    }

    void drawLines(const TextLayout& layout, int lines) const {
        int y = cleanFirstStrip(lines);
        for (const LaidLine& line : layout.lines) {
            if (lines-- == 0) break;
            drawLine(layout, line, y);
            y += style_.font.height + style_.lineSpacing;
        }
        if (y < rect_.bottom()) clean({rect_.x(), y, rect_.width(), rect_.bottom() + 1 - y});
    }

    /// Cleans the box down to the end of the first line and gives the y of that line.
    int cleanFirstStrip(int lines) const {
        const int height = style_.font.height;
        const int spare = turnedSize_.height() - lines * height;
        int y = rect_.y();
        int stripHeight = height;
        switch (VerticalSide(style_.anchor)) {
        case Side::Near: break;
        case Side::Centre:
            y += spare / 2;
            stripHeight += spare / 2;
            break;
        case Side::Far:
            y = rect_.bottom() - lines * height;
            stripHeight += spare;
            break;
        }
        const QRect strip(rect_.topLeft(), QSize(turnedSize_.width(), stripHeight));
        if (style_.opaque)
            target_.fill(strip, style_.backColour);
        else if (background_.source == BackSource::Page)
            target_.restorePage(strip);
        else if (background_.source == BackSource::Image)
            restoreImage(strip);
        return y;
    }

    void drawLine(const TextLayout& layout, const LaidLine& line, int y) const {
        const int height = style_.font.height;
        const int spare = rect_.width() - line.width;
        const Side side = HorizontalSide(style_.anchor);
        int x = rect_.x();
        if (side == Side::Centre) x += spare / 2;
        if (side == Side::Far) x += spare;
        if (x > rect_.x()) clean({rect_.x(), y, x - rect_.x(), height});
        const int cellExtra = isSparse() ? target_.sparseCellExtra : 0;
        cells_.drawLine({x, y}, line.width, layout.glyphsOf(line), cellExtra);
        x += line.width;
        if (spare > 0 && side != Side::Far) clean({x, y, rect_.right() + 1 - x, height});
    }

    void clean(QRect rect) const {
        if (style_.opaque) return target_.fill(rect, style_.backColour);
        switch (background_.source) {
        case BackSource::Page: return restorePageOnFrame(rect);
        case BackSource::Image: return restoreImage(rect);
        case BackSource::Text: return CopySurfaceRect(TextSurface, rect, FrameSurface, rect.topLeft());
        }
    }

    void restoreImage(QRect rect) const {
        RestoreFrameRect(rect.topLeft(), background_.image, inImage(background_, rect),
                         background_.image.Width);
    }

    const TextStyle& style_;
    const TextBackground& background_;
    const BoxTarget& target_;
    FontReader font_;
    CellPainter cells_;
    QRect rect_;
    QSize turnedSize_; // of a panel on its side
};

} // namespace

std::uint16_t DrawTextFrame(const TextStyle& style, const TextBackground& background, TextBox box,
                            TextBytes text, TextMode mode) {
    return BoxText(style, background, box, FrameTarget).draw(text, mode);
}

std::uint16_t DrawTextList(const TextStyle& style, const TextBackground& background, TextBox box,
                           TextBytes text, TextMode mode) {
    return BoxText(style, background, box, ListTarget).draw(text, mode);
}

void DrawGlyphCell(const TextStyle& style, std::uint8_t depthCode, const TextBackground& background,
                   QPoint at, int cellWidth, std::uint32_t glyph) {
    CellPainter(style, depthCode, background, FrameTarget).draw(at, cellWidth, glyph);
}

void DrawGlyphCellList(const TextStyle& style, std::uint8_t depthCode, const TextBackground& background,
                       QPoint at, int cellWidth, std::uint32_t glyph) {
    CellPainter(style, depthCode, background, ListTarget).draw(at, cellWidth, glyph);
}

} // namespace panel
