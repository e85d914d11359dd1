// Sliding pages: a page follows the finger sideways, its neighbours move in, and when it is let go it settles
// on one of them or snaps back. Nothing is drawn meanwhile: the three pages stand side by side in the
// SlideSurface, and a window of it is copied to the frame. Engine thread.
#pragma once

#include "host/panel_outputs.h"
#include "pages/parameters.h"

#include <cstdint>

namespace panel {

/// The family of its record in the touch stream.
inline constexpr std::uint16_t SlidePageFamily = 0x800C;

/// Whether the page on show has the record, which a page change forgets and a pop-up does not.
inline std::uint8_t SlidePageActive = 0;
/// Whether a finger is dragging the page.
inline std::uint8_t Sliding = 0;
/// Strip column at the left edge of the frame, and the one that the finger asks for. The page itself stands
/// at DisplayWidth.
inline std::uint16_t SlideShown = 0;
inline std::uint16_t SlideWanted = 0;
inline std::uint16_t SlideLastX = 0; // the pointer's column, px; 0: none

/// Takes the record of a page whose touch tables are being built, draws both neighbours into the strip and
/// the page's own picture on the frame. Touch and display streams are the neighbours' afterwards.
void PrepareSlidePage(std::uint16_t page, const Parameters& record);
void ForgetSlidePage();

/// Follows the finger, and settles when it is let go: then it shows frames by itself until the page stands
/// still. Once a cycle.
void SlidePageTick(PanelOutputs& outputs);

} // namespace panel
