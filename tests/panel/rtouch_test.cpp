#include "widgets/touch/rtouch.h"

#include "golden.h"
#include "readable_font.h"
#include "touch_fixture.h"

#include <cmath>

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100, Second = 0x0101;
constexpr int Side = 81, Radius = 30, Middle = 60; // the centre of the ring on the panel

class RtouchTest : public TouchTest {
protected:
    RtouchTest() { image = ImageBuilder({.Width = 120, .Height = 120, .ColourMode = 1}); }

    Rtouch ring(int start, int end, int lowest = 0, int highest = 360) {
        Rtouch r{.Notify = true, .Address = Value, .Radius = Radius, .HalfWidth = 6};
        r.X = r.Y = Middle - Side / 2;
        r.Foreground = image.addPicture(Pixels{Pattern(Side, Side), format::PngAlpha});
        r.Thumb = addPicture(Qt::green, 5, 5);
        r.Lowest = static_cast<std::int16_t>(lowest);
        r.Highest = static_cast<std::int16_t>(highest);
        r.StartAngle = static_cast<std::uint16_t>(start);
        r.EndAngle = static_cast<std::uint16_t>(end);
        return r;
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
};

/// The nearest whole degree, from straight down clockwise. Beside an axis a pixel still counts as on it.
int plainAngle(QPoint from) {
    if (std::abs(from.x()) <= 1) return from.y() < 0 ? 180 : 0;
    if (std::abs(from.y()) <= 1) return from.x() < 0 ? 90 : 270;
    return (static_cast<int>(std::lround(std::atan2(-from.x(), from.y()) * 180 / M_PI)) + 360) % 360;
}

TEST_F(RtouchTest, FollowsTheFingerToEveryPixelOfItsBand) {
    const Rtouch rings[] = {ring(0, 360), ring(60, 300, -500, 501), ring(20, 90, 32767, -32768)};
    for (const Rtouch& r : rings) addRingPage().add(r);
    start();
    for (std::uint16_t page = 0; page < 3; ++page) {
        const Rtouch& r = rings[page];
        const int range = r.Highest - r.Lowest;
        ShowPage(page);
        touch(onRing(45)); // takes the press, which leaving the band does not give up
        int expected = value();
        for (int y = 0; y < 120; ++y)
            for (int x = 0; x < 120; ++x) {
                const QPoint at(x, y), from = at - QPoint(Middle, Middle);
                const int distance = QPoint::dotProduct(from, from), angle = plainAngle(from);
                touch(at);
                const bool inBand = distance >= 24 * 24 && distance <= 36 * 36;
                const bool inReach = angle >= r.StartAngle - 9 && angle <= r.EndAngle + 9;
                const int passed = std::clamp<int>(angle, r.StartAngle, r.EndAngle) - r.StartAngle;
                if (inBand && inReach) expected = passed * range / (r.EndAngle - r.StartAngle) + r.Lowest;
                ASSERT_EQ(value(), expected) << page << ": " << x << ", " << y;
            }
        letGo();
        EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0, ReadByte(2 * Value), ReadByte(2 * Value + 1)}}));
    }
}

TEST_F(RtouchTest, ShowsItsValueAsASectorWithTheThumbAtItsEnd) {
    Rtouch locked = ring(0, 360);
    locked.Touchable = false;
    addRingPage().add(locked);
    addRingPage().add(ring(30, 330, -100, 100));
    start();
    Sheet sheet({Side, Side}, 9, 2);
    for (const std::uint16_t page : {0, 1}) {
        ShowPage(page);
        for (const int shown : {-120, -100, -50, 0, 7, 100, 130, 250, 370}) {
            StoreWord(Value, static_cast<std::uint16_t>(shown));
            RefreshPageWidgets(page);
            sheet.add(FrameSurface.copy(Middle - 40, Middle - 40, Side, Side));
        }
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/turned-rings.png"));
    StoreWord(Value, 360);
    ShowPage(0);
    const QImage first = FrameSurface.copy();
    StoreWord(Value, 359);
    ShowPage(0);
    EXPECT_EQ(FrameSurface, first) << "a fresh ring stays a degree below the full turn";
}

TEST_F(RtouchTest, CarriesAReadoutAndAGroupAlsoInAPopup) {
    Rtouch r = ring(0, 360, -180, 180);
    r.X = r.Y = 4;
    r.ReadoutX = r.ReadoutY = 30;
    r.Align = Alignment::Left;
    r.Decimals = 1;
    r.Font = image.addFont(ReadableFont());
    r.Colour = 0xFF0000;
    r.Readout = imagekit::RingReadout::Text;
    r.OverlayGroup = 1;
    BitIcon member{.ValueAddress = Second, .X = 10, .Y = 10, .ClearImage = addPicture(Qt::blue)};
    member.SetImage = addPicture(Qt::yellow);
    for (const std::uint16_t side : {120, 100}) { // a page, and a pop-up on it
        auto& page = image.addPage(Solid{side, side, Qt::darkGray});
        page.add(r);
        page.addToGroup(1, member);
    }
    start();
    for (const std::uint16_t moved : {0, 15}) {
        if (moved) openPopup(1, moved, moved);
        const int middle = 4 + Side / 2 + moved;
        StoreWord(Second, 0);
        touch({middle + Radius, middle});
        EXPECT_EQ(value(), 90);
        EXPECT_EQ(ReadText(FrameSurface, 30 + moved, 30 + moved, 0xFFFF0000), "9.0");
        StoreWord(Second, 1);
        RefreshPageWidgets(CurrentPage);
        EXPECT_EQ(FrameSurface.pixelColor(12 + moved, 12 + moved), QColor(Qt::yellow)) << "while dragged too";
        touch({middle - 20, middle + 20});
        EXPECT_EQ(ReadText(FrameSurface, 30 + moved, 30 + moved, 0xFFFF0000), "-13.5");
        letGo();
    }
}

TEST_F(RtouchTest, OnlyTheBandTakesAPressAndADragKeepsIt) {
    Rtouch beside = ring(0, 360);
    beside.Address = Second;
    beside.X = 100;
    auto& page = addRingPage();
    page.add(ring(0, 360));
    page.add(beside);
    start();
    const std::tuple<QPoint, int, int> moves[] = {{{23, 0}, 0, 0},
                                                  {{37, 0}, 0, 0},
                                                  {{24, 0}, 1, 270}, // a drag into the band takes the ring
                                                  {{0, -50}, 1, 270},
                                                  {{0, -36}, 1, 180}};
    for (const auto& [fromMiddle, active, angle] : moves) {
        touch(fromMiddle + QPoint(Middle, Middle));
        EXPECT_EQ(RingActive, active) << angle;
        EXPECT_EQ(value(), angle);
    }
    const auto changes = [this](std::uint16_t word, std::uint16_t written) { // what is shown, from outside
        const QImage before = outputs.frame.copy();
        StoreWord(word, written);
        run(300);
        return outputs.frame != before;
    };
    EXPECT_FALSE(changes(Value, 12)) << "while a finger holds it";
    EXPECT_TRUE(changes(Second, 200)) << "of the ring beside it";
    letGo();
    EXPECT_TRUE(changes(Value, 13));
}

TEST_F(RtouchTest, ARingThatCannotTurnChangesNothing) {
    Rtouch locked = ring(0, 360), nowhere = ring(0, 360);
    locked.Touchable = false;
    nowhere.Address = 0xFFFF;
    for (const Rtouch& r : {ring(90, 90), ring(90, 270, 7, 7), locked, nowhere}) addRingPage().add(r);
    addRingPage().setRawStream(Stream::Touch, RawStream(std::vector(40, Encode(locked))));
    image.setWord(Value, 55);
    start();
    for (const std::uint16_t page : {0, 1, 2, 3, 4}) {
        ShowPage(page);
        if (page < 2) {
            EXPECT_EQ(FrameSurface.pixelColor(onRing(90)), QColor(0, 255, 0)) << "at the start";
        }
        for (int degrees = 0; degrees < 360; degrees += 20) touch(onRing(degrees));
        TakeSentFrames();
        letGo();
        EXPECT_EQ(value(), 55) << page;
        EXPECT_EQ(page == 3 ? TakeSentFrames() : Payloads(), Payloads()) << "no variable, no frame";
    }
    EXPECT_EQ(Rtouches.size(), 32u);
}

} // namespace
} // namespace panel
