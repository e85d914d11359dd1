// Brings the panel's frames to the view: under the brightness veil, in the zoom in force, and only when there
// is something new to see.
#pragma once

#include <QImage>

#include <cstdint>

class QLabel;

/// Main thread.
class FramePresenter {
public:
    /// `view` shows the frames; it takes the size of the picture. Not owned.
    explicit FramePresenter(QLabel& view) : view_(view) {}

    /// Shows a frame. `veil` is the alpha of the black laid over it, `zoom` the scale of the view. Costs
    /// nothing when all that was shown last. Keeps a shared copy of the frame.
    void show(const QImage& frame, std::uint8_t veil, float zoom);

    /// Shows the last frame again, under another veil or zoom.
    void showAgain(std::uint8_t veil, float zoom) { show(frame_, veil, zoom); }

private:
    struct Shown {
        qint64 frame = 0; // cache key
        std::uint8_t veil = 0;
        float zoom = 0;
        qreal deviceRatio = 0;
        bool operator==(const Shown&) const = default;
    };

    QLabel& view_;
    QImage frame_;
    Shown shown_;
};

/// Size of the view of a frame, in the window's pixels.
QSize ZoomedSize(QSize frame, float zoom);
