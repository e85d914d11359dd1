#include "pages/display_page.h"

#include "graphics/surfaces.h"
#include "pages/display_kinds.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"
#include "pages/value_runs.h"
#include "widgets/touch/encoder.h"

namespace panel {
namespace {

/// The sync comes first, so that a widget shown now does not count as changed at the next refresh.
void displayRecord(const DisplayKind& kind, const Parameters& p) {
    if (kind.hasBlock) SyncBlock(p);
    if (kind.dependsOn) SyncRuns(kind.dependsOn(p));
    if (kind.display) kind.display(p);
}

/// Only the first background widget of a page takes effect.
void displayBackground() {
    StreamWalker walker(DisplayStream.bytes(), Framing::Display);
    while (const auto record = walker.next()) {
        const DisplayKind* kind = FindDisplayKind(record->typeWord);
        if (!kind || !kind->background) continue;
        PrepareBackgroundSwitcher(DisplayStream.bytes().subspan(record->offset));
        BaseSurface = PageBackground.copy();
        return;
    }
}

void displayWidgets() {
    StreamWalker walker(DisplayStream.bytes(), Framing::DisplayByKind);
    while (const auto record = walker.next()) {
        const DisplayKind* kind = FindDisplayKind(record->kind());
        if (!kind) continue;
        displayRecord(*kind, ReadParameters(*kind, record->bytes));
        if (kind->cursor) ++*kind->cursor;
    }
}

void displayIconsOnTop() {
    StreamWalker walker(DisplayStream.bytes(), Framing::DisplayByTypeWord);
    while (const auto record = walker.next()) {
        const DisplayKind* kind = FindDisplayKind(record->typeWord);
        if (!kind || !kind->onTop) continue;
        IconPass = 1;
        displayRecord(*kind, ReadParameters(*kind, record->bytes));
    }
}

} // namespace

void DisplayPage(std::uint16_t page) {
    const StreamPlace place = DisplayStreamPlace(page);
    DisplayStream.load(place);
    if (!place.valid()) {
        GroupStream.load(GroupStreamPlace(page));
        return;
    }
    displayBackground();
    displayWidgets();
    displayIconsOnTop();
    PrepareGroupStream(page);
    ResetCursors();
}

void PrepareGroupStream(std::uint16_t page) {
    if (!GroupStreamPlace(page).valid()) return;
    StreamWalker walker(GroupStream.bytes(), Framing::Group);
    while (const auto record = walker.next()) {
        const Parameters p(record->bytes);
        const DisplayKind* kind = FindDisplayKind(record->kind());
        if (kind && kind->inGroups && kind->dependsOn && !p.inStore()) SyncRuns(kind->dependsOn(p));
    }
}

} // namespace panel
