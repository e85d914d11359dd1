// The picture operations by their plain definition: one pixel at a time, with colours, single points and
// copies. Slow and obvious; the engine's row routines are held against it.
#pragma once

#include "graphics/image_blit.h"

namespace plain {

panel::BlitResult BlitImage(QImage& target, QPoint at, panel::ImageRow image, QRect source, int stride);
void DrawImage(QImage& target, QPoint at, panel::ImageRow image, int selector);
void RestoreFrameRect(QPoint at, panel::ImageRow image, QRect source, int stride);
void RestoreWorkRect(QPoint at, QRect source);

} // namespace plain
