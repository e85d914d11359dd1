// The fonts of the program, and the text of the error screen.
#include "graphics/ascii_fonts.h"
#include "tests/panel_test.h"

#include "host/config_block.h"

#include <set>

namespace panel {
namespace {

class AsciiText : public PanelTest {
protected:
    void SetUp() override {
        boot(ColouredPages({Qt::white}));
        FrameSurface.fill(Qt::red);
    }
    /// Whether the frame has the character on `back`, and nothing else, at this place.
    static bool stands(char character, int height, QPoint at, QColor back, QColor ink = Qt::blue) {
        const AsciiFont& font = *FindAsciiFont(height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < font.width; ++x)
                if (FrameSurface.pixelColor(at + QPoint(x, y)) != (isSet(font, character, x, y) ? ink : back))
                    return false;
        return true;
    }
    static bool isSet(const AsciiFont& font, char character, int x, int y) {
        if (x < 0 || y < 0 || x >= font.width || y >= font.height) return false;
        return font.glyph(character)[static_cast<std::size_t>(y * font.rowBytes() + x / 8)] & 0x80 >> x % 8;
    }
};

TEST_F(AsciiText, EveryHeightHasAllCharactersEachDifferent) {
    std::size_t sizes = 0;
    for (const int height : {12, 16, 24, 32}) {
        const AsciiFont* font = FindAsciiFont(height);
        ASSERT_TRUE(font);
        EXPECT_EQ(font->width, height / 2);
        sizes += font->glyphs.size();
        std::set<std::vector<std::uint8_t>> looks;
        for (int c = 0x20; c <= 0x7E; ++c) {
            const auto glyph = font->glyph(static_cast<char>(c));
            looks.emplace(glyph.begin(), glyph.end());
            EXPECT_EQ(std::ranges::any_of(glyph, [](int byte) { return byte != 0; }), c != ' ') << c;
        }
        EXPECT_EQ(looks.size(), 95u);
    }
    EXPECT_EQ(sizes, 1140u + 1520 + 4560 + 6080);
    for (const int height : {0, 8, 20, 48}) EXPECT_FALSE(FindAsciiFont(height));
}

TEST_F(AsciiText, LargeFontsAreTheSmallOnesDoubledWithSmoothSteps) {
    for (const int height : {12, 16}) {
        const AsciiFont &small = *FindAsciiFont(height), &large = *FindAsciiFont(2 * height);
        for (char c = 0x20; c <= 0x7E; ++c)
            for (int y = 0; y < large.height; ++y)
                for (int x = 0; x < large.width; ++x) {
                    const int nextX = x / 2 + (x & 1 ? 1 : -1), nextY = y / 2 + (y & 1 ? 1 : -1);
                    const bool step = isSet(small, c, nextX, y / 2) && isSet(small, c, x / 2, nextY)
                                      && !isSet(small, c, nextX, nextY);
                    ASSERT_EQ(isSet(large, c, x, y), isSet(small, c, x / 2, y / 2) || step)
                        << c << x << ' ' << y;
                }
    }
}

TEST_F(AsciiText, WrapsToTheLeftEdgeAndStopsAtTheBottomAndAtWhatTheFontsLack) {
    DrawAsciiText({40, 4}, 16, AsciiBackground::Colour, 0x0000FF, 0x00FF00, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const std::pair<char, QPoint> shown[] = {{'A', {40, 4}}, {'C', {56, 4}}, {'D', {0, 20}}, {'K', {56, 20}}};
    for (const auto& [character, at] : shown)
        EXPECT_TRUE(stands(character, 16, at, QColor(0, 255, 0))) << character;
    EXPECT_EQ(FrameSurface.pixelColor(0, 36), QColor(Qt::red)) << "4 + 3 x 16 is more than 48";

    FrameSurface.fill(Qt::red);
    DrawAsciiText({0, 0}, 12, AsciiBackground::Page, 0x0000FF, 0, "ab\nc");
    DrawAsciiText({20, 20}, 20, AsciiBackground::Colour, 0x0000FF, 0x00FF00, "A");
    EXPECT_TRUE(stands('a', 12, {0, 0}, Qt::white)) << "the page shows through";
    EXPECT_TRUE(stands('b', 12, {6, 0}, Qt::white));
    for (const QPoint nothing : {QPoint(12, 0), QPoint(20, 20)})
        EXPECT_EQ(FrameSurface.pixelColor(nothing), QColor(Qt::red));
}

TEST_F(AsciiText, TheErrorScreenTellsThatTheImageIsIllegal) {
    for (const std::uint8_t colourMode : {0, 1})
        for (const bool hasPicture : {false, true}) { // the page behind the text
            imagekit::ImageBuilder image({.ColourMode = colourMode});
            image.addPage(hasPicture ? imagekit::Picture(imagekit::Solid{800, 480, Qt::blue})
                                     : imagekit::Picture());
            image.patch(ConfigBlockAddress + 0x10, {0x21}); // the check does not hold any more
            EXPECT_EQ(boot(image), StartResult::Illegal);
            const QColor empty(0, 0xA2, 0xFF), back = hasPicture ? QColor(Qt::blue) : empty;
            for (int i = 0; const char character : std::string("Illegal UI file"))
                EXPECT_TRUE(stands(character, 24, {12 * i++, 10}, back, Qt::red)) << character;
            EXPECT_EQ(outputs.frame.pixelColor(180, 10), empty);
        }
}

} // namespace
} // namespace panel
