#include "graphics/primitives.h"
#include "touch_fixture.h"
#include "widgets/touch/hit_test.h"
#include "widgets/touch/popup_key.h"
#include "widgets/touch/sliding_list.h"
#include "widgets/touch/step_key.h"

#include <QPainter>

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
        SlideListActive = 1;
        ListWindow = {0, 0, 64, 48};
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
    addPage();
    start();
    SlideListActive = 1;
    ListWindow = QRect(10, 8, 20, 16);
    ListW = 50;
    ListH = 40;
    std::mt19937 random(1);
    const auto below = [&](unsigned bound) { return static_cast<std::uint16_t>(random() % bound); };
    for (int run = 0; run < 20000; ++run) {
        ListMode = std::array<std::uint8_t, 4>{0, 1, 0x80, 0x81}[run % 4u];
        const bool vertical = (ListMode & 1) == 0, endless = (ListMode & 0x80) != 0;
        const int length = vertical ? 40 : 50, view = vertical ? 16 : 20;
        ListShown = below(endless ? length + 1 : length - view + 1);
        const std::uint16_t x0 = below(50), y0 = below(40), x1 = x0 + below(40), y1 = y0 + below(40);
        const QPoint at(5 + below(30), 4 + below(25));
        MovePointer(at);
        // What the window shows at a place: the picture, moved, with its start behind its end.
        int along = (vertical ? at.y() - 8 : at.x() - 10) + ListShown;
        if (endless && along >= length) along -= length;
        const QPoint shown = vertical ? QPoint(at.x() - 10, along) : QPoint(along, at.y() - 8);
        ASSERT_EQ(HitTest(x0, x1, y0, y1, 3),
                  ListWindow.contains(at) && QRect(QPoint(x0, y0), QPoint(x1, y1)).contains(shown))
            << run;
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
                 {0x100, 0x70FF, 1, {1}},         {0x70FF, 0x100, 1, {0}}};
    auto& page = addPage();
    const auto addKey = [&page](std::uint16_t code, std::uint16_t to, std::uint16_t from,
                                std::uint8_t count) {
        CopyKey key{.Where = VirtualKeyOnly(code)};
        key.Destination = to;
        key.Source = from;
        key.WordCount = count;
        page.add(key);
    };
    for (std::uint16_t i = 0; i < std::size(cases); ++i)
        addKey(i, cases[i].destination, cases[i].source, cases[i].count);
    addKey(99, word::Page, 0x110, 2);
    addPage();
    start();
    for (std::uint16_t i = 0; i < std::size(cases); ++i) {
        for (std::uint16_t k = 0; k < 4; ++k)
            StoreWord(static_cast<std::uint16_t>(0x100 + k), static_cast<std::uint16_t>(k + 1));
        StoreWord(0x70FE, 9);
        virtualKey(i);
        std::uint16_t at = cases[i].destination;
        for (const std::uint16_t expected : cases[i].words) EXPECT_EQ(ReadWord(at++), expected) << i;
    }
    StoreWord(0x110, 1);
    virtualKey(99);
    EXPECT_EQ(CurrentPage, 1) << "a system word takes effect";
}

/// What a step makes of a value, with room to spare.
std::int64_t plainStep(std::int64_t value, const StepKeyRow& key) {
    const bool beyond = key.Up ? value + key.Step > key.Highest : value - key.Step < key.Lowest;
    const std::int64_t end = key.Up ? key.Highest : key.Lowest, opposite = key.Up ? key.Lowest : key.Highest;
    const std::int64_t stepped =
        beyond ? (key.Wraps ? opposite : end) : value + (key.Up ? key.Step : -key.Step);
    return key.Up ? std::max<std::int64_t>(stepped, key.Lowest)
                  : std::min<std::int64_t>(stepped, key.Highest);
}

TEST_F(PanelTest, AStepKeepsEveryTypeWithinItsLimits) {
    std::mt19937_64 random(3);
    for (const std::uint8_t type : {0x00, 0x01, 0x02, 0x80, 0x81, 0x82, 0x83}) {
        const bool isSigned = (type & 0x80) != 0;
        const int bits = 8 << (type & 3);
        for (int run = 0; run < 5000; ++run) {
            const auto limit = [&] {
                return isSigned ? std::int32_t{static_cast<std::int16_t>(random())}
                                : std::int32_t{static_cast<std::uint16_t>(random())};
            };
            StepKeyRow key{.Address = Value,
                           .DataType = type,
                           .Up = random() % 2 == 0,
                           .Wraps = random() % 2 == 0,
                           .Step = static_cast<std::uint16_t>(random() >> random() % 16)};
            std::tie(key.Lowest, key.Highest) = std::minmax({limit(), limit()});
            if (bits == 8) { // limits that the byte can hold
                key.Highest = isSigned ? 100 : 200;
                key.Lowest = isSigned ? -100 : 20;
            }
            const int spread = std::min(bits, 31) - (isSigned ? 1 : 0); // within what the working value holds
            std::int64_t value = static_cast<std::int64_t>(random() % (1ull << spread));
            if (isSigned && bits < 64 && random() % 2) value = -value;
            if (bits == 64) value &= 0xFFFF; // of a wider one only the low word counts
            StoreWord(Value, 0xAB00);        // the high byte of a byte's word is not part of it
            StoreNumeric(Value, type, value);
            ApplyStep(key);
            ASSERT_EQ(number(Value, static_cast<DataType>(type)), plainStep(value, key))
                << int{type} << " from " << value << " by " << key.Step << " in " << key.Lowest << ".."
                << key.Highest;
            ASSERT_TRUE(bits > 8 || ReadWord(Value) >> 8 == 0xAB);
        }
    }
    StoreNumeric(Value, 0x02, 0xFFFF0001); // too large for the working value: pulled down first
    ApplyStep({.Address = Value, .DataType = 0x02, .Up = false, .Step = 1, .Highest = 0xFFFF, .Lowest = 3});
    EXPECT_EQ(number(Value, DataType::U32), 0xFFFF);
    StoreNumeric(Value, 0x83, -1);
    ApplyStep({.Address = Value, .DataType = 0x83, .Up = true, .Step = 5, .Highest = 100, .Lowest = -7});
    EXPECT_EQ(number(Value, DataType::S64), -7) << "a negative value of 64 bits lies below any limit";
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
    QImage dark = FrameSurface.copy();
    QPainter(&dark).fillRect(dark.rect(), QColor(0, 0, 0, 125));
    tap(5, 5);
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(pixel(20, 12), Blue);
    EXPECT_EQ(pixel(5, 5), dark.pixel(5, 5)) << "the normal look of the key, darkened";
    EXPECT_EQ(pixel(19, 12), dark.pixel(19, 12));
    tap(32, 15); // by the pop-up's own place: another pop-up in its stead
    EXPECT_EQ(CurrentPage, 2);
    EXPECT_EQ(pixel(30, 14), Cyan);
    EXPECT_EQ(pixel(21, 13), dark.pixel(21, 13)) << "the place of the old one is clean";
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
