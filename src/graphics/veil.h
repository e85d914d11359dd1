// How brightness shows.
#pragma once

#include <QImage>

#include <cstdint>

namespace panel {

/// A frame as a person sees it: under a black veil of the given alpha, a DimValue. A veil of 0 costs nothing.
/// Any thread.
QImage VeiledFrame(const QImage& frame, std::uint8_t alpha);

} // namespace panel
