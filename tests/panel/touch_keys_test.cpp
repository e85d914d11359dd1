#include "touch_fixture.h"
#include "widgets/touch/hit_test.h"
#include "widgets/touch/popup_key.h"
#include "widgets/touch/sliding_list.h"
#include "widgets/touch/step_key.h"

namespace panel {
namespace {

using namespace imagekit;
using Row = std::pair<TouchRecord, Payload>;

constexpr std::uint16_t Value = 0x0100, Other = 0x0110, Group = 7;
constexpr Area Corner{.X1 = 9, .Y1 = 9};
constexpr Area inColumn(std::uint16_t x) { return {x, 0, static_cast<std::uint16_t>(x + 9), 9}; }
constexpr QRgb Gray = 0xFFA0A0A4, Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF, Cyan = 0xFF00FFFF;

/// A key of each family at (x, 0) with the frame that it sends: picture 0 is its normal look, 1 the press
/// look.
std::vector<Row> keysOfAllFamilies(std::uint16_t x, bool notify, std::uint8_t inList = 0) {
    const Payload code{0x41, 0xFF, 0xFF, 0x12, 0x34};
    const auto look = [&](auto key) {
        key.Where = inColumn(x);
        key.Notify = notify;
        key.InList = inList;
        if constexpr (requires { key.NotifyCode; }) key.NotifyCode = 0x1234;
        if constexpr (requires { key.NormalImage; }) key.NormalImage = 0;
        if constexpr (requires { key.PressImage; }) key.PressImage = 1;
        return key;
    };
    return {{Encode(look(PageKey{})), code},
            {Encode(look(StepKey{.Address = Value, .Highest = 9})), {0x41, 1, 0, 0, 1}},
            {Encode(look(MultiKey{.Click = {.Enabled = true, .NotifyCode = 0x1234}})), code},
            {Encode(look(PopupKey{})), code},
            {Encode(look(StateKey{.Address = Other})), {0x41, 1, 0x10, 0, 0}},
            {Encode(look(CopyKey{.Destination = Other, .Source = Value})), code}};
}

TEST_F(TouchTest, AKeyShowsThePressAtOnceAndActsWhenLetGo) {
    addPicture(Qt::green);
    addPicture(Qt::red);
    for (const auto& [record, frame] : keysOfAllFamilies(20, true)) addPage().add(record);
    for (const auto& [record, frame] : keysOfAllFamilies(20, true, 1)) addPage().add(record);
    start();
    const auto keys = keysOfAllFamilies(20, true);
    for (std::uint16_t page = 0; page < keys.size(); ++page) {
        SCOPED_TRACE(page);
        ShowPage(page);
        press(19, 5); // beside it
        EXPECT_EQ(pixel(25, 5), Green);
        drag(20, 0); // onto it
        EXPECT_EQ(pixel(20, 0), Red);
        EXPECT_EQ(TouchBusy, 1);
        EXPECT_EQ(TakeSentFrames(), Payloads());
        drag(60, 40); // off it: still the owner
        EXPECT_EQ(pixel(20, 0), Red);
        letGo();
        EXPECT_EQ(pixel(29, 9), Green);
        EXPECT_EQ(TouchBusy, 0);
        EXPECT_EQ(TakeSentFrames(), Payloads{keys[page].second});
        // On a list a key never sends.
        ShowPage(static_cast<std::uint16_t>(page + keys.size()));
        showList({0, 0, 64, 48}, {64, 48}, list_mode::Vertical, 0);
        tap(25, 5);
        SlideListActive = 0;
        EXPECT_EQ(TakeSentFrames(), Payloads());
    }
}

TEST_F(TouchTest, OnePressHasOneOwner) {
    addPicture(Qt::green);
    addPicture(Qt::red);
    auto& page = addPage();
    const auto keys = keysOfAllFamilies(0, true);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) page.add(key->first); // the scan order decides
    page.add(PageKey{.Where = Corner, .Notify = true, .NotifyCode = 2});            // a later row of the same
    for (std::size_t first = 1; first < keys.size(); ++first) {
        auto& rest = addPage();
        for (auto key = keys.rbegin(); key != keys.rend() - first; ++key) rest.add(key->first);
    }
    start();
    for (std::uint16_t i = 0; i < keys.size(); ++i) {
        ShowPage(i);
        tap(5, 5);
        EXPECT_EQ(TakeSentFrames(), Payloads{keys[i].second}) << i;
    }
}

TEST_F(TouchTest, AVirtualKeyWaitsForARowWithItsCode) {
    addPicture(Qt::red);
    addPage();
    auto& page = addPage();
    page.add(PageKey{.Where = VirtualKeyOnly(7), .NormalImage = 0});
    CopyKey copy{.Where = VirtualKeyOnly(8), .Notify = true, .NotifyCode = 3, .TargetPage = 0};
    copy.Destination = Other;
    copy.Source = Value;
    page.add(copy);
    start();
    StoreWord(Value, 99);
    virtualKey(8);
    EXPECT_EQ(VirtualKeyPending, 1);
    EXPECT_EQ(ReadWord(Other), 0);
    apply(word::Page, 1);
    EXPECT_EQ(pixel(0, 0), Gray) << "a key without a place shows no picture";
    cycles(1);
    EXPECT_EQ(VirtualKeyPending, 0);
    EXPECT_EQ(ReadWord(Other), 99);
    EXPECT_EQ(CurrentPage, 0);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0xFF, 0xFF, 0, 3}}));
}

TEST_F(TouchTest, RowsOnAListAreHitWhereTheListShowsThem) {
    using namespace list_mode;
    addPage();
    start();
    const struct {
        std::uint8_t mode;
        int shown;
        QPoint at, place; // of the finger on the panel, and on the picture of the list
    } cases[] = {{Vertical, 24, {10, 8}, {0, 24}},         {Vertical, 24, {29, 23}, {19, 39}},
                 {Horizontal, 30, {10, 8}, {30, 0}},       {Horizontal, 30, {29, 23}, {49, 15}},
                 {EndlessVertical, 24, {12, 23}, {2, 39}}, {EndlessVertical, 30, {12, 17}, {2, 39}},
                 {EndlessVertical, 30, {12, 18}, {2, 0}},  {EndlessHorizontal, 40, {19, 10}, {49, 2}},
                 {EndlessHorizontal, 40, {20, 10}, {0, 2}}};
    for (const auto& [mode, shown, at, place] : cases) {
        showList({10, 8, 20, 16}, {50, 40}, mode, shown);
        MovePointer(at);
        const auto x = std::uint16_t(place.x()), y = std::uint16_t(place.y());
        EXPECT_TRUE(HitTest(x, x, y, y, 3)) << "the bounds belong to it";
        EXPECT_FALSE(HitTest(x + 1, 63, 0, 63, 3) || HitTest(0, 63, y + 1, 63, 3));
    }
    for (const QPoint outside : {QPoint(9, 8), QPoint(30, 8), QPoint(10, 7), QPoint(10, 24)}) {
        MovePointer(outside);
        EXPECT_FALSE(HitTest(0, 63, 0, 47, 1)) << outside.x();
    }
    SlideListActive = 0;
    MovePointer({12, 10});
    EXPECT_FALSE(HitTest(0, 63, 0, 47, 1)) << "no list, nothing on it";
}

TEST_F(TouchTest, AStateKeyFollowsItsVariableAndStartsItsPreset) {
    for (const QColor colour : {Qt::green, Qt::red, Qt::blue, Qt::cyan}) addPicture(colour);
    auto& page = addPage();
    StateKey key{.Where = Corner, .Notify = true, .Address = Value, .Lowest = 5, .Highest = 6};
    key.FirstPreset = 20;
    page.add(key);
    page.add(StateKey{.Where = Corner}); // without a variable: out of the way of the next one
    page.add(PagePreset{.Id = 20, .Items = {{.Address = Value, .Value = 6}}});
    page.add(PagePreset{.Id = 21, .Items = {{.Address = word::Page, .Value = 1}}});
    addPage(Qt::white);
    image.setWord(Value, 4);
    start();
    EXPECT_EQ(pixel(0, 0), Gray) << "out of range";
    StoreWord(Value, 5);
    run(300);
    EXPECT_EQ(pixel(0, 0), Green);
    FrameSurface.fill(Qt::black);
    run(300);
    EXPECT_EQ(pixel(0, 0), 0xFF000000) << "the change was shown before";
    press(0, 0);
    EXPECT_EQ(pixel(0, 0), Red);
    letGo();
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0, 0, 5}})) << "the value before the preset";
    EXPECT_EQ(pixel(0, 0), Blue) << "the look of the value after it";
    press(0, 0);
    EXPECT_EQ(pixel(0, 0), Cyan);
    letGo();
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(pixel(0, 0), 0xFFFFFFFF) << "nothing of the key on the new page";
}

TEST_F(TouchTest, ACopyKeyCopiesWithinTheStore) {
    const struct {
        std::uint16_t destination, source;
        std::uint8_t count;
        std::vector<std::uint16_t> words; // from the destination on, afterwards
    } cases[] = {{0x200, 0x100, 3, {1, 2, 3, 0}}, {0x101, 0x100, 3, {1, 1, 1}},
                 {0x100, 0x101, 3, {2, 3, 4, 4}}, {0x100, 0x102, 0, {1, 2}},
                 {0x100, 0x70FE, 2, {9, 2}},      {0x70FE, 0x102, 3, {3, 0}},
                 {0x100, 0x70FF, 1, {1}},         {0x70FF, 0x100, 1, {0}},
                 {word::Page, 0x100, 2, {1}}}; // a system word takes effect
    auto& page = addPage();
    for (std::uint16_t code = 0; const auto& c : cases) {
        CopyKey key{.Where = VirtualKeyOnly(code++)};
        key.Destination = c.destination;
        key.Source = c.source;
        key.WordCount = c.count;
        page.add(key);
    }
    addPage();
    start();
    for (std::uint16_t code = 0; const auto& c : cases) {
        const std::uint16_t words[] = {1, 2, 3, 4};
        for (std::uint16_t address = 0x100; const std::uint16_t value : words) StoreWord(address++, value);
        StoreWord(0x70FE, 9);
        virtualKey(code++);
        for (std::uint16_t at = c.destination; const std::uint16_t expected : c.words)
            EXPECT_EQ(ReadWord(at++), expected) << code;
    }
    EXPECT_EQ(CurrentPage, 1);
}

/// The top bit of 32 unsigned ones does not count. Of 64 bits only the low word does, but a negative value
/// lies below any limit.
TEST_F(PanelTest, AStepKeepsEveryTypeWithinItsLimits) {
    constexpr bool up = true, down = false;
    const struct {
        std::uint8_t type;
        bool up;
        std::uint16_t step;
        std::int32_t lowest, highest;
        std::int64_t from, stopped, wrapped;
    } cases[] = {{0x00, up, 7, 20, 200, 193, 200, 200},
                 {0x00, up, 7, 20, 200, 194, 200, 20},
                 {0x00, up, 7, 20, 200, 3, 20, 20},
                 {0x00, up, 7, 20, 200, 250, 200, 20},
                 {0x00, down, 7, 20, 200, 27, 20, 20},
                 {0x00, down, 7, 20, 200, 26, 20, 200},
                 {0x01, up, 65535, 0, 65535, 65535, 65535, 0},
                 {0x02, up, 5, 10, 6000, 300, 305, 305},
                 {0x02, down, 5, 1, 99, 70000, 99, 99},
                 {0x02, down, 1, 3, 99, 0xFFFF0001, 99, 99},
                 {0x03, up, 1, 0, 9, 9, 9, 0},
                 {0x80, down, 50, -100, 100, -80, -100, 100},
                 {0x80, up, 50, -100, 100, -80, -30, -30},
                 {0x81, up, 1, -300, 300, 300, 300, -300},
                 {0x82, down, 9, -10, 10, -3, -10, 10},
                 {0x82, up, 9, -10, 10, -70000, -10, -10},
                 {0x83, down, 9, -10, 10, 0x50004, -5, -5},
                 {0x83, up, 5, -7, 100, -1, -7, -7}};
    for (const auto& c : cases)
        for (const bool wraps : {false, true}) {
            StoreWord(Value, 0xAB00); // the high byte of a byte's word is not part of it
            StoreNumeric(Value, c.type, c.from);
            StepKeyRow key{.Address = Value, .DataType = c.type, .Up = c.up, .Wraps = wraps, .Step = c.step};
            key.Highest = c.highest;
            key.Lowest = c.lowest;
            ApplyStep(key);
            EXPECT_EQ(number(Value, static_cast<DataType>(c.type)), wraps ? c.wrapped : c.stopped)
                << int{c.type} << " from " << c.from;
            EXPECT_TRUE((c.type & 3) != 0 || ReadByte(2 * Value) == 0xAB);
        }
}

TEST_F(TouchTest, AHeldStepKeyRepeats) {
    auto& page = addPage();
    StepKey counter{.Where = Corner, .Notify = true, .Address = Value, .Step = 2, .Highest = 100};
    counter.Repeat = true;
    page.add(counter);
    page.add(StepKey{.Where = inColumn(20), .Address = Value, .Type = BitOfWord(9), .Repeat = true});
    page.add(StepKey{.Where = inColumn(30), .Notify = true, .Address = 0x70FF, .Highest = 9});
    StepKey wide{.Where = inColumn(40), .Notify = true, .Address = Value, .Type = DataType::S32};
    wide.Highest = 300;
    page.add(wide);
    page.add(StepKey{.Where = VirtualKeyOnly(3), .Address = Other, .Step = 7, .Highest = 9});
    addPage();
    start();
    const auto valueAfter = [&](int count) {
        for (int i = 0; i < count; ++i) {
            ticks(1);
            cycles(1);
        }
        return ReadWord(Value);
    };
    press(5, 5);
    for (const auto& [passed, value] : {std::pair{50, 0}, {1, 2}, {10, 2}, {1, 4}, {11, 6}})
        EXPECT_EQ(valueAfter(passed), value) << "after 510 ms, and then each 110 ms";
    EXPECT_EQ(TakeSentFrames(), Payloads());
    letGo();
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0, 0, 8}})) << "the last step comes with the release";
    press(25, 5);
    EXPECT_EQ(valueAfter(51), 0x208);
    letGo();
    EXPECT_EQ(ReadWord(Value), 8);
    virtualKey(3);
    EXPECT_EQ(ReadWord(Other), 7);
    tap(35, 5);
    EXPECT_EQ(TouchBusy, 0) << "a key without a variable lets go of the press";
    tap(45, 5);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0, 0, 0, 1, 0x2C}}));
    press(5, 5);
    valueAfter(40);
    apply(word::Page, 1);
    apply(word::Page, 0);
    drag(6, 5); // the finger, still down, presses anew
    StoreWord(Value, 0);
    EXPECT_EQ(valueAfter(50), 0);
    EXPECT_EQ(valueAfter(1), 2);
}

TEST_F(TouchTest, APopupStandsOnADarkenedPage) {
    addPicture(Qt::green);
    addPicture(Qt::red);
    auto& page = addPage(QColor(200, 100, 50));
    PopupKey opener{
        .Where = Corner, .NormalImage = 0, .PressImage = 1, .Page = 1, .PopupX = 20, .PopupY = 12};
    opener.Dim = true;
    page.add(opener);
    auto& popup = image.addPage(Filled(20, 16, Qt::blue));
    popup.add(PageKey{.Where = {2, 2, 5, 5}, .TargetPage = 0});
    popup.add(PageKey{.Where = VirtualKeyOnly(5), .TargetPage = 0});
    popup.add(PopupKey{.Where = {10, 2, 14, 5}, .Page = 2, .PopupX = 30, .PopupY = 14, .CleanOld = true});
    image.addPage(Filled(8, 8, Qt::cyan));
    start();
    tap(5, 5);
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(pixel(20, 12), Blue);
    const QRgb dark = pixel(19, 12);
    EXPECT_NEAR(qRed(dark), 200 * (255 - 125) / 255, 1);
    EXPECT_EQ(pixel(5, 5), qRgb(0, (255 - 125), 0)) << "the normal look of the key, darkened";
    tap(32, 15); // by the pop-up's own place: another pop-up in its stead
    EXPECT_EQ(CurrentPage, 2);
    EXPECT_EQ(pixel(30, 14), Cyan);
    EXPECT_EQ(pixel(21, 13), dark) << "the place of the old one is clean";
    apply(word::Page, 0);
    tap(5, 5);
    tap(3, 3); // where the row stands in the record
    EXPECT_EQ(CurrentPage, 1);
    virtualKey(5);
    EXPECT_EQ(CurrentPage, 0);
    EXPECT_EQ(PopupActive, 0);
    tap(5, 5);
    tap(23, 15);
    EXPECT_EQ(CurrentPage, 0);
    EXPECT_EQ(pixel(40, 40), QColor(200, 100, 50).rgb());
}

} // namespace
} // namespace panel
