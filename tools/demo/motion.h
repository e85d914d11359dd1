// What moves under a finger on the demo, or turns with the rotary encoder: rooms that slide into each other,
// a list of messages, a menu.
#pragma once

#include "demo/project.h"

#include "imagekit/image_builder.h"

#include <vector>

namespace demo {

void AddMotion(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages);

} // namespace demo
