// Walks the display stream of a page and shows its widgets. Engine thread.
#pragma once

#include <cstdint>

namespace panel {

/// Loads the page's display stream and shows it in three passes: the background widget, all widgets in stream
/// order, the icons once more on top. A page without one gets its group stream loaded and is done.
void DisplayPage(std::uint16_t page);

/// Brings the ShadowStore in line with the inline records of the page's groups. The GroupStream buffer holds
/// the page's stream already.
void PrepareGroupStream(std::uint16_t page);

} // namespace panel
