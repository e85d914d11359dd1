// The families of touch widgets and the builder of their tables. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <cstddef>
#include <cstdint>

namespace panel {

struct TouchFamily {
    std::uint16_t code; // the type word under FamilyMask
    const char* name;
    /// Records of the family that a page may hold.
    std::size_t capacity;
    void (*reset)() = nullptr;                  // forgets the family's rows and its press
    void (*build)(const Parameters&) = nullptr; // appends a row for a record; null: takes none
    std::uint8_t* active = nullptr;             // not 0 while a widget of the family owns the press
    void (*drop)() = nullptr;                   // gives up the press, where clearing `active` is not all
    void (*showAtRest)() = nullptr;             // draws the widget that owns the press without it
    bool onNeighbours = false;                  // shows its first image on the pages beside a sliding one
    bool yieldsToSwipe = false;                 // gives up a press that begins as a swipe
};

/// The row of a type word under FamilyMask, or nullptr for one that nobody knows.
const TouchFamily* FindTouchFamily(int code);

/// Forgets the rows and the active row of every family.
void ResetTouchFamilies();
/// No family owns the press any more; the rows stay.
void LetGoOfTouchFamilies();
/// The same for the families that yield to a swipe.
void YieldToSwipe();
/// A finger that drags or swipes over a keyboard takes it away from a text, though not from a number.
void CloseTextFields();
/// The key that owns the press looks as if it did not.
void ShowTouchFamiliesAtRest();

/// Loads the touch and group streams of a page and fills the tables of the families from it. A page without a
/// touch stream only gets its group stream.
void BuildTouchTables(std::uint16_t page);

/// Draws the first images of the widgets of a page beside the one on show. Leaves rows and stream of that
/// page behind.
void ShowTouchFamiliesOfNeighbour(std::uint16_t page);

} // namespace panel
