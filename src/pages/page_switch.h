// Showing pages and pop-up windows. Engine thread.
#pragma once

#include "store/shared.h"

#include <cstdint>

namespace panel {

/// The page on show; with a pop-up open, the pop-up's page. The engine writes, the window may look.
inline Shared<std::uint16_t> CurrentPage{0};
/// The page of the pop-up that is open. Its place and its flag stand in graphics/image_row.h.
inline std::uint16_t PopupPage = 0;

/// Shows a page; one at or above PageCount is refused silently.
void ShowPage(std::uint16_t page);
/// The same without the test, for callers that made it.
void ShowPageUnchecked(std::uint16_t page);
/// Shows a page as a pop-up with its picture's top left corner at (x, y), px. The caller has set the pop-up
/// state.
void OpenPopup(std::uint16_t page, std::uint16_t x, std::uint16_t y);

// Steps of a page change that a page beside the one on show takes as well.

/// Tables and press memories of all widgets go; running timers move to the background.
void ForgetWidgets();
/// Takes the page's picture and draws it as the background.
void DrawPagePicture(std::uint16_t page);

} // namespace panel
