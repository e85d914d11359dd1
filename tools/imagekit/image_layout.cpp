#include "imagekit/image_layout.h"

#include "imagekit/image_error.h"

#include "host/flash_image.h"

#include <algorithm>

namespace imagekit {

std::uint32_t ImageLayout::place(const Bytes& part) {
    const std::size_t address = file_.size();
    if (part.size() > LargestImage - address)
        throw ImageError("image", AtMost(address + part.size(), "bytes", LargestImage));
    file_.bytes(part);
    return static_cast<std::uint32_t>(address);
}

void ImageLayout::placeTable(SectionWord addressWord, const Bytes& table, std::size_t count) {
    const auto word = static_cast<std::size_t>(addressWord);
    sections_[word] = place(table);
    sections_[word + 1] = static_cast<std::uint32_t>(count);
}

Bytes ImageLayout::finish(const Bytes& config) {
    ByteWriter head;
    for (const std::uint32_t word : sections_) head.u32(word);
    Bytes image = file_.take();
    std::ranges::copy(head.data(), image.begin());
    std::ranges::copy(config, image.begin() + panel::ConfigBlockAddress);
    return image;
}

} // namespace imagekit
