#include "widgets/touch/popup_key.h"

#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "pages/page_switch.h"
#include "widgets/touch/key_family.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t NotifyCode = 11;
constexpr std::size_t NormalImage = 13;
constexpr std::size_t PressImage = 15;
constexpr std::size_t Page = 17;
constexpr std::size_t PopupX = 19;
constexpr std::size_t PopupY = 21;
constexpr std::size_t Flags = 23;
} // namespace field

constexpr std::uint8_t DimBehindFlag = 0x01;
constexpr std::uint8_t CleanOldFlag = 0x02;

std::uint8_t PopupKeyActiveRow = 0;

bool dimsBehind(const PopupKeyRow& row) { return (row.Flags & DimBehindFlag) != 0; }

/// The frame is from now on what lies behind a pop-up.
void keepFrame() {
    PageBackground = FrameSurface.copy();
    PopupSaveSurface = PageBackground;
}

void cleanOldPopup() {
    const ImageRow old = PageImageRow(PopupPage);
    const QRect rect(PopupOriginX, PopupOriginY, old.Width, old.Height);
    CopySurfaceRect(PopupSaveSurface, rect, FrameSurface, rect.topLeft());
}

void openPopup(const PopupKeyRow& row) {
    PopupActive = 1;
    PopupOriginX = row.PopupX;
    PopupOriginY = row.PopupY;
    PopupPage = row.Page;
    if (row.Page != NoPage) OpenPopup(row.Page, row.PopupX, row.PopupY);
}

/// The key's picture lies on the panel, also inside a pop-up that is going.
void letGo(const PopupKeyRow& row) {
    NotifyByCode(row);
    PopupActive = 0;
    ShowNormal(row.head, row.Looks);
    if (!SmallChip() && dimsBehind(row)) {
        DimFrame();
        keepFrame();
    }
    if (row.Flags & CleanOldFlag) cleanOldPopup();
    openPopup(row);
}

constexpr KeyFamily<PopupKeyRow, PopupKeys.Capacity> Family{.rows = PopupKeys,
                                                            .active = PopupKeyActive,
                                                            .activeRow = PopupKeyActiveRow,
                                                            .press = ShowRowPressed,
                                                            .letGo = letGo};

/// From then on as if the key were pressed; the page behind is kept, and darkened, already now.
void pressByVirtualKey(const PopupKeyRow& row) {
    if (!PopupActive && !SmallChip()) {
        if (dimsBehind(row)) DimFrame();
        keepFrame();
    }
    PopupKeyActive = 1;
    PopupKeyActiveRow = static_cast<std::uint8_t>(&row - PopupKeys.rows().data());
    TouchBusy = 1;
}

} // namespace

void ShowPopupKeyAtRest() { WithPressedRow<PopupKeyRow>(Family, ShowRowAtRest); }

void ResetPopupKeys() { ResetKeys(Family); }

void AddPopupKey(const Parameters& p) {
    PopupKeyRow* row = PopupKeys.append();
    if (!row) return;
    *row = {.head = ReadTouchHead(p),
            .NotifyCode = p.u16(field::NotifyCode),
            .Looks = {.NormalImage = p.u16(field::NormalImage), .PressImage = p.u16(field::PressImage)},
            .Page = p.u16(field::Page),
            .PopupX = p.u16(field::PopupX),
            .PopupY = p.u16(field::PopupY),
            .Flags = p.u8(field::Flags)};
    ShowNewKey(row->head, row->Looks);
}

void TouchPopupKeys() {
    if (TouchPressed) TakePress(Family);
    if (const PopupKeyRow* row = TakeVirtualKey(PopupKeys)) pressByVirtualKey(*row);
    if (!TouchPressed) LetGo(Family);
}

void DimFrame() {
    constexpr QColor dark(0, 0, 0, 125);
    FillRectOver(FrameSurface, FrameSurface.rect(), dark);
}

} // namespace panel
