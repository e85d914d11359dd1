// Fields into which a person types a text of single bytes on a keyboard of the screen. Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/keyboard.h"
#include "widgets/touch/touch_row.h"

#include <cstdint>

namespace panel {

struct TextEntryRow {
    TouchHead head{};
    std::uint16_t Address = 0;
    std::uint16_t Capacity = 0; // of the variable, words of two characters
    bool Prefilled = false;     // begins with the text of the variable
    EntryField Field{};
};
inline RowTable<TextEntryRow, 128> TextEntries;

inline std::uint8_t TextActive = 0; // 1 while a field owns the press
inline std::uint8_t TextRow = 0;    // and which one
inline std::uint8_t TextOpen = 0;   // 1 while the keyboard of a field is up

void ResetTextEntries();
void AddTextEntry(const Parameters& p);
void TouchTextEntry();

} // namespace panel
