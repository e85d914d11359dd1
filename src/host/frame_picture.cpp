#include "host/frame_picture.h"

#include "graphics/veil.h"
#include "host/frame_presenter.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QPainter>
#include <QVideoFrame>

namespace {

/// Compressed frames are whole image files.
bool isCompressed(QVideoFrame::PixelFormat format) {
    return format == QVideoFrame::Format_Jpeg || format == QVideoFrame::Format_CameraRaw
           || format == QVideoFrame::Format_AdobeDng;
}

QImage decodedFrame(QVideoFrame frame) {
    if (!frame.map(QAbstractVideoBuffer::ReadOnly)) return {};
    const QImage image = QImage::fromData(frame.bits(), frame.mappedBytes());
    frame.unmap();
    return image;
}

QImage textureImage(const QVideoFrame& frame) {
    QOpenGLContext* context = QOpenGLContext::currentContext();
    if (!context) return {};
    QImage image(frame.size(), QImage::Format_ARGB32);
    if (image.isNull()) return {};

    QOpenGLFunctions& gl = *context->functions();
    GLint previous = 0;
    gl.glGetIntegerv(GL_FRAMEBUFFER_BINDING, &previous);
    GLuint buffer = 0;
    gl.glGenFramebuffers(1, &buffer);
    gl.glBindFramebuffer(GL_FRAMEBUFFER, buffer);
    gl.glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, frame.handle().toUInt(),
                              0);
    const bool readable = gl.glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    if (readable)
        gl.glReadPixels(0, 0, image.width(), image.height(), GL_RGBA, GL_UNSIGNED_BYTE, image.bits());
    gl.glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(previous));
    gl.glDeleteFramebuffers(1, &buffer);
    return readable ? image.rgbSwapped() : QImage();
}

} // namespace

QImage FrameToImage(const QVideoFrame& frame) {
    if (frame.handleType() == QAbstractVideoBuffer::GLTextureHandle) return textureImage(frame);
    if (frame.handleType() != QAbstractVideoBuffer::NoHandle) return {};
    const QImage image = isCompressed(frame.pixelFormat()) ? decodedFrame(frame) : frame.image();
    return image.isNull() ? image : image.convertToFormat(QImage::Format_ARGB32);
}

QImage ComposeVideoPicture(const QImage& frame, QSize size) {
    if (size.isEmpty()) return {};
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) return {};
    picture.fill(Qt::transparent);
    if (frame.isNull()) return picture;
    const QImage scaled = frame.scaled(size, Qt::KeepAspectRatio, Qt::FastTransformation);
    QPainter(&picture).drawImage((size.width() - scaled.width()) / 2, (size.height() - scaled.height()) / 2,
                                 scaled);
    return picture;
}

QImage ClippedToPanel(const QImage& picture, QPoint at, QSize panel) {
    const QSize room(panel.width() - at.x(), panel.height() - at.y());
    const QSize kept = picture.size().boundedTo(room);
    if (kept.isEmpty()) return {}; // copy() takes an empty rectangle for the whole
    return kept == picture.size() ? picture : picture.copy(QRect(QPoint(), kept));
}

QImage ZoomedUnderVeil(const QImage& picture, float zoom, std::uint8_t veil) {
    const QImage zoomed =
        picture.scaled(ZoomedSize(picture.size(), zoom), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    return panel::VeiledFrame(zoomed, veil);
}

QImage ComposeCameraPicture(const QImage& image, QSize size, float zoom, std::uint8_t veil) {
    return panel::VeiledFrame(image, veil)
        .scaled(ZoomedSize(image.size(), zoom), Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation)
        .scaled(ZoomedSize(size, zoom), Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QPoint ZoomedPoint(QPoint point, float zoom) {
    return {qRound(static_cast<float>(point.x()) * zoom), qRound(static_cast<float>(point.y()) * zoom)};
}
