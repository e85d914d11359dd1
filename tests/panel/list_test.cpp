#include "golden.h"
#include "touch_fixture.h"
#include "widgets/touch/roller_picker.h"
#include "widgets/touch/slider.h"
#include "widgets/touch/sliding_list.h"
#include "widgets/touch/swipe_gesture.h"

namespace panel {
namespace {

using namespace imagekit;

const PanelConfig Large{.Width = 120, .Height = 120, .ColourMode = 1};
constexpr QRect Window(60, 60, 30, 30);
constexpr Area WindowArea{60, 60, 89, 89};

class ListTest : public TouchTest {
protected:
    ListTest() { image = ImageBuilder(Large); }

    imagekit::Page& addLargePage() { return image.addPage(PlainPage(Large, Qt::gray)); }
    static Pixels listPicture(int width, int height) { return {Pattern(width, height), format::PngOpaque}; }
    /// The page 0 with a list of that size, whose picture is that of page 1.
    void listOf(imagekit::ListMode mode, int width, int height) {
        addLargePage().add(SlidingList{.Window = WindowArea, .ListPage = 1, .Mode = mode});
        image.addPage(listPicture(width, height));
    }
    /// A drag that begins in the window and moves the list by so many px: up to 60 on, 30 back.
    void dragBy(int pixels, bool vertical = true) {
        const auto move = [&](int along) { vertical ? drag(75, along) : drag(along, 75); };
        const int first = pixels > 0 ? 88 : 61, begun = pixels > 0 ? 62 : 87;
        vertical ? press(75, first) : press(first, 75);
        move(begun);
        ASSERT_EQ(ListDragging, 1);
        move(begun - pixels);
    }
    void endDrag() {
        letGo();
        cycles(1);
    }
};

TEST_F(ListTest, FollowsTheFingerInStepsOfFourToItsEndsOrRoundTheSeam) {
    using enum imagekit::ListMode;
    constexpr int moves[] = {3, 1, 9, 60, 60, -30, -3, -30, -30, 14, -30, -30, -4, -30};
    Sheet sheet(Window.size(), std::size(moves), 4);
    for (const auto mode : {Vertical, Horizontal, EndlessVertical, EndlessHorizontal}) {
        const bool vertical = mode == Vertical || mode == EndlessVertical;
        const int length = mode == Vertical || mode == Horizontal ? 101 : 52;
        image = ImageBuilder(Large);
        listOf(mode, vertical ? 30 : length, vertical ? length : 30);
        start();
        for (const int pixels : moves) {
            dragBy(pixels, vertical);
            sheet.add(outputs.frame.copy(Window));
            endDrag();
        }
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/dragged-lists.png"));
}

TEST_F(ListTest, APressIsATapWithin25PixelsAndOutsideTheWindow) {
    listOf(imagekit::ListMode::Vertical, 30, 101);
    start();
    const auto dragsAt = [this](int y) {
        drag(75, y);
        return ListDragging != 0;
    };
    press(75, 88);
    for (const int y : {63, 20}) EXPECT_FALSE(dragsAt(y)) << "short, or outside";
    endDrag();
    press(75, 20);
    for (const int y : {50, 61}) EXPECT_FALSE(dragsAt(y));
    EXPECT_TRUE(dragsAt(88)) << "a finger that comes in starts where it does";
    drag(5, 110);
    EXPECT_EQ(ListPosition, 0);
    drag(5, 90);
    EXPECT_EQ(ListPosition, 20) << "a drag goes on outside";
    endDrag();
    EXPECT_EQ(ListShown, 20);
    dragBy(62);
    endDrag();
    EXPECT_EQ(TouchBusy, 0) << "also when it ends at the edge of the panel";
}

TEST_F(ListTest, OnATurnedPanelTheOtherAxisBeginsTheDrag) {
    PanelConfig turned = Large;
    turned.Rotate = 1;
    image = ImageBuilder(turned);
    listOf(imagekit::ListMode::Vertical, 30, 101);
    addLargePage().add(
        SlidingList{.Window = WindowArea, .ListPage = 1, .Mode = imagekit::ListMode::EndlessVertical});
    start();
    press(88, 88);
    drag(88, 61);
    EXPECT_EQ(ListDragging, 0);
    drag(62, 61);
    ASSERT_EQ(ListDragging, 1);
    drag(62, 85); // the first move takes up where the other axis began
    drag(62, 65);
    EXPECT_EQ(ListShown, 20);
    endDrag();
    ShowPage(2);
    press(88, 88);
    drag(62, 62);
    EXPECT_EQ(ListDragging, 0) << "an endless list cannot be dragged there";
}

TEST_F(ListTest, ASwipeWinsOverTheListItBeginsOn) {
    listOf(imagekit::ListMode::Vertical, 30, 101);
    image.page(0).add(SwipeGesture{.Up = {2, 0}});
    addLargePage();
    start();
    dragBy(20);
    letGo();
    EXPECT_EQ(CurrentPage, 0) << "46 pixels are no swipe";
    cycles(1);
    dragBy(30);
    letGo();
    EXPECT_EQ(CurrentPage, 2);
}

TEST_F(ListTest, ItsKeysMoveWithItAndADragTakesTheirPress) {
    listOf(imagekit::ListMode::Vertical, 30, 101);
    PageKey key{.Where = {4, 40, 13, 49}, .InList = 1, .NormalImage = addPicture(Qt::green)};
    key.PressImage = addPicture(Qt::red);
    key.TargetPage = 2;
    image.page(0).add(key);
    addLargePage();
    start();
    const QRgb green = qRgb(0, 255, 0), red = qRgb(255, 0, 0);
    dragBy(40);
    endDrag();
    const int x = 68, y = 62; // of the key, now that the list stands at 40
    EXPECT_EQ(pixel(x, y), green);
    press(x, y);
    EXPECT_EQ(pixel(x, y), red);
    drag(x, y + 25); // a tap still
    EXPECT_EQ(pixel(x, y), red);
    drag(x, 89);
    ASSERT_EQ(ListDragging, 1);
    EXPECT_EQ(pixel(x, y), green);
    endDrag();
    EXPECT_EQ(CurrentPage, 0) << "the drag took the press";
    press(x, y);
    endDrag();
    EXPECT_EQ(CurrentPage, 2);
}

TEST_F(ListTest, ADragLeavesNothingOfThePressThatItTakes) {
    constexpr std::uint16_t clicked = 0x0200, stepped = 0x0201;
    listOf(imagekit::ListMode::Vertical, 30, 101);
    auto& page = image.page(0);
    MultiKey key{.Where = {60, 80, 69, 89}};
    key.Click = {.Enabled = true, .Address = clicked, .Value = 1};
    key.DoubleClick.Enabled = true;
    page.add(key);
    page.add(StepKey{.Where = {70, 80, 79, 89}, .Address = stepped, .Highest = 99, .Repeat = true});
    page.add(StepKey{.Where = {0, 0, 9, 9}, .Address = stepped, .Highest = 99});
    page.add(
        RollerPicker{.Window = {80, 80, 89, 89}, .SelectedStrip = addPicture(Qt::red, 10, 27), .Highest = 2});
    start();
    for (const int x : {65, 75, 85}) {
        press(x, 88);
        drag(x, 62);
        ASSERT_EQ(ListDragging, 1);
        endDrag();
    }
    run(700);
    EXPECT_EQ(ReadWord(clicked), 0);
    press(5, 5);
    run(700);
    EXPECT_EQ(ReadWord(stepped), 0) << "no repeat that another key has begun";
    drag(5, 15);
    letGo();
    EXPECT_EQ(Rollers.at(0)->Offset, 0);
}

TEST_F(ListTest, TheBarGoesAlongAndShowsTheDrag) {
    SlidingList list{.Window = WindowArea, .ListPage = 1, .BarMargin = 2, .BarOffset = 4};
    list.BarAtRest = image.addPicture(Filled(3, 6, Qt::white, format::aRGB8888));
    list.BarMoving = image.addPicture(Filled(3, 6, Qt::magenta, format::aRGB8888));
    addLargePage().add(list);
    image.addPage(listPicture(30, 70));
    list.Mode = imagekit::ListMode::Horizontal;
    addLargePage().add(list); // where it stands still
    start();
    Sheet sheet({40, 40}, 4, 1);
    const auto look = [&] { sheet.add(outputs.frame.copy(60, 60, 40, 40)); };
    dragBy(17);
    look();
    endDrag();
    look();
    dragBy(60);
    look();
    frameOf(2);
    look();
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/list-bars.png"));
}

TEST_F(ListTest, InAPopupItsWindowStandsThere) {
    listOf(imagekit::ListMode::Vertical, 30, 100);
    start();
    const QImage onPage = outputs.frame.copy(Window);
    openPopup(0, 20, 10);
    cycles(1);
    EXPECT_EQ(outputs.frame.copy(Window.translated(20, 10)), onPage);
    press(100, 98);
    drag(100, 72);
    EXPECT_EQ(ListDragging, 1) << "by a press outside its place on a page";
}

TEST_F(ListTest, AListThatCannotBeIsNone) {
    const SlidingList good{.Window = WindowArea, .ListPage = 1, .Mode = imagekit::ListMode::EndlessVertical};
    SlidingList missing = good, inverted = good, unknown = good;
    unknown.Mode = static_cast<imagekit::ListMode>(7);
    missing.ListPage = 77;
    inverted.Window = {89, 89, 60, 60};
    addLargePage().add(missing);
    image.addPage(listPicture(10, 8)); // smaller than its window
    for (const SlidingList& list : {inverted, good, unknown}) addLargePage().add(list);
    start();
    for (const std::uint16_t page : {0, 2, 3, 4}) {
        ShowPage(page);
        EXPECT_EQ(SlideListActive, page < 3 ? 0 : 1);
        press(75, 88);
        for (const int y : {61, 88, 0, 119}) drag(75, y);
        endDrag();
    }
}

TEST_F(TouchTest, TheLongerAxisOfASwipeTellsItsDirection) {
    const struct {
        std::uint16_t height; // of the panel, which is 64 px wide
        QPoint from, to;
        int page;
        Payloads sent;
    } cases[] = {{48, {60, 5}, {10, 40}, 2, {{0x41, 0xFF, 0xFF, 2, 2}}},
                 {48, {5, 5}, {55, 40}, 3, {{0x41, 0xFF, 0xFF, 3, 3}}},
                 {48, {5, 5}, {54, 40}, 4, {}}, // too short: the key acts
                 {120, {5, 60}, {5, 10}, 1, {{0x41, 0xFF, 0xFF, 1, 1}}},
                 {120, {5, 60}, {5, 119}, 0, {}},                         // down leads nowhere
                 {120, {5, 60}, {63, 2}, 3, {{0x41, 0xFF, 0xFF, 3, 3}}}}; // a tie goes to the side
    for (const auto& c : cases) {
        image = ImageBuilder({.Width = 64, .Height = c.height});
        auto& page = addPage();
        page.add(SwipeGesture{.Notify = true, .Up = {1, 0x0101}, .Left = {2, 0x0202}, .Right = {3, 0x0303}});
        page.add(PageKey{.Where = {0, 0, 63, 47}, .TargetPage = 4});
        for (int i = 0; i < 4; ++i) addPage();
        start();
        press(c.from.x(), c.from.y());
        drag(c.to.x(), c.to.y());
        letGo();
        EXPECT_EQ(CurrentPage, c.page);
        EXPECT_EQ(TakeSentFrames(), c.sent);
    }
}

/// The press comes behind this cycle's look at gestures, and has gone far before the next one.
TEST_F(TouchTest, ASwipeTakesNoPressFromASlider) {
    constexpr std::uint16_t value = 0x0200;
    auto& page = addPage();
    page.add(SwipeGesture{.Up = {1, 0}});
    page.add(imagekit::Slider{.FillY = 20,
                              .FillImage = addPicture(Qt::green, 60),
                              .Address = value,
                              .Where = {0, 20, 59, 29},
                              .Highest = 59});
    start();
    GestureTick();
    PressPointer({10, 25});
    TouchSlider();
    drag(50, 25);
    EXPECT_EQ(ReadWord(value), 50);
}

TEST_F(ListTest, AGroupOverAHiddenAnimationHasTheListBehindIt) {
    listOf(imagekit::ListMode::Vertical, 30, 101);
    const std::uint16_t mark = addPicture(Qt::red, 4, 4);
    auto& page = image.page(0);
    page.add(ImageAnimation{
        .InList = true, .ControlAddress = 0x0100, .X = 5, .Y = 5, .Width = 10, .Height = 10, .Group = 7});
    page.addToGroup(7, BitIcon{.ValueAddress = 0x0101, .X = 5, .Y = 5, .ClearImage = mark, .SetImage = mark});
    image.addSequence({});
    image.setWord(0x0100, 3);
    start();
    StoreWord(0x0101, 1);
    run(240);
    EXPECT_EQ(ListSurfaceA.pixel(5, 5), QColor(Qt::red).rgb());
    EXPECT_EQ(ListSurfaceA.pixel(14, 14), qRgb(14, 14, 99));
}

} // namespace
} // namespace panel
