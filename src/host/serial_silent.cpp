#include "host/serial.h"

namespace panel {

void UartSend(const std::uint8_t* /*buffer*/, std::size_t /*payloadLength*/) {}

} // namespace panel
