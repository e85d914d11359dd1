#include "pages/value_copy.h"

#include "store/variable_store.h"

namespace panel {
namespace {

constexpr std::size_t ValueAddress = 5; // record offset, the same in every kind

std::size_t byteOffset(std::uint16_t wordAddress) { return 2 * std::size_t{wordAddress}; }

/// A numeric value by its data type code: the low nibble is the binary logarithm of its bytes; a value of one
/// byte lies in the low byte of its word.
void syncValue(std::uint16_t address, std::uint8_t typeCode) {
    const unsigned log2Bytes = typeCode & 0x0F;
    if (log2Bytes == 0)
        SyncBytes(byteOffset(address) + 1, 1);
    else
        SyncBytes(byteOffset(address), std::size_t{1} << log2Bytes);
}

void syncHideWord(std::uint16_t address) {
    if (address != 0xFFFF) SyncWord(address);
}

} // namespace

void SyncBlock(const Parameters& p) {
    if (p.inStore()) SyncBytes(p.blockOffset(), p.blockLength());
}

void SyncValueWord(const Parameters& p) { SyncWord(p.u16(ValueAddress)); }

void SyncLabel(const Parameters& p) {
    constexpr std::size_t textLength = 0x19; // words
    const std::uint16_t count = p.u16(textLength);
    for (unsigned i = 0; i < count; ++i) {
        const auto address = static_cast<std::uint16_t>(p.u16(ValueAddress) + i);
        SyncWord(address);
        if (ReadWord(address) == 0) return;
    }
}

void SyncNumber(const Parameters& p) {
    constexpr std::size_t dataType = 0x14;
    constexpr std::size_t textLength = 0x15; // bytes of the text that stands before the hide word
    constexpr std::size_t text = 0x16;
    syncHideWord(p.u16(text + p.u8(textLength)));
    syncValue(p.u16(ValueAddress), p.u8(dataType));
}

void SyncPngNumber(const Parameters& p) {
    constexpr std::size_t dataType = 0x0F;
    constexpr std::size_t hideWord = 0x13;
    syncHideWord(p.u16(hideWord));
    syncValue(p.u16(ValueAddress), p.u8(dataType));
}

void SyncQrText(const Parameters& p) {
    constexpr std::size_t textLength = 7; // words
    const std::size_t first = byteOffset(p.u16(ValueAddress));
    const std::size_t end = first + 2 * std::size_t{p.u16(textLength)};
    for (std::size_t at = first; at < end; ++at) {
        SyncBytes(at, 1);
        if (ReadByte(at) == 0 && ReadByte(at + 1) == 0) return;
    }
}

void SyncTextroll(const Parameters& p) {
    constexpr std::size_t wordCount = 0x0F; // a byte in the inline form, a word in the block
    const std::size_t count = p.inStore() ? p.u16(wordCount) : p.u8(wordCount);
    SyncBytes(byteOffset(p.u16(ValueAddress)), 2 * count);
}

} // namespace panel
