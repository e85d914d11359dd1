// Fonts and strings, read back as the panel reads them.
#include "imagekit/font.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"
#include "imagekit/image_reader.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace imagekit {
namespace {

FontShape wide(std::uint16_t first, std::uint16_t last) {
    return {
        .Kind = FontKind::Wide, .Width = 3, .Height = 2, .Depth = 2, .FirstCode = first, .LastCode = last};
}
FontShape sparse(std::vector<std::uint16_t> codes) {
    return {.Kind = FontKind::Sparse, .Width = 9, .Height = 4, .Codes = std::move(codes)};
}

TEST(Fonts, WhatTheFormatCannotHoldIsRefused) {
    const std::vector<FontShape> impossible = {
        {.Width = 0}, {.Height = 0},      {.Depth = 3},
        {.Depth = 8}, wide(0x200, 0x1FF), sparse({5, 6, 5}),
        sparse({0}),  sparse({10}),       sparse(std::vector<std::uint16_t>(0x10000, 5))};
    for (const FontShape& shape : impossible) EXPECT_THROW(SyntheticFont(shape), ImageError);
    EXPECT_THROW(EncodeFont({}, [](std::uint16_t) { return Glyph{1, Bytes(5)}; }), ImageError);
}

TEST(Fonts, TextsAreInTheEncodingOfTheirFont) {
    const QString text = QStringLiteral("A\u4e2d");
    EXPECT_EQ(EncodeText(text, FontKind::Gb2312), (Bytes{'A', 0xD6, 0xD0}));
    EXPECT_EQ(EncodeText(text, FontKind::Gbk), (Bytes{'A', 0xD6, 0xD0}));
    EXPECT_EQ(EncodeText(text, FontKind::Big5), (Bytes{'A', 0xA4, 0xA4}));
    for (const FontKind kind : {FontKind::Wide, FontKind::Proportional, FontKind::Sparse})
        EXPECT_EQ(EncodeText(text, kind), (Bytes{0, 'A', 0x4E, 0x2D}));
    EXPECT_THROW(EncodeText(text, FontKind::Ascii), ImageError);
    EXPECT_THROW(EncodeText(QStringLiteral("\u9555"), FontKind::Gb2312), ImageError) << "a character of GBK";
    EXPECT_THROW(EncodeText(QStringLiteral("\u20ac\u0e01"), FontKind::Big5), ImageError);
}

TEST(Strings, StandInTheTableOfTheirLanguage) {
    ImageBuilder image({.ColourMode = 1, .LangueNum = 3});
    image.addPage();
    const std::uint8_t ascii = image.addFont(SyntheticFont({}));
    const std::uint8_t chinese =
        image.addFont(SyntheticFont({.Kind = FontKind::Gb2312, .Width = 2, .Height = 2}));
    EXPECT_EQ(image.addString({.Text = "one", .Font = ascii, .Colour = QColor(1, 2, 3)}), 1);
    EXPECT_EQ(image.addString({.Text = "two", .Font = ascii}), 2);
    image.setString(1, 1, LanguageText{.Text = QStringLiteral("\u4e2d"), .Font = chinese});
    image.setString(2, 2, std::nullopt);
    image.setText(0x10, QStringLiteral("\u4e2d"), chinese);
    const ImageReader built(image.build());

    const auto stringAt = [&](std::uint32_t language, std::uint32_t index) {
        return built.u32(built.section(24) - 4 + 4 * built.section(25) * language + 4 * index);
    };
    ASSERT_EQ(built.section(25), 2u);
    const std::uint32_t one = stringAt(0, 1), middle = stringAt(1, 1);
    EXPECT_EQ(built.bytes(one, 9), (Bytes{3, 2, 1, ascii, 3, 0, 'o', 'n', 'e'}));
    EXPECT_EQ(built.bytes(middle, 8), (Bytes{0, 0, 0, chinese, 2, 0, 0xD6, 0xD0}));
    EXPECT_EQ(stringAt(2, 1), one) << "a language without its own text shares the common one";
    EXPECT_EQ(stringAt(2, 2), 0xFFFFFFFF);
    EXPECT_EQ(built.bytes(built.section(0) + 0x20, 2), (Bytes{0xD6, 0xD0}));
    EXPECT_EQ(built.section(5), 2u);
    EXPECT_EQ(built.bytes(built.u32(built.section(4) + 8), 4), (Bytes{'G', 'B', 2, 2}));

    EXPECT_THROW(image.addString({.Text = "x", .Font = 2}), ImageError);
    EXPECT_THROW(image.addString({.Text = QString(1025, 'x'), .Font = ascii}), ImageError);
    EXPECT_THROW(image.setString(3, 0, std::nullopt), ImageError);
    EXPECT_THROW(image.setString(1, 3, std::nullopt), ImageError);
}

TEST(Fonts, AnInstalledFaceIsDrawnIntoItsCells) {
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments);
    if (QFontDatabase().families().isEmpty()) GTEST_SKIP() << "no font is installed";
    const FontShape shape{.Width = 12, .Height = 20, .Depth = 4};
    const Bytes all = RasterFont(shape, {}).Data;
    const auto glyphOf = [](const Bytes& font, char c) {
        const auto from = font.begin() + 0x68 + (c - 0x20) * 6 * 20;
        return Bytes(from, from + 6 * 20);
    };
    EXPECT_EQ(glyphOf(all, ' '), Bytes(120));
    for (const char c : {'A', 'g', '~'}) EXPECT_NE(glyphOf(all, c), Bytes(120)) << c;
    const Bytes some = RasterFont(shape, {.Characters = "A"}).Data;
    EXPECT_EQ(glyphOf(some, 'A'), glyphOf(all, 'A'));
    EXPECT_EQ(glyphOf(some, 'g'), Bytes(120));

    const Bytes list = SparseRasterFont(shape, {}, "ABBA\n").Data;
    EXPECT_EQ(Bytes(list.begin(), list.begin() + 13),
              (Bytes{'S', 'S', 12, 20, 2, 0, 0, 0, 2, 'A', 0, 'B', 0}));
    EXPECT_EQ(Bytes(list.begin() + 14, list.begin() + 134), glyphOf(all, 'A'));
}

} // namespace
} // namespace imagekit
