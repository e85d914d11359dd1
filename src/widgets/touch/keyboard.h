// Keyboards on the screen: pages whose picture is laid over the page on show and whose keys type into one
// buffer. What all entry families have in common. Engine thread.
#pragma once

#include "graphics/image_row.h"
#include "graphics/text.h"
#include "pages/parameters.h"
#include "store/row_table.h"
#include "store/shared.h"
#include "widgets/touch/touch_row.h"

#include <QPoint>
#include <QRect>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace panel {

/// Codes of keys that do not type.
namespace key_code {
inline constexpr std::uint16_t Cancel = 0x00F0;
inline constexpr std::uint16_t Enter = 0x00F1;
inline constexpr std::uint16_t Backspace = 0x00F2;
inline constexpr std::uint16_t Shift = 0x00F3;
inline constexpr std::uint16_t LanguageSwitch = 0x00F4;
inline constexpr std::uint16_t Clear = 0x00F5;
inline constexpr std::uint16_t PreviousCandidates = 0x00F7;
inline constexpr std::uint16_t NextCandidates = 0x00F8;
} // namespace key_code

struct KeyboardKeyRow {
    std::uint16_t x0 = 0, y0 = 0, x1 = 0, y1 = 0; // px from the keyboard's top left corner, all inside
    std::uint16_t Code = 0;
    std::uint16_t PressPicture = 0xFFFF; // a page whose picture shows all keys pressed; none: no press look
};
inline RowTable<KeyboardKeyRow, 200> KeyboardKeys;

void ResetKeyboard();
void AddKeyboardKey(const Parameters& p);

/// What a field tells of its keyboard and of the look of its text.
struct EntryField {
    std::uint16_t KeyboardPage = NoPage;
    QPoint Keyboard{}; // KbdX and KbdY, px on the panel; no pop-up moves them
    QPoint Text{};     // TextX and TextY, px from the keyboard's corner
    TextFont Font{};
    std::uint8_t Anchor = 3; // of the text: 0 and 3 left, 1 centred, 2 right
    bool Masked = false;
    bool Cursor = false; // whether it blinks
    std::uint32_t TextColour = 0, CursorColour = 0;

    QPoint textPlace() const { return Keyboard + Text; }
};

/// The field whose keyboard is up, kept apart from the tables that the keyboard's own page fills.
inline std::optional<EntryField> OpenField;
/// 1 while that field has a cursor. The engine writes, the tick looks.
inline Shared<std::uint8_t> CursorBlinks{0};

// What is being typed.

inline std::array<std::uint8_t, 300> EntryBuffer{}; // zero behind the text
inline std::uint16_t EntryLength = 0;               // bytes
inline std::uint8_t KeyActive = 0;                  // 1 while a key is down, 2 while a candidate is
inline std::uint8_t KeyRow = 0;                     // and which one
inline std::uint8_t EntryShift = 0;                 // outlives a keyboard of single bytes
inline std::uint16_t TextWidth = 0;                 // px, of the text on the screen
inline std::uint8_t CursorWidth = 0;                // px
inline std::uint8_t CursorHidden = 0;               // the phase of the blink
/// Ticks of the phase. The tick counts, the engine sets.
inline Shared<std::uint16_t> CursorTicks{0};
inline std::uint16_t PreviousPage = 0; // to go back to

inline std::span<const std::uint8_t> EntryText() { return std::span(EntryBuffer).first(EntryLength); }
/// False, and nothing is typed, beyond `capacity` bytes.
bool TypeByte(std::uint8_t byte, std::size_t capacity = EntryBuffer.size());
/// Takes the last byte away; false when there is none.
bool EraseByte();
void ClearEntry();

// Up and away. A field opens by: page, picture, touch tables of the keyboard, in the order of its family, and
// then BeginEntry().

bool KeyboardExists(const EntryField& field);
void TurnToKeyboardPage(const EntryField& field);
void DrawKeyboard(const EntryField& field);
/// Of the open field's keyboard, on the panel.
QRect KeyboardRect();
/// Empties the buffer and hands the touch to the keyboard.
void BeginEntry(const EntryField& field);
/// Shows the page, or the pop-up, that the keyboard covered.
void LeaveKeyboard();
/// Nothing is typed or blinks any more; the keyboard's picture stays.
void CloseField();

// The keys. Nothing of them waits or repeats.

/// Takes a press of a key, and gives the key that has just been let go, which still shows its press look.
const KeyboardKeyRow* ScanKeyboard();
/// Brings back the key's normal look.
void RestoreKey(const KeyboardKeyRow& key);

// The text on the keyboard. Rectangles are in px of the panel.

TextBackground KeyboardBackground();
/// Draws the typed text in a box and takes its width.
void DrawEntryText(TextBox box, TextMode mode);
/// Brings the keyboard's picture back.
void RestoreKeyboard(QRect rect);
/// Where the cursor stands behind the text.
QPoint CursorPlace();
void DrawCursor(QPoint at);
/// The blink, once a cycle.
void BlinkCursor();

/// Once a tick. Main thread.
void CountCursorTicks();

} // namespace panel
