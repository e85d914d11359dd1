// The table of an image that leads from pinyin to Chinese characters. Engine thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace panel {

// The index at the start of the table, sorted by letters.
inline constexpr std::uint32_t PinyinIndexRows = 420;
inline constexpr std::uint32_t PinyinRowBytes = 16;

inline constexpr std::size_t MostLetters = 6;
inline constexpr std::size_t CandidatesOnPage = 8;
inline constexpr std::size_t CandidatePageBytes = 2 * CandidatesOnPage; // GBK, two bytes each

/// The candidates of one syllable.
struct PinyinCandidates {
    std::uint32_t offset = 0; // bytes from the start of the table
    std::uint16_t count = 0;  // 0: there are none
};

/// Those of the row of the index at a byte address of the image.
PinyinCandidates ReadPinyinRow(std::uint32_t address);

/// The candidates of the first syllable that begins with the letters, of which there is at least one. Letters
/// behind the whole index leave `before`: the panel then goes on showing what it showed.
PinyinCandidates FindCandidates(std::span<const std::uint8_t> letters, PinyinCandidates before);

/// The candidates of a page, counted from 0. What the image lacks reads as zero.
std::array<std::uint8_t, CandidatePageBytes> ReadCandidatePage(PinyinCandidates candidates, unsigned page);

} // namespace panel
