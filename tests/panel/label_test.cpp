#include "widgets/display/label.h"

#include "panel_test.h"
#include "readable_font.h"

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::Label;

constexpr std::uint16_t Text = 0x0100, Control = 0x0140;
constexpr QRgb Ink = 0xFFFF8800, StringInk = 0xFF00CC00, PageColour = 0xFF102030;
const imagekit::PanelConfig Config{.Width = 64, .Height = 48, .ColourMode = 1, .ICType = 3, .LangueNum = 3};

const Label Plain = [] {
    Label label{.TextAddress = Text, .X1 = 8, .Y1 = 10, .X2 = 39, .Y2 = 15, .TextLength = 4, .Anchor = 3};
    label.Colour = Ink & 0xFFFFFF;
    return label;
}();

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
    /// What a refresh shows of another text.
    static std::string show(std::string_view text, int x = 8, int y = 10) {
        setText(Text, text, 12);
        RefreshPageWidgets(0);
        return shown(Ink, x, y);
    }
    static std::string shown(QRgb ink = Ink, int x = 8, int y = 10) {
        return ReadText(FrameSurface, x, y, ink);
    }

    ImageBuilder image{Config};
};

TEST_F(Labels, OutsideTheStoreShowNothingButAString) {
    const struct {
        std::uint16_t address, string;
        const char* text;
    } cases[] = {{0x70FF, 0, ""}, {0x70FF, 1, ""},    {0xFFFF, 0, ""},       {0xFFFF, 1, "str"},
                 {0xFFFF, 2, ""}, {0x7FFF, 1, "str"}, {Text, 2, "abcdefgh"}, {Text + 0x8000, 0, "abcdefgh"}};
    image.addString({.Text = "str", .Font = 0, .Colour = QColor(Ink)});
    Label label = Plain;
    for (const auto& c : cases) {
        label.TextAddress = c.address;
        label.String = c.string;
        image.addPage(PlainPage(Config, PageColour)).add(label);
    }
    boot(image);
    for (std::uint16_t page = 1; const auto& c : cases) {
        ShowPage(page++);
        EXPECT_EQ(shown(), c.text) << page;
    }
}

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
        apply(word::Language, static_cast<std::uint16_t>(language));
        EXPECT_EQ(shown(ink), text);
    }
}

const imagekit::ImageAnimation Behind{.ControlAddress = Control, .X = 4, .Y = 4, .Width = 40, .Height = 20};

TEST_F(Labels, OverAnAnimationShowItBehindThem) {
    constexpr QRgb Red = 0xFFFF0000, Blue = 0xFF0000FF;
    image.addSequence({Filled(40, 20, Red), Filled(40, 20, Blue)});
    image.page(0).add(Behind);
    bootWith(Plain);
    EXPECT_EQ(shown(), "abcdefgh");
    EXPECT_EQ(FrameSurface.pixel(8 + 33, 12), Red);
    EXPECT_EQ(show("x"), "x");
    EXPECT_EQ(FrameSurface.pixel(20, 12), Red) << "and not the page, nor the old text";

    StoreWord(Control, 1);
    run(20);
    EXPECT_EQ(show("yz"), "yz");
    EXPECT_EQ(FrameSurface.pixel(20, 12), FrameSurface.pixel(5, 5)) << "the frame that is on show now";

    StoreWord(Control, 3);
    run(20);
    EXPECT_EQ(show("q"), "q");
    EXPECT_EQ(FrameSurface.pixel(20, 12), PageColour);
}

TEST_F(Labels, InAGroupLieOverTheAnimationAndAreRepaintedWhenTheyChange) {
    image.addSequence({Filled(40, 20, Qt::red), Filled(40, 20, Qt::blue)});
    imagekit::ImageAnimation host = Behind;
    host.Group = 7;
    image.page(0).add(host);
    Label other = Plain;
    other.TextAddress = 0x0120;
    image.page(0).addToGroup(7, Plain);
    image.page(0).addToGroup(8, other);
    boot(image);
    EXPECT_EQ(shown(Ink, 9, 11), "abcdefgh") << "a pixel inwards, as all members";
    EXPECT_EQ(show("x", 9, 11), "x");
    EXPECT_EQ(FrameSurface.pixel(30, 13), 0xFFFF0000)
        << "the frame on show, right after a start with IdleValue";

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
    image.setWord(Control, 3);
    boot(image);
    EXPECT_EQ(shown(Ink, 9, 11), "abcdefgh") << "also when the animation starts hidden";
    EXPECT_EQ(FrameSurface.pixel(42, 22), PageColour);
}

} // namespace
} // namespace panel
