// The three text entries against the plain definition, and the places where they differ from each other.
#include "tests/graphics/plain_text.h"
#include "tests/panel_test.h"

#include "graphics/primitives.h"
#include "host/config_block.h"

#include <cstring>

namespace panel {
namespace {

constexpr QSize Screen(72, 60);
constexpr std::uint16_t FirstWide = 0x4E00, LastWide = 0x4E40;

FontShape shapeOf(FontKind kind, int depth, int width = 7, int height = 6) {
    FontShape shape{.Kind = kind,
                    .Width = static_cast<std::uint8_t>(width),
                    .Height = static_cast<std::uint8_t>(height),
                    .Depth = static_cast<std::uint8_t>(depth),
                    .FirstCode = FirstWide,
                    .LastCode = LastWide};
    if (kind == FontKind::Sparse) {
        for (std::uint16_t code = 0x20; code < 0x7F; ++code) shape.Codes.push_back(code);
        for (int i = 0; i < 300; ++i) shape.Codes.push_back(static_cast<std::uint16_t>(0x9000 + 7 * i));
    }
    return shape;
}

class TextTest : public PanelTest {
protected:
    /// A panel with one font, number 0, and noise on its page and on everything that can lie behind a text.
    void bootWithFont(const FontShape& shape, int colourMode = 1) {
        shape_ = shape;
        imagekit::ImageBuilder image({.Width = static_cast<std::uint16_t>(Screen.width()),
                                      .Height = static_cast<std::uint16_t>(Screen.height()),
                                      .ColourMode = static_cast<std::uint8_t>(colourMode)});
        image.addPage(imagekit::Pixels{noise(false), imagekit::format::RGB565});
        for (const int format : {0, 1, 6})
            image.addPicture(imagekit::Pixels{noise(format == 6), static_cast<std::uint8_t>(format)});
        image.addPicture(imagekit::Solid{40, 40, Qt::magenta});
        image.addFont(imagekit::SyntheticFont(shape));
        ASSERT_EQ(boot(image), StartResult::Running);
        TextSurface = noise(true);
        ListSurfaceA = noise(true);
        ListSurfaceB = noise(true);
    }

    int random(int low, int high) { return std::uniform_int_distribution<>(low, high)(random_); }
    std::uint8_t byte(int low, int high) { return static_cast<std::uint8_t>(random(low, high)); }

    QImage noise(bool alpha) {
        QImage picture(Screen, QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixelColor(
                    x, y,
                    QColor(random(0, 255), random(0, 255), random(0, 255), alpha ? random(0, 255) : 255));
        return picture;
    }

    PlainText plain(std::vector<std::uint8_t> text = {}) const {
        PlainText made{
            .shape = shape_, .style = {.font = TableFont(0)}, .background = {}, .text = std::move(text)};
        made.style.font.encoding = EncodingOf(shape_.Kind);
        made.style.colour = 0xF81F;
        made.style.backColour = 0x07E0;
        return made;
    }

    void append(std::vector<std::uint8_t>& text, std::uint16_t code) const {
        const bool byteCode = code < 0x100 && !HasWideUnits(EncodingOf(shape_.Kind));
        if (!byteCode) text.push_back(static_cast<std::uint8_t>(code >> 8));
        text.push_back(static_cast<std::uint8_t>(code));
    }

    std::uint16_t randomCode() {
        if (random(0, 9) == 0) return 10;
        if (random(0, 2) == 0) return byte(0x20, 0x7E);
        const auto pair = [&](int lead, int second) {
            return static_cast<std::uint16_t>(lead << 8 | second);
        };
        switch (shape_.Kind) {
        case FontKind::Gb2312: return pair(random(0xA1, 0xFE), random(0xA1, 0xFE));
        case FontKind::Gbk: {
            const int second = random(0x40, 0xFE);
            return pair(random(0x81, 0xFE), second == 0x7F ? 0x80 : second);
        }
        case FontKind::Big5: return pair(random(0xA1, 0xFE), random(0x40, 0xFF));
        case FontKind::Wide:
        case FontKind::Proportional: return static_cast<std::uint16_t>(random(FirstWide, LastWide));
        case FontKind::Sparse: return shape_.Codes[static_cast<std::size_t>(random(0, 394))];
        case FontKind::Ascii: break;
        }
        return byte(0x20, 0x7E);
    }

    /// Mostly sound, now and then with something in it that ends it.
    std::vector<std::uint8_t> randomText() {
        std::vector<std::uint8_t> text;
        for (int left = random(0, 24); left > 0; --left) append(text, randomCode());
        static const std::vector<std::vector<std::uint8_t>> breaks = {
            {0},          {0, 0}, {0x80, 0x41}, {0xFF, 0x40}, {0xFF, 0x20}, {0xA0, 0xA1}, {0xFE},
            {0x4E, 0x41}, {0x80}, {0x81, 0x3F}, {0xFF, 0x3F}, {0, 0x7F},    {0, 0x81}};
        if (random(0, 2) == 0) {
            const auto& broken = breaks[static_cast<std::size_t>(random(0, 12))];
            text.insert(text.end(), broken.begin(), broken.end());
        }
        return text;
    }

    PlainText randomPlain() {
        PlainText made = plain(randomText());
        constexpr TextMode modes[] = {TextMode::Draw, TextMode::Draw, TextMode::Masked, TextMode::Measure};
        made.mode = modes[random(0, 3)];
        made.style.anchor = byte(0, 8);
        made.style.opaque = random(0, 1) == 1;
        made.style.colour = static_cast<std::uint32_t>(random(0, 0xFFFFFF));
        made.style.backColour = static_cast<std::uint32_t>(random(0, 0xFFFFFF));
        made.style.charSpacing = byte(0, 3);
        made.style.lineSpacing = byte(0, 4);
        Rotation = random(0, 2) == 0 ? byte(0, 3) : std::uint8_t{0};
        made.background.source = static_cast<BackSource>(random(0, 2));
        static_cast<ImageRow&>(made.background.image) = TableImageRow(byte(0, 3));
        made.background.image.OriginX = byte(0, 9);
        made.background.image.OriginY = byte(0, 9);
        return made;
    }

    /// Both ways on the same surfaces; the pictures and widths must be the same.
    template <class Draw, class DrawPlainly>
    void compare(const Draw& draw, const DrawPlainly& drawPlainly) {
        const std::vector<QImage*> surfaces = {&FrameSurface, &ListSurfaceA, &WorkSurface};
        const std::size_t compared = workMatters_ ? 3 : 2;
        const auto take = [&] { return std::vector<QImage>{FrameSurface, ListSurfaceA, WorkSurface}; };
        const auto before = take();
        LastTextWidth = 0xFFFF;
        const int result = draw();
        const std::uint16_t width = LastTextWidth;
        const auto drawn = take();
        for (std::size_t i = 0; i < surfaces.size(); ++i) *surfaces[i] = before[i];
        LastTextWidth = 0xFFFF;
        EXPECT_EQ(result, drawPlainly());
        EXPECT_EQ(width, LastTextWidth);
        for (std::size_t i = 0; i < compared; ++i) EXPECT_EQ(drawn[i], *surfaces[i]) << "surface " << i;
    }

    std::mt19937 random_{20261122};
    FontShape shape_;
    bool workMatters_ = false;
};

using FontCase = std::tuple<int, int, int>; // kind, depth, colour mode
class TextOf : public TextTest, public ::testing::WithParamInterface<FontCase> {
protected:
    void SetUp() override {
        const auto [kind, depth, colourMode] = GetParam();
        bootWithFont(shapeOf(static_cast<FontKind>(kind), depth), colourMode);
    }
};

TEST_P(TextOf, EqualsThePlainDefinitionOnFrameAndList) {
    for (int round = 0; round < 400 && !HasFailure(); ++round) {
        const PlainText made = randomPlain();
        TextBox box{random(-5, 40), random(-5, 30), 0, 0};
        box.x2 = box.x1 + random(-1, 50);
        box.y2 = box.y1 + random(-1, 40);
        const bool list = random(0, 1) == 1;
        SCOPED_TRACE(round);
        compare(
            [&] {
                return (list ? DrawTextList : DrawTextFrame)(made.style, made.background, box, made.text,
                                                             made.mode);
            },
            [&] { return PlainText(made).drawInBox(box, list); });
    }
}

TEST_P(TextOf, EqualsThePlainDefinitionOnTheWorkSurface) {
    workMatters_ = true;
    for (int round = 0; round < 400 && !HasFailure(); ++round) {
        PlainText made = randomPlain();
        made.style.anchor = byte(0, 11);
        made.style.lineSpacing = 9; // plays no part
        const QRect box(random(-5, 40), random(-5, 40), random(0, 50), random(0, 50));
        SCOPED_TRACE(round);
        const bool masked = made.mode == TextMode::Masked;
        compare([&] { return DrawTextWork(made.style, box, made.text, masked), 0; },
                [&] { return PlainText(made).drawOnWork(box), 0; });
    }
}

INSTANTIATE_TEST_SUITE_P(Fonts, TextOf,
                         ::testing::Combine(::testing::Range(0, 7), ::testing::Values(1, 2, 4),
                                            ::testing::Values(0, 1)));

class Text : public TextTest {
protected:
    /// A panel with a font all of whose glyphs are filled and `width` wide.
    TextStyle bootFilled(const FontShape& shape, std::uint8_t width) {
        shape_ = shape;
        const std::vector<std::uint8_t> full(std::size_t{shape.Width} * shape.Height, 0xFF);
        imagekit::ImageBuilder image({.Width = 72, .Height = 60, .ColourMode = 1});
        image.addPage(imagekit::Solid{72, 60, Qt::white});
        image.addFont(imagekit::EncodeFont(shape, [&](std::uint16_t) {
            return imagekit::Glyph{width, full};
        }));
        EXPECT_EQ(boot(image), StartResult::Running);
        TextStyle style{.font = TableFont(0), .anchor = 3, .colour = 0x0000FF};
        style.font.encoding = EncodingOf(shape.Kind);
        return style;
    }
};

TEST_F(Text, AnUnknownDepthLeavesCellsEmptyOnTheFrameAndCountsAsOneBitInGroups) {
    const TextStyle style = bootFilled(shapeOf(FontKind::Ascii, 1, 8), 8);
    FlashImage.data[style.font.address + 8] = 3;
    FrameSurface.fill(Qt::red);
    const std::uint8_t text[] = {'A'};
    DrawTextFrame(style, {}, {10, 10, 30, 15}, text);
    for (int x = 10; x <= 30; ++x) EXPECT_EQ(FrameSurface.pixelColor(x, 12), QColor(Qt::white)) << x;
    DrawTextWork({.font = style.font, .anchor = 9, .colour = 0x0000FF}, {10, 10, 30, 30}, text);
    EXPECT_EQ(WorkSurface.pixelColor(17, 12), QColor(Qt::blue));
    for (const int nobodys : {5, 7, 8, 10}) {
        TextStyle unknown = style;
        unknown.font.encoding = static_cast<Encoding>(nobodys);
        EXPECT_EQ(DrawTextFrame(unknown, {}, {10, 10, 30, 15}, text, TextMode::Measure), 0) << nobodys;
    }
}

TEST_F(Text, TextsWithoutWidthOrHeightEnd) {
    TextStyle style = bootFilled(shapeOf(FontKind::Ascii, 1, 5), 0);
    const std::vector<std::uint8_t> longText(0xFFFF, 'A');
    for (const std::uint8_t height : {0, 1, 255})
        for (const int width : {-1, 0, 1, 70, 0x10000})
            for (const std::uint8_t spacing : {0, 255}) {
                style.font.height = height;
                style.charSpacing = spacing;
                DrawTextFrame(style, {}, {0, 0, width - 1, 0xFFFF}, longText);
                DrawTextWork(style, {0, 0, width, 0xFFFF}, longText, true);
            }
    EXPECT_EQ(DrawTextFrame({}, {}, {0, 0, 50, 50}, longText), 0) << "a font without height";
}

TEST_F(Text, TheLargestSparseFontIsSearchedToItsEnd) {
    FontShape shape{.Kind = FontKind::Sparse, .Width = 1, .Height = 1};
    for (int code = 0xFFFF; code > 10; --code) shape.Codes.push_back(static_cast<std::uint16_t>(code));
    const TextStyle style = bootFilled(shape, 0);
    std::vector<std::uint8_t> text;
    for (int i = 0; i < 0x1000; ++i) append(text, static_cast<std::uint16_t>(11 + i)); // the last of the list
    EXPECT_EQ(DrawTextFrame(style, {}, {0, 0, 71, 1}, text, TextMode::Measure), 0);
}

/// Random bytes at an address, with a head that names a font there.
void scribbleFont(std::uint32_t address, std::mt19937& random) {
    static constexpr const char* kinds[] = {"GB", "GK", "BG", "AS", "un", "SS", "??"};
    const std::size_t size = static_cast<std::size_t>(FlashImage.size);
    for (std::size_t i = address; i < std::min<std::size_t>(size, address + std::size_t{300}); ++i)
        FlashImage.data[i] = static_cast<std::uint8_t>(random());
    if (address + std::size_t{9} > size) return;
    std::memcpy(&FlashImage.data[address], kinds[random() % 7], 2);
    FlashImage.data[address + 8] = static_cast<std::uint8_t>(random() % 4);
}

TEST_F(Text, HostileFontsAndTextsDoNoHarm) {
    bootWithFont(shapeOf(FontKind::Ascii, 1));
    for (int round = 0; round < 3000; ++round) {
        auto address = static_cast<std::uint32_t>(random(0, FlashImage.size + 50));
        if (random(0, 20) == 0) address = 0xFFFFFFFF - byte(0, 200);
        scribbleFont(address, random_);
        PlainText made = randomPlain();
        made.style.font = FontAt(address);
        made.style.anchor = byte(0, 14);
        if (random(0, 2) == 0) made.style.font.encoding = static_cast<Encoding>(random(0, 10));
        if (random(0, 1) == 0) made.style.font.height = byte(0, 9);
        Rotation = byte(0, 5);
        made.background.image.Address = address;
        made.background.image.Width = byte(0, 255);
        made.background.image.Format = byte(0, 17);
        std::vector<std::uint8_t> text(static_cast<std::size_t>(random(0, 60)));
        for (auto& b : text) b = byte(random(0, 3) == 0 ? 0 : 0x20, 255);
        const TextBox box{random(-90, 90), random(-90, 90), random(-90, 0xFFFF), random(-90, 200)};
        DrawTextFrame(made.style, made.background, box, text, made.mode);
        DrawTextList(made.style, made.background, box, text, made.mode);
        DrawTextWork(made.style, {box.x1, box.y1, box.x2, box.y2}, text, made.mode == TextMode::Masked);
        ASSERT_EQ(FrameSurface.size(), Screen);
    }
}

} // namespace
} // namespace panel
