// Keys that open another page as a pop-up window over the page on show. Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/key_image.h"

#include <cstdint>

namespace panel {

struct PopupKeyRow {
    TouchHead head{};
    std::uint16_t NotifyCode = 0;
    KeyLooks Looks{}; // never with a group
    std::uint16_t Page = NoPage;
    std::uint16_t PopupX = 0, PopupY = 0; // of the pop-up's top left corner, px on the panel
    std::uint8_t Flags = 0;
};
inline RowTable<PopupKeyRow, 64> PopupKeys;
inline std::uint8_t PopupKeyActive = 0; // 1 while a key owns the press

/// The key that owns the press looks as if it did not.
void ShowPopupKeyAtRest();
void ResetPopupKeys();
void AddPopupKey(const Parameters& p);
void TouchPopupKeys();

/// Darkens the frame as a page behind a pop-up is, by a little under half.
void DimFrame();

} // namespace panel
