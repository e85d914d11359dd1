// What the rotary encoder does on a page: a menu, a single entry, or a change of page. The first such record
// of a page counts.
#pragma once

#include "imagekit/records.h"
#include "imagekit/value_widgets.h"

#include <array>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

namespace imagekit {

/// Writes a word, and then changes the page.
struct EncoderAction {
    std::uint16_t Page = None;
    std::uint16_t Address = None, Value = 0;
};
using EncoderKeys = std::array<std::optional<EncoderAction>, 3>; // keys without an action do nothing

// The entries of a menu. Variables are signed: S8, S16 or S32.

/// Key 1 changes a variable by a step.
struct EncoderStep {
    std::uint16_t Address = 0;
    DataType Type = DataType::S16;
    std::int32_t Highest = 100, Lowest = 0;
    std::uint16_t Step = 1;
    bool Up = true;
    bool Wrap = false;
};

/// The knob changes a variable; in a menu key 1 begins and ends that.
struct EncoderValue {
    bool Notify = false; // of an entry: every turn sends the variable
    std::uint16_t Address = 0;
    DataType Type = DataType::S16;
    std::int16_t Highest = 100, Lowest = 0;
    std::uint16_t Step = 1;
    bool Wrap = false;
};

struct EncoderActions {
    bool Notify = false; // of key 1
    EncoderKeys Keys{};
};

/// The knob moves between entries, of which the selector word holds the current one.
struct EncoderMenu {
    std::uint16_t SelectorAddress = 0;
    std::vector<std::variant<EncoderStep, EncoderValue, EncoderActions>> Entries{}; // 1 to 48
};

/// Three keys, and a knob that may change a variable.
struct EncoderEntry {
    EncoderKeys Keys{};
    std::array<bool, 3> NotifyKeys{};
    std::optional<EncoderValue> Value{};
    bool NotifyClockwise = false, NotifyCounterClockwise = false;
};

/// The knob changes the page.
struct EncoderPages {
    bool Notify = false;
    std::uint16_t CounterClockwise = None, Clockwise = None;
};

DisplayRecord Encode(const EncoderMenu& menu);
DisplayRecord Encode(const EncoderEntry& entry);
DisplayRecord Encode(const EncoderPages& pages);

WidgetDescription Describe(const EncoderMenu& menu);

} // namespace imagekit
