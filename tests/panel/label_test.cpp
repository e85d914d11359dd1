#include "widgets/display/label.h"

#include "imagekit/value_widgets.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "panel_test.h"
#include "readable_font.h"
#include "store/system_words.h"

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::Label;

constexpr std::uint16_t Text = 0x0100, Control = 0x0140;
constexpr QRgb Ink = 0xFFFF8800, StringInk = 0xFF00CC00, PageColour = 0xFF102030;
const imagekit::PanelConfig Config{.Width = 64, .Height = 48, .ColourMode = 1, .ICType = 3, .LangueNum = 3};

const Label Plain{.TextAddress = Text,
                  .X1 = 8,
                  .Y1 = 10,
                  .X2 = 39,
                  .Y2 = 15,
                  .Colour = Ink & 0xFFFFFF,
                  .BackColour = 0x334455,
                  .TextLength = 4,
                  .Anchor = 3};

class Labels : public PanelTest {
protected:
    Labels() {
        image.addFont(ReadableFont());
        image.addPage(PlainPage(Config, QColor::fromRgb(PageColour)));
        image.setText(Text, "abcdefghij", 0);
    }
    void bootWith(const Label& label) {
        image.page(0).add(label);
        boot(image);
    }
    static void setText(std::string_view text) {
        for (std::size_t i = 0; i < 12; ++i)
            StoreByte(2 * Text + i, i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0);
    }
    static std::string shown(QRgb ink = Ink, int x = 8, int y = 10) {
        return ReadText(FrameSurface, x, y, ink);
    }

    ImageBuilder image{Config};
};

TEST_F(Labels, ShowTheTextOfTheStoreUpToItsLength) {
    bootWith(Plain);
    EXPECT_EQ(shown(), "abcdefgh");
    setText("xyz");
    RefreshPageWidgets(0);
    EXPECT_EQ(shown(), "xyz");
    EXPECT_EQ(FrameSurface.pixel(8 + 12, 12), PageColour) << "the old text is gone";
}

TEST_F(Labels, CanBeOpaqueAndMasked) {
    Label label = Plain;
    label.Opaque = true;
    label.Masked = true;
    bootWith(label);
    EXPECT_EQ(shown(), "********");
    setText("xyz");
    RefreshPageWidgets(0);
    EXPECT_EQ(shown(), "***");
    EXPECT_EQ(FrameSurface.pixel(39, 15), 0xFF334455);
    EXPECT_EQ(FrameSurface.pixel(40, 15), PageColour);
}

struct AddressCase {
    std::uint16_t address;
    std::uint16_t string;
    const char* text;
};
class LabelAddresses : public Labels, public ::testing::WithParamInterface<AddressCase> {};

TEST_P(LabelAddresses, OutsideTheStoreShowNothingButAString) {
    image.addString({.Text = "str", .Font = 0, .Colour = QColor::fromRgb(Ink)});
    Label label = Plain;
    label.TextAddress = GetParam().address;
    label.String = GetParam().string;
    bootWith(label);
    EXPECT_EQ(shown(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Addresses, LabelAddresses,
                         ::testing::Values(AddressCase{0x70FF, 0, ""}, AddressCase{0x70FF, 1, ""},
                                           AddressCase{0xFFFF, 0, ""}, AddressCase{0xFFFF, 1, "str"},
                                           AddressCase{0xFFFF, 2, ""}, AddressCase{Text, 2, "abcdefgh"},
                                           AddressCase{Text + 0x8000, 0, "abcdefgh"}));

TEST_F(Labels, StringsChangeWithTheLanguage) {
    image.addString({.Text = "first", .Font = 0, .Colour = QColor::fromRgb(StringInk)});
    image.setString(1, 1, imagekit::LanguageText{.Text = "other", .Font = 0, .Colour = Qt::white});
    image.setString(1, 2, std::nullopt);
    Label label = Plain;
    label.String = 1;
    bootWith(label);
    EXPECT_EQ(shown(StringInk), "first");
    for (const auto& [language, ink, text] :
         {std::tuple{1, 0xFFFFFFFF, "other"}, {2, Ink, "abcdefgh"}, {0, StringInk, "first"}}) {
        StoreWord(word::Language, static_cast<std::uint16_t>(language));
        ApplySystemWord(word::Language);
        EXPECT_EQ(shown(ink), text);
    }
}

/// A sequence of two frames of one colour each, in the size of a label.
imagekit::Pixels frameOf(QRgb colour) {
    QImage picture(40, 20, QImage::Format_ARGB32);
    picture.fill(colour);
    return {picture};
}

TEST_F(Labels, OverAnAnimationShowItBehindThem) {
    constexpr QRgb Red = 0xFFFF0000, Blue = 0xFF0000FF;
    image.addSequence({frameOf(Red), frameOf(Blue)});
    image.page(0).add(
        imagekit::ImageAnimation{.ControlAddress = Control, .X = 4, .Y = 4, .Width = 40, .Height = 20});
    bootWith(Plain);
    EXPECT_EQ(shown(), "abcdefgh");
    EXPECT_EQ(FrameSurface.pixel(8 + 33, 12), Red);
    setText("x");
    RefreshPageWidgets(0);
    EXPECT_EQ(shown(), "x");
    EXPECT_EQ(FrameSurface.pixel(20, 12), Red) << "and not the page, nor the old text";

    StoreWord(Control, 1);
    run(20);
    setText("yz");
    RefreshPageWidgets(0);
    EXPECT_EQ(shown(), "yz");
    EXPECT_EQ(FrameSurface.pixel(20, 12), FrameSurface.pixel(5, 5)) << "the frame that is on show now";

    StoreWord(Control, 3);
    run(20);
    setText("q");
    RefreshPageWidgets(0);
    EXPECT_EQ(shown(), "q");
    EXPECT_EQ(FrameSurface.pixel(20, 12), PageColour);
}

TEST_F(Labels, InAGroupLieOverTheAnimationAndAreRepaintedWhenTheyChange) {
    constexpr QRgb Red = 0xFFFF0000;
    image.addSequence({frameOf(Red), frameOf(0xFF0000FF)});
    image.page(0).add(imagekit::ImageAnimation{
        .ControlAddress = Control, .X = 4, .Y = 4, .Width = 40, .Height = 20, .Group = 7});
    Label other = Plain;
    other.TextAddress = 0x0120;
    image.page(0).addToGroup(7, Plain);
    image.page(0).addToGroup(8, other);
    boot(image);
    EXPECT_EQ(shown(Ink, 9, 11), "abcdefgh") << "a pixel inwards, as all members";
    setText("x");
    RefreshPageWidgets(0);
    EXPECT_EQ(shown(Ink, 9, 11), "x");
    EXPECT_EQ(FrameSurface.pixel(30, 13), Red) << "the frame on show, right after a start with IdleValue";

    FrameSurface.fill(Qt::green);
    RefreshPageWidgets(0);
    EXPECT_EQ(FrameSurface.pixel(9, 13), 0xFF00FF00) << "nothing changed, nothing drawn";
    StoreWord(0x0120, 0x4141);
    RefreshPageWidgets(0);
    EXPECT_EQ(FrameSurface.pixel(9, 13), 0xFF00FF00) << "another group";

    StoreWord(Control, 3);
    run(20);
    EXPECT_EQ(FrameSurface.pixel(30, 13), PageColour);
    EXPECT_EQ(shown(Ink, 9, 11), "x") << "the group stays on the background";
}

TEST_F(Labels, InAGroupOverAnAnimationThatStartsHiddenAreShown) {
    image.addSequence({frameOf(0xFFFF0000)});
    image.setWord(Control, 3);
    image.page(0).add(imagekit::ImageAnimation{
        .ControlAddress = Control, .X = 4, .Y = 4, .Width = 40, .Height = 20, .Group = 7});
    image.page(0).addToGroup(7, Plain);
    boot(image);
    EXPECT_EQ(shown(Ink, 9, 11), "abcdefgh");
    EXPECT_EQ(FrameSurface.pixel(42, 22), PageColour);
}

} // namespace
} // namespace panel
