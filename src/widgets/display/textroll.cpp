#include "widgets/display/textroll.h"

#include "graphics/font.h"
#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "store/variable_store.h"
#include "widgets/display/placement.h"
#include "widgets/touch/open_entry.h"

#include <algorithm>
#include <array>
#include <vector>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Text = 5;
constexpr std::size_t Corners = 7;
constexpr std::size_t Font = 0x11;
constexpr std::size_t GlyphWidth = 0x12;
constexpr std::size_t GlyphHeight = 0x13;
constexpr std::size_t Encoding = 0x14;
constexpr std::size_t Alignment = 0x15;
constexpr std::size_t RollAlways = 0x16;
constexpr std::size_t Colour = 0x17;
constexpr std::size_t Speed = 0x1A;
constexpr std::size_t BackColour = 0x1B;
constexpr std::size_t Gap = 0x1E;
constexpr std::size_t Opaque = 0x20;
} // namespace field

constexpr int LongestUnit = 2; // bytes of a character

std::vector<std::uint8_t> readText(std::uint16_t address, std::size_t count) {
    std::vector<std::uint8_t> bytes(count);
    ReadBytes(2 * std::size_t{address}, bytes);
    return bytes;
}

StripText laidOut(const TextrollRow& row) {
    const FontReader font(row.Style.font);
    StripText text{.bytes = readText(row.TextAddress, StoreByteCount - 2 * std::size_t{row.TextAddress})};
    std::size_t at = 0;
    int y = 0;
    for (TextUnit unit = font.unitAt(text.bytes, at); unit.kind != TextUnit::Kind::End;
         unit = font.unitAt(text.bytes, at += unit.bytes)) {
        if (unit.kind == TextUnit::Kind::LineBreak)
            y += row.Style.font.height;
        else
            text.characters.push_back({text.width, y, unit.width, unit.glyph});
        text.width += unit.width;
    }
    text.bytes.resize(std::min(text.bytes.size(), at + LongestUnit));
    return text;
}

bool textChanged(const TextrollRow& row) {
    const std::vector<std::uint8_t>& bytes = row.Text.bytes;
    const std::size_t start = 2 * std::size_t{row.TextAddress};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        if (ReadByte(start + i) != bytes[i]) return true;
    return bytes.empty();
}

/// Decides whether a text of that width rolls. Returns the width of its strip, and where it begins there.
struct Strip {
    int width, textX;
};
Strip layStrip(TextrollRow& row, int textWidth) {
    const int width = row.Box.width();
    const bool fits = textWidth <= width && textWidth + row.Gap <= width;
    row.Rolling = !fits || row.RollAlways;
    if (row.Rolling) return {std::max(textWidth, width) + row.Gap, 0};
    switch (row.Align) {
    case NumberAlignment::Centre: return {width, (width - textWidth) / 2};
    case NumberAlignment::Right: return {width, width - textWidth};
    default: return {width, 0};
    }
}

bool isTooLarge(int stripWidth, int height) {
    return SmallChip() && SmallChipHeight(stripWidth, height) < height;
}

/// Paints the text that begins at column `x` of the view, as far as the view shows it.
void paintText(const TextrollRow& row, const GlyphPainter& painter, int x) {
    const std::vector<StripText::Character>& characters = row.Text.characters;
    const int top = (row.Box.height() - 1 - row.Style.font.height) / 2;
    const int right = std::min(row.Box.width(), WorkSurface.width());
    const auto first = std::ranges::partition_point(
        characters, [x](const StripText::Character& c) { return x + c.x + c.width <= 0; });
    for (auto c = first; c != characters.end() && x + c->x < right; ++c) {
        const int y = top + c->y;
        if (c->y != 0 && y > row.Box.height()) return;
        painter.paint(WorkSurface, {x + c->x, y}, c->width, c->glyph);
    }
}

/// On a list a view that wraps is the beginning of the strip.
int shownPosition(const TextrollRow& row, int position) {
    const bool wraps = position + row.Box.width() > row.StripWidth;
    return row.InList && wraps ? 0 : position;
}

/// On a list the page goes on outside the panel as its picture does.
void composeBackdrop(const TextrollRow& row) {
    if (row.Style.opaque)
        FillWorkRect({{0, 0}, row.Box.size()}, row.Style.backColour);
    else if (row.InList)
        BlitPage({0, 0}, row.Box);
    else
        BackdropToWork(row.Box, 0);
}

void composeView(const TextrollRow& row, int textX, int position) {
    composeBackdrop(row);
    const std::uint8_t depth = FontReader(row.Style.font).depthCode();
    const GlyphPainter painter(row.Style, depth);
    paintText(row, painter, textX - position);
    if (position + row.Box.width() > row.StripWidth)
        paintText(row, painter, textX - position + row.StripWidth);
}

/// Size and encoding are the record's own, whatever the font tells.
TextStyle styleOf(const Parameters& p) {
    TextFont font = TableFont(p.u8(field::Font));
    font.width = p.u8(field::GlyphWidth);
    font.height = p.u8(field::GlyphHeight);
    font.encoding = static_cast<Encoding>(p.u8(field::Encoding));
    return {.font = font,
            .colour = p.u24(field::Colour),
            .backColour = p.u24(field::BackColour),
            .opaque = p.u8(field::Opaque) != 0};
}

void takeParameters(TextrollRow& row, const Parameters& p) {
    row = {};
    row.InList = p.inList();
    row.TextAddress = p.u16(field::Text);
    row.Box = ReadCorners(p, field::Corners).translated(PopupShift());
    row.Style = styleOf(p);
    row.Align = static_cast<NumberAlignment>(p.u8(field::Alignment));
    row.RollAlways = p.u8(field::RollAlways) != 0;
    row.Speed = p.u8(field::Speed);
    row.Gap = p.u16(field::Gap);
}

/// Makes room on the WorkSurface for a view that is wider than the panel, as one on a list may be, and gives
/// it back its size in the end. No larger than the list.
class RoomForView {
public:
    explicit RoomForView(const TextrollRow& row) {
        if (!row.InList) return;
        const QSize room = row.Box.size().boundedTo(ListSurfaceA.size());
        if (room.width() <= WorkSurface.width()) return;
        panelSized_ = QImage(room.boundedTo({room.width(), WorkSurface.height()}), WorkSurface.format());
        panelSized_.fill(Qt::transparent);
        WorkSurface.swap(panelSized_);
    }
    ~RoomForView() {
        if (!panelSized_.isNull()) WorkSurface.swap(panelSized_);
    }
    RoomForView(const RoomForView&) = delete;
    RoomForView& operator=(const RoomForView&) = delete;

private:
    QImage panelSized_{}; // null while the WorkSurface is that itself
};

bool showView(TextrollRow& row, int position) {
    const RoomForView room(row);
    if (!DrawTextrollStrip(row, position)) return false;
    LandWork(row.Box, row.InList);
    return true;
}

/// A row whose block names an address that cannot be stays as it was.
void startTextroll(TextrollRow& row, const Parameters& p) {
    if (!IsStoreWord(p.u16(field::Text))) return;
    takeParameters(row, p);
    showView(row, 0);
}

} // namespace

void DisplayTextroll(const Parameters& p) {
    if (TextrollRow* known = Textrolls.at(TextrollCursor)) return startTextroll(*known, p);
    TextrollRow* row = Textrolls.next();
    if (!row) return;
    *row = {};
    startTextroll(*row, p);
    Textrolls.commit();
}

void ForgetTextrolls() { Textrolls.clear(); }

bool DrawTextrollStrip(TextrollRow& row, int position) {
    if (textChanged(row)) row.Text = laidOut(row);
    const Strip strip = layStrip(row, row.Text.width);
    if (isTooLarge(strip.width, row.Box.height())) return false;
    row.StripWidth = strip.width;
    composeView(row, strip.textX, shownPosition(row, position));
    return true;
}

void StepTextroll(TextrollRow& row) {
    const QRect& box = row.Box;
    if (OverlapsOpenEntry(box.x(), box.y(), box.width() - 1, box.height() - 1)) return;
    if (!showView(row, row.Position)) return;
    if (++row.Position >= row.StripWidth) row.Position = 0;
}

void CountTextrollTicks() {
    if (Textrolls.empty()) return;
    for (TextrollRow& row : Textrolls.rows()) row.Ticks += 1;
    TextrollDue = 1;
}

void TextrollTick() {
    if (Textrolls.empty() || !TextrollDue.exchange(0)) return;
    for (TextrollRow& row : Textrolls.rows()) {
        if (row.Ticks < row.Speed || !row.Rolling) continue;
        StepTextroll(row);
        row.Ticks = 0;
    }
}

} // namespace panel
