// Images for the tests of the graphics: bytes put together by hand.
#pragma once

#include "graphics/image_blit.h"
#include "host/memory_image.h"
#include "imagekit/byte_writer.h"

#include <QBuffer>
#include <QImage>

#include <array>
#include <cstdint>
#include <vector>

namespace panel {

using imagekit::Bytes;

/// Gives the offset of what was appended.
inline std::uint32_t Append(Bytes& flash, const Bytes& more) {
    const auto at = static_cast<std::uint32_t>(flash.size());
    flash.insert(flash.end(), more.begin(), more.end());
    return at;
}

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
        imagekit::ByteWriter bytes;
        const auto number = [](auto value) { return static_cast<std::uint32_t>(value); };
        bytes.text("ZR").u16(number(Size.width())).u16(number(Size.height()));
        bytes.u8(number(Segments.size())).u8(0xA0 | number(Mode)).zeros(4);
        for (const ZipSegment& segment : Segments) {
            bytes.u24(segment.Length ? segment.Length : number(segment.Data.size()));
            bytes.u8(number(segment.Coding));
            for (const std::uint16_t word : segment.Palette) bytes.u16(word);
        }
        for (const ZipSegment& segment : Segments) bytes.bytes(segment.Data);
        return bytes.take();
    }
};

inline Bytes PngBytes(const QImage& picture) {
    QBuffer buffer;
    picture.save(&buffer, "PNG");
    return {buffer.data().begin(), buffer.data().end()};
}

} // namespace panel
