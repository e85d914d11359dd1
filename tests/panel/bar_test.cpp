#include "imagekit/bar_widgets.h"

#include "golden.h"
#include "panel_test.h"
#include "widgets/display/auto_step.h"
#include "widgets/display/qr_code.h"

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100, Control = 0x0110, Done = 0x0120, Text = 0x0200;

TEST_F(PanelTest, AnImageBarShowsThePieceOfItsValueOverWhatLiesBehind) {
    const struct {
        BarGrowth direction;
        int minimum, maximum, value;
    } cases[] = {{BarGrowth::Right, 0, 100, 50},
                 {BarGrowth::Right, 0, 100, 99},
                 {BarGrowth::Right, 0, 100, 0},
                 {BarGrowth::Left, 0, 100, 25},
                 {BarGrowth::Down, -100, 100, 0},
                 {BarGrowth::Up, -100, 100, -40},
                 {BarGrowth::Up, -100, 100, 0x8000}, // the lowest number, not the highest
                 {BarGrowth::Right, -32768, 32767, 32767},
                 {BarGrowth::Right, 7, 7, 7},
                 {BarGrowth::Right, 9, 3, 5},
                 {static_cast<BarGrowth>(4), 0, 100, 100}};
    ImageBuilder image(Small);
    ImageBar bar{.ValueAddress = Value, .BarX = 9, .BarY = 8};
    bar.BarImage = image.addPicture(Pixels{Pattern(20, 10)});
    bar.BackX = bar.BackY = 5; // without a ground the bar takes its place
    const std::uint16_t ground = image.addPicture(Filled(30, 20, Qt::darkGreen));
    for (const std::uint16_t back : {None, ground})
        for (const auto& c : cases) {
            bar.Direction = c.direction;
            bar.Minimum = static_cast<std::int16_t>(c.minimum);
            bar.Maximum = static_cast<std::int16_t>(c.maximum);
            bar.BackImage = back;
            image.addPage(PlainPage(Small, Qt::gray)).add(bar);
        }
    boot(image);
    Sheet sheet({64, 48}, std::size(cases), 2);
    for (std::uint16_t page = 0; page < 2 * std::size(cases); ++page) {
        StoreWord(Value, 0x7FFF); // first as long as can be
        frameOf(page);
        StoreWord(Value, static_cast<std::uint16_t>(cases[page % std::size(cases)].value));
        run(300);
        sheet.add(outputs.frame);
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/bars.png"));
}

TEST_F(PanelTest, QrCodesComeInAllSizesAndVersions) {
    ImageBuilder image({.Width = 304, .Height = 304, .ColourMode = 1});
    imagekit::QrCode code{.TextAddress = Text, .TextWords = 600, .X = 3, .Y = 2};
    for (code.SizeUnits = 1; code.SizeUnits <= 6; ++code.SizeUnits)
        image.addPage(PlainPage(image.config(), Qt::gray)).add(code);
    boot(image);
    const auto show = [this](std::uint16_t page, const std::string& text) {
        setText(Text, text, text.size() + 1);
        apply(word::Page, page);
        run(300);
        return outputs.frame;
    };
    Sheet sheet({304, 304}, 6, 5);
    for (const std::string& text :
         {std::string(), std::string("12345"), std::string("HELLO WORLD"),
          std::string("https://example.org/s?note=\xE5\xAE\xA2\xE5\x8E\x85"), std::string(1000, 'y')})
        for (std::uint16_t page = 0; page < 6; ++page) sheet.add(show(page, text));
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/qr-codes.png"));
    const QImage two = show(1, "two");
    EXPECT_EQ(show(1, std::string(1300, 'z')), two) << "a text that is too long leaves the old code";
    EXPECT_NE(show(1, "three"), two);
}

TEST(QrPictures, AreScaledAsQtScalesAPictureOfModules) {
    const struct {
        int bytes, modules, side;
    } cases[] = {{1, 21, 150},  {24, 29, 400},   {58, 41, 400},
                 {44, 37, 350}, {400, 101, 350}, {1270, 177, 600}};
    constexpr int margin = 10;
    for (const auto& [bytes, modules, side] : cases) {
        const QByteArray text(bytes, 'q');
        const auto symbol = [&](int size) {
            return MakeQrImage(text, size + 2 * margin, {margin, margin, size, size});
        };
        const int size = side - 2 * margin;
        EXPECT_EQ(symbol(size), symbol(modules).scaled(size, size)) << bytes;
    }
}

constexpr auto S8 = DataType::S8, S16 = DataType::S16, U32 = DataType::U32, U64 = DataType::U64;

TEST_F(PanelTest, AnAutoStepGoesAsItsControlWordTells) {
    const struct {
        const char* name;
        AutoStep widget;
        std::int64_t start;
        std::vector<std::int64_t> values; // one after each period
        std::uint16_t control;            // in the end
    } cases[] = {{"CycleUp", {.Highest = 10, .Step = 3}, 0, {3, 6, 9, 10, 0, 3}, 1},
                 {"CycleDown", {.Highest = 10, .Step = 3, .Up = false}, 10, {7, 4, 1, 0, 10}, 1},
                 {"CycleFromBelow", {.Lowest = 50, .Highest = 60}, 7, {50, 51}, 1},
                 {"CycleDownFromAbove", {.Highest = 10, .Up = false}, 70, {10, 9}, 1},
                 {"RunUp", {.Highest = 10, .Step = 3}, 0, {3, 6, 9, 10, 10}, 0},
                 {"RunDownPastTheEnd", {.Highest = 10, .Step = 3, .Up = false}, 1, {0, 0}, 0},
                 {"RunDownFromAbove", {.Highest = 10, .Step = 3, .Up = false}, 90, {10, 7, 4, 1, 0}, 0},
                 {"Byte", {.Type = S8, .Lowest = -5, .Highest = 5, .Step = 4}, -5, {-1, 3, 5, -5}, 1},
                 {"Word", {.Type = S16, .Lowest = -900, .Step = 500, .Up = false}, 0, {-500, -900}, 0},
                 {"Long", {.Type = U32, .Highest = 0x50000, .Step = 0x8000}, 0x48000, {0x50000, 0}, 1},
                 {"Wide", {.Type = U64, .Highest = 0x500000000, .Step = 9}, 0x4FFFFFFFF, {8, 17}, 1},
                 {"NoType", {.Type = static_cast<DataType>(4), .Highest = 9}, 0, {0, 0}, 1},
                 {"NoControl", {.Highest = 9}, 4, {4, 4}, 3}};
    for (const auto& c : cases) {
        ImageBuilder image(Small);
        AutoStep widget = c.widget;
        widget.TargetAddress = Value;
        widget.ControlAddress = Control;
        widget.Period = 4;
        image.addPage().add(widget);
        boot(image);
        const auto type = static_cast<std::uint8_t>(widget.Type);
        StoreWord(Value, 0x5500); // the high byte beside a value of one byte
        StoreNumeric(Value, type, c.start);
        StoreWord(Control, c.control == 0 ? widget.RunValue : c.control);
        std::vector<std::int64_t> values;
        while (values.size() < c.values.size()) {
            run(40);
            values.push_back(number(Value, static_cast<DataType>(type | TypeSignedBit)));
        }
        EXPECT_EQ(values, c.values) << c.name;
        EXPECT_EQ(ReadWord(Control), c.control) << c.name;
        EXPECT_TRUE(widget.Type != S8 || ReadByte(2 * std::size_t{Value}) == 0x55);
    }
}

TEST_F(PanelTest, AnAutoStepTellsItsEndAndObeysTheWordSetByIt) {
    ImageBuilder image(Small);
    AutoStep widget{.TargetAddress = Value, .Type = U32, .ControlAddress = Control, .EndValue = 7};
    widget.Highest = widget.Step = 5;
    widget.DoneAddress = Done;
    widget.DoneValue = 44;
    widget.Notify = true;
    image.addPage().add(widget);
    widget.ParameterAddress = 0x0300;
    widget.DoneAddress = word::PagePreset;
    widget.DoneValue = 1;
    image.addPage().add(widget);
    image.page(1).add(PagePreset{1, {{0x7000, 0}}});
    boot(image);
    TakeSentFrames();
    StoreWord(Control, 2);
    run(200);
    EXPECT_EQ(ReadWord(Control), 7);
    EXPECT_EQ(ReadWord(Done), 44);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0x01, 0x00, 0x00, 0x00, 0x00, 0x05}}));
    ShowPage(1);
    EXPECT_EQ(AutoStepTable.size(), 1u);
    StoreBytes(2 * 0x0300, Encode(widget).Block); // the host fills the block of a widget on show
    StoreNumeric(Value, static_cast<std::uint8_t>(widget.Type), 0);
    StoreWord(Control, 2);
    run(500);
    EXPECT_EQ(ReadWord(Control), 7);
    EXPECT_EQ(CurrentPage, 0) << "the run ended with the choice of a page";
}

} // namespace
} // namespace panel
