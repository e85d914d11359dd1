#include "widgets/display/label.h"

#include "golden.h"
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
    static const QImage& refreshed(std::string_view text) {
        setText(Text, text, 12);
        RefreshPageWidgets(0);
        return FrameSurface;
    }
    static std::string shown(QRgb ink = Ink) { return ReadText(FrameSurface, 8, 10, ink); }

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
    image.addSequence({Filled(40, 20, Qt::red), Filled(40, 20, Qt::blue)});
    image.page(0).add(Behind);
    bootWith(Plain);
    Sheet sheet({64, 48}, 4, 1);
    sheet.add(FrameSurface);
    sheet.add(refreshed("x"));
    StoreWord(Control, 1);
    run(40);
    sheet.add(refreshed("yz")); // on the next frame
    StoreWord(Control, 3);
    run(20);
    sheet.add(refreshed("q"));
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/labels-over-animations.png"));
}

TEST_F(Labels, InAGroupLieOverTheAnimationAndAreRepaintedWhenTheyChange) {
    image.addSequence({Filled(40, 20, Qt::red), Filled(40, 20, Qt::blue)});
    imagekit::ImageAnimation host = Behind;
    host.Group = 7;
    Label other = Plain;
    other.TextAddress = 0x0120;
    image.page(0).add(host);
    image.page(0).addToGroup(7, Plain);
    image.page(0).addToGroup(8, other);
    boot(image);
    Sheet sheet({64, 48}, 6, 1);
    sheet.add(FrameSurface);
    sheet.add(refreshed("x")); // on the first frame, right after a start at rest
    FrameSurface.fill(Qt::green);
    sheet.add(refreshed("x")); // nothing changed, nothing drawn
    StoreWord(other.TextAddress, 0x4141);
    sheet.add(refreshed("x"));
    StoreWord(Control, 3);
    run(20);
    sheet.add(FrameSurface); // the group stays on the background
    image.setWord(Control, 3);
    boot(image);
    sheet.add(FrameSurface); // also when the animation starts hidden
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/labels-in-groups.png"));
}

} // namespace
} // namespace panel
