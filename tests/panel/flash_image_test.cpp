#include "host/flash_image.h"

#include "host/config_block.h"
#include "panel_test.h"
#include "store/backlight.h"
#include "store/language.h"
#include "store/system_words.h"

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::PanelConfig;

constexpr std::uint32_t CheckWordB = ConfigBlockAddress + 0xF0;

class ImageHead : public PanelTest {
protected:
    void load(const PanelConfig& config) {
        LoadFlash(ImageBuilder(config).build());
        LoadConfigBlock();
    }
};

TEST_F(ImageHead, ReadsPastTheEndAreZero) {
    LoadFlash(QByteArray("\x11\x22\x33\x44\x55", 5));
    EXPECT_EQ(ReadU16(3), 0x5544);
    EXPECT_EQ(ReadU32(3), 0x00005544u);
    EXPECT_EQ(ReadU24(5), 0u);
    EXPECT_EQ(ReadU32(0xFFFFFFFE), 0u);
    EXPECT_EQ(FlashBytes(3, 100).size(), 2u);
    EXPECT_TRUE(FlashBytes(5, 1).empty());
}

TEST_F(ImageHead, QuarterTurnsExchangeTheSides) {
    for (const std::uint8_t turns : {0, 1, 2, 3, 4}) {
        load({.Width = 320, .Height = 200, .Rotate = turns});
        const bool turned = turns == 1 || turns == 3;
        EXPECT_EQ(DisplayWidth, turned ? 200 : 320) << int{turns};
        EXPECT_EQ(DisplayHeight, turned ? 320 : 200) << int{turns};
        EXPECT_EQ(Rotation, turns);
    }
}

TEST_F(ImageHead, DimmingSettingsCountOnlyWithAutoDimming) {
    PanelConfig config{.AutoBL = true, .BLON = 44, .BLSP = 7, .KPTM = 0x0123};
    load(config);
    EXPECT_EQ(ReadLowByte(word::AutoDimming), 1);
    EXPECT_EQ(ReadLowByte(word::DimmedBrightness), 7);
    EXPECT_EQ(ReadWord(word::SleepTime), 0x0123);
    EXPECT_EQ(ScreenBright, 1);

    config.AutoBL = false;
    load(config);
    EXPECT_EQ(ReadLowByte(word::AutoDimming), 0);
    EXPECT_EQ(ReadLowByte(word::DimmedBrightness), 10);
    EXPECT_EQ(ReadWord(word::SleepTime), 60);
    EXPECT_EQ(ScreenBright, 0);
    EXPECT_EQ(ReadLowByte(word::Brightness), 44);
}

TEST_F(ImageHead, ValuesInForceFollowTheSettings) {
    load({.NoFB = true,
          .NoCRC = true,
          .BAUD = 10,
          .StartBytes = {1, 2},
          .NandFlash = true,
          .Volume = 17,
          .LangueNum = 3});
    EXPECT_EQ(ReadLowByte(word::Volume), 17) << "the word keeps what was stored";
    EXPECT_EQ(Volume, 16);
    EXPECT_FALSE(ReplyEnabled);
    EXPECT_FALSE(CrcEnabled);
    EXPECT_EQ(SerialBaudRate, 3000000u);
    EXPECT_EQ(FrameHeader, (std::array<std::uint8_t, 2>{1, 2}));
    EXPECT_TRUE(NandFlash);
    EXPECT_EQ(LanguageCount, 3);

    load({.KeyBeep = true, .BAUD = 11});
    EXPECT_EQ(SerialBaudRate, 3000000u) << "an unknown index leaves the rate as it was";
    load({.KeyBeep = false});
    EXPECT_TRUE(KeyBeepEnabled) << "never taken back";
}

TEST_F(ImageHead, TextsEndAtZeroOrAtEightBytes) {
    load({.EditorVersion = "12345678", .UserVER = "ab"});
    EXPECT_EQ(ReadConfigBlock().EditorVersion, "12345678");
    EXPECT_EQ(ReadConfigBlock().UserVER, "ab");
}

TEST_F(ImageHead, InitialVariablesReplaceUserWordsOnlyWhenAskedFor) {
    ImageBuilder with({.InitVar = true});
    with.setWord(0x0010, 0xBEEF);
    with.setWord(0x6FFF, 0x1234);
    StoreWord(0x0011, 0x7777);
    LoadFlash(with.build());
    LoadConfigBlock();
    EXPECT_EQ(ReadWord(0x0010), 0xBEEF);
    EXPECT_EQ(ReadWord(0x6FFF), 0x1234);
    EXPECT_EQ(ReadWord(0x0011), 0);
    EXPECT_FALSE(WordDiffers(0x0010));

    StoreWord(0x0010, 0x5555);
    load({.InitVar = false});
    EXPECT_EQ(ReadWord(0x0010), 0x5555) << "a load without initial values keeps the words";
    EXPECT_FALSE(WordDiffers(0x0010)) << "and takes them as shown";
}

TEST_F(ImageHead, OnlyAWrongCheckMakesAnImageIllegal) {
    ImageBuilder image({.WithCheck = true});
    image.addPage();
    LoadFlash(image.build());
    EXPECT_EQ(IllegalImage, 0);

    QByteArray unchecked = image.build();
    unchecked[static_cast<int>(CheckWordB)] = static_cast<char>(unchecked[static_cast<int>(CheckWordB)] ^ 1);
    LoadFlash(unchecked);
    EXPECT_EQ(IllegalImage, 0) << "words that are not complements are no check";

    QByteArray changed = image.build();
    changed[static_cast<int>(ConfigBlockAddress) + 16] = 1; // a covered byte
    LoadFlash(changed);
    EXPECT_EQ(IllegalImage, 1);
}

} // namespace
} // namespace panel
