#include "host/frame_presenter.h"

#include "graphics/veil.h"

#include <QLabel>
#include <QPixmap>

QSize ZoomedSize(QSize frame, float zoom) {
    return {qRound(static_cast<float>(frame.width()) * zoom),
            qRound(static_cast<float>(frame.height()) * zoom)};
}

void FramePresenter::show(const QImage& frame, std::uint8_t veil, float zoom) {
    const Shown now{
        .frame = frame.cacheKey(), .veil = veil, .zoom = zoom, .deviceRatio = view_.devicePixelRatioF()};
    if (now == shown_) return;
    shown_ = now;
    frame_ = frame;

    // On a dense screen the picture is scaled once, straight to the screen's own pixels.
    const QSize deviceSize = QSizeF(ZoomedSize(frame.size(), zoom) * now.deviceRatio).toSize();
    QPixmap pixmap = QPixmap::fromImage(
        panel::VeiledFrame(frame, veil).scaled(deviceSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(now.deviceRatio);
    view_.setPixmap(pixmap);
    view_.resize(ZoomedSize(frame.size(), zoom));
}
