#include "pages/slide_page.h"

#include "imagekit/bar_widgets.h"
#include "imagekit/meter_widgets.h"
#include "touch_fixture.h"

namespace panel {
namespace {

using namespace imagekit;

struct Film : RecordedOutputs {
    std::vector<QImage> pictures;
    void showFrame(const QImage& shown) override { pictures.push_back(shown.copy()); }
};

/// Three pages side by side: 0 slides to 1 on its left and to 2 on its right.
class SlidePageTest : public TouchTest {
protected:
    static constexpr int Width = 64, Height = 48, Top = 8, Bottom = 40;

    SlidePageTest() {
        for (const Qt::GlobalColor colour : {Qt::gray, Qt::darkRed, Qt::darkBlue}) addStillPage(colour);
    }
    /// A page with widgets that a neighbour shows, and one that it does not.
    void addStillPage(QColor colour) {
        const std::uint16_t mark = addPicture(colour.lighter(), 12, 9), ring = addPicture(Qt::white, 15, 15);
        auto& page = addPage(colour);
        page.add(ValueIcon{.ValueAddress = 1, .X = 3, .Y = 10, .FirstImage = mark, .Group = 1});
        page.addToGroup(1, BitIcon{.ValueAddress = 2, .X = 5, .Y = 12, .ClearImage = ring, .SetImage = ring});
        page.add(RingGauge{.ValueAddress = 3, .X = 30, .Y = 20, .Foreground = ring, .EndAngle = 200});
        page.add(ImageBar{.ValueAddress = 3, .BarImage = mark, .BackX = 40, .BackY = 3});
        page.add(PageKey{.Where = {18, 10, 29, 18}, .NormalImage = mark, .TargetPage = 2});
        page.add(Slider{.FillX = 2, .FillY = 30, .FillImage = mark, .Address = 3, .Where = {2, 30, 14, 38}});
    }
    void slideWith(SlidePage slide) {
        slide.BandTop = Top;
        slide.BandBottom = Bottom;
        image.page(0).add(slide);
        image.setWord(3, 60);
        start();
    }
    void slideBoth(bool notify = false) {
        slideWith(
            {.Notify = notify, .NextPage = 2, .NextCode = 0x0A0B, .PreviousPage = 1, .PreviousCode = 0x0C0D});
    }
    static QImage strip(int column, int width = Width) {
        return SlideSurface.copy(column, Top, width, Bottom - Top);
    }
    QImage band(int width = Width) const { return outputs.frame.copy(0, Top, width, Bottom - Top); }
    /// A drag from column `from` to `to` in two moves, the first of which starts the slide.
    void dragPage(int from, int to) {
        press(from, 44);
        drag(from < to ? from + 26 : from - 26, 44);
        drag(to, 44);
    }
};

TEST_F(SlidePageTest, NeighboursLookAsTheyDoOnShow) {
    slideBoth();
    EXPECT_EQ(CurrentPage, 0);
    EXPECT_EQ(ReadWord(word::Page), 0);
    const QImage previous = SlideSurface.copy(0, 0, Width, Height);
    const QImage next = SlideSurface.copy(2 * Width, 0, Width, Height), page = outputs.frame.copy();
    for (const std::uint16_t neighbour : {1, 2}) {
        ShowPage(neighbour);
        cycles(1);
        EXPECT_EQ(outputs.frame, neighbour == 1 ? previous : next);
        EXPECT_EQ(SlidePageActive, 0);
    }
    ShowPage(0);
    cycles(1);
    EXPECT_EQ(outputs.frame, page);
}

TEST_F(SlidePageTest, TheBandFollowsTheFingerInStepsOfFour) {
    slideBoth();
    const QImage before = outputs.frame.copy();
    press(30, 44);
    drag(5, 44);
    EXPECT_EQ(Sliding, 0) << "25 pixels";
    drag(4, 44);
    EXPECT_EQ(Sliding, 1);
    EXPECT_EQ(band(), before.copy(0, Top, Width, Bottom - Top));
    drag(0, 44);
    EXPECT_EQ(band(Width - 1), strip(Width + 4, Width - 1));
    EXPECT_EQ(outputs.frame.copy(Width - 1, Top, 1, 32), before.copy(Width - 1, Top, 1, 32))
        << "the last column stays while the window moves right";
    for (const int x : {1, 2, 3, 9, 27, 50, 63}) {
        drag(x, 44);
        const int column = (Width + 4 - x) / 4 * 4;
        EXPECT_EQ(band(), strip(column)) << x;
    }
    for (const QRect outside : {QRect(0, 0, Width, Top), QRect(0, Bottom, Width, Height - Bottom)})
        EXPECT_EQ(outputs.frame.copy(outside), before.copy(outside));
}

TEST_F(SlidePageTest, SettlesOnTheNeighbourBeyondThreeTenths) {
    slideBoth(true);
    const struct {
        int from, to, page, frames, first, step; // where each frame's window begins on the strip
        Payloads sent;
    } cases[] = {
        {60, 14, 2, 12, 84, 4, {{0x41, 0xFF, 0xFF, 0x0A, 0x0B}}}, // 20 of 64 px: 11 steps and the cycle
        {3, 50, 1, 11, 40, -4, {{0x41, 0xFF, 0xFF, 0x0C, 0x0D}}}, // 21
        {60, 15, 0, 6, 80, -4, {}},                               // 19: back by 16, and once more at home
        {3, 48, 0, 7, 44, 4, {}}};
    for (const auto& c : cases) {
        ShowPage(0);
        cycles(1);
        dragPage(c.from, c.to);
        TakeSentFrames();
        Film film;
        ReleasePointer();
        EngineCycle(film);
        EXPECT_EQ(CurrentPage, c.page) << c.to;
        ASSERT_EQ(film.pictures.size(), std::size_t(c.frames)) << c.to;
        for (int i = 0; i + 1 < c.frames; ++i)
            EXPECT_EQ(film.pictures[std::size_t(i)].copy(0, Top, Width - 1, Bottom - Top),
                      strip(c.first + i * c.step, Width - 1))
                << c.to << " frame " << i;
        EXPECT_EQ(TakeSentFrames(), c.sent);
        EXPECT_EQ(TouchBusy + Sliding, 0);
    }
}

TEST_F(SlidePageTest, AKeyUnderTheFingerDoesNotActAndTheNextPressStartsFromItsOwnPlace) {
    slideBoth();
    press(25, 15);
    EXPECT_EQ(TouchBusy, 1);
    drag(60, 15);
    drag(50, 15);
    letGo();
    EXPECT_EQ(CurrentPage, 0);
    press(5, 44);
    EXPECT_EQ(Sliding, 0);
}

TEST_F(SlidePageTest, NoWidgetOfANeighbourStaysBesideASmallPagePicture) {
    image = ImageBuilder(Small);
    image.addPage(Filled(2, 2, Qt::gray));
    addStillPage(Qt::darkRed);
    slideWith({.PreviousPage = 1});
    EXPECT_EQ(pixel(4, 32), SlideSurface.pixel(Width - 1, Height - 1))
        << "where the neighbour has its slider";
}

TEST_F(SlidePageTest, ASmallChipNeverSlides) {
    image = ImageBuilder({.Width = Width, .Height = Height, .ICType = 2});
    for (int i = 0; i < 3; ++i) image.addPage(PlainPage(image.config(), Qt::gray));
    slideBoth();
    EXPECT_EQ(SlidePageActive, 1);
    dragPage(60, 5);
    EXPECT_EQ(Sliding, 0);
}

TEST_F(SlidePageTest, NothingLeadsToANeighbourThatIsMissingOrNoPage) {
    slideWith({.NextPage = 99});
    dragPage(10, 55);
    EXPECT_EQ(SlideWanted, Width) << "there is no previous page";
    drag(40, 44);
    EXPECT_EQ(SlideWanted, Width + 15) << "from where the finger turned";
    drag(0, 44);
    letGo();
    EXPECT_EQ(CurrentPage, 0);
    EXPECT_EQ(SlidePageActive, 1);
}

} // namespace
} // namespace panel
