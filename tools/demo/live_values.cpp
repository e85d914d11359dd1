#include "demo/live_values.h"

#include "demo/instrument_art.h"
#include "demo/keyboards.h"
#include "demo/layout.h"
#include "demo/translations.h"
#include "demo/words.h"

#include <QFontMetrics>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

namespace format = imagekit::format;
using imagekit::DataType;
using words::Word;

namespace style {
using namespace demo::style;
inline constexpr TextStyle Tiny{12, QFont::Medium, colour::Text};
inline constexpr TextStyle Compact{15, QFont::DemiBold, colour::Text};
inline constexpr TextStyle Value{17, QFont::DemiBold, colour::Text};
inline constexpr TextStyle Figure{24, QFont::DemiBold, colour::Text};
inline constexpr TextStyle Large{34, QFont::DemiBold, colour::Text};
inline constexpr TextStyle Room{50, QFont::DemiBold, colour::Text};
} // namespace style

constexpr int WellPadding = 10; // px between a well's end and its text

struct LiveNumber {
    PageId page;
    QRect well;
    Word word;
    const char* name; // for the variable inspector
    TextStyle style;
    std::uint8_t integerDigits, decimalDigits;
    const char* unit; // painted at the well's end; null: none, and the number stands in the middle
    DataType type = DataType::U16;
    bool onGauge = false; // belongs to the group of the page's gauge
};

std::vector<LiveNumber> homeNumbers() {
    using namespace layout::home;
    return {
        {HomePage, TargetValue, words::RoomTarget, "Room target temperature", style::Value.in(colour::Warm),
         2, 1, nullptr, DataType::U16, true},
        {HomePage, OutdoorValue, words::OutdoorTemperature, "Outdoor temperature", style::Large, 2, 1, "°C",
         DataType::S16},
        {HomePage, HumidityValue, words::Humidity, "Humidity", style::Value, 3, 0, "%"},
        {HomePage, WindValue, words::WindSpeed, "Wind speed", style::Value, 2, 1, "m/s"},
        {HomePage, SupplyValue, words::SupplyTemperature, "Supply temperature", style::Value.in(colour::Hot),
         2, 1, "°C"},
        {HomePage, ReturnValue, words::ReturnTemperature, "Return temperature", style::Value.in(colour::Cool),
         2, 1, "°C"},
    };
}

std::vector<LiveNumber> heatingNumbers() {
    using namespace layout::heating;
    return {
        {HeatingPage, SupplyValue, words::SupplyTemperature, "Supply temperature",
         style::Value.in(colour::Hot), 2, 1, "°C"},
        {HeatingPage, ReturnValue, words::ReturnTemperature, "Return temperature",
         style::Value.in(colour::Cool), 2, 1, "°C"},
        {HeatingPage, BufferValue, words::BufferTemperature, "Buffer temperature", style::Compact, 2, 1,
         "°C"},
        {HeatingPage, FlowValue, words::FlowRate, "Flow rate", style::Value, 4, 0, "l/h"},
        {HeatingPage, PressureValue, words::WaterPressure, "Water pressure", style::Value, 2, 1, "bar"},
        {HeatingPage, SlopeValue, words::CurveSlope, "Curve slope", style::Value.in(colour::Warm), 1, 2,
         nullptr},
        {HeatingPage, ShiftValue, words::CurveShift, "Curve shift", style::Value.in(colour::Warm), 2, 0, "K",
         DataType::S16},
    };
}

std::vector<LiveNumber> waterNumbers() {
    using namespace layout::water;
    return {
        {HotWaterPage, TankTopValue, words::TankUpperTemperature, "Tank upper temperature", style::Value, 2,
         1, "°C"},
        {HotWaterPage, TankBottomValue, words::TankLowerTemperature, "Tank lower temperature", style::Value,
         2, 1, "°C"},
        {HotWaterPage, TargetValue, words::WaterTarget, "Hot water target temperature",
         style::Large.in(colour::Warm), 2, 1, nullptr},
    };
}

std::vector<LiveNumber> energyNumbers() {
    using namespace layout::energy;
    std::vector<LiveNumber> numbers{
        {EnergyPage, FigureValue(0), words::ElectricityToday, "Electricity today", style::Figure, 3, 1,
         "kWh"},
        {EnergyPage, FigureValue(1), words::HeatToday, "Heat today", style::Figure, 3, 1, "kWh"},
        {EnergyPage, FigureValue(2), words::SolarToday, "Solar today", style::Figure, 3, 1, "kWh"},
        {EnergyPage, FigureValue(3), words::Efficiency, "Efficiency", style::Figure, 2, 2, "COP"},
        {EnergyPage, ShareValue, words::ElectricityToday, "Electricity today", style::Figure, 3, 1, nullptr,
         DataType::U16, true},
        {EnergyPage, ShareRowValue(0), words::ShareHeating, "Share heating", style::Value, 3, 0, "%"},
        {EnergyPage, ShareRowValue(1), words::ShareHotWater, "Share hot water", style::Value, 3, 0, "%"},
        {EnergyPage, ShareRowValue(2), words::ShareStandby, "Share standby", style::Value, 3, 0, "%"},
    };
    for (int day = 0; day < 7; ++day)
        numbers.push_back({EnergyPage, DayFigure(day), static_cast<Word>(words::WeekEnergy + day),
                           "Energy of the day", style::Tiny.in(colour::Muted), 2, 1, nullptr});
    return numbers;
}

std::vector<LiveNumber> serviceNumbers() {
    using layout::service::ReadingValue;
    return {
        {ServicePage, ReadingValue(0), words::CompressorSpeed, "Compressor speed", style::Value, 3, 0, ""},
        {ServicePage, ReadingValue(1), words::FanSpeed, "Fan speed", style::Value, 4, 0, ""},
        {ServicePage, ReadingValue(2), words::HighPressure, "High pressure", style::Value, 2, 1, ""},
        {ServicePage, ReadingValue(3), words::LowPressure, "Low pressure", style::Value, 2, 1, ""},
        {ServicePage, ReadingValue(4), words::DischargeTemperature, "Discharge temperature", style::Value, 3,
         1, ""},
        {ServicePage, ReadingValue(5), words::SuctionTemperature, "Suction temperature", style::Value, 3, 1,
         "", DataType::S16},
        {ServicePage, ReadingValue(6), words::ValveOpening, "Valve opening", style::Value, 3, 0, ""},
        {ServicePage, ReadingValue(7), words::OperatingHours, "Operating hours", style::Value, 5, 0, ""},
    };
}

std::vector<LiveNumber> gaugeNumbers() {
    return {{GaugesPage, layout::gauges::EfficiencyValue, words::Efficiency, "Efficiency", style::Figure, 2,
             2, "COP"}};
}

std::vector<LiveNumber> airNumbers() {
    using namespace layout::ventilation;
    return {{VentilationPage, AirValue(0), words::SupplyAir, "Supply air", style::Value.in(colour::Cool), 3,
             0, "m³/h"},
            {VentilationPage, AirValue(1), words::ExhaustAir, "Exhaust air", style::Value.in(colour::Warm), 3,
             0, "m³/h"},
            {ForecastPage, layout::forecast::WindValue, words::WindSpeed, "Wind speed", style::Value, 2, 1,
             "m/s"}};
}

std::vector<LiveNumber> standbyNumbers() {
    using layout::standby::Value;
    return {{StandbyPage, Value(0), words::RoomTemperature, "Room temperature",
             style::Figure.in(colour::Muted), 2, 1, nullptr},
            {StandbyPage, Value(1), words::OutdoorTemperature, "Outdoor temperature",
             style::Figure.in(colour::Muted), 2, 1, nullptr, DataType::S16}};
}

std::vector<LiveNumber> popupNumbers() {
    return {
        {AlarmPopup, layout::popup::Reading, words::WaterPressure, "Water pressure",
         style::Figure.in(colour::Hot), 2, 1, "bar"},
        {AwayPopup, layout::popup::Value, words::AwayDays, "Away days", style::Figure, 2, 0, "days"},
        {BoostPopup, layout::popup::Value, words::BoostMinutes, "Boost minutes", style::Figure, 2, 0, "min"}};
}

/// The fonts of numbers: the digits of the theme's face in all sizes in use.
class NumberFonts {
public:
    explicit NumberFonts(imagekit::ImageBuilder& image) : image_(image) {}

    std::uint8_t index(const TextStyle& style) {
        const auto known = indexes_.find(style.size);
        if (known != indexes_.end()) return known->second;
        return indexes_[style.size] = image_.addFont(
                   imagekit::RasterFont({.Width = static_cast<std::uint8_t>(style.size * 3 / 4),
                                         .Height = static_cast<std::uint8_t>(LineHeight(style)),
                                         .Depth = 4},
                                        {.Family = ThemeFaces(),
                                         .PixelSize = style.size,
                                         .Weight = style.weight,
                                         .Characters = "0123456789.-"}));
    }

private:
    imagekit::ImageBuilder& image_;
    std::map<int, std::uint8_t> indexes_; // by size, which tells the weight as well
};

int anchorX(const LiveNumber& number) {
    if (!number.unit) return number.well.x() + number.well.width() / 2;
    const QString unit(number.unit);
    const int end = number.well.x() + number.well.width() - WellPadding;
    if (unit.isEmpty()) return end;
    const QFontMetrics metrics(ThemeFont(style::Small));
    return end - std::max(metrics.horizontalAdvance(unit), metrics.horizontalAdvance(Chinese(unit))) - 4;
}

void addNumber(imagekit::ImageBuilder& image, NumberFonts& fonts, const LiveNumber& number) {
    const int top = number.well.y() + (number.well.height() - LineHeight(number.style)) / 2;
    const imagekit::Number widget{.ValueAddress = number.word,
                                  .X = static_cast<std::uint16_t>(anchorX(number)),
                                  .Y = static_cast<std::uint16_t>(top),
                                  .Colour = image.colour(number.style.colour),
                                  .Font = fonts.index(number.style),
                                  .Align =
                                      number.unit ? imagekit::Alignment::Right : imagekit::Alignment::Centre,
                                  .IntegerDigits = number.integerDigits,
                                  .DecimalDigits = number.decimalDigits,
                                  .Type = number.type};
    imagekit::Page& page = image.page(number.page);
    if (number.onGauge)
        page.addToGroup(GaugeGroup, widget);
    else
        page.add(widget, number.name);
}

/// Of the hour in force, on the list.
void addOutdoorsNow(imagekit::ImageBuilder& image, NumberFonts& fonts) {
    const QRect well = layout::forecast::Now;
    image.page(ForecastPage)
        .add(imagekit::Number{.InList = true,
                              .ValueAddress = words::OutdoorTemperature,
                              .X = static_cast<std::uint16_t>(well.x() + well.width() / 2),
                              .Y = static_cast<std::uint16_t>(well.y()),
                              .Colour = image.colour(colour::Warm),
                              .Font = fonts.index(style::Value),
                              .Align = imagekit::Alignment::Centre,
                              .IntegerDigits = 2,
                              .DecimalDigits = 1,
                              .Type = DataType::S16},
             "Outdoor temperature");
}

void addNumbers(imagekit::ImageBuilder& image) {
    NumberFonts fonts(image);
    addOutdoorsNow(image, fonts);
    for (const auto& numbers :
         {homeNumbers(), heatingNumbers(), waterNumbers(), energyNumbers(), serviceNumbers(), gaugeNumbers(),
          airNumbers(), standbyNumbers(), popupNumbers()})
        for (const LiveNumber& number : numbers) addNumber(image, fonts, number);
}

/// A character that fades downwards and throws a soft shadow.
imagekit::Pixels shadedGlyph(QChar character, const TextStyle& style) {
    constexpr int Margin = 7, ShadowReach = 3; // px
    const QColor foot(166, 184, 212);
    const QFont font = ThemeFont(style);
    const QFontMetrics metrics(font);
    const int baseline = Margin + metrics.capHeight();
    Canvas canvas({metrics.horizontalAdvance(character), baseline + Margin}, Qt::transparent);
    QPainterPath shape;
    shape.addText(0, baseline, font, character);
    QPainter& painter = canvas.painter();
    for (int reach = ShadowReach; reach > 0; --reach)
        painter.strokePath(shape.translated(0, 2),
                           QPen(QColor(0, 0, 0, 24), 2 * reach, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QLinearGradient shade(0, Margin, 0, baseline);
    shade.setColorAt(0.3, style.colour);
    shade.setColorAt(1, foot);
    painter.fillPath(shape, shade);
    return {canvas.take().image, format::aRGB8888};
}

/// The temperature of the room, larger and finer than the one colour of a font allows.
void addRoomTemperature(imagekit::ImageBuilder& image) {
    imagekit::PngNumber number{
        .ValueAddress = words::RoomTemperature, .IntegerDigits = 2, .DecimalDigits = 1};
    int height = 0;
    for (const char character : std::string("0123456789.")) {
        const imagekit::Pixels glyph = shadedGlyph(QChar(character), style::Room);
        number.LastImage = image.addPicture(glyph);
        height = glyph.Image.height();
    }
    const QRect well = layout::home::RoomValue;
    number.FirstImage = static_cast<std::uint16_t>(number.LastImage - 10);
    number.Align = imagekit::Alignment::Centre;
    number.X = static_cast<std::uint16_t>(well.x() + well.width() / 2);
    number.Y = static_cast<std::uint16_t>(well.y() + (well.height() - height) / 2);
    image.page(HomePage).addToGroup(GaugeGroup, number);
}

/// A text that the store holds, in every language.
struct LiveText {
    QRect area;
    Word word;
    const char* name; // for the variable inspector
    TextStyle style;
    const char* english;
};
constexpr LiveText HomeTexts[] = {
    {layout::home::Greeting, words::Greeting, "Greeting", style::Body.in(colour::Muted), "Welcome home"},
    {layout::home::Weather, words::Weather, "Weather", style::Small, "Partly cloudy"},
};
constexpr TextStyle PinStyle = style::Value;
constexpr const char* Pin = "4711";

/// A text as the store holds it, up to the end of its room so that nothing of a longer one is left.
imagekit::Bytes inItsRoom(const QString& text) {
    imagekit::Bytes bytes = imagekit::EncodeText(text, imagekit::FontKind::Sparse);
    bytes.resize(2 * words::TextWords);
    return bytes;
}

/// As it is typed: single bytes.
void addPin(imagekit::ImageBuilder& image) {
    const QRect well = layout::service::ServicePin;
    image.page(ServicePage)
        .add(imagekit::Label{.TextAddress = words::ServicePin,
                             .X1 = static_cast<std::uint16_t>(well.left() + 6),
                             .Y1 = static_cast<std::uint16_t>(well.top()),
                             .X2 = static_cast<std::uint16_t>(well.right() - 6),
                             .Y2 = static_cast<std::uint16_t>(well.bottom()),
                             .Colour = image.colour(PinStyle.colour),
                             .Font = AddEntryFont(image, PinStyle).index,
                             .TextLength = words::PinWords,
                             .Anchor = 1,
                             .Masked = true},
             "Service PIN");
    image.setBytes(words::ServicePin, imagekit::EncodeText(Pin, imagekit::FontKind::Ascii));
}

void addTexts(imagekit::ImageBuilder& image, Texts& texts) {
    constexpr Qt::Alignment Right = Qt::AlignRight | Qt::AlignVCenter;
    for (const LiveText& text : HomeTexts) {
        image.page(HomePage).add(texts.variableText(text.area, text.word, text.style, Right), text.name);
        image.setBytes(text.word, inItsRoom(text.english));
        image.addLanguagePreset(English, text.word, inItsRoom(text.english));
        image.addLanguagePreset(ChineseLanguage, text.word, inItsRoom(Chinese(text.english)));
    }
    addPin(image);
}

/// A fan that turns by one blade.
std::vector<imagekit::Picture> fanFrames(QSize size, qreal lineWidth) {
    constexpr int Frames = 8, Blades = 3;
    std::vector<imagekit::Picture> frames;
    for (int frame = 0; frame < Frames; ++frame) {
        Canvas canvas(size, Qt::transparent);
        const QPointF middle(size.width() / 2.0, size.height() / 2.0);
        canvas.painter().translate(middle);
        canvas.painter().rotate(360.0 * frame / (Frames * Blades));
        canvas.icon(Icon::Fan, QRectF(-middle, QSizeF(size)), colour::Cool, lineWidth);
        frames.push_back(imagekit::Pixels{canvas.take().image, format::aRGB8888});
    }
    return frames;
}

void addFan(imagekit::ImageBuilder& image, PageId page, const QRect& area, qreal lineWidth) {
    image.page(page).add(
        imagekit::ImageAnimation{.ControlAddress = words::FanControl,
                                 .X = static_cast<std::uint16_t>(area.x()),
                                 .Y = static_cast<std::uint16_t>(area.y()),
                                 .Width = static_cast<std::uint16_t>(area.width()),
                                 .Height = static_cast<std::uint16_t>(area.height()),
                                 .Sequence = image.addSequence(fanFrames(area.size(), lineWidth)),
                                 .Delay = 6},
        "Fan");
}

void addBoostTimer(imagekit::ImageBuilder& image) {
    const int width = GlyphWidth("0", style::Value) * 4 + GlyphWidth(":", style::Value);
    const QRect well = layout::water::BoostTime;
    image.page(HotWaterPage)
        .add(imagekit::UiTimer{.PresetAddress = words::BoostDuration,
                               .TimerAddress = words::BoostTimeLeft,
                               .ControlAddress = words::BoostControl,
                               .X = static_cast<std::uint16_t>(well.x() + (well.width() - width) / 2),
                               .Y = static_cast<std::uint16_t>(well.y() + 2),
                               .FirstImage = AddGlyphPictures(image, TimeGlyphs(),
                                                              style::Value.in(colour::Hot), colour::Well),
                               .Format = imagekit::TimerFormat::MinutesSeconds,
                               .Background = true,
                               .TargetAddress = words::WaterMode,
                               .TargetValue = 1},
             "Boost time left");
}

} // namespace

void NeedLiveTexts(Texts& texts) {
    // Besides the texts at start, whatever a host or the inspector may write in English.
    QString ascii;
    for (char character = ' '; character <= '~'; ++character) ascii += QChar(character);
    for (const LiveText& text : HomeTexts) texts.need(text.style, ascii + Chinese(text.english));
}

void AddLiveValues(imagekit::ImageBuilder& image, Texts& texts) {
    addNumbers(image);
    addRoomTemperature(image);
    addTexts(image, texts);
    addFan(image, HomePage, layout::home::Fan, 1.6);
    addFan(image, HeatingPage, layout::heating::Fan, 1.4);
    addBoostTimer(image);
}

} // namespace demo
