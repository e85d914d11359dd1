#include "widgets/display/png_clock.h"

#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "store/clock.h"
#include "widgets/display/placement.h"
#include "widgets/touch/open_entry.h"

#include <algorithm>

namespace panel {
namespace {

constexpr int Gap = 20; // px, between date and time

void takeParameters(ClockRow& row, const Parameters& p) {
    static_cast<PngClockFields&>(row) = ReadPngClock(p);
    row.InList = p.inList();
}

/// A glyph without a picture takes no room.
int widthOf(const GlyphPictures& glyphs) {
    int width = 0;
    for (const ImageRow& picture : glyphs.pictures())
        if (picture.hasPicture()) width += picture.Width;
    return width;
}

/// That of the first glyph in the picture table, even if it has no picture.
int heightOf(const GlyphPictures& glyphs) {
    const auto pictures = glyphs.pictures();
    const auto first = std::ranges::find_if(pictures, [](const ImageRow& row) { return row != ImageRow{}; });
    return first != pictures.end() ? first->Height : 0;
}

/// Returns the width in px.
int draw(const ClockRow& row, const GlyphPictures& glyphs, int offset) {
    const QPoint at(row.X + offset, row.Y);
    return row.InList ? DrawGlyphs(glyphs, ListSurfaceA, at, Backdrop::ListB)
                      : DrawGlyphs(glyphs, FrameSurface, at, Backdrop::Page);
}

void erase(const ClockRow& row, int offset, QSize size) {
    const QRect rect(QPoint(row.X + offset, row.Y), size);
    if (row.InList)
        CopySurfaceRect(ListSurfaceB, rect, ListSurfaceA, rect.topLeft());
    else
        RestoreBackground(rect);
}

} // namespace

void AddClock(const Parameters& p) {
    ClockRow* row = ClockTable.append();
    if (!row) return;
    takeParameters(*row, p);
    DrawClock(*row, false);
}

void ForgetClocks() { ClockTable.clear(); }

void ClockTick() {
    if (!ClockSecondFlag) return;
    RefreshPageWidgets(CurrentPage); // with the flag up, which tells the groups that hold a clock
    ClockSecondFlag = 0;
    for (ClockRow& row : ClockTable.rows()) DrawClock(row, true);
}

void DrawClock(ClockRow& row, bool eraseTail) {
    const ClockLayout* layout = FindClockLayout(row.Format);
    if (!layout) return;
    const GlyphPictures glyphs = ClockGlyphs(layout->text, row.FirstImage, YearDigits::AsNeeded);
    const int height = heightOf(glyphs);
    if (OverlapsOpenEntry(row.X, row.Y, widthOf(glyphs), height)) return;
    int width = draw(row, glyphs, 0);
    if (layout->isWeekday()) return; // which neither erases a tail nor tells a width
    if (layout->hasGap()) {
        if (eraseTail) erase(row, width, {Gap, height});
        width += Gap;
        width += draw(row, ClockGlyphs(layout->timeText, row.FirstImage, YearDigits::AsNeeded), width);
    }
    if (eraseTail && width < row.LastWidth) erase(row, width, {row.LastWidth - width, height});
    row.LastWidth = static_cast<std::uint16_t>(width);
}

void RefreshClock(std::uint16_t /*page*/, const Parameters& p, bool blockChanged) {
    ClockRow* row = ClockTable.at(ClockCursor);
    if (row && blockChanged) takeParameters(*row, p);
}

} // namespace panel
