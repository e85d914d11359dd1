#include "widgets/touch/key_family.h"

#include "host/config_block.h"

namespace panel {

void BeepIfEnabled() {
    if (KeyBeepEnabled) PlayKeyBeep();
}

void OwnPress() {
    TouchBusy = 1;
    BeepIfEnabled();
}

} // namespace panel
