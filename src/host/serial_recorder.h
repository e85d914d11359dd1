// Keeps the notifications of the panel, for tests and for the replay tool.
#pragma once

#include <cstdint>
#include <vector>

namespace panel {

/// The payloads passed to UartSend() since the last call, oldest first. Any thread.
std::vector<std::vector<std::uint8_t>> TakeSentFrames();

} // namespace panel
