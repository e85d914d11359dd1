// The loaded flash image: its bytes, the bounded reads that everything else uses, the section table at its
// start and the integrity test.
#pragma once

#include "store/shared.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace panel {

/// The one image. Written by the main thread while no engine runs, read-only for everybody after that.
struct FlashBlock {
    std::unique_ptr<std::uint8_t[]> data;
    std::int32_t size = 0; // bytes

    /// Takes over `byteCount` bytes (0 and nullptr: no image).
    void replace(std::unique_ptr<std::uint8_t[]> bytes, std::int32_t byteCount);
};
inline FlashBlock FlashImage;

/// 1 when the last integrity test failed. The main thread clears it before a load; the test only ever sets
/// it.
inline Shared<std::uint8_t> IllegalImage{0};

/// Copies `byteCount` bytes from `address` on. What lies beyond the end of the image reads as zero.
void FlashRead(void* destination, std::uint32_t address, std::size_t byteCount);

// Little-endian numbers in the image, by the rule of FlashRead().
std::uint8_t ReadU8(std::uint32_t address);
std::uint16_t ReadU16(std::uint32_t address);
std::uint32_t ReadU24(std::uint32_t address);
std::uint32_t ReadU32(std::uint32_t address);

/// The bytes of [address, address + byteCount) that the image really has, in place. Valid until the next
/// load.
std::span<const std::uint8_t> FlashBytes(std::uint32_t address, std::size_t byteCount);

/// Where the tables of the image lie and how many rows they have. Addresses are byte offsets in the image.
/// Words of the head that the engine does not use have no field.
struct SectionTable {
    std::uint32_t InitialVariablesAddress = 0;
    std::uint32_t PageTable = 0;
    std::uint32_t PageTableCount = 0;
    std::uint32_t FontTable = 0;
    std::uint32_t AudioTable = 0;
    std::uint32_t AudioTableCount = 0;
    std::uint32_t PageImageTable = 0;
    std::uint32_t PageCount = 0;
    std::uint32_t ImageSequenceTable = 0;
    std::uint32_t ImageTable = 0;
    std::uint32_t ImageCount = 0; // rows per language
    std::uint32_t PinyinTable = 0;
    std::uint32_t LanguagePresetTable = 0;
    std::uint32_t LanguagePresetCount = 0;
    std::uint32_t GroupStreamTable = 0;
    std::uint32_t StringTable = 0;
    std::uint32_t StringCount = 0; // rows per language
    std::uint32_t PagePresetTable = 0;
};
/// Changes only at a load: by the integrity test before the engine starts and by the engine's start-up.
inline SectionTable Sections;

inline constexpr std::uint32_t ConfigBlockAddress = 0x80;
/// The settings views show nothing of an image of this many bytes or fewer.
inline constexpr std::int32_t SmallestDescribedImage = 0x400;

/// Reads the head into Sections. Runs before every other reader of the image.
void LoadSectionTable();

/// Sets IllegalImage when the image carries a check that does not hold. Main thread, directly after the file
/// is read.
void CheckImageIntegrity();

/// The check value of a settings block of 0xF4 bytes, whatever stands in its two check words. The block of a
/// sound image holds the complement in its first check word (offset 0xEC) and the value itself in the second
/// (0xF0).
inline constexpr std::size_t CheckedBytes = 0xF4;
std::uint32_t ImageCheckValue(std::span<const std::uint8_t, CheckedBytes> block);

} // namespace panel
