#include "golden.h"
#include "panel_test.h"
#include "widgets/display/image_animation.h"
#include "widgets/touch/encoder.h"

namespace panel {
namespace {

using imagekit::BitIcon;
using imagekit::None;
using imagekit::ValueIcon;

constexpr std::uint16_t Value = 0x0100, Bits = 0x0101, Block = 0x0200, Group = 3;
constexpr std::uint16_t Red = 0, Green = 1, Blue = 2; // of the image table
constexpr QRgb Colours[] = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF}, Mark = 0xFFFF00FF, Gray = 0xFF808080;
constexpr QSize Size(10, 8);

QImage filled(QRgb colour) { return Filled(Size.width(), Size.height(), colour).Image; }

imagekit::Pixels pattern(int width, int height) { return {Pattern(width, height)}; }

class Icons : public PanelTest {
protected:
    Icons() {
        for (const QRgb colour : Colours) image.addPicture(imagekit::Pixels{filled(colour)});
        image.addPage(pattern(64, 48));
    }
    /// Boots, and keeps what lies behind the icons.
    void start() {
        boot(image);
        page = PageBackground;
    }
    /// What a full refresh shows once a word is written.
    QImage shown(std::uint16_t address, std::uint16_t value) {
        StoreWord(address, value);
        run(240);
        return outputs.frame;
    }

    imagekit::ImageBuilder image{Small};
    QImage page;
};

TEST_F(Icons, ShowThePictureOfAValueAndEraseOutside) {
    const imagekit::ImageBuilder empty = image;
    Sheet sheet({64, 48}, 11, 8);
    for (const bool popup : {false, true})
        for (const std::uint16_t group : {None, Group})
            for (const std::uint16_t block : {None, Block}) {
                image = empty;
                const ValueIcon icon{block, false, Value, 8, 6, Red, 5, 7, 0, group};
                auto& host = popup ? image.addPage(pattern(30, 20)) : image.page(0);
                host.add(icon);
                host.addToGroup(Group, BitIcon{.ValueAddress = Bits, .X = 10, .Y = 7, .ClearImage = Blue});
                host.addToGroup(Group, ValueIcon{.ValueAddress = Bits, .X = 12, .Y = 8, .FirstImage = Green});
                image.setBytes(Block, Encode(icon).Block);
                boot(image);
                if (popup) openPopup(1, 20, 10);
                StoreWord(Bits, 0);
                for (const std::uint16_t value : {5, 4, 7, 0, 6, 8, 5, 6, 0xFFFF})
                    sheet.add(shown(Value, value));
                sheet.add(shown(Bits, 2));    // for one of the members there is no picture
                StoreByte(2 * Block + 10, 6); // the minimum
                sheet.add(shown(Value, 6));
            }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/icons.png"));
}

/// On a frame that is wiped before each word: an icon is drawn when its own bit has changed.
TEST_F(Icons, OfABitLookAtTheirOwnBit) {
    for (std::uint16_t x = 0; const std::uint8_t bit : {0, 1, 8, 15, 16, 31}) {
        image.page(0).add(BitIcon{None, false, Bits, x, 0, bit, Red, Green});
        x += 10;
    }
    start();
    Sheet sheet({64, 8}, 1, 6);
    for (const std::uint16_t word : {0x0001, 0x8003, 0x0102, 0xFFFF, 0x7EFD, 0}) {
        FrameSurface.fill(Mark);
        sheet.add(shown(Bits, word));
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/bit-icons.png"));
}

TEST_F(Icons, ComeOnTopWhenAPageIsShownAndAfterATouch) {
    image.page(0).add(ValueIcon{.ValueAddress = Value, .Minimum = 0, .Maximum = 1});
    image.page(0).add(BitIcon{.ValueAddress = Bits, .ClearImage = Blue, .SetImage = Blue});
    start();
    const auto change = [](void (*refresh)(std::uint16_t), std::uint16_t value) {
        StoreWord(Value, value);
        StoreWord(Bits, value);
        refresh(0);
        return FrameSurface.pixel(5, 4);
    };
    EXPECT_EQ(FrameSurface.pixel(5, 4), Colours[Red]);
    EXPECT_EQ(change(RefreshPageWidgets, 1), Colours[Blue]) << "by the order of the stream";
    EXPECT_EQ(change(RefreshAfterTouch, 0), Colours[Red]);
    BaseVariable = Value; // that of a background widget: no other pass shows the icon
    BaseInUse = 1;
    EXPECT_EQ(change(RefreshPageWidgets, 1), Colours[Blue]);
    BaseSurface.fill(Mark);
    EXPECT_EQ(change(RefreshAfterTouch, 3), Mark);
    BaseInUse = 0;
    EXPECT_EQ(change(RefreshAfterTouch, 4), Colours[Blue]) << "nothing to bring back";
    EXPECT_EQ(change(ShowPage, 1), Colours[Green]);
}

TEST_F(Icons, StandOnAnAnimationThatShows) {
    QImage red = filled(Colours[Red]);
    red.setPixel(0, 0, 0);
    Sheet sheet({64, 48}, 3, 3);
    constexpr std::pair<std::uint8_t, std::uint8_t> cases[] = {// chip and format
                                                               {4, format::aRGB4444},
                                                               {4, format::RGB565},
                                                               {2, format::aRGB4444}};
    for (const auto& [chip, kind] : cases) {
        image = imagekit::ImageBuilder({.Width = 64, .Height = 48, .ColourMode = 1, .ICType = chip});
        image.addPicture(imagekit::Pixels{red, kind});
        image.addPage(pattern(64, 48)).add(ValueIcon{None, false, Value, 8, 6, 0, 1, 1});
        StoreWord(Value, 0);
        start();
        AnimationRow* animation = AnimationTable.next();
        animation->Shown = 1;
        animation->X = 8; // the corner of the icon is all that it covers
        animation->Y = 6;
        animation->Group = None;
        AnimationTable.commit();
        BaseInUse = 1;
        BaseSurface = page;
        TextSurface.fill(Mark);
        sheet.add(shown(Value, 1));
        sheet.add(BaseSurface);
        sheet.add(shown(Value, 2));
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/icons-on-animations.png"));
}

TEST_F(Icons, BeginBelowPicture10000) {
    while (image.addPicture(imagekit::Pixels{filled(Colours[Red])}) < 10000) continue;
    image.page(0).add(ValueIcon{.ValueAddress = Value, .FirstImage = 9999});
    image.page(0).add(ValueIcon{.ValueAddress = Value, .X = 20, .FirstImage = 10000});
    image.page(0).add(BitIcon{.ValueAddress = Value, .X = 40, .ClearImage = Blue, .Group = Group});
    image.page(0).addToGroup(Group, ValueIcon{.ValueAddress = Value, .X = 40, .FirstImage = 10000});
    start();
    EXPECT_EQ(FrameSurface.pixel(5, 4), Colours[Red]);
    EXPECT_EQ(FrameSurface.pixel(45, 4), Colours[Blue]);
    EXPECT_EQ(FrameSurface.copy(20, 0, 10, 8), page.copy(20, 0, 10, 8));
}

TEST_F(Icons, OfABackgroundWidgetsPageAndOfAListShowThereToo) {
    image.page(0).add(ValueIcon{None, false, Value, 0, 0, Red, 1, 1});
    image.page(0).add(ValueIcon{None, true, Value, 20, 0, Red, 1, 1});
    image.page(0).add(ValueIcon{None, true, Value, 20, 60, Red, 1, 1, 0, Group});
    start();
    BaseInUse = 1;
    BaseSurface = page;
    ListSurfaceA = ListSurfaceB = QImage(64, 90, FrameSurface.format());
    ListSurfaceA.fill(Mark);
    ListSurfaceB.fill(Mark);
    Sheet sheet({64, 90}, 3, 2);
    for (const std::uint16_t value : {1, 2}) {
        sheet.add(shown(Value, value));
        sheet.add(BaseSurface);
        sheet.add(ListSurfaceA);
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/icons-everywhere.png"));
}

/// Pictures of every format as every kind of icon, while the WorkSurface holds another widget's pixels.
TEST_F(Icons, LandNothingButTheirPicture) {
    // 0x103: no compressed picture where the row promises one.
    constexpr int kinds[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 9, 11, 12, 16, 0xFF, 0x103};
    QImage red = filled(Colours[Red]);
    red.setPixel(0, 0, 0);
    Sheet sheet({32, 32}, std::size(kinds), 2);
    for (const imagekit::Picture& background : {imagekit::Picture(pattern(64, 48)), {}})
        for (const int kind : kinds) {
            const auto code = static_cast<std::uint8_t>(kind);
            const imagekit::StoredPicture nothing{10, 8, code == 0xFF ? 0u : 0x48u, code,
                                                  imagekit::Bytes(0x48, 0x5A)};
            image = imagekit::ImageBuilder({.Width = 64, .Height = 48});
            const bool drawn = kind <= 10 && kind != 9;
            image.addPicture(drawn ? imagekit::Picture(imagekit::Pixels{red, code}) : nothing);
            auto& host = image.addPage(background);
            for (const std::uint16_t group : {None, Group}) {
                const auto y = static_cast<std::uint16_t>(group == None ? 0 : 20);
                host.add(ValueIcon{None, false, Value, 0, y, 0, 1, 1, 0, group});
                host.add(BitIcon{None, false, Value, 20, y, 0, None, 0, 0, group});
            }
            StoreWord(Value, 0);
            start();
            FrameSurface.fill(Gray);
            WorkSurface.fill(Mark);
            sheet.add(shown(Value, 1));
        }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/icon-formats.png"));
}

} // namespace
} // namespace panel
