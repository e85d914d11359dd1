// Keys with up to three actions: on a click, a double click and a long press. Engine thread, but for
// CountMultiKeyTicks().
#pragma once

#include "store/row_table.h"
#include "store/shared.h"
#include "widgets/touch/key_image.h"

#include <cstdint>

namespace panel {

struct KeyAction {
    bool Enabled = false;
    std::uint16_t NotifyCode = 0;
    std::uint16_t TargetPage = NoPage;
    std::uint16_t Address = 0xFFFF; // written when it names a word
    std::uint16_t Value = 0;
};

struct MultiKeyRecord {
    TouchHead head{};
    KeyLooks Looks{};
    KeyAction Click{}, DoubleClick{}, LongPress{};
    std::uint8_t DoubleClickWindow = 0; // units of 5 ticks
    std::uint8_t LongPressTicks = 0;
};
inline RowTable<MultiKeyRecord, 128> MultiKeys;

// One press and one first click are followed for the whole family.

inline std::uint8_t MultiKeyActive = 0; // 1 while a press is followed
inline std::uint8_t MultiKeyRow = 0;    // the row of that press

enum class DoubleClickState : std::uint8_t { Idle, FirstClick, SecondClick };
enum class LongPressState : std::uint8_t { Idle, Timing, Fired, FiredPageGone };

/// The engine writes, the tick looks. A first click outlives its page: it stays pending on the key of the new
/// page with the same row.
inline Shared<DoubleClickState> DoubleState{DoubleClickState::Idle};
inline std::uint8_t DoubleRow = 0; // the row of the first click
inline Shared<LongPressState> LongState{LongPressState::Idle};
/// Counts while either of the two waits. The tick counts, the engine clears.
inline Shared<std::uint16_t> MultiKeyTicks{0};

/// The key that owns the press looks as if it did not.
void ShowMultiKeyAtRest();
/// The press that is followed becomes neither a click nor a long one.
void DropMultiKeyPress();
/// Forgets the rows. A long press that has fired still holds the press until it is let go.
void ResetMultiKeys();
void AddMultiKey(const Parameters& p);
void TouchMultiKeys();
void RepaintKeyGroup(std::uint16_t page, const MultiKeyRecord& key);

/// Once a tick. Main thread.
void CountMultiKeyTicks();

} // namespace panel
