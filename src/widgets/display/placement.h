// Where a display widget stands on the panel, and what lies behind it. Engine thread.
#pragma once

#include "graphics/image_blit.h"
#include "host/config_block.h"
#include "pages/parameters.h"

#include <QPoint>
#include <QRect>

#include <cstddef>
#include <cstdint>

namespace panel {

/// What is added to every position of a record: the open pop-up's top left corner.
inline QPoint PopupShift() { return PopupActive == 1 ? QPoint(PopupOriginX, PopupOriginY) : QPoint(); }

/// Puts the page's background back on the FrameSurface.
inline void RestoreBackground(QRect rect) { RestoreFrameRect(rect.topLeft(), PageImage, rect, DisplayWidth); }

/// The same from the clean copy of it, pixel by pixel.
void CopyBackgroundToFrame(QRect rect);

/// The rectangle whose first and last pixel a record names, x and y of each, from an offset on.
inline QRect ReadCorners(const Parameters& p, std::size_t at) {
    return {QPoint(p.u16(at), p.u16(at + 2)), QPoint(p.u16(at + 4), p.u16(at + 6))};
}

/// Draws a whole picture at `at` on the WorkSurface, over what is there. Returns false when there was nothing
/// to draw.
bool BlitToWork(const ImageRow& image, QPoint at);

// A widget composes on the WorkSurface from (0, 0) on. Its rectangle is in panel coordinates, or with
// `inList` not 0 in those of the sliding list's picture.

/// Puts what lies behind the widget on the WorkSurface.
void BackdropToWork(QRect rect, std::uint8_t inList);
/// Lands what the widget has composed: on the FrameSurface, or on the list, which shows it in its next
/// refresh.
void LandWork(QRect rect, std::uint8_t inList);

} // namespace panel
