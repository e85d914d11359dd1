// Keys that change a variable by a step, or flip one of its bits. Engine thread, but for CountRepeatTicks().
#pragma once

#include "store/row_table.h"
#include "store/shared.h"
#include "widgets/touch/key_image.h"

#include <cstdint>

namespace panel {

struct StepKeyRow {
    TouchHead head{};
    std::uint16_t Address = 0;
    std::uint8_t DataType = 0; // a code of store/typed_value.h, or 0x40 to 0x4F: bit 0 to 15 of the word
    bool Up = false;
    bool Wraps = false; // at a limit, to the opposite one
    std::uint16_t Step = 0;
    std::int32_t Highest = 0, Lowest = 0;
    KeyLooks Looks{}; // never with a group
    bool Repeats = false;
};
inline RowTable<StepKeyRow, 255> StepKeys; // the count is one byte on the panel

inline std::uint8_t StepActive = 0; // 1 while a key owns the press
inline std::uint8_t StepRow = 0;    // and which one

/// A held key that repeats. The engine writes, the tick looks.
enum class Repeat : std::uint8_t { None, Armed, Repeating };
inline Shared<Repeat> RepeatState{Repeat::None};
/// Ticks since the press or the last repeat. The tick counts, the engine clears.
inline Shared<std::uint8_t> RepeatTicks{0};

/// The key that owns the press looks as if it did not.
void ShowStepKeyAtRest();
void ResetStepKeys();
void AddStepKey(const Parameters& p);
void TouchStepKeys();

/// Steps the variable of a row once. One outside the store stays out of it.
void ApplyStep(const StepKeyRow& row);

/// Once a tick. Main thread.
void CountRepeatTicks();

} // namespace panel
