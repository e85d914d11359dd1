// label: shows a text of the store, or a string of the image in the language in force. Keeps no row; the
// record is read again at each drawing. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <QRect>

namespace panel {

void DisplayLabel(const Parameters& p);
/// Draws the label on the WorkSurface, whose (0, 0) stands for the top left corner of `host`.
void DisplayLabelInGroup(const Parameters& p, QRect host);

} // namespace panel
