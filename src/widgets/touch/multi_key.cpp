#include "widgets/touch/multi_key.h"

#include "host/reply_frame.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "store/variable_store.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_write.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t NormalImage = 11;
constexpr std::size_t ActionFlags = 13;
constexpr std::size_t ClickCode = 14;
constexpr std::size_t PressImage = 16;
constexpr std::size_t ClickTarget = 18; // page, address and value follow each other in all three actions
constexpr std::size_t DoubleClickCode = 24;
constexpr std::size_t DoubleClickWindow = 28;
constexpr std::size_t DoubleClickTarget = 29;
constexpr std::size_t LongPressCode = 35;
constexpr std::size_t LongPressTicks = 39;
constexpr std::size_t LongPressTarget = 40;
constexpr std::size_t OverlayGroup = 46;
} // namespace field

constexpr unsigned ClickBit = 0, DoubleClickBit = 1, LongPressBit = 2;
constexpr int TicksOfWindowUnit = 5;

KeyAction readAction(const Parameters& p, unsigned bit, std::size_t code, std::size_t target) {
    return {.Enabled = (p.u8(field::ActionFlags) >> bit & 1) != 0,
            .NotifyCode = p.u16(code),
            .TargetPage = p.u16(target),
            .Address = p.u16(target + 2),
            .Value = p.u16(target + 4)};
}

bool hasAnyAction(const MultiKeyRecord& key) {
    return key.Click.Enabled || key.DoubleClick.Enabled || key.LongPress.Enabled;
}

/// Takes copies: the write may already bring another page and other rows.
void perform(const TouchHead head, const KeyAction action) {
    if (IsStoreWord(action.Address)) {
        StoreWord(action.Address, action.Value);
        PassOnWrite(action.Address);
    }
    if (head.notifies()) SendActionCode(action.NotifyCode);
    if (action.TargetPage != NoPage) ShowPage(action.TargetPage);
}

void countClick(std::uint8_t index) {
    const bool second = DoubleState == DoubleClickState::FirstClick && DoubleRow == index;
    MultiKeyTicks = 0;
    DoubleState = second ? DoubleClickState::SecondClick : DoubleClickState::FirstClick;
    DoubleRow = index;
}

void startLongPress() {
    MultiKeyTicks = 0;
    LongState = LongPressState::Timing;
}

void takePress() {
    if (MultiKeyActive || TouchBusy) return;
    const std::size_t index = FindHitRow(MultiKeys);
    const MultiKeyRecord* key = MultiKeys.at(index);
    if (!key) return;
    if (hasAnyAction(*key)) ShowPressed(key->head, key->Looks);
    MultiKeyRow = static_cast<std::uint8_t>(index);
    if (key->DoubleClick.Enabled) countClick(MultiKeyRow);
    if (key->LongPress.Enabled) startLongPress();
    MultiKeyActive = 1;
    OwnPress();
}

/// The press stays owned until it is let go, but leads to nothing else any more.
void fireLongPress() {
    const MultiKeyRecord* key = MultiKeys.at(MultiKeyRow);
    const bool waits = LongState == LongPressState::Timing || LongState == LongPressState::Fired;
    if (!key || !waits || MultiKeyTicks < key->LongPressTicks) return;
    DoubleState = DoubleClickState::Idle;
    MultiKeyActive = 0;
    LongState = LongPressState::Fired;
    MultiKeyTicks = 0;
    BeepIfEnabled();
    perform(key->head, key->LongPress);
}

/// The page that the key lived on may have gone, and its look with it.
void endLongPress() {
    if (LongState != LongPressState::Fired && LongState != LongPressState::FiredPageGone) return;
    const MultiKeyRecord* key = MultiKeys.at(MultiKeyRow);
    if (LongState == LongPressState::Fired && key) ShowNormal(key->head, key->Looks);
    LongState = LongPressState::Idle;
    TouchBusy = 0;
}

void serveVirtualKey() {
    const MultiKeyRecord* key = TakeVirtualKey(MultiKeys);
    if (!key) return;
    MultiKeyRow = static_cast<std::uint8_t>(key - MultiKeys.rows().data());
    if (key->Click.Enabled) perform(key->head, key->Click);
}

/// A click that could become a double click waits; see endWindow().
void letGo() {
    const MultiKeyRecord* key = MultiKeys.at(MultiKeyRow);
    if (!MultiKeyActive || !key) return;
    ShowNormal(key->head, key->Looks);
    TouchBusy = 0;
    MultiKeyActive = 0;
    LongState = LongPressState::Idle;
    if (key->Click.Enabled && !key->DoubleClick.Enabled) return perform(key->head, key->Click);
    if (!key->DoubleClick.Enabled || DoubleState != DoubleClickState::SecondClick) return;
    DoubleState = DoubleClickState::Idle;
    perform(key->head, key->DoubleClick);
}

/// No second click came in time: it was a click.
void endWindow() {
    const MultiKeyRecord* key = MultiKeys.at(DoubleRow);
    if (DoubleState != DoubleClickState::FirstClick || !key || !key->Click.Enabled) return;
    if (MultiKeyTicks <= TicksOfWindowUnit * key->DoubleClickWindow) return;
    DoubleState = DoubleClickState::Idle;
    MultiKeyTicks = 0;
    perform(key->head, key->Click);
}

bool looksPressed(const MultiKeyRecord& key) {
    return &key == MultiKeys.at(MultiKeyRow) && (MultiKeyActive || LongState == LongPressState::Fired);
}

} // namespace

void ShowMultiKeyAtRest() {
    const MultiKeyRecord* key = MultiKeyActive ? MultiKeys.at(MultiKeyRow) : nullptr;
    if (key) ShowRowAtRest(*key);
}

void DropMultiKeyPress() {
    if (!MultiKeyActive) return; // a first click may be waiting that has nothing to do with this press
    DoubleState = DoubleClickState::Idle;
    LongState = LongPressState::Idle;
}

void ResetMultiKeys() {
    MultiKeys.clear();
    MultiKeyActive = 0;
    if (LongState == LongPressState::Fired) LongState = LongPressState::FiredPageGone;
    if (LongState == LongPressState::Timing) LongState = LongPressState::Idle; // the press ends with its page
}

void AddMultiKey(const Parameters& p) {
    MultiKeyRecord* key = MultiKeys.append();
    if (!key) return;
    *key = {.head = ReadTouchHead(p),
            .Looks = {.NormalImage = p.u16(field::NormalImage),
                      .PressImage = p.u16(field::PressImage),
                      .OverlayGroup = p.u16(field::OverlayGroup)},
            .Click = readAction(p, ClickBit, field::ClickCode, field::ClickTarget),
            .DoubleClick = readAction(p, DoubleClickBit, field::DoubleClickCode, field::DoubleClickTarget),
            .LongPress = readAction(p, LongPressBit, field::LongPressCode, field::LongPressTarget),
            .DoubleClickWindow = p.u8(field::DoubleClickWindow),
            .LongPressTicks = p.u8(field::LongPressTicks)};
    ShowNewKey(key->head, key->Looks);
}

void TouchMultiKeys() {
    if (TouchPressed) takePress();
    if (TouchPressed) fireLongPress();
    if (!TouchPressed) endLongPress();
    serveVirtualKey();
    if (TouchPressed) return;
    letGo();
    endWindow();
}

/// Also a key on the sliding list is painted on the frame here.
void RepaintKeyGroup(std::uint16_t page, const MultiKeyRecord& key) {
    const KeyLooks& looks = key.Looks;
    if (looks.OverlayGroup == NoGroup || !GroupChanged(page, looks.OverlayGroup)) return;
    const bool pressed = looksPressed(key) && looks.PressImage != NoImage;
    const std::uint16_t image = pressed ? looks.PressImage : looks.NormalImage;
    if (image != NoImage) DrawKeyImageWithGroup(image, key.head.topLeft(), looks.OverlayGroup, 0);
}

void CountMultiKeyTicks() {
    if (DoubleState == DoubleClickState::FirstClick || LongState == LongPressState::Timing)
        MultiKeyTicks += 1;
}

} // namespace panel
