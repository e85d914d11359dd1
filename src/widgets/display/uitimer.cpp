#include "widgets/display/uitimer.h"

#include "graphics/image_blit.h"
#include "graphics/surfaces.h"
#include "store/clock.h"
#include "store/variable_store.h"
#include "widgets/display/placement.h"
#include "widgets/touch/open_entry.h"

#include <array>
#include <span>

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

/// Digits 0 to 9 and the colon, left to right.
class Glyphs {
public:
    static constexpr unsigned Colon = 10;

    Glyphs& put(unsigned code) {
        codes_[count_++] = static_cast<std::uint8_t>(code);
        return *this;
    }
    Glyphs& putTwo(unsigned value) { return put(value / 10).put(value % 10); }
    std::span<const std::uint8_t> codes() const { return std::span(codes_).first(count_); }

private:
    std::array<std::uint8_t, 8> codes_{};
    std::size_t count_ = 0;
};

unsigned digitsFor(std::uint16_t preset) {
    unsigned digits = 1;
    for (unsigned limit = 10; digits < 5 && preset > limit; limit *= 10) ++digits;
    return digits;
}

Glyphs plainGlyphs(unsigned count, unsigned digits) {
    constexpr unsigned powers[] = {1, 10, 100, 1000, 10000};
    Glyphs glyphs;
    while (digits > 0) glyphs.put(count / powers[--digits] % 10);
    return glyphs;
}

Glyphs glyphsOf(const UiTimerRow& row) {
    const unsigned count = ReadWord(row.Timer);
    const unsigned hours = count / 3600;
    const unsigned minutes = count % 3600 / 60;
    const unsigned seconds = count % 60;
    switch (row.Format) {
    case TimerFormat::HoursMinutesSeconds:
        return Glyphs().putTwo(hours).put(Glyphs::Colon).putTwo(minutes).put(Glyphs::Colon).putTwo(seconds);
    case TimerFormat::HoursMinutes: return Glyphs().putTwo(hours).put(Glyphs::Colon).putTwo(minutes);
    case TimerFormat::MinutesSeconds: return Glyphs().putTwo(minutes).put(Glyphs::Colon).putTwo(seconds);
    case TimerFormat::Plain: return plainGlyphs(count, digitsFor(ReadWord(row.Preset)));
    case TimerFormat::Nothing: break;
    }
    return {};
}

ImageRow glyphImage(const UiTimerRow& row, unsigned code) {
    const unsigned index = row.FirstImage + code;
    return index <= 0xFFFF ? TableImageRow(static_cast<std::uint16_t>(index)) : ImageRow{};
}

bool holds(const UiTimerRow& row, TimerControl control) {
    return ReadWord(row.Control) == static_cast<std::uint16_t>(control);
}

void hide(UiTimerRow& row) {
    if (row.LastWidth == 0) return;
    RestoreBackground({row.X, row.Y, row.LastWidth, glyphImage(row, 0).Height});
    row.LastWidth = 0;
}

void drawGlyphs(UiTimerRow& row, const Glyphs& glyphs) {
    int x = row.X;
    for (const std::uint8_t code : glyphs.codes()) {
        const ImageRow image = glyphImage(row, code);
        if (!image.hasPicture()) continue;
        CurrentImage = image;
        DrawImage(FrameSurface, {x, row.Y}, image, Backdrop::Page);
        x += image.Width;
    }
    row.LastWidth = static_cast<std::uint16_t>(x - row.X);
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
    const Glyphs glyphs = glyphsOf(row);
    if (glyphs.codes().empty() || OverlapsOpenEntry(row.X, row.Y, 0, CurrentImage.Height)) return;
    drawGlyphs(row, glyphs);
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
