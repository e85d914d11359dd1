// Keys that copy a run of words to another place of the store. Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/key_image.h"

#include <cstdint>

namespace panel {

struct CopyKeyRow {
    TouchHead head{};
    std::uint16_t NotifyCode = 0;
    std::uint16_t TargetPage = NoPage;
    KeyLooks Looks{};
    std::uint16_t Destination = 0; // word addresses
    std::uint16_t Source = 0;
    std::uint8_t WordCount = 0;
};
inline RowTable<CopyKeyRow, 20> CopyKeys;
inline std::uint8_t CopyKeyActive = 0; // 1 while a key owns the press

/// The key that owns the press looks as if it did not.
void ShowCopyKeyAtRest();
void ResetCopyKeys();
void AddCopyKey(const Parameters& p);
void TouchCopyKeys();
void RepaintKeyGroup(std::uint16_t page, const CopyKeyRow& row);

} // namespace panel
