// Round instruments: ring gauges and needle meters. Images are indices of the picture table, places px of the
// panel, angles whole degrees.
#pragma once

#include "imagekit/picture.h"
#include "imagekit/records.h"
#include "imagekit/value_widgets.h"

#include <QPoint>

#include <cstdint>

namespace imagekit {

enum class RingReadout : std::uint8_t { Nothing = 0, Text = 1, Pictures = 2 };

/// The swept sector of a square picture. Angles run from straight down, clockwise, to 360.
struct RingGauge {
    std::uint16_t ParameterAddress = Inline;
    std::uint16_t ValueAddress = 0;
    std::uint16_t X = 0, Y = 0;
    std::uint16_t Foreground = None, Background = None;
    std::int16_t Lowest = 0, Highest = 100;
    std::uint16_t StartAngle = 0, EndAngle = 360;
    std::uint16_t ReadoutX = 0, ReadoutY = 0;
    std::uint8_t IntegerDigits = 3, Decimals = 0;
    Alignment Align = Alignment::Centre;
    std::uint8_t Font = 0;
    std::uint32_t Colour = 0;
    std::uint16_t FirstDigit = None; // digits 0 to 9, the point, the minus sign
    RingReadout Readout = RingReadout::Nothing;
    std::uint16_t Group = None;
};

enum class Needle : std::uint8_t {
    Triangles = 0,
    SmoothTriangles = 1,
    Nothing = 2,
    Image = 3,
    Stroke = 4,
    ImageOnFrame = 5
};

/// A needle that points to the angle in its variable, clockwise from straight up.
struct NeedleMeter {
    std::uint16_t ParameterAddress = Inline;
    std::uint16_t ValueAddress = 0;
    std::uint16_t Dial = None;
    std::uint16_t X = 0, Y = 0, Width = 0, Height = 0;
    std::uint16_t CentreX = 0, CentreY = 0;
    std::uint16_t Lowest = 0, Highest = 360;
    std::uint16_t Step = 1;
    bool Smooth = false;
    std::uint16_t Cover = None;
    std::uint16_t DigitsAddress = None; // None: no number
    DataType DigitsType = DataType::U16;
    std::uint16_t DigitsX = 0, DigitsY = 0;
    std::uint16_t FirstDigit = None; // digits 0 to 9, the point, the minus sign
    Alignment Align = Alignment::Centre;
    bool LeadingZeros = false;
    std::uint8_t IntegerDigits = 3, Decimals = 0;
    Needle Kind = Needle::SmoothTriangles;
    std::uint16_t NeedleWidth = 8;
    std::uint16_t Tail = 10; // of needle pictures the half of their field around the hub
    std::uint32_t ColourA = 0;
    std::uint16_t Length = 40;
    std::uint32_t ColourB = 0;
    std::uint16_t FirstNeedle = None; // a NeedlePicture() for each Step values
};

/// A picture of a needle, which lies at `offset` in its field.
StoredPicture NeedlePicture(const Pixels& pixels, QPoint offset, const PanelConfig& config);

DisplayRecord Encode(const RingGauge& gauge);
DisplayRecord Encode(const NeedleMeter& meter);

WidgetDescription Describe(const RingGauge& gauge);
WidgetDescription Describe(const NeedleMeter& meter);

} // namespace imagekit
