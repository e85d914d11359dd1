#include "store/pending_writes.h"

#include <algorithm>

namespace panel {

bool PendingWrites::append(std::uint16_t address) {
    const std::uint64_t entry = ++arrivals_ << 16 | address;
    // A slot that the engine frees while this runs stays unused until the next call, no harm done.
    return std::ranges::any_of(slots_, [entry](auto& slot) {
        std::uint64_t free = 0;
        return slot.compare_exchange_strong(free, entry, std::memory_order_release,
                                            std::memory_order_relaxed);
    });
}

std::optional<std::uint16_t> PendingWrites::takeNewest() {
    std::atomic<std::uint64_t>* newest = nullptr;
    std::uint64_t newestEntry = 0;
    for (auto& slot : slots_) {
        const std::uint64_t entry = slot.load(std::memory_order_acquire);
        if (entry <= newestEntry) continue;
        newest = &slot;
        newestEntry = entry;
    }
    if (!newest) return std::nullopt;
    newest->store(0, std::memory_order_relaxed); // only this thread empties slots, and only free ones fill
    return static_cast<std::uint16_t>(newestEntry);
}

} // namespace panel
