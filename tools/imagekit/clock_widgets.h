// Widgets that show the panel's clock. Images are indices of the picture table, colours words in the colour
// mode of the image.
#pragma once

#include "imagekit/records.h"
#include "imagekit/value_widgets.h"

#include <cstdint>

namespace imagekit {

/// What a picture clock shows, by the codes of the panel. A closing mark is that of its last field.
enum class ClockFormat : std::uint8_t {
    DateAndTime = 0,
    Date = 1,
    YearAndMonth = 2,
    MonthAndDay = 3,
    Time = 4,
    HoursAndMinutes = 5,
    MinutesAndSeconds = 6,
    Weekday = 7,
    ClosedDateAndTime = 8, // the mark stands behind the date
    ClosedDate = 9,
    ClosedYearAndMonth = 10,
    ClosedMonthAndDay = 11
};

/// The clock in digit pictures. Lives on pages and in groups.
struct PngClock {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t X = 0, Y = 0; // px
    /// Digits 0 to 9, the colon, the marks behind year, month and day, then the weekdays from Sunday on.
    std::uint16_t FirstImage = 0;
    ClockFormat Format = ClockFormat::Time;
};

/// A stroke through the centre of a dial.
struct ClockHand {
    std::uint8_t Ahead = 0, Behind = 0; // px, from the centre to its ends
    std::uint8_t Width = 1;             // px
    std::uint32_t Colour = 0;
};

/// The clock as a dial.
struct AnalogClock {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t X = 0, Y = 0; // px
    std::uint16_t Face = 0;
    ClockHand Hours{}, Minutes{}, Seconds{};
    std::uint16_t Cap = None; // over the hands
};

/// In the pointer form the block begins with a byte that the panel does not read.
DisplayRecord Encode(const PngClock& clock);
DisplayRecord Encode(const AnalogClock& clock);

WidgetDescription Describe(const PngClock& clock);
WidgetDescription Describe(const AnalogClock& clock);

} // namespace imagekit
