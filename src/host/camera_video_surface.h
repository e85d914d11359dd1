// Where the camera paints: hands each picture on, turned as the panel shows it.
#pragma once

#include <QAbstractVideoSurface>
#include <QImage>

/// Main thread. The picture is always mirrored in both directions.
class CameraVideoSurface : public QAbstractVideoSurface {
    Q_OBJECT

public:
    using QAbstractVideoSurface::QAbstractVideoSurface;

    QList<QVideoFrame::PixelFormat>
    supportedPixelFormats(QAbstractVideoBuffer::HandleType handleType) const override;
    bool present(const QVideoFrame& frame) override;

signals:
    void sndImage(QImage image);
};
