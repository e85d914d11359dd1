#include "imagekit/image_reader.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace imagekit;

namespace {

QImage flat(int width, QRgb colour) {
    QImage image(width, 1, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

TEST(PictureTable, HasABlockForEachLanguageThatSharesWhatIsTheSame) {
    ImageBuilder builder({.LangueNum = 3});
    const auto common = builder.addPicture(Pixels{flat(2, 0xFFFF0000)});
    const auto flag = builder.addPicture(Pixels{flat(3, 0xFF00FF00)});
    builder.setPicture(flag, 2, Pixels{flat(5, 0xFF0000FF)});
    builder.addPicture(StoredPicture{});
    const ImageReader image(builder.build());
    ASSERT_EQ(image.section(13), 3u);
    const auto row = [&](std::uint32_t language, std::uint32_t index) {
        return image.section(12) + 12 * (3 * language + index);
    };
    EXPECT_EQ(image.bytes(row(0, common), 12), image.bytes(row(2, common), 12));
    EXPECT_EQ(image.bytes(row(0, flag), 12), image.bytes(row(1, flag), 12));
    EXPECT_EQ(image.u16(row(1, flag) + 4), 3u);
    EXPECT_EQ(image.u16(row(2, flag) + 4), 5u);
    EXPECT_EQ(image.u16(image.u32(row(2, flag))), 0x001Fu);
    EXPECT_EQ(image.u8(row(1, 2) + 11), 0xFFu) << "no picture";
    EXPECT_THROW(builder.setPicture(3, 0, StoredPicture{}), ImageError);
    EXPECT_THROW(builder.setPicture(flag, 3, StoredPicture{}), ImageError);
}

TEST(PageTable, NamesEachPagesBackground) {
    ImageBuilder builder;
    builder.addPage(Pixels{flat(4, 0xFFFFFFFF)});
    builder.addPage(StoredPicture{
        .Width = 7, .Height = 8, .Extra = 9, .Format = 0x55, .Data = {1}, .Address = 0xFFFFFFF0});
    builder.addPage();
    const ImageReader image(builder.build());
    const std::uint32_t table = image.section(8);
    EXPECT_EQ(image.u16(image.u32(table)), 0xFFFFu);
    EXPECT_EQ(image.bytes(table + 12, 12), (Bytes{0xF0, 0xFF, 0xFF, 0xFF, 7, 0, 8, 0, 9, 0, 0, 0x55}));
    EXPECT_EQ(image.u8(table + 24 + 11), 0xFFu);
    EXPECT_EQ(image.u24(table + 24 + 8), 0u);
}

TEST(InitialVariables, AreBigEndianWordsInStoreOrder) {
    ImageBuilder builder;
    builder.setWord(0, 0x1234);
    builder.setWords(0x6FFE, {0xABCD, 0x0001});
    builder.setBytes(0x10, Bytes{'A', 'B', 'C'});
    const ImageReader image(builder.build());
    const std::uint32_t at = image.section(0);
    EXPECT_EQ(image.section(1), 0xE000u);
    EXPECT_EQ(image.bytes(at, 3), (Bytes{0x12, 0x34, 0}));
    EXPECT_EQ(image.bytes(at + 0xDFFC, 4), (Bytes{0xAB, 0xCD, 0x00, 0x01}));
    EXPECT_EQ(image.bytes(at + 0x20, 4), (Bytes{'A', 'B', 'C', 0}));
    EXPECT_THROW(builder.setWord(0x7000, 1), ImageError);
    EXPECT_THROW(builder.setWords(0x6FFF, {1, 2}), ImageError);
}

TEST(LanguagePresets, CopyBytesToWords) {
    ImageBuilder builder({.LangueNum = 3});
    builder.addLanguagePreset(1, 0x0102, Bytes{'H', 'i'});
    builder.addLanguagePreset(1, 0x70FE, Bytes{0, 1});
    const ImageReader image(builder.build());
    const std::uint32_t table = image.section(20);
    EXPECT_EQ(image.section(21), 3u);
    EXPECT_EQ(image.u32(table + 4), 0u);
    EXPECT_EQ(image.bytes(image.u32(table + 8), image.u32(table + 12)),
              (Bytes{2, 1, 2, 0, 'H', 'i', 0xFE, 0x70, 2, 0, 0, 1}));
    EXPECT_EQ(image.u32(table + 20), 0u);
    EXPECT_THROW(builder.addLanguagePreset(3, 0, Bytes{0}), ImageError);
    EXPECT_THROW(builder.addLanguagePreset(0, 0x70FE, Bytes{0, 1, 2}), ImageError);
    EXPECT_EQ(ImageReader(ImageBuilder().build()).section(21), 0u);
}

TEST(Patches, AreTheLastWord) {
    ImageBuilder builder;
    builder.addPage();
    builder.patch(SectionWord::PageCount, 0xFFFFFFFF);
    builder.patch(0x80 + 7, {2});
    builder.patch(0x20000, {0xEE});
    const ImageReader image(builder.build());
    EXPECT_EQ(image.section(9), 0xFFFFFFFFu);
    EXPECT_EQ(image.u8(0x87), 2u);
    EXPECT_EQ(image.size(), 0x20001u);
    EXPECT_THROW(builder.patch(0x7FFFFFFF, {1}), ImageError);
}

TEST(Image, IsWrittenToAFileOrTheFailureIsReported) {
    QTemporaryDir directory;
    const ImageBuilder builder;
    builder.write(directory.filePath("a.bin"));
    QFile file(directory.filePath("a.bin"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), builder.build());
    EXPECT_THROW(builder.write(directory.filePath("missing/a.bin")), ImageError);
}

} // namespace
