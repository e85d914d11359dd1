#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::service;

struct Reading {
    Icon icon;
    const char* name;
    const char* unit;
};

const Reading ReadingList[layout::service::Readings] = {
    {Icon::Bolt, "Compressor speed", "Hz"},     {Icon::Fan, "Fan speed", "rpm"},
    {Icon::Pulse, "High pressure", "bar"},      {Icon::Pulse, "Low pressure", "bar"},
    {Icon::Thermometer, "Discharge gas", "°C"}, {Icon::Thermometer, "Suction gas", "°C"},
    {Icon::Sliders, "Expansion valve", "%"},    {Icon::Clock, "Operating hours", "h"},
};

void paintReading(Canvas& canvas, int index) {
    const Reading& reading = ReadingList[index];
    const QRect row = ReadingRow(index);
    if (index > 0)
        canvas.line({row.x() + 32.0, row.y() + 0.5}, {row.right() + 1.0, row.y() + 0.5}, colour::CardEdge);
    canvas.icon(reading.icon, QRectF(row.x() + 2, row.y() + 12, 19, 19), colour::Muted, 1.9);
    canvas.text(QRectF(row.x() + 34, row.y(), 180, row.height()), reading.name, style::Body);
    const QRect value = ReadingValue(index);
    canvas.well(value);
    canvas.text(QRectF(value.right() + 8, row.y(), row.right() - value.right() - 7, row.height()),
                reading.unit, style::Small);
}

constexpr QRect Circuit{540, 132, 186, 112};

void paintCircuitSide(Canvas& canvas, const QPainterPath& side, const QColor& colour) {
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colour, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    canvas.painter().drawPath(side);
}

/// Half of the circuit, from the middle of its top to that of its bottom, around one side.
QPainterPath circuitHalf(qreal sideX) {
    const qreal middle = Circuit.x() + Circuit.width() / 2.0;
    const qreal radius = sideX > middle ? -18 : 18; // inwards
    QPainterPath path(QPointF(middle, Circuit.top()));
    path.lineTo(sideX + radius, Circuit.top());
    path.quadTo(sideX, Circuit.top(), sideX, Circuit.top() + 18);
    path.lineTo(sideX, Circuit.bottom() - 18);
    path.quadTo(sideX, Circuit.bottom(), sideX + radius, Circuit.bottom());
    path.lineTo(middle, Circuit.bottom());
    return path;
}

void paintComponent(Canvas& canvas, QPointF centre, Icon icon, const QColor& colour) {
    const QRectF disc(centre.x() - 22, centre.y() - 22, 44, 44);
    canvas.rounded(disc.adjusted(-4, -4, 4, 4), 26, colour::Card);
    canvas.badge(icon, disc, colour);
}

void paintCircuit(Canvas& canvas) {
    canvas.card(CircuitCard, "Refrigerant circuit");
    canvas.icon(Icon::ChevronRight, QRectF(CircuitCard.right() - 35, CircuitCard.y() + 13, 20, 20),
                colour::Faint, 2.2);
    paintCircuitSide(canvas, circuitHalf(Circuit.left()), colour::Cool);
    paintCircuitSide(canvas, circuitHalf(Circuit.right()), colour::Hot);
    const QPointF centre = QRectF(Circuit).center();
    paintComponent(canvas, {centre.x(), qreal(Circuit.top())}, Icon::Bolt, colour::Warm);
    paintComponent(canvas, {centre.x(), qreal(Circuit.bottom())}, Icon::Sliders, colour::Violet);
    paintComponent(canvas, {qreal(Circuit.left()), centre.y()}, Icon::Fan, colour::Cool);
    paintComponent(canvas, {qreal(Circuit.right()), centre.y()}, Icon::Radiator, colour::Hot);
    canvas.text(QRectF(centre.x() - 60, Circuit.top() + 27, 120, 16), "Compressor", style::Small,
                Qt::AlignCenter);
    canvas.text(QRectF(centre.x() - 60, Circuit.bottom() - 42, 120, 16), "Valve", style::Small,
                Qt::AlignCenter);
    canvas.text(QRectF(Circuit.left() - 48, Circuit.bottom() + 14, 96, 16), "Evaporator", style::Small,
                Qt::AlignCenter);
    canvas.text(QRectF(Circuit.right() - 48, Circuit.bottom() + 14, 96, 16), "Condenser", style::Small,
                Qt::AlignCenter);
}

void paintSupport(Canvas& canvas) {
    canvas.card(SupportCard);
    canvas.rounded(QrCode, 12, Qt::white); // where the code is drawn
    const QRectF words(QrCode.right() + 16, SupportCard.y() + 18, SupportCard.right() - QrCode.right() - 30,
                       24);
    canvas.text(words, "Need help?", style::Heading);
    canvas.icon(Icon::ChevronRight, QRectF(SupportCard.right() - 35, SupportCard.y() + 20, 20, 20),
                colour::Faint, 2.2);
    canvas.text(QRectF(words.x(), ServicePin.y(), 44, ServicePin.height()), "PIN", style::Small);
    canvas.well(ServicePin);
    canvas.text(QRectF(words.x(), words.bottom() + 6, words.width(), 90),
                "Scan to send a\nreport to your\ninstaller.", style::Caption, Qt::AlignLeft | Qt::AlignTop);
}

} // namespace

Art PaintService() {
    PageCanvas canvas(Place::Service);
    canvas.card(ReadingCard, "Readings");
    for (int i = 0; i < layout::service::Readings; ++i) paintReading(canvas, i);
    paintCircuit(canvas);
    paintSupport(canvas);
    return canvas.take();
}

} // namespace demo
