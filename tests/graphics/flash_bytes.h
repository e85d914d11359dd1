// Images for the tests of the graphics: bytes put together by hand.
#pragma once

#include "graphics/image_blit.h"
#include "host/memory_image.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>

#include <array>
#include <cstdint>
#include <vector>

namespace panel {

struct Bytes : std::vector<std::uint8_t> {
    using std::vector<std::uint8_t>::vector;

    /// Appends and gives the offset of what was appended.
    std::uint32_t operator<<(const Bytes& more) {
        const auto at = static_cast<std::uint32_t>(size());
        insert(end(), more.begin(), more.end());
        return at;
    }
    Bytes first(std::size_t count) const { return {begin(), begin() + static_cast<std::ptrdiff_t>(count)}; }
};

/// Makes the bytes the loaded image.
inline void LoadBytes(const Bytes& bytes) {
    TakeImage(bytes);
    DropDecodedPictures();
}

struct ZipSegment {
    int Coding = 0;
    std::array<std::uint16_t, 256> Palette{};
    Bytes Data;
    std::uint32_t Length = 0; // as claimed; 0: that of Data
};

struct ZipBytes {
    QSize Size;
    int Mode = 3;
    std::vector<ZipSegment> Segments = {};

    Bytes build() const {
        Bytes bytes{'Z', 'R'};
        const auto number = [&bytes](std::size_t value, int count) {
            for (int i = 0; i < count; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
        };
        number(static_cast<std::size_t>(Size.width()), 2);
        number(static_cast<std::size_t>(Size.height()), 2);
        number(Segments.size(), 1);
        number(static_cast<std::size_t>(0xA0 | Mode), 1);
        number(0, 4);
        for (const ZipSegment& segment : Segments) {
            number(segment.Length ? segment.Length : segment.Data.size(), 3);
            number(static_cast<std::size_t>(segment.Coding), 1);
            for (const std::uint16_t word : segment.Palette) number(word, 2);
        }
        for (const ZipSegment& segment : Segments) bytes << segment.Data;
        return bytes;
    }
};

inline QByteArray PngBytes(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}

} // namespace panel
