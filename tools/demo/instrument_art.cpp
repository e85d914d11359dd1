#include "demo/instrument_art.h"

#include "demo/canvas.h"
#include "demo/texts.h"
#include "demo/translations.h"

#include <QFontMetrics>
#include <QLinearGradient>

#include <cmath>
#include <optional>

namespace demo {
namespace {

constexpr int DialStart = 225, DialSweep = 270; // degrees clockwise from straight up

/// The point in that direction, clockwise from straight up.
QPointF onCircle(QPointF centre, qreal degrees, qreal radius) {
    const qreal radians = degrees * M_PI / 180;
    return centre + QPointF(std::sin(radians), -std::cos(radians)) * radius;
}

/// An arc in the painter's degrees: sixteenths, counter-clockwise from three o'clock.
void strokeArc(Canvas& canvas, QPointF centre, qreal radius, qreal from, qreal sweep, const QPen& pen) {
    const auto sixteenths = [](qreal degrees) { return static_cast<int>(std::lround(degrees * 16)); };
    canvas.painter().setBrush(Qt::NoBrush);
    canvas.painter().setPen(pen);
    canvas.painter().drawArc(QRectF(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)),
                             sixteenths(90 - from), sixteenths(-sweep));
}

void paintMarks(Canvas& canvas, QPointF centre, qreal radius, const DialScale& scale) {
    constexpr int parts = 5; // of a step
    const int marks = scale.highest / scale.step * parts;
    for (int i = 0; i <= marks; ++i) {
        const qreal angle = DialStart + qreal(DialSweep) * i / marks;
        const bool numbered = i % parts == 0;
        canvas.line(onCircle(centre, angle, radius - 9),
                    onCircle(centre, angle, radius - (numbered ? 18 : 13)),
                    numbered ? colour::Text : colour::Faint, numbered ? 2 : 1);
        if (!numbered) continue;
        const QPointF at = onCircle(centre, angle, radius - 30);
        canvas.text(QRectF(at.x() - 14, at.y() - 8, 28, 16), QString::number(i / parts * scale.step),
                    style::Scale, Qt::AlignCenter);
    }
}

QPen ringPen(const QBrush& brush, qreal width) { return {brush, width, Qt::SolidLine, Qt::FlatCap}; }

} // namespace

QImage DayBarPicture(QSize size) {
    Canvas canvas(size, Qt::transparent);
    QLinearGradient fill(0, 0, 0, size.height());
    fill.setColorAt(0, colour::Hot);
    fill.setColorAt(0.45, colour::Warm);
    fill.setColorAt(1, colour::Cool);
    canvas.rounded(QRectF({0, 0}, size), WellRadius, fill);
    return canvas.take().image;
}

int RingSide(const RingShape& shape) { return 2 * (shape.radius + shape.width / 2 + shape.margin) + 1; }

QImage RingPicture(const RingShape& shape, const QBrush& brush) {
    const int side = RingSide(shape);
    Canvas canvas({side, shape.height > 0 ? shape.height : side}, Qt::transparent);
    QPen pen(brush, shape.width, Qt::SolidLine, shape.end - shape.start < 360 ? Qt::RoundCap : Qt::FlatCap);
    strokeArc(canvas, {side / 2.0, side / 2.0}, shape.radius, shape.start + 180, shape.end - shape.start,
              pen);
    return canvas.take().image;
}

QImage DialPicture(int side, const DialScale& scale) {
    Canvas canvas({side, side}, Qt::transparent);
    const QPointF centre(side / 2.0, side / 2.0);
    const qreal radius = side / 2.0 - 1;
    canvas.rounded(QRectF(1, 1, side - 2, side - 2), radius, colour::Well);
    const qreal red = qreal(DialSweep) * scale.redFrom / scale.highest;
    strokeArc(canvas, centre, radius - 4, DialStart, red, ringPen(colour::Track, 5));
    strokeArc(canvas, centre, radius - 4, DialStart + red, DialSweep - red, ringPen(colour::Hot, 5));
    paintMarks(canvas, centre, radius, scale);
    canvas.text(QRectF(centre.x() - 30, centre.y() + 22, 60, 16), scale.unit, style::Scale, Qt::AlignCenter);
    return canvas.take().image;
}

QImage HubPicture(int diameter) {
    Canvas canvas({diameter, diameter}, Qt::transparent);
    canvas.rounded(QRectF(0, 0, diameter, diameter), diameter / 2.0, colour::Track);
    canvas.rounded(QRectF(5, 5, diameter - 10, diameter - 10), diameter / 2.0 - 5, colour::Raised);
    return canvas.take().image;
}

QImage ClockFace(int side) {
    Canvas canvas({side, side}, Qt::transparent);
    const QPointF centre(side / 2.0, side / 2.0);
    const qreal radius = side / 2.0 - 1;
    canvas.rounded(QRectF(1, 1, side - 2, side - 2), radius, colour::Well);
    strokeArc(canvas, centre, radius - 2, 0, 360, ringPen(colour::Track, 3));
    for (int minute = 0; minute < 60; ++minute) {
        const bool hour = minute % 5 == 0;
        canvas.line(onCircle(centre, minute * 6, radius - 8),
                    onCircle(centre, minute * 6, radius - (hour ? 17 : 11)),
                    hour ? colour::Text : colour::Faint, hour ? 2.4 : 1);
    }
    return canvas.take().image;
}

int GlyphWidth(const QString& text, const TextStyle& style) {
    const QFontMetrics metrics(ThemeFont(style));
    const bool isDigit = text.size() == 1 && text.at(0).isDigit();
    return metrics.horizontalAdvance(isDigit ? QString('0') : text) + 1;
}

imagekit::Pixels GlyphPicture(const QString& text, const TextStyle& style, const QColor& ground) {
    const QRect cell(0, 0, GlyphWidth(text, style), LineHeight(style));
    Canvas canvas(cell.size(), ground);
    canvas.painter().setFont(ThemeFont(style));
    canvas.painter().setPen(style.colour);
    canvas.painter().drawText(cell, Qt::AlignCenter, text); // even if it has a translation
    return {canvas.take().image, imagekit::format::RGB565};
}

std::uint16_t AddGlyphPictures(imagekit::ImageBuilder& image, const QStringList& texts,
                               const TextStyle& style, const QColor& ground) {
    std::optional<std::uint16_t> first;
    for (const QString& text : texts) {
        const std::uint16_t index = image.addPicture(GlyphPicture(text, style, ground));
        first = first.value_or(index);
    }
    return first.value_or(imagekit::None);
}

void AddWeekdays(imagekit::ImageBuilder& image, const TextStyle& style, const QColor& ground) {
    for (const char* day : {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"})
        image.setPicture(AddGlyphPictures(image, {day}, style, ground), ChineseLanguage,
                         GlyphPicture(Chinese(day), style, ground));
}

QStringList TimeGlyphs() { return {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", ":"}; }

} // namespace demo
