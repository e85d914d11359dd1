#include "imagekit/bar_widgets.h"

#include "panel_test.h"
#include "widgets/display/auto_step.h"
#include "widgets/display/qr_code.h"

#include <QPainter>

#include <qrcodegen/qrcodegen.hpp>

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100, Control = 0x0110, Done = 0x0120, Text = 0x0200;

TEST_F(PanelTest, AnImageBarShowsThePieceOfItsValueOverWhatLiesBehind) {
    const struct {
        BarGrowth direction;
        int minimum, maximum, value;
        QRect piece; // of the bar's picture, 20 x 10
    } cases[] = {{BarGrowth::Right, 0, 100, 50, {0, 0, 10, 10}},
                 {BarGrowth::Right, 0, 100, 99, {0, 0, 19, 10}},
                 {BarGrowth::Right, 0, 100, 0, {}},
                 {BarGrowth::Left, 0, 100, 25, {15, 0, 5, 10}},
                 {BarGrowth::Down, -100, 100, 0, {0, 0, 20, 5}},
                 {BarGrowth::Up, -100, 100, -40, {0, 7, 20, 3}},
                 {BarGrowth::Up, -100, 100, 0x8000, {}}, // the lowest number, not the highest
                 {BarGrowth::Right, -32768, 32767, 32767, {0, 0, 20, 10}},
                 {BarGrowth::Right, 7, 7, 7, {}},
                 {BarGrowth::Right, 9, 3, 5, {}},
                 {static_cast<BarGrowth>(4), 0, 100, 100, {}}};
    ImageBuilder image(Small);
    const QImage picture = Pattern(20, 10);
    ImageBar bar{.ValueAddress = Value, .BarX = 9, .BarY = 8, .BarImage = image.addPicture(Pixels{picture})};
    bar.BackX = bar.BackY = 5;
    const std::uint16_t ground = image.addPicture(Filled(30, 20, Qt::darkGreen));
    for (const auto& c : cases)
        for (const std::uint16_t back : {None, ground}) {
            bar.Direction = c.direction;
            bar.Minimum = static_cast<std::int16_t>(c.minimum);
            bar.Maximum = static_cast<std::int16_t>(c.maximum);
            bar.BackImage = back;
            image.addPage(PlainPage(Small, Qt::gray)).add(bar);
        }
    boot(image);
    for (std::uint16_t page = 0; page < 2 * std::size(cases); ++page) {
        StoreWord(Value, 0x7FFF); // first as long as can be
        ShowPage(page);
        cycles(1);
        StoreWord(Value, static_cast<std::uint16_t>(cases[page / 2].value));
        run(300);
        QImage expected(64, 48, QImage::Format_ARGB32_Premultiplied);
        expected.fill(QColor(Qt::gray));
        QPainter painter(&expected);
        if (page % 2) painter.fillRect(5, 5, 30, 20, Qt::darkGreen);
        const QPoint at = page % 2 ? QPoint(9, 8) : QPoint(5, 5); // without a ground the bar takes its place
        const QRect piece = cases[page / 2].piece;
        if (!piece.isEmpty()) painter.drawImage(at + piece.topLeft(), picture, piece);
        EXPECT_EQ(outputs.frame, expected) << page;
    }
}

/// The code as the library and the toolkit make it together.
QImage qrByDefinition(const std::string& text, int side) {
    using qrcodegen::QrCode;
    const QrCode code = QrCode::encodeSegments(qrcodegen::QrSegment::makeSegments(text.c_str()),
                                               QrCode::Ecc::HIGH, 1, 40, 2, false);
    QImage modules(code.getSize(), code.getSize(), QImage::Format_RGB888);
    for (int y = 0; y < modules.height(); ++y)
        for (int x = 0; x < modules.width(); ++x)
            modules.setPixel(x, y, code.getModule(x, y) ? 0xFF000000 : 0xFFFFFFFF);
    QImage result(side, side, QImage::Format_RGB888);
    result.fill(Qt::white);
    const int margin = side == 50 ? 3 : side == 100 ? 5 : 10;
    const int symbol = side - 2 * margin;
    QPainter(&result).drawImage(margin, margin,
                                modules.scaled(symbol, symbol, Qt::KeepAspectRatio, Qt::FastTransformation));
    return result;
}

class QrCodeTest : public PanelTest {
protected:
    static constexpr int X = 30, Y = 20;
    QrCodeTest() : image({.Width = 340, .Height = 330, .ColourMode = 1}) {
        for (std::uint8_t units = 1; units <= 6; ++units)
            image.addPage(PlainPage(image.config(), Qt::gray))
                .add(imagekit::QrCode{
                    .TextAddress = Text, .TextWords = 600, .X = X, .Y = Y, .SizeUnits = units});
    }
    static void setText(const std::string& text) { PanelTest::setText(Text, text, text.size() + 1); }
    QImage shown(int side) const { return outputs.frame.copy(X, Y, side, side); }

    ImageBuilder image;
};

TEST_F(QrCodeTest, EqualsItsDefinitionInAllSizesAndVersions) {
    boot(image);
    for (const std::string& text :
         {std::string(), std::string("12345"), std::string("HELLO WORLD"),
          std::string("https://example.org/s?note=\xE5\xAE\xA2\xE5\x8E\x85"), std::string(1000, 'y')})
        for (std::uint16_t page = 0; page < 6; ++page) {
            const int side = 50 * (page + 1);
            setText(text);
            ShowPage(page);
            cycles(1);
            EXPECT_EQ(shown(side), qrByDefinition(text, side).convertToFormat(shown(side).format()))
                << side << ' ' << text.size();
            EXPECT_EQ(pixel(X + side, Y + side), QColor(Qt::gray).rgb());
        }
    ShowPage(1);
    setText("two");
    run(300);
    const QImage two = shown(100);
    EXPECT_EQ(two, qrByDefinition("two", 100).convertToFormat(two.format()));
    setText(std::string(1300, 'z'));
    run(300);
    EXPECT_EQ(shown(100), two) << "a text that is too long leaves the old code";
}

struct StepCase {
    const char* name;
    AutoStep widget;
    std::int64_t start;
    std::vector<std::int64_t> values; // one after each period
    std::uint16_t control;            // in the end
};
void PrintTo(const StepCase& c, std::ostream* out) { *out << c.name; }

class AutoSteps : public PanelTest, public ::testing::WithParamInterface<StepCase> {};

TEST_P(AutoSteps, GoAsTheirControlWordTells) {
    const StepCase& c = GetParam();
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
    EXPECT_EQ(values, c.values);
    EXPECT_EQ(ReadWord(Control), c.control);
    if ((type & TypeSizeMask) == 0) {
        EXPECT_EQ(ReadByte(2 * std::size_t{Value}), 0x55);
    }
}

constexpr auto S8 = DataType::S8, S16 = DataType::S16, U32 = DataType::U32, U64 = DataType::U64;
INSTANTIATE_TEST_SUITE_P(
    Steps, AutoSteps,
    ::testing::Values(
        StepCase{"CycleUp", {.Highest = 10, .Step = 3}, 0, {3, 6, 9, 10, 0, 3}, 1},
        StepCase{"CycleDown", {.Highest = 10, .Step = 3, .Up = false}, 10, {7, 4, 1, 0, 10}, 1},
        StepCase{"CycleFromBelow", {.Lowest = 50, .Highest = 60}, 7, {50, 51}, 1},
        StepCase{"CycleDownFromAbove", {.Highest = 10, .Up = false}, 70, {10, 9}, 1},
        StepCase{"RunUp", {.Highest = 10, .Step = 3}, 0, {3, 6, 9, 10, 10}, 0},
        StepCase{"RunDownPastTheEnd", {.Highest = 10, .Step = 3, .Up = false}, 1, {0, 0}, 0},
        StepCase{"RunDownFromAbove", {.Highest = 10, .Step = 3, .Up = false}, 90, {10, 7, 4, 1, 0}, 0},
        StepCase{"Byte", {.Type = S8, .Lowest = -5, .Highest = 5, .Step = 4}, -5, {-1, 3, 5, -5}, 1},
        StepCase{"Word", {.Type = S16, .Lowest = -900, .Step = 500, .Up = false}, 0, {-500, -900}, 0},
        StepCase{"Long", {.Type = U32, .Highest = 0x50000, .Step = 0x8000}, 0x48000, {0x50000, 0}, 1},
        StepCase{"Wide", {.Type = U64, .Highest = 0x500000000, .Step = 9}, 0x4FFFFFFFF, {8, 17}, 1},
        StepCase{"NoType", {.Type = static_cast<DataType>(4), .Highest = 9}, 0, {0, 0}, 1},
        StepCase{"NoControl", {.Highest = 9}, 4, {4, 4}, 3}),
    [](const auto& row) { return std::string(row.param.name); });

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
