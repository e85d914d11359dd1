#include "widgets/display/image_animation.h"

#include "host/config_block.h"
#include "panel_test.h"
#include "widgets/touch/open_entry.h"

namespace panel {
namespace {

using imagekit::ImageAnimation;
using imagekit::ImageBuilder;
using imagekit::PanelConfig;

constexpr std::uint16_t Control = 0x0100, Done = 0x0101;
constexpr std::uint16_t Idle = 0, Loop = 1, Once = 2, Hide = 3; // commands

constexpr QRgb Page = 0xFF102030, Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF, Mark = 0xFFFF00FF;
constexpr std::pair<QRgb, char> Letters[] = {{Page, 'P'}, {Red, 'R'}, {Green, 'G'}, {Blue, 'B'}, {Mark, 'M'}};

imagekit::Pixels square(QRgb colour, std::uint8_t format = format::RGB565) {
    return Filled(10, 8, QColor::fromRgba(colour), format);
}

const PanelConfig Config{.Width = 64, .Height = 48, .ColourMode = 1, .ICType = 3};
const ImageAnimation Plain{.ControlAddress = Control, .X = 20, .Y = 10, .Width = 10, .Height = 8};

class Animation : public PanelTest {
protected:
    /// A page with an animation of these frames.
    static ImageBuilder panelWith(const ImageAnimation& animation, std::uint16_t command,
                                  const std::vector<imagekit::Picture>& frames = {square(Red), square(Green),
                                                                                  square(Blue)}) {
        ImageBuilder image(Config);
        image.addSequence(frames);
        image.addPage(PlainPage(Config, QColor::fromRgb(Page))).add(animation);
        image.setWord(Control, command);
        return image;
    }
    void bootWith(const ImageAnimation& animation, std::uint16_t command) {
        boot(panelWith(animation, command));
    }

    /// The letter of the colour in the middle of the widget.
    static char shown() {
        const auto* const found =
            std::ranges::find(Letters, FrameSurface.pixel(25, 14), &std::pair<QRgb, char>::first);
        return found == std::end(Letters) ? '?' : found->second;
    }
    /// What each cycle leaves on the screen.
    std::string cyclesShow(std::size_t count) {
        std::string seen;
        while (seen.size() < count) {
            run(20);
            seen += shown();
        }
        return seen;
    }
    static AnimationRow& row() { return AnimationTable.rows()[0]; }
};

TEST_F(Animation, PlaysOnceThenTellsAndLeavesTheLastFrame) {
    ImageAnimation telling = Plain;
    telling.DoneAddress = Done;
    telling.DoneValue = 77;
    bootWith(telling, Once);
    for (const int x : {19, 30}) EXPECT_EQ(FrameSurface.pixel(x, 14), Page);
    EXPECT_EQ(cyclesShow(2), "GB");
    EXPECT_EQ(ReadWord(Done), 0);
    EXPECT_EQ(cyclesShow(3), "BBB");
    EXPECT_EQ(ReadWord(Done), 77);
    EXPECT_EQ(ReadWord(Control), Idle);
}

TEST_F(Animation, FollowsItsControlWord) {
    struct Phase {
        std::uint16_t command;
        std::string shown; // cycle by cycle; of the first command from the start on
    };
    const struct {
        const char* name;
        bool holdFirst;
        std::uint8_t delay;
        std::vector<Phase> phases;
    } cases[] = {
        {"no pause at the wrap", false, 0, {{Loop, "RGBRGBR"}}},
        {"3 ticks a cycle", false, 7, {{Loop, "RRRGGGB"}}},
        {"freezes and goes on", false, 0, {{Loop, "RG"}, {Idle, "GG"}, {Loop, "B"}, {9, "BB"}, {Loop, "R"}}},
        {"back to the first frame", true, 0, {{Once, "RGBBRR"}, {Loop, "RGB"}}},
        {"hides, plays from the first", false, 0, {{Loop, "RG"}, {Hide, "PP"}, {Idle, "P"}, {Loop, "RG"}}},
        {"hides by any word", false, 0, {{Loop, "RG"}, {0xFFFF, "P"}, {Loop, "R"}}},
        {"starts at rest", false, 0, {{Idle, "RR"}, {Loop, "RG"}}},
        {"starts at rest on the first", true, 0, {{Idle, "RR"}, {Loop, "RG"}}},
        {"starts hidden", false, 0, {{Hide, "PP"}, {Loop, "RG"}}},
        {"starts with no command", true, 0, {{9, "PP"}, {Loop, "RG"}}}};
    for (const auto& c : cases) {
        ImageAnimation animation = Plain;
        animation.HoldFirst = c.holdFirst;
        animation.Delay = c.delay;
        bootWith(animation, c.phases[0].command);
        std::string seen(1, shown());
        for (const auto& [command, expected] : c.phases) {
            StoreWord(Control, command);
            seen += cyclesShow(expected.size() - seen.size());
            EXPECT_EQ(seen, expected) << c.name;
            EXPECT_EQ(row().Shown, expected.back() != 'P') << c.name;
            seen.clear();
        }
    }
}

TEST_F(Animation, LeavesTheScreenAloneBetweenItsSteps) {
    bootWith(Plain, Loop);
    cycles(50);
    EXPECT_EQ(shown(), 'R') << "cycles without ticks do not count";
    StoreWord(Control, Hide);
    EXPECT_EQ(cyclesShow(1), "P");
    FrameSurface.fill(Mark);
    EXPECT_EQ(cyclesShow(2), "MM") << "hidden once";
}

TEST_F(Animation, StaysUnderAnOpenEntry) {
    bootWith(Plain, Loop);
    OpenEntryRect = EntryRect{31, 18, 40, 30};
    EXPECT_EQ(cyclesShow(1), "G") << "beside it";
    OpenEntryRect = EntryRect{30, 18, 40, 30};
    EXPECT_EQ(cyclesShow(1), "G") << "where it ends";
    StoreWord(Control, Hide);
    EXPECT_EQ(cyclesShow(1), "G");
    EXPECT_FALSE(row().Shown) << "the state follows the command";
    OpenEntryRect.reset();
    EXPECT_EQ(cyclesShow(1), "P");
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
    boot(panelWith(Plain, Loop,
                   {square(Red), imagekit::Solid{10, 8, Qt::green}, square(0x00FFFFFF, format::aRGB8888),
                    square(Blue, format::PngOpaque)}));
    EXPECT_EQ(cyclesShow(4), "RPBR");
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
    image.setBytes(0x0200, Encode(Plain).Block);
    boot(image);
    EXPECT_EQ(cyclesShow(1), "G");
    StoreByte(2 * 0x0200 + 2, 40); // x
    RefreshPageWidgets(0);
    EXPECT_EQ(row().X, 40);
    run(20);
    EXPECT_EQ(FrameSurface.pixel(45, 14), Blue) << "the play goes on";
}

} // namespace
} // namespace panel
