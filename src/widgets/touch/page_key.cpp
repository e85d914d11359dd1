#include "widgets/touch/page_key.h"

#include "pages/page_switch.h"
#include "widgets/touch/key_family.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t NotifyCode = 11;
constexpr std::size_t NormalImage = 13;
constexpr std::size_t PressImage = 15;
constexpr std::size_t TargetPage = 17;
constexpr std::size_t OverlayGroup = 19;
} // namespace field

std::uint8_t PageKeyActiveRow = 0;

void changePage(const PageKeyRow& row) {
    if (row.TargetPage != NoPage) ShowPage(row.TargetPage);
}

void virtualKey(const PageKeyRow& row) {
    NotifyByCode(row);
    changePage(row);
}

constexpr KeyFamily<PageKeyRow, PageKeys.Capacity> Family{.rows = PageKeys,
                                                          .active = PageKeyActive,
                                                          .activeRow = PageKeyActiveRow,
                                                          .press = ShowRowPressed,
                                                          .letGo = NotifyAndShowNormal,
                                                          .act = changePage,
                                                          .virtualKey = virtualKey};

} // namespace

void ShowPageKeyAtRest() { WithPressedRow<PageKeyRow>(Family, ShowRowAtRest); }

void ResetPageKeys() { ResetKeys(Family); }

void AddPageKey(const Parameters& p) {
    PageKeyRow* row = PageKeys.append();
    if (!row) return;
    *row = {.head = ReadTouchHead(p),
            .NotifyCode = p.u16(field::NotifyCode),
            .Looks = {.NormalImage = p.u16(field::NormalImage),
                      .PressImage = p.u16(field::PressImage),
                      .OverlayGroup = p.u16(field::OverlayGroup)},
            .TargetPage = p.u16(field::TargetPage)};
    ShowNewKey(row->head, row->Looks);
}

void TouchPageKeys() { ScanKeys(Family); }

void RepaintKeyGroup(std::uint16_t page, const PageKeyRow& row) {
    RepaintChangedGroup(page, row.head, row.Looks, OwnsPress(Family, row));
}

} // namespace panel
