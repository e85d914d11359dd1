#include "widgets/display/auto_step.h"

#include "host/reply_frame.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "store/system_words.h"
#include "store/typed_value.h"
#include "store/variable_store.h"
#include "widgets/touch/touch_write.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Target = 5;
constexpr std::size_t DataType = 7;
constexpr std::size_t Control = 8;
constexpr std::size_t CycleValue = 0x0A;
constexpr std::size_t RunValue = 0x0C;
constexpr std::size_t EndValue = 0x0E;
constexpr std::size_t Lowest = 0x10;
constexpr std::size_t Highest = 0x18;
constexpr std::size_t Step = 0x20;
constexpr std::size_t Period = 0x22;
constexpr std::size_t DoneAddress = 0x24;
constexpr std::size_t DoneValue = 0x26;
constexpr std::size_t Direction = 0x28;
constexpr std::size_t Notify = 0x29;
} // namespace field

constexpr std::uint8_t Down = 0, Up = 1;

/// Counts the pages that the table has been filled for.
std::uint32_t Pages = 0;

/// A value of 64 bits counts as one of 32 when the low half looks negative.
std::int64_t fromHalves(std::uint64_t value) {
    const auto low = static_cast<std::int32_t>(value);
    return low < 0 ? low : static_cast<std::int64_t>(value);
}

std::int64_t limitAt(const Parameters& p, std::size_t at) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < 8; ++i) value = value << 8 | p.u8(at + i);
    return fromHalves(value);
}

AutoStepSettings settingsOf(const Parameters& p) {
    return {.Target = p.u16(field::Target),
            .DataType = p.u8(field::DataType),
            .Control = p.u16(field::Control),
            .CycleValue = p.u16(field::CycleValue),
            .RunValue = p.u16(field::RunValue),
            .EndValue = p.u16(field::EndValue),
            .Lowest = limitAt(p, field::Lowest),
            .Highest = limitAt(p, field::Highest),
            .Step = p.u16(field::Step),
            .Period = p.u16(field::Period),
            .DoneAddress = p.u16(field::DoneAddress),
            .DoneValue = p.u16(field::DoneValue),
            .Direction = p.u8(field::Direction),
            .Notify = p.u8(field::Notify)};
}

/// From 32 bits on a variable is signed whatever its code tells.
std::int64_t readVariable(std::uint16_t address, std::uint8_t type) {
    const bool isWide = (type & ~TypeSignedBit) == 0x02;
    const NumericValue value = ReadNumeric(address, isWide ? type | TypeSignedBit : type);
    const std::uint64_t bits = value.negative ? 0 - value.magnitude : value.magnitude;
    return (type & ~TypeSignedBit) == TypePlain64 ? fromHalves(bits) : static_cast<std::int64_t>(bits);
}

/// The limits need not be in order: the lower one has the last word.
std::int64_t clamped(std::int64_t value, const AutoStepSettings& s) {
    return std::max(std::min(value, s.Highest), s.Lowest);
}

/// Where a step leads, and whether it was the last one of a run.
struct Stepped {
    std::int64_t value = 0;
    bool ended = false;
};

std::int64_t cycleUp(std::int64_t value, std::int64_t next, const AutoStepSettings& s) {
    return value >= s.Highest || next < s.Lowest ? s.Lowest : std::min(next, s.Highest);
}

std::int64_t cycleDown(std::int64_t value, std::int64_t next, const AutoStepSettings& s) {
    if (value <= s.Lowest || next > s.Highest) return s.Highest;
    return std::max(next, s.Lowest);
}

Stepped cycle(std::int64_t value, std::int64_t next, const AutoStepSettings& s) {
    return {s.Direction == Up ? cycleUp(value, next, s) : cycleDown(value, next, s)};
}

Stepped run(std::int64_t next, const AutoStepSettings& s) {
    const std::int64_t value = clamped(next, s);
    return {value, s.Direction == Up ? value == s.Highest : next < s.Lowest || value == s.Lowest};
}

Stepped step(std::int64_t value, bool cycles, const AutoStepSettings& s) {
    if (s.Direction != Up && s.Direction != Down) return {value};
    // Unsigned, so that the far end of 64 bits wraps.
    const auto from = static_cast<std::uint64_t>(value);
    const auto next = static_cast<std::int64_t>(s.Direction == Up ? from + s.Step : from - s.Step);
    return cycles ? cycle(value, next, s) : run(next, s);
}

void tellEnd(const AutoStepSettings& s) {
    StoreWord(s.Control, s.EndValue);
    if (s.Notify == 1) SendVariable(s.Target, ValueFrameBytes(s.DataType));
    if (!IsStoreWord(s.DoneAddress)) return;
    StoreWord(s.DoneAddress, s.DoneValue);
    if (s.DoneAddress > FirstSystemWord)
        ApplySystemWord(s.DoneAddress);
    else
        RefreshAfterTouch(CurrentPage);
}

} // namespace

void AddAutoStep(const Parameters& p) {
    AutoStepRow* row = AutoStepTable.next();
    if (!row) return;
    row->settings = settingsOf(p);
    AutoStepTable.commit();
}

void ForgetAutoSteps() {
    AutoStepTable.clear();
    ++Pages;
}

void RefreshAutoStep(std::uint16_t /*page*/, const Parameters& p, bool blockChanged) {
    AutoStepRow* row = AutoStepTable.at(AutoStepCursor);
    if (row && blockChanged) row->settings = settingsOf(p);
}

void CountAutoStepTicks() {
    if (AutoStepTable.empty()) return;
    for (AutoStepRow& row : AutoStepTable.rows()) row.TickCount += 1;
    AutoStepFlag = 1;
}

void AutoStepTick() {
    if (AutoStepTable.empty() || !AutoStepFlag.exchange(0)) return;
    const std::uint32_t page = Pages;
    for (AutoStepRow& row : AutoStepTable.rows()) {
        if (row.TickCount < row.settings.Period) continue;
        row.TickCount = 0;
        StepAutoValue(row);
        if (Pages != page) return; // the step has brought another page, whose rows wait for the next tick
    }
}

void StepAutoValue(AutoStepRow& row) {
    const AutoStepSettings s = row.settings; // the row may be another's before the step is done
    const std::uint16_t control = ReadWord(s.Control);
    if (control != s.CycleValue && control != s.RunValue) return;
    const Stepped stepped = step(readVariable(s.Target, s.DataType), control == s.CycleValue, s);
    StoreNumeric(s.Target, s.DataType, stepped.value);
    PassOnInput(s.Target);
    if (stepped.ended) tellEnd(s);
}

} // namespace panel
