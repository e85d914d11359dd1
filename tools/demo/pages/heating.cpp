#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

#include <QLinearGradient>

namespace demo {
namespace {

using namespace layout::heating;

constexpr QRect Unit{126, 118, 112, 128};
constexpr QRect Buffer{446, 112, 80, 140};
constexpr QRect Floor{684, 112, 78, 140};
constexpr int SupplyPipe = 160, ReturnPipe = 202; // y of their middle

void paintPipe(Canvas& canvas, QPointF from, QPointF to, const QColor& colour) {
    canvas.line(from, to, Tint(colour, 30), 9);
    canvas.line(from, to, colour, 4);
    const QPointF middle = (from + to) / 2;
    const qreal direction = to.x() > from.x() ? 1 : -1;
    QPainterPath arrow(middle + QPointF(-6 * direction, -8));
    arrow.lineTo(middle + QPointF(8 * direction, 0));
    arrow.lineTo(middle + QPointF(-6 * direction, 8));
    arrow.closeSubpath();
    canvas.painter().setPen(QPen(colour::Card, 2));
    canvas.painter().setBrush(colour);
    canvas.painter().drawPath(arrow);
}

void paintPipes(Canvas& canvas) {
    paintPipe(canvas, {Unit.right() + 4.0, SupplyPipe}, {Buffer.left() - 5.0, SupplyPipe}, colour::Hot);
    paintPipe(canvas, {Buffer.right() + 6.0, SupplyPipe}, {Floor.left() - 5.0, SupplyPipe}, colour::Hot);
    paintPipe(canvas, {Floor.left() - 5.0, ReturnPipe}, {Buffer.right() + 6.0, ReturnPipe}, colour::Cool);
    paintPipe(canvas, {Buffer.left() - 5.0, ReturnPipe}, {Unit.right() + 4.0, ReturnPipe}, colour::Cool);
}

void paintUnit(Canvas& canvas) {
    QLinearGradient shade(Unit.topLeft(), Unit.bottomLeft());
    shade.setColorAt(0, QColor(236, 241, 247));
    shade.setColorAt(1, QColor(160, 175, 197));
    canvas.rounded(Unit, 14, shade);
    const QRectF grille = QRectF(Fan).adjusted(-12, -12, 12, 12);
    canvas.rounded(grille, 40, QColor(38, 48, 66));
    for (int i = 0; i < 3; ++i) {
        const qreal y = Unit.bottom() - 23 + i * 7;
        canvas.line({Unit.x() + 20.0, y}, {Unit.right() - 19.0, y}, QColor(116, 132, 157), 2.4);
    }
}

void paintBuffer(Canvas& canvas) {
    QLinearGradient water(Buffer.topLeft(), Buffer.bottomLeft());
    water.setColorAt(0, colour::Hot);
    water.setColorAt(0.5, colour::Violet);
    water.setColorAt(1, colour::Cool);
    canvas.rounded(Buffer, 22, colour::Raised);
    canvas.rounded(Buffer.adjusted(5, 5, -5, -5), 18, water);
    canvas.text(QRectF(Buffer.x(), 140, Buffer.width(), 18), "Buffer", style::Small.in(colour::Text),
                Qt::AlignCenter);
    canvas.well(BufferValue, "°C");
}

/// Floor heating: one pipe in bends that cools down on its way.
void paintFloor(Canvas& canvas) {
    canvas.rounded(Floor, 14, colour::Well);
    QPainterPath pipe(QPointF(Floor.x() + 14, Floor.y() + 18));
    for (int bend = 0; bend < 3; ++bend) {
        const qreal y = Floor.y() + 18 + bend * 36;
        pipe.lineTo(Floor.right() - 22, y);
        pipe.arcTo(QRectF(Floor.right() - 31, y, 18, 18), 90, -180);
        pipe.lineTo(Floor.x() + 23, y + 18);
        if (bend < 2) pipe.arcTo(QRectF(Floor.x() + 14, y + 18, 18, 18), 90, 180);
    }
    QLinearGradient cooling(Floor.topLeft(), Floor.bottomLeft());
    cooling.setColorAt(0, colour::Hot);
    cooling.setColorAt(1, colour::Cool);
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(cooling, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    canvas.painter().drawPath(pipe);
}

void paintMeasure(Canvas& canvas, const QString& name, const QRect& value, const QString& unit) {
    canvas.text(QRectF(value.x() - 70, value.y(), 62, value.height()), name, style::Small,
                Qt::AlignRight | Qt::AlignVCenter);
    canvas.well(value, unit);
}

void paintPlant(Canvas& canvas) {
    canvas.card(PlantCard, "Plant");
    canvas.text(QRectF(Floor.x() - 40, PlantCard.y() + 12, Floor.width() + 40, 22), "Floor heating",
                style::Caption, Qt::AlignRight | Qt::AlignVCenter);
    paintPipes(canvas);
    paintUnit(canvas);
    paintBuffer(canvas);
    paintFloor(canvas);
    paintMeasure(canvas, "Supply", SupplyValue, "°C");
    paintMeasure(canvas, "Return", ReturnValue, "°C");
    paintMeasure(canvas, "Flow", FlowValue, "l/h");
    paintMeasure(canvas, "Pressure", PressureValue, "bar");
}

/// Where a point of the heating curve lies: outdoors 20 to -20 °C from left to right, supply 20 to 60 °C
/// upwards.
QPointF onPlot(qreal outdoor, qreal supply) {
    return {CurvePlot.x() + CurvePlot.width() * (20 - outdoor) / 40,
            CurvePlot.y() + CurvePlot.height() * (60 - supply) / 40};
}

void paintPlotGrid(Canvas& canvas) {
    for (int supply = 20; supply <= 60; supply += 20) {
        canvas.line(onPlot(20, supply), onPlot(-20, supply), colour::CardEdge);
        const QPointF at = onPlot(20, supply);
        canvas.text(QRectF(at.x() - 34, at.y() - 8, 26, 16), QString::number(supply), style::Scale,
                    Qt::AlignRight | Qt::AlignVCenter);
    }
    for (int outdoor = 20; outdoor >= -20; outdoor -= 10) {
        const QPointF at = onPlot(outdoor, 20);
        canvas.line(onPlot(outdoor, 60), at, colour::CardEdge);
        canvas.text(QRectF(at.x() - 16, at.y() + 5, 32, 16),
                    QString::number(outdoor).replace('-', QChar(0x2212)), style::Scale, Qt::AlignCenter);
    }
}

void paintHeatingCurve(Canvas& canvas, qreal slope, const QColor& colour, qreal width) {
    QPainterPath path(onPlot(20, 20));
    for (int outdoor = 19; outdoor >= -20; --outdoor) {
        const qreal difference = 20 - outdoor;
        path.lineTo(onPlot(outdoor, 20 + slope * difference - 0.006 * slope * difference * difference));
    }
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    canvas.painter().drawPath(path);
}

void paintCurve(Canvas& canvas) {
    canvas.card(CurveCard, "Heating curve");
    canvas.text(QRectF(CurveCard.right() - 199, CurveCard.y() + 12, 182, 22), "Supply over outdoors, °C",
                style::Small, Qt::AlignRight | Qt::AlignVCenter);
    paintPlotGrid(canvas);
    for (const qreal slope : {0.4, 0.65, 1.15})
        paintHeatingCurve(canvas, slope, Tint(colour::Muted, 40), 1.4);
    paintHeatingCurve(canvas, 0.9, colour::Warm, 3);
}

void paintAdjustment(Canvas& canvas, const QRect& card, const QString& name, const QRect& slider,
                     const QRect& value, const QString& unit) {
    canvas.card(card, name);
    canvas.well(value, unit);
    canvas.sliderTrack(slider, 11);
}

} // namespace

Art PaintHeating() {
    PageCanvas canvas(Place::Heating);
    paintPlant(canvas);
    paintCurve(canvas);
    paintAdjustment(canvas, SlopeCard, "Slope", SlopeSlider, SlopeValue, {});
    paintAdjustment(canvas, ShiftCard, "Parallel shift", ShiftSlider, ShiftValue, "K");
    return canvas.take();
}

} // namespace demo
