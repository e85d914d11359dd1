#include "demo/instruments.h"

#include "demo/instrument_art.h"
#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/texts.h"
#include "demo/words.h"

#include "imagekit/bar_widgets.h"
#include "imagekit/chart_widgets.h"
#include "imagekit/clock_widgets.h"
#include "imagekit/meter_widgets.h"

#include <QConicalGradient>

namespace demo {
namespace {

namespace format = imagekit::format;

std::uint16_t addPicture(imagekit::ImageBuilder& image, const QImage& picture,
                         std::uint8_t pixelFormat = format::aRGB8888) {
    return image.addPicture(imagekit::Pixels{picture, pixelFormat});
}

imagekit::ImageBar barIn(const QRect& area, std::uint16_t word, std::uint16_t picture) {
    return {.ValueAddress = word, .BarImage = picture, .BackX = U16(area.x()), .BackY = U16(area.y())};
}

void addPowerBar(imagekit::ImageBuilder& image) {
    const QRect area = layout::home::PowerBar;
    image.page(HomePage).add(
        barIn(area, words::PowerLevel, addPicture(image, SliderFill(area.size(), colour::Eco, colour::Warm))),
        "Power");
}

void addWeekBars(imagekit::ImageBuilder& image) {
    const std::uint16_t picture =
        addPicture(image, DayBarPicture(layout::energy::DayBar(0).size()), format::PngAlpha);
    for (int day = 0; day < 7; ++day) {
        imagekit::ImageBar bar = barIn(layout::energy::DayBar(day), U16(words::WeekEnergy + day), picture);
        bar.Direction = imagekit::BarGrowth::Up;
        bar.Maximum = 300;
        image.page(EnergyPage).add(bar, "Energy of the day");
    }
}

void addSupportCode(imagekit::ImageBuilder& image) {
    constexpr int side = 100;
    const QRect field = layout::service::QrCode;
    image.page(ServicePage)
        .add(imagekit::QrCode{.TextAddress = words::SupportLink,
                              .TextWords = words::TextWords,
                              .X = U16(field.x() + (field.width() - side) / 2),
                              .Y = U16(field.y() + (field.height() - side) / 2),
                              .SizeUnits = side / 50},
             "Support link");
    image.setBytes(words::SupportLink, imagekit::EncodeText("https://example.com/help?unit=HP-204711",
                                                            imagekit::FontKind::Ascii));
}

/// A ring gauge around a point, from the lowest to the highest value.
imagekit::RingGauge ringAround(imagekit::ImageBuilder& image, QPoint centre, const RingShape& shape,
                               const QBrush& brush, std::uint16_t word, int lowest, int highest) {
    const int half = RingSide(shape) / 2;
    return {.ValueAddress = word,
            .X = U16(centre.x() - half),
            .Y = U16(centre.y() - half),
            .Foreground = addPicture(image, RingPicture(shape, brush), format::PngAlpha),
            .Lowest = static_cast<std::int16_t>(lowest),
            .Highest = static_cast<std::int16_t>(highest),
            .StartAngle = U16(shape.start),
            .EndAngle = U16(shape.end)};
}

/// The colours of a ring from one end to the other, both counted from straight down.
QConicalGradient aroundRing(const RingShape& shape, const QColor& first, const QColor& last) {
    const double middle = RingSide(shape) / 2.0;
    QConicalGradient gradient(middle, middle, 270); // runs the other way round
    gradient.setColorAt(shape.start / 360.0, last);
    gradient.setColorAt(shape.end / 360.0, first);
    return gradient;
}

void addRoomDial(imagekit::ImageBuilder& image) {
    using namespace layout::home;
    constexpr int end = ColderKey.top() - 4; // the keys begin within the square of the ring
    const RingShape shape{DialRadius, DialWidth, 45, 315,
                          end - (DialCentre.y() - RingSide({DialRadius, DialWidth}) / 2)};
    QConicalGradient colours = aroundRing(shape, colour::Cool, colour::Hot);
    colours.setColorAt(0.5, colour::Eco);
    colours.setColorAt(0.3, colour::Warm);
    imagekit::RingGauge ring = ringAround(image, DialCentre, shape, colours, words::RoomTemperature, 50, 300);
    ring.Group = GaugeGroup;
    image.page(HomePage).add(ring, "Room temperature");
}

void addShareRing(imagekit::ImageBuilder& image) {
    using namespace layout::energy;
    const RingShape shape{ShareRadius, ShareWidth};
    imagekit::RingGauge ring = ringAround(
        image, ShareCentre, shape, aroundRing(shape, colour::Sun, colour::Warm), words::ShareHeating, 0, 100);
    ring.Group = GaugeGroup;
    image.page(EnergyPage).add(ring, "Share heating");
}

// The page of gauges.

constexpr TextStyle DigitStyle{17, QFont::DemiBold, colour::Text};

void addEfficiencyRing(imagekit::ImageBuilder& image) {
    using namespace layout::gauges;
    const RingShape shape{EfficiencyRadius, EfficiencyWidth};
    imagekit::RingGauge ring =
        ringAround(image, EfficiencyCentre, shape, aroundRing(shape, colour::Cool, colour::Eco),
                   words::Efficiency, 0, 600);
    image.page(GaugesPage).add(ring, "Efficiency");
}

/// The run of digits, point and minus that a meter and a number in pictures take.
std::uint16_t addDigits(imagekit::ImageBuilder& image, const TextStyle& style, const QColor& ground) {
    QStringList texts = TimeGlyphs();
    texts.back() = ".";
    return AddGlyphPictures(image, texts << QChar(0x2212), style, ground);
}

imagekit::NeedleMeter meterOn(imagekit::ImageBuilder& image, const QRect& card, const DialScale& scale,
                              std::uint16_t angle) {
    const QRect dial = layout::gauges::DialOf(card);
    const QPoint centre = dial.topLeft() + QPoint(dial.width() / 2, dial.height() / 2);
    return {.ValueAddress = angle,
            .Dial = addPicture(image, DialPicture(dial.width(), scale), format::PngAlpha),
            .X = U16(dial.x()),
            .Y = U16(dial.y()),
            .Width = U16(dial.width()),
            .Height = U16(dial.height()),
            .CentreX = U16(centre.x()),
            .CentreY = U16(centre.y()),
            .Lowest = 225,
            .Highest = 225 + 270,
            .Step = 1,
            .Smooth = true,
            .Cover = addPicture(image, HubPicture(24)),
            .DigitsX = U16(centre.x()),
            .DigitsY = U16(centre.y() + 40),
            .Tail = 16,
            .ColourA = image.colour(colour::Warm),
            .Length = 58,
            .ColourB = image.colour(colour::Hot)};
}

void addMeters(imagekit::ImageBuilder& image) {
    using namespace layout::gauges;
    const std::uint16_t digits = addDigits(image, DigitStyle, colour::Well);
    imagekit::NeedleMeter compressor =
        meterOn(image, CompressorCard, {90, 15, "Hz", 75}, words::CompressorAngle);
    compressor.DigitsAddress = words::CompressorSpeed;
    compressor.FirstDigit = digits;
    compressor.NeedleWidth = 12;
    image.page(GaugesPage).add(compressor, "Compressor gauge");
    imagekit::NeedleMeter pressure = meterOn(image, PressureCard, {30, 5, "bar", 25}, words::PressureAngle);
    pressure.DigitsAddress = words::HighPressure;
    pressure.FirstDigit = digits;
    pressure.Decimals = 1;
    pressure.Kind = imagekit::Needle::Stroke;
    pressure.NeedleWidth = 4;
    image.page(GaugesPage).add(pressure, "High pressure gauge");
}

/// The pictures of a clock, in the order of its codes.
std::uint16_t addClockGlyphs(imagekit::ImageBuilder& image, const TextStyle& style, const QColor& ground) {
    const QStringList marks{"-", "-", " "};
    return AddGlyphPictures(image, TimeGlyphs() + marks, style, ground);
}

imagekit::PngClock clockAt(QPoint at, std::uint16_t glyphs, imagekit::ClockFormat clockFormat) {
    return {.X = U16(at.x()), .Y = U16(at.y()), .FirstImage = glyphs, .Format = clockFormat};
}

/// A key each, which leads to the clock that stands alone.
void addStatusClocks(imagekit::ImageBuilder& image, KeyArt& art) {
    constexpr TextStyle style{17, QFont::DemiBold, colour::Text};
    const std::uint16_t glyphs = addClockGlyphs(image, style, colour::Card);
    const QSize size(4 * GlyphWidth("0", style) + GlyphWidth(":", style), LineHeight(style));
    QRect place({}, size);
    place.moveCenter(layout::Clock.center());
    const auto addTo = [&](std::uint16_t page) {
        const KeyLooks looks =
            art.cut(static_cast<PageId>(page), layout::Clock, layout::Clock, layout::Clock.height() / 2);
        image.page(page).addToGroup(ClockGroup,
                                    clockAt(place.topLeft(), glyphs, imagekit::ClockFormat::HoursAndMinutes));
        image.page(page).add(imagekit::PageKey{.Where = AreaOf(layout::Clock),
                                               .NormalImage = looks.normal,
                                               .PressImage = looks.pressed,
                                               .TargetPage = StandbyPage,
                                               .OverlayGroup = ClockGroup});
    };
    for (std::uint16_t page = HomePage; page < layout::NavigationItems; ++page) addTo(page);
    for (const PageId page : PagesBehind) addTo(page);
}

void addDialClock(imagekit::ImageBuilder& image) {
    using namespace layout::gauges;
    const auto hand = [&image](int ahead, int behind, int width, const QColor& colour) {
        return imagekit::ClockHand{static_cast<std::uint8_t>(ahead), static_cast<std::uint8_t>(behind),
                                   static_cast<std::uint8_t>(width), image.colour(colour)};
    };
    imagekit::Page& page = image.page(GaugesPage);
    page.add(imagekit::AnalogClock{.X = U16(Face.x()),
                                   .Y = U16(Face.y()),
                                   .Face = addPicture(image, ClockFace(Face.width()), format::PngAlpha),
                                   .Hours = hand(36, 6, 7, colour::Text),
                                   .Minutes = hand(52, 8, 5, colour::Text),
                                   .Seconds = hand(56, 14, 2, colour::Warm),
                                   .Cap = addPicture(image, Dot(10, colour::Warm))},
             "Clock");
    constexpr TextStyle style{16, QFont::DemiBold, colour::Muted};
    const std::uint16_t glyphs = addClockGlyphs(image, style, colour::Card);
    AddWeekdays(image, style, colour::Card);
    page.add(clockAt(Date.topLeft(), glyphs, imagekit::ClockFormat::Date));
    page.add(clockAt(Weekday.topLeft(), glyphs, imagekit::ClockFormat::Weekday));
}

/// Tenths of a degree from 25 to 45 °C, on the channels that a host feeds.
void addTrend(imagekit::ImageBuilder& image) {
    constexpr int lowest = 250, range = 200;
    const QRect plot = layout::gauges::TrendPlot;
    imagekit::Curve curve{.X1 = U16(plot.left()),
                          .Y1 = U16(plot.top()),
                          .X2 = U16(plot.right()),
                          .Y2 = U16(plot.bottom()),
                          .BaseOffset = U16(plot.height() - 2),
                          .Scale = U16(256 * plot.height() / range),
                          .Colour = image.colour(colour::Cool),
                          .Channel = words::ReturnChannel,
                          .StepX = 4,
                          .Thickness = 2};
    // A base value lifts the curve by what it stands for: the line of 25 °C is the bottom.
    curve.BaseValue = lowest;
    image.page(GaugesPage).add(curve, "Return temperature");
    curve.Colour = image.colour(colour::Hot);
    curve.Channel = words::SupplyChannel;
    image.page(GaugesPage).add(curve, "Supply temperature");
}

void addMessage(imagekit::ImageBuilder& image, const EntryFont& font) {
    const QRect box = layout::gauges::Message;
    const QString english("Heat pump running normally. Next service in 212 hours."),
        chinese("热泵运行正常，距下次保养还有二百一十二小时。");
    image.page(GaugesPage)
        .add(imagekit::Textroll{.TextAddress = words::Message,
                                .X1 = U16(box.left()),
                                .Y1 = U16(box.top()),
                                .X2 = U16(box.right()),
                                .Y2 = U16(box.bottom()),
                                .TextWords = words::MessageWords,
                                .Font = font.index,
                                .GlyphWidth = font.width,
                                .GlyphHeight = font.height,
                                .Encoding = 1,
                                .RollAlways = true,
                                .Colour = image.colour(colour::Text),
                                .Speed = 3,
                                .Gap = 120},
             "Message");
    image.setBytes(words::Message, imagekit::EncodeText(english + "   " + chinese, imagekit::FontKind::Gbk));
}

/// A value that goes up and down between two bounds, as long as Motion holds one of its two directions. All
/// those of a page turn with the one that is the last to be added.
struct Swing {
    words::Word word;
    int lowest, highest, step;
};

void addSwings(imagekit::Page& page, std::uint16_t period, const std::vector<Swing>& swings) {
    for (const bool up : {true, false})
        for (const Swing& swing : swings) {
            const bool leads = &swing == &swings.back();
            const std::uint16_t here = up ? words::MovingUp : words::MovingDown;
            const std::uint16_t back = up ? words::MovingDown : words::MovingUp;
            page.add(imagekit::AutoStep{.TargetAddress = swing.word,
                                        .ControlAddress = words::Motion,
                                        .CycleValue = words::NeverMoving,
                                        .RunValue = here,
                                        .EndValue = leads ? back : here,
                                        .Lowest = swing.lowest,
                                        .Highest = swing.highest,
                                        .Step = U16(swing.step),
                                        .Period = period,
                                        .Up = up});
        }
}

/// Not on pages whose numbers a keyboard may cover: a step brings them up to date on top of it.
void addMotion(imagekit::ImageBuilder& image) {
    addSwings(image.page(HomePage), 60, {{words::PowerLevel, 34, 66, 1}});
    addSwings(image.page(HeatingPage), 90, {{words::SupplyTemperature, 340, 356, 1}});
    addSwings(image.page(VentilationPage), 60, {{words::Co2, 580, 820, 6}, {words::Co2Angle, 300, 340, 1}});
    addSwings(image.page(GaugesPage), 50,
              {{words::PressureAngle, 225 + 9 * 20, 225 + 9 * 27, 9},
               {words::HighPressure, 200, 270, 10},
               {words::CompressorAngle, 225 + 3 * 38, 225 + 3 * 58, 3},
               {words::CompressorSpeed, 38, 58, 1}});
}

} // namespace

void AddInstruments(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages,
                    const EntryFont& messageFont) {
    KeyArt art(image, pages);
    addPowerBar(image);
    addWeekBars(image);
    addSupportCode(image);
    addRoomDial(image);
    addShareRing(image);
    addEfficiencyRing(image);
    addMeters(image);
    addStatusClocks(image, art);
    addDialClock(image);
    addTrend(image);
    addMessage(image, messageFont);
    addMotion(image);
    image.setWord(words::Motion, words::MovingUp);
}

} // namespace demo
