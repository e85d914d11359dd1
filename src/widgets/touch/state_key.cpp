#include "widgets/touch/state_key.h"

#include "host/reply_frame.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/touch/key_family.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t Address = 11;
constexpr std::size_t Lowest = 13;
constexpr std::size_t Highest = 15;
constexpr std::size_t FirstImage = 17;
constexpr std::size_t FirstPreset = 19;
constexpr std::size_t OverlayGroup = 21;
} // namespace field

constexpr std::uint16_t NoVariable = 0xFFFF;
constexpr std::uint16_t NoPreset = 0xFFFF;

std::uint8_t StateKeyActiveRow = 0;

bool hasVariable(const StateKeyRow& row) { return row.Address != NoVariable; }

/// The pictures of the variable's value; none when it is out of range.
KeyLooks currentLooks(const StateKeyRow& row) {
    const std::uint16_t value = ReadWord(row.Address);
    if (!hasVariable(row) || value < row.Lowest || value > row.Highest) return {};
    const auto normal = static_cast<std::uint16_t>(row.FirstImage + (value - row.Lowest) * 2);
    return {.NormalImage = normal,
            .PressImage = static_cast<std::uint16_t>(normal + 1),
            .OverlayGroup = row.OverlayGroup};
}

void showAtRest(const StateKeyRow& row) { ShowNormal(row.head, currentLooks(row)); }
void showPressed(const StateKeyRow& row) { ShowPressed(row.head, currentLooks(row)); }

/// Tells the host, and starts the preset of the value. The key itself never writes its variable.
void startPreset(const StateKeyRow& row) {
    const std::uint16_t value = ReadWord(row.Address);
    if (row.head.notifies()) SendNotification(row.Address, value);
    if (row.FirstPreset == NoPreset) return;
    StoreWord(word::PagePreset, static_cast<std::uint16_t>(row.FirstPreset + value - row.Lowest));
    ApplySystemWord(word::PagePreset);
}

/// The preset may have brought another page, on which nothing of the key is to be seen.
void letGo(const StateKeyRow& row) {
    startPreset(row);
    if (StateKeyActive) ShowNormal(row.head, currentLooks(row));
}

constexpr KeyFamily<StateKeyRow, StateKeys.Capacity> Family{.rows = StateKeys,
                                                            .active = StateKeyActive,
                                                            .activeRow = StateKeyActiveRow,
                                                            .press = showPressed,
                                                            .letGo = letGo,
                                                            .virtualKey = startPreset,
                                                            .takesPress = hasVariable};

} // namespace

void ShowStateKeyAtRest() { WithPressedRow<StateKeyRow>(Family, showAtRest); }

void ResetStateKeys() { ResetKeys(Family); }

void AddStateKey(const Parameters& p) {
    StateKeyRow* row = StateKeys.append();
    if (!row) return;
    *row = {.head = ReadTouchHead(p),
            .Address = p.u16(field::Address),
            .Lowest = p.u16(field::Lowest),
            .Highest = p.u16(field::Highest),
            .FirstImage = p.u16(field::FirstImage),
            .FirstPreset = p.u16(field::FirstPreset),
            .OverlayGroup = p.u16(field::OverlayGroup)};
    SyncWord(row->Address);
    ShowNewKey(row->head, currentLooks(*row));
}

void TouchStateKeys() { ScanKeys(Family); }

void RepaintKeyGroup(std::uint16_t page, const StateKeyRow& row) {
    const KeyLooks looks = currentLooks(row);
    RepaintChangedGroup(page, row.head, looks, OwnsPress(Family, row));
    if (WordDiffers(row.Address)) ShowNormal(row.head, looks);
}

void SyncStateKeys() {
    for (const StateKeyRow& row : StateKeys.rows()) SyncWord(row.Address);
}

} // namespace panel
