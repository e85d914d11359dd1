#include "widgets/touch/touch_families.h"

#include "pages/page_table.h"
#include "pages/parameters.h"
#include "pages/slide_page.h"
#include "pages/stream_walker.h"
#include "widgets/touch/copy_key.h"
#include "widgets/touch/keyboard.h"
#include "widgets/touch/multi_key.h"
#include "widgets/touch/number_entry.h"
#include "widgets/touch/page_key.h"
#include "widgets/touch/pinyin_entry.h"
#include "widgets/touch/popup_key.h"
#include "widgets/touch/roller_picker.h"
#include "widgets/touch/rtouch.h"
#include "widgets/touch/slider.h"
#include "widgets/touch/sliding_list.h"
#include "widgets/touch/state_key.h"
#include "widgets/touch/step_key.h"
#include "widgets/touch/swipe_gesture.h"
#include "widgets/touch/text_entry.h"
#include "widgets/touch/touch_row.h"

#include <algorithm>

namespace panel {
namespace {

constexpr TouchFamily Families[] = {
    {.code = 0x8000,
     .name = "SwipeGesture",
     .capacity = 1,
     .reset = ResetSwipeGesture,
     .build = AddSwipeGesture},
    {.code = 0x8001,
     .name = "PageKey",
     .capacity = PageKeys.Capacity,
     .reset = ResetPageKeys,
     .build = AddPageKey,
     .active = &PageKeyActive,
     .showAtRest = ShowPageKeyAtRest,
     .onNeighbours = true,
     .yieldsToSwipe = true},
    {.code = 0x8002,
     .name = "NumberEntry",
     .capacity = NumberEntries.Capacity,
     .reset = ResetNumberEntries,
     .build = AddNumberEntry,
     .active = &NumberActive,
     .yieldsToSwipe = true},
    {.code = 0x8003,
     .name = "StepKey",
     .capacity = StepKeys.Capacity,
     .reset = ResetStepKeys,
     .build = AddStepKey,
     .active = &StepActive,
     .showAtRest = ShowStepKeyAtRest,
     .onNeighbours = true,
     .yieldsToSwipe = true},
    {.code = 0x8004,
     .name = "slider",
     .capacity = Sliders.Capacity,
     .reset = ResetSliders,
     .build = AddSlider,
     .active = &SliderActive,
     .onNeighbours = true},
    {.code = 0x8005,
     .name = "KeyboardKey",
     .capacity = KeyboardKeys.Capacity,
     .reset = ResetKeyboard,
     .build = AddKeyboardKey,
     .active = &KeyActive,
     .yieldsToSwipe = true},
    {.code = 0x8006,
     .name = "RollerPicker",
     .capacity = Rollers.Capacity,
     .reset = ResetRollers,
     .build = AddRoller,
     .active = &RollerActive,
     .onNeighbours = true},
    {.code = 0x8007,
     .name = "rtouch",
     .capacity = Rtouches.Capacity,
     .reset = ResetRtouches,
     .build = AddRtouch,
     .active = &RingActive,
     .onNeighbours = true},
    {.code = 0x8008,
     .name = "PopupKey",
     .capacity = PopupKeys.Capacity,
     .reset = ResetPopupKeys,
     .build = AddPopupKey,
     .active = &PopupKeyActive,
     .showAtRest = ShowPopupKeyAtRest,
     .onNeighbours = true,
     .yieldsToSwipe = true},
    {.code = 0x8009,
     .name = "TextEntry",
     .capacity = TextEntries.Capacity,
     .reset = ResetTextEntries,
     .build = AddTextEntry,
     .active = &TextActive},
    {.code = 0x800A,
     .name = "PinyinEntry",
     .capacity = PinyinEntries.Capacity,
     .reset = ResetPinyinEntries,
     .build = AddPinyinEntry,
     .active = &PinyinActive},
    {.code = 0x800B,
     .name = "MultiKey",
     .capacity = MultiKeys.Capacity,
     .reset = ResetMultiKeys,
     .build = AddMultiKey,
     .active = &MultiKeyActive,
     .drop = DropMultiKeyPress,
     .showAtRest = ShowMultiKeyAtRest,
     .onNeighbours = true,
     .yieldsToSwipe = true},
    {.code = SlidePageFamily, .name = "SlidePage", .capacity = 1}, // set up before all others
    {.code = 0x800D,
     .name = "StateKey",
     .capacity = StateKeys.Capacity,
     .reset = ResetStateKeys,
     .build = AddStateKey,
     .active = &StateKeyActive,
     .showAtRest = ShowStateKeyAtRest,
     .yieldsToSwipe = true},
    {.code = 0x800E,
     .name = "CopyKey",
     .capacity = CopyKeys.Capacity,
     .reset = ResetCopyKeys,
     .build = AddCopyKey,
     .active = &CopyKeyActive,
     .showAtRest = ShowCopyKeyAtRest,
     .yieldsToSwipe = true},
    {.code = 0x800F,
     .name = "SlidingList",
     .capacity = 1,
     .reset = ResetSlidingList,
     .build = AddSlidingList},
};
static_assert(std::ranges::adjacent_find(Families, std::ranges::greater_equal{}, &TouchFamily::code)
              == std::end(Families));

void letGo(const TouchFamily& family) {
    if (family.drop) family.drop();
    if (family.active) *family.active = 0;
}

Parameters fieldsOf(const StreamRecord& record) { return Parameters(record.bytes, WithoutBlock); }

/// The pages beside the one being built are drawn first; they use the buffers of this one, which is loaded
/// anew.
void prepareSlide(std::uint16_t page) {
    StreamWalker walker(TouchStream.bytes(), Framing::Touch);
    while (const auto record = walker.next()) {
        if ((record->typeWord & ~NotifyFlag) != SlidePageFamily) continue;
        PrepareSlidePage(page, fieldsOf(*record));
        TouchStream.load(TouchStreamPlace(page));
        return;
    }
}

} // namespace

const TouchFamily* FindTouchFamily(int code) {
    const auto* found = std::ranges::find(Families, code, &TouchFamily::code);
    return found == std::end(Families) ? nullptr : found;
}

void LetGoOfTouchFamilies() {
    for (const TouchFamily& family : Families) letGo(family);
}

void YieldToSwipe() {
    for (const TouchFamily& family : Families)
        if (family.yieldsToSwipe) letGo(family);
}

void CloseTextFields() {
    if (TextOpen || PinyinOpen) CloseField();
    TextOpen = 0;
    PinyinOpen = 0;
}

void ShowTouchFamiliesAtRest() {
    for (const TouchFamily& family : Families)
        if (family.showAtRest) family.showAtRest();
}

void ResetTouchFamilies() {
    for (const TouchFamily& family : Families)
        if (family.reset) family.reset();
}

void BuildTouchTables(std::uint16_t page) {
    const StreamPlace place = TouchStreamPlace(page);
    if (place.valid()) {
        ResetTouchFamilies();
        TouchStream.load(place);
        prepareSlide(page);
    }
    GroupStream.load(GroupStreamPlace(page));
    if (!place.valid()) return;
    StreamWalker walker(TouchStream.bytes(), Framing::Touch);
    while (const auto record = walker.next()) {
        const TouchFamily* family = FindTouchFamily(record->typeWord & FamilyMask);
        if (family && family->build) family->build(fieldsOf(*record));
    }
}

void ShowTouchFamiliesOfNeighbour(std::uint16_t page) {
    TouchStream.load(TouchStreamPlace(page));
    StreamWalker walker(TouchStream.bytes(), Framing::Touch);
    while (const auto record = walker.next()) {
        const TouchFamily* family =
            FindTouchFamily(record->typeWord & ~NotifyFlag); // none of those on a list
        if (family && family->onNeighbours && family->build) family->build(fieldsOf(*record));
    }
}

} // namespace panel
