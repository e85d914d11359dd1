#include "widgets/touch/slider.h"

#include "touch_fixture.h"
#include "widgets/touch/sliding_list.h"

#include <QPainter>

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100, Second = 0x0101;

/// The pattern, apart from those of other seeds.
QImage pattern(int width, int height, int seed, bool translucent = false) {
    QImage picture = Pattern(width, height).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.setPixel(
                x, y, qRgba(10 + 5 * x, 10 + 7 * y, seed * 40, translucent ? (x * 31 + y * 17) % 256 : 255));
    return picture;
}

TEST(SliderTrack, MapsEveryPlaceAndValue) {
    for (const SliderRange range : {SliderRange{0, 100}, {-300, 41}, {-32768, 32767}, {7, 8}})
        for (const auto& [low, high] : {std::pair{10, 60}, {60, 10}, {5, 6}, {0, 700}}) {
            const int length = std::abs(high - low), toward = high > low ? 1 : -1;
            for (int d = -3; d <= length + 3; ++d) {
                const long double exact =
                    range.lowest + d * (static_cast<long double>(range.span()) / length);
                const auto expected = d <= 0        ? range.lowest
                                      : d >= length ? range.highest
                                                    : static_cast<std::int16_t>(exact);
                ASSERT_EQ(SliderValue(range, low + toward * d, low, high), expected) << d;
            }
            for (int value = range.lowest - 2; value <= range.highest + 2; value += 1 + range.span() / 500) {
                if (value != static_cast<std::int16_t>(value)) continue;
                const int inside = std::clamp<int>(value, range.lowest, range.highest);
                ASSERT_EQ(SliderPixels(range, static_cast<std::int16_t>(value), length),
                          static_cast<std::int64_t>(inside - range.lowest) * length / range.span());
            }
        }
    EXPECT_EQ(SliderPixels({5, 5}, 9, 100), 0);
    for (const auto& [value, pixels] : {std::pair{12, 0}, {9, 0}, {7, 28}, {2, 100}, {-5, 100}})
        EXPECT_EQ(SliderPixels({9, 2}, static_cast<std::int16_t>(value), 100), pixels) << "crossed limits";
    EXPECT_EQ(SliderValue({9, 2}, 30, 0, 100), 6);
    EXPECT_EQ(SliderValue({0, 50}, 20, 20, 20), 50);
}

struct Look {
    SlideDirection direction;
    QSize fill, thumb;
    bool back;
};

class SliderLooks : public TouchTest {
protected:
    /// What the slider is to look like, by the places of its parts alone.
    static QImage expected(const Look& look, int value, const QImage& fill, const QImage& thumb,
                           const QImage& back, QPoint fillAt, QPoint backAt) {
        QImage frame(64, 48, QImage::Format_ARGB32_Premultiplied);
        frame.fill(QColor(Qt::gray));
        QPainter painter(&frame);
        const bool vertical = look.direction >= SlideDirection::Down;
        const bool reversed = look.direction == SlideDirection::Left || look.direction == SlideDirection::Up;
        const int length = vertical ? fill.height() : fill.width();
        const int shown = value * length / 100;
        if (look.back) painter.drawImage(backAt, back);
        QRect piece(QPoint(), fill.size());
        if (vertical)
            reversed ? piece.setTop(length - shown) : piece.setHeight(shown);
        else
            reversed ? piece.setLeft(length - shown) : piece.setWidth(shown);
        if (shown > 0) painter.drawImage(fillAt + piece.topLeft(), fill, piece);
        // The track is the fill's length, less half a thumb at each end.
        const QRect area = look.back ? QRect(backAt, back.size()) : QRect(fillAt, fill.size());
        const int half = (vertical ? thumb.height() : thumb.width()) / 2;
        const int first = vertical ? area.y() : area.x(),
                  last = first + (vertical ? area.height() : area.width());
        const int from = std::max(vertical ? fillAt.y() : fillAt.x(), first + half), to = last - half;
        const int middle = reversed ? to - value * (to - from) / 100 : from + value * (to - from) / 100;
        painter.setClipRect(vertical ? area.adjusted(-9, 0, 9, 0)
                                     : area.adjusted(0, -9, 0, 9)); // nothing beyond
        const QPoint centred((fill.width() - thumb.width()) / 2, (fill.height() - thumb.height()) / 2);
        painter.drawImage(vertical ? QPoint(fillAt.x() + centred.x(), middle - half)
                                   : QPoint(middle - half, fillAt.y() + centred.y()),
                          thumb);
        return frame;
    }
};

TEST_F(SliderLooks, AreFillThumbAndBackground) {
    std::vector<Look> looks;
    for (int direction = 0; direction < 4; ++direction)
        for (const bool back : {false, true})
            for (const QSize thumb : {QSize(6, 12), QSize(5, 4)}) {
                const bool vertical = direction >= 2;
                looks.push_back({static_cast<SlideDirection>(direction),
                                 vertical ? QSize(8, 30) : QSize(30, 8),
                                 vertical ? thumb.transposed() : thumb, back});
            }
    const QPoint fillAt(14, 12), backAt(10, 9);
    const QImage back = pattern(42, 36, 3);
    const std::uint16_t backImage = image.addPicture(Pixels{back});
    std::vector<std::pair<QImage, QImage>> pictures;
    for (const Look& look : looks) {
        auto& [fill, thumb] =
            pictures.emplace_back(pattern(look.fill.width(), look.fill.height(), 1),
                                  pattern(look.thumb.width(), look.thumb.height(), 2, true));
        const bool vertical = look.direction >= SlideDirection::Down;
        const QRect area = look.back ? QRect(backAt, back.size()) : QRect(fillAt, fill.size());
        const auto u16 = [](int value) { return static_cast<std::uint16_t>(value); };
        Slider slider{
            .FillX = 14, .FillY = 12, .FillImage = image.addPicture(Pixels{fill}), .Address = Value};
        slider.ThumbImage = image.addPicture(Pixels{thumb, format::aRGB8888});
        slider.Direction = look.direction;
        slider.Where = {u16(area.x()), u16(area.y()), u16(area.x() + (vertical ? 20 : area.width())),
                        u16(area.y() + (vertical ? area.height() : 20))};
        slider.BackX = 10;
        slider.BackY = 9;
        slider.BackImage = look.back ? backImage : None;
        addPage().add(slider);
    }
    start();
    for (std::uint16_t page = 0; page < looks.size(); ++page) {
        ShowPage(page);
        for (const std::uint16_t value : {0, 1, 33, 50, 99, 100}) {
            StoreWord(Value, value);
            run(300);
            const QImage wanted = expected(looks[page], value, pictures[page].first, pictures[page].second,
                                           back, fillAt, backAt);
            ASSERT_EQ(outputs.frame.convertToFormat(wanted.format()), wanted)
                << "page " << page << " value " << value;
        }
    }
}

class SliderDrags : public TouchTest {
protected:
    void SetUp() override {
        const std::uint16_t fill = image.addPicture(Pixels{pattern(40, 6, 1)});
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
    const std::uint16_t fill = image.addPicture(Pixels{pattern(40, 6, 1)});
    addPage();
    addPage().add(Slider{
        .InList = 1, .FillX = 5, .FillY = 50, .FillImage = fill, .Address = Value, .Where = {5, 50, 45, 56}});
    start();
    ListSurfaceA = ListSurfaceB = QImage(60, 90, QImage::Format_ARGB32_Premultiplied);
    ListSurfaceA.fill(Qt::blue);
    ListSurfaceB.fill(Qt::yellow);
    StoreWord(Value, 50);
    ShowPage(1);
    EXPECT_EQ(ListSurfaceA.pixelColor(5, 50), QColor(10, 10, 40));
    EXPECT_EQ(ListSurfaceA.pixelColor(25, 50), QColor(Qt::yellow)) << "what lies behind, beyond the value";
    SlideListActive = 1;
    ListWindow = {10, 0, 50, 40};
    ListMode = list_mode::Vertical;
    ListW = 60;
    ListH = 90;
    ListShown = 30;
    press(15 + 10, 23);
    EXPECT_EQ(ReadWord(Value), 25);
    EXPECT_EQ(ListSurfaceA.pixelColor(15, 50), QColor(Qt::yellow));
    EXPECT_EQ(pixel(25, 23), qRgb(255, 255, 0)) << "the list has shown it";
}

TEST_F(TouchTest, ADragOnAListGoesOnBeyondWindowAndSeam) {
    const std::uint16_t fill = image.addPicture(Pixels{pattern(30, 6, 1)});
    addPage().add(Slider{
        .InList = 1, .FillX = 60, .FillY = 4, .FillImage = fill, .Address = Value, .Where = {60, 2, 90, 12}});
    start();
    SlideListActive = 1;
    ListWindow = {10, 0, 40, 30};
    ListW = 100;
    ListH = 40;
    const auto valueAt = [this](int x, int y) {
        drag(x, y);
        return ReadWord(Value);
    };
    ListMode = list_mode::Horizontal;
    ListShown = 45;
    press(40, 5); // place 75
    EXPECT_EQ(ReadWord(Value), 50);
    EXPECT_EQ(valueAt(63, 5), 100) << "right of the window";
    EXPECT_EQ(valueAt(2, 5), 0) << "left of it";
    EXPECT_EQ(valueAt(40, 31), 0) << "below it the finger is off the slider";
    letGo();
    ListMode = list_mode::EndlessHorizontal;
    ListShown = 80; // the seam at 30
    press(15, 5);   // place 85
    EXPECT_EQ(ReadWord(Value), 83);
    for (const int x : {28, 35, 49}) EXPECT_EQ(valueAt(x, 5), 100) << "the list's start is still the right";
    EXPECT_EQ(valueAt(12, 5), 73);
}

TEST_F(TouchTest, WhatCannotBeDrawnOfASliderIsNotThere) {
    const std::uint16_t fill = image.addPicture(Pixels{pattern(20, 6, 1)}), key = addPicture(Qt::red, 30, 30);
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
