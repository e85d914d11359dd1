// The families of touch widgets and the builder of their tables. Engine thread.
#pragma once

#include <cstdint>

namespace panel {

/// Forgets the rows and the active row of every family.
void ResetTouchFamilies();
/// No family owns the press any more; the rows stay.
void LetGoOfTouchFamilies();
/// The key that owns the press looks as if it did not.
void ShowTouchFamiliesAtRest();

/// Loads the touch and group streams of a page and fills the tables of the families from it. A page without a
/// touch stream only gets its group stream.
void BuildTouchTables(std::uint16_t page);

/// Draws the first images of the widgets of a page beside the one on show. Leaves rows and stream of that
/// page behind.
void ShowTouchFamiliesOfNeighbour(std::uint16_t page);

/// Whether a family has that code, a type word under FamilyMask.
bool IsTouchFamily(int code);

} // namespace panel
