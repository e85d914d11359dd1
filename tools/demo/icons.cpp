#include "demo/icons.h"

#include <QTransform>

#include <initializer_list>

namespace demo {
namespace {

using Points = std::initializer_list<QPointF>;

void addLine(QPainterPath& path, Points points) {
    path.moveTo(*points.begin());
    for (const QPointF& point : points) path.lineTo(point);
}

void addCircle(QPainterPath& path, QPointF centre, qreal radius) { path.addEllipse(centre, radius, radius); }

/// An arc of a circle; degrees count counter-clockwise from three o'clock.
void addArc(QPainterPath& path, QPointF centre, qreal radius, qreal from, qreal sweep) {
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    path.arcMoveTo(box, from);
    path.arcTo(box, from, sweep);
}

/// `part` as it is and turned about the middle of the grid, `count` times in all.
QPainterPath turned(const QPainterPath& part, int count) {
    QPainterPath path;
    for (int i = 0; i < count; ++i)
        path.addPath(QTransform().translate(12, 12).rotate(360.0 * i / count).translate(-12, -12).map(part));
    return path;
}

QPainterPath lines(std::initializer_list<Points> all) {
    QPainterPath path;
    for (const Points& points : all) addLine(path, points);
    return path;
}

QPainterPath home() {
    return lines({{{3, 11}, {12, 3.5}, {21, 11}},
                  {{5.5, 9.5}, {5.5, 20}, {18.5, 20}, {18.5, 9.5}},
                  {{10, 20}, {10, 14}, {14, 14}, {14, 20}}});
}

QPainterPath radiator() {
    QPainterPath path = lines({{{4, 20.5}, {20, 20.5}}});
    for (const int x : {6, 12, 18}) {
        path.moveTo(x, 17);
        path.cubicTo(x - 4, 13, x + 4, 9, x, 4);
    }
    return path;
}

QPainterPath drop() {
    QPainterPath path(QPointF(12, 3));
    path.cubicTo(16, 8, 18.5, 11, 18.5, 14.5);
    path.cubicTo(18.5, 18.2, 15.6, 21, 12, 21);
    path.cubicTo(8.4, 21, 5.5, 18.2, 5.5, 14.5);
    path.cubicTo(5.5, 11, 8, 8, 12, 3);
    addArc(path, {12, 14.5}, 3.2, 270, 80);
    return path;
}

QPainterPath chart() {
    return lines(
        {{{4, 20.5}, {20.5, 20.5}}, {{6.5, 17}, {6.5, 12}}, {{12, 17}, {12, 4}}, {{17.5, 17}, {17.5, 8}}});
}

QPainterPath calendar() {
    QPainterPath path = lines(
        {{{3.5, 10}, {20.5, 10}}, {{8, 2.8}, {8, 6.5}}, {{16, 2.8}, {16, 6.5}}, {{8, 14.5}, {11, 14.5}}});
    path.addRoundedRect(QRectF(3.5, 4.8, 17, 15.7), 3, 3);
    return path;
}

QPainterPath sliders() {
    QPainterPath path =
        lines({{{3.5, 7}, {12, 7}}, {{18, 7}, {20.5, 7}}, {{3.5, 17}, {6, 17}}, {{12, 17}, {20.5, 17}}});
    addCircle(path, {15, 7}, 2.8);
    addCircle(path, {9, 17}, 2.8);
    return path;
}

QPainterPath pulse() {
    return lines({{{2.5, 12.5}, {7, 12.5}, {9.7, 5}, {14, 19.5}, {16.8, 12.5}, {21.5, 12.5}}});
}

QPainterPath sun(qreal radius) {
    QPainterPath path = turned(lines({{{12, 2.2}, {12, 4.4}}}), 8);
    addCircle(path, {12, 12}, radius);
    return path;
}

QPainterPath leaf() {
    QPainterPath path(QPointF(19.5, 4.5));
    path.cubicTo(8, 4, 4.5, 9, 5, 14);
    path.cubicTo(5.5, 19, 11, 20, 14.5, 17.5);
    path.cubicTo(18.5, 14.5, 19.5, 10, 19.5, 4.5);
    addLine(path, {{3.5, 21}, {6.5, 16.5}, {14, 10}});
    return path;
}

QPainterPath suitcase() {
    QPainterPath path = lines(
        {{{8.5, 7.5}, {8.5, 4}, {15.5, 4}, {15.5, 7.5}}, {{3.5, 13}, {20.5, 13}}, {{12, 11.8}, {12, 14.5}}});
    path.addRoundedRect(QRectF(3.5, 7.5, 17, 12.5), 2.5, 2.5);
    return path;
}

QPainterPath flame() {
    QPainterPath path(QPointF(12.5, 2.5));
    path.cubicTo(13, 7, 18.5, 9, 18.5, 14.5);
    path.cubicTo(18.5, 18.5, 15.5, 21.3, 12, 21.3);
    path.cubicTo(8.5, 21.3, 5.5, 18.6, 5.5, 15);
    path.cubicTo(5.5, 12.5, 6.8, 10.8, 8, 9.5);
    path.cubicTo(8.3, 11.3, 9, 12.2, 10, 12.6);
    path.cubicTo(9.6, 9, 10, 5, 12.5, 2.5);
    return path;
}

QPainterPath snowflake() {
    return turned(lines({{{12, 12}, {12, 2.5}}, {{9.6, 4.2}, {12, 6.6}, {14.4, 4.2}}}), 6);
}

QPainterPath wifi() {
    QPainterPath path;
    for (const qreal radius : {4.5, 8.8, 13.0}) addArc(path, {12, 18.5}, radius, 45, 90);
    addCircle(path, {12, 18.5}, 0.6);
    return path;
}

QPainterPath bell() {
    QPainterPath path(QPointF(5, 17));
    path.cubicTo(7.5, 14.5, 6, 9.5, 7.2, 7.3);
    path.cubicTo(9.2, 3.4, 14.8, 3.4, 16.8, 7.3);
    path.cubicTo(18, 9.5, 16.5, 14.5, 19, 17);
    path.closeSubpath();
    addArc(path, {12, 17.8}, 2.6, 200, 140);
    return path;
}

QPainterPath bolt() {
    QPainterPath path = lines({{{13.5, 2.5}, {5, 13.8}, {11, 13.8}, {10.5, 21.5}, {19, 10.2}, {13, 10.2}}});
    path.closeSubpath();
    return path;
}

QPainterPath globe() {
    QPainterPath path = lines({{{3.3, 12}, {20.7, 12}}});
    addCircle(path, {12, 12}, 8.8);
    path.addEllipse(QPointF(12, 12), 3.8, 8.8);
    return path;
}

QPainterPath clock() {
    QPainterPath path = lines({{{12, 6.8}, {12, 12}, {15.6, 14}}});
    addCircle(path, {12, 12}, 8.8);
    return path;
}

QPainterPath speaker() {
    QPainterPath path = lines({{{11.5, 5}, {7, 9}, {3.5, 9}, {3.5, 15}, {7, 15}, {11.5, 19}, {11.5, 5}}});
    addArc(path, {12.2, 12}, 3.8, -50, 100);
    addArc(path, {12.2, 12}, 7.8, -50, 100);
    return path;
}

QPainterPath moon() {
    QPainterPath path(QPointF(20, 14.5));
    path.cubicTo(18.5, 15.2, 9, 16.5, 9.5, 4);
    path.cubicTo(0, 7.5, 3, 20.5, 12.2, 20.5);
    path.cubicTo(16, 20.5, 18.8, 18, 20, 14.5);
    return path;
}

QPainterPath shield() {
    QPainterPath path(QPointF(12, 3));
    path.cubicTo(14.5, 5, 17, 5.8, 19.5, 6);
    path.cubicTo(19.5, 14, 17.5, 18.5, 12, 21.2);
    path.cubicTo(6.5, 18.5, 4.5, 14, 4.5, 6);
    path.cubicTo(7, 5.8, 9.5, 5, 12, 3);
    addLine(path, {{8.8, 12}, {11.2, 14.4}, {15.4, 9.8}});
    return path;
}

QPainterPath loop() {
    QPainterPath path = lines({{{16, 2.5}, {19.8, 5.8}, {16, 9}}, {{8, 15}, {4.2, 18.2}, {8, 21.5}}});
    path.moveTo(4, 12);
    path.cubicTo(4, 7.5, 6.5, 5.8, 10, 5.8);
    path.lineTo(19, 5.8);
    path.moveTo(20, 12);
    path.cubicTo(20, 16.5, 17.5, 18.2, 14, 18.2);
    path.lineTo(5, 18.2);
    return path;
}

QPainterPath fan() {
    QPainterPath blade(QPointF(12, 10.2));
    blade.cubicTo(7, 8, 9.5, 2.5, 13.5, 3.2);
    blade.cubicTo(16.5, 3.8, 15, 8, 13.2, 10.6);
    QPainterPath path = turned(blade, 3);
    addCircle(path, {12, 12}, 1.9);
    return path;
}

QPainterPath thermometer() {
    QPainterPath path(QPointF(9, 13.6));
    path.lineTo(9, 5.5);
    path.arcTo(QRectF(9, 2.5, 6, 6), 180, -180);
    path.lineTo(15, 13.6);
    path.arcTo(QRectF(7.2, 12, 9.6, 9.6), 51, -282);
    addLine(path, {{12, 9}, {12, 15}});
    addCircle(path, {12, 16.8}, 1.3);
    return path;
}

QPainterPath copySheets() {
    QPainterPath path = lines({{{5, 15.5}, {3.8, 15.5}, {3.8, 3.8}, {15.5, 3.8}, {15.5, 5}}});
    path.addRoundedRect(QRectF(8.2, 8.2, 12, 12), 2, 2);
    return path;
}

QPainterPath wind() {
    QPainterPath path(QPointF(3, 9.5));
    path.lineTo(13, 9.5);
    path.arcTo(QRectF(10.2, 4, 5.5, 5.5), 270, 240);
    path.moveTo(3, 14);
    path.lineTo(17.5, 14);
    path.arcTo(QRectF(14.7, 14, 5.5, 5.5), 90, -240);
    return path;
}

} // namespace

QPainterPath IconPath(Icon icon) {
    switch (icon) {
    case Icon::Home: return home();
    case Icon::Radiator: return radiator();
    case Icon::Drop: return drop();
    case Icon::Chart: return chart();
    case Icon::Calendar: return calendar();
    case Icon::Sliders: return sliders();
    case Icon::Pulse: return pulse();
    case Icon::Sun: return sun(4.6);
    case Icon::Leaf: return leaf();
    case Icon::Suitcase: return suitcase();
    case Icon::Flame: return flame();
    case Icon::Snowflake: return snowflake();
    case Icon::Wifi: return wifi();
    case Icon::Bell: return bell();
    case Icon::Plus: return lines({{{12, 5}, {12, 19}}, {{5, 12}, {19, 12}}});
    case Icon::Minus: return lines({{{5, 12}, {19, 12}}});
    case Icon::Bolt: return bolt();
    case Icon::Globe: return globe();
    case Icon::Clock: return clock();
    case Icon::Speaker: return speaker();
    case Icon::Brightness: return sun(3.4);
    case Icon::Moon: return moon();
    case Icon::Shield: return shield();
    case Icon::Loop: return loop();
    case Icon::Fan: return fan();
    case Icon::Thermometer: return thermometer();
    case Icon::Check: return lines({{{5, 12.5}, {10, 17.5}, {19.5, 7}}});
    case Icon::Copy: return copySheets();
    case Icon::ChevronRight: return lines({{{9, 5.5}, {15.5, 12}, {9, 18.5}}});
    case Icon::Wind: return wind();
    }
    return {};
}

} // namespace demo
