// Groups: records that do not stand on the page by themselves but are drawn over another widget's picture.
// Engine thread.
#pragma once

#include "pages/parameters.h"

#include <QRect>

#include <cstdint>
#include <functional>

namespace panel {

struct DisplayKind;

/// In a record in place of a group id.
inline constexpr std::uint16_t NoGroup = 0xFFFF;

/// Draws the group's records over the picture of a widget that stands on the WorkSurface from (0, 0) on.
/// `host` is the widget's rectangle on the panel. Nothing is cut at its edges: the widget lands only its own
/// rectangle.
void DrawGroupInRect(std::uint16_t page, std::uint16_t group, QRect host);

/// Calls `visit` for each record of the group that is of a kind that lives in groups, in stream order. The
/// page is the one on show.
void ForEachInGroup(std::uint16_t page, std::uint16_t group,
                    const std::function<void(const DisplayKind&, const Parameters&)>& visit);

} // namespace panel
