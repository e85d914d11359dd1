// Fields into which a person types Chinese text: letters of a syllable bring up characters to pick from.
// Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/pinyin_table.h"
#include "widgets/touch/text_field.h"
#include "widgets/touch/touch_row.h"

#include <array>
#include <cstdint>

namespace panel {

struct PinyinEntryRow {
    TouchHead head{};
    TextVariable Variable{};
    EntryField Field{};
    TextFont PinyinFont{}; // of the letters and the candidates
    std::uint32_t PinyinColour = 0;
    QPoint Letters{};     // px from the keyboard's corner
    QPoint Candidates{};  // px from the keyboard's corner
    std::uint8_t Gap = 0; // px between two candidates
};
inline RowTable<PinyinEntryRow, 128> PinyinEntries;

inline std::uint8_t PinyinActive = 0; // 1 while a field owns the press
inline std::uint8_t PinyinRow = 0;    // and which one
inline std::uint8_t PinyinOpen = 0;   // 1 while the keyboard of a field is up

inline std::array<std::uint8_t, MostLetters> Letters{}; // the composition, zero behind its end
inline std::uint8_t LetterCount = 0;
// What was shown last stays until letters are typed, also when a field opens anew.
inline PinyinCandidates Candidates{};
inline std::uint8_t CandidatePage = 0; // on show, from 0
inline std::uint8_t PageBytes = 0;     // of its candidates
inline std::uint8_t DirectMode = 0;    // letters go to the text

void ResetPinyinEntries();
void AddPinyinEntry(const Parameters& p);
void TouchPinyinEntry();

} // namespace panel
