#include "host/camera_video_surface.h"

QList<QVideoFrame::PixelFormat>
CameraVideoSurface::supportedPixelFormats(QAbstractVideoBuffer::HandleType /*handleType*/) const {
    return {QVideoFrame::Format_RGB32};
}

bool CameraVideoSurface::present(const QVideoFrame& frame) {
    QVideoFrame mapped(frame);
    const QImage::Format format = QVideoFrame::imageFormatFromPixelFormat(frame.pixelFormat());
    if (format == QImage::Format_Invalid || !mapped.map(QAbstractVideoBuffer::ReadOnly)) return false;
    const QImage turned =
        QImage(mapped.bits(), mapped.width(), mapped.height(), mapped.bytesPerLine(), format)
            .mirrored(true, true);
    mapped.unmap();
    if (turned.isNull()) return false;
    emit sndImage(turned);
    return true; // anything else ends the stream of some back ends
}
