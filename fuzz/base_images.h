// Sound images that the fuzzers start from. Small panels, small fonts: many runs a second.
#pragma once

#include <QByteArray>

#include <vector>

namespace fuzz {

/// Together they hold every display kind and touch family, every pixel format, chip and colour mode. Their
/// order is part of the format of a recipe: new ones go to the end.
std::vector<QByteArray> BaseImages();

} // namespace fuzz
