#include "imagekit/image_reader.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"

#include <gtest/gtest.h>

using namespace imagekit;

namespace {

constexpr std::uint32_t Block = 0x80;

struct Field {
    const char* name;
    std::uint32_t offset;
    int byteCount;
    std::uint32_t value;
};

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

/// Bit by bit, unlike the table of the engine: reflected CRC-32 from 0, with the salts in place of the check
/// words.
std::uint32_t checkValue(const ImageReader& image) {
    std::vector<std::uint8_t> block = image.bytes(Block, 0xF4);
    const std::uint8_t salts[] = {0xB3, 0xA7, 0x21, 0x4E, 0x9F, 0xD1, 0x05, 0x6C};
    std::copy(std::begin(salts), std::end(salts), block.begin() + 0xEC);
    std::uint32_t crc = 0;
    for (const std::uint8_t byte : block) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
    }
    return crc;
}

} // namespace

TEST(Settings, StandAtTheirOffsets) {
    const ImageReader image(ImageBuilder(distinctConfig()).build());
    const Field fields[] = {
        {"ICType", 6, 1, 9},
        {"ColourMode", 7, 1, 1},
        {"Rotate", 8, 1, 3},
        {"flags", 9, 1, 0b101},
        {"serial flags", 10, 1, 0b10110},
        {"BAUD", 11, 1, 10},
        {"StartBytes", 12, 2, 0x4321},
        {"FlhSize", 14, 1, 0x88},
        {"polarity", 15, 1, 0b11001},
        {"Width", 16, 2, 0x1211},
        {"Height", 18, 2, 0x1413},
        {"VBPD", 20, 2, 0x2221},
        {"VFPD", 22, 2, 0x2423},
        {"VSPW", 24, 2, 0x2625},
        {"HBPD", 26, 2, 0x3231},
        {"HFPD", 28, 2, 0x3433},
        {"HSPW", 30, 2, 0x3635},
        {"USER_KEY", 44, 4, 0xDEADBEEF},
        {"UserVER", 48, 4, 0x00312E32},
        {"its end", 52, 4, 0},
        {"StartPage", 56, 2, 0x4241},
        {"GeData", 58, 1, 0x51},
        {"BLON", 59, 1, 0x3E},
        {"BLSP", 60, 1, 0x52},
        {"KPTM", 61, 2, 0x6261},
        {"Volume", 63, 1, 17},
        {"DevAddr", 64, 1, 0x53},
        {"LangueNum", 65, 1, 4},
    };
    for (const Field& field : fields) {
        const std::uint32_t mask = field.byteCount == 4 ? ~0u : (1u << 8 * field.byteCount) - 1;
        EXPECT_EQ(image.u32(Block + field.offset) & mask, field.value) << field.name;
    }
    const auto version = image.bytes(Block + 36, 8);
    EXPECT_EQ(std::string(version.begin(), version.end()), "8 bytes!");
}

TEST(Settings, CarryTheirCheckUnlessToldNotTo) {
    PanelConfig config = distinctConfig();
    const ImageReader checked(ImageBuilder(config).build());
    EXPECT_EQ(checked.u32(Block + 0xF0), checkValue(checked));
    EXPECT_EQ(checked.u32(Block + 0xEC), ~checkValue(checked));

    config.WithCheck = false;
    const ImageReader unchecked(ImageBuilder(config).build());
    EXPECT_EQ(unchecked.u32(Block + 0xEC), 0u);
    EXPECT_EQ(unchecked.u32(Block + 0xF0), 0u);
}

TEST(Settings, RefuseTextsThatAreTooLong) {
    EXPECT_THROW(ImageBuilder({.EditorVersion = "nine byte"}).build(), ImageError);
    EXPECT_THROW(ImageBuilder({.UserVER = "nine byte"}).build(), ImageError);
}

TEST(Image, WithoutAnyContentIsStillLargeEnoughToBeDescribed) {
    const ImageReader image(ImageBuilder({.InitVar = false}).build());
    EXPECT_GT(image.size(), 0x400u);
    EXPECT_EQ(image.section(9), 0u) << "no page";
    EXPECT_EQ(image.section(13), 0u) << "no picture";
}
