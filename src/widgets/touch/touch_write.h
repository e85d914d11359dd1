// What follows when a widget has written a variable. Engine thread.
#pragma once

#include <cstdint>

namespace panel {

/// A key wrote a fixed word: a system word takes effect, any other brings the page in line.
void PassOnWrite(std::uint16_t address);

/// A control wrote a value that is on the move, under a finger or by itself: a system word takes effect, and
/// the screen follows in any case.
void PassOnInput(std::uint16_t address);

} // namespace panel
