#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::schedule;

/// A stretch of a day's programme, in hours.
struct Block {
    qreal from, to;
    QColor colour;
};

const Block Workday[] = {{6, 8.5, colour::Warm}, {8.5, 16, colour::Eco}, {16, 22, colour::Warm}};
const Block Weekend[] = {{7.5, 23, colour::Warm}};

qreal atHour(qreal hour) { return Hours.x() + Hours.width() * hour / 24; }

void paintHours(Canvas& canvas) {
    for (int hour = 0; hour <= 24; hour += 3) {
        const qreal x = atHour(hour);
        canvas.text(QRectF(x - 20, Hours.y() - 22, 40, 16), QString("%1").arg(hour, 2, 10, QChar('0')),
                    style::Scale, Qt::AlignCenter);
        canvas.line({x, Hours.y() - 2.0}, {x, Hours.bottom() - 0.0}, colour::CardEdge);
    }
}

template <std::size_t N>
void paintDay(Canvas& canvas, int day, const QString& name, const Block (&blocks)[N]) {
    const QRect track = DayTrack(day);
    canvas.text(QRectF(layout::Left + 18, track.y(), 40, track.height()), name, style::Body);
    canvas.rounded(track, WellRadius, colour::Well);
    for (const Block& block : blocks) {
        const QRectF area(atHour(block.from) + 1, track.y() + 2, atHour(block.to) - atHour(block.from) - 2,
                          track.height() - 4);
        canvas.rounded(area, 6, Tint(block.colour, 82));
    }
}

void paintWeek(Canvas& canvas) {
    canvas.card(WeekCard);
    paintHours(canvas);
    const char* const days[] = {"Mon", "Tue", "Wed", "Thu", "Fri"};
    for (int day = 0; day < 5; ++day) paintDay(canvas, day, days[day], Workday);
    paintDay(canvas, 5, "Sat", Weekend);
    paintDay(canvas, 6, "Sun", Weekend);
}

void paintKey(Canvas& canvas, int index, Icon icon, const QColor& colour, const QString& name) {
    const QRect area = ProgramKey(index);
    canvas.card(area);
    canvas.icon(icon, QRectF(area.x() + 18, area.y() + 15, 24, 24), colour, 1.9);
    canvas.text(QRectF(area.x() + 54, area.y(), area.width() - 62, area.height()), name, style::Body);
}

} // namespace

Art PaintSchedule() {
    PageCanvas canvas(Place::Schedule);
    paintWeek(canvas);
    paintKey(canvas, 0, Icon::Sun, colour::Warm, "Comfort");
    paintKey(canvas, 1, Icon::Leaf, colour::Eco, "Eco");
    paintKey(canvas, 2, Icon::Moon, colour::Violet, "Night");
    paintKey(canvas, 3, Icon::Copy, colour::Text, "Copy day");
    return canvas.take();
}

} // namespace demo
