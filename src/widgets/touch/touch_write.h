// What follows when a touch widget has written a variable. Engine thread.
#pragma once

#include <cstdint>

namespace panel {

/// A key wrote a fixed word: a system word takes effect, any other brings the page in line.
void PassOnWrite(std::uint16_t address);

/// A control wrote the value that a person is setting: a system word takes effect, and the screen follows the
/// finger in any case.
void PassOnInput(std::uint16_t address);

} // namespace panel
