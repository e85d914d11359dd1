#include "host/serial_recorder.h"

#include "host/serial.h"

#include <mutex>
#include <utility>

namespace panel {
namespace {

std::mutex SentLock;
std::vector<std::vector<std::uint8_t>> Sent; // under SentLock

} // namespace

void UartSend(const std::uint8_t* buffer, std::size_t payloadLength) {
    const std::uint8_t* payload = buffer + FrameHeadBytes;
    const std::scoped_lock lock(SentLock);
    Sent.emplace_back(payload, payload + payloadLength);
}

std::vector<std::vector<std::uint8_t>> TakeSentFrames() {
    const std::scoped_lock lock(SentLock);
    return std::exchange(Sent, {});
}

} // namespace panel
