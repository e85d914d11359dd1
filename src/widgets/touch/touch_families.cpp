#include "widgets/touch/touch_families.h"

#include "pages/page_table.h"
#include "pages/parameters.h"
#include "pages/stream_walker.h"
#include "widgets/touch/copy_key.h"
#include "widgets/touch/keyboard.h"
#include "widgets/touch/multi_key.h"
#include "widgets/touch/number_entry.h"
#include "widgets/touch/page_key.h"
#include "widgets/touch/pinyin_entry.h"
#include "widgets/touch/popup_key.h"
#include "widgets/touch/roller_picker.h"
#include "widgets/touch/slider.h"
#include "widgets/touch/state_key.h"
#include "widgets/touch/step_key.h"
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
};

constexpr TouchFamily Families[] = {
    {.code = 0x8000, .name = "SwipeGesture"},
    {.code = 0x8001, .name = "PageKey", .reset = ResetPageKeys, .build = AddPageKey},
    {.code = 0x8002, .name = "NumberEntry", .reset = ResetNumberEntries, .build = AddNumberEntry},
    {.code = 0x8003, .name = "StepKey", .reset = ResetStepKeys, .build = AddStepKey},
    {.code = 0x8004, .name = "slider", .reset = ResetSliders, .build = AddSlider},
    {.code = 0x8005, .name = "KeyboardKey", .reset = ResetKeyboard, .build = AddKeyboardKey},
    {.code = 0x8006, .name = "RollerPicker", .reset = ResetRollers, .build = AddRoller},
    {.code = 0x8007, .name = "rtouch"},
    {.code = 0x8008, .name = "PopupKey", .reset = ResetPopupKeys, .build = AddPopupKey},
    {.code = 0x8009, .name = "TextEntry", .reset = ResetTextEntries, .build = AddTextEntry},
    {.code = 0x800A, .name = "PinyinEntry", .reset = ResetPinyinEntries, .build = AddPinyinEntry},
    {.code = 0x800B, .name = "MultiKey", .reset = ResetMultiKeys, .build = AddMultiKey},
    {.code = 0x800C, .name = "SlidePage"},
    {.code = 0x800D, .name = "StateKey", .reset = ResetStateKeys, .build = AddStateKey},
    {.code = 0x800E, .name = "CopyKey", .reset = ResetCopyKeys, .build = AddCopyKey},
    {.code = 0x800F, .name = "SlidingList"},
};
static_assert(std::ranges::adjacent_find(Families, std::ranges::greater_equal{}, &TouchFamily::code)
              == std::end(Families));

const TouchFamily* findFamily(std::uint16_t typeWord) {
    const auto* found = std::ranges::find(Families, typeWord & FamilyMask, &TouchFamily::code);
    return found == std::end(Families) ? nullptr : found;
}

} // namespace

void ResetTouchFamilies() {
    for (const TouchFamily& family : Families)
        if (family.reset) family.reset();
}

void BuildTouchTables(std::uint16_t page) {
    const StreamPlace place = TouchStreamPlace(page);
    GroupStream.load(GroupStreamPlace(page));
    if (!place.valid()) return;
    ResetTouchFamilies();
    TouchStream.load(place);
    StreamWalker walker(TouchStream.bytes(), Framing::Touch);
    while (const auto record = walker.next()) {
        const TouchFamily* family = findFamily(record->typeWord);
        if (family && family->build) family->build(Parameters(record->bytes, WithoutBlock));
    }
}

} // namespace panel
