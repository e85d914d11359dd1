#include "imagekit/chart_widgets.h"

#include "golden.h"
#include "imagekit/touch_controls.h"
#include "panel_test.h"
#include "store/curve_samples.h"
#include "widgets/display/curve.h"
#include "widgets/display/textroll.h"
#include "widgets/touch/open_entry.h"

namespace panel {
namespace {

using namespace imagekit;

const PanelConfig Screen{.Width = 120, .Height = 60, .ColourMode = 1};
constexpr std::uint16_t Text = 0x0100;

const QSize FrameSize(Screen.Width, Screen.Height);

Pixels patternPage() { return {Pattern(Screen.Width, Screen.Height)}; }

void feed(std::uint16_t mask, std::size_t count, unsigned largest) {
    static std::mt19937 random(5);
    std::vector<std::uint16_t> samples(count);
    for (auto& sample : samples) sample = std::uint16_t(random() % (largest + 1));
    AppendCurveSamples(mask, samples);
}

TEST_F(PanelTest, CurvesGoThroughTheirNewestSamples) {
    std::mt19937 random(9);
    const auto below = [&random](unsigned bound) { return std::uint16_t(random() % bound); };
    ImageBuilder image(Screen);
    constexpr std::uint16_t count = 60;
    for (int i = 0; i < count; ++i) {
        Curve c{.X1 = below(60), .Y1 = below(20), .Colour = 0xFF00FF, .Channel = std::uint8_t(below(12))};
        c.X2 = std::uint16_t(c.X1 + 1 + below(59));
        c.Y2 = std::uint16_t(c.Y1 + 4 + below(35));
        c.BaseOffset = below(60);
        c.BaseValue = below(200);
        c.Scale = std::uint16_t(random() % 5 ? below(700) : 0xFFFF);
        c.LeftToRight = random() % 2 == 0;
        c.StepX = std::uint8_t(1 + below(9));
        c.Thickness = std::uint8_t(1 + below(4));
        image.addPage(patternPage()).add(c);
    }
    boot(image);
    feed(0x0FFF, 12 * 1030, 200); // the rings have turned
    Sheet sheet(FrameSize, 12, 2 * count / 12);
    for (std::uint16_t page = 0; page < count; ++page) {
        sheet.add(frameOf(page));
        feed(0x0FFF, 12 * 3, 300);
        run(20);
        sheet.add(outputs.frame);
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/curves.png"));
}

TEST_F(PanelTest, CurvesShareARectangleAndOnlyNewSamplesCost) {
    ImageBuilder image(Screen);
    const Curve a{.X1 = 4, .Y1 = 4, .X2 = 50, .Y2 = 40, .BaseOffset = 36, .Colour = 0xFF0000, .Channel = 2};
    Curve b = a, other = a, noChannel = a, noStep = a;
    b.Channel = 7;
    b.Thickness = 2;
    b.Colour = 0x00FF00;
    other.X1 = 60;
    other.X2 = 110;
    noChannel.Channel = 12;
    noStep.StepX = 0;
    std::vector<DisplayRecord> crowd(15, Encode(b));
    crowd[0] = Encode(a);
    crowd[1] = Encode(other);
    image.addPage(patternPage()).setRawStream(Stream::Display, RawStream(crowd));
    auto& empty = image.addPage(patternPage());
    for (const Curve& curve : {noChannel, noStep}) empty.add(curve);
    boot(image);
    EXPECT_EQ(Curves.size(), 12u);
    EXPECT_EQ(CurveGroupCount, 2);
    feed(0x84, 40, 36);
    run(20);
    EXPECT_TRUE(EqualsGolden(outputs.frame, "panel/golden/shared-curves.png"));
    FrameSurface.fill(Qt::white);
    feed(0x0100, 5, 36);
    run(100);
    EXPECT_EQ(pixel(20, 20), 0xFFFFFFFF) << "nobody shows that channel";
    ShowPage(1);
    EXPECT_EQ(Curves.size(), 0u);
}

/// A rolling text over noise, in a font of four bits a pixel, whose glyphs mix with what lies behind.
class TextrollTest : public PanelTest {
protected:
    TextrollTest() : image(Screen) {
        font = image.addFont(SyntheticFont({.Kind = FontKind::Ascii, .Width = 9, .Height = 10, .Depth = 4}));
    }
    Textroll roll() const {
        Textroll t{.TextAddress = Text, .X1 = 10, .Y1 = 8, .X2 = 59, .Y2 = 24, .TextWords = 40, .Font = font};
        t.GlyphWidth = 9;
        t.GlyphHeight = 10;
        t.Colour = 0xFFEE00;
        t.BackColour = 0x102030;
        t.Speed = 2;
        t.Gap = 13;
        return t;
    }
    static void setText(const std::string& text) { PanelTest::setText(Text, text, 80); }
    void show(std::uint16_t page, const std::string& text) {
        setText(text);
        frameOf(page);
    }
    static constexpr QRect Place{10, 8, 50, 25};
    QImage shown() const { return outputs.frame.copy(Place); }

    ImageBuilder image;
    std::uint8_t font = 0;
};

TEST_F(TextrollTest, ShowsAViewOfItsStrip) {
    std::vector<Textroll> rolls(4, roll());
    rolls[1].Opaque = true;
    rolls[2].RollAlways = true;
    rolls[3].Y2 = 32; // two lines have room
    const std::string texts[] = {"Rolling on, and on", "Rolling on, and on", "Fit", "One\nTwo, Three\nFour"};
    for (const Textroll& t : rolls) image.addPage(patternPage()).add(t);
    boot(image);
    Sheet sheet(Place.size(), 12, 4);
    for (std::uint16_t page = 0; page < rolls.size(); ++page) {
        show(page, texts[page]);
        for (int step = 0; step < 12; ++step) {
            sheet.add(shown());
            run(20 * Textrolls.at(0)->StripWidth / 10); // past the seam in the end
        }
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/rolling-texts.png"));
}

TEST_F(TextrollTest, RollsWhatDoesNotFitAndAlignsTheRest) {
    Textroll t = roll();
    t.Gap = 1;
    for (const auto align : {Alignment::Right, Alignment::Centre}) {
        t.Align = align;
        image.addPage(patternPage()).add(t);
    }
    boot(image);
    Sheet sheet(Place.size(), 2, 1);
    for (const std::uint16_t page : {0, 1}) {
        show(page, "Still");
        const QImage still = shown();
        sheet.add(still);
        run(200);
        EXPECT_EQ(shown(), still);
        setText("Still Still Still");
        run(600);
        EXPECT_GT(Textrolls.at(0)->Position, 5) << "a new text that does not fit starts to roll";
        setText("Still");
        run(400);
        EXPECT_EQ(shown(), still);
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/aligned-texts.png"));
}

TEST_F(TextrollTest, EachHasItsSpeedAndStandsStillUnderAnEntry) {
    Textroll slow = roll();
    slow.Y1 = 40;
    slow.Y2 = 55;
    slow.Speed = 7;
    std::vector<DisplayRecord> rolls(6, Encode(roll()));
    rolls[1] = Encode(slow);
    image.addPage(patternPage()).setRawStream(Stream::Display, RawStream(rolls));
    boot(image);
    show(0, "a text that is much too long");
    EXPECT_EQ(Textrolls.size(), 5u) << "a sixth is left out";
    for (TextrollRow& row : Textrolls.rows()) row.Ticks = 0;
    const auto positions = [] { return std::pair(Textrolls.at(0)->Position, Textrolls.at(1)->Position); };
    run(240);
    EXPECT_EQ(positions(), std::pair(12, 3));
    OpenEntryRect = EntryRect{0, 0, 20, 20};
    run(240);
    EXPECT_EQ(positions(), std::pair(12, 6));
    OpenEntryRect.reset();
    run(20);
    EXPECT_EQ(Textrolls.at(0)->Position, 13);
}

TEST_F(TextrollTest, RollsOnWhileItsBlockNamesNoText) {
    constexpr std::uint16_t block = 0x0300;
    Textroll t = roll();
    t.ParameterAddress = block;
    image.addPage(patternPage()).add(t);
    boot(image);
    StoreBytes(2 * block, Encode(t).Block);
    show(0, "a text that is much too long");
    run(400);
    const int before = Textrolls.at(0)->Position;
    StoreWord(block, 0xFFFF);
    run(400);
    EXPECT_GT(Textrolls.at(0)->Position, before);
}

TEST_F(TextrollTest, RollsOnAListThatIsLargerThanThePanel) {
    Textroll wide = roll();
    wide.InList = true;
    wide.X2 = wide.X1 + 149;
    wide.Y1 = 100;
    wide.Y2 = 116;
    for (const bool opaque : {false, true}) {
        wide.Opaque = opaque;
        auto& rolling = image.addPage(PlainPage(Screen, Qt::cyan));
        rolling.add(wide);
        rolling.add(SlidingList{.Window = {0, 0, 59, 29}, .ListPage = 2});
    }
    image.addPage(Filled(400, 150, Qt::darkRed, format::PngOpaque));
    boot(image);
    constexpr int places = 10;
    Sheet sheet({170, 20}, 2, places);
    for (const std::uint16_t page : {0, 1}) {
        show(page, "a text that is much, much too long for its place on the list");
        TextrollRow& row = *Textrolls.at(0);
        for (int i = 0; i < places; ++i) {
            row.Position = row.StripWidth * i / places; // a view that wraps shows the beginning
            StepTextroll(row);
            sheet.add(ListSurfaceA.copy({0, 98, 170, 20}));
        }
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/texts-on-a-list.png"));
    EXPECT_EQ(WorkSurface.size(), QSize(Screen.Width, Screen.Height));
}

TEST_F(TextrollTest, ASmallChipLeavesOutAStripThatIsTooLarge) {
    image = ImageBuilder({.Width = 300, .Height = 200, .ICType = 1});
    Textroll t = roll();
    t.Font = image.addFont(SyntheticFont({.Width = 9, .Height = 10}));
    t.Opaque = t.RollAlways = true;
    t.X1 = t.Y1 = 0;
    t.X2 = 199;
    t.Gap = 50;
    for (const std::uint16_t height : {160, 161}) {
        t.Y2 = height - 1;
        image.addPage(PlainPage(image.config(), Qt::white)).add(t);
    }
    boot(image);
    for (const std::uint16_t page : {0, 1}) {
        show(page, "text");
        EXPECT_EQ(pixel(150, 150) == 0xFFFFFFFF, page == 1);
    }
}

} // namespace
} // namespace panel
