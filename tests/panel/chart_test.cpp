#include "imagekit/chart_widgets.h"

#include "graphics/font.h"
#include "graphics/primitives.h"
#include "graphics/shapes.h"
#include "graphics/text.h"
#include "imagekit/touch_controls.h"
#include "panel_test.h"
#include "store/curve_samples.h"
#include "widgets/display/curve.h"
#include "widgets/display/textroll.h"
#include "widgets/touch/open_entry.h"

#include <numeric>

namespace panel {
namespace {

using namespace imagekit;

const PanelConfig Screen{.Width = 120, .Height = 60, .ColourMode = 1};
constexpr std::uint16_t Text = 0x0100;

Pixels noisePage() { return {Noise(Screen.Width, Screen.Height, QImage::Format_RGB32)}; }

/// A curve in plain words, on the panel: from the newest sample on, back in time.
void drawPlainly(const Curve& c) {
    const int baseY = c.Y1 + c.BaseOffset + (c.BaseValue * c.Scale >> 8);
    const auto relativeY = [&](int age) {
        const int sample = CurveSamples[c.Channel][std::size_t(CurveHead[c.Channel] + 0x3FF - age) % 1024];
        const int y = baseY - std::int16_t(sample * c.Scale / 256); // far values run over
        return y < c.Y1 ? 0 : y > c.Y2 - c.Thickness + 1 ? c.Y2 + 1 - c.Thickness - c.Y1 : y - c.Y1;
    };
    const int start = c.LeftToRight ? c.X1 : c.X2 + 1 - c.Thickness;
    const int points = (c.LeftToRight ? c.X2 - c.X1 + 1 : start - c.X1 + 1) / c.StepX;
    for (int i = 0, x = start; i < points; ++i) {
        const int next = c.LeftToRight ? x + c.StepX : x - c.StepX;
        if (c.LeftToRight ? next + c.Thickness - 1 > c.X2 : next < c.X1) return;
        DrawThickLine(x - c.X1, relativeY(i), next - c.X1, relativeY(i + 1), c.Colour, c.Thickness);
        x = next;
    }
}

class CurveTest : public PanelTest {
protected:
    /// What the rectangle shows when these curves have been drawn over each other.
    static QImage expected(const std::vector<Curve>& curves) {
        const Curve& c = curves.front();
        const QRect area(QPoint(c.X1, c.Y1), QPoint(c.X2, c.Y2));
        CopySurfaceRect(PageBackground, area, WorkSurface, {0, 0});
        for (const Curve& curve : curves) drawPlainly(curve);
        return WorkSurface.copy(QRect({0, 0}, area.size()));
    }
    QImage shown(const Curve& c) const {
        return outputs.frame.copy(QRect(QPoint(c.X1, c.Y1), QPoint(c.X2, c.Y2)));
    }
    static void feed(std::uint16_t mask, std::size_t count, unsigned largest) {
        static std::mt19937 random(5);
        std::vector<std::uint16_t> samples(count);
        for (auto& sample : samples) sample = std::uint16_t(random() % (largest + 1));
        AppendCurveSamples(mask, samples);
    }
};

TEST_F(CurveTest, EqualsTheLineThroughItsSamples) {
    std::mt19937 random(9);
    const auto below = [&random](unsigned bound) { return std::uint16_t(random() % bound); };
    ImageBuilder image(Screen);
    std::vector<Curve> curves;
    for (int i = 0; i < 60; ++i) {
        Curve c{.X1 = below(60), .Y1 = below(20), .Colour = 0xFF00FF, .Channel = std::uint8_t(below(12))};
        c.X2 = std::uint16_t(c.X1 + 1 + below(59));
        c.Y2 = std::uint16_t(c.Y1 + 4 + below(35));
        c.BaseOffset = below(60);
        c.BaseValue = below(200);
        c.Scale = std::uint16_t(random() % 5 ? below(700) : 0xFFFF);
        c.LeftToRight = random() % 2 == 0;
        c.StepX = std::uint8_t(1 + below(9));
        c.Thickness = std::uint8_t(1 + below(4));
        curves.push_back(c);
        image.addPage(noisePage()).add(c);
    }
    boot(image);
    feed(0x0FFF, 12 * 1030, 200); // the rings have turned
    for (std::uint16_t page = 0; page < curves.size(); ++page) {
        ShowPage(page);
        cycles(1);
        const QImage first = expected({curves[page]});
        const QRect allButLast(0, 0, first.width() - 1, first.height() - 1);
        ASSERT_EQ(shown(curves[page]).copy(allButLast), first.copy(allButLast)) << page;
        feed(std::uint16_t(1 << curves[page].Channel), 3, 300);
        run(20);
        ASSERT_EQ(shown(curves[page]), expected({curves[page]})) << page;
    }
}

TEST_F(CurveTest, SharesItsRectangleAndOnlyNewSamplesCost) {
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
    image.addPage(noisePage()).setRawStream(Stream::Display, RawStream(crowd));
    auto& empty = image.addPage(noisePage());
    for (const Curve& curve : {noChannel, noStep}) empty.add(curve);
    boot(image);
    EXPECT_EQ(Curves.size(), 12u);
    EXPECT_EQ(CurveGroupCount, 2);
    feed(0x84, 40, 36);
    run(20);
    std::vector<Curve> group(11, b);
    group.front() = a;
    EXPECT_EQ(shown(a), expected(group));
    EXPECT_EQ(shown(other), expected({other}));
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
        ShowPage(page);
        cycles(1);
    }
    static QRect boxOf(const Textroll& t) { return {QPoint(t.X1, t.Y1), QPoint(t.X2, t.Y2)}; }
    QImage shown(const Textroll& t) const { return outputs.frame.copy(boxOf(t)); }

    /// A plain page goes on outside the panel.
    static QRgb behind(QPoint at) { return PageBackground.pixel(PageBackground.valid(at) ? at : QPoint()); }
    /// The view by a strip that is drawn anew, with the page behind the columns that show.
    static QImage viewPlainly(const Textroll& t, const std::string& text, int stripWidth, int textX,
                              int position) {
        const QRect box = boxOf(t);
        QImage strip(stripWidth, box.height(), QImage::Format_ARGB32_Premultiplied);
        for (int i = 0; i < box.width(); ++i)
            for (int y = 0; y < box.height(); ++y)
                strip.setPixel((position + i) % stripWidth, y,
                               t.Opaque ? 0xFF000000 | t.BackColour : behind(box.topLeft() + QPoint(i, y)));
        std::swap(WorkSurface, strip);
        TextStyle style{.font = {Encoding::Ascii, TableFont(t.Font).address, t.GlyphWidth, t.GlyphHeight}};
        style.colour = t.Colour;
        style.backColour = t.BackColour;
        style.opaque = t.Opaque;
        const FontReader reader(style.font);
        const std::vector<std::uint8_t> bytes(text.begin(), text.end());
        int y = (t.Y2 - t.Y1 - t.GlyphHeight) / 2;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const TextUnit unit = reader.unitAt(bytes, i);
            if (unit.kind == TextUnit::Kind::LineBreak && (y += t.GlyphHeight) > box.height()) break;
            if (unit.kind == TextUnit::Kind::Character)
                DrawGlyphAt(style, reader.depthCode(), {textX, y}, unit.width, unit.glyph);
            textX += unit.width;
        }
        std::swap(WorkSurface, strip);
        QImage view(box.size(), strip.format());
        for (int i = 0; i < box.width(); ++i)
            for (int row = 0; row < box.height(); ++row)
                view.setPixel(i, row, strip.pixel((position + i) % stripWidth, row));
        return view;
    }
    int widthOf(const std::string& text) const {
        const FontReader reader({.encoding = Encoding::Ascii, .address = TableFont(font).address});
        return std::accumulate(text.begin(), text.end(), 0, [&reader](int width, char character) {
            return width + reader.asciiWidth(std::uint8_t(character));
        });
    }

    ImageBuilder image;
    std::uint8_t font = 0;
};

TEST_F(TextrollTest, ShowsTheViewOnItsStripAtEveryColumn) {
    std::vector<Textroll> rolls(4, roll());
    rolls[1].Opaque = true;
    rolls[2].RollAlways = true;
    rolls[3].Y2 = 32; // two lines have room
    const std::string texts[] = {"Rolling on, and on", "Rolling on, and on", "Fit", "One\nTwo, Three\nFour"};
    for (const Textroll& t : rolls) image.addPage(noisePage()).add(t);
    boot(image);
    for (std::uint16_t page = 0; page < rolls.size(); ++page) {
        const Textroll& t = rolls[page];
        show(page, texts[page]);
        const int strip = std::max(widthOf(texts[page]), 50) + t.Gap;
        EXPECT_EQ(Textrolls.at(0)->StripWidth, strip);
        for (int step = 0; step <= strip + 2; ++step) {
            const int position = step == 0 ? 0 : (step - 1) % strip; // the first step shows the start again
            ASSERT_EQ(shown(t), viewPlainly(t, texts[page], strip, 0, position)) << page << ", step " << step;
            run(20);
        }
    }
}

TEST_F(TextrollTest, RollsWhatDoesNotFitAndAlignsTheRest) {
    Textroll t = roll();
    t.Gap = 1;
    for (const auto align : {Alignment::Right, Alignment::Centre}) {
        t.Align = align;
        image.addPage(noisePage()).add(t);
    }
    boot(image);
    const std::string text = "Still";
    for (const std::uint16_t page : {0, 1}) {
        show(page, text);
        const int spare = 50 - widthOf(text);
        const QImage still = viewPlainly(t, text, 50, page == 0 ? spare : spare / 2, 0);
        EXPECT_EQ(shown(t), still);
        run(200);
        EXPECT_EQ(shown(t), still);
        setText(text + " " + text + " " + text);
        run(600);
        EXPECT_GT(Textrolls.at(0)->Position, 5) << "a new text that does not fit starts to roll";
        setText(text);
        run(400);
        EXPECT_EQ(shown(t), still);
    }
}

TEST_F(TextrollTest, EachHasItsSpeedAndStandsStillUnderAnEntry) {
    Textroll slow = roll();
    slow.Y1 = 40;
    slow.Y2 = 55;
    slow.Speed = 7;
    std::vector<DisplayRecord> rolls(6, Encode(roll()));
    rolls[1] = Encode(slow);
    image.addPage(noisePage()).setRawStream(Stream::Display, RawStream(rolls));
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

TEST_F(TextrollTest, RollsOnAListThatIsLargerThanThePanel) {
    Textroll wide = roll();
    wide.InList = true;
    wide.X2 = wide.X1 + 149;
    wide.Y1 = 100;
    wide.Y2 = 116;
    const std::string text = "a text that is much, much too long";
    for (const bool opaque : {false, true}) {
        wide.Opaque = opaque;
        auto& rolling = image.addPage(PlainPage(Screen, Qt::cyan));
        rolling.add(wide);
        rolling.add(SlidingList{.Window = {0, 0, 59, 29}, .ListPage = 2});
    }
    image.addPage(Filled(400, 150, Qt::darkRed, format::PngOpaque));
    boot(image);
    for (const std::uint16_t page : {0, 1}) {
        show(page, text);
        wide.Opaque = page == 1;
        const int strip = widthOf(text) + wide.Gap;
        TextrollRow& row = *Textrolls.at(0);
        row.Position = 0;
        for (int step = 0; step < strip; ++step) {
            const int position = step + 150 > strip ? 0 : step; // a view that wraps shows the beginning
            StepTextroll(row);
            ASSERT_EQ(ListSurfaceA.copy(boxOf(wide)), viewPlainly(wide, text, strip, 0, position)) << step;
        }
        EXPECT_EQ(WorkSurface.size(), QSize(Screen.Width, Screen.Height));
        EXPECT_EQ(ListSurfaceA.pixel(160, 105), QColor(Qt::darkRed).rgb()) << "the list beside it";
    }
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
