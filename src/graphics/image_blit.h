// The four operations that turn an image row into pixels on a surface. Engine thread, unless a function tells
// otherwise.
//
// Nothing scales and nothing is drawn outside a surface. A picture that the routines do not know, or whose
// data are not there or broken, draws nothing unless a function tells otherwise; no picture can make them
// fail.
#pragma once

#include "graphics/image_row.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <cstdint>

namespace panel {

/// The mode (3, 4, 5) of the compressed picture decoded last; CopyToFrame() reads it, and on
/// small chips clears all but mode 3.
inline std::uint8_t LastZipMode = 0;

enum class BlitResult : int { BadData = -1, Nothing = 0, Done = 1 };

/// Draws the rectangle `source` (px, in the picture) at `at` on `target`. What lies on the target is the
/// backdrop of pictures with transparency; a compressed picture and a PngOpaque stand on black. `stride` is
/// the stored row length in pixels, before the padding of NAND images. RGB565 with the address of PageImage
/// asks for a piece of the page's background, whatever format that has.
BlitResult BlitImage(QImage& target, QPoint at, const ImageRow& image, QRect source, int stride);

/// The same for a whole picture on any thread: nothing takes part but the picture's own data. So no address
/// stands for the page's background, and pictures without data draw nothing. The caller sees to it that
/// nobody else paints on the target.
void BlitOwnData(QImage& target, QPoint at, const ImageRow& image);

/// Whether the two operations on whole and partial pictures draw anything of it: it has data, and a format
/// that they know in this colour mode.
bool DrawsSomething(const ImageRow& image);

/// Draws the rectangle `source` (panel coordinates) of the page's background at `at` on the WorkSurface.
void BlitPage(QPoint at, QRect source);

/// The surface that DrawImage() takes as backdrop of pictures with transparency.
enum class Backdrop : std::uint8_t { Page = 0, Frame = 1, Base = 2, Text = 3, ListB = 5 };

/// Draws a whole picture of image.Width x image.Height pixels at `at` on `target`, over a backdrop.
/// A compressed picture always lands on the FrameSurface, by way of the WorkSurface.
void DrawImage(QImage& target, QPoint at, const ImageRow& image, Backdrop backdrop);

/// Restores a piece of a background picture on the FrameSurface. `source` is in panel coordinates, and in the
/// picture as well, since pages lie at (0, 0); while a pop-up is open the piece comes from PageBackground.
void RestoreFrameRect(QPoint at, const ImageRow& image, QRect source, int stride);

/// Restores the piece `source` (panel coordinates) of the current background at `at` on the WorkSurface.
void RestoreWorkRect(QPoint at, QRect source);

/// Forgets all decoded pictures. Runs at each load, since decoded pictures are known by their place in the
/// image.
void DropDecodedPictures();

} // namespace panel
