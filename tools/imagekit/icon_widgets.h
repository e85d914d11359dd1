// Icons: widgets that show one picture of several by a variable. Images are indices of the picture table.
#pragma once

#include "imagekit/records.h"
#include "imagekit/value_widgets.h"

#include <cstdint>

namespace imagekit {

/// A picture for each value from Minimum to Maximum, and none outside.
struct ValueIcon {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t ValueAddress = 0;
    std::uint16_t X = 0, Y = 0; // px
    std::uint16_t FirstImage = 0;
    std::uint16_t Minimum = 0, Maximum = 1;
    std::uint8_t Backdrop = 0; // a selector of panel::Backdrop
    std::uint16_t Group = None;
};

/// One picture for 0 and one for 1 of a bit.
struct BitIcon {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t ValueAddress = 0;
    std::uint16_t X = 0, Y = 0; // px
    std::uint8_t Bit = 0;
    std::uint16_t ClearImage = None, SetImage = None;
    std::uint8_t Backdrop = 0;
    std::uint16_t Group = None;
};

DisplayRecord Encode(const ValueIcon& icon);
DisplayRecord Encode(const BitIcon& icon);

WidgetDescription Describe(const ValueIcon& icon);
WidgetDescription Describe(const BitIcon& icon);

} // namespace imagekit
