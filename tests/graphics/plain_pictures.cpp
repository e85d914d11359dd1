#include "tests/graphics/plain_pictures.h"

#include "graphics/colour.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "host/flash_image.h"

#include <QPainter>

#include <functional>

namespace plain {
namespace {

using namespace panel;

/// Columns and rows further on cannot be seen in the tests.
int widestSurface() { return ListSurfaceA.width() + 25; }

/// No colour at all for a format that the panel does not know.
QColor readPixel(std::uint32_t address, std::uint32_t index, int format) {
    if (format == 1) format = 0;
    const auto byte = [&](std::uint32_t size, std::uint32_t at) {
        return int{ReadU8(address + size * index + at)};
    };
    const auto rgb565 = [&](std::uint32_t size, int alpha) {
        const int word = byte(size, 0) | byte(size, 1) << 8;
        return QColor(((word >> 11) * 255 + 15) / 31, ((word >> 5 & 63) * 255 + 31) / 63,
                      ((word & 31) * 255 + 15) / 31, alpha);
    };
    const bool wide = ICType == 5 && ColourMode == 1 && (format == 0 || format == 2);
    if (ColourMode > 1) return {};
    if (format == 6 || wide) return {byte(4, 2), byte(4, 1), byte(4, 0), byte(4, 3)};
    if (format == 2)
        return {(byte(2, 1) & 15) * 17, (byte(2, 0) >> 4) * 17, (byte(2, 0) & 15) * 17,
                (byte(2, 1) >> 4) * 17};
    if (format == 0 && ColourMode == 1) return {byte(3, 2), byte(3, 1), byte(3, 0)};
    if (format == 0) return rgb565(2, 255);
    if (format == 8 && ColourMode == 0) return rgb565(3, byte(3, 2));
    return {};
}

void blend(QImage& picture, int x, int y, const QColor& colour) {
    if (colour.alpha() == 0) return;
    QPainter painter(&picture);
    painter.setPen(colour);
    const QPoint point(x, y);
    painter.drawPoints(&point, 1);
}

void replace(QImage& picture, int x, int y, const QColor& colour) {
    if (picture.valid(x, y)) picture.setPixelColor(x, y, colour);
}

void land(QImage& target, QPoint at, const QImage& picture) {
    QPainter painter(&target);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(at, picture);
}

void fill(QImage& target, QPoint at, QSize size, const QColor& colour) {
    QPainter painter(&target);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (!size.isEmpty()) painter.fillRect(QRect(at, size), colour);
}

QImage cut(const QImage& picture, QRect rect) { return rect.isEmpty() ? QImage() : picture.copy(rect); }

QImage loadPng(const ImageRow& image) {
    const auto bytes = FlashBytes(image.Address, image.Extra);
    QImage loaded;
    if (!loaded.loadFromData(bytes.data(), static_cast<int>(bytes.size()))) return {};
    if (!loaded.hasAlphaChannel()) return loaded.convertToFormat(QImage::Format_RGB32);
    QImage stored(loaded.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < loaded.height(); ++y)
        for (int x = 0; x < loaded.width(); ++x) stored.setPixelColor(x, y, loaded.pixelColor(x, y));
    return stored;
}

int limited(int w, int h) { return ICType < 3 && w > 0 && 2 * w * h > 80000 ? 40000 / w : h; }

bool isDefined(const ImageRow& image) { return readPixel(0, 0, image.Format).isValid(); }

using Paint = std::function<void(QImage&, int, int, const QColor&)>;

void readRaw(QImage& picture, const ImageRow& image, QRect source, int stride, const Paint& paint) {
    if (NandFlash && stride % 4 != 0) stride = stride / 4 * 4 + 4;
    for (int y = 0; y < std::min(source.height(), widestSurface()); ++y)
        for (int x = 0; x < std::min(source.width(), widestSurface()); ++x) {
            const int index = (source.y() + y) * stride + source.x() + x;
            paint(picture, x, y, readPixel(image.Address, static_cast<std::uint32_t>(index), image.Format));
        }
}

void landRaw(QImage& target, QPoint at, const ImageRow& image, QRect source, int stride) {
    if (source.isEmpty() || !isDefined(image)) return;
    QImage picture(source.size(), QImage::Format_ARGB32_Premultiplied);
    readRaw(picture, image, source, stride, replace);
    land(target, at, picture);
}

void copyRect(QImage& target, QPoint at, const QImage& source, QRect rect) {
    land(target, at, cut(source, rect));
}

void landPng(QImage& target, QPoint at, const ImageRow& image, QRect source) {
    fill(target, at, source.size(), Qt::black);
    copyRect(target, at, loadPng(image), source);
}

/// Formats 1, 2, 6, 8, 10 and 11 over a backdrop.
void landOver(QImage& target, QPoint at, const ImageRow& image, QRect source, int stride, QImage backdrop) {
    if (backdrop.isNull()) return;
    const bool isPicture = image.Format == 10 || image.Format == 11;
    if (!isPicture && !isDefined(image)) return;
    if (isPicture) {
        const QImage piece = cut(image.Format == 10 ? loadPng(image) : ImageScratchSurface, source);
        for (int y = 0; y < std::min(piece.height(), widestSurface()); ++y)
            for (int x = 0; x < std::min(piece.width(), widestSurface()); ++x)
                blend(backdrop, x, y, piece.pixelColor(x, y));
    } else if (image.Format == 1) {
        readRaw(backdrop, image, source, stride, [](QImage& picture, int x, int y, const QColor& colour) {
            if ((colour.rgb() & 0xFFFFFF) != 0) replace(picture, x, y, colour);
        });
    } else {
        readRaw(backdrop, image, source, stride, blend);
    }
    land(target, at, backdrop);
}

struct Head {
    int width, height, segments, mode;
};
Head readHead(std::uint32_t address) {
    return {ReadU16(address + 2), ReadU16(address + 4), ReadU8(address + 6), ReadU8(address + 7) & 15};
}

void decodeZip(std::uint32_t address, QImage& picture, const Paint& paint) {
    const Head head = readHead(address);
    std::uint32_t data = address + 12 + 516 * static_cast<std::uint32_t>(head.segments);
    int p = 0;
    for (int segment = 0; segment < head.segments; ++segment) {
        const std::uint32_t entry = address + 12 + 516 * static_cast<std::uint32_t>(segment);
        const std::uint32_t length = ReadU24(entry);
        const int coding = ReadU8(entry + 3);
        const auto put = [&](int index, int count) {
            const std::uint32_t word = ReadU16(entry + 4 + 2 * static_cast<std::uint32_t>(index));
            const bool transparent = (head.mode == 4 && word == 0) || (head.mode == 5 && word >> 12 == 0);
            const QColor colour =
                ExpandColour(word, head.mode == 5 ? ColourKind::WithAlpha : ColourKind::Opaque);
            for (; count > 0; --count, ++p)
                if (head.mode >= 3 && head.mode <= 5 && !transparent && p < head.width * head.height)
                    paint(picture, p % head.width, p / head.width, colour);
        };
        for (std::uint32_t i = 0; coding == 0 && i < length; ++i) put(ReadU8(data + i), 1);
        for (std::uint32_t i = 0; coding == 1 && i + 1 < length; i += 2)
            put(ReadU8(data + i + 1), ReadU8(data + i) + 1);
        data += length;
    }
}

BlitResult blitZip(QImage& target, QPoint at, std::uint32_t address, QRect source) {
    if (ReadU16(address) != ('Z' | 'R' << 8)) return BlitResult::BadData;
    const Head head = readHead(address);
    LastZipMode = static_cast<std::uint8_t>(head.mode);
    CurrentImage.Height = static_cast<std::uint16_t>(limited(head.width, head.height));
    QImage picture(head.width, CurrentImage.Height, QImage::Format_ARGB32_Premultiplied);
    picture.fill(0);
    decodeZip(address, picture, replace);
    fill(target, at, source.size(), Qt::black);
    if (!source.isEmpty() && !picture.isNull()) QPainter(&target).drawImage(at, picture, source);
    return BlitResult::Done;
}

void drawZip(QPoint at, const ImageRow& image, const QImage& behind) {
    if (ReadU16(image.Address) != ('Z' | 'R' << 8)) return;
    const Head head = readHead(image.Address);
    LastZipMode = static_cast<std::uint8_t>(head.mode);
    if (head.mode < 3 || head.mode > 5 || (head.mode != 3 && behind.isNull())) return;
    const QSize size(head.width, head.mode == 3 ? head.height : limited(head.width, head.height));
    if (head.mode == 3)
        fill(WorkSurface, {0, 0}, size, Qt::black);
    else
        copyRect(WorkSurface, {0, 0}, behind, {at, size});
    decodeZip(image.Address, WorkSurface, blend);
    CopyToFrame(WorkSurface, {{0, 0}, size}, at);
}

bool isZip(int format) { return format >= 3 && format <= 5; }

} // namespace

BlitResult BlitImage(QImage& target, QPoint at, ImageRow image, QRect source, int stride) {
    if (source.width() == 0) return BlitResult::Nothing;
    source.setHeight(limited(source.width(), source.height()));
    if (isZip(image.Format)) return blitZip(target, at, image.Address, source);
    const bool isPage = image.Address == PageImage.Address, standsForPage = isPage && image.Format == 0;
    const int pageFormat = PageImage.Format;
    if (standsForPage && (PopupActive == 1 || pageFormat == 3))
        copyRect(target, at, PageBackground, source);
    else if ((standsForPage && pageFormat == 16) || (isPage && image.Format == 16))
        fill(target, at, source.size(), ExpandColour(PageImage.Extra, ColourKind::Opaque));
    else if (standsForPage && (pageFormat == 7 || pageFormat == 10))
        landPng(target, at, PageImage, source);
    else if (standsForPage && (pageFormat == 2 || pageFormat == 6))
        landRaw(target, at, PageImage, source, stride);
    else if (image.Format == 0)
        landRaw(target, at, image, source, stride);
    else if (image.Format == 7)
        landPng(target, at, image, source);
    else
        landOver(target, at, image, source, stride, cut(target, {at, source.size()}));
    return BlitResult::Done;
}

void DrawImage(QImage& target, QPoint at, ImageRow image, int selector) {
    const QImage* surfaces[] = {&PageBackground, &FrameSurface, &BaseSurface,
                                &TextSurface,    nullptr,       &ListSurfaceB};
    const bool refused =
        (selector == 3 && (image.Format == 1 || isZip(image.Format))) || (selector == 5 && image.Format == 8);
    const QImage behind = selector > 5 || refused || !surfaces[selector] ? QImage() : *surfaces[selector];
    QRect whole(0, 0, image.Width, image.Height);
    const int stride = image.Width;
    if (isZip(image.Format)) return drawZip(at, image, behind);
    if (image.Format == 1 || image.Format == 2 || image.Format == 8)
        whole.setHeight(limited(whole.width(), whole.height()));
    if (image.Format == 2 && ReadU32(image.Address) == 0x474E5089) image.Format = 10;
    const bool fillsDisplay = image.Width == DisplayWidth && image.Height == DisplayHeight;
    if (image.Format == 16)
        fill(target, at, whole.size(), ExpandColour(image.Extra, ColourKind::Opaque));
    else if (image.Format == 0 || (image.Format == 6 && fillsDisplay))
        landRaw(target, at, image, whole, stride);
    else if (image.Format == 7)
        land(target, at, loadPng(image));
    else if (image.Format != 11 && !behind.isNull())
        landOver(target, at, image, whole, stride, cut(behind, {at, whole.size()}));
}

void RestoreFrameRect(QPoint at, ImageRow image, QRect source, int stride) {
    const bool isPage = image.Address == PageImage.Address;
    const bool otherColour = image.Format == 16 && image.Extra != PageImage.Extra;
    if ((isPage && PopupActive == 1 && !otherColour) || isZip(image.Format)
        || (isPage && image.Format == 7)) {
        copyRect(FrameSurface, at, PageBackground, source);
        return;
    }
    if (image.Format == 1 || image.Format == 2) source.setHeight(limited(source.width(), source.height()));
    if (image.Format == 16)
        fill(FrameSurface, at, source.size(), ExpandColour(image.Extra, ColourKind::Opaque));
    else if (image.Format == 0)
        landRaw(FrameSurface, at, image, source, stride);
    else if (image.Format == 7)
        landPng(FrameSurface, at, image, source);
    else if (image.Format != 11)
        landOver(FrameSurface, at, image, source, stride, cut(PageBackground, source));
}

void RestoreWorkRect(QPoint at, QRect source) {
    const int format = PageImage.Format;
    if (PopupActive == 1 || format == 3)
        copyRect(WorkSurface, at, PageBackground, source);
    else if (format == 0 || format == 1 || format == 2 || format == 6 || format == 7 || format == 10
             || format == 16)
        plain::BlitImage(WorkSurface, at, PageImage, source, DisplayWidth);
}

} // namespace plain
