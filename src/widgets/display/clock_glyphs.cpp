#include "widgets/display/clock_glyphs.h"

#include "store/clock.h"
#include "widgets/display/placement.h"

#include <iterator>

namespace panel {
namespace {

namespace field {
constexpr std::size_t X = 5;
constexpr std::size_t Y = 7;
constexpr std::size_t FirstImage = 9;
constexpr std::size_t Format = 0x0D;
} // namespace field

namespace glyph {
constexpr unsigned Colon = 10;
constexpr unsigned AfterYear = 11;
constexpr unsigned AfterMonth = 12;
constexpr unsigned AfterDay = 13;
constexpr unsigned Sunday = 14;
} // namespace glyph

/// By format. From 8 on they are those of 0 to 3 with a closing mark.
constexpr ClockLayout Layouts[] = {
    {"Y.M-D", "h:m:s"},  {"Y.M-D"},  {"Y.M"},  {"M-D"},  {"h:m:s"}, {"h:m"}, {"m:s"}, {"W"},
    {"Y.M-D|", "h:m:s"}, {"Y.M-D|"}, {"Y.M-"}, {"M-D|"},
};

/// A clock that was set to a year it cannot count may hold any byte.
void putTwoDigits(GlyphPictures& glyphs, unsigned value) { glyphs.putTwoDigits(value % 100); }

void putYear(GlyphPictures& glyphs, unsigned year, YearDigits digits) {
    for (const unsigned power : {1000U, 100U, 10U, 1U})
        if (digits == YearDigits::Four || year >= power || power == 1) glyphs.put(year / power % 10);
}

void putPart(GlyphPictures& glyphs, char part, YearDigits yearDigits) {
    switch (part) {
    case 'Y': return putYear(glyphs, Clock.Year, yearDigits);
    case 'M': return putTwoDigits(glyphs, Clock.Month);
    case 'D': return putTwoDigits(glyphs, Clock.Day);
    case 'h': return putTwoDigits(glyphs, Clock.Hour);
    case 'm': return putTwoDigits(glyphs, Clock.Minute);
    case 's': return putTwoDigits(glyphs, Clock.Second);
    case 'W': glyphs.put(glyph::Sunday + Clock.Weekday); break;
    case ':': glyphs.put(glyph::Colon); break;
    case '.': glyphs.put(glyph::AfterYear); break;
    case '-': glyphs.put(glyph::AfterMonth); break;
    case '|': glyphs.put(glyph::AfterDay); break;
    default: break;
    }
}

} // namespace

PngClockFields ReadPngClock(const Parameters& p) {
    const QPoint shift = PopupShift();
    return {.X = static_cast<std::uint16_t>(p.u16(field::X) + shift.x()),
            .Y = static_cast<std::uint16_t>(p.u16(field::Y) + shift.y()),
            .FirstImage = p.u16(field::FirstImage),
            .Format = p.u8(field::Format)};
}

const ClockLayout* FindClockLayout(std::uint8_t clockFormat) {
    return clockFormat < std::size(Layouts) ? &Layouts[clockFormat] : nullptr;
}

GlyphPictures ClockGlyphs(std::string_view text, std::uint16_t firstImage, YearDigits yearDigits) {
    GlyphPictures glyphs(firstImage);
    for (const char part : text) putPart(glyphs, part, yearDigits);
    return glyphs;
}

} // namespace panel
