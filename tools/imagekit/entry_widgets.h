// Fields that open a keyboard of the screen, and its keys. A keyboard is a page of its own: its picture is
// laid over the page on show, its keys stand on it.
#pragma once

#include "imagekit/touch_keys.h"

#include <cstdint>

namespace imagekit {

/// Codes of keys that do not type.
namespace key_code {
inline constexpr std::uint16_t Cancel = 0xF0, Enter = 0xF1, Backspace = 0xF2, Shift = 0xF3,
                               LanguageSwitch = 0xF4, Clear = 0xF5, PreviousCandidates = 0xF7,
                               NextCandidates = 0xF8;
} // namespace key_code

/// The code of a key that types a character, and another one with Shift.
constexpr std::uint16_t CharacterKey(char plain, char shifted) {
    return static_cast<std::uint16_t>(static_cast<unsigned char>(shifted) << 8
                                      | static_cast<unsigned char>(plain));
}

struct KeyboardKey {
    Area Where{}; // px from the keyboard's top left corner
    std::uint16_t Code = 0;
    std::uint16_t PressPicture = None; // a page that shows the keyboard with all keys pressed
};

/// Where a field's keyboard goes on the panel, and the text on it.
struct KeyboardPlace {
    std::uint16_t Page = None;
    std::uint16_t X = 0, Y = 0;         // px on the panel
    std::uint16_t TextX = 0, TextY = 0; // px from the keyboard's corner
};

/// Opens a keyboard to type a number.
struct NumberEntry {
    Area Where{};
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t Address = 0;
    DataType Type = DataType::U16;
    std::uint8_t IntegerDigits = 5, Decimals = 0;
    KeyboardPlace Keyboard{};
    std::uint8_t Font = 0, GlyphWidth = 8;
    bool Cursor = true;
    bool Limited = false;
    std::int32_t Highest = 0, Lowest = 0; // in units of the last decimal
    Alignment Align = Alignment::Left;
    std::uint32_t TextColour = 0, CursorColour = 0; // 24 bits
    bool Prefilled = false;
};

/// Opens a keyboard to type a text of single-byte characters.
struct TextEntry {
    Area Where{};
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t Address = 0;
    std::uint16_t Capacity = 8; // words of two characters
    bool Prefilled = false;
    std::uint8_t Font = 0, GlyphWidth = 8, GlyphHeight = 16;
    bool Cursor = true;
    std::uint32_t TextColour = 0, CursorColour = 0; // 24 bits
    KeyboardPlace Keyboard{};
    bool Password = false;
};

/// Opens a keyboard to type Chinese text in GBK by its pinyin; see ImageBuilder::setPinyin().
struct PinyinEntry {
    Area Where{};
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t Address = 0;
    std::uint16_t Capacity = 8; // words
    bool Prefilled = false;
    std::uint8_t Font = 0, GlyphWidth = 16, GlyphHeight = 16;
    std::uint8_t PinyinFont = 0, PinyinGlyphWidth = 16, PinyinGlyphHeight = 16;
    bool Cursor = true;
    std::uint32_t TextColour = 0, CursorColour = 0, PinyinColour = 0; // 24 bits
    KeyboardPlace Keyboard{};
    std::uint16_t LettersX = 0, LettersY = 0;       // px from the keyboard's corner
    std::uint16_t CandidatesX = 0, CandidatesY = 0; // px from the keyboard's corner
    std::uint8_t Gap = 0;                           // px between candidates
};

TouchRecord Encode(const PinyinEntry& entry);
TouchRecord Encode(const KeyboardKey& key);
TouchRecord Encode(const NumberEntry& entry);
TouchRecord Encode(const TextEntry& entry);

} // namespace imagekit
