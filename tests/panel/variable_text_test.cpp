#include "store/variable_store.h"
#include "store/variable_text.h"

#include <gtest/gtest.h>

namespace {

using namespace panel;

/// Writes a text if it fits, and tells whether.
bool write(std::uint16_t address, const char* text, TextEncoding encoding) {
    const EncodedText encoded = EncodeText(QString::fromUtf8(text), encoding);
    WriteVariableText(address, encoded);
    return VariableTextFits(address, encoded);
}

TEST(VariableText, IsBytesWithAnEndMark) {
    struct Case {
        TextEncoding encoding;
        const char *text, *bytes;
        int replaced;
    };
    const Case cases[] = {{TextEncoding::GB2312, "a镕中", "61 3f d6 d0 00", 1}, // lacks rare characters
                          {TextEncoding::GB2312, "€1", "3f 31 00", 1},
                          {TextEncoding::GBK, "镕€", "e9 46 80 00", 0},
                          {TextEncoding::GBK, "ก1", "3f 31 00", 1},
                          {TextEncoding::Big5, "中门1", "a4 a4 3f 31 00", 1}, // lacks simplified ones
                          {TextEncoding::Unicode, "中1", "4e 2d 00 31 00 00", 0},
                          {TextEncoding::Unicode, "😀", "d8 3d de 00 00 00", 0},
                          {TextEncoding::Unicode, "", "00 00", 0},
                          {TextEncoding::Utf8, "中😀", "e4 b8 ad f0 9f 98 80 00", 0}};
    for (const Case& row : cases) {
        const EncodedText encoded = EncodeText(QString::fromUtf8(row.text), row.encoding);
        EXPECT_EQ(encoded.bytes.toHex(' '), row.bytes) << row.text;
        EXPECT_EQ(encoded.replaced, row.replaced) << row.text;
    }
}

TEST(VariableText, IsWrittenWholeAndWithinReachOrNotAtAll) {
    EXPECT_TRUE(write(0x5FFE, "abc", TextEncoding::GBK));
    EXPECT_FALSE(write(0x5FFE, "wxyz", TextEncoding::GBK));
    EXPECT_EQ(ReadVariableText(0x5FFE, TextEncoding::GBK), "abc") << "nothing is written in part";
    EXPECT_TRUE(write(0x5FFE, "a", TextEncoding::Unicode));
    EXPECT_FALSE(write(0x5FFF, "a", TextEncoding::Unicode));
    EXPECT_FALSE(write(0x5FFE, "", TextEncoding::Unicode));
    EXPECT_EQ(ReadWord(0x5FFE), 0x0061);
    EXPECT_FALSE(write(0xFFFF, "a", TextEncoding::Utf8));
}

TEST(VariableText, WithoutAnEndMarkEndsAfterAWhileOrWithTheStore) {
    for (std::uint16_t address = 0; address < StoreWordCount; ++address) StoreWord(address, 0x4141);
    EXPECT_EQ(ReadVariableText(0, TextEncoding::GBK).size(), 0x2000);
    EXPECT_EQ(ReadVariableText(0, TextEncoding::Unicode).size(), 0x1000);
    EXPECT_EQ(ReadVariableText(0x70FE, TextEncoding::Utf8), "AA");
    EXPECT_EQ(ReadVariableText(0x70FF, TextEncoding::GBK), "");
}

} // namespace
