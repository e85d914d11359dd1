// Images that lie in memory and not in a file.
#pragma once

#include "host/flash_image.h"

#include <algorithm>
#include <cstdint>
#include <memory>

namespace panel {

/// Makes a copy of the bytes, of any container of bytes, the image; its integrity is not looked at. Main
/// thread, while no engine runs.
template <class Bytes>
void TakeImage(const Bytes& bytes) {
    const auto size = static_cast<std::size_t>(bytes.size());
    auto copy = std::make_unique<std::uint8_t[]>(size);
    std::copy(bytes.begin(), bytes.end(), copy.get());
    FlashImage.replace(std::move(copy), static_cast<std::int32_t>(size));
}

} // namespace panel
