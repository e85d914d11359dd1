// What moves on the page of the forecast: its list of hours, a compass and a ring.
#pragma once

#include "imagekit/image_builder.h"

namespace demo {

void AddForecast(imagekit::ImageBuilder& image);

} // namespace demo
