#include "widgets/touch/text_entry.h"

#include "host/reply_frame.h"
#include "store/variable_store.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_families.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t Address = 11;
constexpr std::size_t Capacity = 13;
constexpr std::size_t Prefilled = 15;
constexpr std::size_t Font = 16;
constexpr std::size_t GlyphWidth = 17;
constexpr std::size_t GlyphHeight = 18;
constexpr std::size_t Cursor = 19;
constexpr std::size_t TextColour = 20;
constexpr std::size_t CursorColour = 23;
constexpr std::size_t TextX = 26;
constexpr std::size_t TextY = 28;
constexpr std::size_t KeyboardPage = 30;
constexpr std::size_t KbdX = 32;
constexpr std::size_t KbdY = 34;
constexpr std::size_t Password = 36;
} // namespace field

constexpr std::uint8_t TopLeft = 3; // the anchor

/// The field whose keyboard is up, kept apart from the table that the keyboard's page fills.
TextEntryRow Open;

std::size_t capacityBytes() { return 2 * std::size_t{Open.Capacity}; }

// The text on the keyboard.

QRect textRect() {
    const QPoint at = Open.Field.textPlace();
    return QRect(at, QPoint(KeyboardRect().right(), at.y() + Open.Field.Font.height - 1));
}

void drawText() {
    const QRect rect = textRect();
    DrawEntryText({rect.left(), rect.top(), rect.right(), rect.bottom()},
                  Open.Field.Masked ? TextMode::Masked : TextMode::Draw);
}

void clearText() {
    RestoreKeyboard(textRect());
    ClearEntry();
}

// Opening.

/// A text ends at two zero bytes side by side, and at the first byte that no key of this family types.
void prefill() {
    const std::size_t start = 2 * std::size_t{Open.Address};
    for (std::size_t i = start; i < start + capacityBytes(); ++i) {
        const std::uint8_t byte = ReadByte(i);
        const bool ends = (byte == 0 && ReadByte(i + 1) == 0) || (byte & 0x80) != 0;
        if (ends || !TypeByte(byte)) return;
    }
}

void open(const TextEntryRow& row) {
    if (!KeyboardExists(row.Field)) return;
    Open = row;
    const EntryField& field = Open.Field;
    CursorWidth = field.Font.width;
    BuildTouchTables(field.KeyboardPage);
    TurnToKeyboardPage(field);
    DrawKeyboard(field);
    BeginEntry(field);
    TextOpen = 1;
    if (Open.Prefilled) {
        prefill();
        drawText();
    }
    if (field.Cursor) DrawCursor(CursorPlace());
}

constexpr KeyFamily<TextEntryRow, TextEntries.Capacity> Family{
    .rows = TextEntries, .active = TextActive, .activeRow = TextRow, .act = open, .virtualKey = open};

// Typing.

void leave() {
    TextOpen = 0;
    LeaveKeyboard();
}

/// The frame takes in one byte of the end mark where the text fills half a word.
void commit() {
    constexpr std::uint8_t end[2] = {0, 0};
    const std::size_t start = 2 * std::size_t{Open.Address};
    StoreBytes(start, EntryText());
    StoreBytes(start + EntryLength, end);
    if (Open.head.notifies()) SendVariable(Open.Address, EntryLength + EntryLength % 2u);
    leave();
}

void backspace() {
    CursorTicks = 0;
    if (EraseByte()) drawText();
}

/// The low byte of a key's code is its character, the high byte the one with Shift.
void typeCharacter(std::uint16_t code) {
    const auto byte = static_cast<std::uint8_t>(EntryShift ? code >> 8 : code & 0xFF);
    if (TypeByte(byte, capacityBytes())) drawText();
}

void act(std::uint16_t code) {
    switch (code) {
    case key_code::Cancel: return leave();
    case key_code::Enter: return commit();
    case key_code::Backspace: return backspace();
    case key_code::Clear: return clearText();
    case key_code::Shift:
    case key_code::LanguageSwitch: return;
    default: return typeCharacter(code);
    }
}

EntryField readField(const Parameters& p) {
    TextFont font = TableFont(p.u8(field::Font));
    font.encoding = Encoding::Ascii;
    font.width = p.u8(field::GlyphWidth);
    font.height = p.u8(field::GlyphHeight);
    return {.KeyboardPage = p.u16(field::KeyboardPage),
            .Keyboard = {p.u16(field::KbdX), p.u16(field::KbdY)},
            .Text = {p.u16(field::TextX), p.u16(field::TextY)},
            .Font = font,
            .Anchor = TopLeft,
            .Masked = p.u8(field::Password) == 1,
            .Cursor = p.u8(field::Cursor) == 1,
            .TextColour = p.u24(field::TextColour),
            .CursorColour = p.u24(field::CursorColour)};
}

} // namespace

void ResetTextEntries() {
    ResetKeys(Family);
    TextOpen = 0;
}

void AddTextEntry(const Parameters& p) {
    TextEntryRow* row = TextEntries.append();
    if (!row) return;
    *row = {.head = ReadTouchHead(p),
            .Address = p.u16(field::Address),
            .Capacity = p.u16(field::Capacity),
            .Prefilled = p.u8(field::Prefilled) == 1,
            .Field = readField(p)};
}

/// Shift keeps its press look while it is on.
void TouchTextEntry() {
    if (!TextOpen) return ScanKeys(Family);
    const KeyboardKeyRow* key = ScanKeyboard();
    if (!key) return;
    if (key->Code == key_code::Shift) EntryShift = EntryShift ? 0 : 1;
    if (key->Code != key_code::Shift || !EntryShift) RestoreKey(*key);
    act(key->Code);
}

} // namespace panel
