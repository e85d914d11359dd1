#include "demo/canvas.h"

#include "demo/translations.h"

#include <QFontMetricsF>

namespace demo {
namespace {

constexpr int SmallestText = 8; // px
constexpr int CardPadding = 18;

QFont fittingFont(TextStyle style, const QString& words, qreal width) {
    QFont font = ThemeFont(style);
    while (style.size > SmallestText && QFontMetricsF(font).horizontalAdvance(words) > width) {
        --style.size;
        font = ThemeFont(style);
    }
    return font;
}

} // namespace

Canvas::Canvas(QSize size, const QColor& ground) : image_(size, QImage::Format_ARGB32_Premultiplied) {
    image_.fill(ground);
    painter_.begin(&image_);
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

Art Canvas::take() {
    painter_.end();
    return {image_, captions_};
}

void Canvas::text(const QRectF& area, const QString& words, const TextStyle& style, Qt::Alignment alignment) {
    if (IsTranslated(words)) {
        captions_.push_back({area.toRect(), words, style, alignment});
        return;
    }
    painter_.setFont(fittingFont(style, words, area.width()));
    painter_.setPen(style.colour);
    painter_.drawText(area, static_cast<int>(alignment | Qt::TextSingleLine | Qt::TextDontClip), words);
}

void Canvas::icon(Icon icon, const QRectF& area, const QColor& colour, qreal lineWidth) {
    painter_.save();
    painter_.translate(area.topLeft());
    painter_.scale(area.width() / IconGrid, area.height() / IconGrid);
    painter_.setPen(QPen(colour, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPath(IconPath(icon));
    painter_.restore();
}

void Canvas::badge(Icon symbol, const QRectF& area, const QColor& colour) {
    rounded(area, area.width() / 2, Tint(colour, 18));
    const qreal inset = area.width() * 0.24;
    icon(symbol, area.adjusted(inset, inset, -inset, -inset), colour, 2);
}

void Canvas::rounded(const QRectF& area, qreal radius, const QBrush& fill) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(fill);
    painter_.drawRoundedRect(area, radius, radius);
}

void Canvas::line(QPointF from, QPointF to, const QColor& colour, qreal width) {
    painter_.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
    painter_.drawLine(from, to);
}

void Canvas::card(const QRectF& area) {
    painter_.setPen(QPen(colour::CardEdge, 1));
    painter_.setBrush(colour::Card);
    painter_.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), CardRadius, CardRadius);
}

void Canvas::card(const QRect& area, const QString& heading) {
    card(area);
    text(QRectF(area.x() + CardPadding, area.y() + 10, area.width() - 2 * CardPadding, 26), heading,
         style::Heading);
}

void Canvas::well(const QRect& area, const QString& unit) {
    rounded(area, WellRadius, colour::Well);
    if (!unit.isEmpty())
        text(area.adjusted(4, 0, -10, 0), unit, style::Small, Qt::AlignRight | Qt::AlignVCenter);
}

void Canvas::key(const QRectF& area, const QColor& fill) { rounded(area, KeyRadius, fill); }

void Canvas::iconKey(const QRect& area, Icon symbol) {
    rounded(area, area.width() / 2.0, colour::Raised);
    const qreal inset = area.width() * 0.29;
    icon(symbol, QRectF(area).adjusted(inset, inset, -inset, -inset), colour::Text, 2.4);
}

void Canvas::labelKey(const QRect& area, const QString& label, const QColor& fill, const QColor& ink) {
    key(area, fill);
    text(area.adjusted(8, 0, -8, 0), label, TextStyle{15, QFont::DemiBold, ink}, Qt::AlignCenter);
}

void Canvas::sliderTrack(const QRect& area, int steps) {
    rounded(area, area.height() / 2.0, colour::Track);
    const qreal first = area.x() + area.height() / 2.0;
    const qreal span = area.width() - area.height();
    for (int i = 0; i < steps; ++i) {
        const qreal x = first + span * i / (steps - 1);
        line({x, area.bottom() + 7.0}, {x, area.bottom() + 11.0}, colour::Faint);
    }
}

void Canvas::switchTrack(const QRect& area) {
    rounded(area, area.height() / 2.0, colour::Well);
    painter_.setPen(QPen(colour::Track, 1.5));
    painter_.setBrush(Qt::NoBrush);
    const QRectF edge = QRectF(area).adjusted(0.75, 0.75, -0.75, -0.75);
    painter_.drawRoundedRect(edge, edge.height() / 2, edge.height() / 2);
}

} // namespace demo
