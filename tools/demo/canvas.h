// The drawing toolkit of the demo's pages: cards, keys, scales, icons and text in the look of the theme.
#pragma once

#include "demo/icons.h"
#include "demo/theme.h"

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QString>

#include <vector>

namespace demo {

/// A text of a page that a label shows, in the language of the panel.
struct Caption {
    QRect area;
    QString words; // in English
    TextStyle style;
    Qt::Alignment alignment;
};

/// What a page is made of before its live values are added.
struct Art {
    QImage image;
    std::vector<Caption> captions;
};

class Canvas {
public:
    Canvas(QSize size, const QColor& ground);

    /// For art of a page's own. Antialiased; give it back as it was.
    QPainter& painter() { return painter_; }
    /// Ends the painting.
    Art take();

    /// A text that has a translation becomes a caption; it may have several lines. Any other is painted, on
    /// one line, and shrinks where a wider face than the intended one would not fit.
    void text(const QRectF& area, const QString& words, const TextStyle& style,
              Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);
    void icon(Icon icon, const QRectF& area, const QColor& colour, qreal lineWidth = 1.7);
    /// An icon on a disc of the same hue.
    void badge(Icon icon, const QRectF& area, const QColor& colour);

    void rounded(const QRectF& area, qreal radius, const QBrush& fill);
    void line(QPointF from, QPointF to, const QColor& colour, qreal width = 1);
    void card(const QRectF& area);
    /// A card with its heading in the usual place.
    void card(const QRect& area, const QString& heading);
    /// The place of a live value, with its unit behind it.
    void well(const QRect& area, const QString& unit = {});
    void key(const QRectF& area, const QColor& fill = colour::Raised);
    void iconKey(const QRect& area, Icon icon);
    void labelKey(const QRect& area, const QString& label, const QColor& fill, const QColor& ink);
    /// A slider's track with a scale of `steps` marks under it.
    void sliderTrack(const QRect& area, int steps);
    void switchTrack(const QRect& area);

private:
    QImage image_;
    QPainter painter_;
    std::vector<Caption> captions_;
};

} // namespace demo
