#include "host/video_surface.h"

QList<QVideoFrame::PixelFormat>
videosurface::supportedPixelFormats(QAbstractVideoBuffer::HandleType /*handleType*/) const {
    QList<QVideoFrame::PixelFormat> formats;
    for (int format = QVideoFrame::Format_ARGB32; format <= QVideoFrame::Format_AdobeDng; ++format)
        formats << static_cast<QVideoFrame::PixelFormat>(format);
    return formats;
}

bool videosurface::present(const QVideoFrame& frame) {
    if (!frame.isValid()) return false; // a file may end in one
    emit showImage(frame);
    return true;
}
