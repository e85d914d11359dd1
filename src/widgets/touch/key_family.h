// The shape that all key families have in common: one press has one owner, a virtual key acts at once, and a
// key acts when it is let go. Engine thread.
#pragma once

#include "store/row_table.h"
#include "store/system_words.h"
#include "widgets/touch/hit_test.h"
#include "widgets/touch/pointer.h"

#include <cstddef>
#include <cstdint>

namespace panel {

/// The panel's beeper. There is none here.
inline void PlayKeyBeep() {}
/// Beeps as the settings of the image want it.
void BeepIfEnabled();

/// Makes a widget the owner of the press that the pointer holds.
void OwnPress();

/// The place in the table of the first row under the pointer, or the table's size when there is none.
template <class Row, std::size_t N>
std::size_t FindHitRow(const RowTable<Row, N>& rows) {
    std::size_t index = 0;
    while (index < rows.size() && !HitTest(rows.rows()[index].head)) ++index;
    return index;
}

/// Takes the waiting virtual key when a row of the table has its code; nullptr when none has, and then the
/// key goes on waiting.
template <class Row, std::size_t N>
Row* TakeVirtualKey(RowTable<Row, N>& rows) {
    if (!VirtualKeyPending) return nullptr;
    for (Row& row : rows.rows()) {
        if (row.head.onScreen() || row.head.y0 != VirtualKeyCode) continue;
        ForgetVirtualKey();
        return &row;
    }
    return nullptr;
}

/// A family of keys that act when they are let go. Rows begin with a TouchHead `head`. Each routine gets a
/// copy of the row, since an action may bring another page and other rows.
template <class Row, std::size_t N>
struct KeyFamily {
    RowTable<Row, N>& rows;
    std::uint8_t& active;    // 1 while a key of the family owns the press
    std::uint8_t& activeRow; // and which one

    // Any of these may be null.

    /// The key takes the press: its press look.
    void (*press)(const Row&) = nullptr;
    /// While the key still owns the press: its frame, its normal look.
    void (*letGo)(const Row&) = nullptr;
    /// What the key is for, once the press is free again.
    void (*act)(const Row&) = nullptr;
    /// All that a virtual key does. Null: the family takes none here.
    void (*virtualKey)(const Row&) = nullptr;
    /// Whether a row takes a press at all. Null: all do.
    bool (*takesPress)(const Row&) = nullptr;
};

template <class Row, std::size_t N>
void TakePress(const KeyFamily<Row, N>& family) {
    for (std::size_t i = 0; i < family.rows.size() && !TouchBusy && !family.active; ++i) {
        const Row row = *family.rows.at(i);
        if (!HitTest(row.head) || (family.takesPress && !family.takesPress(row))) continue;
        if (family.press) family.press(row);
        family.active = 1;
        family.activeRow = static_cast<std::uint8_t>(i);
        OwnPress();
    }
}

template <class Row, std::size_t N>
void LetGo(const KeyFamily<Row, N>& family) {
    const Row* pressed = family.rows.at(family.activeRow);
    if (!family.active || !pressed) return;
    const Row row = *pressed;
    if (family.letGo) family.letGo(row);
    family.active = 0;
    TouchBusy = 0;
    if (family.act) family.act(row);
}

/// One look at the pointer and at the virtual key, once a cycle.
template <class Row, std::size_t N>
void ScanKeys(const KeyFamily<Row, N>& family) {
    if (TouchPressed) TakePress(family);
    if (family.virtualKey)
        if (const Row* row = TakeVirtualKey(family.rows)) family.virtualKey(Row(*row));
    if (!TouchPressed) LetGo(family);
}

/// Whether this row of the family's table owns the press.
template <class Row, std::size_t N>
bool OwnsPress(const KeyFamily<Row, N>& family, const Row& row) {
    return family.active && &row == family.rows.at(family.activeRow);
}

/// Calls a routine with the row that owns the press, if there is one.
template <class Row, std::size_t N>
void WithPressedRow(const KeyFamily<Row, N>& family, void (*use)(const Row&)) {
    const Row* row = family.active ? family.rows.at(family.activeRow) : nullptr;
    if (row) use(*row);
}

/// Forgets the rows and the press that the family follows.
template <class Row, std::size_t N>
void ResetKeys(const KeyFamily<Row, N>& family) {
    family.rows.clear();
    family.active = 0;
    family.activeRow = 0;
}

} // namespace panel
