// Where the video player paints: hands each frame on instead.
#pragma once

#include <QAbstractVideoSurface>

/// Main thread. Takes frames in every format and passes on the sound ones.
class videosurface : public QAbstractVideoSurface {
    Q_OBJECT

public:
    using QAbstractVideoSurface::QAbstractVideoSurface;

    QList<QVideoFrame::PixelFormat>
    supportedPixelFormats(QAbstractVideoBuffer::HandleType handleType) const override;
    bool present(const QVideoFrame& frame) override;

signals:
    void showImage(QVideoFrame frame);
};
