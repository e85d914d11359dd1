#include "imagekit/entry_widgets.h"
#include "touch_fixture.h"
#include "widgets/touch/keyboard.h"
#include "widgets/touch/number_entry.h"
#include "widgets/touch/open_entry.h"
#include "widgets/touch/text_entry.h"

#include <limits>
#include <sys/resource.h>

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100;
constexpr QPoint At(20, 10); // of the keyboard on the panel
constexpr QRgb Board = 0xFF0000FF, Pressed = 0xFFFF0000, Ink = 0xFF00FF00;

/// The keys of the keyboard, 10 x 10 px each, eight in a row below the line of the text. '<' erases, '#' is
/// Shift, '!' enters, '?' cancels, '~' clears.
const std::string Keys = "0123456789.-<#!?~aBc";

QRect keyPlace(char key) {
    const int index = static_cast<int>(Keys.find(key));
    return QRect(At + QPoint(10 * (index % 8), 12 + 10 * (index / 8)), QSize(10, 10));
}

std::uint16_t keyCode(char key) {
    using namespace imagekit::key_code;
    constexpr std::uint16_t codes[] = {Backspace, Shift, Enter, Cancel, Clear};
    const std::size_t index = std::string("<#!?~").find(key);
    if (index != std::string::npos) return codes[index];
    if (key == 'a') return CharacterKey('a', 'A');
    return std::isalpha(key) ? CharacterKey(key, key) : std::uint16_t(key);
}

class EntryTest : public TouchTest {
protected:
    enum : std::uint16_t { FieldPage, KeyboardPage, PressPage, OtherPage };

    EntryTest() {
        image = ImageBuilder({.Width = 120, .Height = 64, .ColourMode = 1});
        font = image.addFont(SyntheticFont({.Kind = FontKind::Ascii, .Width = 4, .Height = 8}));
        image.addPage(PlainPage(image.config(), Qt::gray));
        auto& keyboard = image.addPage(Filled(80, 42, Qt::blue));
        image.addPage(Filled(80, 42, Qt::red));
        image.addPage();
        for (const char key : Keys) {
            const QRect place = keyPlace(key).translated(-At);
            keyboard.add(KeyboardKey{.Where = {std::uint16_t(place.left()), std::uint16_t(place.top()),
                                               std::uint16_t(place.right()), std::uint16_t(place.bottom())},
                                     .Code = keyCode(key),
                                     .PressPicture = PressPage});
        }
    }
    /// What number and text entries have in common: the place, the keyboard and the look.
    template <class Entry>
    Entry field(Entry entry = {}) const {
        entry.Where = {0, 0, 9, 9};
        entry.Address = Value;
        entry.Keyboard = {.Page = KeyboardPage, .X = 20, .Y = 10, .TextX = 4, .TextY = 2};
        entry.Font = font;
        entry.GlyphWidth = 4;
        if constexpr (requires { entry.GlyphHeight; }) entry.GlyphHeight = 8;
        if constexpr (requires { entry.Capacity; }) entry.Capacity = 4;
        entry.TextColour = entry.CursorColour = 0x00FF00;
        return entry;
    }
    void open() { tap(5, 5); }
    void type(const std::string& keys) {
        for (const char key : keys) tap(keyPlace(key).center().x(), keyPlace(key).center().y());
    }
    static std::string typed() { return {EntryBuffer.begin(), EntryBuffer.begin() + EntryLength}; }
    QRgb pixelAt(QPoint at) const { return outputs.frame.pixel(at); }
    bool hasInk(QRect area) const {
        for (int i = 0; i < area.width() * area.height(); ++i)
            if (pixelAt(area.topLeft() + QPoint(i % area.width(), i / area.width())) == Ink) return true;
        return false;
    }

    std::uint8_t font = 0;
};

NumberEntry of(DataType type, std::uint8_t digits, std::uint8_t decimals = 0) {
    return {.Type = type, .IntegerDigits = digits, .Decimals = decimals};
}
NumberEntry prefilled(NumberEntry entry) {
    entry.Prefilled = true;
    return entry;
}
NumberEntry within(int lowest, int highest, NumberEntry entry) {
    entry.Limited = true;
    entry.Lowest = lowest;
    entry.Highest = highest;
    return entry;
}

constexpr auto U16 = DataType::U16, S16 = DataType::S16, S32 = DataType::S32, S64 = DataType::S64,
               U8 = DataType::U8;

TEST_F(EntryTest, DialoguesEndInTheStore) {
    const struct {
        const char* name;
        NumberEntry field; // of which type, digits, limits and prefill count
        std::int64_t before;
        const char* keys;
        const char* shown; // before Enter
        std::int64_t after;
    } cases[] = {
        {"Digits", of(U16, 3), 1, "1234", "123", 123},
        {"OneExtraZero", of(U16, 2), 1, "1000", "100", 100},
        {"NoOtherExtraDigit", of(U16, 2), 1, "101", "10", 10},
        {"ScaledByDecimals", of(U16, 3, 2), 1, "1.5", "1.5", 150},
        {"ScaledWithoutAPoint", of(U16, 3, 1), 1, "42.", "42.", 420},
        {"DecimalsOnly", of(U16, 0, 2), 1, "50.257", "0.25", 25},
        {"NoPointFirst", of(U16, 3, 1), 1, ".7.8.9", "7.8", 78},
        {"Minus", of(S16, 3), 1, "-12-3", "-123", -123},
        {"MinusOfAnUnsigned", of(U16, 3), 1, "-7", "7", 7},
        {"MinusNeedsADigitBeforeThePoint", of(S16, 2, 1), 1, "-.4.5", "-4.5", -45},
        {"BackspaceOverEach", of(S16, 2, 1), 1, "-1.5<<<<<8.2", "8.2", 82},
        {"EmptyIsZero", of(U16, 2), 1, "5<", "", 0},
        {"LimitRefuses", within(-5, 99, of(S16, 3)), 1, "100", "100", 1},
        {"LowLimitRefuses", within(-5, 99, of(S16, 3)), 1, "-6", "-6", 1},
        {"LimitTakesItsEnd", within(-5, 99, of(S16, 3)), 1, "-5", "-5", -5},
        {"PrefilledSigned", prefilled(of(S32, 6, 2)), -70503, "<8", "-705.08", -70508},
        {"PrefilledByte", prefilled(of(U8, 3)), 200, "<<5", "25", 25},
        {"WideValue", of(S64, 19), 1, "9223372036854775808", "922337203685477580", 922337203685477580},
        {"LowestWideValue", prefilled(of(S64, 19)), std::numeric_limits<std::int64_t>::min(), "<7",
         "-9223372036854775807", -9223372036854775807},
        {"WideValueWithLimits", within(-1000000, 1000000, of(S64, 9)), 1, "-999999", "-999999", -999999}};
    const ImageBuilder empty = image;
    for (const auto& c : cases) {
        NumberEntry entry = field(c.field);
        entry.Notify = true;
        image = empty;
        image.page(FieldPage).add(entry);
        start();
        StoreNumeric(Value, static_cast<std::uint8_t>(entry.Type), c.before);
        open();
        type(c.keys);
        EXPECT_EQ(typed(), c.shown) << c.name;
        type("!");
        EXPECT_EQ(number(Value, entry.Type), c.after) << c.name;
        const bool refused = c.after == c.before;
        EXPECT_EQ(NumberOpen, refused ? 1 : 0) << c.name;
        std::vector<std::size_t> sizes;
        for (const Payload& frame : TakeSentFrames()) sizes.push_back(frame.size());
        const std::size_t told = 3 + ValueFrameBytes(static_cast<std::uint8_t>(entry.Type));
        EXPECT_EQ(sizes, std::vector(refused ? 0 : 1, told)) << c.name;
    }
}

TEST_F(EntryTest, TheFirstKeyOfAPressCountsAndTheFieldLeadsBack) {
    image.page(FieldPage).add(field<NumberEntry>());
    start();
    open();
    EXPECT_EQ(CurrentPage, KeyboardPage);
    EXPECT_EQ(ReadWord(word::Page), FieldPage);
    EXPECT_TRUE(OverlapsOpenEntry(At.x(), At.y(), 1, 1));
    press(keyPlace('7').left(), keyPlace('7').top());
    drag(keyPlace('1').center().x(), keyPlace('1').center().y());
    letGo();
    EXPECT_EQ(typed(), "7");
    type("?");
    EXPECT_EQ(CurrentPage, FieldPage);
    EXPECT_EQ(ReadWord(Value), 0);
    EXPECT_FALSE(OverlapsOpenEntry(At.x(), At.y(), 1, 1));
    open();
    apply(word::Page, OtherPage); // from outside
    EXPECT_EQ(NumberOpen, 0);
    EXPECT_FALSE(OpenField.has_value());
}

TEST_F(EntryTest, TheCursorBlinksWhereTheTextEnds) {
    const std::tuple<Alignment, int, int> cases[] = {// px from the text's place: at first, and behind a digit
                                                     {Alignment::Left, 0, 2},
                                                     {Alignment::Centre, 1, 2},
                                                     {Alignment::Right, -4, -4},
                                                     {static_cast<Alignment>(7), -4, -4}};
    for (const auto& [align, atFirst, afterOne] : cases) {
        auto entry = field<NumberEntry>();
        entry.Keyboard.TextX = 40;
        entry.Align = align;
        entry.Where = VirtualKeyOnly(static_cast<std::uint16_t>(align));
        image.page(FieldPage).add(entry);
    }
    start();
    for (const auto& [align, atFirst, afterOne] : cases) {
        ShowPage(FieldPage);
        virtualKey(static_cast<std::uint16_t>(align));
        ASSERT_EQ(NumberOpen, 1);
        std::vector<bool> phases;
        for (int i = 0; i < 3; ++i) {
            phases.push_back(hasInk({At + QPoint(40 + atFirst, 2), QSize(4, 8)}));
            ticks(61);
            cycles(1);
        }
        EXPECT_EQ(phases, (std::vector{true, false, true}));
        type("1");
        ticks(1);
        cycles(1);
        EXPECT_EQ(CursorPlace(), At + QPoint(40 + afterOne, 2));
    }
}

TEST_F(EntryTest, ATextIsTypedWithShiftClearAndACapacity) {
    auto entry = field<TextEntry>();
    entry.Notify = true;
    image.page(FieldPage).add(entry);
    start();
    StoreWord(Value + 4, 0xAAAA);
    open();
    type("a#a");
    EXPECT_EQ(typed(), "aA");
    EXPECT_EQ(pixelAt(keyPlace('#').center()), Pressed) << "Shift stays down";
    type("#a<~");
    EXPECT_EQ(pixelAt(keyPlace('#').center()), Board);
    EXPECT_EQ(typed(), "");
    EXPECT_FALSE(hasInk({At + QPoint(4, 2), QSize(70, 8)}));
    type("a1234567890");
    EXPECT_EQ(typed(), "a1234567") << "eight bytes are the end";
    type("!");
    EXPECT_EQ(CurrentPage, FieldPage);
    EXPECT_EQ(ReadWord(Value), 0x6131);
    EXPECT_EQ(ReadWord(Value + 4), 0) << "the end mark";
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0, 'a', '1', '2', '3', '4', '5', '6', '7'}}));
    open();
    type("aBc!");
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0, 'a', 'B', 'c', 0}})) << "whole words";
    open();
    type("#!");
    EXPECT_EQ(ReadWord(Value), 0);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0}}));
    open();
    type("a");
    EXPECT_EQ(typed(), "A") << "Shift is still on";
}

TEST_F(EntryTest, ATextBeginsWithWhatTheVariableHolds) {
    auto entry = field<TextEntry>();
    entry.Prefilled = entry.Password = true;
    image.page(FieldPage).add(entry);
    start();
    const struct {
        std::string_view text, begins;
    } cases[] = {{"abc", "abc"},
                 {{"a\0b", 3}, {"a\0b", 3}},
                 {"a\xC4z", "a"},
                 {"\x80z", ""},
                 {"123456789", "12345678"}};
    for (const auto& c : cases) {
        setText(Value, c.text, 12);
        open();
        EXPECT_EQ(typed(), c.begins);
        type("?");
    }
    setText(Value, "ab", 4);
    open();
    const QRect line(At + QPoint(4, 2), QSize(8, 8));
    const QImage masked = outputs.frame.copy(line);
    type("<c");
    EXPECT_EQ(outputs.frame.copy(line), masked) << "all characters look alike";
    type("!");
    EXPECT_EQ(ReadWord(Value), 0x6163) << "and are stored as they are";
}

TEST_F(EntryTest, AFieldInAPopupLeadsBackToThePopup) {
    image.page(FieldPage).add(PopupKey{.Where = {0, 0, 9, 9}, .Page = 4, .PopupX = 40, .PopupY = 20});
    auto entry = field<NumberEntry>();
    entry.Where = {2, 2, 8, 8};
    image.addPage(Filled(80, 42, Qt::yellow)).add(entry);
    start();
    open();
    tap(45, 25);
    EXPECT_EQ(CurrentPage, KeyboardPage);
    EXPECT_EQ(pixelAt(At + QPoint(0, 41)), Board) << "where it goes on the panel";
    type("6!");
    EXPECT_EQ(ReadWord(Value), 6);
    EXPECT_EQ(CurrentPage, 4);
    EXPECT_EQ(PopupActive, 1);
}

TEST_F(EntryTest, WhatRunsUnderAKeyboardStaysOutOfIt) {
    auto entry = field<TextEntry>();
    entry.Where = VirtualKeyOnly(7);
    entry.Cursor = false;
    for (int i = 0; i < 11; ++i) addPicture(Qt::green, 6, 8);
    image.page(FieldPage).add(
        UiTimer{.PresetAddress = 0x40, .TimerAddress = 0x41, .ControlAddress = 0x42, .X = 30, .Y = 20});
    image.page(FieldPage).add(entry);
    image.setWords(0x40, {90, 90, 1});
    start();
    const QRect keyboard(At, QSize(80, 42));
    ASSERT_TRUE(hasInk(keyboard));
    virtualKey(7);
    ASSERT_EQ(TextOpen, 1);
    EXPECT_FALSE(hasInk(keyboard));
    run(2500);
    EXPECT_FALSE(hasInk(keyboard));
    EXPECT_LT(ReadWord(0x41), 90) << "it counts all the same";
    type("?");
    EXPECT_TRUE(hasInk(keyboard));
}

TEST_F(EntryTest, ASwipeOverAKeyboardEndsATextButNoNumber) {
    TextEntry text = field(TextEntry());
    text.Cursor = true;
    image.page(FieldPage).add(text);
    image.page(OtherPage).add(field(of(U16, 4)));
    image.page(KeyboardPage).add(SwipeGesture{});
    start();
    for (const std::uint16_t page : {FieldPage, OtherPage}) {
        ShowPage(page);
        open();
        EXPECT_TRUE(OverlapsOpenEntry(0, 0, 120, 64));
        PressPointer({30, 30});
        drag(70, 30);
        letGo();
        EXPECT_EQ(OverlapsOpenEntry(0, 0, 120, 64), page == OtherPage);
        EXPECT_EQ(TextOpen + NumberOpen, page == OtherPage);
        EXPECT_EQ(CursorBlinks, page == OtherPage ? 1 : 0);
    }
}

TEST_F(EntryTest, AKeyboardOfAnySizeIsKeptAsFarAsItShows) {
    auto entry = field<NumberEntry>();
    entry.Keyboard.Page = image.addPage(Solid{30000, 30000, Qt::blue}).index();
    image.page(FieldPage).add(entry);
    start();
    open();
    EXPECT_EQ(NumberOpen, 1);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    EXPECT_LT(usage.ru_maxrss, 1 << 20) << "KiB";
}

TEST_F(EntryTest, AKeyboardThatDoesNotExistOpensNothing) {
    auto number = field<NumberEntry>();
    auto text = field<TextEntry>();
    number.Keyboard.Page = text.Keyboard.Page = 99;
    text.Where = {20, 0, 29, 9};
    image.page(FieldPage).add(number);
    image.page(FieldPage).add(text);
    start();
    for (const int x : {5, 25}) tap(x, 5);
    EXPECT_EQ(CurrentPage, FieldPage);
    EXPECT_EQ(NumberOpen + TextOpen + TouchBusy, 0);
}

} // namespace
} // namespace panel
