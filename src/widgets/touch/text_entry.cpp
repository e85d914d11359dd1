#include "widgets/touch/text_entry.h"

#include "host/reply_frame.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_families.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t Font = 16; // glyph width and height follow
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

void clearText() {
    RestoreKeyboard(TextLine());
    ClearEntry();
}

// Opening.

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
    if (Open.Variable.Prefilled) {
        PrefillText(Open.Variable, TextBytesTaken::Ascii);
        DrawTextLine();
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
    StoreText(Open.Variable);
    if (Open.head.notifies()) SendVariable(Open.Variable.Address, EntryLength + EntryLength % 2u);
    leave();
}

void backspace() {
    CursorTicks = 0;
    if (EraseByte()) DrawTextLine();
}

void act(std::uint16_t code) {
    switch (code) {
    case key_code::Cancel: return leave();
    case key_code::Enter: return commit();
    case key_code::Backspace: return backspace();
    case key_code::Clear: return clearText();
    case key_code::Shift:
    case key_code::LanguageSwitch: return;
    default: return TypeKeyCode(Open.Variable, code);
    }
}

EntryField readField(const Parameters& p) {
    return {.KeyboardPage = p.u16(field::KeyboardPage),
            .Keyboard = {p.u16(field::KbdX), p.u16(field::KbdY)},
            .Text = {p.u16(field::TextX), p.u16(field::TextY)},
            .Font = ReadEntryFont(p, field::Font, Encoding::Ascii),
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
    *row = {.head = ReadTouchHead(p), .Variable = ReadTextVariable(p), .Field = readField(p)};
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
