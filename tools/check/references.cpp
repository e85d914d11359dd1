#include "check/references.h"

#include "store/variable_store.h"
#include "widgets/display/value_icon.h"

#include <algorithm>
#include <iterator>

namespace check {
namespace {

namespace kind {
constexpr std::uint16_t Label = 0x01, Number = 0x02, ValueIcon = 0x03, PngNumber = 0x04, Animation = 0x05,
                        PngClock = 0x06, QrCode = 0x07, AnalogClock = 0x08, Textroll = 0x09, Music = 0x0A,
                        ImageBar = 0x0B, RingGauge = 0x0C, Curve = 0x0D, EncoderMenu = 0x0E, BitIcon = 0x0F,
                        UiTimer = 0x10, AutoStep = 0x11, Needle = 0x12, EncoderEntry = 0x13,
                        EncoderPages = 0x14, Camera = 0x20, Video = 0x22;
} // namespace kind

namespace menu {
constexpr std::uint16_t Step = MenuEntryCode(1), Value = MenuEntryCode(2), Action = MenuEntryCode(3);
} // namespace menu

namespace family {
constexpr std::uint16_t Swipe = 0x8000, PageKey = 0x8001, NumberEntry = 0x8002, StepKey = 0x8003,
                        Slider = 0x8004, KeyboardKey = 0x8005, Roller = 0x8006, Rtouch = 0x8007,
                        PopupKey = 0x8008, TextEntry = 0x8009, PinyinEntry = 0x800A, MultiKey = 0x800B,
                        SlidePage = 0x800C, StateKey = 0x800D, CopyKey = 0x800E, SlidingList = 0x800F;
} // namespace family

constexpr std::uint32_t Ffff = 0xFFFF;
constexpr std::uint32_t NoWord = panel::StoreWordCount; // every address outside of the store means none

using Count = Extent::Count;
using enum What;

constexpr Extent One{};
constexpr Extent Bytes(std::uint8_t at) { return {Count::Byte, at}; }
constexpr Extent Words(std::uint8_t at) { return {Count::Number, at}; }
constexpr Extent Values(std::uint8_t lowestAt, std::uint8_t each) { return {Count::Values, lowestAt, each}; }
constexpr Extent Steps(std::uint8_t lowestAt) { return {Count::Steps, lowestAt}; }
constexpr Extent Typed(std::uint8_t typeAt) { return {Count::DataType, typeAt}; }
constexpr Extent Digits(std::uint8_t decimalsAt) { return {Count::Digits, decimalsAt}; }
constexpr Extent ClockRun(std::uint8_t formatAt) { return {Count::ClockRun, formatAt}; }
constexpr Extent TimerRun(std::uint8_t formatAt) { return {Count::TimerRun, formatAt}; }
constexpr Extent Other(std::uint8_t at) { return {Count::OtherField, at}; }

constexpr When If(std::uint8_t at, std::uint8_t value) { return {at, 0xFF, value}; }
constexpr When Unless(std::uint8_t at, std::uint8_t value) { return {at, 0xFF, value, false}; }
constexpr When UnlessNone(std::uint8_t at) { return {at, 0xFFFF, 0xFFFF, false}; }
constexpr When IfNone(std::uint8_t at) { return {at, 0xFFFF, 0xFFFF}; }
constexpr When IfBit(std::uint8_t at, int bit) {
    const auto mask = static_cast<std::uint16_t>(1 << bit);
    return {at, mask, mask};
}
/// A key that only a virtual key reaches stands nowhere.
constexpr When OnScreen = UnlessNone(3);

// clang-format off
constexpr Reference References[] = { // ascending by code
    {kind::Label, 0x05, Word, "text", Never, Words(0x19), Unless(0x1F, 1)},
    {kind::Label, 0x07, Box},
    {kind::Label, 0x17, Font, "", Never, One, Unless(0x1F, 1)},
    {kind::Label, 0x20, String, "", Never, One, If(0x1F, 1)},

    {kind::Number, 0x05, Word, "value", Never, Typed(0x14)},
    {kind::Number, 0x07, Spot},
    {kind::Number, 0x0F, Font},
    {.code = kind::Number, .at = 0x16, .what = Word, .role = "hide", .none = Ffff, .lengthAt = 0x15},

    {kind::ValueIcon, 0x05, Word, "value"},
    {kind::ValueIcon, 0x07, PictureAt, "", Never, Other(0x0B)},
    {kind::ValueIcon, 0x0B, Picture, "", panel::ValueIconImageBound, Values(0x0F, 1)},
    {kind::ValueIcon, 0x14, Group, "", Ffff},

    {kind::PngNumber, 0x05, Word, "value", Never, Typed(0x0F)},
    {kind::PngNumber, 0x07, Spot},
    {kind::PngNumber, 0x0B, Picture, "digit", Never, Digits(0x11)},
    {kind::PngNumber, 0x13, Word, "hide", Ffff},

    {kind::Animation, 0x05, Word, "control"},
    {kind::Animation, 0x07, Area},
    {kind::Animation, 0x0F, Sequence},
    {kind::Animation, 0x1D, Write, "done", NoWord, Other(0x1F)},
    {kind::Animation, 0x21, Group, "", Ffff},

    {kind::PngClock, 0x05, Spot},
    {kind::PngClock, 0x09, Picture, "digit", Never, ClockRun(0x0D)},

    {kind::QrCode, 0x05, Word, "text", Never, Words(0x07)},
    {kind::QrCode, 0x09, CodeAt, "", Never, Other(0x0D)},

    {kind::AnalogClock, 0x05, PictureAt, "", Never, Other(0x09)},
    {kind::AnalogClock, 0x09, Picture, "face"},
    {kind::AnalogClock, 0x1D, Picture, "cap", Ffff},

    {kind::Textroll, 0x05, Word, "text", Never, Words(0x0F)},
    {kind::Textroll, 0x07, Box},
    {kind::Textroll, 0x11, Font},

    {kind::Music, 0x05, Sound},

    {kind::ImageBar, 0x05, Word, "value"},
    {kind::ImageBar, 0x07, PictureAt, "", Never, Other(0x0B), UnlessNone(0x16)},
    {kind::ImageBar, 0x0B, Picture, "bar", Ffff},
    {kind::ImageBar, 0x12, PictureAt, "", Never, Other(0x16)},
    {kind::ImageBar, 0x12, PictureAt, "", Never, Other(0x0B), IfNone(0x16)}, // the bar takes its place
    {kind::ImageBar, 0x16, Picture, "background", Ffff},

    {kind::RingGauge, 0x05, Word, "value"},
    {kind::RingGauge, 0x07, PictureAt, "", Never, Other(0x0B)},
    {kind::RingGauge, 0x0B, Picture, "foreground"},
    {kind::RingGauge, 0x0D, Picture, "background", Ffff},
    {kind::RingGauge, 0x17, Spot, "", Never, One, Unless(0x26, 0)},
    {kind::RingGauge, 0x1E, Font, "", Never, One, If(0x26, 1)},
    {kind::RingGauge, 0x22, Picture, "digit", Never, Digits(0x1C), If(0x26, 2)},
    {kind::RingGauge, 0x27, Group, "", Ffff},

    {kind::Curve, 0x05, Box},
    {kind::Curve, 0x16, Channel},

    {kind::EncoderMenu, 0x06, Word, "selector"},

    {kind::BitIcon, 0x05, Word, "value"},
    {kind::BitIcon, 0x07, PictureAt, "", Never, Other(0x0C)},
    {kind::BitIcon, 0x07, PictureAt, "", Never, Other(0x0E)},
    {kind::BitIcon, 0x0C, Picture, "clear", Ffff},
    {kind::BitIcon, 0x0E, Picture, "set", Ffff},
    {kind::BitIcon, 0x11, Group, "", Ffff},

    {kind::UiTimer, 0x05, Word, "preset"},
    {kind::UiTimer, 0x07, Word, "timer"},
    {kind::UiTimer, 0x09, Word, "control"},
    {kind::UiTimer, 0x0B, Spot, "", Never, One, Unless(0x11, 0)},
    {kind::UiTimer, 0x0F, Picture, "digit", Never, TimerRun(0x11)},
    {kind::UiTimer, 0x15, Write, "target", NoWord, Other(0x17)},

    {kind::AutoStep, 0x05, Word, "target", Never, Typed(0x07)},
    {kind::AutoStep, 0x08, Word, "control"},
    {kind::AutoStep, 0x24, Write, "done", NoWord, Other(0x26)},

    {kind::Needle, 0x05, Word, "value"},
    {kind::Needle, 0x07, Picture, "dial", Ffff, One, Unless(0x2D, 5)},
    {kind::Needle, 0x09, Area},
    {kind::Needle, 0x1C, Picture, "cover", Ffff, One, Unless(0x2D, 5)},
    {kind::Needle, 0x1F, Word, "digits", NoWord, Typed(0x21), If(0x1E, 1)},
    {kind::Needle, 0x22, Spot, "", Never, One, If(0x1E, 1)},
    {kind::Needle, 0x26, Picture, "digit", Never, Digits(0x2C), If(0x1E, 1)},
    {kind::Needle, 0x3A, Needle, "needle", Never, Steps(0x15), If(0x2D, 3)},
    {kind::Needle, 0x3A, Needle, "needle", Never, Steps(0x15), If(0x2D, 5)},

    {kind::EncoderEntry, 7, Page, "key 1", Ffff, One, IfBit(5, 0)},
    {kind::EncoderEntry, 9, Write, "key 1", NoWord, Other(11), IfBit(5, 0)},
    {kind::EncoderEntry, 14, Page, "key 2", Ffff, One, IfBit(5, 1)},
    {kind::EncoderEntry, 16, Write, "key 2", NoWord, Other(18), IfBit(5, 1)},
    {kind::EncoderEntry, 21, Page, "key 3", Ffff, One, IfBit(5, 2)},
    {kind::EncoderEntry, 23, Write, "key 3", NoWord, Other(25), IfBit(5, 2)},
    {kind::EncoderEntry, 27, Word, "knob", Never, Typed(29), IfBit(5, 3)},

    {kind::EncoderPages, 6, Page, "counter-clockwise", Ffff},
    {kind::EncoderPages, 8, Page, "clockwise", Ffff},

    {kind::Camera, 0x05, Word, "control"},
    {kind::Camera, 0x07, Box},
    {kind::Camera, 0x17, Group, "", Ffff},

    {kind::Video, 0x05, Video},
    {kind::Video, 0x07, Box},
    {kind::Video, 0x11, Write, "end", NoWord, Other(0x13), If(0x0F, 3)},
    {kind::Video, 0x15, Write, "end", NoWord, Other(0x17), If(0x0F, 3)},
    {kind::Video, 0x19, Write, "end", NoWord, Other(0x1B), If(0x0F, 3)},
    {kind::Video, 0x1D, Write, "end", NoWord, Other(0x1F), If(0x0F, 3)},
    {kind::Video, 0x21, Write, "end", NoWord, Other(0x23), If(0x0F, 3)},
    {kind::Video, 0x25, Write, "end", NoWord, Other(0x27), If(0x0F, 3)},
    {kind::Video, 0x29, Write, "end", NoWord, Other(0x2B), If(0x0F, 3)},
    {kind::Video, 0x2D, Write, "end", NoWord, Other(0x2F), If(0x0F, 3)},

    {menu::Step, 2, Word, "step", Never, Typed(4)},
    {menu::Value, 2, Word, "value", Never, Typed(4)},
    {menu::Action, 3, Page, "key 1", Ffff, One, IfBit(2, 0)},
    {menu::Action, 5, Write, "key 1", NoWord, Other(7), IfBit(2, 0)},
    {menu::Action, 10, Page, "key 2", Ffff, One, IfBit(2, 1)},
    {menu::Action, 12, Write, "key 2", NoWord, Other(14), IfBit(2, 1)},
    {menu::Action, 17, Page, "key 3", Ffff, One, IfBit(2, 2)},
    {menu::Action, 19, Write, "key 3", NoWord, Other(21), IfBit(2, 2)},

    {family::Swipe, 3, Page, "up", Ffff},
    {family::Swipe, 7, Page, "down", Ffff},
    {family::Swipe, 11, Page, "left", Ffff},
    {family::Swipe, 15, Page, "right", Ffff},

    {family::PageKey, 3, Box, "", Never, One, OnScreen},
    {family::PageKey, 3, PictureAt, "", Never, Other(13), OnScreen},
    {family::PageKey, 13, Picture, "normal", Ffff},
    {family::PageKey, 15, Picture, "press", Ffff},
    {family::PageKey, 17, Page, "target", Ffff},
    {family::PageKey, 19, Group, "", Ffff},

    {family::NumberEntry, 3, Box, "", Never, One, OnScreen},
    {family::NumberEntry, 11, Word, "value", Never, Typed(13)},
    {family::NumberEntry, 16, PageAt, "", Never, Other(27)},
    {family::NumberEntry, 24, Font},
    {family::NumberEntry, 27, Page, "keyboard"},

    {family::StepKey, 3, Box, "", Never, One, OnScreen},
    {family::StepKey, 3, PictureAt, "", Never, Other(22), OnScreen},
    {family::StepKey, 11, Word, "value", Never, Typed(13)},
    {family::StepKey, 22, Picture, "normal", Ffff},
    {family::StepKey, 24, Picture, "press", Ffff},

    {family::Slider, 3, PictureAt, "", Never, Other(7)},
    {family::Slider, 7, Picture, "fill", Ffff},
    {family::Slider, 9, Word, "value"},
    {family::Slider, 11, Box},
    {family::Slider, 19, Picture, "thumb", Ffff},
    {family::Slider, 26, PictureAt, "", Never, Other(30)},
    {family::Slider, 30, Picture, "background", Ffff},
    {family::Slider, 33, Group, "", Ffff},

    {family::KeyboardKey, 3, Box},
    {family::KeyboardKey, 13, PagePicture, "press", Ffff},

    {family::Roller, 3, Word, "value"},
    {family::Roller, 5, Box},
    {family::Roller, 18, Picture, "selected strip"},
    {family::Roller, 20, Picture, "normal strip"},

    {family::Rtouch, 3, Word, "value"},
    {family::Rtouch, 5, PictureAt, "", Never, Other(9)},
    {family::Rtouch, 9, Picture, "foreground"},
    {family::Rtouch, 11, Picture, "background", Ffff},
    {family::Rtouch, 13, Picture, "thumb", Ffff},
    {family::Rtouch, 26, Spot, "", Never, One, Unless(41, 0)},
    {family::Rtouch, 33, Font, "", Never, One, If(41, 1)},
    {family::Rtouch, 37, Picture, "digit", Never, Digits(31), If(41, 2)},
    {family::Rtouch, 43, Group, "", Ffff},

    {family::PopupKey, 3, Box, "", Never, One, OnScreen},
    {family::PopupKey, 3, PictureAt, "", Never, Other(13), OnScreen},
    {family::PopupKey, 13, Picture, "normal", Ffff},
    {family::PopupKey, 15, Picture, "press", Ffff},
    {family::PopupKey, 17, Page, "pop-up", Ffff},
    {family::PopupKey, 19, PageAt, "", Never, Other(17)},

    {family::TextEntry, 3, Box, "", Never, One, OnScreen},
    {family::TextEntry, 11, Word, "text", Never, Words(13)},
    {family::TextEntry, 16, Font},
    {family::TextEntry, 30, Page, "keyboard"},
    {family::TextEntry, 32, PageAt, "", Never, Other(30)},

    {family::PinyinEntry, 3, Box, "", Never, One, OnScreen},
    {family::PinyinEntry, 3, Pinyin},
    {family::PinyinEntry, 11, Word, "text", Never, Words(13)},
    {family::PinyinEntry, 16, Font},
    {family::PinyinEntry, 19, Font, "pinyin"},
    {family::PinyinEntry, 45, Page, "keyboard"},
    {family::PinyinEntry, 47, PageAt, "", Never, Other(45)},

    {family::MultiKey, 3, Box, "", Never, One, OnScreen},
    {family::MultiKey, 3, PictureAt, "", Never, Other(11), OnScreen},
    {family::MultiKey, 11, Picture, "normal", Ffff},
    {family::MultiKey, 16, Picture, "press", Ffff},
    {family::MultiKey, 18, Page, "click", Ffff, One, IfBit(13, 0)},
    {family::MultiKey, 20, Write, "click", NoWord, Other(22), IfBit(13, 0)},
    {family::MultiKey, 29, Page, "double-click", Ffff, One, IfBit(13, 1)},
    {family::MultiKey, 31, Write, "double-click", NoWord, Other(33), IfBit(13, 1)},
    {family::MultiKey, 40, Page, "long-press", Ffff, One, IfBit(13, 2)},
    {family::MultiKey, 42, Write, "long-press", NoWord, Other(44), IfBit(13, 2)},
    {family::MultiKey, 46, Group, "", Ffff},

    {family::SlidePage, 0x0B, Page, "next", Ffff},
    {family::SlidePage, 0x0F, Page, "previous", Ffff},
    {family::SlidePage, 0x13, Rows},

    {family::StateKey, 3, Box, "", Never, One, OnScreen},
    {family::StateKey, 3, PictureAt, "", Never, Other(17), OnScreen},
    {family::StateKey, 11, Word, "value", Ffff},
    {family::StateKey, 17, Picture, "", Never, Values(13, 2), UnlessNone(11)},
    {family::StateKey, 19, Preset, "", Ffff, Values(13, 1)},
    {family::StateKey, 21, Group, "", Ffff},

    {family::CopyKey, 3, Box, "", Never, One, OnScreen},
    {family::CopyKey, 3, PictureAt, "", Never, Other(15), OnScreen},
    {family::CopyKey, 13, Page, "target", Ffff},
    {family::CopyKey, 15, Picture, "normal", Ffff},
    {family::CopyKey, 17, Picture, "press", Ffff},
    {family::CopyKey, 19, Word, "destination", NoWord, Bytes(23)},
    {family::CopyKey, 21, Word, "source", NoWord, Bytes(23)},
    {family::CopyKey, 24, Group, "", Ffff},

    {family::SlidingList, 5, Box},
    {family::SlidingList, 14, PagePicture, "list"},
    {family::SlidingList, 22, Picture, "resting bar", Ffff},
    {family::SlidingList, 24, Picture, "moving bar", Ffff},
};
// clang-format on
static_assert(std::ranges::is_sorted(References, {}, &Reference::code));

} // namespace

std::span<const Reference> ReferencesOf(std::uint16_t code) {
    const auto* first = std::ranges::lower_bound(References, code, {}, &Reference::code);
    const auto* last = std::ranges::upper_bound(References, code, {}, &Reference::code);
    return {first, last};
}

} // namespace check
