#include "widgets/display/number_text.h"

#include "store/variable_store.h"

#include <gtest/gtest.h>

#include <random>

namespace panel {
namespace {

constexpr std::uint16_t Address = 0x0100;

TEST(DataTypes, AreReadFromTheirOwnBytesWholeOrAsZero) {
    const struct {
        std::uint8_t code;
        NumericValue value;
    } cases[] = {{0x00, {0xDC, false}},
                 {0x01, {0xFEDC, false}},
                 {0x02, {0xFEDCBA98, false}},
                 {0x03, {0x0123456789ABCDF0, true}},
                 {0x80, {0x24, true}},
                 {0x81, {0x0124, true}},
                 {0x82, {0x01234568, true}},
                 {0x83, {0x0123456789ABCDF0, true}},
                 {0x04, {}},
                 {0x11, {}},
                 {0xFF, {}}};
    constexpr std::uint8_t bytes[] = {0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 0x32, 0x10};
    StoreBytes(2 * std::size_t{Address}, bytes);
    for (const auto& [code, value] : cases) EXPECT_EQ(ReadNumeric(Address, code), value) << int{code};
    StoreWord(Address, 0x8000);
    EXPECT_EQ(ReadNumeric(Address, 0x81), (NumericValue{.magnitude = 0x8000, .negative = true}));
    for (std::uint16_t i = 1; i < 4; ++i) StoreWord(static_cast<std::uint16_t>(Address + i), 0);
    EXPECT_EQ(ReadNumeric(Address, 0x83), (NumericValue{.magnitude = 1ull << 63, .negative = true}));
    StoreWord(0x70FE, 0x1234);
    EXPECT_EQ(ReadNumeric(0x70FE, 0x02).magnitude, 0x12340000u) << "what the store has not reads as 0";
    EXPECT_EQ(ReadNumeric(0xFFFF, 0x83), NumericValue{});
}

TEST(NumberTexts, OnPagesAndInGroups) {
    const struct {
        std::uint8_t integerDigits, decimalDigits;
        bool leadingZeros;
        std::int64_t value;
        const char *page, *group;
    } cases[] = {{3, 0, false, 7, "7", "7"},
                 {3, 0, true, 7, "007", "007"},
                 {3, 0, false, 0, "0", "0"},
                 {3, 0, false, 12345, "345", "345"},
                 {3, 0, false, 12005, "5", "5"},
                 {3, 0, true, -7, "-007", "-007"},
                 {1, 0, false, -10, "-0", "-0"},
                 {3, 2, false, 5, "0.05", "0.05"},
                 {3, 2, true, 5, "000.05", "000.05"},
                 {2, 2, false, 1234, "12.34", "12.34"},
                 {2, 2, true, 123, "01.23", "01.23"},
                 {2, 2, false, -100, "-1.00", "-1.00"},
                 {0, 2, false, 123, "0.23", "0.23"},
                 {0, 2, true, 5, ".05", "0.05"},
                 {0, 0, false, 7, "0", ""},
                 {0, 0, true, 7, "0", ""},
                 {1, 3, false, 0, "0.000", "0.000"},
                 {10, 0, false, 4294967295, "4294967295", "4294967295"},
                 {12, 6, false, -123456789012345678, "-123456789012.345678", "-123456789012.345678"}};
    constexpr std::uint8_t unit[] = {'k', 'g'};
    for (const auto& c : cases) {
        const NumericValue value{static_cast<std::uint64_t>(std::abs(c.value)), c.value < 0};
        const NumberFormat format{c.integerDigits, c.decimalDigits, c.leadingZeros};
        EXPECT_EQ(PageNumberText(value, format, unit).view(), std::string(c.page) + "kg");
        EXPECT_EQ(GroupNumberText(value, format, unit).view(), std::string(c.group) + "kg");
        EXPECT_EQ(PictureNumberText(value, format).view(), format.digits() > 0 ? c.group : "0");
    }
}

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
