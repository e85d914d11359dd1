// Ring gauge: shows a value as the swept sector of a picture. Keeps no row; the record is read again at each
// drawing. Engine thread.
#pragma once

#include "pages/parameters.h"

namespace panel {

/// Draws the gauge whole; one without a usable foreground leaves the panel as it was.
void DisplayRingGauge(const Parameters& p);

} // namespace panel
