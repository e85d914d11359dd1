#include "demo/instrument_art.h"

#include "demo/canvas.h"

#include <QLinearGradient>

namespace demo {

QImage DayBarPicture(QSize size) {
    Canvas canvas(size, Qt::transparent);
    QLinearGradient fill(0, 0, 0, size.height());
    fill.setColorAt(0, colour::Hot);
    fill.setColorAt(0.45, colour::Warm);
    fill.setColorAt(1, colour::Cool);
    canvas.rounded(QRectF({0, 0}, size), WellRadius, fill);
    return canvas.take().image;
}

} // namespace demo
