// Level bars, QR codes, and variables that step by themselves. Images are indices of the picture table.
#pragma once

#include "imagekit/records.h"
#include "imagekit/value_widgets.h"

#include <cstdint>

namespace imagekit {

enum class BarGrowth : std::uint8_t { Right = 0, Left = 1, Down = 2, Up = 3 };

/// A picture that is shown as far as a signed value reaches.
struct ImageBar {
    std::uint16_t ParameterAddress = Inline;
    std::uint16_t ValueAddress = 0;
    std::uint16_t BarX = 0, BarY = 0; // px
    std::uint16_t BarImage = None;
    BarGrowth Direction = BarGrowth::Right;
    std::int16_t Maximum = 100, Minimum = 0;
    std::uint16_t BackX = 0, BackY = 0; // px; without a BackImage the bar stands here
    std::uint16_t BackImage = None;
};

/// A text as a QR code on a white square.
struct QrCode {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t TextAddress = 0, TextWords = 0;
    std::uint16_t X = 0, Y = 0; // px
    std::uint8_t SizeUnits = 2; // of 50 px
};

/// Steps a variable while its control word holds one of two values; shows nothing.
struct AutoStep {
    std::uint16_t ParameterAddress = Inline;
    std::uint16_t TargetAddress = 0;
    DataType Type = DataType::U16;
    std::uint16_t ControlAddress = 0;
    std::uint16_t CycleValue = 1; // again and again between the limits
    std::uint16_t RunValue = 2;   // to a limit, once
    std::uint16_t EndValue = 0;   // of the control word after that
    std::int64_t Lowest = 0, Highest = 100;
    std::uint16_t Step = 1, Period = 10;             // ticks of 10 ms
    std::uint16_t DoneAddress = None, DoneValue = 0; // set after a run
    bool Up = true;
    bool Notify = false; // sends the value after a run
};

DisplayRecord Encode(const ImageBar& bar);
DisplayRecord Encode(const QrCode& code);
DisplayRecord Encode(const AutoStep& step);

WidgetDescription Describe(const ImageBar& bar);
WidgetDescription Describe(const QrCode& code);
WidgetDescription Describe(const AutoStep& step);

} // namespace imagekit
