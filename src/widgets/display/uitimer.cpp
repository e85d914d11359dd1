#include "widgets/display/uitimer.h"

#include "graphics/surfaces.h"
#include "store/clock.h"
#include "store/variable_store.h"
#include "widgets/display/glyph_pictures.h"
#include "widgets/display/placement.h"
#include "widgets/touch/open_entry.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t Preset = 5;
constexpr std::size_t Timer = 7;
constexpr std::size_t Control = 9;
constexpr std::size_t X = 0x0B;
constexpr std::size_t Y = 0x0D;
constexpr std::size_t FirstImage = 0x0F;
constexpr std::size_t Format = 0x11;
constexpr std::size_t Direction = 0x12;
constexpr std::size_t Background = 0x13;
constexpr std::size_t Notify = 0x14;
constexpr std::size_t TargetAddress = 0x15;
constexpr std::size_t TargetValue = 0x17;
} // namespace field

constexpr unsigned Colon = 10; // behind the digits

unsigned digitsFor(std::uint16_t preset) {
    unsigned digits = 1;
    for (unsigned limit = 10; digits < 5 && preset > limit; limit *= 10) ++digits;
    return digits;
}

void putPlain(GlyphPictures& glyphs, unsigned count, unsigned digits) {
    constexpr unsigned powers[] = {1, 10, 100, 1000, 10000};
    while (digits > 0) glyphs.put(count / powers[--digits] % 10);
}

GlyphPictures glyphsOf(const UiTimerRow& row) {
    const unsigned count = ReadWord(row.Timer);
    const unsigned hours = count / 3600;
    const unsigned minutes = count % 3600 / 60;
    const unsigned seconds = count % 60;
    GlyphPictures glyphs(row.FirstImage);
    switch (row.Format) {
    case TimerFormat::HoursMinutesSeconds:
        glyphs.putTwoDigits(hours).put(Colon).putTwoDigits(minutes).put(Colon).putTwoDigits(seconds);
        break;
    case TimerFormat::HoursMinutes: glyphs.putTwoDigits(hours).put(Colon).putTwoDigits(minutes); break;
    case TimerFormat::MinutesSeconds: glyphs.putTwoDigits(minutes).put(Colon).putTwoDigits(seconds); break;
    case TimerFormat::Plain: putPlain(glyphs, count, digitsFor(ReadWord(row.Preset))); break;
    case TimerFormat::Nothing: break;
    }
    return glyphs;
}

bool holds(const UiTimerRow& row, TimerControl control) {
    return ReadWord(row.Control) == static_cast<std::uint16_t>(control);
}

void hide(UiTimerRow& row) {
    if (row.LastWidth == 0) return;
    RestoreBackground({row.X, row.Y, row.LastWidth, GlyphPicture(row.FirstImage, 0).Height});
    row.LastWidth = 0;
}

/// All that the record tells; the width on the screen stays.
void takeParameters(UiTimerRow& row, const Parameters& p) {
    const QPoint shift = PopupShift();
    row.Preset = p.u16(field::Preset);
    row.Timer = p.u16(field::Timer);
    row.Control = p.u16(field::Control);
    row.X = static_cast<std::uint16_t>(p.u16(field::X) + shift.x());
    row.Y = static_cast<std::uint16_t>(p.u16(field::Y) + shift.y());
    row.FirstImage = p.u16(field::FirstImage);
    row.Format = static_cast<TimerFormat>(p.u8(field::Format));
    row.Direction = p.u8(field::Direction);
    row.Background = p.u8(field::Background);
    row.Notify = p.u8(field::Notify);
    row.TargetAddress = p.u16(field::TargetAddress);
    row.TargetValue = p.u16(field::TargetValue);
}

bool hasWords(const UiTimerRow& row) {
    return IsStoreWord(row.Preset) && IsStoreWord(row.Timer) && IsStoreWord(row.Control);
}

} // namespace

void AddUiTimer(const Parameters& p) {
    UiTimerRow* row = UiTimerTable.next();
    if (!row) return;
    takeParameters(*row, p);
    const bool exists = hasWords(*row);
    if (exists) DrawUiTimer(*row);
    // The timer goes from one table to the other in one piece, so that no second is lost or counted twice.
    const std::scoped_lock lock(TimerRowsLock);
    RemoveRunningTimer(row->Preset);
    if (exists) UiTimerTable.commit();
}

void DrawUiTimer(UiTimerRow& row) {
    if (holds(row, TimerControl::Hidden)) return hide(row);
    const GlyphPictures glyphs = glyphsOf(row);
    if (glyphs.pictures().empty() || OverlapsOpenEntry(row.X, row.Y, 0, CurrentImage.Height)) return;
    const int width = DrawGlyphs(glyphs, FrameSurface, {row.X, row.Y}, Backdrop::Page);
    row.LastWidth = static_cast<std::uint16_t>(width);
}

void UiTimerTick() {
    if (UiTimerTable.empty() || !UiTimerSecondFlag.exchange(0)) return;
    for (UiTimerRow& row : UiTimerTable.rows()) {
        if (!holds(row, TimerControl::Stopped)) {
            DrawUiTimer(row);
        } else if (WordDiffers(row.Timer)) {
            DrawUiTimer(row);
            SyncWord(row.Timer);
        }
    }
}

void MergeUiTimers() {
    const std::scoped_lock lock(TimerRowsLock);
    for (const UiTimerRow& row : UiTimerTable.rows())
        if (row.Background == 1) AddRunningTimer(row);
    UiTimerTable.clear();
}

void RefreshUiTimer(std::uint16_t /*page*/, const Parameters& p, bool blockChanged) {
    UiTimerRow* row = UiTimerTable.at(UiTimerCursor);
    if (!row) return;
    if (blockChanged) {
        const std::scoped_lock lock(TimerRowsLock);
        takeParameters(*row, p);
    } else if (!p.inStore() && WordDiffers(p.u16(field::Timer))) {
        DrawUiTimer(*row);
    }
}

void RefreshUiTimers(std::uint16_t /*page*/) {
    for (UiTimerRow& row : UiTimerTable.rows())
        if (WordDiffers(row.Timer) && holds(row, TimerControl::Stopped)) DrawUiTimer(row);
}

void CountUiTimers() {
    const std::scoped_lock lock(TimerRowsLock);
    for (const UiTimerRow& row : UiTimerTable.rows()) CountPageTimer(row);
    CountRunningTimers();
}

} // namespace panel
