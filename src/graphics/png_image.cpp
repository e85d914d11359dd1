#include "graphics/png_image.h"

#include "graphics/pixels.h"
#include "graphics/zip_image.h"
#include "host/flash_image.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <utility>

namespace panel {
namespace {

bool isLoadable(QSize size) {
    return !size.isEmpty() && std::int64_t{size.width()} * size.height() <= LargestPicturePixels;
}

/// Qt premultiplies whole pictures with another rounding than single colours, so this is done here.
QImage premultiplied(QImage picture) {
    picture = std::move(picture).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<Pixel*>(picture.scanLine(y));
        PremultiplyRow(row, row, picture.width());
    }
    picture.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    return picture;
}

/// A picture file that lies in the image.
struct PictureFile {
    QByteArray bytes;
    QBuffer buffer;
    QImageReader reader;

    PictureFile(std::uint32_t address, std::uint32_t length) {
        const auto there = FlashBytes(address, length);
        bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(there.data()),
                                        static_cast<int>(there.size()));
        buffer.setBuffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        reader.setDevice(&buffer);
        reader.setFormat("png"); // no other decoder of the computer
        reader.setAutoDetectImageFormat(false);
    }
    QSize size() const { return isLoadable(reader.size()) ? reader.size() : QSize(); }
};

} // namespace

QImage DecodePng(std::uint32_t address, std::uint32_t length) {
    PictureFile file(address, length);
    if (file.size().isEmpty()) return {}; // the head is looked at before any memory is taken
    QImage picture = file.reader.read();
    if (!isLoadable(picture.size())) return {};
    if (picture.hasAlphaChannel()) return premultiplied(std::move(picture));
    return std::move(picture).convertToFormat(QImage::Format_RGB32);
}

QSize PngSize(std::uint32_t address, std::uint32_t length) { return PictureFile(address, length).size(); }

bool IsPngAt(std::uint32_t address) {
    static constexpr std::array<std::uint8_t, 8> Signature{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
    return std::ranges::equal(FlashBytes(address, Signature.size()), Signature);
}

} // namespace panel
