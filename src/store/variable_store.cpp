#include "store/variable_store.h"

#include <algorithm>
#include <array>
#include <atomic>

namespace panel {
namespace {

std::array<std::atomic<std::uint8_t>, StoreByteCount> Variables{};
std::array<std::uint8_t, StoreByteCount> Shadow{};

std::uint8_t load(std::size_t offset) { return Variables[offset].load(std::memory_order_relaxed); }
void store(std::size_t offset, std::uint8_t value) {
    Variables[offset].store(value, std::memory_order_relaxed);
}

/// How many of `count` bytes from `offset` on lie inside the store.
std::size_t inside(std::size_t offset, std::size_t count) {
    return offset < StoreByteCount ? std::min(count, StoreByteCount - offset) : 0;
}

} // namespace

std::uint16_t ReadWord(std::uint16_t address) {
    if (!IsStoreWord(address)) return 0;
    const std::size_t offset = 2 * std::size_t{address};
    return static_cast<std::uint16_t>(load(offset) << 8 | load(offset + 1));
}

void StoreWord(std::uint16_t address, std::uint16_t value) {
    if (!IsStoreWord(address)) return;
    const std::size_t offset = 2 * std::size_t{address};
    store(offset, static_cast<std::uint8_t>(value >> 8));
    store(offset + 1, static_cast<std::uint8_t>(value));
}

std::uint8_t ReadLowByte(std::uint16_t address) { return ReadByte(2 * std::size_t{address} + 1); }
void StoreLowByte(std::uint16_t address, std::uint8_t value) {
    StoreByte(2 * std::size_t{address} + 1, value);
}

std::uint8_t ReadByte(std::size_t offset) { return offset < StoreByteCount ? load(offset) : 0; }

void StoreByte(std::size_t offset, std::uint8_t value) {
    if (offset < StoreByteCount) store(offset, value);
}

void ReadBytes(std::size_t offset, std::span<std::uint8_t> out) {
    const std::size_t count = inside(offset, out.size());
    for (std::size_t i = 0; i < count; ++i) out[i] = load(offset + i);
    std::ranges::fill(out.subspan(count), std::uint8_t{0});
}

void StoreBytes(std::size_t offset, std::span<const std::uint8_t> bytes) {
    const std::size_t count = inside(offset, bytes.size());
    for (std::size_t i = 0; i < count; ++i) store(offset + i, bytes[i]);
}

void StoreNumber(std::uint16_t address, std::uint64_t value, std::size_t byteCount) {
    const std::size_t offset = 2 * std::size_t{address};
    for (std::size_t i = byteCount; i-- > 0; value >>= 8)
        StoreByte(offset + i, static_cast<std::uint8_t>(value));
}

std::uint16_t ShadowWord(std::uint16_t address) {
    const std::size_t offset = 2 * std::size_t{address};
    return static_cast<std::uint16_t>(ShadowByte(offset) << 8 | ShadowByte(offset + 1));
}

std::uint8_t ShadowByte(std::size_t offset) { return offset < StoreByteCount ? Shadow[offset] : 0; }

void SyncBytes(std::size_t offset, std::size_t count) {
    ReadBytes(offset, std::span(Shadow).subspan(std::min(offset, StoreByteCount), inside(offset, count)));
}

void SyncWord(std::uint16_t address) { SyncBytes(2 * std::size_t{address}, 2); }

bool BytesDiffer(std::size_t offset, std::size_t count) {
    const std::size_t end = offset + inside(offset, count);
    for (std::size_t at = offset; at < end; ++at)
        if (load(at) != Shadow[at]) return true;
    return false;
}

bool WordDiffers(std::uint16_t address) { return BytesDiffer(2 * std::size_t{address}, 2); }

} // namespace panel
