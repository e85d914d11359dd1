// Fields into which a person types a text of single bytes on a keyboard of the screen. Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/text_field.h"
#include "widgets/touch/touch_row.h"

#include <cstdint>

namespace panel {

struct TextEntryRow {
    TouchHead head{};
    TextVariable Variable{};
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
