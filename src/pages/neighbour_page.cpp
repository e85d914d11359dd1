#include "pages/neighbour_page.h"

#include "graphics/image_row.h"
#include "graphics/surfaces.h"
#include "host/flash_image.h"
#include "pages/display_kinds.h"
#include "pages/page_switch.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"
#include "store/clock.h"
#include "store/system_words.h"
#include "widgets/touch/touch_families.h"

namespace panel {
namespace {

void displayStillWidgets(std::uint16_t page) {
    const StreamPlace place = DisplayStreamPlace(page);
    if (!place.valid()) return;
    DisplayStream.load(place);
    StreamWalker walker(DisplayStream.bytes(), Framing::DisplayByTypeWord);
    while (const auto record = walker.next()) {
        const DisplayKind* kind = FindDisplayKind(record->typeWord);
        if (!kind || !kind->onNeighbours) continue;
        kind->display(ReadParameters(*kind, record->bytes));
        if (kind->cursor) ++*kind->cursor;
    }
    ResetCursors();
}

/// A picture that does not cover the panel stands on the background so far, without the widgets shown on it.
void drawPictureOnBackground(std::uint16_t page) {
    FrameSurface = PageBackground.copy();
    DrawPagePicture(page);
}

} // namespace

void RenderNeighbourPage(std::uint16_t page) {
    if (page >= Sections.PageCount) return;
    CurrentPage = page;
    ForgetVirtualKey();
    ForgetWidgets();
    PopupActive = 0;
    CopyClockToWords();
    drawPictureOnBackground(page);
    GroupStream.load(GroupStreamPlace(page)); // for the widgets that carry a group
    displayStillWidgets(page);
    ShowTouchFamiliesOfNeighbour(page);
}

void ReturnFromNeighbours(std::uint16_t page) {
    ForgetWidgets();
    PopupActive = 0;
    CurrentPage = page;
    drawPictureOnBackground(page);
}

} // namespace panel
