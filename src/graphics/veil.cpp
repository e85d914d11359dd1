#include "graphics/veil.h"

#include "graphics/primitives.h"

namespace panel {

QImage VeiledFrame(const QImage& frame, std::uint8_t alpha) {
    if (alpha == 0) return frame;
    QImage veiled = frame;
    FillRectOver(veiled, veiled.rect(), QColor(0, 0, 0, alpha));
    return veiled;
}

} // namespace panel
