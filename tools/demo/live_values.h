// The widgets that make the demo's pages live: numbers, texts of the store, turning fans and the timer.
#pragma once

#include "demo/project.h"
#include "demo/texts.h"

namespace demo {

/// Tells `texts` which characters the live texts take.
void NeedLiveTexts(Texts& texts);
/// Adds the widgets to the pages of `image`, and the texts of the store in all languages.
void AddLiveValues(imagekit::ImageBuilder& image, Texts& texts);

} // namespace demo
