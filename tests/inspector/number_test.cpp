#include "inspector/hex_text.h"
#include "store/backlight.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "store/variable_value.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace panel;
using namespace inspector;

const struct NumberType {
    int type;
    int bytes;
    int digits;    // in a command
    bool isSigned; // in a command
} Types[] = {{0, 1, 4, true},  {1, 2, 4, true},  {2, 4, 8, true}, {3, 1, 4, false},
             {4, 2, 4, false}, {5, 4, 8, false}, {6, 8, 16, true}};

void PrintTo(const NumberType& row, std::ostream* out) { *out << "type " << row.type; }

/// A case for each type of numbers.
class Numbers : public ::testing::TestWithParam<NumberType> {};
INSTANTIATE_TEST_SUITE_P(Types, Numbers, ::testing::ValuesIn(Types),
                         [](const auto& row) { return "Type" + std::to_string(row.param.type); });

std::uint64_t mask(int bytes) { return bytes == 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << 8 * bytes) - 1; }

TEST_P(Numbers, LieInTheStoreHighByteFirst) {
    const auto& [type, bytes, digits, isSigned] = GetParam();
    const int first = bytes == 1 ? 1 : 0;
    std::mt19937_64 random(1);
    for (int i = 0; i < 200; ++i) {
        const auto value = static_cast<std::int64_t>(random());
        WriteVar(0x100, QString::number(value), type, 0);
        for (int byte = 0; byte < bytes; ++byte)
            ASSERT_EQ(ReadByte(0x200 + static_cast<std::size_t>(first + byte)),
                      static_cast<std::uint8_t>(value >> 8 * (bytes - 1 - byte)));
        const auto shown = static_cast<qint64>(static_cast<std::uint64_t>(value) & mask(bytes));
        ASSERT_EQ(ReadVar(0x100, type, 0), QString::number(shown));
    }
    StoreWord(0x100, 0xFFFF);
    WriteVar(0x100, "7 apples", type, 0);
    EXPECT_EQ(ReadVar(0x100, type, 0), "0");
    EXPECT_EQ(ReadByte(0x200), 0);
}

TEST_P(Numbers, ReachToTheLastWordByHand) {
    const auto& [type, bytes, digits, isSigned] = GetParam();
    const std::uint32_t last = 0x6000 - static_cast<std::uint32_t>(std::max(bytes, 2) / 2);
    WriteVar(last, "5", type, 0);
    EXPECT_EQ(ReadWord(0x5FFF), 5);
    EXPECT_EQ(ReadVar(last, type, 0), "5");
    for (std::uint32_t a = 0x6000; a < StoreWordCount; ++a) StoreWord(static_cast<std::uint16_t>(a), 0x0909);
    const bool systemWords = bytes == 2;
    for (const std::uint32_t address :
         {last + 1, 0x6000U, 0x6FFFU, 0x7000U, 0x70FEU, 0x70FFU, 0x10000U + last, 0x80000000U, 0xFFFFFFFFU}) {
        const bool reached = systemWords && address >= 0x7000 && address <= 0x70FE;
        EXPECT_EQ(ReadVar(address, type, 0), reached ? "2313" : "0") << address;
        WriteVar(address, "3", type, 0);
        EXPECT_EQ(ReadVar(address, type, 0), reached ? "3" : "0") << address;
    }
    EXPECT_EQ(ReadWord(0x5FFF), 5) << "nothing is written in part";
    EXPECT_EQ(ReadWord(0x6000), 0x0909);
    EXPECT_EQ(ReadWord(0x7000), systemWords ? 3 : 0x0909);
}

TEST_P(Numbers, StandInCommandsWithAllTheirDigits) {
    const auto& [type, bytes, digits, isSigned] = GetParam();
    std::mt19937_64 random(2);
    for (int i = 0; i < 200; ++i) {
        const std::uint64_t bits = random() & mask(bytes);
        const int spare = 64 - 8 * bytes;
        const QString decimal =
            isSigned ? QString::number(static_cast<qint64>(bits << spare) >> spare) : QString::number(bits);
        const QString hex = QString::number(bits, 16).toUpper().rightJustified(digits, '0');
        const QString list = decimal + ",0," + decimal;
        const QString bytesText = ValueToHexBytes(list, type);
        ASSERT_EQ(QString(bytesText).remove(' '), hex + QString(digits, '0') + hex);
        ASSERT_EQ(bytesText.count(' '), digits / 2 * 3 - 1);
        ASSERT_EQ(HexToValueList(bytesText, type), list);
    }
}

TEST(Number, ThatATypeCannotHoldIsZeroInACommand) {
    EXPECT_EQ(ValueToHexBytes("-129,128,-128", 0), "00 00 00 00 00 80");
    EXPECT_EQ(ValueToHexBytes("-1,256", 3), "00 00 00 00");
    EXPECT_EQ(ValueToHexBytes("65535,x", 1), "00 00 00 00");
}

TEST(Number, GroupsOfDigitsCountFromTheRight) {
    EXPECT_EQ(HexToValueList("1 00 02", 1), "1,2");
    EXPECT_EQ(HexToValueList("5FFFFFFFF", 2), "5,-1");
    EXPECT_EQ(HexToValueList("12FF", 0), "-1");
    EXPECT_EQ(HexToValueList("12FF", 3), "4863");
    EXPECT_EQ(HexToValueList(" ", 4), "");
}

TEST(Number, OfOneWordReachesSystemWords) {
    WriteVar(word::Brightness, "64", value_type::Short, 0);
    EXPECT_EQ(ReadWord(word::Brightness), 63);
    EXPECT_EQ(DimValue, 0);
    WriteVar(word::Page, "3", value_type::Int, 0);
    EXPECT_EQ(PageRequestFromInspector, 0);
    WriteVar(word::Page, "3", value_type::UShort, 0);
    EXPECT_EQ(PageRequestFromInspector, 1);
    WriteVar(0x10, "-2", -1, 0);
    EXPECT_EQ(ReadVar(0x10, 22, 0), "65534") << "no type at all is a word";
    EXPECT_EQ(ReadWord(word::Page), 3);
}

TEST(Address, IsTheHexadecimalNumberBehindAnX) {
    const std::vector<std::pair<QString, std::uint32_t>> addresses{
        {"0x7000", 0x7000},  {"0X12aB", 0x12AB}, {"7000", 0},       {"", 0},
        {"Xx12", 0x12},      {"x 1g2-3", 0x123}, {"0x12/34", 0x12}, {"0x123456789", 0x12345678},
        {"0xFFFFFFFF", ~0U}, {"axbx1", 0xB1},    {"0x", 0},         {"0x\u0661", 0}};
    for (const auto& [text, address] : addresses)
        EXPECT_EQ(ParseHexAddress(text), address) << qPrintable(text);
}

} // namespace
