#include "widgets/display/image_animation.h"

#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "host/flash_image.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/display/group.h"
#include "widgets/display/placement.h"
#include "widgets/touch/open_entry.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Length = 4; // bit 7: whether the row counts as shown before its first frame
constexpr std::size_t Control = 5;
constexpr std::size_t X = 7;
constexpr std::size_t Y = 9;
constexpr std::size_t Width = 0x0B;
constexpr std::size_t Height = 0x0D;
constexpr std::size_t Sequence = 0x0F;
constexpr std::size_t Delay = 0x11;
constexpr std::size_t HoldFirst = 0x13;
constexpr std::size_t LoopValue = 0x14;
constexpr std::size_t IdleValue = 0x16;
constexpr std::size_t OnceValue = 0x19;
constexpr std::size_t HideValue = 0x1B;
constexpr std::size_t DoneAddress = 0x1D;
constexpr std::size_t DoneValue = 0x1F;
constexpr std::size_t Group = 0x21;
} // namespace field

constexpr std::uint16_t HideAlways = 0xFFFF;   // hides whatever HideValue is
constexpr std::uint32_t FrameExtraOffset = 12; // u24, then the format
constexpr std::uint32_t AnyExtra = 100;        // keeps DrawImage() from refusing a frame for its Extra

QRect rectOf(const AnimationRow& row) { return {row.X, row.Y, row.Width, row.Height}; }
QRect onWorkSurface(const AnimationRow& row) { return {0, 0, row.Width, row.Height}; }

bool overlapsEntry(const AnimationRow& row) { return OverlapsOpenEntry(row.X, row.Y, row.Width, row.Height); }

/// A frame is drawn in the size of the widget, whatever its own is.
ImageRow frameImage(const AnimationRow& row, std::uint32_t index) {
    ImageRow frame = ReadFrame(row.FrameAddress + FrameRecordBytes * index);
    frame.Width = row.Width;
    frame.Height = row.Height;
    return frame;
}

/// What the animation puts on the frame is what the widgets over it have behind them from now on.
void keepAsUnderlay(const AnimationRow& row) {
    CopySurfaceRect(FrameSurface, rectOf(row), TextSurface, rectOf(row).topLeft());
}

void land(const AnimationRow& row) {
    DrawGroupInRect(CurrentPage, row.Group, rectOf(row));
    LandWork(rectOf(row), row.InList);
    if (!row.InList) keepAsUnderlay(row);
}

void blitToWork(const AnimationRow& row, const ImageRow& frame) {
    BlitImage(WorkSurface, {0, 0}, frame, onWorkSurface(row), row.Width);
}

void drawWithoutGroup(const AnimationRow& row, ImageRow frame) {
    if (frame.Format != format::PngOpaque) frame.Extra = AnyExtra;
    if (row.InList) {
        DrawImage(ListSurfaceA, rectOf(row).topLeft(), frame, Backdrop::ListB);
    } else {
        DrawImage(FrameSurface, rectOf(row).topLeft(), frame, Backdrop::Page);
        keepAsUnderlay(row);
    }
}

void drawWithGroup(const AnimationRow& row, const ImageRow& frame) {
    if (frame.showsWhatIsBehind()) BackdropToWork(rectOf(row), row.InList);
    blitToWork(row, frame);
    land(row);
}

void drawFrame(AnimationRow& row, std::uint32_t index) {
    const ImageRow frame = frameImage(row, index);
    if (!CanBeFrame(frame.Format)) return;
    row.FrameOnShow = index;
    if (row.Group == NoGroup)
        drawWithoutGroup(row, frame);
    else
        drawWithGroup(row, frame);
}

void drawNextFrame(AnimationRow& row) {
    if (overlapsEntry(row)) return;
    drawFrame(row, row.FrameIndex);
    ++row.FrameIndex;
}

/// On a list there is no picture of what lies behind: the frame takes its place.
void eraseFromList(const AnimationRow& row) {
    ImageRow frame = frameImage(row, row.FrameIndex);
    if (row.Group == NoGroup) {
        DrawImage(ListSurfaceA, rectOf(row).topLeft(), frame, Backdrop::ListB);
    } else {
        blitToWork(row, frame);
        land(row);
    }
}

void erase(const AnimationRow& row) {
    if (row.InList) {
        eraseFromList(row);
    } else if (row.Group == NoGroup) {
        RestoreBackground(rectOf(row));
        keepAsUnderlay(row);
    } else {
        BackdropToWork(rectOf(row), 0);
        land(row);
    }
}

/// A group over a widget that starts hidden lies over what is there already.
void drawGroupAlone(const AnimationRow& row) {
    if (row.Group == NoGroup) return;
    CopySurfaceRect(row.InList ? ListSurfaceA : FrameSurface, rectOf(row), WorkSurface, {0, 0});
    land(row);
}

bool hides(const AnimationRow& row, std::uint16_t value) {
    return value == HideAlways || value == row.HideValue;
}

// The steps of the four commands.

void startPlaying(AnimationRow& row) {
    if (row.Phase == AnimationPhase::FirstHeld) row.FrameIndex = 0;
    row.Phase = AnimationPhase::Playing;
    row.Shown = 1;
}

void stepLoop(AnimationRow& row) {
    startPlaying(row);
    if (row.FrameIndex >= row.FrameCount) row.FrameIndex = 0;
    drawNextFrame(row);
}

/// The word set at the end may show another page, which has rows of its own: nothing is done to the row after
/// that.
void endPlay(AnimationRow& row) {
    row.FrameIndex = 0;
    StoreWord(row.ControlAddress, row.IdleValue);
    const std::uint16_t done = row.DoneAddress;
    if (!IsStoreWord(done)) return;
    StoreWord(done, row.DoneValue);
    if (SystemRange(done)) ApplySystemWord(done);
}

void stepOnce(AnimationRow& row) {
    startPlaying(row);
    if (row.FrameIndex >= row.FrameCount)
        endPlay(row);
    else
        drawNextFrame(row);
}

void stepIdle(AnimationRow& row) {
    if (overlapsEntry(row)) return;
    if (row.Phase == AnimationPhase::Playing) row.Shown = 1;
    if (row.Phase == AnimationPhase::Nothing) row.Shown = 0;
    if (row.HoldFirst != 1 || row.Phase == AnimationPhase::FirstHeld) return;
    row.Phase = AnimationPhase::FirstHeld;
    row.FrameIndex = 0;
    drawFrame(row, 0);
}

void stepHidden(AnimationRow& row) {
    row.Shown = 0;
    if (overlapsEntry(row)) return;
    if (row.Phase != AnimationPhase::Nothing) {
        erase(row);
        row.Phase = AnimationPhase::Nothing;
    }
    row.FrameIndex = 0;
}

/// All that the record tells; what the row has come to stays.
void takeParameters(AnimationRow& row, const Parameters& p) {
    const QPoint shift = PopupShift();
    row.InList = p.inList();
    row.ControlAddress = p.u16(field::Control);
    row.X = static_cast<std::uint16_t>(p.u16(field::X) + shift.x());
    row.Y = static_cast<std::uint16_t>(p.u16(field::Y) + shift.y());
    row.Width = p.u16(field::Width);
    row.Height = p.u16(field::Height);
    row.SequenceId = p.u16(field::Sequence);
    row.Delay = p.u8(field::Delay);
    row.HoldFirst = p.u8(field::HoldFirst);
    row.LoopValue = p.u16(field::LoopValue);
    row.IdleValue = p.u16(field::IdleValue);
    row.OnceValue = p.u16(field::OnceValue);
    row.HideValue = p.u16(field::HideValue);
    row.DoneAddress = p.u16(field::DoneAddress);
    row.DoneValue = p.u16(field::DoneValue);
    row.Group = p.u16(field::Group);
    const ImageSequence sequence = ReadSequence(row.SequenceId);
    row.FrameAddress = sequence.FrameAddress;
    row.FrameCount = sequence.FrameCount;
}

bool shownFromTheStart(const Parameters& p) { return !p.inStore() && (p.u8(field::Length) & 0x80) != 0; }

void showFirstState(AnimationRow& row) {
    const std::uint16_t value = ReadWord(row.ControlAddress);
    if (value == row.IdleValue) {
        row.Phase = AnimationPhase::Playing;
        drawFrame(row, 0);
        if (row.Group != NoGroup) row.Shown = 1;
    } else if (hides(row, value)) {
        drawGroupAlone(row);
    }
    // A single play without frames ends at once, and its end may show another page. That has to wait for the
    // first tick: this page is still being shown.
    if (row.FrameCount != 0 || value != row.OnceValue) StepAnimation(row);
}

bool contains(const AnimationRow& row, int x, int y) {
    return x >= row.X && x <= row.X + row.Width && y >= row.Y && y <= row.Y + row.Height;
}

} // namespace

ImageSequence ReadSequence(std::uint16_t id) {
    const std::uint32_t row = Sections.ImageSequenceTable + SequenceRowBytes * id;
    return {.FrameAddress = ReadU32(row), .FrameCount = ReadU24(row + 4)};
}

ImageRow ReadFrame(std::uint32_t address) {
    return {.Address = ReadU32(address),
            .Width = ReadU16(address + 4),
            .Height = ReadU16(address + 6),
            .Extra = ReadU24(address + FrameExtraOffset),
            .Format = ReadU8(address + FrameExtraOffset + 3)};
}

bool CanBeFrame(std::uint8_t imageFormat) { return imageFormat <= format::RGB565A8; }

void AddAnimation(const Parameters& p) {
    if (!IsStoreWord(p.u16(field::Control))) return;
    AnimationRow* row = AnimationTable.next();
    if (!row) return;
    takeParameters(*row, p);
    row->Shown = shownFromTheStart(p) ? 1 : 0;
    showFirstState(*row);
    AnimationTable.commit();
}

void ForgetAnimations() { AnimationTable.clear(); }

void CountAnimationTicks() {
    if (AnimationTable.empty()) return;
    for (AnimationRow& row : AnimationTable.rows()) row.TickCount += 1;
    AnimationFlag = 1;
}

void AnimationTick() {
    if (AnimationTable.empty() || !AnimationFlag.exchange(0)) return;
    for (AnimationRow& row : AnimationTable.rows()) row.TickCount += 1;
    // By index, since a step may bring another page and other rows.
    for (std::size_t i = 0; AnimationRow* row = AnimationTable.at(i); ++i) {
        if (row->TickCount < row->Delay) continue;
        StepAnimation(*row);
        row->TickCount = 0;
    }
}

void StepAnimation(AnimationRow& row) {
    const std::uint16_t value = ReadWord(row.ControlAddress);
    if (value == row.LoopValue)
        stepLoop(row);
    else if (value == row.OnceValue)
        stepOnce(row);
    else if (value == row.IdleValue)
        stepIdle(row);
    else if (hides(row, value))
        stepHidden(row);
}

void RefreshAnimation(std::uint16_t page, const Parameters& p, bool blockChanged) {
    AnimationRow* row = AnimationTable.at(AnimationCursor);
    if (!row) return;
    if (blockChanged)
        takeParameters(*row, p);
    else
        RepaintAnimationGroup(page, *row);
}

void RepaintAnimationGroups(std::uint16_t page) {
    for (AnimationRow& row : AnimationTable.rows()) RepaintAnimationGroup(page, row);
}

/// A running animation needs no such repaint: its next frame brings the group.
void RepaintAnimationGroup(std::uint16_t page, AnimationRow& row) {
    if (row.Group == NoGroup) return;
    const std::uint16_t value = ReadWord(row.ControlAddress);
    if ((value != row.IdleValue && !hides(row, value)) || !GroupChanged(page, row.Group)) return;
    const ImageRow frame = frameImage(row, row.FrameOnShow);
    if (!row.Shown || frame.showsWhatIsBehind()) BackdropToWork(rectOf(row), row.InList);
    if (row.Shown) blitToWork(row, frame);
    land(row);
}

bool IsUnderAnimation(int x, int y) {
    if (SmallChip()) return false;
    return std::ranges::any_of(AnimationTable.rows(), [x, y](const AnimationRow& row) {
        return row.Shown == 1 && contains(row, x, y);
    });
}

} // namespace panel
