// What the fields have in common into which texts are typed: the variable behind them and the line on the
// keyboard. Engine thread.
#pragma once

#include "widgets/touch/keyboard.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace panel {

/// A variable that holds a text.
struct TextVariable {
    std::uint16_t Address = 0;
    std::uint16_t Capacity = 0; // words of two bytes
    bool Prefilled = false;     // the field begins with its text

    /// What can be typed into it.
    std::size_t capacityBytes() const { return std::min(2 * std::size_t{Capacity}, EntryBuffer.size()); }
};

/// The variable of a record, of which the address, the capacity and the flag stand at offset 11.
TextVariable ReadTextVariable(const Parameters& p);
/// A font of a record: its row of the font table at offset `at`, glyph width and height behind it.
TextFont ReadEntryFont(const Parameters& p, std::size_t at, Encoding encoding);

/// Which bytes a field takes over from its variable.
enum class TextBytesTaken : std::uint8_t { Ascii, All };
/// Begins the entry with the text of the variable, up to two zero bytes side by side.
void PrefillText(const TextVariable& variable, TextBytesTaken taken);
/// Writes the typed text and its end mark.
void StoreText(const TextVariable& variable);

/// The line of the text, from its place to the keyboard's right edge. On the panel.
QRect TextLine();
/// Draws what is typed there.
void DrawTextLine();
/// Types the character of a key, whose code holds the plain one in its low byte and the one with Shift in its
/// high byte.
void TypeKeyCode(const TextVariable& variable, std::uint16_t code);

} // namespace panel
