// The picture clock in all its formats: its record, and the digit pictures that show the time. Any thread may
// ask for the pictures: the clock is shared, and the image does not change.
#pragma once

#include "pages/parameters.h"
#include "widgets/display/glyph_pictures.h"

#include <cstdint>
#include <string_view>

namespace panel {

/// The block of a pngClock in the store begins with the byte of the record that tells its length.
inline constexpr std::size_t PngClockBlockAt = 4;

/// What the record of a pngClock tells.
struct PngClockFields {
    std::uint16_t X = 0, Y = 0;   // px on the panel, the open pop-up's origin added
    std::uint16_t FirstImage = 0; // picture of digit 0
    std::uint8_t Format = 0;
};
/// Engine thread.
PngClockFields ReadPngClock(const Parameters& p);

/// What a clock shows: Y year, M month, D day, h hour, m minute, s second, W weekday, and the marks between
/// them: "." behind the year, "-" behind the month, "|" behind the day, ":" in the time.
struct ClockLayout {
    std::string_view text;
    std::string_view timeText{}; // stands behind a gap; empty: the clock has one text only

    bool hasGap() const { return !timeText.empty(); }
    bool isWeekday() const { return text == "W"; }
};
/// nullptr for a format that shows nothing.
const ClockLayout* FindClockLayout(std::uint8_t clockFormat);

enum class YearDigits : std::uint8_t { AsNeeded, Four };

/// A text of a clock as it stands now.
GlyphPictures ClockGlyphs(std::string_view text, std::uint16_t firstImage, YearDigits yearDigits);

} // namespace panel
