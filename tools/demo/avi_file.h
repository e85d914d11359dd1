// Videos for the demo: AVI files of JPEG pictures, without sound.
#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

namespace demo {

/// `frames` are of one size, at least one of them.
QByteArray AviFile(const std::vector<QImage>& frames, int framesPerSecond);

} // namespace demo
