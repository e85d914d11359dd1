// Lays the parts of an image out one behind the other and keeps account of where they lie.
#pragma once

#include "imagekit/byte_writer.h"
#include "imagekit/image_builder.h"

#include <array>

namespace imagekit {

/// Parts begin behind the head, which alone makes an image large enough for the views of its settings: those
/// want more than 0x400 bytes.
inline constexpr std::size_t HeadBytes = 0x410;
/// The panel counts the bytes of an image in 31 bits.
inline constexpr std::size_t LargestImage = 0x7FFFFFFF;

class ImageLayout {
public:
    ImageLayout() { file_.zeros(HeadBytes); }

    /// Appends a part and gives its address. Throws when the image would pass LargestImage.
    std::uint32_t place(const Bytes& part);
    /// Appends a table and enters it in the section table.
    void placeTable(SectionWord addressWord, const Bytes& table, std::size_t count);

    /// The whole image, with the section table and `config` in its head.
    Bytes finish(const Bytes& config);

private:
    ByteWriter file_;
    std::array<std::uint32_t, SectionWordCount> sections_{};
};

} // namespace imagekit
