#include "store/system_words.h"

#include "graphics/image_row.h"
#include "panel_test.h"
#include "store/backlight.h"
#include "store/curve_samples.h"
#include "store/host_command.h"
#include "store/language.h"
#include "widgets/touch/encoder.h"

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::PanelConfig;

TEST_F(PanelTest, BrightnessLevelsDimTheFrame) {
    boot(ColouredPages({Qt::red}));
    for (const auto& [level, dimmed] : {std::pair{0, 255}, {1, 251}, {62, 7}, {63, 0}}) {
        apply(word::Brightness, static_cast<std::uint16_t>(level));
        EXPECT_EQ(DimValue, dimmed);
    }
    IdleTicks = 77;
    ScreenBright = 0;
    apply(word::Brightness, 0x0140);
    EXPECT_EQ(ReadLowByte(word::Brightness), 63) << "a level that does not exist is written back";
    EXPECT_EQ(ScreenBright, 1);
    EXPECT_EQ(IdleTicks, 77u) << "waking by a word does not restart the count-down";
}

TEST_F(PanelTest, AChangeOfLanguageLoadsItsPresetsAndShowsThePageAgain) {
    ImageBuilder image = ColouredPages({Qt::red, Qt::green}, {.Width = 64, .Height = 48, .LangueNum = 3});
    image.addLanguagePreset(1, 0x0100, Payload{0xAB, 0xCD, 0xEF});
    image.addLanguagePreset(1, 0x6FFF, Payload{1, 2, 3, 4});
    boot(image);
    FrameSurface.fill(Qt::white);
    for (const std::uint16_t language : {0, 3, 255}) {
        apply(word::Language, language);
        EXPECT_EQ(ReadLowByte(word::Language), 0);
    }
    cycles(1);
    EXPECT_EQ(pixel(0, 0), qRgb(255, 255, 255)) << "no page is shown for one that does not exist";
    StoreLowByte(word::Language, 1);
    ApplySystemWordFromMainThread(word::Language);
    EXPECT_EQ(Language, 0) << "the engine's thread draws";
    cycles(1);
    EXPECT_EQ(Language, 1);
    EXPECT_EQ(ReadWord(0x0100), 0xABCD);
    EXPECT_EQ(ReadByte(0x0202), 0xEF);
    EXPECT_TRUE(WordDiffers(0x0100)) << "widgets have yet to show it";
    EXPECT_EQ(pixel(0, 0), qRgb(255, 0, 0));

    for (const auto& [address, value] : {std::pair{word::Language, 2}, {word::Page, 1}}) {
        StoreWord(address, static_cast<std::uint16_t>(value));
        ApplySystemWordFromMainThread(address);
    }
    cycles(1);
    EXPECT_EQ(Language, 2);
    EXPECT_EQ(CurrentPage, 1) << "a change in the same cycle as a page keeps the page";
}

class BacklightTest : public PanelTest {
protected:
    void SetUp() override {
        boot(ColouredPages({Qt::red},
                           {.Width = 64, .Height = 48, .AutoBL = true, .BLON = 60, .BLSP = 5, .KPTM = 4}));
    }

    int dimAfter(int milliseconds) {
        run(milliseconds);
        return DimValue;
    }

    static constexpr int Bright = 255 - 4 * 60;
    static constexpr int Dimmed = 255 - 4 * 5;
};

TEST_F(BacklightTest, DimsAfterTheIdleTimeInHalfSecondsButNeverDuringAPress) {
    EXPECT_EQ(dimAfter(1980), Bright);
    EXPECT_EQ(dimAfter(20), Dimmed);
    for (int press = 0; press < 2; ++press) { // one that wakes, and one that lasts
        PressPointer({5, 5});
        EXPECT_EQ(dimAfter(5000), Bright);
        ReleasePointer();
    }
    EXPECT_EQ(dimAfter(1980), Bright);
    EXPECT_EQ(dimAfter(40), Dimmed);
}

TEST_F(BacklightTest, ThePressThatWakesReachesNoWidget) {
    run(2000);
    PressPointer({5, 5});
    cycles(1);
    EXPECT_EQ(DimValue, Bright);
    EXPECT_EQ(TouchPressed, 0);
    MovePointer({6, 6});
    cycles(1);
    EXPECT_EQ(TouchPressed, 0) << "for as long as it lasts";
    ReleasePointer();
    cycles(1);
    PressPointer({7, 7});
    EXPECT_EQ(TouchPressed, 1) << "the next press counts";
}

TEST_F(BacklightTest, AKeyOnADimmedPanelOnlyWakesIt) {
    run(2000);
    PressKey(EncoderKey::Key1);
    EXPECT_EQ(DimValue, Bright);
    EXPECT_EQ(EncoderEvent, NoEncoderEvent);
    PressKey(EncoderKey::Key1);
    EXPECT_EQ(EncoderEvent, 2);
    run(100);
    PressKey(std::nullopt);
    EXPECT_EQ(EncoderEvent, 2) << "another key changes nothing but the idle time";
    EXPECT_EQ(IdleTicks, 0u);
}

TEST_F(BacklightTest, SwitchingAutoDimmingOffStopsTheCount) {
    apply(word::AutoDimming, 0);
    EXPECT_EQ(dimAfter(5000), Bright);
    apply(word::AutoDimming, 2);
    EXPECT_EQ(ScreenBright, 0) << "a value that means nothing does nothing";
    apply(word::AutoDimming, 1);
    EXPECT_EQ(dimAfter(2000), Dimmed);
}

class HostCommandTest : public PanelTest {
protected:
    void SetUp() override {
        boot(ColouredPages({Qt::red, Qt::green, Qt::blue}, {.Width = 64, .Height = 48, .NoCRC = true}));
    }

    /// A write command with a length byte that fits.
    static Payload writeFrame(std::uint16_t address, std::initializer_list<std::uint16_t> words) {
        Payload frame{static_cast<std::uint8_t>(3 + 2 * words.size()), 0x10,
                      static_cast<std::uint8_t>(address >> 8), static_cast<std::uint8_t>(address)};
        for (const std::uint16_t value : words)
            for (const int shift : {8, 0}) frame.push_back(static_cast<std::uint8_t>(value >> shift));
        return frame;
    }
};

TEST_F(HostCommandTest, AppliesSystemWordsInOrder) {
    HostCommand(writeFrame(word::Page, {2, 20}));
    EXPECT_EQ(CurrentPage, 2);
    EXPECT_EQ(DimValue, 255 - 80);
    HostCommand(writeFrame(0x6FFF, {0, 1}));
    EXPECT_EQ(ReadWord(word::Page), 1);
    EXPECT_EQ(CurrentPage, 2) << "a run that begins in the user words applies nothing";

    FrameSurface.fill(Qt::white);
    HostCommand(writeFrame(word::Redraw, {0x5A}));
    cycles(1);
    EXPECT_EQ(pixel(0, 0), qRgb(0, 255, 0)) << "the page of the word";
    EXPECT_EQ(ReadWord(word::Redraw), 0);
}

TEST_F(HostCommandTest, ClampsTheTimeAndSetsTheClock) {
    HostCommand(writeFrame(word::Year, {200, 99, 40, 30, 70, 80}));
    HostCommand(Payload{6, 0x03, 0x70, 0x02, 0, 6});
    const std::uint16_t expected[] = {99, 12, 31, 23, 59, 59};
    for (std::uint16_t i = 0; i < 6; ++i)
        EXPECT_EQ(ReadWord(static_cast<std::uint16_t>(word::Year + i)), expected[i]);
}

TEST_F(HostCommandTest, BrokenFramesChangeNothingMore) {
    StoreWord(0x0100, 0xAAAA);
    StoreWord(0x0101, 0xBBBB);
    const Payload frames[] = {{},
                              {200, 0x10, 0x01},
                              {200, 0x10, 0x01, 0x00, 0x12},     // half a word
                              {3, 0x10, 0x01, 0x00, 0x12, 0x34}, // claims no words
                              {5, 0x77, 0x01, 0x00, 0x12, 0x34},
                              {5, 0x10, 0xFF, 0xFF, 0x12, 0x34}};
    for (const Payload& frame : frames) HostCommand(frame);
    EXPECT_EQ(ReadWord(0x0100), 0xAAAA);
    HostCommand(Payload{255, 0x10, 0x01, 0x00, 0x12, 0x34}); // claims more than it holds
    EXPECT_EQ(ReadWord(0x0100), 0x1234);
    EXPECT_EQ(ReadWord(0x0101), 0xBBBB);
}

TEST_F(HostCommandTest, DealsCurveSamplesOutInTurnAndKeepsChannelsInStep) {
    HostCommand(writeFrame(0xC000 | 1 << 0 | 1 << 2 | 1 << 11, {10, 20, 30, 11})); // one sample over
    EXPECT_EQ(CurveHead, (std::array<std::uint16_t, 12>{2, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 2}));
    EXPECT_EQ(CurveSamples[0][1], 11);
    EXPECT_EQ(CurveSamples[2][1], 20) << "repeats its last sample";
    EXPECT_EQ(CurveSamples[11][1], 30);

    for (int i = 0; i < 1022; ++i) HostCommand(writeFrame(0xC001, {static_cast<std::uint16_t>(i)}));
    EXPECT_EQ(CurveHead[0], 0) << "the ring is full";
    HostCommand(writeFrame(0xC003, {77})); // channel 1 has no sample yet
    EXPECT_EQ(CurveSamples[0][0], 77);
    EXPECT_EQ(CurveSamples[1][0], CurveSamples[1][1023]);

    CurveDirty.fill(0);
    HostCommand(writeFrame(0xE001, {9}));
    EXPECT_EQ(CurveHead[0], 0);
    EXPECT_EQ(CurveSamples[0], (std::array<std::uint16_t, CurveRingSize>{}));
    EXPECT_EQ(CurveDirty[0], 1);
    EXPECT_EQ(CurveDirty[2], 0);
    EXPECT_EQ(CurveSamples[2][0], 20);
}

} // namespace
} // namespace panel
