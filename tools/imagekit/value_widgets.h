// Widgets that show a value: text, numbers, animations and timers. Addresses are word addresses of the store,
// colours words in the colour mode of the image.
#pragma once

#include "imagekit/records.h"
#include "imagekit/widget_description.h"

#include <cstdint>
#include <string>

namespace imagekit {

/// In place of a word address or of a group id.
inline constexpr std::uint16_t None = 0xFFFF;

/// Codes of the data types of numeric variables.
enum class DataType : std::uint8_t {
    U8 = 0x00,
    U16 = 0x01,
    U32 = 0x02,
    U64 = 0x03,
    S8 = 0x80,
    S16,
    S32,
    S64
};

/// Text of the store, or a string of the image.
struct Label {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t TextAddress = None;
    std::uint16_t X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // px, all inside
    std::uint32_t Colour = 0;
    std::uint32_t BackColour = 0;
    std::uint8_t Font = 0;
    std::uint16_t TextLength = 0; // words
    std::uint8_t CharSpacing = 0; // px
    std::uint8_t LineSpacing = 0;
    std::uint8_t Anchor = 0; // 0..8
    bool Opaque = false;
    bool Masked = false;
    std::uint16_t String = 0; // from 1; 0: the text of the store
};

enum class Alignment : std::uint8_t { Left = 0, Centre = 1, Right = 2 };

/// A numeric variable as decimal text.
struct Number {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t ValueAddress = 0;
    std::uint16_t X = 0, Y = 0; // px, of the edge or the centre that the alignment names
    std::uint32_t Colour = 0;
    std::uint8_t Font = 0;
    bool LeadingZeros = false;
    Alignment Align = Alignment::Left;
    std::uint8_t IntegerDigits = 0;
    std::uint8_t DecimalDigits = 0;
    DataType Type = DataType::U16;
    std::string Unit{};               // single-byte characters
    std::uint16_t HideAddress = None; // hidden while this word is not 0
};

/// A numeric variable in digit pictures: 0 to 9, then the decimal point and the minus, if it has them.
struct PngNumber {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t ValueAddress = 0;
    std::uint16_t X = 0, Y = 0;                   // px, of the edge or the centre that the alignment names
    std::uint16_t FirstImage = 0, LastImage = 11; // indices of the picture table
    bool LeadingZeros = false;
    Alignment Align = Alignment::Left;
    std::uint8_t IntegerDigits = 0;
    std::uint8_t DecimalDigits = 0;
    DataType Type = DataType::U16;
    std::uint16_t HideAddress = None; // hidden while this word is not 0
};

/// Plays a sequence of ImageBuilder::addSequence() as its control word tells.
struct ImageAnimation {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    bool Shown = false; // counts as shown before its first frame
    std::uint16_t ControlAddress = 0;
    std::uint16_t X = 0, Y = 0, Width = 0, Height = 0; // px
    std::uint16_t Sequence = 0;
    std::uint8_t Delay = 0; // ticks of 10 ms between two frames, two of them a cycle
    bool HoldFirst = false; // idle means to go back to the first frame
    std::uint16_t LoopValue = 1, OnceValue = 2, IdleValue = 0, HideValue = 3;
    std::uint16_t DoneAddress = None, DoneValue = 0; // set when a single play ends
    std::uint16_t Group = None;                      // drawn over each frame
};

enum class TimerFormat : std::uint8_t { Nothing, HoursMinutesSeconds, HoursMinutes, MinutesSeconds, Plain };
enum class TimerDirection : std::uint8_t { Down, Up };

/// A timer in seconds, shown in digit pictures.
struct UiTimer {
    std::uint16_t ParameterAddress = Inline;
    std::uint16_t PresetAddress = 0; // limit of a count up; the timer's id as well
    std::uint16_t TimerAddress = 0;
    std::uint16_t ControlAddress = 0; // 0 stopped, 1 counting, 2 hidden
    std::uint16_t X = 0, Y = 0;       // px
    std::uint16_t FirstImage = 0;     // digits 0 to 9, then the colon
    TimerFormat Format = TimerFormat::HoursMinutesSeconds;
    TimerDirection Direction = TimerDirection::Down;
    bool Background = false;                             // goes on counting when the page is left
    bool Notify = false;                                 // sends a frame at the end
    std::uint16_t TargetAddress = None, TargetValue = 0; // set at the end
};

// In the pointer form the panel reads the block from the store; the caller puts it there.

DisplayRecord Encode(const Label& label);
DisplayRecord Encode(const Number& number);
DisplayRecord Encode(const PngNumber& number);
DisplayRecord Encode(const ImageAnimation& animation);
DisplayRecord Encode(const UiTimer& timer);

WidgetDescription Describe(const Label& label);
WidgetDescription Describe(const Number& number);
WidgetDescription Describe(const PngNumber& number);
WidgetDescription Describe(const ImageAnimation& animation);
WidgetDescription Describe(const UiTimer& timer);

} // namespace imagekit
