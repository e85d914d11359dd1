#include "tests/graphics/plain_text.h"

#include "graphics/colour.h"
#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"

#include <array>

namespace panel {

// Where red, green and blue stand in a colour word, and the largest that each can be.
using ColourFields = std::array<std::pair<int, std::uint32_t>, 3>;
constexpr ColourFields Colour565{{{11, 31}, {5, 63}, {0, 31}}}, Colour888{{{16, 255}, {8, 255}, {0, 255}}};

Encoding EncodingOf(FontKind kind) {
    using enum Encoding;
    return std::array{Gb2312, Gbk, Big5, Ascii, Wide, Proportional, Sparse}[static_cast<std::size_t>(kind)];
}

bool PlainText::wide() const {
    return shape.Kind == FontKind::Wide || shape.Kind == FontKind::Proportional || sparse();
}

std::optional<std::uint16_t> PlainText::pairAt(std::size_t p) const {
    if (p + 1 >= text.size()) return {};
    const int lead = text[p], second = text[p + 1];
    const auto code = static_cast<std::uint16_t>(lead << 8 | second);
    if (shape.Kind == FontKind::Gb2312 && lead >= 0xA1 && lead <= 0xFE) return code;
    if (shape.Kind == FontKind::Gbk && lead >= 0x81 && lead <= 0xFE && second >= 0x40) return code;
    if (shape.Kind == FontKind::Big5 && lead >= 0xA1 && second >= 0x40)
        return second >= 0x80 && second <= 0x9F ? static_cast<std::uint16_t>(lead << 8 | 0x40) : code;
    return {};
}

std::optional<PlainText::Unit> PlainText::unitAt(std::size_t p) const {
    const int spacing = style.charSpacing;
    const auto asciiAdvance = [&](std::uint16_t c) {
        return spacing + (c >= 0x20 && c <= 0x7E ? imagekit::SyntheticAdvance(shape, c) : 0);
    };
    if (p >= text.size()) return {};
    if (!wide()) {
        if (text[p] == 0) return {};
        if (text[p] < 0x80) return Unit{1, asciiAdvance(text[p]), text[p]};
        const auto pair = pairAt(p);
        return pair ? std::optional(Unit{2, shape.Width + spacing, *pair}) : std::nullopt;
    }
    if (p + 1 >= text.size()) return {};
    const auto code = static_cast<std::uint16_t>(text[p] << 8 | text[p + 1]);
    if (code == 0) return {};
    if (code == 10) return Unit{2, 0, 10};
    const int ownAdvance = imagekit::SyntheticAdvance(shape, code) + spacing;
    if (sparse()) {
        for (const std::uint16_t there : shape.Codes)
            if (there == code) return Unit{2, ownAdvance, code};
        return {};
    }
    if (code < 0x80) return Unit{2, asciiAdvance(code), code};
    if (code < shape.FirstCode || code > shape.LastCode) return {};
    return Unit{2, shape.Kind == FontKind::Wide ? shape.Width + spacing : ownAdvance, code};
}

PlainText::Measured PlainText::measure(int width, int height, int pitch, int tolerance) {
    Measured measured;
    int lineWidth = 0, used = 0;
    for (std::size_t p = 0;;) {
        const auto unit = unitAt(p);
        if (unit && unit->code != 10 && lineWidth + unit->advance - tolerance <= width) {
            lineWidth += unit->advance;
            ++measured.characters;
            p += static_cast<std::size_t>(unit->bytes);
            continue;
        }
        measured.widths.push_back(lineWidth);
        LastTextWidth = static_cast<std::uint16_t>(lineWidth);
        used += pitch;
        if (height < used + style.font.height || !unit) return measured;
        lineWidth = 0;
        if (unit->code == 10) p += static_cast<std::size_t>(unit->bytes);
    }
}

void PlainText::mask(int characters, int extra) {
    // A sparse font has its list of codes in the place of the widths: the low byte of the sixth.
    const int width = sparse() ? shape.Codes[5] & 0xFF : imagekit::SyntheticAdvance(shape, '*');
    LastTextWidth = static_cast<std::uint16_t>(characters * (width + extra + style.charSpacing));
    text.clear();
    for (int i = 0; i < characters; ++i) {
        if (wide()) text.push_back(0);
        text.push_back('*');
    }
}

void PlainText::plotGlyph(std::uint16_t code, int x, int y, int cellWidth) const {
    const auto mixed = [&](int v, int whole) {
        std::uint32_t word = 0;
        for (const auto& [shift, largest] : ColourMode == 0 ? Colour565 : Colour888) {
            const auto back = static_cast<int>(style.backColour >> shift & largest);
            const auto fore = static_cast<int>(style.colour >> shift & largest);
            word |= static_cast<std::uint32_t>((back * (whole - v) + fore * v) / whole) << shift;
        }
        return word;
    };
    const int full = (1 << shape.Depth) - 1;
    for (int row = 0; row < shape.Height; ++row)
        for (int column = 0; column < std::min<int>(shape.Width, cellWidth); ++column) {
            const int v = imagekit::SyntheticPixel(shape, code, column, row);
            if (v == full)
                PlotWork(x + column, y + row, style.colour);
            else if (full > 1 && style.opaque)
                PlotWork(x + column, y + row, mixed(v, full == 3 ? 4 : 15));
            else if (full > 1 && v > 0) {
                QColor colour = ExpandColour(style.colour, ColourKind::Opaque);
                colour.setAlpha(v * (full == 3 ? 0x55 : 0x12));
                BlendPixel(WorkSurface, x + column, y + row, colour);
            }
        }
}

void PlainText::drawCell(std::uint16_t code, int x, int y, int cellWidth, bool list) const {
    const QRect cell(x, y, cellWidth, style.font.height), work(0, 0, cellWidth, style.font.height);
    if (style.opaque)
        FillWorkRect(work, style.backColour);
    else if (background.source == BackSource::Text)
        CopySurfaceRect(TextSurface, cell, WorkSurface, {0, 0});
    else if (background.source == BackSource::Page && list)
        CopySurfaceRect(ListSurfaceB, cell, WorkSurface, {0, 0});
    else if (background.source == BackSource::Page)
        RestoreWorkRect({0, 0}, cell);
    else if (background.image.Format == format::SolidColour)
        FillWorkRect(work, PageImage.Extra);
    else {
        ImageRow page;
        page.Address = PageImage.Address;
        page.Format = format::RGB565;
        if (background.image.Format != format::RGB565)
            BlitImage(WorkSurface, {0, 0}, page, cell, DisplayWidth);
        BlitImage(WorkSurface, {0, 0}, background.image,
                  cell.translated(-background.image.OriginX, -background.image.OriginY),
                  background.image.Width);
    }
    plotGlyph(code, 0, 0, cellWidth);
    if (list)
        CopySurfaceRect(WorkSurface, work, ListSurfaceA, {x, y});
    else
        CopyToFrame(WorkSurface, work, {x, y});
}

void PlainText::clean(int x, int y, int w, int h, bool list) const {
    const QRect rect(x, y, w, h);
    if (style.opaque)
        list ? FillListRect(rect, style.backColour) : FillFrameRect(rect, style.backColour);
    else if (background.source == BackSource::Image)
        RestoreFrameRect({x, y}, background.image,
                         rect.translated(-background.image.OriginX, -background.image.OriginY),
                         background.image.Width);
    else if (background.source == BackSource::Text)
        CopySurfaceRect(TextSurface, rect, FrameSurface, {x, y});
    else
        RestoreFrameRect({x, y}, PageImage, rect, DisplayWidth);
}

int PlainText::drawInBox(TextBox box, bool list) {
    const bool turned = Rotation % 2 == 1;
    const int boxWidth = box.x2 - box.x1 + 1, boxHeight = box.y2 - box.y1 + 1;
    const int W = turned ? boxHeight : boxWidth, H = turned ? boxWidth : boxHeight;
    const int fontHeight = style.font.height, pitch = fontHeight + style.lineSpacing;
    const int tolerance = shape.Kind == FontKind::Proportional ? 2 : 0;
    const int lineRoom = sparse() ? W : boxWidth;
    const Measured measured = measure(lineRoom, sparse() ? H : boxHeight, pitch, tolerance);
    int lines = static_cast<int>(measured.widths.size());
    if (lines * fontHeight > boxHeight) lines = boxHeight / fontHeight;
    if (lines <= 0) return 0;
    if (mode == TextMode::Measure) return LastTextWidth;
    if (mode == TextMode::Masked) mask(measured.characters, list ? 0 : 2);

    const int spare = H - lines * fontHeight;
    int y = box.y1, strip = fontHeight;
    if (style.anchor <= 2) y += spare / 2, strip += spare / 2;
    if (style.anchor >= 6 && style.anchor <= 8) y = box.y2 - lines * fontHeight, strip += spare;
    if (list && !style.opaque && background.source == BackSource::Page) {
        CopySurfaceRect(ListSurfaceB, {box.x1, box.y1, W, strip}, ListSurfaceA, {box.x1, box.y1});
    } else if (style.opaque || background.source != BackSource::Text) {
        clean(box.x1, box.y1, W, strip, list);
    }
    std::size_t p = 0;
    for (int line = 0; line < lines; ++line) {
        std::vector<Unit> units;
        int width = 0;
        auto unit = unitAt(p);
        for (; unit && unit->code != 10 && width + unit->advance - tolerance <= lineRoom; unit = unitAt(p)) {
            units.push_back(*unit);
            width += unit->advance;
            p += static_cast<std::size_t>(unit->bytes);
        }
        int x = box.x1;
        const int side = style.anchor <= 8 ? style.anchor % 3 : 0;
        if (side == 1) x = box.x1 + (boxWidth - width) / 2;
        if (side == 2) x = box.x2 + 1 - width;
        if (side == 2 ? x > box.x1 : side == 1 && width < boxWidth)
            clean(box.x1, y, x - box.x1, fontHeight, list);
        for (const Unit& one : units) {
            drawCell(one.code, x, y, one.advance + (sparse() && list ? 2 : 0), list);
            x += one.advance;
        }
        if (side != 2 && width < boxWidth) clean(x, y, box.x2 + 1 - x, fontHeight, list);
        y += pitch;
        if (!unit) break;
        if (unit->code == 10) p += static_cast<std::size_t>(unit->bytes);
    }
    if (y < box.y2) clean(box.x1, y, boxWidth, box.y2 + 1 - y, list);
    return LastTextWidth;
}

void PlainText::drawOnWork(QRect box) {
    const bool turned = Rotation % 2 == 1;
    const int W = turned ? box.height() : box.width(), H = turned ? box.width() : box.height();
    const int x = box.x(), y = box.y(), height = style.font.height, anchor = style.anchor;
    Measured measured = measure(W, H, height, 0);
    int lines = static_cast<int>(measured.widths.size());
    if (lines * height > H) lines = H / height;
    if (lines <= 0) return;
    if (mode == TextMode::Masked) {
        mask(measured.characters, 0);
        const std::uint16_t maskedWidth = LastTextWidth;
        const auto own = measure(W, H, height, 0).widths; // the measured lines count, as far as there are any
        for (std::size_t i = measured.widths.size(); i < own.size(); ++i) measured.widths.push_back(own[i]);
        LastTextWidth = maskedWidth;
    }
    if (style.opaque) FillWorkRect({x, y, W, H}, style.backColour);

    const int first = measured.widths[0];
    int sx = x, sy = y;
    if (anchor <= 8) {
        sx += anchor % 3 == 1 ? (W - first) / 2 : anchor % 3 == 2 ? W - first : 0;
        sy += anchor <= 2 ? (H - lines * height) / 2 : anchor >= 6 ? H - lines * height : 0;
    }
    if (anchor == 10) sx = x - first / 2 + 1;
    if (anchor == 11) sx = x - first + 1;
    int penX = sx, penY = sy, lineWidth = 0;
    std::size_t line = 0;
    for (std::size_t p = 0;;) {
        const auto unit = unitAt(p);
        if (!unit) return;
        if (unit->code == 10 || lineWidth + unit->advance > W) {
            if (unit->code == 10) p += static_cast<std::size_t>(unit->bytes);
            ++line;
            if (static_cast<int>(line) * height + height > H) return;
            lineWidth = 0;
            const int width = measured.widths[line];
            const int c = (W - width) / 2, d = static_cast<int>(line) * height;
            const int L = sparse() ? W : H;
            const int rotation = wide() ? int{Rotation} : 0;
            int* along = rotation % 2 == 1 ? &penY : &penX;
            int* across = rotation % 2 == 1 ? &penX : &penY;
            *across = (across == &penX ? sx : sy) + (rotation == 1 || rotation == 2 ? -d : d);
            const int base = along == &penX ? x : y;
            const int starts[4][3] = {{base, base + c, base + W - width},
                                      {base, base + c, base + W - width},
                                      {base + W, base + W - c, base + width},
                                      {base + L, base + L - c, base - 1 + width}};
            if (anchor <= 8) *along = starts[rotation][anchor % 3];
            continue;
        }
        plotGlyph(unit->code, penX, penY, unit->advance);
        lineWidth += unit->advance;
        const int step = Rotation >= 2 ? -unit->advance : unit->advance;
        (turned ? penY : penX) += step;
        p += static_cast<std::size_t>(unit->bytes);
    }
}

} // namespace panel
