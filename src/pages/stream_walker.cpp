#include "pages/stream_walker.h"

namespace panel {
namespace {

constexpr std::size_t DisplayHead = 5;  // type word, parameter address, length byte
constexpr std::size_t LongHead = 6;     // the same with a length of 16 bits
constexpr std::size_t GroupIdBytes = 2; // before a display head; the length byte counts the id
constexpr std::size_t GroupHead = GroupIdBytes + DisplayHead;
constexpr std::size_t TouchHead = 3; // type word, length byte

} // namespace

std::uint16_t StreamWalker::u16(std::size_t at) const {
    return at + 1 < stream_.size() ? static_cast<std::uint16_t>(stream_[at] | stream_[at + 1] << 8) : 0;
}

std::size_t StreamWalker::recordLength() const {
    const auto byteAt = [this](std::size_t offset) -> std::size_t {
        return at_ + offset < stream_.size() ? stream_[at_ + offset] : 0;
    };
    const std::uint16_t type = u16(at_);
    std::size_t head = DisplayHead;
    std::size_t length = 0;
    if (framing_ == Framing::Group) {
        head = GroupHead;
        length = DisplayHead + (byteAt(6) & LengthMask);
    } else if (framing_ == Framing::Touch) {
        head = TouchHead;
        length = TouchHead + byteAt(2);
    } else if ((framing_ == Framing::DisplayByKind && (type & KindMask) == EncoderMenuKind)
               || (framing_ == Framing::DisplayByTypeWord && type == EncoderMenuKind)) {
        head = LongHead;
        length = LongHead + u16(at_ + 4);
    } else {
        length = DisplayHead + (byteAt(4) & LengthMask);
    }
    return length >= head && length <= stream_.size() - at_ ? length : 0;
}

std::optional<StreamRecord> StreamWalker::next() {
    const std::size_t length = recordLength();
    if (length == 0) {
        at_ = stream_.size();
        return std::nullopt;
    }
    const std::size_t type = at_ + (framing_ == Framing::Group ? GroupIdBytes : 0);
    const StreamRecord record{.bytes = stream_.subspan(type, at_ + length - type),
                              .offset = at_,
                              .typeWord = u16(type),
                              .groupId = framing_ == Framing::Group ? u16(at_) : std::uint16_t{0}};
    at_ += length;
    return record;
}

} // namespace panel
