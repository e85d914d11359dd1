#include "widgets/display/png_number.h"

#include "golden.h"
#include "host/config_block.h"
#include "panel_test.h"
#include "widgets/display/group.h"
#include "widgets/display/image_animation.h"

namespace panel {
namespace {

using imagekit::Alignment;
using imagekit::DataType;
using imagekit::None;
using imagekit::PngNumber;

constexpr std::uint16_t Value = 0x0100, Hide = 0x0101, Second = 0x0102, Block = 0x0200;
constexpr std::uint16_t Digits = 2; // the picture of digit 0
constexpr auto Aside = static_cast<Alignment>(5);
constexpr QRgb Mark = 0xFFFF00FF;

/// Digit pictures that differ in width, and some in height. The pixel (1, 1) is transparent.
QSize sizeOf(int code) { return {3 + code % 4, code == 8 ? 9 : code == 4 ? 4 : 6}; }
QImage pictureOf(int code) {
    QImage picture = Filled(sizeOf(code).width(), sizeOf(code).height(), qRgb(100 + code, 0, 0)).Image;
    picture.setPixel(1, 1, 0);
    return picture;
}
constexpr int Missing = 7; // takes its room, and has no picture

const PngNumber Signed{None, false, Value,         24,  3, Digits, Digits + 11, false, Alignment::Left,
                       3,    1,     DataType::S16, Hide};

class PngNumbers : public PanelTest {
protected:
    PngNumbers() { addPictures(image); }

    static void addPictures(imagekit::ImageBuilder& builder) {
        for (std::uint16_t i = 0; i < Digits; ++i) builder.addPicture(imagekit::Pixels{pictureOf(0)});
        for (int code = 0; code <= 11; ++code) {
            const auto width = static_cast<std::uint16_t>(sizeOf(code).width());
            if (code == Missing)
                builder.addPicture(
                    imagekit::StoredPicture{width, 6, 0x48, format::None, imagekit::Bytes(0x48)});
            else
                builder.addPicture(imagekit::Pixels{pictureOf(code), format::aRGB8888});
        }
    }
    static imagekit::Pixels pattern(int width, int height) { return {Pattern(width, height)}; }

    enum class Place { Page, Popup, List };
    std::vector<QImage> framesOf(Place place, Alignment alignment, std::uint16_t block);

    imagekit::ImageBuilder image{Small};
};

/// Two numbers, so that each needs its own memory, through values of all widths while one comes and goes.
std::vector<QImage> PngNumbers::framesOf(Place place, Alignment alignment, std::uint16_t block) {
    image = imagekit::ImageBuilder(Small);
    addPictures(image);
    PngNumber plain = Signed;
    plain.InList = place == Place::List;
    plain.Align = alignment;
    PngNumber inStore = plain, second = plain;
    inStore.ParameterAddress = block;
    second.ValueAddress = Second;
    second.HideAddress = None;
    second.Y = 20;
    second.LastImage = Digits + 10; // no minus
    second.LeadingZeros = true;
    image.addPage(pattern(64, 48));
    image.addPage(pattern(50, 40));
    const std::uint16_t page = place == Place::Popup ? 1 : 0;
    image.page(page).add(inStore);
    image.page(page).add(second);
    image.setBytes(Block, Encode(plain).Block);
    boot(image);
    if (place == Place::List) ListSurfaceA = ListSurfaceB = PageBackground;
    if (place == Place::Popup) openPopup(1, 7, 5);
    const QImage& target = place == Place::List ? ListSurfaceA : FrameSurface;
    std::vector<QImage> frames{target};
    const std::pair<std::uint16_t, int> steps[] = {
        {Value, 5},     {Second, 12}, {Value, -1234}, {Hide, 1},     {Value, 8}, {Hide, 0},
        {Second, 9999}, {Value, -70}, {Second, -123}, {Value, 4007}, {Hide, 1},  {Hide, 0}};
    for (const auto& [address, value] : steps) {
        StoreWord(address, static_cast<std::uint16_t>(value));
        // After a touch, what lies on a list is drawn and still counts as changed.
        const bool full = place == Place::List || frames.size() % 2;
        (full ? RefreshPageWidgets : RefreshAfterTouch)(page);
        frames.push_back(target);
    }
    ShowPage(place == Place::Popup ? 0 : 1);
    EXPECT_EQ(PngNumberWidthMemory[0], 0);
    return frames;
}

TEST_F(PngNumbers, KeepTheirRoomThroughAllRefreshes) {
    Sheet sheet({64, 48}, 13, 12);
    for (const Place place : {Place::Page, Place::Popup, Place::List})
        for (const Alignment align : {Alignment::Left, Alignment::Centre, Alignment::Right, Aside}) {
            const std::vector<QImage> frames = framesOf(place, align, None);
            for (const QImage& frame : frames) sheet.add(frame);
            EXPECT_EQ(framesOf(place, align, Block), frames) << "with parameters in the store";
        }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/picture-numbers.png"));
}

/// More digits than 64 bits have, up to more than a text holds, and pictures that are not there.
TEST_F(PngNumbers, WiderThanThePanelLeaveNoHoleInIt) {
    image.addPage(pattern(64, 48));
    for (const std::uint8_t digits : {19, 24, 90, 255})
        for (const auto alignment : {Alignment::Left, Alignment::Centre, Alignment::Right}) {
            PngNumber wide{.ValueAddress = Value, .X = 30, .Y = 44, .FirstImage = Digits, .Align = alignment};
            wide.LeadingZeros = true;
            wide.IntegerDigits = wide.DecimalDigits = digits;
            wide.Type = DataType::S64;
            image.page(0).add(wide);
            wide.FirstImage = 0xFFFC;
            image.page(0).add(wide);
        }
    image.setWord(Value, 0x8000);
    boot(image);
    for (int i = 0; i < 64 * 48; ++i) ASSERT_EQ(qAlpha(FrameSurface.pixel(i % 64, i / 64)), 255) << i;
}

TEST_F(PngNumbers, BeyondTheMemoryOrTheStoreAreDrawnWithoutOrNotAtAll) {
    PngNumber number{.ValueAddress = Value, .FirstImage = Digits, .IntegerDigits = 1};
    std::vector<imagekit::DisplayRecord> records(30, Encode(number));
    number.X = 20;
    records.push_back(Encode(number));
    number.X = 40;
    number.ValueAddress = 0x70FF;
    records.push_back(Encode(number));
    image.addPage(PlainPage(Small, Qt::white)).setRawStream(imagekit::Stream::Display, RawStream(records));
    boot(image);
    for (const std::uint16_t value : {3, 0}) {
        StoreWord(Value, value);
        RefreshPageWidgets(0);
        EXPECT_EQ(FrameSurface.pixel(20, 0), pictureOf(value).pixel(0, 0));
        EXPECT_EQ(FrameSurface.pixel(40, 0), 0xFFFFFFFF);
    }
    EXPECT_EQ(FrameSurface.pixel(4, 0), 0xFFFFFFFF) << "cleared";
    EXPECT_EQ(FrameSurface.pixel(24, 0), pictureOf(3).pixel(0, 0)) << "not remembered";
}

TEST_F(PngNumbers, OverAnAnimationStandOnItsFrame) {
    PngNumber number{.ValueAddress = Value, .X = 20, .FirstImage = Digits, .IntegerDigits = 1};
    number.Align = Alignment::Right;
    image.addSequence({imagekit::Pixels{pictureOf(0)}});
    image.addPage(PlainPage(Small, Qt::gray)).add(imagekit::ImageAnimation{.Width = 60, .Height = 40});
    image.page(0).add(number);
    boot(image);
    run(100);
    TextSurface.setPixel(21, 1, Mark); // of the place at the record's position, whatever the alignment
    StoreWord(Value, 3);
    RefreshPageWidgets(0);
    EXPECT_EQ(FrameSurface.pixel(20 + 1 - sizeOf(3).width() + 1, 1), Mark);
}

TEST_F(PngNumbers, InAGroupStandAsThePanelIsTurned) {
    Sheet sheet({104, 88}, 12, 4);
    for (std::uint8_t rotation = 0; rotation < 4; ++rotation)
        for (const Alignment align : {Alignment::Left, Alignment::Centre, Alignment::Right, Aside})
            for (const int value : {-128, 4, 3751}) {
                const imagekit::PanelConfig config{
                    .Width = 120, .Height = 96, .ColourMode = 1, .Rotate = rotation};
                image = imagekit::ImageBuilder(config);
                addPictures(image);
                PngNumber member = Signed;
                member.X = member.Y = 50;
                member.LastImage = Digits; // the minus is there all the same
                member.Align = align;
                image.addPage(PlainPage(config, Qt::gray)).addToGroup(3, member);
                image.setWord(Value, static_cast<std::uint16_t>(value));
                boot(image);
                WorkSurface.fill(Mark);
                DrawGroupInRect(0, 3, {2, 4, 40, 40});
                sheet.add(WorkSurface);
                const QImage shown = WorkSurface.copy();
                StoreWord(Hide, 1);
                DrawGroupInRect(0, 3, {0, 0, 40, 40});
                EXPECT_EQ(WorkSurface, shown) << "a hidden one is left out";
                EXPECT_EQ(PngNumberWidthMemory[0], 0);
            }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/turned-numbers.png"));
}

} // namespace
} // namespace panel
