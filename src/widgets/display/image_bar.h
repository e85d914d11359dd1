// imageBar: a picture that is cut to the length that a variable gives, over another picture or the page.
// Keeps no row; the record is read again at each drawing. Engine thread.
#pragma once

#include "pages/parameters.h"

namespace panel {

/// Draws the bar and what lies behind it.
void DisplayImageBar(const Parameters& p);

} // namespace panel
