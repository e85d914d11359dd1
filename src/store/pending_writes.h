// System words that a task on the main thread wrote and that the engine has yet to apply.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>

namespace panel {

/// A stack of up to 8 word addresses. One thread appends and one takes, without a lock.
class PendingWrites {
public:
    static constexpr std::size_t Capacity = 8;

    /// False when the stack is full; the address is dropped then. Main thread.
    bool append(std::uint16_t address);
    /// The address that was appended last, or nothing. Engine thread.
    std::optional<std::uint16_t> takeNewest();

private:
    // A slot holds its order of arrival in the upper half and the address in the lower; 0 is a free slot.
    std::array<std::atomic<std::uint64_t>, Capacity> slots_{};
    std::uint64_t arrivals_ = 0; // appending thread only
};

inline PendingWrites PendingSystemWrites;

} // namespace panel
