#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

#include <QLinearGradient>

namespace demo {
namespace {

using namespace layout::water;

constexpr int ScaleTop = 70, ScaleBottom = 10; // °C at the upper and lower end of the tank's scale

void paintWater(Canvas& canvas) {
    QLinearGradient water(Tank.topLeft(), Tank.bottomLeft());
    water.setColorAt(0, colour::Hot);
    water.setColorAt(0.35, colour::Warm);
    water.setColorAt(0.7, colour::Cool);
    water.setColorAt(1, colour::Cool.darker(150));
    canvas.rounded(Tank, 40, colour::Raised);
    canvas.rounded(Tank.adjusted(7, 7, -7, -7), 34, water);
    QLinearGradient shine(Tank.topLeft(), Tank.topRight());
    shine.setColorAt(0.05, Tint(Qt::white, 0));
    shine.setColorAt(0.22, Tint(Qt::white, 26));
    shine.setColorAt(0.42, Tint(Qt::white, 0));
    shine.setColorAt(1, Tint(Qt::black, 22));
    canvas.rounded(Tank.adjusted(7, 7, -7, -7), 34, shine);
}

void paintCoil(Canvas& canvas) {
    QPainterPath coil(QPointF(Tank.right() + 12, 306));
    for (int turn = 0; turn < 4; ++turn) {
        const qreal y = 306 + turn * 24;
        coil.lineTo(Tank.x() + 34, y);
        coil.arcTo(QRectF(Tank.x() + 28, y, 12, 12), 90, 180);
        coil.lineTo(turn < 3 ? Tank.right() - 52 : Tank.right() + 12, y + 12);
        if (turn < 3) coil.arcTo(QRectF(Tank.right() - 58, y + 12, 12, 12), 90, -180);
    }
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(Tint(Qt::white, 78), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    canvas.painter().drawPath(coil);
}

void paintTankScale(Canvas& canvas) {
    const qreal top = Tank.y() + 20, span = Tank.height() - 40;
    for (int degree = ScaleBottom; degree <= ScaleTop; degree += 5) {
        const bool numbered = degree % 10 == 0;
        const qreal y = top + span * (ScaleTop - degree) / (ScaleTop - ScaleBottom);
        canvas.line({Tank.x() - (numbered ? 18.0 : 13.0), y}, {Tank.x() - 8.0, y},
                    numbered ? colour::Muted : colour::Faint, numbered ? 1.6 : 1);
        if (numbered)
            canvas.text(QRectF(Tank.x() - 56, y - 8, 32, 16), QString::number(degree), style::Scale,
                        Qt::AlignRight | Qt::AlignVCenter);
    }
}

void paintSensor(Canvas& canvas, const QString& name, const QRect& value) {
    const qreal y = value.y() + value.height() / 2.0;
    canvas.line({Tank.right() - 26.0, y}, {value.x() - 2.0, y}, Tint(Qt::white, 70), 1.4);
    canvas.rounded(QRectF(Tank.right() - 31, y - 5, 10, 10), 5, Qt::white);
    canvas.well(value, "°C");
    canvas.text(QRectF(value.x(), value.y() - 20, value.width(), 18), name, style::Small);
}

void paintTank(Canvas& canvas) {
    canvas.card(TankCard, "Storage tank");
    paintWater(canvas);
    paintCoil(canvas);
    paintTankScale(canvas);
    paintSensor(canvas, "Upper", TankTopValue);
    paintSensor(canvas, "Lower", TankBottomValue);
}

void paintTarget(Canvas& canvas) {
    canvas.card(TargetCard, "Target temperature");
    canvas.well(BoostTime);
    canvas.text(QRectF(BoostTime.x() - 108, BoostTime.y(), 100, BoostTime.height()), "Boost left",
                style::Small, Qt::AlignRight | Qt::AlignVCenter);
    canvas.iconKey(LessKey, Icon::Minus);
    canvas.iconKey(MoreKey, Icon::Plus);
    canvas.well(TargetValue, "°C");
    canvas.sliderTrack(TargetSlider, 7);
    const QRectF labels(TargetSlider.x(), TargetSlider.bottom() + 11, TargetSlider.width(), 16);
    canvas.text(labels, "35", style::Scale, Qt::AlignLeft | Qt::AlignVCenter);
    canvas.text(labels, "50", style::Scale, Qt::AlignCenter);
    canvas.text(labels, "65", style::Scale, Qt::AlignRight | Qt::AlignVCenter);
}

void paintMode(Canvas& canvas, const QRect& area, Icon icon, const QColor& colour, const QString& name) {
    canvas.card(area);
    canvas.badge(icon, QRectF(area.x() + area.width() / 2.0 - 20, area.y() + 12, 40, 40), colour);
    canvas.text(QRectF(area.x(), area.y() + 58, area.width(), 22), name, style::Body, Qt::AlignCenter);
}

void paintOption(Canvas& canvas, int index, Icon icon, const QColor& colour, const QString& name,
                 const QString& description) {
    const QRect row = OptionRow(index);
    canvas.badge(icon, QRectF(row.x() + 16, row.y() + 12, 36, 36), colour);
    const QRectF words(row.x() + 64, row.y() + 11, 220, 20);
    canvas.text(words, name, style::Body);
    canvas.text(words.translated(0, 19), description, style::Small);
    canvas.switchTrack(OptionSwitch(index));
}

void paintOptions(Canvas& canvas) {
    canvas.card(OptionCard);
    paintOption(canvas, 0, Icon::Loop, colour::Eco, "Circulation", "Warm water at once");
    paintOption(canvas, 1, Icon::Shield, colour::Violet, "Hygiene programme", "Weekly heat-up to 65 °C");
    const qreal y = OptionRow(1).y() + 0.5;
    canvas.line({OptionCard.x() + 64.0, y}, {OptionCard.right() - 17.0, y}, colour::CardEdge);
}

} // namespace

Art PaintHotWater() {
    PageCanvas canvas(Place::HotWater);
    paintTank(canvas);
    paintTarget(canvas);
    paintMode(canvas, ModeKey(0), Icon::Leaf, colour::Eco, "Eco");
    paintMode(canvas, ModeKey(1), Icon::Sun, colour::Warm, "Comfort");
    paintMode(canvas, ModeKey(2), Icon::Flame, colour::Hot, "Boost");
    paintOptions(canvas);
    return canvas.take();
}

} // namespace demo
