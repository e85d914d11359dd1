#include "widgets/display/image_animation.h"

#include "host/config_block.h"
#include "imagekit/value_widgets.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "panel_test.h"
#include "store/system_words.h"
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
    QImage image(10, 8, QImage::Format_ARGB32);
    image.fill(colour);
    return {.Image = image, .Format = format};
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

TEST_F(Animation, LoopsWithoutAPauseAtTheWrap) {
    bootWith(Plain, Loop);
    EXPECT_EQ(shown(), Red);
    EXPECT_EQ(steps(6), (Colours{Green, Blue, Red, Green, Blue, Red}));
    EXPECT_EQ(FrameSurface.pixel(19, 14), Page);
    EXPECT_EQ(FrameSurface.pixel(30, 14), Page);
}

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
        StoreWord(Control, Loop);
        EXPECT_EQ(step(), Red);
    }
}

struct StartCase {
    const char* name;
    std::uint16_t command;
    bool holdFirst;
    QRgb colour;
    AnimationPhase phase;
};
class AnimationStart : public Animation, public ::testing::WithParamInterface<StartCase> {};

TEST_P(AnimationStart, ShowsTheStateOfTheControlWord) {
    ImageAnimation animation = Plain;
    animation.HoldFirst = GetParam().holdFirst;
    bootWith(animation, GetParam().command);
    EXPECT_EQ(shown(), GetParam().colour);
    EXPECT_EQ(row().Phase, GetParam().phase);
    EXPECT_EQ(row().Shown, GetParam().colour != Page);
}

INSTANTIATE_TEST_SUITE_P(Commands, AnimationStart,
                         ::testing::Values(StartCase{"Loop", Loop, false, Red, AnimationPhase::Playing},
                                           StartCase{"Once", Once, false, Red, AnimationPhase::Playing},
                                           StartCase{"Idle", Idle, false, Red, AnimationPhase::Playing},
                                           StartCase{"IdleHeld", Idle, true, Red, AnimationPhase::FirstHeld},
                                           StartCase{"Hide", Hide, false, Page, AnimationPhase::Nothing},
                                           StartCase{"Other", 9, true, Page, AnimationPhase::Nothing}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Animation, GainsATickFromTheTimerAndOneFromEachCycle) {
    ImageAnimation slow = Plain;
    slow.Delay = 7;
    bootWith(slow, Loop);
    EXPECT_EQ(steps(6), (Colours{Red, Red, Green, Green, Green, Blue})) << "3 ticks a cycle";
    const Colours still = steps(1);
    cycles(50);
    EXPECT_EQ(shown(), still[0]) << "cycles alone do not count";
}

TEST_F(Animation, StaysUnderAnOpenEntry) {
    bootWith(Plain, Loop);
    struct {
        EntryRect entry;
        bool touches;
    } const cases[] = {{{30, 18, 40, 30}, true}, {{31, 18, 40, 30}, false}, {{0, 0, 20, 10}, true},
                       {{0, 0, 19, 47}, false},  {{25, 0, 26, 9}, false},   {{25, 19, 26, 20}, false}};
    for (const auto& [entry, touches] : cases) {
        OpenEntryRect = entry;
        const std::uint32_t before = row().FrameIndex;
        step();
        EXPECT_EQ(row().FrameIndex == before, touches) << entry.x0 << ' ' << entry.y0;
    }
    OpenEntryRect = EntryRect{0, 0, 63, 47};
    const QRgb frozen = shown();
    StoreWord(Control, Hide);
    EXPECT_EQ(step(), frozen);
    EXPECT_FALSE(row().Shown) << "the state follows the command";
    OpenEntryRect.reset();
    EXPECT_EQ(step(), Page);
}

TEST_F(Animation, TellsWhereItLiesOnlyWhileShownAndOnlyOnFullChips) {
    bootWith(Plain, Loop);
    for (const auto& [x, y, inside] : {std::tuple{20, 10, true},
                                       {30, 18, true},
                                       {19, 10, false},
                                       {31, 18, false},
                                       {20, 9, false},
                                       {20, 19, false}})
        EXPECT_EQ(IsUnderAnimation(x, y), inside) << x << ' ' << y;
    StoreWord(Control, Hide);
    step();
    EXPECT_FALSE(IsUnderAnimation(25, 14));
    boot(panelWith(Plain, Loop, 2));
    EXPECT_EQ(shown(), Red);
    EXPECT_FALSE(IsUnderAnimation(25, 14));
}

TEST_F(Animation, PlaysWithoutFramesThatShowEachOthersPagesDoNotRunAway) {
    ImageBuilder image({.Width = 64, .Height = 48});
    image.addSequence({});
    for (std::uint16_t page = 0; page < 2; ++page)
        image.addPage().add(ImageAnimation{.ControlAddress = Control,
                                           .Width = 10,
                                           .Height = 10,
                                           .LoopValue = 9,
                                           .OnceValue = 0,
                                           .DoneAddress = word::Page,
                                           .DoneValue = static_cast<std::uint16_t>(1 - page)});
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
    auto& page = image.addPage();
    ImageAnimation lost = Plain;
    lost.ControlAddress = 0x70FF;
    page.add(lost);
    imagekit::Bytes stream = page.bytes(imagekit::Stream::Display);
    const imagekit::Bytes record = imagekit::EncodeRecord(Encode(Plain), "");
    for (int i = 0; i < 20; ++i) stream.insert(stream.end(), record.begin(), record.end());
    page.setRawStream(imagekit::Stream::Display, stream);
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
    EXPECT_EQ(row().Phase, AnimationPhase::Playing);

    row().X = 3;
    RefreshPageWidgets(0);
    EXPECT_EQ(row().X, 3) << "not read without a change";
}

} // namespace
} // namespace panel
