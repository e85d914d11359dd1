// The panel's live data: a flat memory of 16-bit words, and a second one of the same shape that holds what
// the widgets last showed. A widget needs drawing again exactly when the two differ.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace panel {

/// Words 0..0x70FE exist. An address at or above this bound is ignored by every writer and reads as 0.
inline constexpr std::uint16_t StoreWordCount = 0x70FF;
inline constexpr std::size_t StoreByteCount = 2 * std::size_t{StoreWordCount};
/// User words end and the system words begin here.
inline constexpr std::uint16_t FirstSystemWord = 0x7000;
inline constexpr std::size_t UserByteCount = 2 * std::size_t{FirstSystemWord};

/// Whether `address` names a word of the store. Records use 0xFFFF for "none", which does not.
constexpr bool IsStoreWord(std::uint16_t address) { return address < StoreWordCount; }
/// Whether a write to `address` must be followed by ApplySystemWord(). True for 0x7000..0x70FF.
constexpr bool SystemRange(std::uint16_t address) {
    return static_cast<std::uint16_t>(address + 0x9000) < 0x100;
}

// The VariableStore. Any thread; bytes are single relaxed atomics, so a word can tear, and the next refresh
// then compares again. Words are big-endian: the high byte of word a is byte 2a.

std::uint16_t ReadWord(std::uint16_t address);
void StoreWord(std::uint16_t address, std::uint16_t value);
/// The low byte alone, for words of which only that byte counts. The high byte stays.
std::uint8_t ReadLowByte(std::uint16_t address);
void StoreLowByte(std::uint16_t address, std::uint8_t value);

/// `offset` counts bytes from the start of the store. Bytes outside read as 0 and are not written.
std::uint8_t ReadByte(std::size_t offset);
void StoreByte(std::size_t offset, std::uint8_t value);
void ReadBytes(std::size_t offset, std::span<std::uint8_t> out);
void StoreBytes(std::size_t offset, std::span<const std::uint8_t> bytes);
/// The low `byteCount` bytes of a number, 1 to 8, from a word on.
void StoreNumber(std::uint16_t address, std::uint64_t value, std::size_t byteCount);

// The ShadowStore. Engine thread only.

std::uint16_t ShadowWord(std::uint16_t address);
std::uint8_t ShadowByte(std::size_t offset);
/// Copies bytes from the VariableStore to the ShadowStore, as many as exist: what was drawn is no longer a
/// change.
void SyncBytes(std::size_t offset, std::size_t count);
void SyncWord(std::uint16_t address);
/// Whether any of these bytes differs between the two stores. Bytes outside do not.
bool BytesDiffer(std::size_t offset, std::size_t count);
bool WordDiffers(std::uint16_t address);

} // namespace panel
