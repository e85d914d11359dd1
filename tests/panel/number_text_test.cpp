#include "widgets/display/number_text.h"

#include "store/variable_store.h"

#include <gtest/gtest.h>

#include <random>

namespace panel {
namespace {

constexpr std::uint16_t Address = 0x0100;

struct TypeCase {
    const char* name;
    std::uint8_t code;
    std::uint64_t magnitude;
    bool negative;
};
class DataTypes : public ::testing::TestWithParam<TypeCase> {};

TEST_P(DataTypes, ReadTheirOwnBytes) {
    constexpr std::uint8_t bytes[] = {0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 0x32, 0x10};
    StoreBytes(2 * std::size_t{Address}, bytes);
    EXPECT_EQ(ReadNumeric(Address, GetParam().code),
              (NumericValue{.magnitude = GetParam().magnitude, .negative = GetParam().negative}));
}

INSTANTIATE_TEST_SUITE_P(
    Codes, DataTypes,
    ::testing::Values(TypeCase{"Unsigned8", 0x00, 0xDC, false}, TypeCase{"Unsigned16", 0x01, 0xFEDC, false},
                      TypeCase{"Unsigned32", 0x02, 0xFEDCBA98, false},
                      TypeCase{"Plain64", 0x03, 0x0123456789ABCDF0, true},
                      TypeCase{"Signed8", 0x80, 0x24, true}, TypeCase{"Signed16", 0x81, 0x0124, true},
                      TypeCase{"Signed32", 0x82, 0x01234568, true},
                      TypeCase{"Signed64", 0x83, 0x0123456789ABCDF0, true},
                      TypeCase{"Unknown4", 0x04, 0, false}, TypeCase{"Unknown11", 0x11, 0, false},
                      TypeCase{"UnknownFF", 0xFF, 0, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(DataTypesEnds, AreReadWholeOrAsZero) {
    StoreWord(Address, 0x8000);
    EXPECT_EQ(ReadNumeric(Address, 0x81), (NumericValue{.magnitude = 0x8000, .negative = true}));
    for (std::uint16_t i = 1; i < 4; ++i) StoreWord(static_cast<std::uint16_t>(Address + i), 0);
    EXPECT_EQ(ReadNumeric(Address, 0x83), (NumericValue{.magnitude = 1ull << 63, .negative = true}));
    StoreWord(0x70FE, 0x1234);
    EXPECT_EQ(ReadNumeric(0x70FE, 0x02).magnitude, 0x12340000u) << "what the store has not reads as 0";
    EXPECT_EQ(ReadNumeric(0xFFFF, 0x83), NumericValue{});
}

struct TextCase {
    int integerDigits, decimalDigits;
    bool leadingZeros;
    std::int64_t value;
    const char* page;
    const char* group;
};
class NumberTexts : public ::testing::TestWithParam<TextCase> {};

TEST_P(NumberTexts, InBothForms) {
    const TextCase& c = GetParam();
    const NumericValue value{.magnitude = static_cast<std::uint64_t>(std::abs(c.value)),
                             .negative = c.value < 0};
    const NumberFormat format{static_cast<std::uint8_t>(c.integerDigits),
                              static_cast<std::uint8_t>(c.decimalDigits), c.leadingZeros};
    constexpr std::uint8_t unit[] = {'k', 'g'};
    EXPECT_EQ(PageNumberText(value, format, unit).view(), std::string(c.page) + "kg");
    EXPECT_EQ(GroupNumberText(value, format, unit).view(), std::string(c.group) + "kg");
    EXPECT_EQ(PictureNumberText(value, format).view(), format.digits() > 0 ? c.group : "0");
}

INSTANTIATE_TEST_SUITE_P(
    Formats, NumberTexts,
    ::testing::Values(TextCase{3, 0, false, 7, "7", "7"}, TextCase{3, 0, true, 7, "007", "007"},
                      TextCase{3, 0, false, 0, "0", "0"}, TextCase{3, 0, false, 12345, "345", "345"},
                      TextCase{3, 0, false, 12005, "5", "5"}, TextCase{3, 0, true, -7, "-007", "-007"},
                      TextCase{1, 0, false, -10, "-0", "-0"}, TextCase{3, 2, false, 5, "0.05", "0.05"},
                      TextCase{3, 2, true, 5, "000.05", "000.05"},
                      TextCase{2, 2, false, 1234, "12.34", "12.34"},
                      TextCase{2, 2, true, 123, "01.23", "01.23"}, TextCase{2, 2, false, 12, "0.12", "0.12"},
                      TextCase{2, 2, false, -100, "-1.00", "-1.00"}, TextCase{0, 2, false, 5, "0.05", "0.05"},
                      TextCase{0, 2, true, 5, ".05", "0.05"}, TextCase{0, 2, false, 123, "0.23", "0.23"},
                      TextCase{0, 0, false, 7, "0", ""}, TextCase{0, 0, true, 7, "0", ""},
                      TextCase{1, 3, false, 0, "0.000", "0.000"},
                      TextCase{10, 0, false, 4294967295, "4294967295", "4294967295"},
                      TextCase{12, 6, false, -123456789012345678, "-123456789012.345678",
                               "-123456789012.345678"}));

TEST(NumberTextsOfAnyRecord, StayWithinTheirBuffer) {
    std::mt19937_64 random(5);
    const std::vector<std::uint8_t> unit(255, 'u');
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        const NumberFormat format{static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
                                  (bits >> 16 & 1) != 0};
        const NumericValue value{.magnitude = random() >> (bits >> 20 & 63),
                                 .negative = (bits >> 17 & 1) != 0};
        ASSERT_EQ(PageNumberText(value, format, unit).view().size(), NumberText::Capacity);
        ASSERT_EQ(GroupNumberText(value, format, unit).view().size(), NumberText::Capacity);
    }
}

} // namespace
} // namespace panel
