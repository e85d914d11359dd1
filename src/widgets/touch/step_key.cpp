#include "widgets/touch/step_key.h"

#include "host/reply_frame.h"
#include "store/typed_value.h"
#include "store/variable_store.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_write.h"

#include <algorithm>
#include <limits>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Address = 11;
constexpr std::size_t DataType = 13;
constexpr std::size_t Direction = 14;
constexpr std::size_t Wrap = 15;
constexpr std::size_t Step = 16;
constexpr std::size_t Highest = 18;
constexpr std::size_t Lowest = 20;
constexpr std::size_t NormalImage = 22;
constexpr std::size_t PressImage = 24;
constexpr std::size_t AutoRepeat = 26;
} // namespace field

constexpr std::uint8_t DirectionUp = 1;
constexpr std::uint8_t BitTypes = 0x40; // the low nibble names the bit

bool isBitType(std::uint8_t type) { return (type & 0xF0) == BitTypes; }
bool isSigned(std::uint8_t type) { return (type & TypeSignedBit) != 0; }

void flipBit(const StepKeyRow& row) {
    StoreWord(row.Address, static_cast<std::uint16_t>(ReadWord(row.Address) ^ 1u << (row.DataType & 0x0F)));
}

std::uint32_t readDoubleWord(std::uint16_t address) {
    const auto next = static_cast<std::uint16_t>(address + 1);
    return static_cast<std::uint32_t>(ReadWord(address)) << 16 | ReadWord(next);
}

/// Without a sign bit the working value has no room for the upper half: such a variable is pulled down.
std::int32_t readUnsigned32(std::uint16_t address) {
    constexpr std::uint8_t pulledDown = 0x40;
    const std::size_t topByte = 2 * std::size_t{address};
    if (ReadByte(topByte) & 0x80) StoreByte(topByte, pulledDown);
    return static_cast<std::int32_t>(readDoubleWord(address));
}

/// Only the low word counts, as far below any limit as can be when the value is negative.
std::int32_t read64(std::uint16_t address) {
    const bool negative = (ReadByte(2 * std::size_t{address}) & 0x80) != 0;
    const std::int32_t low = ReadWord(static_cast<std::uint16_t>(address + 3));
    return negative ? std::numeric_limits<std::int32_t>::min() + low : low;
}

std::int32_t readValue(std::uint16_t address, std::uint8_t type) {
    switch (type) {
    case 0x00: return ReadLowByte(address);
    case 0x01: return ReadWord(address);
    case 0x02: return readUnsigned32(address);
    case 0x80: return static_cast<std::int8_t>(ReadLowByte(address));
    case 0x81: return static_cast<std::int16_t>(ReadWord(address));
    case 0x82: return static_cast<std::int32_t>(readDoubleWord(address));
    case 0x03:
    case 0x83: return read64(address);
    default: return 0;
    }
}

/// `address` is that of the value's last word; the words before it only carry the sign.
void storeSignExtended(std::uint16_t address, int words, std::int32_t value) {
    for (int i = 0; i < words - 1; ++i)
        StoreWord(static_cast<std::uint16_t>(address + i), value < 0 ? 0xFFFF : 0x0000);
    StoreWord(static_cast<std::uint16_t>(address + words - 1), static_cast<std::uint16_t>(value));
}

void storeValue(std::uint16_t address, std::uint8_t type, std::int32_t value) {
    switch (type & ~TypeSignedBit) {
    case 0x00: return StoreLowByte(address, static_cast<std::uint8_t>(value));
    case 0x01: return storeSignExtended(address, 1, value);
    case 0x02: return storeSignExtended(address, 2, value);
    case 0x03: return storeSignExtended(address, 4, value);
    default: return;
    }
}

std::int32_t stepUp(const StepKeyRow& row, std::int64_t value) {
    value += row.Step;
    if (value > row.Highest) value = row.Wraps ? row.Lowest : row.Highest;
    return static_cast<std::int32_t>(std::max<std::int64_t>(value, row.Lowest));
}

std::int32_t stepDown(const StepKeyRow& row, std::int64_t value) {
    value -= row.Step;
    if (value < row.Lowest) value = row.Wraps ? row.Highest : row.Lowest;
    return static_cast<std::int32_t>(std::min<std::int64_t>(value, row.Highest));
}

/// The press before may not have ended by being let go.
void press(const StepKeyRow& row) {
    ShowPressed(row.head, row.Looks);
    RepeatState = row.Repeats ? Repeat::Armed : Repeat::None;
    RepeatTicks = 0;
}

void stepAndNotify(const StepKeyRow& row) {
    ApplyStep(row);
    if (IsStoreWord(row.Address) && row.head.notifies())
        SendVariable(row.Address, ValueFrameBytes(row.DataType));
    ShowNormal(row.head, row.Looks);
}

void showStep(const StepKeyRow& row) {
    if (IsStoreWord(row.Address)) PassOnInput(row.Address);
}

void virtualKey(const StepKeyRow& row) {
    stepAndNotify(row);
    showStep(row);
}

constexpr KeyFamily<StepKeyRow, StepKeys.Capacity> Family{.rows = StepKeys,
                                                          .active = StepActive,
                                                          .activeRow = StepRow,
                                                          .press = press,
                                                          .letGo = stepAndNotify,
                                                          .act = showStep,
                                                          .virtualKey = virtualKey};

bool repeatIsDue() {
    constexpr std::uint8_t firstRepeatTicks = 50; // to be passed, not only reached
    constexpr std::uint8_t nextRepeatTicks = 10;
    if (!TouchPressed || !StepActive) return false;
    switch (RepeatState) {
    case Repeat::Armed: return RepeatTicks > firstRepeatTicks;
    case Repeat::Repeating: return RepeatTicks > nextRepeatTicks;
    case Repeat::None: break;
    }
    return false;
}

/// The host hears only of the value at the end.
void repeatStep() {
    const StepKeyRow* held = StepKeys.at(StepRow);
    if (!held || !repeatIsDue()) return;
    RepeatState = Repeat::Repeating;
    RepeatTicks = 0;
    const StepKeyRow row = *held;
    ApplyStep(row);
    showStep(row);
}

} // namespace

void ShowStepKeyAtRest() { WithPressedRow<StepKeyRow>(Family, ShowRowAtRest); }

void ResetStepKeys() { ResetKeys(Family); }

void AddStepKey(const Parameters& p) {
    StepKeyRow* row = StepKeys.append();
    if (!row) return;
    const std::uint8_t type = p.u8(field::DataType);
    const auto limit = [&](std::size_t at) -> std::int32_t { return isSigned(type) ? p.i16(at) : p.u16(at); };
    *row = {.head = ReadTouchHead(p),
            .Address = p.u16(field::Address),
            .DataType = type,
            .Up = p.u8(field::Direction) == DirectionUp,
            .Wraps = p.u8(field::Wrap) != 0,
            .Step = p.u16(field::Step),
            .Highest = limit(field::Highest),
            .Lowest = limit(field::Lowest),
            .Looks = {.NormalImage = p.u16(field::NormalImage), .PressImage = p.u16(field::PressImage)},
            .Repeats = p.u8(field::AutoRepeat) == 1};
    ShowNewKey(row->head, row->Looks);
}

void TouchStepKeys() {
    repeatStep();
    ScanKeys(Family);
}

void ApplyStep(const StepKeyRow& row) {
    if (!IsStoreWord(row.Address)) return;
    if (isBitType(row.DataType)) return flipBit(row);
    const std::int32_t value = readValue(row.Address, row.DataType);
    storeValue(row.Address, row.DataType, row.Up ? stepUp(row, value) : stepDown(row, value));
}

void CountRepeatTicks() {
    if (RepeatState != Repeat::None) RepeatTicks += 1;
}

} // namespace panel
