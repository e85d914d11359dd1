#include "demo/forecast.h"

#include "demo/canvas.h"
#include "demo/instrument_art.h"
#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/texts.h"
#include "demo/words.h"

#include "imagekit/meter_widgets.h"
#include "imagekit/touch_controls.h"

#include <QConicalGradient>

#include <cmath>

namespace demo {
namespace {

using namespace layout::forecast;
namespace format = imagekit::format;

/// A face with the four winds.
QImage compassFace(int side) {
    Canvas canvas({side, side}, Qt::transparent);
    const QPointF centre(side / 2.0, side / 2.0);
    canvas.rounded(QRectF(1, 1, side - 2, side - 2), side / 2.0 - 1, colour::Well);
    for (int degrees = 0; degrees < 360; degrees += 15) {
        const qreal radians = degrees * M_PI / 180;
        const QPointF way(std::sin(radians), -std::cos(radians));
        if (degrees % 90 != 0)
            canvas.line(centre + way * (side / 2.0 - 6), centre + way * (side / 2.0 - 11), colour::Faint);
    }
    const char* const names[] = {"N", "E", "S", "W"};
    for (int i = 0; i < 4; ++i) {
        const qreal radians = i * M_PI / 2;
        const QPointF at = centre + QPointF(std::sin(radians), -std::cos(radians)) * (side / 2.0 - 13);
        canvas.text(QRectF(at.x() - 10, at.y() - 9, 20, 18), names[i],
                    style::Small.in(i == 0 ? colour::Hot : colour::Muted), Qt::AlignCenter);
    }
    return canvas.take().image;
}

void addCompass(imagekit::ImageBuilder& image, imagekit::Page& page) {
    page.add(
        imagekit::NeedleMeter{
            .ValueAddress = words::WindDirection,
            .Dial = image.addPicture(imagekit::Pixels{compassFace(Compass.width()), format::PngAlpha}),
            .X = U16(Compass.x()),
            .Y = U16(Compass.y()),
            .Width = U16(Compass.width()),
            .Height = U16(Compass.height()),
            .CentreX = U16(Compass.x() + Compass.width() / 2),
            .CentreY = U16(Compass.y() + Compass.height() / 2),
            .Step = 5,
            .Smooth = true,
            .Cover = image.addPicture(imagekit::Pixels{HubPicture(16), format::aRGB8888}),
            .NeedleWidth = 14,
            .Tail = 26,
            .ColourA = image.colour(colour::Cool),
            .Length = 38,
            .ColourB = image.colour(colour::Text)},
        "Wind direction");
}

void addRain(imagekit::ImageBuilder& image, imagekit::Page& page) {
    constexpr TextStyle digits{26, QFont::DemiBold, colour::Text};
    const std::uint8_t font = image.addFont(imagekit::RasterFont(
        {.Width = 20, .Height = static_cast<std::uint8_t>(LineHeight(digits)), .Depth = 4},
        {.Family = ThemeFaces(),
         .PixelSize = digits.size,
         .Weight = digits.weight,
         .Characters = "0123456789"}));
    const RingShape shape{RainRadius, RainWidth};
    const int half = RingSide(shape) / 2;
    page.add(imagekit::RingGauge{.ValueAddress = words::RainChance,
                                 .X = U16(RainCentre.x() - half),
                                 .Y = U16(RainCentre.y() - half),
                                 .Foreground = image.addPicture(
                                     imagekit::Pixels{RingPicture(shape, colour::Cool), format::PngAlpha}),
                                 .ReadoutX = U16(RainCentre.x()),
                                 .ReadoutY = U16(RainCentre.y() - LineHeight(digits) / 2 - 4),
                                 .Font = font,
                                 .Colour = image.colour(colour::Text),
                                 .Readout = imagekit::RingReadout::Text},
             "Chance of rain");
}

} // namespace

void AddForecast(imagekit::ImageBuilder& image) {
    imagekit::Page& page = image.page(ForecastPage);
    page.add(imagekit::SlidingList{
        .Window = AreaOf(Window), .ListPage = ForecastList, .Mode = imagekit::ListMode::Horizontal});
    addCompass(image, page);
    addRain(image, page);
}

} // namespace demo
