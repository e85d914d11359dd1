#include "pages/refresh.h"

#include "pages/display_kinds.h"
#include "pages/display_page.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"
#include "widgets/display/group.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/uitimer.h"
#include "widgets/touch/copy_key.h"
#include "widgets/touch/multi_key.h"
#include "widgets/touch/page_key.h"
#include "widgets/touch/roller_picker.h"
#include "widgets/touch/rtouch.h"
#include "widgets/touch/slider.h"
#include "widgets/touch/state_key.h"

#include <span>

namespace panel {
namespace {

bool recordChanged(const DisplayKind& kind, const Parameters& p) {
    if (kind.valueChanged ? kind.valueChanged(p) : kind.dependsOn && RunsDiffer(kind.dependsOn(p)))
        return true;
    return BlockChanged(p);
}

bool ownGroupChanged(const DisplayKind& kind, const Parameters& p, std::uint16_t page) {
    if (kind.groupAt == 0) return false;
    const std::uint16_t group = p.u16(kind.groupAt);
    return group != NoGroup && GroupChanged(page, group);
}

bool needsRedraw(const DisplayKind& kind, const Parameters& p, std::uint16_t page) {
    return kind.display && (recordChanged(kind, p) || ownGroupChanged(kind, p, page));
}

void refreshRecord(const DisplayKind& kind, const Parameters& p, std::uint16_t page) {
    if (kind.refresh == Refresh::ByValue && needsRedraw(kind, p, page)) kind.display(p);
    if (kind.refresh == Refresh::ByRow && kind.refreshRow) kind.refreshRow(page, p, BlockChanged(p));
}

/// What was looked at is in line with the ShadowStore from now on.
void syncRecord(const DisplayKind& kind, const Parameters& p) {
    if (kind.hasBlock) SyncBlock(p);
    const auto words = kind.refresh == Refresh::ByRow ? kind.refreshedWords : kind.dependsOn;
    if (words) SyncRuns(words(p));
}

// The passes over the records of the display stream.

bool everyKind(const DisplayKind&) { return true; }
bool kindsAfterTouch(const DisplayKind& kind) { return kind.afterTouch; }

void refreshRecords(std::uint16_t page, bool (*takesPart)(const DisplayKind&)) {
    StreamWalker walker(DisplayStream.bytes(), Framing::DisplayByKind);
    while (const auto record = walker.next()) {
        const DisplayKind* kind = FindDisplayKind(record->kind());
        if (!kind) continue;
        if (takesPart(*kind)) refreshRecord(*kind, ReadParameters(*kind, record->bytes), page);
        if (kind->cursor) ++*kind->cursor;
    }
    ResetCursors();
}

void refreshIconsOnTop(std::uint16_t page) {
    StreamWalker walker(DisplayStream.bytes(), Framing::DisplayByTypeWord);
    while (const auto record = walker.next()) {
        const DisplayKind* kind = FindDisplayKind(record->typeWord);
        const Parameters p(record->bytes);
        if (!kind || !kind->onTop || !needsRedraw(*kind, p, page)) continue;
        IconPass = 2;
        kind->display(p);
    }
}

void syncAllRecords() {
    StreamWalker walker(DisplayStream.bytes(), Framing::DisplayByKind);
    while (const auto record = walker.next())
        if (const DisplayKind* kind = FindDisplayKind(record->kind()))
            syncRecord(*kind, ReadParameters(*kind, record->bytes));
}

/// Goes by the whole type word: a record with flag bits, as one on a sliding list has, keeps counting as
/// changed until the next full refresh.
void syncRecordsAfterTouch() {
    StreamWalker walker(DisplayStream.bytes(), Framing::DisplayByTypeWord);
    while (const auto record = walker.next()) {
        const DisplayKind* kind = FindDisplayKind(record->typeWord);
        if (kind && kind->afterTouch) syncRecord(*kind, ReadParameters(*kind, record->bytes));
    }
}

// What follows the records: the rows of the tables, and the groups.

template <auto& Keys>
void repaintKeyGroups(std::uint16_t page) {
    for (const auto& row : Keys.rows()) RepaintKeyGroup(page, row);
}

/// Of a family: what its rows show is no longer a change.
template <void (*Sync)()>
void syncRows(std::uint16_t /*page*/) {
    Sync();
}

struct RefreshStep {
    const char* name;
    void (*run)(std::uint16_t page);
};

constexpr RefreshStep RowSteps[] = {
    {"uitimer", RefreshUiTimers},
    {"slider", RefreshSliders},
    {"rtouch", RefreshRtouches},
    {"PageKey", repaintKeyGroups<PageKeys>},
    {"MultiKey", repaintKeyGroups<MultiKeys>},
    {"imageAnimation", RepaintAnimationGroups},
    {"StateKey", repaintKeyGroups<StateKeys>},
    {"CopyKey", repaintKeyGroups<CopyKeys>},
    {"imageAnimation", RepaintAnimationGroups},
    {"groups", PrepareGroupStream},
    {"RollerPicker", RefreshRollers},
    {"values of StateKey", syncRows<SyncStateKeys>},
    {"values of slider", syncRows<SyncSliders>},
    {"values of rtouch", syncRows<SyncRtouches>},
    {"values of RollerPicker", syncRows<SyncRollers>},
};

constexpr RefreshStep RowStepsAfterTouch[] = {
    {"slider", RefreshSlidersAfterTouch},
    {"rtouch", RefreshRtouchesAfterTouch},
    {"RollerPicker", RedrawRollersAfterTouch},
    {"PageKey", repaintKeyGroups<PageKeys>},
    {"MultiKey", repaintKeyGroups<MultiKeys>},
    {"StateKey", repaintKeyGroups<StateKeys>},
    {"CopyKey", repaintKeyGroups<CopyKeys>},
    {"imageAnimation", RepaintAnimationGroups},
    {"groups", PrepareGroupStream},
};

constexpr RefreshStep SyncStepsAfterTouch[] = {
    {"values of StateKey", syncRows<SyncStateKeys>},
    {"values of slider", syncRows<SyncSliders>},
    {"values of rtouch", syncRows<SyncRtouches>},
    {"values of RollerPicker", syncRows<SyncRollers>},
};

void runSteps(std::span<const RefreshStep> steps, std::uint16_t page) {
    for (const RefreshStep& step : steps) step.run(page);
}

bool changedInGroup(const DisplayKind& kind, const Parameters& p) {
    return kind.changedInGroup ? kind.changedInGroup(p) : recordChanged(kind, p);
}

} // namespace

void RefreshPageWidgets(std::uint16_t page) {
    const StreamPlace place = DisplayStreamPlace(page);
    if (place.valid()) {
        DisplayStream.load(place); // a slide may have left another page in the buffer
        refreshRecords(page, everyKind);
    }
    runSteps(RowSteps, page);
    if (place.valid()) syncAllRecords();
}

void RefreshAfterTouch(std::uint16_t page) {
    refreshRecords(page, kindsAfterTouch);
    refreshIconsOnTop(page);
    runSteps(RowStepsAfterTouch, page);
    syncRecordsAfterTouch();
    runSteps(SyncStepsAfterTouch, page);
}

bool GroupChanged(std::uint16_t page, std::uint16_t group) {
    if (!GroupStreamPlace(page).valid()) return false;
    StreamWalker walker(GroupStream.bytes(), Framing::Group);
    while (const auto record = walker.next()) {
        if (record->groupId != group) continue;
        const DisplayKind* kind = FindDisplayKind(record->typeWord);
        if (kind && kind->inGroups && changedInGroup(*kind, Parameters(record->bytes))) return true;
    }
    return false;
}

} // namespace panel
