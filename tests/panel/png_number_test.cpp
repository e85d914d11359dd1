#include "widgets/display/png_number.h"

#include "host/config_block.h"
#include "panel_test.h"
#include "widgets/display/group.h"
#include "widgets/display/image_animation.h"

#include <cmath>

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

/// Copies what is opaque of a picture.
void lay(QImage& target, QPoint at, const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (const QPoint to = at + QPoint(x, y);
                target.valid(to) && picture.valid(x, y) && qAlpha(picture.pixel(x, y)))
                target.setPixel(to, picture.pixel(x, y));
}

std::vector<int> codesOf(const QString& text) {
    std::vector<int> codes;
    for (const QChar character : text) codes.push_back(QString("0123456789.-").indexOf(character));
    return codes;
}

/// The widget in plain words.
struct Model {
    PngNumber number;
    int lastWidth = 0;

    QString text(int value) const {
        const int shown = std::abs(value) % 10000;
        const bool minus = value < 0 && number.LastImage - number.FirstImage > 10;
        const QString digits =
            QString("%1.%2").arg(shown / 10, number.LeadingZeros ? 3 : 1, 10, QChar('0')).arg(shown % 10);
        return minus ? '-' + digits : digits;
    }
    void draw(QImage& target, const QImage& behind, QPoint at, int value, bool hidden) {
        const std::vector<int> codes = codesOf(text(value));
        int width = 0;
        for (const int code : codes) width += sizeOf(code).width();
        const int span = std::max(width, std::exchange(lastWidth, width));
        const bool centred = number.Align == Alignment::Centre, right = number.Align == Alignment::Right;
        const int left = centred ? at.x() - span / 2 : right ? at.x() + 1 - span : at.x();
        int offset = centred ? (span - width) / 2 : right ? span - width : 0;
        QImage work = behind.copy({left, at.y(), span, sizeOf(codes.back()).height()});
        for (const int code : codes) {
            if (!hidden && code != Missing) lay(work, {offset, 0}, pictureOf(code));
            offset += sizeOf(code).width();
        }
        lay(target, {left, at.y()}, work);
    }
};

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

    imagekit::ImageBuilder image{Small};
};

enum class Place { Page, Popup, List };
using ModelCase = std::tuple<Place, Alignment, std::uint16_t>;
class PngNumberModel : public PngNumbers, public ::testing::WithParamInterface<ModelCase> {};

/// Two numbers, so that each needs its own memory, through values of all widths while one comes and goes.
TEST_P(PngNumberModel, HoldsThroughAllRefreshes) {
    const auto [place, alignment, block] = GetParam();
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
    if (place == Place::List)
        ListSurfaceA = ListSurfaceB = pattern(70, 60).Image.convertToFormat(FrameSurface.format());
    if (place == Place::Popup) openPopup(1, 7, 5);
    const QPoint shift = place == Place::Popup ? QPoint(7, 5) : QPoint();
    const QImage& behind = place == Place::List ? ListSurfaceB : PageBackground;
    const QImage& target = place == Place::List ? ListSurfaceA : FrameSurface;
    Model models[] = {{plain}, {second}};
    QImage expected = behind;
    const auto draw = [&](Model& model, std::uint16_t address, bool hidden) {
        const QPoint at = shift + QPoint(model.number.X, model.number.Y);
        model.draw(expected, behind, at, static_cast<std::int16_t>(ReadWord(address)), hidden);
    };
    draw(models[0], Value, false);
    draw(models[1], Second, false);
    if (place == Place::List) expected = behind; // there was no list when the page came up
    ASSERT_EQ(target, expected);
    std::mt19937 random(3);
    for (int step = 0; step < 80; ++step) {
        const auto anyWord = [&] { return static_cast<std::uint16_t>((random() & 0x3FFF) >> random() % 14); };
        const bool negative = random() % 3 == 0;
        const auto value = static_cast<std::uint16_t>(negative ? -anyWord() : anyWord());
        const std::uint16_t address = random() % 2 ? Value : Second;
        if (random() % 5 == 0) {
            StoreWord(Hide, ReadWord(Hide) == 0);
            draw(models[0], Value, ReadWord(Hide) != 0);
        } else if (value != ReadWord(address)) {
            StoreWord(address, value);
            address == Value ? draw(models[0], Value, ReadWord(Hide) != 0) : draw(models[1], Second, false);
        }
        // After a touch, what lies on a list is drawn and still counts as changed.
        const bool full = place == Place::List || random() % 2;
        (full ? RefreshPageWidgets : RefreshAfterTouch)(page);
        ASSERT_EQ(target, expected) << step;
    }
    ShowPage(place == Place::Popup ? 0 : 1);
    EXPECT_EQ(PngNumberWidthMemory[0], 0);
}

INSTANTIATE_TEST_SUITE_P(Places, PngNumberModel,
                         ::testing::Combine(::testing::Values(Place::Page, Place::Popup, Place::List),
                                            ::testing::Values(Alignment::Left, Alignment::Centre,
                                                              Alignment::Right, Aside),
                                            ::testing::Values(None, Block)));

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

// In groups.

using GroupCase = std::tuple<int, Alignment, const char*>;
class PngNumbersInGroups : public PngNumbers, public ::testing::WithParamInterface<GroupCase> {};

TEST_P(PngNumbersInGroups, StandAsThePanelIsTurned) {
    const auto [rotation, alignment, text] = GetParam();
    const imagekit::PanelConfig config{
        .Width = 120, .Height = 96, .ColourMode = 1, .Rotate = static_cast<std::uint8_t>(rotation)};
    imagekit::ImageBuilder turned(config);
    addPictures(turned);
    PngNumber member = Signed;
    member.X = 60;
    member.Y = 50;
    member.LastImage = Digits; // the minus is there all the same
    member.Align = alignment;
    turned.addPage(PlainPage(config, Qt::gray)).addToGroup(3, member);
    turned.setWord(Value, static_cast<std::uint16_t>(std::lround(std::stod(text) * 10)));
    boot(turned);
    const QPoint corner(6, 4);
    QImage expected = WorkSurface;
    expected.fill(Mark);

    int length = 0;
    for (const int code : codesOf(text))
        length += rotation % 2 ? sizeOf(code).height() : sizeOf(code).width();
    length += length % 2;
    const int column = static_cast<int>(alignment) > 2 ? 3 : static_cast<int>(alignment);
    const int half = length / 2, width = sizeOf(0).width(), height = sizeOf(0).height();
    const QPoint starts[4][4] = {
        {{0, 0}, {-half, 0}, {1 - length, 0}, {0, 0}},
        {{-width, 0}, {-width, -half}, {-width, -length}, {-width, 0}},
        {{-length, -height}, {-half, -height}, {0, -height}, {0, -height}},
        {{0, -length}, {0, -half}, {0, 0}, {0, 0}},
    };
    QPoint at = starts[rotation][column] + QPoint(60, 50) - corner;
    for (const int code : codesOf(text)) {
        lay(expected, at, code == Missing ? QImage() : pictureOf(code));
        const QPoint steps[] = {{sizeOf(code).width(), 0},
                                {0, sizeOf(code).height()},
                                {-sizeOf(code).width(), 0},
                                {0, -sizeOf(code).height()}};
        at += steps[rotation];
    }
    WorkSurface.fill(Mark);
    DrawGroupInRect(0, 3, {corner, QSize(40, 40)});
    EXPECT_EQ(WorkSurface, expected);

    StoreWord(Hide, 1);
    DrawGroupInRect(0, 3, {0, 0, 40, 40});
    EXPECT_EQ(WorkSurface, expected);
    EXPECT_EQ(PngNumberWidthMemory[0], 0);
}

INSTANTIATE_TEST_SUITE_P(Turns, PngNumbersInGroups,
                         ::testing::Combine(::testing::Range(0, 4),
                                            ::testing::Values(Alignment::Left, Alignment::Centre,
                                                              Alignment::Right, Aside),
                                            ::testing::Values("-12.8", "0.4", "375.1")));

} // namespace
} // namespace panel
