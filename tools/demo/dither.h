// Dithering of painted pages to 16-bit colours.
#pragma once

#include <QImage>

namespace demo {

/// The picture in colours that 16-bit pixels hold exactly, the rounding spread over the neighbours so that
/// gradients show no bands. Opaque.
QImage DitherTo565(const QImage& picture);

} // namespace demo
