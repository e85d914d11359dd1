// needleMeter: an instrument whose needle turns by a variable, over a dial, with a number and a cover on its
// hub. Engine thread, but for the counting of ticks.
#pragma once

#include "graphics/image_row.h"
#include "pages/parameters.h"
#include "store/row_table.h"
#include "store/shared.h"
#include "widgets/display/number_record.h"
#include "widgets/display/number_text.h"

#include <QPoint>
#include <QRect>

#include <cstddef>
#include <cstdint>

namespace panel {

enum class NeedleKind : std::uint8_t {
    Triangles = 0,
    SmoothTriangles = 1,
    Image = 3,       // one of a run of pictures
    Stroke = 4,      // with round ends
    ImageOnFrame = 5 // a picture straight on the panel, without dial and cover
};                   // any other: no needle

/// What a record tells. Places are px on the panel; an open pop-up does not move them.
struct NeedleMeterSettings {
    std::uint16_t Value = 0; // word address of the angle, whole degrees
    std::uint16_t Dial = 0;  // picture; NoImage: the page
    QRect Area{};
    QPoint Centre{};
    std::uint16_t Lowest = 0, Highest = 0; // of the value
    std::uint16_t Step = 0;                // degrees per move, and values per picture
    bool Smooth = false;                   // the needle walks to a new value
    std::uint16_t Cover = 0;               // picture; NoImage: none
    bool Digits = false;
    std::uint16_t DigitsValue = 0; // word address
    std::uint8_t DigitsType = 0;
    QPoint DigitsAt{};
    std::uint16_t FirstDigit = 0; // picture
    NumberAlignment Align = NumberAlignment::Left;
    NumberFormat Format{};
    NeedleKind Kind = NeedleKind::Triangles;
    int HalfWidth = 0;         // px
    std::uint16_t Tail = 0;    // px; of needle pictures the half of the field that they are placed in
    std::uint32_t ColourA = 0; // word
    std::uint16_t Length = 0;  // px
    std::uint32_t ColourB = 0;
    std::uint16_t FirstNeedle = 0; // picture
};

/// One widget of the page.
struct NeedleMeterRow {
    NeedleMeterSettings settings;
    std::int16_t ShownValue = 0; // the angle on show
    // Of NeedleKind::ImageOnFrame: what is on the panel.
    int LastImage = 0;
    QRect LastImageArea{};
    QRect LastDigitsArea{};
};

/// The meters of the page on show, in stream order; a page holds at most 4.
inline RowTable<NeedleMeterRow, 4> NeedleMeterTable;
inline std::size_t NeedleMeterCursor = 0;
/// Ticks since the last drawing.
inline Shared<std::uint8_t> NeedleTickCount{0};

/// Appends the row of a record and draws it.
void AddNeedleMeter(const Parameters& p);
void ForgetNeedleMeters();
/// A row whose block has changed goes on with the new values, and with the angle on show.
void RefreshNeedleMeter(std::uint16_t page, const Parameters& p, bool blockChanged);

/// A tick of 10 ms has passed. Main thread.
void CountNeedleMeterTicks();
/// Draws all meters about every 60 ms. Once a cycle.
void NeedleMeterTick();
/// Moves the needle and draws the meter. A value beyond the limits is corrected in the store. While an entry
/// is open over the meter it stands still.
void DrawNeedleMeter(NeedleMeterRow& row);

/// The head that stands before the pixels of a needle's picture: where they lie in the field around the hub.
inline constexpr std::uint32_t NeedleHeadBytes = 8;

} // namespace panel
