// The demo's instruments: bars, gauges, clocks, charts, and what keeps their values on the move.
#pragma once

#include "demo/keyboards.h"

#include "imagekit/image_builder.h"

namespace demo {

/// To be added before the numbers that stand on them.
void AddInstruments(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages,
                    const EntryFont& messageFont);

} // namespace demo
