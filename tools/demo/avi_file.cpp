#include "demo/avi_file.h"

#include <QBuffer>
#include <QDataStream>

#include <algorithm>

namespace demo {
namespace {

constexpr int JpegQuality = 88;
constexpr quint32 HasIndex = 0x10, KeyFrame = 0x10;
constexpr const char* FrameChunk = "00dc";

QByteArray u32(quint32 value) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << value;
    return bytes;
}

QByteArray words(std::initializer_list<quint32> values) {
    QByteArray bytes;
    for (const quint32 value : values) bytes += u32(value);
    return bytes;
}

/// A chunk: its name, its length, and its data filled up to an even length.
QByteArray chunk(const char* name, const QByteArray& data) {
    QByteArray bytes = name + u32(static_cast<quint32>(data.size())) + data;
    if (data.size() % 2) bytes += '\0';
    return bytes;
}

QByteArray list(const char* name, const QByteArray& chunks) { return chunk("LIST", name + chunks); }

QByteArray jpeg(const QImage& frame) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    frame.convertToFormat(QImage::Format_RGB888).save(&buffer, "JPG", JpegQuality);
    return bytes;
}

struct Shape {
    quint32 width, height, frames, framesPerSecond, largestFrame;
};

QByteArray header(const Shape& s) {
    return chunk("avih", words({1000000 / s.framesPerSecond, s.largestFrame * s.framesPerSecond, 0, HasIndex,
                                s.frames, 0, 1, s.largestFrame, s.width, s.height, 0, 0, 0, 0}));
}

QByteArray streamHeader(const Shape& s) {
    return chunk("strh", "vidsMJPG"
                             + words({0, 0, 0, 1, s.framesPerSecond, 0, s.frames, s.largestFrame, ~0u, 0, 0,
                                      s.width | s.height << 16}));
}

QByteArray streamFormat(const Shape& s) {
    constexpr quint32 onePlane24Bits = 1 | 24 << 16;
    return chunk("strf", words({40, s.width, s.height, onePlane24Bits}) + "MJPG"
                             + words({s.width * s.height * 3, 0, 0, 0, 0}));
}

} // namespace

QByteArray AviFile(const std::vector<QImage>& frames, int framesPerSecond) {
    QByteArray movie, index;
    quint32 largest = 0;
    for (const QImage& frame : frames) {
        const QByteArray data = jpeg(frame);
        const auto size = static_cast<quint32>(data.size());
        index += FrameChunk + words({KeyFrame, static_cast<quint32>(movie.size() + 4), size});
        movie += chunk(FrameChunk, data);
        largest = std::max(largest, size);
    }
    const Shape shape{static_cast<quint32>(frames.front().width()),
                      static_cast<quint32>(frames.front().height()), static_cast<quint32>(frames.size()),
                      static_cast<quint32>(framesPerSecond), largest};
    const QByteArray stream = list("strl", streamHeader(shape) + streamFormat(shape));
    return chunk("RIFF",
                 "AVI " + list("hdrl", header(shape) + stream) + list("movi", movie) + chunk("idx1", index));
}

} // namespace demo
