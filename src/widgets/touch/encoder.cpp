#include "widgets/touch/encoder.h"

#include "host/flash_image.h"
#include "host/reply_frame.h"
#include "pages/page_switch.h"
#include "pages/page_table.h"
#include "pages/parameters.h"
#include "pages/refresh.h"
#include "store/backlight.h"
#include "store/row_table.h"
#include "store/system_words.h"
#include "store/variable_store.h"

#include <algorithm>
#include <array>

namespace panel {
namespace {

// Kinds of records, and the state that each of them makes.
constexpr std::uint16_t MenuKind = 0x0E, EntryKind = 0x13, PagesKind = 0x14;
constexpr std::uint8_t Menu = 1, SingleEntry = 2, Pages = 3;

namespace menu {
constexpr std::size_t Length = 4; // of what follows offset 5, 16 bits
constexpr std::size_t Selector = 6;
constexpr std::size_t FirstEntry = 8;
} // namespace menu

namespace entry {                 // offsets in an entry
constexpr std::size_t Length = 1; // of what follows
constexpr std::size_t EnabledKeys = 2;
constexpr std::size_t Actions = 3;
} // namespace entry

namespace single {
constexpr std::size_t Enabled = 5; // bits 0 to 2 the keys, bit 3 the knob
constexpr std::size_t Notify = 6;  // the same, and bit 7 the knob the other way round
constexpr std::size_t Actions = 7;
constexpr std::size_t Value = 25; // its first two bytes are those of the last action
} // namespace single

namespace pages {
constexpr std::size_t Notify = 5;
constexpr std::size_t CounterClockwise = 6;
constexpr std::size_t Clockwise = 8;
} // namespace pages

constexpr std::size_t ActionBytes = 7;
constexpr std::uint8_t KnobBit = 0x08, NotifyBit = 0x80, KeyBits = 0x07;

/// What an entry of a menu is for, in the low bits of its first byte.
enum class Sort : std::uint8_t { Step = 1, Value = 2, Action = 3 };
constexpr std::uint8_t SortMask = 0x1F;

/// The record of the page, and where the entries of a menu begin in it.
std::array<std::uint8_t, DisplayStreamCapacity> RecordBytes{};
std::size_t RecordLength = 0;
RowTable<std::size_t, MostMenuEntries> EntryOffsets;

Parameters record() { return Parameters(std::span(RecordBytes).first(RecordLength), WithoutBlock); }

/// A run of fields within the record.
struct Block {
    std::size_t at = 0;

    std::uint8_t u8(std::size_t offset) const { return record().u8(at + offset); }
    std::uint16_t u16(std::size_t offset) const { return record().u16(at + offset); }
    std::int16_t i16(std::size_t offset) const { return record().i16(at + offset); }
    std::int32_t i32(std::size_t offset) const {
        return static_cast<std::int32_t>(record().u32(at + offset));
    }
};

/// The current entry of a menu; none in a menu without entries.
std::optional<Block> currentEntry() {
    const std::size_t* offset = EncoderState == Menu ? EntryOffsets.at(EntryIndex) : nullptr;
    return offset ? std::optional(Block{*offset}) : std::nullopt;
}

std::uint8_t kindOf(const Block& entry) { return entry.u8(0); }
Sort sortOf(const Block& entry) { return static_cast<Sort>(kindOf(entry) & SortMask); }

// What follows a write.

void passOn(std::uint16_t address) {
    if (address >= FirstSystemWord)
        ApplySystemWord(address);
    else
        RefreshAfterTouch(CurrentPage);
}

// Values. All are signed.

constexpr std::uint8_t OneByte = 0x80, OneWord = 0x81, TwoWords = 0x82;

std::uint16_t nextWord(std::uint16_t address) { return static_cast<std::uint16_t>(address + 1); }

/// Of two words only the second one counts to the knob, and both to a key.
std::int32_t readValue(std::uint16_t address, std::uint8_t type, bool whole) {
    switch (type) {
    case OneByte: return static_cast<std::int8_t>(ReadLowByte(address));
    case OneWord: return static_cast<std::int16_t>(ReadWord(address));
    case TwoWords: {
        const std::uint16_t low = ReadWord(nextWord(address));
        if (!whole) return static_cast<std::int16_t>(low);
        return static_cast<std::int32_t>(std::uint32_t{ReadWord(address)} << 16 | low);
    }
    default: return 0;
    }
}

void storeValue(std::uint16_t address, std::uint8_t type, std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    switch (type) {
    case OneByte: return StoreLowByte(address, static_cast<std::uint8_t>(bits));
    case OneWord: return StoreNumber(address, bits, 2);
    case TwoWords: return StoreNumber(address, bits, 4);
    default: return;
    }
}

struct Range {
    std::int32_t lowest = 0, highest = 0;
    bool wraps = false;
};

std::int64_t stepped(std::int64_t value, int step, bool up, const Range& range) {
    if (up) {
        if (value + step <= range.highest) return value + step;
        return range.wraps ? range.lowest : range.highest;
    }
    if (value - step >= range.lowest) return value - step;
    return range.wraps ? range.highest : range.lowest;
}

/// The knob turns slowly whatever a person does: nothing on this panel measures its speed.
void adjust(const Block& block, bool up, bool notify) {
    const std::uint16_t address = block.u16(2);
    const std::uint8_t type = block.u8(4);
    const Range range{.lowest = block.i16(9), .highest = block.i16(5), .wraps = block.u8(19) == 1};
    const std::int64_t value = stepped(readValue(address, type, false), block.u16(13), up, range);
    storeValue(address, type, static_cast<std::int16_t>(value));
    if (notify) SendVariableLowFirst(address, 4);
    passOn(address);
}

void stepByKey(const Block& block) {
    const std::uint16_t address = block.u16(2);
    const std::uint8_t type = block.u8(4);
    const Range range{.lowest = block.i32(9), .highest = block.i32(5), .wraps = block.u8(16) == 1};
    const std::int64_t value =
        stepped(readValue(address, type, true), block.u16(13), block.u8(15) == 1, range);
    storeValue(address, type, static_cast<std::int32_t>(value));
    passOn(address);
}

/// Writes a word, tells the host, changes the page. The word may already bring another page and its record.
void encoderAction(const Block& block, bool notify) {
    const std::uint16_t page = block.u16(0), address = block.u16(2), value = block.u16(4);
    if (IsStoreWord(address)) {
        StoreWord(address, value);
        if (SystemRange(address)) ApplySystemWord(address);
    }
    if (notify) SendNotification(address, value);
    if (page < Sections.PageCount)
        ShowPage(page);
    else
        RefreshAfterTouch(CurrentPage);
}

// The knob.

void moveInMenu(bool up) {
    const int entries = EntryCount + 1;
    EntryIndex = static_cast<std::uint8_t>((EntryIndex + (up ? 1 : entries - 1)) % entries);
    StoreWord(SelectorAddress, EntryIndex);
    RefreshAfterTouch(CurrentPage);
}

void turnInMenu(bool up) {
    if (!AdjustMode) return moveInMenu(up);
    const std::optional<Block> entry = currentEntry();
    if (entry && sortOf(*entry) == Sort::Value) adjust(*entry, up, (kindOf(*entry) & NotifyBit) != 0);
}

void turnSingleEntry(bool up) {
    if (!AdjustMode && !(record().u8(single::Enabled) & KnobBit)) return;
    adjust({single::Value}, up, (record().u8(single::Notify) & (up ? KnobBit : NotifyBit)) != 0);
}

void turnPages(bool up) {
    if (AdjustMode) return;
    const std::uint16_t page = record().u16(up ? pages::Clockwise : pages::CounterClockwise);
    if (record().u8(pages::Notify) == 1) SendActionCode(page);
    ShowPage(page);
}

/// Always of use, even where it changes nothing.
bool turn(bool up) {
    switch (EncoderState) {
    case Menu: turnInMenu(up); break;
    case SingleEntry: turnSingleEntry(up); break;
    default: turnPages(up);
    }
    return true;
}

// The keys, from 0. Each of these gives whether the key was of use.

bool pressOnEntry(const Block& entry, int key) {
    if (sortOf(entry) == Sort::Action) {
        if (!(entry.u8(entry::EnabledKeys) >> key & 1)) return false;
        const bool notify = key == 0 && (kindOf(entry) & NotifyBit) != 0;
        encoderAction({entry.at + entry::Actions + ActionBytes * static_cast<std::size_t>(key)}, notify);
        return true;
    }
    if (key != 0) return false;
    switch (sortOf(entry)) {
    case Sort::Value: AdjustMode = AdjustMode ? 0 : 1; return true;
    case Sort::Step: stepByKey(entry); return true;
    default: return false;
    }
}

bool pressOnSingleEntry(int key) {
    const std::uint8_t bit = static_cast<std::uint8_t>(1 << key);
    if (!(record().u8(single::Enabled) & KeyBits & bit)) return false;
    encoderAction({single::Actions + ActionBytes * static_cast<std::size_t>(key)},
                  (record().u8(single::Notify) & bit) != 0);
    return true;
}

bool press(int key) {
    if (EncoderState == SingleEntry) return pressOnSingleEntry(key);
    const std::optional<Block> entry = currentEntry();
    return entry && pressOnEntry(*entry, key);
}

bool serve(EncoderKey event) {
    switch (event) {
    case EncoderKey::Clockwise: return turn(true);
    case EncoderKey::CounterClockwise: return turn(false);
    case EncoderKey::Key1: return press(0);
    case EncoderKey::Key2: return press(1);
    case EncoderKey::Key3: return press(2);
    }
    return false;
}

// Setting up.

void findEntries() {
    EntryOffsets.clear();
    const std::size_t end = std::min<std::size_t>(5 + record().u16(menu::Length), RecordLength);
    for (std::size_t at = menu::FirstEntry; at < end; at += 2 + record().u8(at + entry::Length))
        if (std::size_t* offset = EntryOffsets.append()) *offset = at;
}

void prepareMenu() {
    findEntries();
    SelectorAddress = BaseVariable = record().u16(menu::Selector);
    EntryCount = static_cast<std::uint8_t>(std::max<std::size_t>(EntryOffsets.size(), 1) - 1);
    EntryIndex = std::min(ReadLowByte(SelectorAddress), EntryCount);
}

} // namespace

void PressKey(std::optional<EncoderKey> key) {
    IdleTicks = 0;
    if (ReadLowByte(word::AutoDimming) == 1 && ScreenBright == 0)
        ShowNormalBrightness();
    else if (key)
        EncoderEvent = static_cast<std::uint8_t>(*key);
}

void PrepareBackgroundSwitcher(std::span<const std::uint8_t> bytes) {
    RecordLength = std::min(bytes.size(), RecordBytes.size());
    std::ranges::copy(bytes.first(RecordLength), RecordBytes.begin());
    BaseInUse = 1;
    switch (record().u16(0)) {
    case MenuKind:
        EncoderState = Menu;
        prepareMenu();
        break;
    case EntryKind: EncoderState = SingleEntry; break;
    case PagesKind: EncoderState = Pages; break;
    default: EncoderState = 0;
    }
}

/// A key without a use waits on, until another one takes its place.
void EncoderTick() {
    if (EncoderState == 0) return;
    const std::uint8_t event = EncoderEvent.exchange(NoEncoderEvent);
    if (event != NoEncoderEvent && !serve(static_cast<EncoderKey>(event)))
        EncoderEvent.replace(NoEncoderEvent, event);
}

} // namespace panel
