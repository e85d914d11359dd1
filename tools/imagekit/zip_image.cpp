#include "imagekit/zip_image.h"

#include "imagekit/image_error.h"

#include <array>
#include <unordered_map>

namespace imagekit {
namespace {

constexpr std::size_t PaletteSize = 256;
constexpr std::size_t LargestSegmentCount = 255;
constexpr std::size_t LongestRun = 256;
/// Keeps a segment's data within its 24-bit length, whatever the coding.
constexpr std::size_t LargestSegmentPixels = 0x7FFFFF;

struct Segment {
    std::array<std::uint16_t, PaletteSize> palette{};
    Bytes indexes; // a byte a pixel
};

/// Takes the longest run of pixels off the front of `words` that one palette can hold.
Segment takeSegment(std::span<const std::uint16_t>& words) {
    Segment segment;
    std::unordered_map<std::uint16_t, std::uint8_t> indexOf;
    std::size_t count = 0;
    for (; count < words.size() && count < LargestSegmentPixels; ++count) {
        const std::uint16_t word = words[count];
        auto known = indexOf.find(word);
        if (known == indexOf.end()) {
            if (indexOf.size() == PaletteSize) break;
            segment.palette[indexOf.size()] = word;
            known = indexOf.emplace(word, static_cast<std::uint8_t>(indexOf.size())).first;
        }
        segment.indexes.push_back(known->second);
    }
    words = words.subspan(count);
    return segment;
}

Bytes codeRuns(const Bytes& indexes) {
    Bytes runs;
    for (std::size_t at = 0; at < indexes.size();) {
        std::size_t count = 1;
        while (count < LongestRun && at + count < indexes.size() && indexes[at + count] == indexes[at])
            ++count;
        runs.push_back(static_cast<std::uint8_t>(count - 1));
        runs.push_back(indexes[at]);
        at += count;
    }
    return runs;
}

void putSegment(ByteWriter& table, ByteWriter& data, const Segment& segment, ZipCoding coding) {
    const Bytes runs = codeRuns(segment.indexes);
    const bool asRuns =
        coding == ZipCoding::Runs || (coding == ZipCoding::Shortest && runs.size() < segment.indexes.size());
    const Bytes& coded = asRuns ? runs : segment.indexes;
    table.u24(static_cast<std::uint32_t>(coded.size())).u8(asRuns ? 1 : 0);
    for (const std::uint16_t word : segment.palette) table.u16(word);
    data.bytes(coded);
}

} // namespace

Bytes EncodeZip(std::span<const std::uint16_t> words, std::uint16_t width, std::uint16_t height,
                std::uint8_t zipMode, ZipCoding coding, const std::string& where) {
    ByteWriter table;
    ByteWriter data;
    std::uint32_t segmentCount = 0;
    for (; !words.empty(); ++segmentCount) {
        if (segmentCount == LargestSegmentCount)
            throw ImageError(where, "too many colours for 255 segments of 256 colours each");
        putSegment(table, data, takeSegment(words), coding);
    }
    ByteWriter out;
    out.text("ZR").u16(width).u16(height).u8(segmentCount).u8(zipMode).zeros(4);
    out.bytes(table.data()).bytes(data.data());
    return out.take();
}

} // namespace imagekit
