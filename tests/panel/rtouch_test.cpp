#include "widgets/touch/rtouch.h"

#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/shapes.h"
#include "imagekit/touch_controls.h"
#include "pages/page_switch.h"
#include "touch_fixture.h"
#include "widgets/display/sector.h"

#include <cmath>

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100;
constexpr int Side = 81, Radius = 30, Middle = 60; // the centre of the ring on the panel

class RtouchTest : public TouchTest {
protected:
    RtouchTest() { image = ImageBuilder({.Width = 120, .Height = 120, .ColourMode = 1}); }

    Rtouch ring(int start, int end, int lowest = 0, int highest = 360) {
        QImage picture(Side, Side, QImage::Format_ARGB32);
        for (int y = 0; y < Side; ++y)
            for (int x = 0; x < Side; ++x) picture.setPixel(x, y, qRgba(2 * x, 2 * y, 90, 120));
        foreground = image.addPicture(Pixels{picture, format::PngAlpha});
        return {.Notify = true,
                .Address = Value,
                .X = Middle - Side / 2,
                .Y = Middle - Side / 2,
                .Foreground = foreground,
                .Thumb = addPicture(Qt::green, 5, 5),
                .Radius = Radius,
                .HalfWidth = 6,
                .Lowest = static_cast<std::int16_t>(lowest),
                .Highest = static_cast<std::int16_t>(highest),
                .StartAngle = static_cast<std::uint16_t>(start),
                .EndAngle = static_cast<std::uint16_t>(end)};
    }
    imagekit::Page& addRingPage() { return image.addPage(PlainPage(image.config(), Qt::darkGray)); }
    /// The place on the ring at an angle from straight down, clockwise.
    static QPoint onRing(double degrees, double radius = Radius) {
        const double radians = degrees * M_PI / 180;
        return {int(std::lround(Middle - std::sin(radians) * radius)),
                int(std::lround(Middle + std::cos(radians) * radius))};
    }
    void touch(QPoint at) { TouchPressed ? drag(at.x(), at.y()) : press(at.x(), at.y()); }
    int value() const { return static_cast<std::int16_t>(ReadWord(Value)); }

    std::uint16_t foreground = 0;
};

TEST_F(RtouchTest, FollowsTheFingerAroundTheRing) {
    addRingPage().add(ring(0, 360));
    start();
    for (int degrees = 5; degrees < 356; ++degrees) {
        touch(onRing(degrees, 28 + degrees % 5));
        // As near as pixels allow, and on an axis exactly.
        EXPECT_NEAR(value(), degrees, degrees % 90 == 0 ? 0 : 2);
    }
    letGo();
    const auto last = static_cast<std::uint8_t>(value());
    EXPECT_EQ(TakeSentFrames(),
              (Payloads{{0x41, 0x01, 0x00, static_cast<std::uint8_t>(value() >> 8), last}}));
}

TEST_F(RtouchTest, ShowsItsValueAsASectorWithTheThumbAtItsEnd) {
    addRingPage().add(ring(30, 330, -100, 200));
    start();
    for (int shown = -120; shown <= 220; shown += 5) {
        StoreWord(Value, static_cast<std::uint16_t>(shown));
        run(300);
        const int angle = shown <= -100 ? 30 : shown >= 200 ? 330 : 30 + (shown + 100) * 300 / 300;
        CopySurfaceRect(PageBackground, {Middle - 40, Middle - 40, Side, Side}, WorkSurface, {0, 0});
        BlitSector(TableImageRow(foreground), angle);
        QImage expected = WorkSurface.copy(0, 0, Side, Side);
        const QPoint thumb(int(40 - SinDeg(angle) * Radius - 2), int(40 + CosDeg(angle) * Radius - 2));
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 5; ++x) expected.setPixel(thumb + QPoint(x, y), qRgb(0, 255, 0));
        ASSERT_EQ(outputs.frame.copy(Middle - 40, Middle - 40, Side, Side), expected) << shown;
    }
}

TEST_F(RtouchTest, SnapsBesideItsEndsAndHasADeadZone) {
    addRingPage().add(ring(60, 300, 0, 100));
    start();
    const struct {
        int degrees, expected;
    } cases[] = {{180, 50}, {305, 100}, {320, 100}, {350, 100}, {10, 100},
                 {40, 100}, {57, 0},    {150, 37},  {45, 37}};
    for (const auto& c : cases) {
        touch(onRing(c.degrees));
        EXPECT_NEAR(value(), c.expected, 1) << c.degrees;
    }
}

TEST_F(RtouchTest, OnlyTheBandTakesAPressAndADragKeepsIt) {
    addRingPage().add(ring(0, 360));
    start();
    for (const int radius : {23, 37}) {
        touch({Middle + radius, Middle});
        EXPECT_EQ(RingActive, 0) << radius;
    }
    touch({Middle + 24, Middle});
    EXPECT_EQ(RingActive, 1) << "a drag that comes into the band takes the ring";
    EXPECT_EQ(value(), 270);
    touch({Middle, Middle - 50});
    EXPECT_EQ(value(), 270);
    EXPECT_EQ(TouchBusy, 1);
    touch({Middle, Middle - 36});
    EXPECT_EQ(value(), 180);
    StoreWord(Value, 12); // from outside, while a finger holds it
    const QImage held = outputs.frame.copy();
    run(300);
    EXPECT_EQ(outputs.frame, held);
    letGo();
    StoreWord(Value, 13);
    run(300);
    EXPECT_NE(outputs.frame, held);
}

TEST_F(RtouchTest, ARingThatCannotTurnOrIsNonsenseChangesNothing) {
    Rtouch same = ring(90, 90), flat = ring(0, 360, 7, 7), locked = ring(0, 360), wild = ring(0, 360);
    locked.Touchable = false;
    wild.Foreground = 0xFFFE;
    wild.Radius = 0xFFFF;
    wild.HalfWidth = 255;
    for (const Rtouch& r : {same, flat, locked, wild}) addRingPage().add(r);
    wild.Foreground = foreground;
    auto& crowd = addRingPage();
    for (int i = 0; i < 40; ++i) crowd.add(wild);
    image.setWord(Value, 55);
    start();
    for (const std::uint16_t page : {0, 1, 2, 3, 4}) {
        ShowPage(page);
        for (int degrees = 0; degrees < 360; degrees += 20) touch(onRing(degrees));
        letGo();
        EXPECT_EQ(value(), 55) << page;
    }
    EXPECT_EQ(Rtouches.size(), 32u);
}

} // namespace
} // namespace panel
