// The three text entries in all encodings, and texts and fonts that mean harm.
#include "graphics/text.h"

#include "graphics/primitives.h"
#include "host/config_block.h"
#include "imagekit/font.h"
#include "tests/golden.h"
#include "tests/panel_test.h"

#include <cstring>

namespace panel {
namespace {

using imagekit::FontKind;
using imagekit::FontShape;

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

Encoding encodingOf(FontKind kind) {
    using enum Encoding;
    return std::array{Gb2312, Gbk, Big5, Ascii, Wide, Proportional, Sparse}[static_cast<std::size_t>(kind)];
}

/// All that a text entry is told but the place.
struct TextCase {
    TextStyle style;
    TextBackground background;
    std::vector<std::uint8_t> text;
    TextMode mode = TextMode::Draw;
};

/// Apart from that of other seeds at every place.
QImage ground(int seed) {
    QImage picture = Pattern(Screen.width(), Screen.height());
    picture.fill(QColor(60 * seed, 40, 200 - 40 * seed));
    for (int i = 0; i < Screen.width(); i += 6 + seed)
        QPainter(&picture).fillRect(i, 0, 1, 60, qRgb(0, 3 * i, 90));
    for (int i = 0; i < Screen.height(); i += 7 + seed)
        QPainter(&picture).fillRect(0, i, 72, 1, qRgb(4 * i, 0, 90));
    return picture;
}

class Text : public PanelTest {
protected:
    /// A panel with one font, number 0, and a page and pictures that can lie behind a text.
    void bootWithFont(const FontShape& shape, const imagekit::StoredFont& font, int colourMode = 1) {
        shape_ = shape;
        imagekit::ImageBuilder image({.Width = static_cast<std::uint16_t>(Screen.width()),
                                      .Height = static_cast<std::uint16_t>(Screen.height()),
                                      .ColourMode = static_cast<std::uint8_t>(colourMode)});
        image.addPage(imagekit::Pixels{ground(0), imagekit::format::RGB565});
        for (const int format : {0, 1, 6}) {
            QImage picture = ground(1);
            picture.setAlphaChannel(ground(2));
            image.addPicture(imagekit::Pixels{picture, static_cast<std::uint8_t>(format)});
        }
        image.addPicture(imagekit::Solid{40, 40, Qt::magenta});
        image.addFont(font);
        ASSERT_EQ(boot(image), StartResult::Running);
    }

    /// The font's glyphs are filled and `width` wide.
    TextStyle bootFilled(const FontShape& shape, std::uint8_t width) {
        const std::vector<std::uint8_t> full(std::size_t{shape.Width} * shape.Height, 0xFF);
        bootWithFont(shape, EncodeFont(shape, [&](std::uint16_t) { return imagekit::Glyph{width, full}; }));
        TextStyle style{.font = TableFont(0), .anchor = 3, .colour = 0x0000FF};
        style.font.encoding = encodingOf(shape.Kind);
        return style;
    }

    int random(int low, int high) { return low + static_cast<int>(random_() % unsigned(high - low + 1)); }
    std::uint8_t byte(int low, int high) { return static_cast<std::uint8_t>(random(low, high)); }

    void append(std::vector<std::uint8_t>& text, std::uint16_t code) const {
        const bool byteCode = code < 0x100 && !HasWideUnits(encodingOf(shape_.Kind));
        if (!byteCode) text.push_back(static_cast<std::uint8_t>(code >> 8));
        text.push_back(static_cast<std::uint8_t>(code));
    }

    std::uint16_t randomCode() {
        if (random(0, 9) == 0) return 10;
        if (random(0, 2) == 0) return byte(0x20, 0x7E);
        const auto pair = [&](int firstLead, int lastLead, int firstSecond, int lastSecond) {
            return static_cast<std::uint16_t>(random(firstLead, lastLead) << 8
                                              | random(firstSecond, lastSecond));
        };
        switch (shape_.Kind) {
        case FontKind::Gb2312: return pair(0xA1, 0xFE, 0xA1, 0xFE);
        case FontKind::Gbk: return pair(0x81, 0xFE, 0x80, 0xFE);
        case FontKind::Big5: return pair(0xA1, 0xFE, 0x40, 0xFF);
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

    TextCase randomCase() {
        TextCase made{.style = {.font = TableFont(0)}, .background = {}, .text = randomText()};
        made.style.font.encoding = encodingOf(shape_.Kind);
        made.style.anchor = byte(0, 8);
        made.style.opaque = random(0, 1) == 1;
        made.style.colour = static_cast<std::uint32_t>(random(0, 0xFFFFFF));
        made.style.backColour = static_cast<std::uint32_t>(random(0, 0xFFFFFF));
        made.style.charSpacing = byte(0, 3);
        made.style.lineSpacing = byte(0, 4);
        made.mode = random(0, 2) ? TextMode::Draw : random(0, 2) ? TextMode::Masked : TextMode::Measure;
        Rotation = random(0, 2) == 0 ? byte(0, 3) : std::uint8_t{0};
        made.background.source = static_cast<BackSource>(random(0, 2));
        static_cast<ImageRow&>(made.background.image) = TableImageRow(byte(0, 3));
        made.background.image.OriginX = byte(0, 9);
        made.background.image.OriginY = byte(0, 9);
        return made;
    }

    std::mt19937 random_{20261122};
    FontShape shape_;
};

/// A surface below a line of pixels that tell the width of the last text.
QImage withWidth(const QImage& surface) {
    QImage cell(Screen + QSize(0, 1), QImage::Format_ARGB32_Premultiplied);
    cell.fill(0xFF000000 | LastTextWidth);
    QPainter(&cell).drawImage(0, 1, surface);
    return cell;
}

/// A row of texts for each kind and depth of fonts: on the frame and on a list, then as they are composed.
TEST_F(Text, LooksAsItDid) {
    constexpr int boxed = 36, composed = 20;
    Sheet sheet(Screen + QSize(0, 1), boxed + composed, 21);
    for (int row = 0; row < 21; ++row) {
        const FontShape shape = shapeOf(static_cast<FontKind>(row / 3), 1 << row % 3, 7 + row % 5 * 3);
        bootWithFont(shape, SyntheticFont(shape), row % 2);
        for (int i = 0; i < boxed + composed; ++i) {
            FrameSurface = ListSurfaceA = WorkSurface = ground(3).convertToFormat(FrameSurface.format());
            TextSurface = ListSurfaceB = ground(4).convertToFormat(FrameSurface.format());
            TextCase made = randomCase();
            LastTextWidth = 0xFFFF;
            if (i < boxed) {
                TextBox box{random(-5, 40), random(-5, 30), 0, 0};
                box.x2 = box.x1 + random(-1, 50);
                box.y2 = box.y1 + random(-1, 40);
                const auto draw = i % 2 ? DrawTextList : DrawTextFrame;
                const int width = draw(made.style, made.background, box, made.text, made.mode);
                EXPECT_EQ(width, width ? LastTextWidth : 0);
                sheet.add(withWidth(i % 4 == 1 ? ListSurfaceA : FrameSurface)); // a list cleans there too
            } else {
                made.style.anchor = byte(0, 11);
                DrawTextWork(made.style, QRect(random(-5, 40), random(-5, 40), random(0, 50), random(0, 50)),
                             made.text, made.mode == TextMode::Masked);
                sheet.add(withWidth(WorkSurface));
            }
        }
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "graphics/golden/texts.png"));
}

TEST_F(Text, AnUnknownDepthLeavesCellsEmptyOnTheFrameAndCountsAsOneBitInGroups) {
    const TextStyle style = bootFilled(shapeOf(FontKind::Ascii, 1, 8), 8);
    FlashImage.data[style.font.address + 8] = 3;
    FrameSurface.fill(Qt::red);
    const std::uint8_t text[] = {'A'};
    DrawTextFrame(style, {}, {10, 10, 30, 15}, text);
    EXPECT_EQ(FrameSurface.copy(10, 10, 21, 6), PageBackground.copy(10, 10, 21, 6));
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
    bootWithFont(shapeOf(FontKind::Ascii, 1), imagekit::SyntheticFont({}));
    for (int round = 0; round < 3000; ++round) {
        auto address = static_cast<std::uint32_t>(random(0, FlashImage.size + 50));
        if (random(0, 20) == 0) address = 0xFFFFFFFF - byte(0, 200);
        scribbleFont(address, random_);
        TextCase made = randomCase();
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
