// Where a display widget stands on the panel, and what lies behind it.
#pragma once

#include "graphics/image_blit.h"
#include "host/config_block.h"

#include <QPoint>
#include <QRect>

namespace panel {

/// What is added to every position of a record: the open pop-up's top left corner. Engine thread.
inline QPoint PopupShift() { return PopupActive == 1 ? QPoint(PopupOriginX, PopupOriginY) : QPoint(); }

/// Puts the page's background back on the FrameSurface. Engine thread.
inline void RestoreBackground(QRect rect) { RestoreFrameRect(rect.topLeft(), PageImage, rect, DisplayWidth); }

} // namespace panel
