#include "widgets/touch/encoder.h"

#include "store/backlight.h"
#include "store/system_words.h"
#include "store/variable_store.h"

namespace panel {

void PressKey(std::optional<EncoderKey> key) {
    IdleTicks = 0;
    if (ReadLowByte(word::AutoDimming) == 1 && ScreenBright == 0)
        ShowNormalBrightness();
    else if (key)
        EncoderEvent = static_cast<std::uint8_t>(*key);
}

} // namespace panel
