#include "widgets/touch/slider.h"

#include "golden.h"
#include "touch_fixture.h"

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100, Second = 0x0101;

/// Values are cut to whole ones, after the share of a single pixel was rounded.
TEST(SliderTrack, MapsPlacesToValues) {
    constexpr SliderRange percent{0, 100}, falling{9, 2}, wide{-32768, 32767};
    const struct {
        SliderRange range;
        int place, lowEnd, highEnd, value;
    } cases[] = {{percent, 10, 10, 60, 0},       {percent, 35, 10, 60, 50},    {percent, 59, 10, 60, 98},
                 {percent, 3, 10, 60, 0},        {percent, 99, 10, 60, 100},   {percent, 59, 60, 10, 2},
                 {percent, 3, 60, 10, 100},      {percent, 70, 60, 10, 0},     {percent, 20, 20, 20, 100},
                 {{-300, 41}, 17, 10, 60, -252}, {{-300, 41}, 53, 10, 60, -6}, {falling, 30, 0, 100, 6},
                 {wide, 1, 0, 700, -32674},      {wide, 699, 0, 700, 32673},   {{7, 8}, 599, 0, 600, 7},
                 {{0, 84}, 15, 0, 20, 62}};
    for (const auto& c : cases)
        EXPECT_EQ(SliderValue(c.range, c.place, c.lowEnd, c.highEnd), c.value) << c.place;
}

TEST(SliderTrack, MapsValuesToPixels) {
    const struct {
        SliderRange range;
        std::int16_t value;
        int length, pixels;
    } cases[] = {{{0, 100}, 33, 30, 9},  {{0, 100}, -1, 30, 0},    {{0, 100}, 101, 30, 30},
                 {{0, 100}, 50, -7, -3}, {{-300, 41}, 40, 99, 98}, {{-32768, 32767}, 32766, 70000, 69998},
                 {{5, 5}, 9, 100, 0},    {{9, 2}, 12, 100, 0},     {{9, 2}, 7, 100, 28},
                 {{9, 2}, -5, 100, 100}};
    for (const auto& [range, value, length, pixels] : cases)
        EXPECT_EQ(SliderPixels(range, value, length), pixels) << value;
}

Pixels pattern(QSize size) { return {Pattern(size.width(), size.height())}; }

TEST_F(TouchTest, SlidersAreFillThumbAndBackground) {
    const std::uint16_t back = image.addPicture(pattern({42, 36}));
    constexpr std::uint16_t pages = 4 * 2 * 2;
    for (const auto direction :
         {SlideDirection::Right, SlideDirection::Left, SlideDirection::Down, SlideDirection::Up})
        for (const std::uint16_t backImage : {None, back})
            for (const QSize size : {QSize(6, 12), QSize(5, 4)}) {
                const bool vertical = direction >= SlideDirection::Down;
                const auto turned = [vertical](QSize flat) { return vertical ? flat.transposed() : flat; };
                Slider slider{.FillX = 14, .FillY = 12, .Address = Value, .Where = {14, 12, 44, 42}};
                if (backImage != None) slider.Where = {10, 9, 52, 45};
                slider.FillImage = image.addPicture(pattern(turned({30, 8})));
                const QSize thumb = turned(size);
                slider.ThumbImage = image.addPicture(
                    Filled(thumb.width(), thumb.height(), QColor(255, 200, 0, 150), format::aRGB8888));
                slider.Direction = direction;
                slider.BackX = 10;
                slider.BackY = 9;
                slider.BackImage = backImage;
                addPage().add(slider);
            }
    start();
    const std::uint16_t values[] = {0, 1, 33, 50, 99, 100};
    Sheet sheet({64, 48}, 2 * int(std::size(values)), pages / 2);
    for (std::uint16_t page = 0; page < pages; ++page) {
        ShowPage(page);
        for (const std::uint16_t value : values) {
            StoreWord(Value, value);
            run(300);
            sheet.add(outputs.frame);
        }
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/sliders.png"));
}

class SliderDrags : public TouchTest {
protected:
    void SetUp() override {
        const std::uint16_t fill = image.addPicture(pattern({40, 6}));
        auto& page = addPage();
        Slider slider{.Notify = true, .FillX = 10, .FillY = 4, .FillImage = fill, .Address = Value};
        slider.Where = {10, 2, 50, 12};
        page.add(slider);
        Slider left = slider, locked = slider, single = slider;
        left.FillY = 20;
        left.Address = Second;
        left.Where = {10, 18, 50, 28};
        left.Direction = SlideDirection::Left;
        left.Notify = false;
        page.add(left);
        locked.Address = 0x0102;
        locked.Where = {10, 32, 50, 38};
        locked.Touchable = false;
        page.add(locked);
        single.Address = 0x0103;
        single.Where = {10, 40, 50, 47};
        single.Highest = single.Lowest = 4;
        page.add(single);
        start();
    }
};

TEST_F(SliderDrags, FollowTheFingerAlongTheTrack) {
    const auto valueAt = [this](int x, int y) {
        drag(x, y);
        EXPECT_EQ(TakeSentFrames(), Payloads());
        return ReadWord(Value);
    };
    press(30, 5);
    EXPECT_EQ(valueAt(30, 6), 50) << "across only";
    EXPECT_EQ(valueAt(40, 6), 75);
    EXPECT_EQ(valueAt(63, 6), 100) << "past the end";
    EXPECT_EQ(valueAt(3, 6), 0);
    EXPECT_EQ(valueAt(30, 22), 0) << "off sideways, onto another slider";
    EXPECT_EQ(ReadWord(Second), 0);
    EXPECT_EQ(valueAt(31, 6), 52);
    StoreWord(Value, 10); // somebody else's value: not drawn over the finger's
    const QImage before = outputs.frame.copy();
    run(300);
    EXPECT_EQ(outputs.frame, before);
    letGo();
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0, 0, 10}}));
    tap(31, 6);
    EXPECT_EQ(ReadWord(Value), 10) << "the same place again is no move";
    tap(31, 7);
    EXPECT_EQ(ReadWord(Value), 52);
    for (const int y : {20, 34, 44}) tap(40, y);
    EXPECT_EQ(ReadWord(Second), 25);
    EXPECT_EQ(TouchBusy, 0);
    EXPECT_EQ(ReadWord(0x0102), 0) << "only shows";
    EXPECT_EQ(ReadWord(0x0103), 0) << "has one value only";
}

TEST_F(SliderDrags, KeepOffWhileAnotherWidgetHasThePress) {
    press(30, 20);
    drag(30, 6);
    EXPECT_EQ(ReadWord(Value), 0);
    ShowPage(0); // ends the press
    TouchBusy = 1;
    letGo();
    press(30, 6);
    EXPECT_EQ(ReadWord(Value), 0);
}

TEST_F(TouchTest, ASliderOnAListMovesWithIt) {
    const std::uint16_t fill = image.addPicture(pattern({40, 6}));
    addPage();
    addPage().add(Slider{
        .InList = 1, .FillX = 5, .FillY = 50, .FillImage = fill, .Address = Value, .Where = {5, 50, 45, 56}});
    start();
    ListSurfaceA = ListSurfaceB = QImage(60, 90, QImage::Format_ARGB32_Premultiplied);
    ListSurfaceA.fill(Qt::blue);
    ListSurfaceB.fill(Qt::yellow);
    StoreWord(Value, 50);
    ShowPage(1);
    EXPECT_EQ(ListSurfaceA.pixelColor(5, 50), QColor(0, 0, 99));
    EXPECT_EQ(ListSurfaceA.pixelColor(25, 50), QColor(Qt::yellow)) << "what lies behind, beyond the value";
    showList({10, 0, 50, 40}, {60, 90}, list_mode::Vertical, 30);
    press(15 + 10, 23);
    EXPECT_EQ(ReadWord(Value), 25);
    EXPECT_EQ(ListSurfaceA.pixelColor(15, 50), QColor(Qt::yellow));
    EXPECT_EQ(pixel(25, 23), qRgb(255, 255, 0)) << "the list has shown it";
}

TEST_F(TouchTest, ADragOnAListGoesOnBeyondWindowAndSeam) {
    const std::uint16_t fill = image.addPicture(pattern({30, 6}));
    addPage().add(Slider{
        .InList = 1, .FillX = 60, .FillY = 4, .FillImage = fill, .Address = Value, .Where = {60, 2, 90, 12}});
    start();
    const auto valueAt = [this](int x, int y) {
        drag(x, y);
        return ReadWord(Value);
    };
    showList({10, 0, 40, 30}, {100, 40}, list_mode::Horizontal, 45);
    press(40, 5); // place 75
    EXPECT_EQ(ReadWord(Value), 50);
    EXPECT_EQ(valueAt(63, 5), 100) << "right of the window";
    EXPECT_EQ(valueAt(2, 5), 0) << "left of it";
    EXPECT_EQ(valueAt(40, 31), 0) << "below it the finger is off the slider";
    letGo();
    showList({10, 0, 40, 30}, {100, 40}, list_mode::EndlessHorizontal, 80); // the seam at 30
    press(15, 5);                                                           // place 85
    EXPECT_EQ(ReadWord(Value), 83);
    for (const int x : {28, 35, 49}) EXPECT_EQ(valueAt(x, 5), 100) << "the list's start is still the right";
    EXPECT_EQ(valueAt(12, 5), 73);
}

TEST_F(TouchTest, WhatCannotBeDrawnOfASliderIsNotThere) {
    const std::uint16_t fill = image.addPicture(pattern({20, 6})), key = addPicture(Qt::red, 30, 30);
    const std::uint16_t unknown =
        image.addPicture(StoredPicture{.Width = 16, .Height = 16, .Extra = 5, .Format = 9});
    Slider slider{.FillX = 4, .FillY = 4, .FillImage = unknown, .Address = Value, .Where = {0, 0, 24, 9}};
    for (int page = 0; page < 2; ++page) {
        addPage().add(PageKey{.Where = {.X1 = 9, .Y1 = 9}, .NormalImage = key});
        image.page(static_cast<std::uint16_t>(page)).add(slider);
        slider.FillImage = fill;
        slider.ThumbImage = slider.BackImage = unknown;
    }
    start();
    EXPECT_EQ(pixel(5, 5), 0xFFFF0000) << "no fill, no slider";
    ShowPage(1);
    cycles(1);
    EXPECT_EQ(pixel(5, 5), 0xFFA0A0A4) << "the page, behind an empty slider";
    EXPECT_EQ(pixel(3, 5), 0xFFFF0000) << "as large as its fill alone";
    EXPECT_EQ(pixel(5, 10), 0xFFFF0000);
    EXPECT_EQ(Sliders.at(0)->head.x1, 24) << "no thumb that narrows the track";
}

} // namespace
} // namespace panel
