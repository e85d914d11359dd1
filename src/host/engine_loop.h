// The panel's one main loop, cut into pieces that a thread, a test or a script can drive.
#pragma once

#include "host/panel_outputs.h"
#include "store/shared.h"

#include <cstdint>

namespace panel {

enum class StartResult {
    Running,       // the first page is on show; go on with EngineCycle()
    Illegal,       // the error frame was sent; the engine has ended
    UnknownColours // a blue frame was sent; the engine has ended
};

/// Start-up: reads the settings, makes the surfaces, shows the first page, starts the clock. Engine thread.
/// An image whose panel size cannot be is treated as an illegal one.
StartResult StartPanel(PanelOutputs& outputs);

/// One cycle of the loop without its sleep of 20 ms. Engine thread, only after StartPanel() gave Running.
void EngineCycle(PanelOutputs& outputs);

/// The 10 ms tick: only counts and raises flags. Main thread. `tickCount` is the caller's divider of the
/// second, 0..99; each time it comes round, OncePerSecond() runs.
void CountTick(int& tickCount);

/// Ticks since the last refresh by comparison. The tick raises it, the cycle clears it.
inline Shared<std::uint8_t> RefreshTicks{0};

} // namespace panel
