#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::gauges;

/// Supply temperatures, °C.
constexpr int LowestMark = 25, HighestMark = 45;

void paintTrend(Canvas& canvas) {
    canvas.card(TrendCard, "Supply and return");
    for (int mark = LowestMark; mark <= HighestMark; mark += 10) {
        const qreal y =
            TrendPlot.y() + TrendPlot.height() * (HighestMark - mark) / qreal(HighestMark - LowestMark) + 0.5;
        canvas.line({qreal(TrendPlot.x()), y}, {TrendPlot.right() + 1.0, y}, colour::CardEdge);
        canvas.text(QRectF(TrendPlot.x() - 36, y - 8, 28, 16), QString::number(mark), style::Scale,
                    Qt::AlignRight | Qt::AlignVCenter);
    }
}

void paintEfficiency(Canvas& canvas) {
    canvas.card(EfficiencyCard, "Efficiency");
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colour::Track, EfficiencyWidth));
    canvas.painter().drawEllipse(QPointF(EfficiencyCentre), EfficiencyRadius, EfficiencyRadius);
    canvas.icon(Icon::Leaf, QRectF(EfficiencyCentre.x() - 11, EfficiencyCentre.y() - 11, 22, 22),
                colour::Eco);
    canvas.well(EfficiencyValue, "COP");
}

void paintMessage(Canvas& canvas) {
    canvas.card(QRectF(MessageCard));
    canvas.icon(Icon::Bell, QRectF(MessageCard.x() + 14, MessageCard.y() + 8, 18, 18), colour::Warm);
}

} // namespace

Art PaintGauges() {
    PageCanvas canvas(Place::Service, "Live gauges");
    canvas.card(CompressorCard, "Compressor");
    canvas.card(PressureCard, "High pressure");
    canvas.card(QRectF(ClockCard));
    paintTrend(canvas);
    paintEfficiency(canvas);
    paintMessage(canvas);
    return canvas.take();
}

} // namespace demo
