// The fonts of the program, and the text of the error screen.
#include "graphics/ascii_fonts.h"

#include "host/config_block.h"
#include "tests/golden.h"
#include "tests/panel_test.h"

#include <numeric>

namespace panel {
namespace {

class AsciiText : public PanelTest {};

/// All characters in all sizes, on a colour and on the page. A line goes on at the left edge, and ends at the
/// bottom edge and at a character that the fonts lack; heights between theirs draw nothing.
TEST_F(AsciiText, LooksAsItDid) {
    boot(ColouredPages({Qt::white}, {.Width = 320, .Height = 360, .ColourMode = 1}));
    FrameSurface.fill(Qt::red);
    std::string characters(95, ' ');
    std::iota(characters.begin(), characters.end(), ' ');
    int y = 0;
    for (const int height : {0, 8, 12, 16, 20, 24, 32, 48}) {
        const auto background = height % 16 == 0 ? AsciiBackground::Page : AsciiBackground::Colour;
        DrawAsciiText({40, y}, height, background, 0x0000FF, 0x00FF00, characters + "\nlost");
        const int lines = height * 95 / 640 + 1;
        if (FindAsciiFont(height)) y += height * lines;
    }
    DrawAsciiText({296, 340}, 16, AsciiBackground::Colour, 0x0000FF, 0x00FF00, "end of the panel");
    EXPECT_TRUE(EqualsGolden(FrameSurface, "graphics/golden/ascii.png"));
}

TEST_F(AsciiText, TheErrorScreenTellsThatTheImageIsIllegal) {
    Sheet sheet({200, 40}, 2, 2);
    for (const std::uint8_t colourMode : {0, 1})
        for (const bool hasPicture : {false, true}) { // the page behind the text
            imagekit::ImageBuilder image({.ColourMode = colourMode});
            image.addPage(hasPicture ? imagekit::Picture(imagekit::Solid{800, 480, Qt::blue})
                                     : imagekit::Picture());
            image.patch(ConfigBlockAddress + 0x10, {0x21}); // the check does not hold any more
            EXPECT_EQ(boot(image), StartResult::Illegal);
            sheet.add(outputs.frame);
        }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "graphics/golden/illegal.png"));
}

} // namespace
} // namespace panel
