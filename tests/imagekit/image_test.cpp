#include "imagekit/image_reader.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"

#include <gtest/gtest.h>

using namespace imagekit;

namespace {

constexpr std::uint32_t Block = 0x80;

PanelConfig distinctConfig() {
    PanelConfig config;
    config.Width = 0x1211, config.Height = 0x1413, config.ColourMode = 1, config.ICType = 9,
    config.Rotate = 3;
    config.AutoBL = true, config.KeyBeep = false, config.InitVar = true;
    config.ModbusM = false, config.NoFB = true, config.NoCRC = true, config.EOCheck = 2, config.BAUD = 10;
    config.StartBytes = {0x21, 0x43}, config.FlhSize = 8, config.NandFlash = true;
    config.PCLK = true, config.HSYNC = false, config.VSYNC = false, config.DE = true, config.BGR = true;
    config.VBPD = 0x2221, config.VFPD = 0x2423, config.VSPW = 0x2625;
    config.HBPD = 0x3231, config.HFPD = 0x3433, config.HSPW = 0x3635;
    config.EditorVersion = "8 bytes!", config.USER_KEY = 0xDEADBEEF, config.UserVER = "2.1";
    config.StartPage = 0x4241, config.GeData = 0x51, config.BLON = 0x3E, config.BLSP = 0x52;
    config.KPTM = 0x6261, config.Volume = 17, config.DevAddr = 0x53, config.LangueNum = 4;
    return config;
}

TEST(Settings, StandAtTheirOffsets) {
    const ImageReader image(ImageBuilder(distinctConfig()).build());
    const Bytes fromChip{9,    1,    3,    0b101,   0b10110, 10, // ICType, ColourMode, Rotate, flags, BAUD
                         0x21, 0x43, 0x88, 0b11001,              // StartBytes, FlhSize, polarity
                         0x11, 0x12, 0x13, 0x14,                 // Width, Height
                         0x21, 0x22, 0x23, 0x24,    0x25,    0x26, 0x31, 0x32, 0x33, 0x34, 0x35, 0x36};
    const Bytes fromVersion{'8',  ' ',  'b',  'y', 't', 'e', 's', '!', 0xEF,
                            0xBE, 0xAD, 0xDE, '2', '.', '1', 0,   0};
    const Bytes fromStartPage{0x41, 0x42, 0x51, 0x3E, 0x52, 0x61, 0x62, 17, 0x53, 4};
    EXPECT_EQ(image.bytes(Block + 6, 26), fromChip);
    EXPECT_EQ(image.bytes(Block + 36, 17), fromVersion);
    EXPECT_EQ(image.bytes(Block + 56, 10), fromStartPage);
}

TEST(Settings, CarryTheirCheckUnlessToldNotTo) {
    PanelConfig config = distinctConfig();
    const ImageReader checked(ImageBuilder(config).build());
    // Bit by bit, unlike the table of the engine: reflected CRC-32 from 0, with salts for the check words.
    Bytes block = checked.bytes(Block, 0xF4);
    const Bytes salts{0xB3, 0xA7, 0x21, 0x4E, 0x9F, 0xD1, 0x05, 0x6C};
    std::copy(salts.begin(), salts.end(), block.begin() + 0xEC);
    std::uint32_t crc = 0;
    for (const std::uint8_t byte : block) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
    }
    EXPECT_EQ(checked.u32(Block + 0xF0), crc);
    EXPECT_EQ(checked.u32(Block + 0xEC), ~crc);

    config.WithCheck = false;
    const ImageReader unchecked(ImageBuilder(config).build());
    EXPECT_EQ(unchecked.bytes(Block + 0xEC, 8), Bytes(8));
}

TEST(Image, HasPicturesForEachLanguageThatShareWhatIsTheSame) {
    const auto flat = [](std::uint16_t width, QColor colour) { return Solid{width, 1, colour}; };
    ImageBuilder builder({.LangueNum = 3});
    const auto common = builder.addPicture(flat(2, Qt::red));
    const auto flag = builder.addPicture(flat(3, Qt::green));
    builder.setPicture(flag, 2, flat(5, Qt::blue));
    builder.addPicture(StoredPicture{});
    const ImageReader image(builder.build());
    ASSERT_EQ(image.section(13), 3u);
    const auto row = [&](std::uint32_t language, std::uint32_t index) {
        return image.bytes(image.section(12) + 12 * (3 * language + index), 12);
    };
    EXPECT_EQ(row(0, common), row(2, common));
    EXPECT_EQ(row(0, flag), row(1, flag));
    EXPECT_EQ(row(1, flag)[4], 3);
    EXPECT_EQ(row(2, flag)[4], 5);
    EXPECT_EQ(row(1, 2)[11], 0xFF) << "no picture";
    EXPECT_THROW(builder.setPicture(3, 0, StoredPicture{}), ImageError);
    EXPECT_THROW(builder.setPicture(flag, 3, StoredPicture{}), ImageError);
}

TEST(Image, RefusesWhatAPanelCannotHold) {
    ImageBuilder builder({.LangueNum = 3});
    EXPECT_THROW(builder.setWord(0x7000, 1), ImageError);
    EXPECT_THROW(builder.setWords(0x6FFF, {1, 2}), ImageError);
    EXPECT_THROW(builder.addLanguagePreset(3, 0, Bytes{0}), ImageError);
    EXPECT_THROW(builder.addLanguagePreset(0, 0x70FE, Bytes{0, 1, 2}), ImageError);
    EXPECT_THROW(builder.patch(0x7FFFFFFF, {1}), ImageError);
    EXPECT_THROW(builder.write("/no/such/directory/a.bin"), ImageError);
    EXPECT_THROW(ImageBuilder({.EditorVersion = "nine byte"}).build(), ImageError);
    EXPECT_THROW(ImageBuilder({.UserVER = "nine byte"}).build(), ImageError);
}

} // namespace
