#include "pages/parameters.h"

#include "pages/stream_walker.h"
#include "store/variable_store.h"

namespace panel {

std::size_t Parameters::blockLength() const {
    constexpr std::size_t lengthOffset = 4;
    return record_.size() > lengthOffset ? record_[lengthOffset] & LengthMask : 0;
}

std::uint8_t Parameters::u8(std::size_t at) const {
    if (!inStore()) return at < record_.size() ? record_[at] : 0;
    if (at < blockStart_ || at >= FirstParameter + blockLength()) return 0;
    return ReadByte(blockOffset() + at - blockStart_);
}

} // namespace panel
