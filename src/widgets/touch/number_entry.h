// Fields into which a person types a number on a keyboard of the screen. Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/keyboard.h"
#include "widgets/touch/touch_row.h"

#include <cstdint>

namespace panel {

struct NumberEntryRow {
    TouchHead head{};
    std::uint16_t Address = 0;
    std::uint8_t DataType = 0; // a code of store/typed_value.h
    std::uint8_t IntegerDigits = 0, Decimals = 0;
    EntryField Field{};
    bool Limited = false; // whether a value beyond the limits is refused
    std::int32_t Highest = 0, Lowest = 0;
    bool Prefilled = false; // begins with the value of the variable
};
inline RowTable<NumberEntryRow, 128> NumberEntries;

inline std::uint8_t NumberActive = 0; // 1 while a field owns the press
inline std::uint8_t NumberRow = 0;    // and which one
inline std::uint8_t NumberOpen = 0;   // 1 while the keyboard of a field is up

// What has been typed so far.
inline std::uint8_t NegativeTyped = 0, PointTyped = 0;
inline std::uint8_t IntegerCount = 0, DecimalCount = 0;

void ResetNumberEntries();
void AddNumberEntry(const Parameters& p);
void TouchNumberEntry();

} // namespace panel
