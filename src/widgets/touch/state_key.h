// Keys that show the state of a variable, a pair of pictures for each value, and start a preset. Engine
// thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/key_image.h"

#include <cstdint>

namespace panel {

struct StateKeyRow {
    TouchHead head{};
    std::uint16_t Address = 0xFFFF; // of the variable; none: the key shows nothing and takes no press
    std::uint16_t Lowest = 0, Highest = 0;
    std::uint16_t FirstImage = NoImage; // normal look of the lowest value; its press look follows
    std::uint16_t FirstPreset = 0xFFFF; // id of the lowest value's preset; 0xFFFF: none
    std::uint16_t OverlayGroup = NoGroup;
};
inline RowTable<StateKeyRow, 20> StateKeys;
inline std::uint8_t StateKeyActive = 0; // 1 while a key owns the press

/// The key that owns the press looks as if it did not.
void ShowStateKeyAtRest();
void ResetStateKeys();
void AddStateKey(const Parameters& p);
void TouchStateKeys();
/// Draws the key again when its group or its variable has changed.
void RepaintKeyGroup(std::uint16_t page, const StateKeyRow& row);
/// What the keys show is no longer a change.
void SyncStateKeys();

} // namespace panel
