// The short film of the media demo: how a heat pump moves heat into a house.
#pragma once

#include <QImage>

#include <vector>

namespace demo {

inline constexpr QSize FilmSize{480, 270};
inline constexpr int FilmFramesPerSecond = 25;

/// The frames, in order; the last one leads on to the first.
std::vector<QImage> FilmFrames();

} // namespace demo
