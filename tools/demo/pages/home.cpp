#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

#include <QConicalGradient>
#include <QLinearGradient>
#include <QRadialGradient>

#include <cmath>

namespace demo {
namespace {

using namespace layout::home;

constexpr int DialStart = 225; // degrees, counter-clockwise from three o'clock
constexpr int DialSweep = -270;
constexpr int ColdestMark = 5, WarmestMark = 30; // °C

QPointF onDial(qreal temperature, qreal radius) {
    const qreal degrees = DialStart + DialSweep * (temperature - ColdestMark) / (WarmestMark - ColdestMark);
    const qreal radians = degrees * M_PI / 180;
    return QPointF(DialCentre) + QPointF(std::cos(radians), -std::sin(radians)) * radius;
}

void strokeDial(Canvas& canvas, qreal radius, const QBrush& brush, qreal width) {
    QPen pen(brush, width, Qt::SolidLine, Qt::RoundCap);
    canvas.painter().setPen(pen);
    canvas.painter().setBrush(Qt::NoBrush);
    const QRectF box(DialCentre.x() - radius, DialCentre.y() - radius, 2 * radius, 2 * radius);
    canvas.painter().drawArc(box, DialStart * 16, DialSweep * 16);
}

QConicalGradient coldToWarm() {
    // Runs counter-clockwise from straight down, where the ring is open; so it begins with the warm end.
    QConicalGradient gradient(DialCentre, 270);
    gradient.setColorAt(0.12, colour::Hot);
    gradient.setColorAt(0.34, colour::Warm);
    gradient.setColorAt(0.56, colour::Eco);
    gradient.setColorAt(0.88, colour::Cool);
    return gradient;
}

void paintDialGlow(Canvas& canvas) {
    QRadialGradient glow(DialCentre, DialRadius);
    glow.setColorAt(0, Tint(colour::Warm, 16));
    glow.setColorAt(0.85, Tint(colour::Warm, 3));
    glow.setColorAt(1, Tint(colour::Warm, 0));
    canvas.rounded(
        QRectF(DialCentre.x() - DialRadius, DialCentre.y() - DialRadius, 2 * DialRadius, 2 * DialRadius),
        DialRadius, glow);
}

void paintDialScale(Canvas& canvas) {
    for (int degree = ColdestMark; degree <= WarmestMark; ++degree) {
        const bool numbered = degree % 5 == 0;
        canvas.line(onDial(degree, DialRadius - 14), onDial(degree, DialRadius - (numbered ? 21 : 18)),
                    numbered ? colour::Muted : colour::Faint, numbered ? 1.6 : 1);
        if (!numbered) continue;
        const QPointF at = onDial(degree, DialRadius + 23);
        canvas.text(QRectF(at.x() - 14, at.y() - 8, 28, 16), QString::number(degree), style::Scale,
                    Qt::AlignCenter);
    }
}

void paintRoom(Canvas& canvas) {
    canvas.card(RoomCard);
    canvas.icon(Icon::Thermometer, QRectF(Rooms), colour::Muted);
    canvas.icon(Icon::Wind, QRectF(layout::ventilation::Key), colour::Muted);
    paintDialGlow(canvas);
    strokeDial(canvas, DialRadius, colour::Track, layout::home::DialWidth);
    strokeDial(canvas, DialRadius + 10.5, coldToWarm(), 2.5);
    paintDialScale(canvas);
    const int middle = DialCentre.x();
    canvas.text(QRectF(middle - 60, RoomValue.y() - 22, 120, 18), "Indoors °C", style::Small,
                Qt::AlignCenter);
    canvas.line({middle - 34.0, RoomValue.bottom() + 4.5}, {middle + 34.0, RoomValue.bottom() + 4.5},
                colour::Track);
    canvas.text(QRectF(middle - 60, RoomValue.bottom() + 7, 120, 18), "Target", style::Small,
                Qt::AlignCenter);
    canvas.iconKey(ColderKey, Icon::Minus);
    canvas.iconKey(WarmerKey, Icon::Plus);
    canvas.text(QRectF(middle - 33, 324, 66, 20), "Set target", style::Small, Qt::AlignCenter);
}

void paintSun(Canvas& canvas, QPointF centre, qreal radius) {
    QRadialGradient halo(centre, radius * 1.9);
    halo.setColorAt(0.5, Tint(colour::Sun, 26));
    halo.setColorAt(1, Tint(colour::Sun, 0));
    canvas.rounded(QRectF(centre.x() - radius * 2, centre.y() - radius * 2, radius * 4, radius * 4),
                   radius * 2, halo);
    QLinearGradient disc(centre - QPointF(0, radius), centre + QPointF(0, radius));
    disc.setColorAt(0, colour::Sun.lighter(108));
    disc.setColorAt(1, colour::Warm);
    canvas.rounded(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius), radius, disc);
}

void paintCloud(Canvas& canvas, QPointF at) {
    QPainterPath cloud;
    cloud.setFillRule(Qt::WindingFill);
    cloud.addRoundedRect(QRectF(at.x(), at.y() + 18, 68, 24), 12, 12);
    cloud.addEllipse(QRectF(at.x() + 10, at.y() + 6, 30, 30));
    cloud.addEllipse(QRectF(at.x() + 28, at.y(), 34, 34));
    QLinearGradient shade(at, at + QPointF(0, 42));
    shade.setColorAt(0, Qt::white);
    shade.setColorAt(1, QColor(176, 194, 220));
    canvas.painter().setPen(Qt::NoPen);
    canvas.painter().setBrush(shade);
    canvas.painter().drawPath(cloud);
}

/// A small reading below the weather: icon, caption and the place of its value.
void paintReading(Canvas& canvas, Icon icon, const QRect& value, const QString& unit) {
    canvas.icon(icon, QRectF(value.x() - 26, value.y() + 3, 20, 20), colour::Muted);
    canvas.well(value, unit);
}

void paintWeather(Canvas& canvas) {
    canvas.card(WeatherCard);
    paintSun(canvas, QPointF(WeatherCard.x() + 54, WeatherCard.y() + 46), 22);
    paintCloud(canvas, QPointF(WeatherCard.x() + 48, WeatherCard.y() + 42));
    canvas.text(QRectF(OutdoorValue.x(), WeatherCard.y() + 10, 150, 18), "Outdoors", style::Small);
    canvas.well(OutdoorValue, "°C");
    canvas.line({WeatherCard.x() + 18.0, 161.5}, {WeatherCard.right() - 17.0, 161.5}, colour::CardEdge);
    paintReading(canvas, Icon::Drop, HumidityValue, "%");
    paintReading(canvas, Icon::Wind, WindValue, "m/s");
}

/// The outdoor unit, seen from the front.
void paintUnit(Canvas& canvas, const QRectF& area) {
    QLinearGradient shade(area.topLeft(), area.bottomLeft());
    shade.setColorAt(0, QColor(236, 241, 247));
    shade.setColorAt(1, QColor(168, 182, 202));
    canvas.rounded(QRectF(area.x() + 10, area.bottom() - 2, 12, 6), 2, colour::Track);
    canvas.rounded(QRectF(area.right() - 22, area.bottom() - 2, 12, 6), 2, colour::Track);
    canvas.rounded(area, 9, shade);
    const QRectF grille = QRectF(Fan).adjusted(-7, -7, 7, 7);
    canvas.rounded(grille, grille.width() / 2, QColor(38, 48, 66));
    for (int i = 0; i < 4; ++i) {
        const qreal y = area.y() + 14 + i * 7;
        canvas.line({grille.right() + 8, y}, {area.right() - 9, y}, QColor(128, 143, 166), 2);
    }
}

void paintHeatPump(Canvas& canvas) {
    canvas.card(HeatPumpCard, "Heat pump");
    canvas.text(Status, "Running", style::Small.in(colour::Eco), Qt::AlignRight | Qt::AlignVCenter);
    paintUnit(canvas, OutdoorUnit);
    canvas.text(QRectF(SupplyValue.x(), SupplyValue.y() - 19, 84, 16), "Supply", style::Small);
    canvas.text(QRectF(ReturnValue.x(), ReturnValue.y() - 19, 84, 16), "Return", style::Small);
    canvas.well(SupplyValue, "°C");
    canvas.well(ReturnValue, "°C");
    canvas.text(QRectF(PowerBar.x(), PowerBar.y() - 22, 84, 16), "Power", style::Small);
    canvas.rounded(PowerBar, PowerBar.height() / 2.0, colour::Track);
}

struct Scene {
    Icon icon;
    QColor colour;
    const char* name;
    const char* description;
};

const Scene Scenes[] = {
    {Icon::Sun, colour::Warm, "Comfort", "At home"},
    {Icon::Leaf, colour::Eco, "Eco", "Save energy"},
    {Icon::Moon, colour::Violet, "Night", "Sleep well"},
    {Icon::Suitcase, colour::Cool, "Away", "Nobody home"},
};

void paintScene(Canvas& canvas, const QRect& area, const Scene& scene) {
    canvas.card(area);
    canvas.badge(scene.icon, QRectF(area.x() + 14, area.y() + 21, 42, 42), scene.colour);
    const QRectF words(area.x() + 66, area.y() + 21, area.width() - 74, 22);
    canvas.text(words, scene.name, style::Heading);
    canvas.text(words.translated(0, 22), scene.description, style::Small);
}

} // namespace

Art PaintHome() {
    PageCanvas canvas(Place::Home);
    paintRoom(canvas);
    paintWeather(canvas);
    paintHeatPump(canvas);
    int index = 0;
    for (const Scene& scene : Scenes) paintScene(canvas, SceneKey(index++), scene);
    return canvas.take();
}

} // namespace demo
