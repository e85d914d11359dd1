// The clock that stands alone on a panel in standby, and the ways back from it.
#pragma once

#include "imagekit/image_builder.h"

namespace demo {

void AddStandby(imagekit::ImageBuilder& image);

} // namespace demo
