#include "widgets/display/number.h"

#include "golden.h"
#include "panel_test.h"
#include "readable_font.h"
#include "widgets/display/group.h"

namespace panel {
namespace {

using imagekit::Alignment;
using imagekit::DataType;
using imagekit::ImageBuilder;
using imagekit::Number;

constexpr std::uint16_t Value = 0x0100, Hide = 0x0110;
constexpr QRgb Ink = 0xFFFF8800, PageColour = 0xFF102030, Mark = 0xFFFF00FF;

const Number Plain{.ValueAddress = Value, .X = 20, .Y = 10, .Colour = Ink & 0xFFFFFF, .IntegerDigits = 4};

class Numbers : public PanelTest {
protected:
    static ImageBuilder panelWith(const std::vector<Number>& numbers, std::uint8_t rotate = 0) {
        ImageBuilder image({.Width = 64, .Height = 48, .ColourMode = 1, .Rotate = rotate});
        image.addFont(ReadableFont());
        auto& page = image.addPage(PlainPage(Small, PageColour));
        for (const Number& number : numbers) page.add(number);
        return image;
    }
    /// Shows a value and gives the text from (x, y) on.
    static std::string show(std::uint16_t value, int x, int y = 10) {
        StoreWord(Value, value);
        RefreshPageWidgets(0);
        return ReadText(FrameSurface, x, y, Ink);
    }
};

/// On the page, and in a group, which follows the turned panel.
TEST_F(Numbers, StandWhereTheirAlignmentTells) {
    const QPoint places[] = {{20, 10}, {58, 10}, {4, 10}, {11, 0}, {70, 10}};
    Sheet sheet({64, 64}, 2 * int(std::size(places)), 4 * 4);
    for (const std::uint8_t rotation : {0, 1, 2, 3})
        for (const auto align :
             {Alignment::Left, Alignment::Centre, Alignment::Right, static_cast<Alignment>(3)})
            for (const QPoint at : places) {
                Number number = Plain;
                number.Align = align;
                number.X = static_cast<std::uint16_t>(at.x());
                number.Y = static_cast<std::uint16_t>(at.y());
                ImageBuilder image = panelWith({number}, rotation);
                image.page(0).addToGroup(7, number);
                image.setWord(Value, 123);
                boot(image);
                sheet.add(FrameSurface);
                WorkSurface.fill(PageColour);
                DrawGroupInRect(0, 7, {2, 3, 40, 40});
                sheet.add(WorkSurface);
            }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/aligned-numbers.png"));
}

TEST_F(Numbers, ThatShrinkClearTheirWidestText) {
    Number second = Plain; // with a width memory of its own
    second.Y = 30;
    second.ValueAddress = 0x0120;
    second.Type = DataType::S16;
    second.DecimalDigits = 1;
    second.LeadingZeros = true;
    second.Unit = "kg";
    boot(panelWith({Plain, second}));
    EXPECT_EQ(show(1000, 20), "1000");
    StoreWord(0x0120, 0xFFF6);
    EXPECT_EQ(show(5, 20), "5");
    EXPECT_EQ(FrameSurface.copy(24, 10, 12, 6), PageBackground.copy(24, 10, 12, 6))
        << "no trace of the zeros";
    EXPECT_EQ(ReadText(FrameSurface, 20, 30, Ink), "-0001.0kg");
    EXPECT_EQ(NumberWidthMemory[0], 16);
    StoreWord(0x0120, 7);
    RefreshAfterTouch(0);
    EXPECT_EQ(NumberWidthMemory[1], 36);
    EXPECT_EQ(NumberWidthMemory[2], 0);

    ShowPage(0);
    FrameSurface.fill(Mark);
    EXPECT_EQ(show(6, 20), "6");
    EXPECT_EQ(FrameSurface.pixel(24, 12), Mark) << "a page change forgets the width";
}

TEST_F(Numbers, FollowThePopupAndAreInvisibleWhileTheirHideWordIsSet) {
    Number number = Plain;
    number.HideAddress = Hide;
    number.Align = Alignment::Right;
    boot(panelWith({number}));
    EXPECT_EQ(show(12, 12), "12");
    StoreWord(Hide, 1);
    EXPECT_EQ(show(12, 12), "");
    EXPECT_EQ(FrameSurface, PageBackground);
    StoreWord(Hide, 0);
    EXPECT_EQ(show(12, 12), "12");
    openPopup(0, 10, 20);
    EXPECT_EQ(ReadText(FrameSurface, 22, 30, Ink), "12");
}

TEST_F(Numbers, OutsideTheStoreAreNotDrawnAndBeyondTheMemoryStillAre) {
    Number lost = Plain, wrapped = Plain;
    lost.ValueAddress = 0x70FF;
    wrapped.ValueAddress = Value + 0x8000; // byte addresses have 16 bits
    wrapped.Y = 30;
    std::vector<imagekit::DisplayRecord> records(60, Encode(wrapped));
    records.push_back(Encode(lost));
    ImageBuilder image = panelWith({});
    image.page(0).setRawStream(imagekit::Stream::Display, RawStream(records));
    boot(image);
    EXPECT_EQ(show(8, 20, 10), "");
    EXPECT_EQ(show(9, 20, 30), "9");
}

TEST_F(Numbers, InAGroupKeepTheirOwnRules) {
    Number wide = Plain;
    wide.Type = DataType::U64; // a group shows 64 bits in the signed type alone
    Number hidden = Plain;
    hidden.HideAddress = Hide;
    ImageBuilder image = panelWith({});
    image.page(0).addToGroup(1, wide);
    image.page(0).addToGroup(2, hidden);
    image.setWord(Value, 77);
    image.setWord(Hide, 1);
    boot(image);
    WorkSurface.fill(PageColour);
    DrawGroupInRect(0, 2, {0, 0, 64, 48});
    EXPECT_EQ(ReadText(WorkSurface, 21, 11, Ink), "");
    DrawGroupInRect(0, 1, {0, 0, 64, 48});
    EXPECT_EQ(ReadText(WorkSurface, 21, 11, Ink), "0") << "a pixel inwards, as all members";
    EXPECT_EQ(NumberWidthMemory[0], 0);
}

} // namespace
} // namespace panel
