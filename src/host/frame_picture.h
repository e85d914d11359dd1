// From the frames of a video or a camera to the pictures that lie over the view.
#pragma once

#include <QImage>
#include <QPoint>
#include <QSize>

#include <cstdint>

class QVideoFrame;

/// The picture of a frame; a null image when it cannot be read. A frame on the graphics card needs its OpenGL
/// context to be the current one.
QImage FrameToImage(const QVideoFrame& frame);

/// The frame scaled into a transparent picture of `size`, in the middle and with its own proportions. Null
/// for an empty size.
QImage ComposeVideoPicture(const QImage& frame, QSize size);

/// What of a picture at `at` lies on a panel of `panel` pixels; null when nothing does.
QImage ClippedToPanel(const QImage& picture, QPoint at, QSize panel);

/// The picture as the view shows it: at the view's scale, under the panel's veil.
QImage ZoomedUnderVeil(const QImage& picture, float zoom, std::uint8_t veil);

/// A camera picture under the veil, at the view's scale and then scaled to cover `size` at that scale.
QImage ComposeCameraPicture(const QImage& image, QSize size, float zoom, std::uint8_t veil);

/// Where a point of the panel lies in the view.
QPoint ZoomedPoint(QPoint point, float zoom);
