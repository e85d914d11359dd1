// Curves: strip charts of the newest samples of a channel. Those that share a rectangle are redrawn together.
// Engine thread, but for the counting of ticks.
#pragma once

#include "pages/parameters.h"
#include "store/row_table.h"
#include "store/shared.h"

#include <QRect>

#include <cstddef>
#include <cstdint>

namespace panel {

/// One widget of the page.
struct CurveRow {
    QRect Area{};                 // px on the panel
    std::uint16_t BaseOffset = 0; // px from the top to the line of BaseValue
    std::uint16_t BaseValue = 0;
    std::uint16_t Scale = 0;  // 1/256 px per unit of a sample
    std::uint32_t Colour = 0; // word
    std::uint8_t Channel = 0;
    bool LeftToRight = false;   // the newest sample is at the left end
    std::uint8_t StepX = 1;     // px between two samples, 1 or more
    std::uint8_t Thickness = 0; // px
    std::uint8_t Group = 0;     // from 1; curves of one rectangle have the same
};

/// The curves of the page on show, in stream order; a page holds at most 12.
inline RowTable<CurveRow, 12> Curves;
/// The highest group given out.
inline std::uint8_t CurveGroupCount = 0;
/// A tick has passed. The tick raises it, CurveTick() clears it.
inline Shared<std::uint8_t> CurveDue{0};

/// A field of the record at offset k lies at offset k - 4 of the block.
inline constexpr std::size_t CurveBlockAt = 4;

/// Appends the row of a record and draws it. A record without a step or a channel is refused.
void DisplayCurve(const Parameters& p);
void ForgetCurves();
/// The first drawing of one curve.
void DrawCurve(const CurveRow& row);
/// All curves of a group, one over the other.
void RedrawCurveGroup(std::uint8_t group);

/// A tick of 10 ms has passed. Main thread.
void CountCurveTicks();
/// Redraws the groups with new samples. Once a cycle.
void CurveTick();

} // namespace panel
