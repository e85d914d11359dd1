// Groups: records that do not stand on the page by themselves but are drawn over another widget's picture.
// Engine thread.
#pragma once

#include <QRect>

#include <cstdint>

namespace panel {

/// In a record in place of a group id.
inline constexpr std::uint16_t NoGroup = 0xFFFF;

/// Draws the group's records over the picture of a widget that stands on the WorkSurface from (0, 0) on.
/// `host` is the widget's rectangle on the panel. Nothing is cut at its edges: the widget lands only its own
/// rectangle.
void DrawGroupInRect(std::uint16_t page, std::uint16_t group, QRect host);

} // namespace panel
