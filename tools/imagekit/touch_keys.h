// Keys: touch widgets that act when they are let go. Images are indices of the picture table, groups ids of
// the page's group stream.
#pragma once

#include "imagekit/records.h"
#include "imagekit/value_widgets.h"

#include <cstdint>

namespace imagekit {

/// The rectangle of a touch widget, px, all inside.
struct Area {
    std::uint16_t X0 = 0, Y0 = 0, X1 = 0, Y1 = 0;
};

/// In place of a rectangle: no pointer reaches the key, only the virtual key of this code.
constexpr Area VirtualKeyOnly(std::uint16_t code) { return {.X0 = 0xFFFF, .Y0 = code}; }

/// Changes the page.
struct PageKey {
    Area Where{};
    bool Notify = false; // sends NotifyCode to the host
    std::uint8_t InList = 0;
    std::uint16_t NotifyCode = 0;
    std::uint16_t NormalImage = None, PressImage = None;
    std::uint16_t TargetPage = None;
    std::uint16_t OverlayGroup = None;
};

/// Shows a variable by a pair of pictures a value, and starts a preset by it.
struct StateKey {
    Area Where{};
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t Address = None;
    std::uint16_t Lowest = 0, Highest = 1;
    std::uint16_t FirstImage = 0; // normal look of the lowest value; its press look follows
    std::uint16_t FirstPreset = None;
    std::uint16_t OverlayGroup = None;
};

/// Copies words.
struct CopyKey {
    Area Where{};
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t NotifyCode = 0;
    std::uint16_t TargetPage = None;
    std::uint16_t NormalImage = None, PressImage = None;
    std::uint16_t Destination = 0, Source = 0;
    std::uint8_t WordCount = 1;
    std::uint16_t OverlayGroup = None;
};

/// The data type of a key that flips one bit, 0 to 15, of a word.
constexpr DataType BitOfWord(unsigned bit) { return static_cast<DataType>(0x40 | (bit & 0x0F)); }

/// Steps a variable.
struct StepKey {
    Area Where{};
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t Address = 0;
    DataType Type = DataType::U16;
    bool Up = true;
    bool Wrap = false;
    std::uint16_t Step = 1;
    std::int32_t Highest = 0, Lowest = 0; // 16 bits, signed for a signed type
    std::uint16_t NormalImage = None, PressImage = None;
    bool Repeat = false;
};

/// Opens a page as a pop-up window.
struct PopupKey {
    Area Where{};
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t NotifyCode = 0;
    std::uint16_t NormalImage = None, PressImage = None;
    std::uint16_t Page = None;
    std::uint16_t PopupX = 0, PopupY = 0; // px on the panel
    bool Dim = false;                     // darkens the page behind
    bool CleanOld = false;                // restores the place of the pop-up that was open
};

/// What a MultiKey does on one of its gestures.
struct KeyAction {
    bool Enabled = false;
    std::uint16_t NotifyCode = 0;
    std::uint16_t TargetPage = None;
    std::uint16_t Address = None, Value = 0; // written when the address names a word
};

/// Tells a click, a double click and a long press apart.
struct MultiKey {
    Area Where{};
    bool Notify = false;
    std::uint8_t InList = 0;
    std::uint16_t NormalImage = None, PressImage = None;
    KeyAction Click{}, DoubleClick{}, LongPress{};
    std::uint8_t DoubleClickWindow = 6; // units of 50 ms
    std::uint8_t LongPressTicks = 100;  // units of 10 ms
    std::uint16_t OverlayGroup = None;
};

TouchRecord Encode(const PageKey& key);
TouchRecord Encode(const StateKey& key);
TouchRecord Encode(const CopyKey& key);
TouchRecord Encode(const StepKey& key);
TouchRecord Encode(const PopupKey& key);
TouchRecord Encode(const MultiKey& key);

} // namespace imagekit
