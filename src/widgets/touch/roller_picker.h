// Drums: a strip of pictures, one cell for each value, that a finger turns behind a window. Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/touch_row.h"

#include <cstdint>

namespace panel {

struct Roller {
    TouchHead head{}; // the window, which as a picture ends before its last row, or column when horizontal
    std::uint16_t Address = 0;
    std::uint16_t MarginA = 0,
                  MarginB = 0; // px of the window before and behind the band of the selected cell
    bool Horizontal = false;
    bool StopsAtEnds = false;
    std::uint16_t SelectedStrip = NoImage, NormalStrip = NoImage; // the look in the band, and beside it
    std::uint16_t Lowest = 0, Highest = 0, Step = 0;
    std::int16_t Offset = 0; // px, the position in the strip of what stands at the start of the band
    bool Behind = false;     // a refresh after a touch has left the strip where it was

    /// Along the axis, px; 0 or less for a window that cannot be.
    int windowLength() const { return Horizontal ? head.x1 - head.x0 : head.y1 - head.y0; }
    /// Of one value, along the axis, px; 0 or less when the margins leave no band.
    int cell() const { return windowLength() - MarginA - MarginB; }
    /// Otherwise no place in the strip has a value: the low end shows, and a touch changes nothing.
    bool turns() const { return cell() > 0 && Step > 0; }
};
inline RowTable<Roller, 64> Rollers;

inline std::uint8_t RollerActive = 0; // 1 while a roller owns the press, and its strip follows the finger
inline std::uint8_t RollerRow = 0;    // which roller that is
inline std::uint8_t RollerAdjust = 0; // days that the month lacks, for a roller of the day

// Of the roller that was looked at last, px along its axis and across.
inline std::uint16_t StripLength = 0;
inline std::uint16_t StripCross = 0;

void ResetRollers();
/// Holds the variable to the limits of the row, in the store too, and shows it.
void AddRoller(const Parameters& p);
/// The strip follows the finger; the variable changes when it is let go.
void TouchRollerPickers();

/// Takes the size of the roller's strips, which are of one size.
void SetRollerPosition(const Roller& roller);
/// Draws the window at Offset, which ends with the strip. Comes after SetRollerPosition().
void DrawRoller(Roller& roller);

// Of the rollers whose variable has changed, but for the one under the finger.

/// Holds the variable to the limits and shows it.
void RefreshRollers(std::uint16_t page);
/// Draws them where they stand; the next full refresh turns them.
void RedrawRollersAfterTouch(std::uint16_t page);

/// What the rollers' variables hold is no longer a change.
void SyncRollers();

} // namespace panel
