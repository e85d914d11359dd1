// The entry box that is open on the screen. It stays on top: what draws by the clock keeps away from it.
#pragma once

#include <optional>

namespace panel {

/// Corners of an entry box, px, inclusive.
struct EntryRect {
    int x0 = 0;
    int y0 = 0;
    int x1 = 0;
    int y1 = 0;
};

/// The box of the entry widget that is open, if any. The entry families write it. Engine only.
inline std::optional<EntryRect> OpenEntryRect;

/// Whether the rectangle at (x, y) touches the open box. One that begins where the other ends does. Engine
/// thread.
inline bool OverlapsOpenEntry(int x, int y, int width, int height) {
    const auto& entry = OpenEntryRect;
    return entry && x <= entry->x1 && entry->x0 <= x + width && y <= entry->y1 && entry->y0 <= y + height;
}

} // namespace panel
