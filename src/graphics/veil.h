// How brightness shows.
#pragma once

#include <QImage>

#include <cstdint>

namespace panel {

/// A frame as a person sees it: under a black veil of the given alpha, a DimValue. Any thread.
QImage VeiledFrame(const QImage& frame, std::uint8_t alpha);

} // namespace panel
