#include "widgets/touch/multi_key.h"

#include "store/backlight.h"
#include "touch_fixture.h"

namespace panel {
namespace {

using imagekit::MultiKey;
using Codes = std::vector<int>;

constexpr QRgb Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF;
constexpr int ClickBit = 1, DoubleBit = 2, LongBit = 4;
constexpr int Width = 8, WindowTicks = 2 * 5, LongTicks = 7;
constexpr std::uint16_t Words = 0x0100;

/// What key number `key` tells of a gesture, and the value that it writes to the word of that number.
constexpr std::uint16_t codeOf(int key, int bit) { return static_cast<std::uint16_t>(16 * bit + key); }

/// The key in column `key` with the gestures of the bits. The others have their actions too, but are off.
MultiKey keyWith(int bits, int key) {
    const auto action = [&](int bit) {
        const std::uint16_t code = codeOf(key, bit), word = Words + code;
        return imagekit::KeyAction{(bits & bit) != 0, code, imagekit::None, word, code};
    };
    const auto x = static_cast<std::uint16_t>(Width * key);
    MultiKey made{.Where = {x, 0, static_cast<std::uint16_t>(x + Width - 1), 9}, .Notify = true};
    made.NormalImage = 0;
    made.PressImage = 1;
    made.Click = action(ClickBit);
    made.DoubleClick = action(DoubleBit);
    made.LongPress = action(LongBit);
    made.DoubleClickWindow = WindowTicks / 5;
    made.LongPressTicks = LongTicks;
    return made;
}

class MultiKeyTest : public TouchTest {
protected:
    MultiKeyTest() {
        addPicture(Qt::green, Width);
        addPicture(Qt::red, Width);
    }
    /// What the panel has told since the last call; each action has written its word too.
    Codes told() {
        Codes codes;
        for (const Payload& frame : TakeSentFrames())
            codes.push_back(ReadWord(static_cast<std::uint16_t>(Words + frame[4])));
        return codes;
    }
    Codes after(int count) {
        ticks(count);
        cycles(1);
        return told();
    }
};

/// A script puts the finger on the key of a digit, '.' takes it off, and '+' lets a tick pass.
TEST_F(MultiKeyTest, TellGesturesApart) {
    const struct {
        const char* script;
        Codes told;
    } cases[] = {{"0+.", {}}, // no gesture is on
                 {"1.+1.", {0x11, 0x11}},
                 {"12.", {0x11}},        // the first key stays the one
                 {"2.+++++++++++.", {}}, // half a double click
                 {"2.2.2.", {0x22}},     // the third one is a first click again
                 {"3.++++++++++.", {}},  // a second click may come
                 {"3.+++++++++++.", {0x13}},
                 {"3.++++++++++3.+++++++++++.", {0x23}},
                 {"3.+++++++++++.3.", {0x13}},       // a first click again
                 {"3.7.+++++++++++.", {0x17}},       // the newest first click counts
                 {"3.1.+++++++++++.", {0x11, 0x13}}, // a key without double clicks changes nothing
                 {"3.+++++4.++++++++++.", {}},       // a timed press takes the ticks
                 {"3.+++++4.+++++++++++.", {0x13}},
                 {"3.4+++++++.+++++++++++.", {0x44}}, // a long press ends the wait
                 {"4++++++.", {}},                    // too short, and no click
                 {"4++++++++++++++++.", {0x44}},      // once
                 {"4+++++++2.2.", {0x44}},            // the finger was never up
                 {"5++++++.5+++++++.", {0x15, 0x45}},
                 {"6.6.6+++++++.", {0x26, 0x46}},
                 {"7.7+++++++.+++++++++++.", {0x47}}, // nor a double click
                 {"7.7.7.+++++++++++.", {0x27, 0x17}}};
    auto& page = addPage();
    for (int key = 0; key < 8; ++key) page.add(keyWith(key, key));
    start();
    press(0, 0);
    EXPECT_EQ(pixel(0, 0), Green) << "a key without gestures shows no press";
    for (const auto& [script, expected] : cases) {
        start();
        DoubleState = DoubleClickState::Idle; // which a start leaves alone
        for (const char step : std::string_view(script)) {
            if (step == '+') {
                ticks(1);
                cycles(1);
            } else if (step == '.') {
                letGo();
            } else {
                drag(Width * (step - '0'), 5);
            }
        }
        EXPECT_EQ(told(), expected) << script;
        EXPECT_EQ(TouchBusy, 0);
    }
}

TEST_F(MultiKeyTest, ALongPressMayNeedNoTime) {
    MultiKey impatient = keyWith(LongBit, 2);
    impatient.LongPressTicks = 0;
    addPage().add(impatient);
    start();
    press(16, 0);
    cycles(2);
    letGo();
    EXPECT_EQ(told(), Codes(3, codeOf(2, LongBit))) << "in each scan, and no click";
}

TEST_F(MultiKeyTest, PageChangesCutGesturesShort) {
    const std::uint16_t blue = addPicture(Qt::blue, 2, 2);
    MultiKey leaving = keyWith(LongBit, 0);
    leaving.LongPress.TargetPage = 1;
    auto& first = addPage();
    first.add(leaving);
    first.add(keyWith(ClickBit | DoubleBit, 1));
    auto& second = addPage();
    second.add(keyWith(LongBit, 2));
    second.add(keyWith(ClickBit | DoubleBit, 3));
    second.add(imagekit::BitIcon{.X = 16, .ClearImage = blue}); // on top of its first key
    addPage();
    start();
    press(0, 0);
    EXPECT_EQ(after(LongTicks), Codes{codeOf(0, LongBit)});
    EXPECT_EQ(pixel(16, 0), Blue) << "no key of the new page was let go";
    drag(16, 0); // the finger is still down: a new press
    EXPECT_EQ(pixel(16, 0), Red);
    letGo();
    EXPECT_EQ(pixel(16, 0), Green);

    ShowPage(0); // while a press is timed
    press(0, 0);
    ShowPage(1);
    ticks(100);
    press(60, 40);
    letGo();
    EXPECT_EQ(told(), Codes());
    ShowPage(0); // a first click stays with the row, whatever page it is on
    tap(8, 0);
    ShowPage(1);
    EXPECT_EQ(after(WindowTicks + 1), Codes{codeOf(3, ClickBit)});
    ShowPage(0);
    tap(8, 0);
    ShowPage(2); // no such row
    EXPECT_EQ(after(100), Codes());
    ShowPage(0);
    tap(8, 0);
    EXPECT_EQ(told(), Codes{codeOf(1, DoubleBit)});
    tap(8, 0); // a second click that does not end on its page is nobody's
    press(8, 0);
    ShowPage(1);
    tap(16, 0);
    EXPECT_EQ(told(), Codes());
}

TEST_F(MultiKeyTest, ActionsReachSystemWordsAndVirtualKeysOnlyClick) {
    MultiKey dim = keyWith(ClickBit, 0);
    dim.Click = {.Enabled = true, .TargetPage = 1, .Address = word::Brightness, .Value = 20};
    addPage().add(dim);
    auto& keys = addPage();
    for (const int key : {1, 2}) {
        MultiKey hidden = keyWith(key == 1 ? ClickBit | DoubleBit : DoubleBit | LongBit, key);
        hidden.Where = imagekit::VirtualKeyOnly(static_cast<std::uint16_t>(key));
        keys.add(hidden);
    }
    start();
    tap(0, 0);
    EXPECT_EQ(TakeSentFrames().size(), 1u);
    EXPECT_EQ(DimValue, DimValueOf(20));
    EXPECT_EQ(CurrentPage, 1);
    for (const std::uint16_t code : {1, 2}) {
        virtualKey(code);
        EXPECT_EQ(VirtualKeyPending, 0);
        EXPECT_EQ(told(), code == 1 ? Codes{codeOf(1, ClickBit)} : Codes());
    }
}

} // namespace
} // namespace panel
