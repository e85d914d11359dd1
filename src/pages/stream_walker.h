// Frames the records of a page's streams. Nobody else does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace panel {

inline constexpr std::uint16_t KindMask = 0xF0FF;      // bits 8 to 11 of a type word belong to the widget
inline constexpr std::uint8_t LengthMask = 0x7F;       // so does bit 7 of a length byte
inline constexpr std::uint16_t EncoderMenuKind = 0x0E; // the one display kind with a length of 16 bits

/// How records follow each other.
enum class Framing {
    Display,           // every record by its length byte
    DisplayByKind,     // a record of kind 0xE by its 16-bit length, whatever its flag bits
    DisplayByTypeWord, // the same, only for a type word without flag bits
    Group,
    Touch
};

struct StreamRecord {
    /// The record from its type word on; valid as long as the stream's buffer is not reloaded.
    std::span<const std::uint8_t> bytes;
    std::size_t offset = 0; // of the record from the start of the stream
    std::uint16_t typeWord = 0;
    std::uint16_t groupId = 0; // in a group stream

    std::uint16_t kind() const { return typeWord & KindMask; }
};

/// Gives the records of a stream in order. Ends at the stream's end, and for good at a record that claims
/// less than its own head or more than is left.
class StreamWalker {
public:
    StreamWalker(std::span<const std::uint8_t> stream, Framing framing)
        : stream_(stream), framing_(framing) {}

    std::optional<StreamRecord> next();

private:
    std::uint16_t u16(std::size_t at) const;
    /// The length of the record at the walk's place, or 0 when it is not whole.
    std::size_t recordLength() const;

    std::span<const std::uint8_t> stream_;
    std::size_t at_ = 0;
    Framing framing_;
};

} // namespace panel
