// textroll: a text of the store in a box, which rolls through it to the left when it does not fit. The text
// stands in a strip that the box is a moving view of; the view wraps. Engine thread, but for the counting of
// ticks.
#pragma once

#include "graphics/glyphs.h"
#include "pages/parameters.h"
#include "store/row_table.h"
#include "store/shared.h"
#include "widgets/display/number_record.h"

#include <QRect>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace panel {

/// A text as it stands in its strip: laid out once, and again when its bytes have changed.
struct StripText {
    struct Character {
        int x, y;  // px from the beginning of the text, whose first line is at 0
        int width; // px
        std::uint32_t glyph;
    };

    std::vector<std::uint8_t> bytes{}; // and those behind it that tell its end
    std::vector<Character> characters{};
    int width = 0; // px
};

/// One widget of the page. One whose text lies outside the store is never drawn.
struct TextrollRow {
    std::uint8_t InList = 0;
    std::uint16_t TextAddress = 0;
    QRect Box{}; // px on the panel
    TextStyle Style{};
    NumberAlignment Align{}; // of a text that stands still
    bool RollAlways = false; // also a text that fits
    std::uint8_t Speed = 0;  // ticks of 10 ms per px
    std::uint16_t Gap = 0;   // px between the end of the text and its repetition
    bool Rolling = false;
    int Position = 0;              // column of the strip at the left edge of the box
    int StripWidth = 0;            // px
    Shared<std::uint8_t> Ticks{0}; // since the last step
    StripText Text{};
};

/// The rolling texts of the page on show, in stream order; a page holds at most 5.
inline RowTable<TextrollRow, 5> Textrolls;
inline std::size_t TextrollCursor = 0;
/// A tick has passed. The tick raises it, TextrollTick() clears it.
inline Shared<std::uint8_t> TextrollDue{0};

/// Fills the row of a record, which begins at the start of its text, and draws it.
void DisplayTextroll(const Parameters& p);
void ForgetTextrolls();

/// Composes the view at a position of the strip on the WorkSurface, from (0, 0) on, and decides whether the
/// text rolls. False, and nothing is drawn, for a strip that is too large for a small chip.
bool DrawTextrollStrip(TextrollRow& row, int position);
/// Shows the view and moves on by one px. While an entry is open over the box it stands still.
void StepTextroll(TextrollRow& row);

/// Gives every row a tick of 10 ms. Main thread.
void CountTextrollTicks();
/// Steps the rows whose time has come. Once a cycle.
void TextrollTick();

} // namespace panel
