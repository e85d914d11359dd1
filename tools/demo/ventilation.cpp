#include "demo/ventilation.h"

#include "demo/canvas.h"
#include "demo/instrument_art.h"
#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/texts.h"
#include "demo/translations.h"
#include "demo/words.h"

#include "imagekit/bar_widgets.h"
#include "imagekit/icon_widgets.h"
#include "imagekit/meter_widgets.h"
#include "imagekit/touch_controls.h"

#include <QConicalGradient>

namespace demo {
namespace {

using namespace layout::ventilation;
namespace format = imagekit::format;

// The level.

struct Level {
    const char* name;
    std::uint16_t supply, exhaust; // m3/h
};
constexpr Level Levels[] = {{"Off", 0, 0}, {"Low", 90, 85}, {"Medium", 160, 150}, {"High", 240, 225}};
constexpr int LevelCount = std::size(Levels);
constexpr std::uint16_t FirstLevelPreset = 10;

/// A ring with a piece for each step above off, the fan, and the name.
QImage levelPicture(int level, bool pressed, const QString& name) {
    Canvas canvas(LevelKey.size(), colour::Card);
    const QRectF disc({4, 4}, LevelKey.size() - QSize(8, 8));
    canvas.rounded(disc.adjusted(14, 14, -14, -14), disc.width() / 2 - 14,
                   pressed ? colour::Track : colour::Raised);
    QPainter& painter = canvas.painter();
    painter.setBrush(Qt::NoBrush);
    for (int step = 1; step < LevelCount; ++step) {
        painter.setPen(QPen(step <= level ? colour::Cool : colour::Track, 8, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(disc.adjusted(4, 4, -4, -4), (90 - 120 * step + 10) * 16, 100 * 16);
    }
    const QPointF centre = disc.center();
    canvas.icon(Icon::Fan, QRectF(centre.x() - 24, centre.y() - 36, 48, 48),
                level > 0 ? colour::Cool : colour::Faint);
    painter.setFont(ThemeFont(style::Heading));
    painter.setPen(colour::Text);
    painter.drawText(QRectF(centre.x() - 50, centre.y() + 18, 100, 24), Qt::AlignCenter, name);
    return canvas.take().image;
}

/// For each level its look at rest and its look under a finger, in both languages.
std::uint16_t addLevelPictures(imagekit::ImageBuilder& image) {
    std::uint16_t last = 0;
    for (int level = 0; level < LevelCount; ++level)
        for (const bool pressed : {false, true}) {
            const QString name(Levels[level].name);
            const auto picture = [&](const QString& text) {
                return imagekit::Pixels{levelPicture(level, pressed, text), format::PngOpaque};
            };
            last = image.addPicture(picture(name));
            image.setPicture(last, ChineseLanguage, picture(Chinese(name)));
        }
    return U16(last + 1 - 2 * LevelCount);
}

/// The key starts the preset of the level in force, which leads to the next one.
void addLevel(imagekit::ImageBuilder& image, imagekit::Page& page) {
    page.add(imagekit::StateKey{.Where = AreaOf(LevelKey),
                                .Notify = true,
                                .Address = words::FanLevel,
                                .Highest = LevelCount - 1,
                                .FirstImage = addLevelPictures(image),
                                .FirstPreset = FirstLevelPreset});
    for (int level = 0; level < LevelCount; ++level) {
        const int next = (level + 1) % LevelCount;
        page.add(imagekit::PagePreset{.Id = U16(FirstLevelPreset + level),
                                      .Items = {{words::FanLevel, U16(next)},
                                                {words::SupplyAir, Levels[next].supply},
                                                {words::ExhaustAir, Levels[next].exhaust},
                                                {words::Page, VentilationPage}}});
    }
}

// The amounts of air.

QImage airFill(QSize size, const QColor& colour) {
    Canvas canvas(size, Qt::transparent);
    canvas.rounded(QRectF({0, 0}, size), size.width() / 2.0, colour);
    return canvas.take().image;
}

void addAir(imagekit::Page& page, KeyArt& art) {
    const struct {
        words::Word word;
        const char* name;
        QColor colour;
    } air[] = {{words::SupplyAir, "Supply air", colour::Cool},
               {words::ExhaustAir, "Exhaust air", colour::Warm}};
    for (int i = 0; i < 2; ++i) {
        const QRect track = AirTrack(i);
        page.add(imagekit::Slider{.FillX = U16(track.x()),
                                  .FillY = U16(track.y()),
                                  .FillImage = art.withAlpha(airFill(track.size(), air[i].colour)),
                                  .Address = air[i].word,
                                  .Where = AreaOf(track.adjusted(-20, 0, 20, 1)),
                                  .ThumbImage = art.withAlpha(SliderThumb(26)),
                                  .Direction = imagekit::SlideDirection::Up,
                                  .Highest = 300},
                 air[i].name);
    }
}

// The quality of the air.

constexpr int NeedleStep = 3, NeedleField = 76; // degrees, px

QImage qualityDial() {
    Canvas canvas(QualityDial.size(), Qt::transparent);
    const QPointF centre = QualityCentre - QualityDial.topLeft();
    constexpr qreal radius = 80;
    QConicalGradient colours(centre, 0);
    colours.setColorAt(0, colour::Hot);
    colours.setColorAt(0.2, colour::Warm);
    colours.setColorAt(0.35, colour::Eco);
    colours.setColorAt(0.5, colour::Eco);
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colours, 12, Qt::SolidLine, Qt::FlatCap));
    canvas.painter().drawArc(QRectF(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)), 0,
                             180 * 16);
    canvas.text(QRectF(centre.x() - 40, centre.y() + 38, 80, 16), "ppm", style::Small, Qt::AlignCenter);
    canvas.text(QRectF(centre.x() - 94, centre.y() + 6, 40, 16), "400", style::Scale, Qt::AlignCenter);
    canvas.text(QRectF(centre.x() + 54, centre.y() + 6, 40, 16), "1480", style::Scale, Qt::AlignCenter);
    return canvas.take().image;
}

/// The whole field around the hub, with a needle that fades towards it.
QImage needle(int degrees) {
    Canvas canvas({2 * NeedleField, 2 * NeedleField}, Qt::transparent);
    QPainter& painter = canvas.painter();
    painter.translate(NeedleField, NeedleField);
    painter.rotate(degrees);
    QLinearGradient shade(0, -NeedleField, 0, 0);
    shade.setColorAt(0, colour::Text);
    shade.setColorAt(1, Tint(colour::Text, 30));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawConvexPolygon(QPolygonF({{-5, 0}, {-1.2, -68}, {1.2, -68}, {5, 0}}));
    painter.resetTransform();
    return canvas.take().image;
}

QRect shownPart(const QImage& picture) {
    QRect part;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (qAlpha(picture.pixel(x, y)) != 0) part |= QRect(x, y, 1, 1);
    return part;
}

std::uint16_t addNeedles(imagekit::ImageBuilder& image) {
    std::uint16_t last = 0;
    int count = 0;
    for (int degrees = -90; degrees <= 90; degrees += NeedleStep, ++count) {
        const QImage field = needle(degrees);
        const QRect shown = shownPart(field);
        last = image.addPicture(
            imagekit::NeedlePicture({field.copy(shown), format::aRGB8888}, shown.topLeft(), image.config()));
    }
    return U16(last + 1 - count);
}

void addQuality(imagekit::ImageBuilder& image, imagekit::Page& page) {
    constexpr TextStyle digits{24, QFont::DemiBold, colour::Text};
    page.add(
        imagekit::NeedleMeter{.ValueAddress = words::Co2Angle,
                              .Dial = image.addPicture(imagekit::Pixels{qualityDial(), format::PngAlpha}),
                              .X = U16(QualityDial.x()),
                              .Y = U16(QualityDial.y()),
                              .Width = U16(QualityDial.width()),
                              .Height = U16(QualityDial.height()),
                              .CentreX = U16(QualityCentre.x()),
                              .CentreY = U16(QualityCentre.y()),
                              .Lowest = 270,
                              .Highest = 270 + 180,
                              .Step = NeedleStep,
                              .Smooth = true,
                              .Cover = image.addPicture(imagekit::Pixels{HubPicture(20), format::aRGB8888}),
                              .DigitsAddress = words::Co2,
                              .DigitsX = U16(QualityCentre.x()),
                              .DigitsY = U16(QualityCentre.y() + 11),
                              .FirstDigit = AddGlyphPictures(image, TimeGlyphs(), digits, colour::Card),
                              .IntegerDigits = 4,
                              .Kind = imagekit::Needle::Image,
                              .Tail = NeedleField,
                              .FirstNeedle = addNeedles(image)},
        "Air quality");
}

// Humidity, airing, status.

/// The cells of a drum that lies on its side.
QImage humidityStrip(bool selected) {
    const TextStyle look =
        selected ? TextStyle{22, QFont::DemiBold, colour::Text} : TextStyle{17, QFont::Normal, colour::Faint};
    constexpr int cells = 7;
    Canvas canvas({cells * HumidityCell, HumidityDrum.height()}, selected ? colour::Raised : colour::Well);
    for (int i = 0; i < cells; ++i)
        canvas.text(QRectF(i * HumidityCell, 0, HumidityCell, HumidityDrum.height()),
                    QString("%1 %").arg(30 + 5 * i), look, Qt::AlignCenter);
    return canvas.take().image;
}

void addHumidity(imagekit::Page& page, KeyArt& art) {
    page.add(imagekit::RollerPicker{.Notify = true,
                                    .Address = words::TargetHumidity,
                                    .Window = {U16(HumidityDrum.x()), U16(HumidityDrum.y()),
                                               U16(HumidityDrum.x() + HumidityDrum.width()),
                                               U16(HumidityDrum.y() + HumidityDrum.height())},
                                    .MarginA = 2 * HumidityCell,
                                    .MarginB = 2 * HumidityCell,
                                    .Horizontal = true,
                                    .SelectedStrip = art.opaque(humidityStrip(true)),
                                    .NormalStrip = art.opaque(humidityStrip(false)),
                                    .Lowest = 30,
                                    .Highest = 60,
                                    .Step = 5});
}

void addAiring(imagekit::ImageBuilder& image, imagekit::Page& page, KeyArt& art) {
    constexpr TextStyle style{17, QFont::DemiBold, colour::Eco};
    const int width = 6 * GlyphWidth("0", style) + 2 * GlyphWidth(":", style);
    page.add(imagekit::UiTimer{.PresetAddress = words::AiringLimit,
                               .TimerAddress = words::AiringTime,
                               .ControlAddress = words::AiringControl,
                               .X = U16(AiringTime.x() + (AiringTime.width() - width) / 2),
                               .Y = U16(AiringTime.y() + 3),
                               .FirstImage = AddGlyphPictures(image, TimeGlyphs(), style, colour::Well),
                               .Direction = imagekit::TimerDirection::Up,
                               .Background = true},
             "Airing");
    AddSwitch(page, art, AiringSwitch, words::AiringControl, "Airing");
}

void addStatus(imagekit::Page& page, KeyArt& art) {
    const QColor colours[Flags] = {colour::Sun, colour::Cool, colour::Eco};
    for (int i = 0; i < Flags; ++i) {
        const QRect row = FlagRow(i);
        page.add(imagekit::BitIcon{.ValueAddress = words::VentilationFlags,
                                   .X = U16(row.right() - 13),
                                   .Y = U16(row.y() + 10),
                                   .Bit = static_cast<std::uint8_t>(i),
                                   .ClearImage = art.withAlpha(Dot(14, colour::Track)),
                                   .SetImage = art.withAlpha(Dot(14, colours[i]))},
                 "Status");
    }
    page.add(
        imagekit::ImageBar{.ValueAddress = words::FilterLife,
                           .BarImage = art.withAlpha(SliderFill(FilterBar.size(), colour::Warm, colour::Eco)),
                           .BackX = U16(FilterBar.x()),
                           .BackY = U16(FilterBar.y())},
        "Life of the filter");
}

} // namespace

void AddVentilation(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages) {
    KeyArt art(image, pages);
    imagekit::Page& page = image.page(VentilationPage);
    addLevel(image, page);
    addAir(page, art);
    addQuality(image, page);
    addHumidity(page, art);
    addAiring(image, page, art);
    addStatus(page, art);
}

} // namespace demo
