#include "widgets/display/image_animation.h"

#include "host/config_block.h"
#include "panel_test.h"
#include "widgets/touch/open_entry.h"

namespace panel {
namespace {

using imagekit::ImageAnimation;
using imagekit::ImageBuilder;
using imagekit::PanelConfig;

constexpr std::uint16_t Control = 0x0100;
constexpr std::uint16_t Done = 0x0101;
// The commands of the records below.
constexpr std::uint16_t Idle = 0, Loop = 1, Once = 2, Hide = 3;

constexpr QRgb Page = 0xFF102030, Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF, Mark = 0xFFFF00FF;

imagekit::Pixels square(QRgb colour, std::uint8_t format = format::RGB565) {
    return Filled(10, 8, QColor::fromRgba(colour), format);
}

const ImageAnimation Plain{.ControlAddress = Control,
                           .X = 20,
                           .Y = 10,
                           .Width = 10,
                           .Height = 8,
                           .DoneAddress = Done,
                           .DoneValue = 77};

class Animation : public PanelTest {
protected:
    /// A page with an animation of red, green and blue, and a second page without.
    static ImageBuilder panelWith(const ImageAnimation& animation, std::uint16_t command,
                                  std::uint8_t chip = 3) {
        const PanelConfig config{.Width = 64, .Height = 48, .ColourMode = 1, .ICType = chip};
        ImageBuilder image(config);
        image.addSequence({square(Red), square(Green), square(Blue)});
        image.addSequence({});
        image.addPage(PlainPage(config, QColor::fromRgb(Page))).add(animation);
        image.addPage(PlainPage(config, Qt::white));
        image.setWord(Control, command);
        return image;
    }
    void bootWith(const ImageAnimation& animation, std::uint16_t command) {
        boot(panelWith(animation, command));
    }

    /// What is on show in the middle of the widget.
    static QRgb shown() { return FrameSurface.pixel(25, 14); }
    /// One step of an animation without delay, and what it leaves on the screen.
    QRgb step() {
        run(20);
        return shown();
    }
    std::vector<QRgb> steps(int count) {
        std::vector<QRgb> seen;
        for (int i = 0; i < count; ++i) seen.push_back(step());
        return seen;
    }
    static AnimationRow& row() { return AnimationTable.rows()[0]; }
};

using Colours = std::vector<QRgb>;

TEST_F(Animation, PlaysOnceThenTellsAndLeavesTheLastFrame) {
    bootWith(Plain, Once);
    EXPECT_EQ(steps(2), (Colours{Green, Blue}));
    EXPECT_EQ(ReadWord(Done), 0);
    EXPECT_EQ(steps(3), (Colours{Blue, Blue, Blue}));
    EXPECT_EQ(ReadWord(Done), 77);
    EXPECT_EQ(ReadWord(Control), Idle);
}

TEST_F(Animation, GoesBackToTheFirstFrameWhereItHoldsThat) {
    ImageAnimation holding = Plain;
    holding.HoldFirst = true;
    holding.DoneAddress = imagekit::None; // it ends in silence
    bootWith(holding, Once);
    EXPECT_EQ(steps(5), (Colours{Green, Blue, Blue, Red, Red}));
    StoreWord(Control, Loop);
    EXPECT_EQ(steps(3), (Colours{Red, Green, Blue})) << "from the first frame on";
}

TEST_F(Animation, FreezesOnTheFrameOnShowAndGoesOnWithTheNext) {
    bootWith(Plain, Loop);
    step();
    for (const std::uint16_t other : {Idle, std::uint16_t{9}}) {
        StoreWord(Control, other);
        const QRgb frozen = shown();
        EXPECT_EQ(steps(3), (Colours{frozen, frozen, frozen}));
        StoreWord(Control, Loop);
        EXPECT_EQ(step(), frozen == Green ? Blue : Red);
    }
}

TEST_F(Animation, HidesOnceAndLeavesTheScreenAloneAfterThat) {
    for (const std::uint16_t command : {Hide, std::uint16_t{0xFFFF}}) {
        bootWith(Plain, Loop);
        step();
        StoreWord(Control, command);
        EXPECT_EQ(step(), Page);
        EXPECT_FALSE(row().Shown);
        FrameSurface.fill(Mark);
        EXPECT_EQ(steps(2), (Colours{Mark, Mark}));
        StoreWord(Control, Idle);
        EXPECT_EQ(step(), Mark);
        StoreWord(Control, Loop);
        EXPECT_EQ(step(), Red);
    }
}

TEST_F(Animation, StartsInTheStateOfTheControlWord) {
    const struct {
        std::uint16_t command;
        bool holdFirst;
        QRgb colour;
        AnimationPhase phase;
    } cases[] = {{Loop, false, Red, AnimationPhase::Playing},  {Once, false, Red, AnimationPhase::Playing},
                 {Idle, false, Red, AnimationPhase::Playing},  {Idle, true, Red, AnimationPhase::FirstHeld},
                 {Hide, false, Page, AnimationPhase::Nothing}, {9, true, Page, AnimationPhase::Nothing}};
    for (const auto& c : cases) {
        ImageAnimation animation = Plain;
        animation.HoldFirst = c.holdFirst;
        bootWith(animation, c.command);
        EXPECT_EQ(shown(), c.colour) << c.command;
        EXPECT_EQ(row().Phase, c.phase) << c.command;
        EXPECT_EQ(row().Shown, c.colour != Page) << c.command;
        for (const int x : {19, 30}) EXPECT_EQ(FrameSurface.pixel(x, 14), Page);
    }
}

TEST_F(Animation, GainsATickFromTheTimerAndOneFromEachCycle) {
    ImageAnimation slow = Plain;
    slow.Delay = 7;
    bootWith(Plain, Loop);
    EXPECT_EQ(steps(6), (Colours{Green, Blue, Red, Green, Blue, Red})) << "no pause at the wrap";
    bootWith(slow, Loop);
    EXPECT_EQ(steps(6), (Colours{Red, Red, Green, Green, Green, Blue})) << "3 ticks a cycle";
    const Colours still = steps(1);
    cycles(50);
    EXPECT_EQ(shown(), still[0]) << "cycles alone do not count";
}

TEST_F(Animation, StaysUnderAnOpenEntry) {
    bootWith(Plain, Loop);
    for (const int x : {30, 31}) { // where it ends, and beside it
        OpenEntryRect = EntryRect{x, 18, 40, 30};
        const std::uint32_t before = row().FrameIndex;
        step();
        EXPECT_EQ(row().FrameIndex == before, x == 30);
    }
    OpenEntryRect = EntryRect{0, 0, 63, 47};
    const QRgb frozen = shown();
    StoreWord(Control, Hide);
    EXPECT_EQ(step(), frozen);
    EXPECT_FALSE(row().Shown) << "the state follows the command";
    OpenEntryRect.reset();
    EXPECT_EQ(step(), Page);
}

TEST_F(Animation, PlaysWithoutFramesThatShowEachOthersPagesDoNotRunAway) {
    ImageBuilder image({.Width = 64, .Height = 48});
    image.addSequence({});
    ImageAnimation animation{.ControlAddress = Control, .Width = 10, .Height = 10, .LoopValue = 9};
    animation.OnceValue = 0;
    animation.DoneAddress = word::Page;
    for (const std::uint16_t other : {1, 0}) {
        animation.DoneValue = other;
        image.addPage().add(animation);
    }
    boot(image);
    for (int i = 1; i < 6; ++i) {
        run(20);
        EXPECT_EQ(CurrentPage, i % 2) << "one change a cycle";
    }
}

TEST_F(Animation, FramesOfUnknownFormatsAreSkippedAndTransparentOnesLieOverThePage) {
    const PanelConfig config{.Width = 64, .Height = 48, .ColourMode = 1, .ICType = 3};
    ImageBuilder image(config);
    image.addSequence({square(Red), imagekit::Solid{10, 8, Qt::green}, square(0x00FFFFFF, format::aRGB8888),
                       square(Blue, format::PngOpaque)});
    image.addPage(PlainPage(config, QColor::fromRgb(Page))).add(Plain);
    image.setWord(Control, Loop);
    boot(image);
    EXPECT_EQ(steps(4), (Colours{Red, Page, Blue, Red}));
}

TEST_F(Animation, RecordsWithoutRoomOrControlWordAreLeftOut) {
    ImageBuilder image({.Width = 64, .Height = 48});
    image.addSequence({square(Red)});
    ImageAnimation lost = Plain;
    lost.ControlAddress = 0x70FF;
    std::vector<imagekit::DisplayRecord> records(21, Encode(Plain));
    records.front() = Encode(lost);
    image.addPage().setRawStream(imagekit::Stream::Display, RawStream(records));
    boot(image);
    EXPECT_EQ(AnimationTable.size(), 15u);
    run(100);
}

TEST_F(Animation, ReadsItsBlockAgainWhenThatChanges) {
    ImageAnimation pointed = Plain;
    pointed.ParameterAddress = 0x0200;
    ImageBuilder image = panelWith(pointed, Loop);
    const imagekit::Bytes block = Encode(Plain).Block;
    image.setBytes(0x0200, block);
    boot(image);
    EXPECT_EQ(steps(1), Colours{Green});
    StoreByte(2 * 0x0200 + 2, 40); // x
    RefreshPageWidgets(0);
    EXPECT_EQ(row().X, 40);
    run(20);
    EXPECT_EQ(FrameSurface.pixel(45, 14), Blue) << "the play goes on";
}

} // namespace
} // namespace panel
