#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::energy;

struct Figure {
    Icon icon;
    QColor colour;
    const char* name;
    const char* unit;
};

const Figure Figures[] = {
    {Icon::Bolt, colour::Warm, "Electricity", "kWh"},
    {Icon::Flame, colour::Hot, "Heat", "kWh"},
    {Icon::Sun, colour::Sun, "Solar", "kWh"},
    {Icon::Leaf, colour::Eco, "Efficiency", "COP"},
};

void paintFigure(Canvas& canvas, int index) {
    const Figure& figure = Figures[index];
    const QRect card = FigureCard(index);
    canvas.card(card);
    canvas.badge(figure.icon, QRectF(card.x() + 14, card.y() + 12, 34, 34), figure.colour);
    canvas.text(QRectF(card.x() + 58, card.y() + 12, card.width() - 66, 34), figure.name, style::Body);
    canvas.well(FigureValue(index), figure.unit);
}

void paintLegend(Canvas& canvas, qreal x, const QColor& colour, const QString& name) {
    canvas.rounded(QRectF(x, WeekCard.y() + 19, 9, 9), 4.5, colour);
    canvas.text(QRectF(x + 15, WeekCard.y() + 13, 90, 20), name, style::Small);
}

void paintWeekGrid(Canvas& canvas) {
    constexpr int Largest = 30, Step = 10; // kWh
    for (int value = 0; value <= Largest; value += Step) {
        const qreal y = WeekPlot.y() + WeekPlot.height() * (Largest - value) / qreal(Largest) + 0.5;
        canvas.line({qreal(WeekPlot.x()), y}, {WeekPlot.right() + 1.0, y}, colour::CardEdge);
        canvas.text(QRectF(WeekPlot.x() - 36, y - 8, 28, 16), QString::number(value), style::Scale,
                    Qt::AlignRight | Qt::AlignVCenter);
    }
}

void paintWeek(Canvas& canvas) {
    canvas.card(WeekCard, "This week");
    paintLegend(canvas, WeekCard.right() - 190, colour::Warm, "Heating");
    paintLegend(canvas, WeekCard.right() - 98, colour::Cool, "Hot water");
    paintWeekGrid(canvas);
    const char* const days[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
    for (int day = 0; day < 7; ++day) {
        const QRect bar = DayBar(day);
        canvas.rounded(bar, WellRadius, Tint(colour::Track, 40));
        canvas.text(QRectF(bar.x() - 8, bar.bottom() + 8, bar.width() + 16, 18), days[day], style::Small,
                    Qt::AlignCenter);
    }
}

void paintShareRow(Canvas& canvas, int index, const QColor& colour, const QString& name) {
    const QRect value = ShareRowValue(index);
    const qreal y = value.y();
    canvas.rounded(QRectF(ShareCard.x() + 18, y + 8, 9, 9), 4.5, colour);
    canvas.text(QRectF(ShareCard.x() + 36, y, 76, 25), name, style::Small);
    canvas.well(value, "%");
}

void paintShare(Canvas& canvas) {
    canvas.card(ShareCard, "Use of power");
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colour::Track, 16));
    canvas.painter().drawEllipse(QPointF(ShareCentre), ShareRadius, ShareRadius);
    canvas.text(QRectF(ShareCentre.x() - 40, ShareValue.bottom() + 1, 80, 16), "kWh today", style::Scale,
                Qt::AlignCenter);
    paintShareRow(canvas, 0, colour::Warm, "Heating");
    paintShareRow(canvas, 1, colour::Cool, "Hot water");
    paintShareRow(canvas, 2, colour::Violet, "Standby");
}

} // namespace

Art PaintEnergy() {
    PageCanvas canvas(Place::Energy);
    for (int i = 0; i < 4; ++i) paintFigure(canvas, i);
    paintWeek(canvas);
    paintShare(canvas);
    return canvas.take();
}

} // namespace demo
