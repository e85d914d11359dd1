// The redraw by comparison: widgets whose variables differ from what they last showed are drawn anew. Engine
// thread.
#pragma once

#include <cstdint>

namespace panel {

/// The full refresh of the page on show, which the loop runs about five times a second. At its end the
/// ShadowStore is in line with all that the page shows. A page without a display stream still has its touch
/// rows refreshed.
void RefreshPageWidgets(std::uint16_t page);

/// The lighter refresh that a touch widget runs right after it wrote a value, so that the screen follows the
/// finger. It walks the stream buffer as it is and leaves out the kinds with a life of their own.
void RefreshAfterTouch(std::uint16_t page);

/// Whether a record of the group has changed, so that the widget under the group is to be drawn anew.
bool GroupChanged(std::uint16_t page, std::uint16_t group);

} // namespace panel
