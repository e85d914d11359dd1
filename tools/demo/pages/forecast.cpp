#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

#include <QLinearGradient>

#include <array>
#include <cmath>

namespace demo {
namespace {

using namespace layout::forecast;

constexpr int FirstHour = 10, Sunrise = 8, Sunset = 16;
constexpr int Lowest = -2, Highest = 9; // °C
constexpr QRect Plot{0, 116, Hours* HourWidth, 56};

/// °C from ten in the morning on.
constexpr std::array<int, Hours> Temperatures{7, 8, 8,  9,  8,  7,  6,  4, 3, 3, 2, 1,
                                              0, 0, -1, -1, -2, -2, -1, 0, 1, 2, 4, 6};
constexpr std::array<int, Hours> Rain{0, 0, 5, 10, 10, 20, 35, 35, 30, 20, 10, 5,
                                      0, 0, 0, 0,  0,  0,  0,  5,  5,  10, 10, 5};

QPointF onCurve(int hour) {
    const qreal share = qreal(Highest - Temperatures[static_cast<std::size_t>(hour)]) / (Highest - Lowest);
    return {Hour(hour).x() + Hour(hour).width() / 2.0, Plot.y() + share * Plot.height()};
}

/// A smooth line through the temperatures.
QPainterPath curve() {
    QPainterPath path(onCurve(0));
    for (int hour = 1; hour < Hours; ++hour) {
        const QPointF from = onCurve(hour - 1), to = onCurve(hour);
        const QPointF reach((to.x() - from.x()) / 2, 0);
        path.cubicTo(from + reach, to - reach, to);
    }
    return path;
}

void paintSky(Canvas& canvas, int index, int hour) {
    const QRect cell = Hour(index);
    const QRectF icon(cell.x() + 24, 30, 28, 28);
    const int rain = Rain[static_cast<std::size_t>(index)];
    if (rain >= 20)
        canvas.icon(Icon::Drop, icon, colour::Cool, 2);
    else if (hour >= Sunrise && hour < Sunset)
        canvas.icon(Icon::Sun, icon, colour::Sun, 2);
    else
        canvas.icon(Icon::Moon, icon, colour::Violet, 2);
    canvas.text(QRectF(cell.x(), 192, cell.width(), 18), QString("%1 %").arg(rain),
                style::Small.in(rain >= 20 ? colour::Cool : colour::Faint), Qt::AlignCenter);
}

void paintHour(Canvas& canvas, int index) {
    const QRect cell = Hour(index);
    const int hour = (FirstHour + index) % 24;
    canvas.card(QRectF(cell));
    paintSky(canvas, index, hour);
    const QRectF time(cell.x() + 4, 8, cell.width() - 8, 18);
    if (index == 0) {
        canvas.text(time, "Now", style::Small.in(colour::Warm), Qt::AlignCenter);
        return;
    }
    canvas.text(time, QString("%1:00").arg(hour, 2, 10, QChar('0')), style::Small, Qt::AlignCenter);
    canvas.text(QRectF(cell.x(), 64, cell.width(), 24),
                QString("%1°").arg(Temperatures[static_cast<std::size_t>(index)]).replace('-', QChar(0x2212)),
                style::Heading, Qt::AlignCenter);
}

void paintCurve(Canvas& canvas) {
    QLinearGradient shade(0, Plot.top(), 0, Plot.bottom());
    shade.setColorAt(0, colour::Warm);
    shade.setColorAt(1, colour::Cool);
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(shade, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    canvas.painter().drawPath(curve());
    for (int hour = 0; hour < Hours; ++hour)
        canvas.rounded(QRectF(onCurve(hour) - QPointF(3.5, 3.5), QSizeF(7, 7)), 3.5, colour::Text);
}

/// The way of the sun over the day, with the sun where it stands now.
void paintSun(Canvas& canvas) {
    canvas.card(SunCard, "Daylight");
    const QPointF centre(SunCard.x() + SunCard.width() / 2.0, 432);
    constexpr qreal radius = 82, elevation = 118; // degrees counter-clockwise from three o'clock
    const QRectF box(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colour::Track, 3, Qt::DotLine, Qt::RoundCap));
    canvas.painter().drawArc(box, 0, 180 * 16);
    canvas.painter().setPen(QPen(colour::Sun, 3, Qt::SolidLine, Qt::RoundCap));
    canvas.painter().drawArc(box, static_cast<int>(elevation * 16), static_cast<int>((180 - elevation) * 16));
    canvas.line({SunCard.x() + 18.0, centre.y() + 0.5}, {SunCard.right() - 17.0, centre.y() + 0.5},
                colour::CardEdge);
    const qreal radians = elevation * M_PI / 180;
    const QPointF sun = centre + QPointF(std::cos(radians), -std::sin(radians)) * radius;
    canvas.rounded(QRectF(sun - QPointF(18, 18), QSizeF(36, 36)), 18, Tint(colour::Sun, 24));
    canvas.rounded(QRectF(sun - QPointF(10, 10), QSizeF(20, 20)), 10, colour::Sun);
    canvas.text(QRectF(SunCard.x() + 18, centre.y() + 6, 80, 18), "07:42", style::Small);
    canvas.text(QRectF(SunCard.right() - 97, centre.y() + 6, 80, 18), "16:25", style::Small,
                Qt::AlignRight | Qt::AlignVCenter);
    canvas.text(QRectF(centre.x() - 70, centre.y() - 46, 140, 18), "Solar yield", style::Small,
                Qt::AlignCenter);
    canvas.text(QRectF(centre.x() - 70, centre.y() - 28, 140, 24), "9.4 kWh", style::Heading,
                Qt::AlignCenter);
}

} // namespace

Art PaintForecast() {
    PageCanvas canvas(Place::Home, "Forecast");
    canvas.card(WindCard, "Wind");
    canvas.well(WindValue, "m/s");
    canvas.card(RainCard, "Chance of rain");
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colour::Track, RainWidth));
    canvas.painter().drawEllipse(QPointF(RainCentre) + QPointF(0.5, 0.5), RainRadius, RainRadius);
    canvas.text(QRectF(RainCentre.x() - 20, RainCentre.y() + 12, 40, 16), "%", style::Small, Qt::AlignCenter);
    paintSun(canvas);
    return canvas.take();
}

Art PaintForecastList() {
    Canvas canvas({Hours * HourWidth, Window.height()}, colour::Ground);
    for (int i = 0; i < Hours; ++i) paintHour(canvas, i);
    paintCurve(canvas);
    return canvas.take();
}

} // namespace demo
