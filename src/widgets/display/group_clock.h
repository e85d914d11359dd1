// pngClock in a group: drawn over the picture of the widget that has the group, along the direction of the
// panel's Rotation, and over the picture of the camera.
//
// The camera picture comes on the main thread, which cannot walk the engine's streams. While the camera runs,
// the engine hands over in every cycle where the clocks of its group stand; the main thread draws them with
// the time it has itself just counted. One lock guards the hand-over and the OverlaySurface, and is held
// to copy a few rows or to draw a few digits, whose pictures are decoded at the first time.
#pragma once

#include "pages/parameters.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <cstdint>

namespace panel {

// Engine thread. `host` is the rectangle of the widget that has the group; its top left corner stands for
// (0, 0).

/// As a member of a group: both of the following, in this order.
void DisplayClockInGroup(const Parameters& p, QRect host);
/// Draws the clock on the WorkSurface.
void DrawGroupClock(const Parameters& p, QRect host);
/// Draws it on the OverlaySurface, but for date with time and the weekday, which come on the WorkSurface once
/// more.
void DrawGroupClockOverlay(const Parameters& p, QRect host);

/// Whether a clock in a group is to be drawn anew: a second has passed.
bool ClockChangedInGroup(const Parameters& p);

/// Hands over the clocks of the group that are drawn over the camera picture, whose top left corner lies at
/// `corner` on the panel. Once a cycle while the camera runs.
void HandOverCameraClocks(std::uint16_t page, std::uint16_t group, QPoint corner);

/// The camera picture becomes the OverlaySurface and gets the clocks that were handed over last. Places are
/// panel pixels, whatever the scale of the picture. Returns the surface. Main thread.
QImage DrawGroupClocksOnly(QImage cameraPicture);

} // namespace panel
