#include "imagekit/image_reader.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"

#include <gtest/gtest.h>

using namespace imagekit;

namespace {

constexpr std::uint32_t Block = 0x80;

TEST(Settings, CarryTheirCheckUnlessToldNotTo) {
    const ImageReader checked(ImageBuilder({.EditorVersion = "8 bytes!"}).build());
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

    const ImageReader unchecked(ImageBuilder({.WithCheck = false}).build());
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
