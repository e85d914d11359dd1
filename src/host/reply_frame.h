// The frames by which the panel tells its host what happened. Engine thread, and main thread for timers that
// end.
#pragma once

#include <cstddef>
#include <cstdint>

namespace panel {

/// A word and the value that it has now.
void SendNotification(std::uint16_t address, std::uint16_t value);
/// The code of an action, sent in place of a value.
void SendActionCode(std::uint16_t code);
/// A number or a text as it stands in the store, 304 bytes at most.
void SendVariable(std::uint16_t address, std::size_t byteCount = 2);

/// The same with the low byte of the address first.
void SendVariableLowFirst(std::uint16_t address, std::size_t byteCount);

} // namespace panel
