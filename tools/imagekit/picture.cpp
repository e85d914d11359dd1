#include "imagekit/picture.h"

#include "imagekit/image_error.h"

#include <QBuffer>

#include <algorithm>

namespace imagekit {
namespace {

constexpr int LargestSide = 65535;
constexpr std::uint32_t LargestExtra = 0xFFFFFF;
constexpr std::uint8_t FileMediaChip = 5; // stores 32-bit pixels in colour mode 1
constexpr std::uint16_t Darkest565 = 0x0020;
constexpr QRgb Darkest24 = 0xFF000001;
constexpr QRgb Clear = 0;

/// An 8-bit channel rounded to the nearest step of a channel that ends at `largest`.
std::uint32_t toSteps(int channel, std::uint32_t largest) {
    return (static_cast<std::uint32_t>(channel) * largest + 127) / 255;
}

std::uint16_t word565(QRgb p) {
    return static_cast<std::uint16_t>(toSteps(qRed(p), 31) << 11 | toSteps(qGreen(p), 63) << 5
                                      | toSteps(qBlue(p), 31));
}

std::uint16_t word4444(QRgb p) {
    return static_cast<std::uint16_t>(toSteps(qAlpha(p), 15) << 12 | toSteps(qRed(p), 15) << 8
                                      | toSteps(qGreen(p), 15) << 4 | toSteps(qBlue(p), 15));
}

bool isOpaqueEnough(QRgb p) { return qAlpha(p) >= 128; }

std::uint16_t keyed565(QRgb p) {
    if (!isOpaqueEnough(p)) return 0;
    const std::uint16_t word = word565(p);
    return word == 0 ? Darkest565 : word;
}

QRgb keyed24(QRgb p) {
    if (!isOpaqueEnough(p)) return Clear;
    return (p & RGB_MASK) == 0 ? Darkest24 : p | 0xFF000000;
}

void put565(ByteWriter& out, QRgb p) { out.u16(word565(p)); }
void putKeyed565(ByteWriter& out, QRgb p) { out.u16(keyed565(p)); }
void put4444(ByteWriter& out, QRgb p) { out.u16(word4444(p)); }
void put565A8(ByteWriter& out, QRgb p) { out.u16(word565(p)).u8(static_cast<std::uint32_t>(qAlpha(p))); }
void put24(ByteWriter& out, QRgb p) { out.u24(p); }
void putKeyed24(ByteWriter& out, QRgb p) { out.u24(keyed24(p)); }
void put32(ByteWriter& out, QRgb p) { out.u32(p); }
void putKeyed32(ByteWriter& out, QRgb p) { out.u32(keyed24(p)); }

using PutPixel = void (*)(ByteWriter&, QRgb);

/// nullptr when the format has no raw pixels in this layout.
PutPixel rawPixelWriter(std::uint8_t pixelFormat, const PixelLayout& layout) {
    const bool deep = layout.ColourMode != 0;
    const bool wide = deep && layout.ICType == FileMediaChip;
    switch (pixelFormat) {
    case format::RGB565: return wide ? put32 : deep ? put24 : put565;
    case format::RGB565Key: return wide ? putKeyed32 : deep ? putKeyed24 : putKeyed565;
    case format::aRGB4444: return wide ? put32 : put4444;
    case format::aRGB8888: return put32;
    case format::RGB565A8: return deep ? nullptr : put565A8;
    default: return nullptr;
    }
}

Bytes encodeRaw(const QImage& image, PutPixel putPixel, bool padRows) {
    const int padding = padRows ? (4 - image.width() % 4) % 4 : 0;
    ByteWriter out;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        std::for_each(row, row + image.width(), [&](QRgb p) { putPixel(out, p); });
        for (int i = 0; i < padding; ++i) putPixel(out, Clear);
    }
    return out.take();
}

Bytes encodePng(const QImage& image) {
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return {file.begin(), file.end()};
}

/// The palette word of a pixel. All transparent pixels share one, which keeps palettes small.
std::uint16_t zipWord(QRgb p, std::uint8_t zipMode) {
    if (zipMode == 3) return word565(p);
    if (zipMode == 4) return keyed565(p);
    const std::uint16_t word = word4444(p);
    return word >> 12 == 0 ? std::uint16_t{0} : word;
}

Bytes encodeZipImage(const Pixels& pixels, const PixelLayout& layout, const std::string& where) {
    if (layout.ColourMode != 0) throw ImageError(where, "compressed pictures hold 16-bit colours only");
    const QImage& image = pixels.Image;
    std::vector<std::uint16_t> words;
    words.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        std::transform(row, row + image.width(), std::back_inserter(words),
                       [&](QRgb p) { return zipWord(p, pixels.Format); });
    }
    return EncodeZip(words, static_cast<std::uint16_t>(image.width()),
                     static_cast<std::uint16_t>(image.height()), pixels.Format, pixels.Coding, where);
}

Bytes encodeData(const Pixels& pixels, const PixelLayout& layout, const std::string& where) {
    if (pixels.Format == format::PngOpaque)
        return encodePng(pixels.Image.convertToFormat(QImage::Format_RGB32));
    if (pixels.Format == format::PngAlpha) return encodePng(pixels.Image);
    if (pixels.Format >= format::ZipImage && pixels.Format <= format::ZipImageLast)
        return encodeZipImage(pixels, layout, where);
    const PutPixel putPixel = rawPixelWriter(pixels.Format, layout);
    if (!putPixel)
        throw ImageError(where, "pixel format " + std::to_string(pixels.Format) + " has no pixels here");
    return encodeRaw(pixels.Image, putPixel, layout.NandFlash);
}

void checkSize(int width, int height, const std::string& where) {
    if (width >= 1 && height >= 1 && width <= LargestSide && height <= LargestSide) return;
    throw ImageError(where, std::to_string(width) + " x " + std::to_string(height)
                                + " pixels, a side has 1 to 65535");
}

StoredPicture encode(const Pixels& pixels, const PixelLayout& layout, const std::string& where) {
    checkSize(pixels.Image.width(), pixels.Image.height(), where);
    Pixels straight = pixels;
    straight.Image = pixels.Image.convertToFormat(QImage::Format_ARGB32);
    StoredPicture stored{.Width = static_cast<std::uint16_t>(straight.Image.width()),
                         .Height = static_cast<std::uint16_t>(straight.Image.height()),
                         .Format = pixels.Format,
                         .Data = encodeData(straight, layout, where)};
    const bool isPng = pixels.Format == format::PngOpaque || pixels.Format == format::PngAlpha;
    if (isPng && stored.Data.size() > LargestExtra)
        throw ImageError(where, AtMost(stored.Data.size(), "bytes of PNG", LargestExtra));
    // Only PNG readers need the length; the others take it for "there is a picture".
    stored.Extra = static_cast<std::uint32_t>(std::min<std::size_t>(stored.Data.size(), LargestExtra));
    return stored;
}

StoredPicture encode(const Solid& solid, const PixelLayout& layout, const std::string& where) {
    checkSize(solid.Width, solid.Height, where);
    const std::uint32_t darkest = layout.ColourMode == 0 ? Darkest565 : Darkest24 & RGB_MASK;
    const std::uint32_t word = OpaqueColourWord(solid.Colour, layout.ColourMode);
    const std::uint32_t stored = word == 0 ? darkest : word;
    // The data are never read, but the panel tells pages apart by the address of their picture.
    return {.Width = solid.Width,
            .Height = solid.Height,
            .Extra = stored,
            .Format = format::SolidColour,
            .Data = ByteWriter().u32(stored).take()};
}

StoredPicture encode(const StoredPicture& stored, const PixelLayout&, const std::string&) { return stored; }

} // namespace

StoredPicture EncodePicture(const Picture& picture, const PixelLayout& layout, const std::string& where) {
    return std::visit([&](const auto& kind) { return encode(kind, layout, where); }, picture);
}

std::uint32_t OpaqueColourWord(const QColor& colour, std::uint8_t colourMode) {
    return colourMode == 0 ? word565(colour.rgba()) : colour.rgba() & RGB_MASK;
}

std::uint32_t AlphaColourWord(const QColor& colour, std::uint8_t colourMode) {
    return colourMode == 0 ? word4444(colour.rgba()) : colour.rgba();
}

} // namespace imagekit
