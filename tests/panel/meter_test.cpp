#include "imagekit/meter_widgets.h"

#include "golden.h"
#include "graphics/primitives.h"
#include "panel_test.h"
#include "widgets/display/needle_meter.h"
#include "widgets/display/sector.h"
#include "widgets/touch/open_entry.h"

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100, Number = 0x0110;

TEST_F(PanelTest, ASectorIsCutOutOfItsPicture) {
    ImageBuilder image({.Width = 64, .Height = 48});
    image.addPage();
    std::uint16_t count = 0;
    for (const QSize size : {QSize(40, 40), QSize(41, 41), QSize(30, 21)})
        for (const std::uint8_t pixelFormat : {0, 6, 10, 7, 3})
            count = image.addPicture(Pixels{Pattern(size.width(), size.height()), pixelFormat}) + 1;
    boot(image);
    constexpr int columns = 42; // the last one beyond the full turn
    Sheet sheet({44, 44}, columns, count);
    for (std::uint16_t index = 0; index < count; ++index)
        for (int i = 0; i < columns; ++i) {
            WorkSurface.fill(QColor(10, 200, 90));
            BlitSector(TableImageRow(index), 9 * i + index % 2);
            sheet.add(WorkSurface);
        }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/sectors.png", 40));
}

/// Pictures in one colour each, in the order of digits, point and minus, of all widths.
std::uint16_t addDigits(ImageBuilder& image) {
    std::uint16_t last = 0;
    for (int code = 0; code < 12; ++code)
        last = image.addPicture(Filled(code % 3 + 1, 4, qRgb(20 * code + 5, 250, 250)));
    return static_cast<std::uint16_t>(last - 11);
}

TEST_F(PanelTest, ARingGaugeMapsItsValueAndReadsItOut) {
    const struct {
        int value, lowest, highest, start, end, angle;
        std::uint8_t integerDigits, decimals; // of the readout on the golden sheet
    } cases[] = {{50, 0, 100, 0, 360, 180, 3, 0},       {33, 0, 100, 45, 315, 134, 3, 1},
                 {33, 0, 100, 300, 20, 208, 3, 2}, // 207.6: cut towards zero
                 {0, 0, 100, 30, 300, 30, 2, 0},        {0, -10, 10, 90, 270, 180, 2, 1},
                 {0xFFFF, -10, 10, 90, 270, 270, 2, 0}, // beyond the end, but -1
                 {1234, 0, 2000, 0, 90, 55, 3, 0},      // without its first digit
                 {0xFB2E, 0, 2000, 0, 200, 200, 3, 1},  {5, 7, 7, 10, 20, 10, 0, 2}};
    ImageBuilder image(Small);
    const std::uint16_t digits = addDigits(image);
    QImage hollow = Noise(30, 30);
    for (int i = 0; i < 5 * 30; ++i) hollow.setPixel(i % 30, 12 + i / 30, 0);
    const std::uint16_t ring = image.addPicture(Pixels{hollow, format::aRGB8888});
    for (const auto& c : cases) {
        RingGauge gauge{.ValueAddress = Value, .X = 20, .Y = 10, .Foreground = ring};
        gauge.Lowest = static_cast<std::int16_t>(c.lowest);
        gauge.Highest = static_cast<std::int16_t>(c.highest);
        gauge.StartAngle = static_cast<std::uint16_t>(c.start);
        gauge.EndAngle = static_cast<std::uint16_t>(c.end);
        gauge.ReadoutX = gauge.ReadoutY = 22;
        gauge.IntegerDigits = c.integerDigits;
        gauge.Decimals = c.decimals;
        gauge.Align = Alignment::Left;
        gauge.FirstDigit = digits;
        gauge.Readout = imagekit::RingReadout::Pictures;
        image.addPage(PlainPage(Small, Qt::darkGray)).add(gauge);
    }
    boot(image);
    Sheet sheet({30, 5}, 1, std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        StoreWord(Value, 0x4000);
        ShowPage(static_cast<std::uint16_t>(i));
        StoreWord(Value, static_cast<std::uint16_t>(cases[i].value));
        run(300);
        sheet.add(outputs.frame.copy(20, 22, 30, 5));
        CopySurfaceRect(PageBackground, {20, 10, 30, 30}, WorkSurface, {0, 0});
        BlitSector(TableImageRow(ring), cases[i].angle);
        EXPECT_EQ(outputs.frame.copy(20, 10, 30, 10), WorkSurface.copy(0, 0, 30, 10)) << i;
        EXPECT_EQ(outputs.frame.copy(20, 27, 30, 13), WorkSurface.copy(0, 17, 30, 13)) << i;
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/ring-readouts.png"));
}

TEST_F(PanelTest, ARingLandsInTheSizeOfItsForeground) {
    const PanelConfig config{.Width = 64, .Height = 48};
    ImageBuilder image(config);
    const std::uint16_t background = image.addPicture(Filled(30, 40, Qt::red, format::ZipImage));
    const std::uint16_t ring = image.addPicture(Pixels{Noise(30, 20), format::PngAlpha});
    image.addPage(PlainPage(config, Qt::white))
        .add(RingGauge{.ValueAddress = Value, .X = 4, .Y = 4, .Foreground = ring, .Background = background});
    boot(image);
    cycles(1);
    EXPECT_EQ(pixel(20, 22), qRgb(255, 0, 0));
    EXPECT_EQ(pixel(20, 24), qRgb(255, 255, 255)) << "whatever height a compressed background has";
}

NeedleMeter meterOf(Needle kind) {
    NeedleMeter meter{.ValueAddress = Value, .X = 8, .Y = 4, .Width = 40, .Height = 40};
    meter.CentreX = 28;
    meter.CentreY = 24;
    meter.Highest = 270;
    meter.Kind = kind;
    meter.NeedleWidth = 7;
    meter.Length = 17;
    meter.Tail = 6;
    meter.ColourA = 0xFF0000;
    meter.ColourB = 0x0000FF;
    return meter;
}

TEST_F(PanelTest, NeedlesPointToTheirAngle) {
    ImageBuilder image(Small);
    const std::uint16_t dial = image.addPicture(Pixels{Pattern(40, 40), format::RGB565Key});
    const Needle kinds[] = {Needle::Triangles, Needle::SmoothTriangles, Needle::Stroke};
    for (const Needle kind : kinds) {
        NeedleMeter meter = meterOf(kind);
        meter.Dial = dial;
        image.addPage(PlainPage(Small, Qt::darkGray)).add(meter);
    }
    boot(image);
    Sheet sheet({44, 44}, 19, 3);
    for (std::uint16_t page = 0; page < std::size(kinds); ++page)
        for (std::uint16_t angle = 0; angle <= 270; angle += 15) {
            StoreWord(Value, angle);
            sheet.add(frameOf(page).copy(6, 2, 44, 44));
        }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/needles.png", 40));
}

TEST_F(PanelTest, ANeedleWalksAndKeepsItsVariableWithinTheLimits) {
    ImageBuilder image(Small);
    NeedleMeter meter = meterOf(Needle::Stroke);
    meter.Smooth = true;
    meter.Step = 10;
    meter.Lowest = 5;
    meter.DigitsAddress = Number;
    meter.DigitsType = DataType::S16;
    meter.DigitsX = 50;
    meter.DigitsY = 40;
    meter.X = 24; // the number stands in the rectangle
    meter.Decimals = 1;
    meter.Align = Alignment::Left;
    meter.FirstDigit = addDigits(image);
    std::vector meters{Encode(meter)};
    meter.X = meter.DigitsY = meter.Step = 0;
    meter.Kind = Needle::Image; // of which a step of 0 names none
    meters.resize(5, Encode(meter));
    image.addPage(PlainPage(Small, Qt::darkGray)).setRawStream(Stream::Display, RawStream(meters));
    image.setWord(Number, 0xFFF4);
    boot(image);
    EXPECT_EQ(NeedleMeterTable.size(), 4u) << "a fifth meter is left out";
    EXPECT_EQ(ReadWord(Value), 5);
    StoreWord(Value, 40);
    std::vector<int> shown;
    for (int i = 0; i < 5; ++i) {
        ticks(6);
        cycles(1);
        shown.push_back(NeedleMeterTable.at(0)->ShownValue);
        EXPECT_EQ(WordDiffers(Value), shown.back() != 40) << "a value is drawn when the needle is there";
    }
    EXPECT_EQ(shown, (std::vector{15, 25, 35, 40, 40}));
    EXPECT_TRUE(EqualsGolden(outputs.frame.copy(48, 38, 14, 8), "panel/golden/needle-readout.png"));
    ticks(5);
    StoreWord(Value, 900);
    cycles(1);
    EXPECT_EQ(ReadWord(Value), 900) << "five ticks are not enough";
    ticks(1);
    cycles(1);
    EXPECT_EQ(ReadWord(Value), 270);
    OpenEntryRect = EntryRect{0, 0, 30, 30};
    run(200);
    EXPECT_EQ(NeedleMeterTable.at(0)->ShownValue, 50);
    OpenEntryRect.reset();
}

TEST_F(PanelTest, NeedlePicturesStandAroundTheHubAndGoWithoutATrace) {
    ImageBuilder image(Small);
    const auto needle = [&image](Qt::GlobalColor colour, QPoint offset) {
        return image.addPicture(NeedlePicture(Filled(5, 3, colour), offset, Small));
    };
    NeedleMeter meter = meterOf(Needle::Image);
    meter.FirstDigit = addDigits(image);
    meter.FirstNeedle = needle(Qt::red, {1, 2});
    needle(Qt::yellow, {14, 9}); // the last picture of all
    meter.Step = 30;
    meter.Tail = 10;
    meter.Align = Alignment::Right;
    meter.DigitsAddress = Number;
    meter.DigitsX = 47;
    meter.DigitsY = 38;
    for (const Needle kind : {Needle::Image, Needle::ImageOnFrame}) {
        meter.Kind = kind;
        image.addPage(PlainPage(Small, Qt::darkGray)).add(meter);
    }
    boot(image);
    Sheet sheet({64, 48}, 3, 2);
    for (const std::uint16_t page : {0, 1}) {
        StoreWord(Value, 29);
        StoreWord(Number, 205);
        sheet.add(frameOf(page));
        StoreWord(Value, 30);
        StoreWord(Number, 3);
        run(200);
        sheet.add(outputs.frame);
        StoreWord(Value, 95);
        run(200);
        sheet.add(outputs.frame);
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/needle-pictures.png"));
}

} // namespace
} // namespace panel
