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

struct TouchFamily {
    std::uint16_t code; // the type word under FamilyMask
    const char* name;
    void (*reset)() = nullptr;                  // forgets the family's rows and its press
    void (*build)(const Parameters&) = nullptr; // appends a row for a record; null: takes none
    std::uint8_t* active = nullptr;             // not 0 while a widget of the family owns the press
    void (*drop)() = nullptr;                   // gives up the press, where clearing `active` is not all
    void (*showAtRest)() = nullptr;             // draws the widget that owns the press without it
    bool onNeighbours = false;                  // shows its first image on the pages beside a sliding one
};

constexpr TouchFamily Families[] = {
    {.code = 0x8000, .name = "SwipeGesture", .reset = ResetSwipeGesture, .build = AddSwipeGesture},
    {.code = 0x8001,
     .name = "PageKey",
     .reset = ResetPageKeys,
     .build = AddPageKey,
     .active = &PageKeyActive,
     .showAtRest = ShowPageKeyAtRest,
     .onNeighbours = true},
    {.code = 0x8002,
     .name = "NumberEntry",
     .reset = ResetNumberEntries,
     .build = AddNumberEntry,
     .active = &NumberActive},
    {.code = 0x8003,
     .name = "StepKey",
     .reset = ResetStepKeys,
     .build = AddStepKey,
     .active = &StepActive,
     .showAtRest = ShowStepKeyAtRest,
     .onNeighbours = true},
    {.code = 0x8004,
     .name = "slider",
     .reset = ResetSliders,
     .build = AddSlider,
     .active = &SliderActive,
     .onNeighbours = true},
    {.code = 0x8005,
     .name = "KeyboardKey",
     .reset = ResetKeyboard,
     .build = AddKeyboardKey,
     .active = &KeyActive},
    {.code = 0x8006,
     .name = "RollerPicker",
     .reset = ResetRollers,
     .build = AddRoller,
     .active = &RollerActive,
     .onNeighbours = true},
    {.code = 0x8007,
     .name = "rtouch",
     .reset = ResetRtouches,
     .build = AddRtouch,
     .active = &RingActive,
     .onNeighbours = true},
    {.code = 0x8008,
     .name = "PopupKey",
     .reset = ResetPopupKeys,
     .build = AddPopupKey,
     .active = &PopupKeyActive,
     .showAtRest = ShowPopupKeyAtRest,
     .onNeighbours = true},
    {.code = 0x8009,
     .name = "TextEntry",
     .reset = ResetTextEntries,
     .build = AddTextEntry,
     .active = &TextActive},
    {.code = 0x800A,
     .name = "PinyinEntry",
     .reset = ResetPinyinEntries,
     .build = AddPinyinEntry,
     .active = &PinyinActive},
    {.code = 0x800B,
     .name = "MultiKey",
     .reset = ResetMultiKeys,
     .build = AddMultiKey,
     .active = &MultiKeyActive,
     .drop = DropMultiKeyPress,
     .showAtRest = ShowMultiKeyAtRest,
     .onNeighbours = true},
    {.code = SlidePageFamily, .name = "SlidePage"}, // set up before all others
    {.code = 0x800D,
     .name = "StateKey",
     .reset = ResetStateKeys,
     .build = AddStateKey,
     .active = &StateKeyActive,
     .showAtRest = ShowStateKeyAtRest},
    {.code = 0x800E,
     .name = "CopyKey",
     .reset = ResetCopyKeys,
     .build = AddCopyKey,
     .active = &CopyKeyActive,
     .showAtRest = ShowCopyKeyAtRest},
    {.code = 0x800F, .name = "SlidingList", .reset = ResetSlidingList, .build = AddSlidingList},
};
static_assert(std::ranges::adjacent_find(Families, std::ranges::greater_equal{}, &TouchFamily::code)
              == std::end(Families));

const TouchFamily* findFamily(int code) {
    const auto* found = std::ranges::find(Families, code, &TouchFamily::code);
    return found == std::end(Families) ? nullptr : found;
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

void LetGoOfTouchFamilies() {
    for (const TouchFamily& family : Families) {
        if (family.drop) family.drop();
        if (family.active) *family.active = 0;
    }
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
        const TouchFamily* family = findFamily(record->typeWord & FamilyMask);
        if (family && family->build) family->build(fieldsOf(*record));
    }
}

void ShowTouchFamiliesOfNeighbour(std::uint16_t page) {
    TouchStream.load(TouchStreamPlace(page));
    StreamWalker walker(TouchStream.bytes(), Framing::Touch);
    while (const auto record = walker.next()) {
        const TouchFamily* family = findFamily(record->typeWord & ~NotifyFlag); // none of those on a list
        if (family && family->onNeighbours && family->build) family->build(fieldsOf(*record));
    }
}

bool IsTouchFamily(int code) {
    return std::ranges::find(Families, code, &TouchFamily::code) != std::end(Families);
}

} // namespace panel
