#include "store/variable_store.h"
#include "store/variable_text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using namespace panel;

/// Writes a text if it fits, and tells whether.
bool write(std::uint16_t address, const char* text, TextEncoding encoding) {
    const EncodedText encoded = EncodeText(QString::fromUtf8(text), encoding);
    WriteVariableText(address, encoded);
    return VariableTextFits(address, encoded);
}

struct TextCase {
    const char* name;
    TextEncoding encoding;
    const char* text; // UTF-8
    const char* bytes;
    int replaced = 0;
};
std::ostream& operator<<(std::ostream& out, const TextCase& row) { return out << row.name; }

class VariableTexts : public ::testing::TestWithParam<TextCase> {};

TEST_P(VariableTexts, AreBytesWithAnEndMark) {
    const EncodedText encoded = EncodeText(QString::fromUtf8(GetParam().text), GetParam().encoding);
    EXPECT_EQ(encoded.bytes.toHex(' '), GetParam().bytes);
    EXPECT_EQ(encoded.replaced, GetParam().replaced);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, VariableTexts,
    ::testing::Values(TextCase{"Gb2312", TextEncoding::GB2312, "中a", "d6 d0 61 00"},
                      TextCase{"Gb2312LacksRareHanzi", TextEncoding::GB2312, "a镕中", "61 3f d6 d0 00", 1},
                      TextCase{"Gb2312LacksTheEuro", TextEncoding::GB2312, "€1", "3f 31 00", 1},
                      TextCase{"Gbk", TextEncoding::GBK, "镕€", "e9 46 80 00"},
                      TextCase{"GbkLacksThai", TextEncoding::GBK, "ก1", "3f 31 00", 1},
                      TextCase{"Big5", TextEncoding::Big5, "中1", "a4 a4 31 00"},
                      TextCase{"Big5LacksSimplified", TextEncoding::Big5, "门", "3f 00", 1},
                      TextCase{"Unicode", TextEncoding::Unicode, "中1", "4e 2d 00 31 00 00"},
                      TextCase{"UnicodePair", TextEncoding::Unicode, "😀", "d8 3d de 00 00 00"},
                      TextCase{"Utf8", TextEncoding::Utf8, "中😀", "e4 b8 ad f0 9f 98 80 00"},
                      TextCase{"Nothing", TextEncoding::Utf8, "", "00"},
                      TextCase{"NothingInUnicode", TextEncoding::Unicode, "", "00 00"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(VariableText, ReadsBackWhatWasWritten) {
    QString hanzi;
    for (ushort unit = 0x4E00; unit < 0x4F00; ++unit) hanzi += QChar(unit);
    const QByteArray utf8 = hanzi.toUtf8();
    for (const auto encoding : {TextEncoding::GBK, TextEncoding::Unicode, TextEncoding::Utf8}) {
        ASSERT_TRUE(write(0x1234, utf8.constData(), encoding));
        EXPECT_EQ(ReadVariableText(0x1234, encoding), hanzi) << static_cast<int>(encoding);
    }
    for (const auto encoding : {TextEncoding::GB2312, TextEncoding::Big5}) {
        ASSERT_TRUE(write(0x1234, "中文 text", encoding));
        EXPECT_EQ(ReadVariableText(0x1234, encoding), "中文 text") << static_cast<int>(encoding);
    }
}

TEST(VariableText, IsWrittenWholeAndWithinReachOrNotAtAll) {
    EXPECT_TRUE(write(0x5FFE, "abc", TextEncoding::GBK));
    EXPECT_FALSE(write(0x5FFE, "wxyz", TextEncoding::GBK));
    EXPECT_EQ(ReadVariableText(0x5FFE, TextEncoding::GBK), "abc") << "nothing is written in part";
    EXPECT_TRUE(write(0x5FFE, "a", TextEncoding::Unicode));
    EXPECT_FALSE(write(0x5FFF, "a", TextEncoding::Unicode));
    EXPECT_FALSE(write(0x5FFE, "", TextEncoding::GBK));
    EXPECT_FALSE(write(0x5FFE, "", TextEncoding::Unicode));
    EXPECT_EQ(ReadWord(0x5FFE), 0x0061);
    EXPECT_FALSE(write(0x7000, "a", TextEncoding::Utf8));
    EXPECT_FALSE(write(0xFFFF, "a", TextEncoding::Utf8));
}

TEST(VariableText, WithoutAnEndMarkEndsAfterAWhileOrWithTheStore) {
    for (std::uint16_t address = 0; address < StoreWordCount; ++address) StoreWord(address, 0x4141);
    EXPECT_EQ(ReadVariableText(0, TextEncoding::GBK).size(), 0x2000);
    EXPECT_EQ(ReadVariableText(0, TextEncoding::Unicode).size(), 0x1000);
    EXPECT_EQ(ReadVariableText(0x70FE, TextEncoding::Utf8), "AA");
    EXPECT_EQ(ReadVariableText(0x70FE, TextEncoding::Unicode).size(), 1);
    EXPECT_EQ(ReadVariableText(0x70FF, TextEncoding::GBK), "");
}

} // namespace
