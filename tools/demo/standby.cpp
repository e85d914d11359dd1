#include "demo/standby.h"

#include "demo/instrument_art.h"
#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/texts.h"
#include "demo/words.h"

#include "imagekit/clock_widgets.h"
#include "imagekit/encoder_widgets.h"
#include "imagekit/touch_keys.h"

namespace demo {
namespace {

using namespace layout::standby;

constexpr TextStyle TimeStyle{150, QFont::Normal, colour::Muted};
constexpr TextStyle DateStyle{26, QFont::Medium, colour::Faint};

/// The marks are characters in Chinese; in the other language strokes, and nothing at the end.
std::uint16_t addDateGlyphs(imagekit::ImageBuilder& image) {
    const QStringList strokes{"-", "-", " "}, chinese{"年", "月", "日"};
    const std::uint16_t first = AddGlyphPictures(image, TimeGlyphs() + strokes, DateStyle, colour::Rail);
    for (int i = 0; i < 3; ++i)
        image.setPicture(U16(first + TimeGlyphs().size() + i), ChineseLanguage,
                         GlyphPicture(chinese[i], DateStyle, colour::Rail));
    AddWeekdays(image, DateStyle, colour::Rail);
    return first;
}

void addClocks(imagekit::ImageBuilder& image, imagekit::Page& page) {
    const int timeWidth = 4 * GlyphWidth("0", TimeStyle) + GlyphWidth(":", TimeStyle);
    page.add(imagekit::PngClock{.X = U16((layout::Screen.width() - timeWidth) / 2),
                                .Y = U16(Time.y()),
                                .FirstImage = AddGlyphPictures(image, TimeGlyphs(), TimeStyle, colour::Rail),
                                .Format = imagekit::ClockFormat::HoursAndMinutes});
    const std::uint16_t glyphs = addDateGlyphs(image);
    const int marks = 3 * GlyphWidth("年", DateStyle) + 2 * GlyphWidth("-", DateStyle);
    const int dateWidth = 8 * GlyphWidth("0", DateStyle) + marks / 2; // between both languages
    const int dayWidth = GlyphWidth("Wed", DateStyle), gap = 18;
    const int left = (layout::Screen.width() - dateWidth - gap - dayWidth) / 2;
    page.add(imagekit::PngClock{
        .X = U16(left), .Y = U16(Date.y()), .FirstImage = glyphs, .Format = imagekit::ClockFormat::Weekday});
    page.add(imagekit::PngClock{.X = U16(left + dayWidth + gap),
                                .Y = U16(Date.y()),
                                .FirstImage = glyphs,
                                .Format = imagekit::ClockFormat::ClosedDate});
}

} // namespace

void AddStandby(imagekit::ImageBuilder& image) {
    imagekit::Page& page = image.page(StandbyPage);
    page.add(imagekit::PageKey{.Where = AreaOf(QRect({0, 0}, layout::Screen)), .TargetPage = HomePage});
    page.add(imagekit::EncoderPages{.CounterClockwise = HomePage, .Clockwise = ThermostatPage});
    addClocks(image, page);
}

} // namespace demo
