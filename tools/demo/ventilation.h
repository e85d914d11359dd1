// The controls and instruments of the ventilation: a level with its preset of air flows, and what they lead
// to.
#pragma once

#include "demo/project.h"

namespace demo {

void AddVentilation(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages);

} // namespace demo
