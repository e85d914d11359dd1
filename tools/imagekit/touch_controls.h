// Controls: touch widgets that set a variable while a finger moves. Images are indices of the picture table.
#pragma once

#include "imagekit/meter_widgets.h"
#include "imagekit/touch_keys.h"

#include <cstdint>

namespace imagekit {

/// The way in which a slider's value rises.
enum class SlideDirection : std::uint8_t { Right = 0, Left = 1, Down = 2, Up = 3 };

/// A fill picture that is shown as far as the value reaches, with or without a thumb and a background.
struct Slider {
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t FillX = 0, FillY = 0; // px
    std::uint16_t FillImage = None;
    std::uint16_t Address = 0;
    Area Where{}; // that a finger can reach, the track
    std::uint16_t ThumbImage = None;
    SlideDirection Direction = SlideDirection::Right;
    std::int16_t Highest = 100, Lowest = 0;
    std::uint16_t BackX = 0, BackY = 0; // px
    std::uint16_t BackImage = None;
    bool Touchable = true;
    std::uint16_t OverlayGroup = None;
};

/// A drum: a strip with one cell a value behind a window. The strips have the same size.
struct RollerPicker {
    bool Notify = false;
    std::uint16_t Address = 0;
    Area Window{};
    std::uint16_t MarginA = 0, MarginB = 0; // px of the window before and behind the selected cell
    bool Horizontal = false;
    bool StopsAtEnds = false;
    std::uint16_t SelectedStrip = None, NormalStrip = None;
    std::uint16_t Lowest = 0, Highest = 0, Step = 1;
};

/// A ring that a finger turns, from the start angle clockwise to the end angle.
struct Rtouch {
    bool Notify = false;
    std::uint16_t Address = 0;
    std::uint16_t X = 0, Y = 0; // px
    std::uint16_t Foreground = None, Background = None, Thumb = None;
    std::uint16_t Radius = 0;   // px, of the band that a finger can reach and of the thumb's path
    std::uint8_t HalfWidth = 0; // px, of the band
    std::int16_t Lowest = 0, Highest = 100;
    std::uint16_t StartAngle = 0, EndAngle = 360; // degrees clockwise from straight down
    std::uint16_t ReadoutX = 0, ReadoutY = 0;     // px on the panel
    std::uint8_t IntegerDigits = 3, Decimals = 0;
    Alignment Align = Alignment::Centre;
    std::uint8_t Font = 0;
    std::uint32_t Colour = 0;
    std::uint16_t FirstDigit = None; // digits 0 to 9, the point, the minus sign
    RingReadout Readout = RingReadout::Nothing;
    bool Touchable = true;
    std::uint16_t OverlayGroup = None;
};

/// Makes the page slide sideways between two others.
struct SlidePage {
    bool Notify = false;
    std::uint16_t NextPage = None, NextCode = 0; // the page to the right; the code is sent on arrival
    std::uint16_t PreviousPage = None, PreviousCode = 0;
    std::uint16_t BandTop = 0, BandBottom = 0; // rows that slide, the end not included
};

/// The way in which a list slides, and whether its start follows its end.
enum class ListMode : std::uint8_t {
    Vertical = 0,
    Horizontal = 1,
    EndlessVertical = 0x80,
    EndlessHorizontal = 0x81
};

/// A window on a larger picture, which is that of another page, and a finger drags. Widgets with InList lie
/// on the picture.
struct SlidingList {
    Area Window{};
    std::uint16_t ListPage = None;
    ListMode Mode = ListMode::Vertical;
    std::uint16_t BarAtRest = None, BarMoving = None; // pictures; without one there is no bar
    std::uint16_t BarMargin = 0, BarOffset = 0;       // px
};

struct SwipeTarget {
    std::uint16_t Page = None, Code = 0; // the code is sent before the page changes
};
/// A flick across the panel changes the page.
struct SwipeGesture {
    bool Notify = false;
    SwipeTarget Up{}, Down{}, Left{}, Right{};
};

TouchRecord Encode(const Slider& slider);
TouchRecord Encode(const RollerPicker& picker);
TouchRecord Encode(const Rtouch& ring);
TouchRecord Encode(const SlidePage& slide);
TouchRecord Encode(const SlidingList& list);
TouchRecord Encode(const SwipeGesture& gesture);

WidgetDescription Describe(const Slider& slider);
WidgetDescription Describe(const Rtouch& ring);

} // namespace imagekit
