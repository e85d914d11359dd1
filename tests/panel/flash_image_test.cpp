#include "host/flash_image.h"

#include "host/config_block.h"
#include "panel_test.h"
#include "store/backlight.h"

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::PanelConfig;

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
    EXPECT_EQ(ReadU32(0xFFFFFFFE), 0u);
    EXPECT_EQ(FlashBytes(3, 100).size(), 2u);
    EXPECT_TRUE(FlashBytes(5, 1).empty());
}

TEST_F(ImageHead, DimmingSettingsCountOnlyWithAutoDimming) {
    for (const bool automatic : {true, false}) {
        load({.AutoBL = automatic, .BLON = 44, .BLSP = 7, .KPTM = 0x0123});
        EXPECT_EQ(ReadLowByte(word::AutoDimming), automatic);
        EXPECT_EQ(ReadLowByte(word::DimmedBrightness), automatic ? 7 : 10);
        EXPECT_EQ(ReadWord(word::SleepTime), automatic ? 0x0123 : 60);
        EXPECT_EQ(ScreenBright, automatic);
        EXPECT_EQ(ReadLowByte(word::Brightness), 44);
    }
}

TEST_F(ImageHead, ValuesInForceFollowTheSettings) {
    load({.NoFB = true, .NoCRC = true, .BAUD = 10, .StartBytes = {1, 2}, .Volume = 17});
    EXPECT_EQ(ReadLowByte(word::Volume), 17) << "the word keeps what was stored";
    EXPECT_EQ(Volume, 16);
    EXPECT_FALSE(ReplyEnabled);
    EXPECT_FALSE(CrcEnabled);
    EXPECT_EQ(FrameHeader, (std::array<std::uint8_t, 2>{1, 2}));

    load({.KeyBeep = true, .BAUD = 11});
    EXPECT_EQ(SerialBaudRate, 3000000u) << "an unknown index leaves the rate as it was";
    load({.KeyBeep = false});
    EXPECT_TRUE(KeyBeepEnabled) << "never taken back";
}

TEST_F(ImageHead, InitialVariablesReplaceUserWordsOnlyWhenAskedFor) {
    ImageBuilder with({.InitVar = true});
    with.setWord(0x6FFF, 0x1234);
    StoreWord(0x0011, 0x7777);
    LoadFlash(with.build());
    LoadConfigBlock();
    EXPECT_EQ(ReadWord(0x6FFF), 0x1234);
    EXPECT_EQ(ReadWord(0x0011), 0);
    EXPECT_FALSE(WordDiffers(0x6FFF));

    StoreWord(0x0010, 0x5555);
    load({.InitVar = false});
    EXPECT_EQ(ReadWord(0x0010), 0x5555) << "a load without initial values keeps the words";
    EXPECT_FALSE(WordDiffers(0x0010)) << "and takes them as shown";
}

TEST_F(ImageHead, OnlyAWrongCheckMakesAnImageIllegal) {
    const auto illegal = [](int at, int change) { // a byte of the settings
        QByteArray image = ImageBuilder({.WithCheck = true}).build();
        at += static_cast<int>(ConfigBlockAddress);
        image[at] = static_cast<char>(image[at] ^ change);
        LoadFlash(image);
        return IllegalImage == 1;
    };
    EXPECT_FALSE(illegal(0, 0));
    EXPECT_TRUE(illegal(16, 1));
    EXPECT_FALSE(illegal(0xF0, 1)) << "words that are not complements are no check";
}

} // namespace
} // namespace panel
