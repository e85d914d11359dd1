#include "widgets/touch/copy_key.h"

#include "pages/page_switch.h"
#include "store/variable_store.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_write.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t NotifyCode = 11;
constexpr std::size_t TargetPage = 13;
constexpr std::size_t NormalImage = 15;
constexpr std::size_t PressImage = 17;
constexpr std::size_t Destination = 19;
constexpr std::size_t Source = 21;
constexpr std::size_t WordCount = 23;
constexpr std::size_t OverlayGroup = 24;
} // namespace field

std::uint8_t CopyKeyActiveRow = 0;

/// Word by word upwards, so that a run that overlaps towards higher addresses repeats its first words. A run
/// ends with the store.
void copyWords(const CopyKeyRow& row) {
    const int count = std::min<int>(row.WordCount, StoreWordCount - std::max(row.Destination, row.Source));
    for (int i = 0; i < count; ++i)
        StoreWord(static_cast<std::uint16_t>(row.Destination + i),
                  ReadWord(static_cast<std::uint16_t>(row.Source + i)));
}

void copyAndChangePage(const CopyKeyRow& row) {
    if (IsStoreWord(row.Destination) && IsStoreWord(row.Source)) {
        copyWords(row);
        PassOnWrite(row.Destination);
    }
    if (row.TargetPage != NoPage) ShowPage(row.TargetPage);
}

void virtualKey(const CopyKeyRow& row) {
    NotifyByCode(row);
    copyAndChangePage(row);
}

constexpr KeyFamily<CopyKeyRow, CopyKeys.Capacity> Family{.rows = CopyKeys,
                                                          .active = CopyKeyActive,
                                                          .activeRow = CopyKeyActiveRow,
                                                          .press = ShowRowPressed,
                                                          .letGo = NotifyAndShowNormal,
                                                          .act = copyAndChangePage,
                                                          .virtualKey = virtualKey};

} // namespace

void ShowCopyKeyAtRest() { WithPressedRow<CopyKeyRow>(Family, ShowRowAtRest); }

void ResetCopyKeys() { ResetKeys(Family); }

void AddCopyKey(const Parameters& p) {
    CopyKeyRow* row = CopyKeys.append();
    if (!row) return;
    *row = {.head = ReadTouchHead(p),
            .NotifyCode = p.u16(field::NotifyCode),
            .TargetPage = p.u16(field::TargetPage),
            .Looks = {.NormalImage = p.u16(field::NormalImage),
                      .PressImage = p.u16(field::PressImage),
                      .OverlayGroup = p.u16(field::OverlayGroup)},
            .Destination = p.u16(field::Destination),
            .Source = p.u16(field::Source),
            .WordCount = p.u8(field::WordCount)};
    ShowNewKey(row->head, row->Looks);
}

void TouchCopyKeys() { ScanKeys(Family); }

void RepaintKeyGroup(std::uint16_t page, const CopyKeyRow& row) {
    RepaintChangedGroup(page, row.head, row.Looks, OwnsPress(Family, row));
}

} // namespace panel
