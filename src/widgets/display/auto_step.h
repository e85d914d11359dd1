// autoStep: draws nothing. Changes a variable by a step at a period, while a control word tells to cycle
// between the limits or to run to one of them once. Engine thread, but for the counting of ticks.
#pragma once

#include "pages/parameters.h"
#include "store/row_table.h"
#include "store/shared.h"

#include <cstddef>
#include <cstdint>

namespace panel {

/// What a record tells. All addresses are word addresses.
struct AutoStepSettings {
    std::uint16_t Target = 0; // of the variable
    std::uint8_t DataType = 0;
    std::uint16_t Control = 0;
    std::uint16_t CycleValue = 0, RunValue = 0; // of the control word: cycle, run
    std::uint16_t EndValue = 0;                 // the control word after a run
    std::int64_t Lowest = 0, Highest = 0;
    std::uint16_t Step = 0;
    std::uint16_t Period = 0;                     // ticks of 10 ms
    std::uint16_t DoneAddress = 0, DoneValue = 0; // the word set after a run; outside the store: none
    std::uint8_t Direction = 0;                   // 1 up, 0 down
    std::uint8_t Notify = 0;                      // 1: sends the value after a run
};

/// One widget of the page.
struct AutoStepRow {
    AutoStepSettings settings;
    Shared<std::uint16_t> TickCount{0};
};

/// The widgets of the page on show, in stream order; a page holds at most 20.
inline RowTable<AutoStepRow, 20> AutoStepTable;
inline std::size_t AutoStepCursor = 0;
/// A tick has passed. The tick raises it, AutoStepTick() clears it.
inline Shared<std::uint8_t> AutoStepFlag{0};

void AddAutoStep(const Parameters& p);
void ForgetAutoSteps();
/// A row whose block has changed goes on with the new values.
void RefreshAutoStep(std::uint16_t page, const Parameters& p, bool blockChanged);

/// Gives every row a tick of 10 ms. Main thread.
void CountAutoStepTicks();
/// Steps the rows whose period is over. Once a cycle.
void AutoStepTick();
/// One step. May show another page.
void StepAutoValue(AutoStepRow& row);

} // namespace panel
