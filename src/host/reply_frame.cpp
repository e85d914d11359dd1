#include "host/reply_frame.h"

#include "host/serial.h"
#include "store/variable_store.h"

#include <algorithm>
#include <array>
#include <span>

namespace panel {
namespace {

constexpr std::uint8_t NotifyCommand = 0x41;
constexpr std::uint16_t NoVariable = 0xFFFF;
constexpr std::size_t LongestValue = 304; // a text with its end mark
constexpr std::size_t PayloadHead = 3;    // command and address

std::uint8_t highByte(std::uint16_t word) { return word >> 8; }
std::uint8_t lowByte(std::uint16_t word) { return word & 0xFF; }

void send(std::uint16_t address, std::span<const std::uint8_t> value) {
    std::array<std::uint8_t, FrameHeadBytes + PayloadHead + LongestValue> frame{};
    const auto payload = std::span(frame).subspan(FrameHeadBytes);
    payload[0] = NotifyCommand;
    payload[1] = highByte(address);
    payload[2] = lowByte(address);
    std::ranges::copy(value, payload.begin() + PayloadHead);
    UartSend(frame.data(), PayloadHead + value.size());
}

/// What the store holds at an address, under the address that the frame names.
void sendBytesAt(std::uint16_t named, std::uint16_t address, std::size_t byteCount) {
    std::array<std::uint8_t, LongestValue> bytes{};
    const auto value = std::span(bytes).first(std::min(byteCount, bytes.size()));
    ReadBytes(2 * std::size_t{address}, value);
    send(named, value);
}

} // namespace

void SendNotification(std::uint16_t address, std::uint16_t value) {
    send(address, std::array{highByte(value), lowByte(value)});
}

void SendActionCode(std::uint16_t code) { SendNotification(NoVariable, code); }

void SendVariable(std::uint16_t address, std::size_t byteCount) { sendBytesAt(address, address, byteCount); }

void SendVariableLowFirst(std::uint16_t address, std::size_t byteCount) {
    const auto exchanged = static_cast<std::uint16_t>(lowByte(address) << 8 | highByte(address));
    sendBytesAt(exchanged, address, byteCount);
}

} // namespace panel
