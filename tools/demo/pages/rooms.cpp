#include "demo/instrument_art.h"
#include "demo/layout.h"
#include "demo/pages/pages.h"

#include <array>

namespace demo {
namespace {

using namespace layout::rooms;

constexpr std::array Names{"Living area", "Bedroom", "Kitchen"};

void paintRing(Canvas& canvas) {
    const RingShape shape{Radius, Width, 45, 315};
    const QImage track = RingPicture(shape, colour::Track);
    canvas.painter().drawImage(Centre - QPoint(RingSide(shape) / 2, RingSide(shape) / 2), track);
    canvas.text(QRectF(Centre.x() - 80, Target.y() - 34, 160, 24), "Target", style::Body.in(colour::Muted),
                Qt::AlignCenter);
    canvas.text(QRectF(Centre.x() - 80, Target.bottom() + 4, 160, 24), "°C", style::Body.in(colour::Muted),
                Qt::AlignCenter);
    canvas.text(QRectF(Centre.x() - 80, Measured.y() - 22, 160, 18), "Indoors °C", style::Small,
                Qt::AlignCenter);
}

void paintDots(Canvas& canvas, int room) {
    for (int i = 0; i < static_cast<int>(Names.size()); ++i) {
        const QPoint at = Dot(i);
        canvas.rounded(QRectF(at.x() - 5, at.y() - 5, 10, 10), 5, i == room ? colour::Warm : colour::Track);
    }
}

void paintRoom(Canvas& canvas, const QString& name) {
    canvas.iconKey(BackKey, Icon::Home);
    canvas.text(Title, name, style::Title, Qt::AlignCenter);
    paintRing(canvas);
}

} // namespace

Art PaintThermostat() {
    Canvas canvas(layout::Screen, colour::Ground);
    paintRoom(canvas, Names.front());
    canvas.iconKey(RoomsKey, Icon::ChevronRight);
    return canvas.take();
}

Art PaintRoom(int room) {
    Canvas canvas(layout::Screen, colour::Ground);
    paintRoom(canvas, Names.at(static_cast<std::size_t>(room)));
    canvas.iconKey(ColderKey, Icon::Minus);
    canvas.iconKey(WarmerKey, Icon::Plus);
    paintDots(canvas, room);
    return canvas.take();
}

} // namespace demo
