#include "widgets/touch/encoder.h"

#include "imagekit/encoder_widgets.h"
#include "store/backlight.h"
#include "touch_fixture.h"

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Selector = 0x0100, Value = 0x0110, Mark = 0x0120;

class EncoderTest : public TouchTest {
protected:
    /// Presses keys one after the other: '>' and '<' turn the knob, digits are the keys.
    void keys(const std::string& pressed) {
        for (const char key : pressed) {
            PressKey(static_cast<EncoderKey>(std::string("><123").find(key)));
            cycles(1);
        }
    }
    static std::int64_t value(DataType type = DataType::S16) { return number(Value, type); }
    static bool eventWaits() { return EncoderEvent != NoEncoderEvent; }
};

TEST_F(EncoderTest, AMenuMovesItsSelectorAroundAndServesTheCurrentEntry) {
    const EncoderStep step{.Address = Value, .Highest = 5, .Lowest = -5, .Step = 4};
    EncoderActions actions{.Notify = true};
    actions.Keys[0] = {.Address = Mark, .Value = 0x1234};
    actions.Keys[2] = {.Page = 1, .Address = Mark, .Value = 0x4321};
    addPage().add(EncoderMenu{.SelectorAddress = Selector,
                              .Entries = {step, EncoderValue{.Notify = true, .Address = Value}, actions}});
    addPage();
    image.setWord(Selector, 0xAB09); // beyond the last entry
    start();
    EXPECT_EQ(EntryIndex, 2);
    keys(">");
    EXPECT_EQ(ReadWord(Selector), 0) << "around the end, the high byte cleared";
    keys("<<");
    EXPECT_EQ(ReadWord(Selector), 1);
    keys("<11");
    EXPECT_EQ(value(), 5) << "two steps, held at the highest";
    keys("2");
    EXPECT_TRUE(eventWaits()) << "no such key here";
    keys(">1>>");
    EXPECT_EQ(AdjustMode, 1);
    EXPECT_EQ(value(), 7);
    EXPECT_EQ(ReadWord(Selector), 1) << "no other entry meanwhile";
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0x10, 0x01, 0x00, 0x06, 0x00, 0x00},
                                          {0x41, 0x10, 0x01, 0x00, 0x07, 0x00, 0x00}}));
    keys("1>1");
    EXPECT_EQ(ReadWord(Mark), 0x1234);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0x01, 0x20, 0x12, 0x34}}));
    keys("3");
    EXPECT_EQ(ReadWord(Mark), 0x4321);
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(TakeSentFrames(), Payloads{});
    EXPECT_EQ(EncoderState, 0);
}

TEST_F(EncoderTest, VariablesOfAllTypesStopOrWrapAtTheirLimits) {
    const auto turned = [](DataType type, int step, bool wrap = false) {
        EncoderValue entry{.Address = Value, .Type = type, .Highest = 10, .Lowest = -10, .Wrap = wrap};
        entry.Step = static_cast<std::uint16_t>(step);
        return entry;
    };
    const auto stepped = [](bool up) {
        EncoderStep entry{.Address = Value, .Type = DataType::S32, .Highest = 0x20000, .Lowest = -0x20000};
        entry.Step = 0x9000;
        entry.Up = up;
        entry.Wrap = true;
        return entry;
    };
    const struct {
        std::variant<EncoderStep, EncoderValue, EncoderActions> entry;
        int start;
        std::string pressed; // 1 begins the adjusting, or steps
        int expected;
        DataType type = DataType::S16; // of the variable
    } cases[] = {{turned(DataType::S8, 4), -3, "1>>>", 9, DataType::S8},
                 {turned(DataType::S8, 4), -3, "1<<<", -10, DataType::S8},
                 {turned(DataType::S16, 5, true), 8, "1>", -10},
                 {turned(DataType::S16, 5, true), -8, "1<<", 5},
                 {turned(DataType::S32, 5), -9, "1<", -10, DataType::S32},
                 {turned(DataType::S32, 1), 0x10003, "1>", 4, DataType::S32}, // the knob sees the low word
                 {turned(static_cast<DataType>(0x01), 1), 3, "1>", 3},
                 {stepped(true), 0x8000, "11", 0x1A000, DataType::S32},
                 {stepped(true), 0x1A000, "1", -0x20000, DataType::S32},
                 {stepped(false), -0x20000, "1", 0x20000, DataType::S32}};
    for (const auto& c : cases) addPage().add(EncoderMenu{.SelectorAddress = Selector, .Entries = {c.entry}});
    start();
    for (std::uint16_t page = 0; const auto& c : cases) {
        AdjustMode = 0;
        ShowPage(page++);
        StoreNumeric(Value, static_cast<std::uint8_t>(c.type), c.start);
        keys(c.pressed);
        EXPECT_EQ(value(c.type), c.expected) << page;
    }
}

TEST_F(EncoderTest, ASingleEntryTellsTheHostByItsFlags) {
    EncoderEntry entry{.NotifyKeys = {false, true, false},
                       .Value = EncoderValue{.Address = Value},
                       .NotifyCounterClockwise = true};
    entry.Keys[1] = {.Page = 1, .Address = Mark, .Value = 9};
    addPage().add(entry);
    entry.Value.reset();
    addPage().add(entry);
    start();
    keys(">>><");
    EXPECT_EQ(value(), 2);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0x10, 0x01, 0x00, 0x02, 0x00, 0x00}}));
    keys("12");
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0x01, 0x20, 0x00, 0x09}}));
    EXPECT_EQ(CurrentPage, 1);
    keys(">");
    EXPECT_EQ(value(), 2);
    EXPECT_FALSE(eventWaits()) << "a turn without a use does not wait for one";
}

TEST_F(EncoderTest, TheKnobTurnsPages) {
    addPage().add(EncoderPages{.Notify = true, .CounterClockwise = 1, .Clockwise = 2});
    addPage().add(EncoderPages{.Clockwise = 0});
    addPage();
    start();
    keys("<");
    EXPECT_EQ(CurrentPage, 1);
    keys(">");
    EXPECT_EQ(CurrentPage, 0);
    keys(">");
    EXPECT_EQ(CurrentPage, 2);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0xFF, 0xFF, 0, 1}, {0x41, 0xFF, 0xFF, 0, 2}}));
    keys("1");
    EXPECT_TRUE(eventWaits()) << "a page without an encoder";
}

TEST_F(EncoderTest, IconsOfTheSelectorStandOnTop) {
    const std::uint16_t picture = addPicture(Qt::green);
    auto& page = addPage();
    page.add(EncoderMenu{.SelectorAddress = Selector, .Entries = {EncoderStep{}, EncoderStep{}}});
    page.add(ValueIcon{.ValueAddress = Selector, .X = 5, .Y = 5, .FirstImage = picture, .Minimum = 1});
    start();
    EXPECT_EQ(pixel(8, 8), QColor(Qt::gray).rgb());
    keys(">");
    EXPECT_EQ(pixel(8, 8), qRgb(0, 255, 0));
    keys(">");
    EXPECT_EQ(pixel(8, 8), QColor(Qt::gray).rgb()) << "what lies behind is back";
}

TEST_F(EncoderTest, ALongMenuCountsItsEntriesAndAPopupEndsAdjusting) {
    EncoderMenu menu{.SelectorAddress = Selector};
    for (int i = 0; i < 20; ++i) menu.Entries.emplace_back(EncoderValue{.Address = Value}); // 440 bytes
    auto& page = addPage();
    page.add(menu);
    page.add(EncoderPages{.Clockwise = 1}); // only the first one counts
    addPage().add(EncoderEntry{.Value = EncoderValue{.Address = word::Page, .Highest = 0}});
    addPage().add(DisplayRecord{.Kind = 0x0E, .Block = Bytes(200, 0)}); // more entries than any menu
    start();
    EXPECT_EQ(EntryCount, 19);
    keys("<1>");
    EXPECT_EQ(ReadWord(Selector), 19);
    EXPECT_EQ(value(), 1);
    ShowPage(1);
    EXPECT_EQ(AdjustMode, 1) << "it outlives the page";
    keys(">");
    EXPECT_EQ(CurrentPage, 0) << "the value was the page";
    OpenPopup(1, 0, 0);
    EXPECT_EQ(AdjustMode, 0);
    ShowPage(2);
    keys("<1>");
    EXPECT_LE(EntryIndex, EntryCount);
}

} // namespace
} // namespace panel
