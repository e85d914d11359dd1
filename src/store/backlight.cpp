#include "store/backlight.h"

#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/touch/pointer.h"

namespace panel {
namespace {

/// The press that wakes the panel is swallowed for as long as it lasts.
void swallowWakePress() {
    TouchPressed = 0;
    IdleTicks = 0;
    if (!TouchStartLatched) WakePress = 0;
}

void dimWhenIdle() {
    const std::uint32_t limit = std::uint32_t{ReadWord(word::SleepTime)} * 100;
    if (IdleTicks < limit) return;
    IdleTicks = 0;
    ScreenBright = 0;
    DimValue = DimValueOf(ReadLowByte(word::DimmedBrightness));
}

void wakeOnPress() {
    if (!TouchPressed) return;
    TouchPressed = 0;
    WakePress = 1;
    IdleTicks = 0;
    ShowNormalBrightness();
}

} // namespace

std::uint8_t DimValueOf(std::uint8_t level) {
    return level >= LargestBrightness ? 0 : static_cast<std::uint8_t>(255 - 4 * level);
}

void ShowNormalBrightness() {
    ScreenBright = 1;
    DimValue = DimValueOf(ReadLowByte(word::Brightness));
}

void BacklightTask() {
    if (!ScreenBright) {
        wakeOnPress();
        return;
    }
    if (WakePress) {
        swallowWakePress();
    } else if (TouchPressed) {
        IdleTicks = 0;
        return;
    }
    dimWhenIdle();
}

} // namespace panel
