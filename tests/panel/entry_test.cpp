#include "imagekit/entry_widgets.h"
#include "imagekit/value_widgets.h"
#include "pages/page_switch.h"
#include "store/typed_value.h"
#include "touch_fixture.h"
#include "widgets/touch/keyboard.h"
#include "widgets/touch/number_entry.h"
#include "widgets/touch/open_entry.h"
#include "widgets/touch/text_entry.h"

#include <limits>

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100;
constexpr QPoint At(20, 10); // of the keyboard on the panel
constexpr QRgb Gray = 0xFFA0A0A4, Board = 0xFF0000FF, Pressed = 0xFFFF0000, Ink = 0xFF00FF00;

/// The keys of the keyboard, 10 x 10 px each, eight in a row below the line of the text. '<' erases, '#' is
/// Shift,
/// '!' enters, '?' cancels, '~' clears.
const std::string Keys = "0123456789.-<#!?~aBc";

QRect keyPlace(char key) {
    const int index = static_cast<int>(Keys.find(key));
    return QRect(At + QPoint(10 * (index % 8), 12 + 10 * (index / 8)), QSize(10, 10));
}

std::uint16_t keyCode(char key) {
    switch (key) {
    case '<': return imagekit::key_code::Backspace;
    case '#': return imagekit::key_code::Shift;
    case '!': return imagekit::key_code::Enter;
    case '?': return imagekit::key_code::Cancel;
    case '~': return imagekit::key_code::Clear;
    default: return CharacterKey(key, key == 'a' ? 'A' : key);
    }
}

class EntryTest : public PanelTest {
protected:
    static constexpr int Width = 120, Height = 64;
    enum : std::uint16_t { FieldPage, KeyboardPage, PressPage, OtherPage };

    EntryTest() : image({.Width = Width, .Height = Height, .ColourMode = 1}) {
        font = image.addFont(SyntheticFont({.Kind = FontKind::Ascii, .Width = 4, .Height = 8}));
        image.addPage(PlainPage(image.config(), Qt::gray));
        auto& keyboard = image.addPage(filled(Qt::blue));
        image.addPage(filled(Qt::red));
        image.addPage();
        for (const char key : Keys) {
            const QRect place = keyPlace(key).translated(-At);
            const auto code = key >= '0' && key <= '9'   ? std::uint16_t(key)
                              : key == '.' || key == '-' ? std::uint16_t(key)
                                                         : keyCode(key);
            keyboard.add(KeyboardKey{.Where = {std::uint16_t(place.left()), std::uint16_t(place.top()),
                                               std::uint16_t(place.right()), std::uint16_t(place.bottom())},
                                     .Code = code,
                                     .PressPicture = PressPage});
        }
    }
    static Pixels filled(const QColor& colour) {
        QImage picture(80, 42, QImage::Format_ARGB32);
        picture.fill(colour);
        return {picture};
    }
    KeyboardPlace place() const { return {.Page = KeyboardPage, .X = 20, .Y = 10, .TextX = 4, .TextY = 2}; }
    NumberEntry number() const {
        return {.Where = {0, 0, 9, 9},
                .Address = Value,
                .Keyboard = place(),
                .Font = font,
                .GlyphWidth = 4,
                .TextColour = 0x00FF00,
                .CursorColour = 0x00FF00};
    }
    TextEntry text() const {
        return {.Where = {0, 0, 9, 9},
                .Address = Value,
                .Capacity = 4,
                .Font = font,
                .GlyphWidth = 4,
                .GlyphHeight = 8,
                .TextColour = 0x00FF00,
                .CursorColour = 0x00FF00,
                .Keyboard = place()};
    }

    void start() {
        ASSERT_EQ(boot(image), StartResult::Running);
        cycles(1);
        TakeSentFrames();
    }
    void tap(QPoint at) {
        PressPointer(at);
        cycles(1);
        ReleasePointer();
        cycles(1);
    }
    void open() { tap({5, 5}); }
    void type(const std::string& keys) {
        for (const char key : keys) tap(keyPlace(key).center());
    }
    static std::string typed() { return {EntryBuffer.begin(), EntryBuffer.begin() + EntryLength}; }
    bool hasInk(QRect area) const {
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (pixel(x, y) == Ink) return true;
        return false;
    }

    ImageBuilder image;
    std::uint8_t font = 0;
};

struct Dialogue {
    const char* name;
    NumberEntry field; // of which type, digits, limits and prefill count
    std::int64_t before;
    const char* keys;
    const char* shown; // before Enter
    std::int64_t after;
};

class NumberDialogues : public EntryTest, public ::testing::WithParamInterface<Dialogue> {};

void storeNumber(std::int64_t value, DataType type) {
    const int bytes = 1 << (static_cast<int>(type) & 3);
    if (bytes == 1) return StoreLowByte(Value, static_cast<std::uint8_t>(value));
    for (int i = 0; i < bytes; ++i)
        StoreByte(2 * Value + static_cast<std::size_t>(i),
                  static_cast<std::uint8_t>(value >> 8 * (bytes - 1 - i)));
}

TEST_P(NumberDialogues, EndInTheStore) {
    const Dialogue& dialogue = GetParam();
    NumberEntry field = number();
    field.Type = dialogue.field.Type;
    field.IntegerDigits = dialogue.field.IntegerDigits;
    field.Decimals = dialogue.field.Decimals;
    field.Limited = dialogue.field.Limited;
    field.Highest = dialogue.field.Highest;
    field.Lowest = dialogue.field.Lowest;
    field.Prefilled = dialogue.field.Prefilled;
    field.Notify = true;
    image.page(FieldPage).add(field);
    start();
    storeNumber(dialogue.before, field.Type);
    open();
    type(dialogue.keys);
    EXPECT_EQ(typed(), dialogue.shown);
    type("!");
    const NumericValue stored = ReadNumeric(Value, static_cast<std::uint8_t>(field.Type));
    EXPECT_EQ(stored.negative ? -static_cast<std::int64_t>(stored.magnitude)
                              : static_cast<std::int64_t>(stored.magnitude),
              dialogue.after);
    const bool refused = dialogue.after == dialogue.before;
    EXPECT_EQ(NumberOpen, refused ? 1 : 0);
    const Payloads frames = TakeSentFrames();
    ASSERT_EQ(frames.size(), refused ? 0u : 1u);
    if (!refused) {
        EXPECT_EQ(frames[0].size(), 3 + ValueFrameBytes(static_cast<std::uint8_t>(field.Type)));
    }
}

constexpr auto U16 = DataType::U16, S16 = DataType::S16, S32 = DataType::S32, S64 = DataType::S64,
               U8 = DataType::U8;
INSTANTIATE_TEST_SUITE_P(
    Entries, NumberDialogues,
    ::testing::Values(
        Dialogue{"Digits", {.Type = U16, .IntegerDigits = 3}, 1, "1234", "123", 123},
        Dialogue{"OneExtraZero", {.Type = U16, .IntegerDigits = 2}, 1, "1000", "100", 100},
        Dialogue{"NoOtherExtraDigit", {.Type = U16, .IntegerDigits = 2}, 1, "101", "10", 10},
        Dialogue{"ScaledByDecimals", {.Type = U16, .IntegerDigits = 3, .Decimals = 2}, 1, "1.5", "1.5", 150},
        Dialogue{
            "ScaledWithoutAPoint", {.Type = U16, .IntegerDigits = 3, .Decimals = 1}, 1, "42.", "42.", 420},
        Dialogue{"DecimalsOnly", {.Type = U16, .IntegerDigits = 0, .Decimals = 2}, 1, "50.257", "0.25", 25},
        Dialogue{"NoPointFirst", {.Type = U16, .IntegerDigits = 3, .Decimals = 1}, 1, ".7.8.9", "7.8", 78},
        Dialogue{"Minus", {.Type = S16, .IntegerDigits = 3}, 1, "-12-3", "-123", -123},
        Dialogue{"MinusOfAnUnsigned", {.Type = U16, .IntegerDigits = 3}, 1, "-7", "7", 7},
        Dialogue{"MinusNeedsADigitBeforeThePoint",
                 {.Type = S16, .IntegerDigits = 2, .Decimals = 1},
                 1,
                 "-.4.5",
                 "-4.5",
                 -45},
        Dialogue{"BackspaceOverEach",
                 {.Type = S16, .IntegerDigits = 2, .Decimals = 1},
                 1,
                 "-1.5<<<<<8.2",
                 "8.2",
                 82},
        Dialogue{"EmptyIsZero", {.Type = U16, .IntegerDigits = 2}, 1, "5<", "", 0},
        Dialogue{"LimitRefuses",
                 {.Type = S16, .IntegerDigits = 3, .Limited = true, .Highest = 99, .Lowest = -5},
                 1,
                 "100",
                 "100",
                 1},
        Dialogue{"LowLimitRefuses",
                 {.Type = S16, .IntegerDigits = 3, .Limited = true, .Highest = 99, .Lowest = -5},
                 1,
                 "-6",
                 "-6",
                 1},
        Dialogue{"LimitTakesItsEnd",
                 {.Type = S16, .IntegerDigits = 3, .Limited = true, .Highest = 99, .Lowest = -5},
                 1,
                 "-5",
                 "-5",
                 -5},
        Dialogue{"PrefilledSigned",
                 {.Type = S32, .IntegerDigits = 6, .Decimals = 2, .Prefilled = true},
                 -70503,
                 "<8",
                 "-705.08",
                 -70508},
        Dialogue{"PrefilledByte", {.Type = U8, .IntegerDigits = 3, .Prefilled = true}, 200, "<<5", "25", 25},
        Dialogue{"WideValue",
                 {.Type = S64, .IntegerDigits = 19},
                 1,
                 "9223372036854775808",
                 "922337203685477580",
                 922337203685477580},
        Dialogue{"LowestWideValue",
                 {.Type = S64, .IntegerDigits = 19, .Prefilled = true},
                 std::numeric_limits<std::int64_t>::min(),
                 "<7",
                 "-9223372036854775807",
                 -9223372036854775807},
        Dialogue{"WideValueWithLimits",
                 {.Type = S64, .IntegerDigits = 9, .Limited = true, .Highest = 1000000, .Lowest = -1000000},
                 1,
                 "-999999",
                 "-999999",
                 -999999}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(EntryTest, KeysShowThePressAndTheFieldLeadsBack) {
    image.page(FieldPage).add(number());
    start();
    open();
    EXPECT_EQ(CurrentPage, KeyboardPage);
    EXPECT_EQ(ReadWord(word::Page), FieldPage);
    EXPECT_EQ(pixel(At.x(), At.y() + 41), Board);
    EXPECT_TRUE(OverlapsOpenEntry(At.x(), At.y(), 1, 1));
    const QPoint seven = keyPlace('7').topLeft();
    PressPointer(seven);
    cycles(1);
    EXPECT_EQ(pixel(seven.x(), seven.y()), Pressed);
    EXPECT_EQ(pixel(seven.x() - 1, seven.y()), Board);
    MovePointer(keyPlace('1').center()); // the first key stays the one
    cycles(1);
    ReleasePointer();
    cycles(1);
    EXPECT_EQ(pixel(seven.x() + 9, seven.y() + 9), Board);
    EXPECT_EQ(typed(), "7");
    EXPECT_TRUE(hasInk({At + QPoint(4, 2), QSize(4, 8)}));
    type("?");
    EXPECT_EQ(CurrentPage, FieldPage);
    EXPECT_EQ(ReadWord(Value), 0);
    EXPECT_EQ(pixel(At.x(), At.y()), Gray);
    EXPECT_FALSE(OverlapsOpenEntry(At.x(), At.y(), 1, 1));
    open();
    apply(word::Page, OtherPage); // from outside
    EXPECT_EQ(NumberOpen, 0);
    EXPECT_FALSE(OpenField.has_value());
}

TEST_F(EntryTest, TheCursorBlinksWhereTheTextEnds) {
    const struct {
        Alignment align;
        int atFirst, afterOne; // px from the text's place
    } cases[] = {{Alignment::Left, 0, 2},
                 {Alignment::Centre, 1, 2},
                 {Alignment::Right, -4, -4},
                 {static_cast<Alignment>(7), -4, -4}};
    for (const auto& c : cases) {
        NumberEntry field = number();
        field.Keyboard.TextX = 40;
        field.Align = c.align;
        field.Where = VirtualKeyOnly(static_cast<std::uint16_t>(c.align));
        image.page(FieldPage).add(field);
    }
    start();
    for (const auto& c : cases) {
        ShowPage(FieldPage);
        apply(word::VirtualKey, static_cast<std::uint16_t>(c.align));
        cycles(1);
        ASSERT_EQ(NumberOpen, 1);
        const auto cursorAt = [&](int x) { return hasInk({At + QPoint(40 + x, 2), QSize(4, 8)}); };
        EXPECT_TRUE(cursorAt(c.atFirst));
        std::vector<bool> phases;
        for (int i = 0; i < 4; ++i) {
            ticks(61);
            cycles(1);
            phases.push_back(cursorAt(c.atFirst));
        }
        EXPECT_EQ(phases[0], phases[2]);
        EXPECT_NE(phases[0], phases[1]);
        type("1");
        ticks(1);
        cycles(1);
        EXPECT_EQ(CursorPlace(), At + QPoint(40 + c.afterOne, 2));
    }
}

TEST_F(EntryTest, ATextIsTypedWithShiftClearAndACapacity) {
    TextEntry field = text();
    field.Notify = true;
    image.page(FieldPage).add(field);
    start();
    StoreWord(Value + 4, 0xAAAA);
    open();
    type("a#a");
    EXPECT_EQ(typed(), "aA");
    const QPoint shift = keyPlace('#').center();
    EXPECT_EQ(pixel(shift.x(), shift.y()), Pressed) << "Shift stays down";
    type("#a<~");
    EXPECT_EQ(pixel(shift.x(), shift.y()), Board);
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
    type("!");
    EXPECT_EQ(ReadWord(Value), 0);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0}}));
}

TEST_F(EntryTest, ATextBeginsWithWhatTheVariableHolds) {
    TextEntry field = text();
    field.Prefilled = true;
    field.Password = true;
    image.page(FieldPage).add(field);
    start();
    const struct {
        std::vector<std::uint8_t> bytes;
        std::string begins;
    } cases[] = {{{'a', 'b', 'c', 0, 0}, "abc"},
                 {{'a', 0, 'b', 0, 0}, std::string("a\0b", 3)},
                 {{'a', 0xC4, 'b'}, "a"},
                 {{0x80, 'a'}, ""},
                 {{'1', '2', '3', '4', '5', '6', '7', '8', '9'}, "12345678"}};
    for (const auto& c : cases) {
        StoreBytes(2 * Value, std::vector<std::uint8_t>(12, 0));
        StoreBytes(2 * Value, c.bytes);
        open();
        EXPECT_EQ(typed(), c.begins);
        type("?");
    }
    StoreBytes(2 * Value, std::vector<std::uint8_t>{'a', 'b', 0, 0});
    open();
    const QImage masked = outputs.frame.copy(QRect(At + QPoint(4, 2), QSize(8, 8)));
    type("<c");
    EXPECT_EQ(outputs.frame.copy(QRect(At + QPoint(4, 2), QSize(8, 8))), masked)
        << "all characters look alike";
    type("!");
    EXPECT_EQ(ReadWord(Value), 0x6163) << "and are stored as they are";
}

TEST_F(EntryTest, AFieldInAPopupLeadsBackToThePopup) {
    image.page(FieldPage).add(PopupKey{.Where = {0, 0, 9, 9}, .Page = 4, .PopupX = 40, .PopupY = 20});
    auto& popup = image.addPage(Pixels{filled(Qt::yellow)});
    NumberEntry field = number();
    field.Where = {2, 2, 8, 8};
    popup.add(field);
    start();
    open();
    tap({45, 25});
    EXPECT_EQ(CurrentPage, KeyboardPage);
    EXPECT_EQ(pixel(At.x(), At.y() + 41), Board) << "where it goes on the panel";
    type("6!");
    EXPECT_EQ(ReadWord(Value), 6);
    EXPECT_EQ(CurrentPage, 4);
    EXPECT_EQ(PopupActive, 1);
}

TEST_F(EntryTest, WhatRunsUnderAKeyboardStaysOutOfIt) {
    TextEntry field = text();
    field.Where = VirtualKeyOnly(7);
    field.Cursor = false;
    QImage digit(6, 8, QImage::Format_RGB32);
    digit.fill(Qt::green);
    UiTimer timer{.PresetAddress = 0x40, .TimerAddress = 0x41, .ControlAddress = 0x42, .X = 30, .Y = 20};
    for (int i = 0; i < 11; ++i) image.addPicture(Pixels{digit});
    image.page(FieldPage).add(timer);
    image.page(FieldPage).add(field);
    image.setWords(0x40, {90, 90, 1});
    start();
    const QRect keyboard(At, QSize(80, 42));
    ASSERT_TRUE(hasInk(keyboard));
    apply(word::VirtualKey, 7);
    cycles(1);
    ASSERT_EQ(TextOpen, 1);
    EXPECT_FALSE(hasInk(keyboard));
    run(2500);
    EXPECT_FALSE(hasInk(keyboard));
    EXPECT_LT(ReadWord(0x41), 90) << "it counts all the same";
    type("?");
    EXPECT_TRUE(hasInk(keyboard));
}

TEST_F(EntryTest, AKeyboardThatDoesNotExistOpensNothing) {
    NumberEntry field = number();
    field.Keyboard.Page = 99;
    TextEntry other = text();
    other.Where = {20, 0, 29, 9};
    other.Keyboard.Page = 99;
    image.page(FieldPage).add(field);
    image.page(FieldPage).add(other);
    start();
    open();
    tap({25, 5});
    EXPECT_EQ(CurrentPage, FieldPage);
    EXPECT_EQ(NumberOpen + TextOpen, 0);
    EXPECT_EQ(TouchBusy, 0);
}

} // namespace
} // namespace panel
