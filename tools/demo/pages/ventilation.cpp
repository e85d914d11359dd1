#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::ventilation;

/// A track that stands upright, with its marks at the right.
void paintTrack(Canvas& canvas, const QRect& track) {
    constexpr int steps = 6;
    canvas.rounded(track, track.width() / 2.0, colour::Track);
    for (int i = 0; i < steps; ++i) {
        const qreal y = track.y() + 4 + (track.height() - 8.0) * i / (steps - 1);
        canvas.line({track.right() + 14.0, y}, {track.right() + 19.0, y}, colour::Faint);
    }
}

void paintAir(Canvas& canvas) {
    canvas.card(AirCard, "Air flow");
    const char* const names[] = {"Supply air", "Exhaust air"};
    for (int i = 0; i < 2; ++i) {
        canvas.text(AirName(i), names[i], style::Small, Qt::AlignCenter);
        paintTrack(canvas, AirTrack(i));
        canvas.well(AirValue(i), "m³/h");
    }
}

void paintAiring(Canvas& canvas) {
    canvas.card(QRectF(AiringCard));
    canvas.badge(Icon::Clock, QRectF(AiringCard.x() + 14, AiringCard.y() + 19, 40, 40), colour::Eco);
    const QRectF name(AiringCard.x() + 66, AiringCard.y() + 18, 90, 21);
    canvas.text(name, "Airing", style::Heading);
    canvas.text(name.translated(0, 22), "Windows open", style::Small);
    canvas.well(AiringTime);
    canvas.switchTrack(AiringSwitch);
}

void paintStatus(Canvas& canvas) {
    canvas.card(StatusCard, "Status");
    const char* const flags[Flags] = {"Summer bypass", "Frost protection", "Filter in order"};
    for (int i = 0; i < Flags; ++i) {
        const QRect row = FlagRow(i);
        if (i > 0)
            canvas.line({qreal(row.x()), row.y() + 0.5}, {row.right() + 1.0, row.y() + 0.5},
                        colour::CardEdge);
        canvas.text(row, flags[i], style::Body);
    }
    canvas.text(QRectF(FilterBar.x(), FilterBar.y() - 21, 140, 16), "Life of the filter", style::Small);
    canvas.rounded(FilterBar, FilterBar.height() / 2.0, colour::Track);
}

} // namespace

Art PaintVentilation() {
    PageCanvas canvas(Place::Home, "Ventilation");
    canvas.card(LevelCard, "Level");
    paintAir(canvas);
    canvas.card(QualityCard, "Air quality");
    canvas.card(HumidityCard, "Target humidity");
    canvas.rounded(QRectF(HumidityDrum).adjusted(-6, -4, 6, 4), WellRadius, colour::Well);
    paintAiring(canvas);
    paintStatus(canvas);
    return canvas.take();
}

} // namespace demo
