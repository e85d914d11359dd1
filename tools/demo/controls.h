// Everything on the demo's pages that a finger can press, and what shows the choices made.
#pragma once

#include "demo/project.h"
#include "demo/texts.h"

#include "imagekit/image_builder.h"

#include <vector>

namespace demo {

/// Adds the touch widgets of all pages and the captions, those of keys as part of the keys.
void AddControls(imagekit::ImageBuilder& image, Texts& texts, const std::vector<PaintedPage>& pages);

} // namespace demo
