#include "graphics/zip_image.h"

#include "graphics/colour.h"
#include "graphics/pixels.h"
#include "host/flash_image.h"

#include <algorithm>
#include <array>
#include <span>

namespace panel {
namespace {

constexpr std::uint32_t HeadBytes = 12;
constexpr std::uint32_t SegmentEntryBytes = 516;
constexpr std::uint32_t PaletteOffset = 4; // in a segment entry
constexpr std::size_t PaletteEntries = 256;

enum class Coding : std::uint8_t { Raw = 0, Runs = 1 };

using Palette = std::array<Pixel, PaletteEntries>;

bool isKnownMode(std::uint8_t mode) { return mode >= zip_mode::Opaque && mode <= zip_mode::Alpha; }

Pixel palettePixel(std::uint16_t word, std::uint8_t mode) {
    const bool transparent =
        mode == zip_mode::Alpha ? (word & 0xF000) == 0 : mode == zip_mode::Keyed && word == 0;
    if (transparent) return 0;
    return ExpandPixel(word, mode == zip_mode::Alpha ? ColourKind::WithAlpha : ColourKind::Opaque);
}

Palette readPalette(std::uint32_t address, std::uint8_t mode) {
    std::array<std::uint8_t, 2 * PaletteEntries> bytes{};
    FlashRead(bytes.data(), address, bytes.size());
    Palette palette{};
    for (std::size_t i = 0; i < palette.size(); ++i)
        palette[i] = palettePixel(static_cast<std::uint16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8), mode);
    return palette;
}

/// The pixels of a picture in the making, in the order of the data.
class PixelSink {
public:
    explicit PixelSink(std::span<Pixel> pixels) : next_(pixels.data()), end_(next_ + pixels.size()) {}

    bool isFull() const { return next_ == end_; }
    void indexes(std::span<const std::uint8_t> bytes, const Palette& palette);
    void runs(std::span<const std::uint8_t> pairs, const Palette& palette);
    void repeat(Pixel pixel, std::size_t count) {
        next_ = std::fill_n(next_, std::min(count, room()), pixel);
    }

private:
    static constexpr int Block = 8;
    static constexpr int LongestRun = 256;

    std::size_t room() const { return static_cast<std::size_t>(end_ - next_); }

    Pixel* next_;
    Pixel* end_;
};

void PixelSink::indexes(std::span<const std::uint8_t> bytes, const Palette& palette) {
    for (const std::uint8_t index : bytes.first(std::min(bytes.size(), room()))) *next_++ = palette[index];
}

void PixelSink::runs(std::span<const std::uint8_t> pairs, const Palette& palette) {
    const std::uint8_t* pair = pairs.data();
    const std::uint8_t* const end = pair + pairs.size() / 2 * 2;
    // Most runs are short. Whole blocks are written as long as there is room, and the next run overwrites the
    // rest.
    for (; pair != end && end_ - next_ >= LongestRun + Block; pair += 2) {
        const int count = pair[0] + 1;
        const Pixel pixel = palette[pair[1]];
        std::fill_n(next_, Block, pixel);
        for (int done = Block; done < count; done += Block) std::fill_n(next_ + done, Block, pixel);
        next_ += count;
    }
    for (; pair != end && !isFull(); pair += 2) repeat(palette[pair[1]], std::size_t{pair[0]} + 1);
}

/// Decodes `length` coded bytes. Those beyond the end of the image are zero: one pixel, or one run of one
/// pixel, of the first colour each, and are not walked one by one.
void decodeSegment(PixelSink& sink, std::uint32_t address, std::size_t length, Coding coding,
                   const Palette& palette) {
    const auto there = FlashBytes(address, length);
    const std::size_t missing = length - there.size();
    if (coding == Coding::Raw) {
        sink.indexes(there, palette);
        sink.repeat(palette[0], missing);
        return;
    }
    sink.runs(there, palette);
    const std::size_t pairsLeft = length / 2 - there.size() / 2;
    const bool cutPair = there.size() % 2 == 1 && pairsLeft > 0;
    if (cutPair) sink.repeat(palette[0], std::size_t{there.back()} + 1);
    sink.repeat(palette[0], pairsLeft - (cutPair ? 1 : 0));
}

void decodeSegments(PixelSink& sink, std::uint32_t address, const ZipHead& head) {
    std::uint32_t entry = address + HeadBytes;
    std::uint32_t data = entry + SegmentEntryBytes * head.SegmentCount;
    for (int i = 0; i < head.SegmentCount && !sink.isFull(); ++i, entry += SegmentEntryBytes) {
        const std::uint32_t length = ReadU24(entry);
        const auto coding = static_cast<Coding>(ReadU8(entry + 3));
        if (coding == Coding::Raw || coding == Coding::Runs)
            decodeSegment(sink, data, length, coding, readPalette(entry + PaletteOffset, head.Mode));
        data += length;
    }
}

} // namespace

std::optional<ZipHead> ReadZipHead(std::uint32_t address) {
    if (ReadU8(address) != 'Z' || ReadU8(address + 1) != 'R') return std::nullopt;
    const ZipHead head{.Width = ReadU16(address + 2),
                       .Height = ReadU16(address + 4),
                       .SegmentCount = ReadU8(address + 6),
                       .Mode = static_cast<std::uint8_t>(ReadU8(address + 7) & 0x0F)};
    if (std::int64_t{head.Width} * head.Height > LargestPicturePixels) return std::nullopt;
    return head;
}

std::uint64_t ZipPictureBytes(std::uint32_t address, const ZipHead& head) {
    std::uint64_t bytes = HeadBytes + std::uint64_t{SegmentEntryBytes} * head.SegmentCount;
    for (std::uint32_t i = 0; i < head.SegmentCount; ++i)
        bytes += ReadU24(address + HeadBytes + SegmentEntryBytes * i);
    return bytes;
}

QImage DecodeZipImage(std::uint32_t address, const ZipHead& head) {
    QImage picture(head.Width, head.Height, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) return picture;
    // Rows of 32-bit pixels have no padding, so the picture is one run of pixels.
    PixelSink sink(
        {reinterpret_cast<Pixel*>(picture.bits()), static_cast<std::size_t>(head.Width) * head.Height});
    if (isKnownMode(head.Mode)) decodeSegments(sink, address, head);
    sink.repeat(0, static_cast<std::size_t>(head.Width) * head.Height);
    return picture;
}

} // namespace panel
