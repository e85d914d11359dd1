// The panel's serial line to its host.
#pragma once

#include <cstddef>
#include <cstdint>

namespace panel {

/// Room that every sender leaves before its payload for the frame's head.
inline constexpr std::size_t FrameHeadBytes = 3;

/// Sends a notification. `buffer` points to the head's room, the payload follows it: 0x41, the word address
/// (0xFFFF: a page change), the value, all big-endian. Engine thread, and main thread for timers that end.
/// There is no serial line here. The program links `serial_silent`, where this does nothing; tools that look
/// at the frames link `serial_recorder`.
void UartSend(const std::uint8_t* buffer, std::size_t payloadLength);

} // namespace panel
