// Keys that change the page. Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/key_image.h"

#include <cstdint>

namespace panel {

struct PageKeyRow {
    TouchHead head{};
    std::uint16_t NotifyCode = 0;
    KeyLooks Looks{};
    std::uint16_t TargetPage = NoPage; // none: the key only notifies
};
inline RowTable<PageKeyRow, 128> PageKeys;
inline std::uint8_t PageKeyActive = 0; // 1 while a key owns the press

/// The key that owns the press looks as if it did not.
void ShowPageKeyAtRest();
void ResetPageKeys();
void AddPageKey(const Parameters& p);
void TouchPageKeys();
void RepaintKeyGroup(std::uint16_t page, const PageKeyRow& row);

} // namespace panel
