#include "demo/film.h"

#include "demo/canvas.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace demo {
namespace {

constexpr int FrameCount = 4 * FilmFramesPerSecond;
constexpr QRectF Pipe(150, 84, 190, 112); // the refrigerant's way round
constexpr QRectF OutdoorUnit(36, 92, 96, 96);
constexpr QRectF House(356, 80, 96, 116);

void paintSky(Canvas& canvas) {
    QLinearGradient sky(0, 0, 0, FilmSize.height());
    sky.setColorAt(0, colour::Rail);
    sky.setColorAt(0.75, colour::Card);
    sky.setColorAt(0.76, colour::Ground);
    sky.setColorAt(1, colour::Rail);
    canvas.painter().fillRect(QRect({0, 0}, FilmSize), sky);
}

/// Air on its way into the unit.
void paintAir(Canvas& canvas, double turn) {
    for (int i = 0; i < 5; ++i) {
        const double way = std::fmod(turn * 2 + i / 5.0, 1.0);
        const double y = 104 + 18 * i;
        canvas.line({-20 + 60 * way, y}, {-4 + 60 * way, y},
                    Tint(colour::Cool, static_cast<int>(80 * (1 - way))), 2);
    }
}

void paintUnit(Canvas& canvas, double turn) {
    canvas.rounded(OutdoorUnit, 12, colour::Text);
    canvas.rounded(OutdoorUnit.adjusted(12, 12, -12, -12), 36, colour::Card);
    QPainter& painter = canvas.painter();
    painter.save();
    painter.translate(OutdoorUnit.center());
    painter.rotate(360 * turn * 4);
    canvas.icon(Icon::Fan, QRectF(-28, -28, 56, 56), colour::Cool, 1.6);
    painter.restore();
}

void paintHouse(Canvas& canvas, double turn) {
    QPainterPath roof(QPointF(House.x() - 8, House.y() + 34));
    roof.lineTo(House.center().x(), House.y() - 14);
    roof.lineTo(House.right() + 8, House.y() + 34);
    roof.closeSubpath();
    canvas.painter().setPen(Qt::NoPen);
    canvas.painter().setBrush(colour::Raised);
    canvas.painter().drawPath(roof);
    canvas.rounded(House.adjusted(0, 34, 0, 0), 4, colour::Card);
    const int glow = 60 + static_cast<int>(25 * std::sin(2 * std::numbers::pi * turn));
    canvas.rounded(QRectF(House.x() + 16, House.y() + 52, 64, 40), 6, Tint(colour::Warm, glow));
    canvas.icon(Icon::Radiator, QRectF(House.x() + 32, House.y() + 56, 32, 32), colour::Hot);
}

/// Warm drops go over the top to the house, cold ones come back below.
void paintCircuit(Canvas& canvas, double turn) {
    QPainterPath circuit;
    circuit.addRoundedRect(Pipe, 24, 24);
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(QPen(colour::Track, 9));
    canvas.painter().drawPath(circuit);
    constexpr int drops = 24;
    for (int i = 0; i < drops; ++i) {
        const QPointF at = circuit.pointAtPercent(std::fmod(turn + static_cast<double>(i) / drops, 1.0));
        const bool warm = at.y() < Pipe.center().y();
        canvas.rounded(QRectF(at.x() - 4, at.y() - 4, 8, 8), 4, warm ? colour::Hot : colour::Cool);
    }
}

void paintTitle(Canvas& canvas, double turn) {
    canvas.text(QRectF(0, 22, FilmSize.width(), 30), "Heat from thin air",
                TextStyle{22, QFont::DemiBold, colour::Text}, Qt::AlignCenter);
    const QRectF progress(40, FilmSize.height() - 24, FilmSize.width() - 80, 4);
    canvas.rounded(progress, 2, colour::Track);
    canvas.rounded({progress.topLeft(), QSizeF(progress.width() * turn, progress.height())}, 2, colour::Warm);
}

} // namespace

std::vector<QImage> FilmFrames() {
    std::vector<QImage> frames;
    for (int i = 0; i < FrameCount; ++i) {
        const double turn = static_cast<double>(i) / FrameCount;
        Canvas canvas(FilmSize, colour::Ground);
        paintSky(canvas);
        paintAir(canvas, turn);
        paintCircuit(canvas, turn);
        paintUnit(canvas, turn);
        paintHouse(canvas, turn);
        paintTitle(canvas, turn);
        frames.push_back(canvas.take().image);
    }
    return frames;
}

} // namespace demo
