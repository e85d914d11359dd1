// Where the streams of a page lie in the image, and the buffers that hold the streams of the page on show.
// Engine thread.
#pragma once

#include "host/flash_image.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

namespace panel {

inline constexpr std::uint32_t PageRowBytes = 12; // display stream, then touch stream
inline constexpr std::uint32_t GroupRowBytes = 6;

/// Address and length of a stream in the image.
struct StreamPlace {
    std::uint32_t address = 0;
    std::uint16_t length = 0; // bytes; 0 and 0xFFFF: the page has no such stream

    bool valid() const { return length != 0 && length != 0xFFFF; }
};
StreamPlace DisplayStreamPlace(std::uint16_t page);
StreamPlace TouchStreamPlace(std::uint16_t page);
StreamPlace GroupStreamPlace(std::uint16_t page);

/// A fixed buffer for one stream. A longer stream is cut; its walk then ends at the last record that is
/// whole.
template <std::size_t Capacity>
class StreamBuffer {
public:
    /// Copies the stream, or empties the buffer when there is none.
    void load(StreamPlace place) {
        length_ = place.valid() ? std::min<std::size_t>(place.length, Capacity) : 0;
        FlashRead(bytes_.data(), place.address, length_);
    }
    std::span<const std::uint8_t> bytes() const { return std::span(bytes_).first(length_); }

private:
    std::array<std::uint8_t, Capacity> bytes_{};
    std::size_t length_ = 0;
};

// Capacities are the panel's; the design tool keeps within them.
inline constexpr std::size_t DisplayStreamCapacity = 3072;
inline constexpr std::size_t GroupStreamCapacity = 3072;
inline constexpr std::size_t TouchStreamCapacity = 4096;

inline StreamBuffer<DisplayStreamCapacity> DisplayStream;
inline StreamBuffer<GroupStreamCapacity> GroupStream;
inline StreamBuffer<TouchStreamCapacity> TouchStream; // holds a stream only while the touch tables are built

} // namespace panel
