// Icons that show one picture of a run by the value of a variable. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <QRect>

namespace panel {

/// Draws the icon; a value out of its range brings back what lies behind. Obeys and clears IconPass.
void DisplayValueIcon(const Parameters& p);
void DisplayValueIconInGroup(const Parameters& p, QRect host);

} // namespace panel
