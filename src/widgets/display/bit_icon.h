// Icons that show one of two pictures by a bit of a variable. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <QRect>

namespace panel {

void DisplayBitIcon(const Parameters& p);
void DisplayBitIconInGroup(const Parameters& p, QRect host);

/// Whether the icon's own bit differs between the stores; the other bits of the word do not count.
bool BitChanged(const Parameters& p);
/// The same for an icon in a group, of which only the inline form is looked at.
bool BitChangedInGroup(const Parameters& p);

} // namespace panel
