// Row arithmetic, colours, pixel writers, fills and rectangle copies.
#include "graphics/colour.h"
#include "graphics/image_blit.h"
#include "graphics/image_row.h"
#include "graphics/pixels.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "store/language.h"
#include "tests/graphics/flash_bytes.h"

#include <gtest/gtest.h>

#include <QPainter>

namespace panel {
namespace {

// All pairs of a colour byte and an alpha, in one row.
TEST(PixelRows, PremultiplyAsSetPixelColorDoes) {
    std::vector<Pixel> straight(65536), stored(65536);
    for (std::uint32_t i = 0; i < straight.size(); ++i)
        straight[i] = i << 16 | (i & 0xFF) << 8 | (255 - (i & 0xFF));
    PremultiplyRow(straight.data(), stored.data(), 65536);
    QImage expected(256, 256, QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 65536; ++i) {
        expected.setPixelColor(i % 256, i / 256, QColor::fromRgba(straight[static_cast<std::size_t>(i)]));
        ASSERT_EQ(stored[static_cast<std::size_t>(i)],
                  reinterpret_cast<const Pixel*>(expected.constScanLine(i / 256))[i % 256])
            << i;
    }
}

TEST(Colours, ExpandAsTheImageStoresThem) {
    struct Case {
        std::uint8_t mode;
        std::uint32_t word;
        ColourKind kind;
        QColor expected;
    };
    std::vector<Case> cases = {{0, 0xFF001F, ColourKind::Opaque, {0, 0, 255}},
                               {0, 0x8F0F, ColourKind::WithAlpha, {255, 0, 255, 136}},
                               {1, 0x80123456, ColourKind::Opaque, {0x12, 0x34, 0x56}},
                               {1, 0x80123456, ColourKind::WithAlpha, {0x12, 0x34, 0x56, 0x80}}};
    for (int word = 0; word < 0x10000; ++word) {
        const QColor nearest(((word >> 11) * 255 + 15) / 31, ((word >> 5 & 63) * 255 + 31) / 63,
                             ((word & 31) * 255 + 15) / 31);
        cases.push_back({0, static_cast<std::uint32_t>(word), ColourKind::Opaque, nearest});
    }
    QImage stored(1, 1, QImage::Format_ARGB32_Premultiplied);
    for (const Case& row : cases) {
        ColourMode = row.mode;
        ASSERT_EQ(ExpandColour(row.word, row.kind), row.expected) << row.word;
        stored.setPixelColor(0, 0, row.expected);
        ASSERT_EQ(ExpandPixel(row.word, row.kind), *reinterpret_cast<const Pixel*>(stored.constBits()))
            << row.word;
    }
}

TEST(ImageRows, LieInTheirTablesByLanguage) {
    Bytes flash(200);
    const Bytes row{0x78, 0x56, 0x34, 0x12, 0x20, 0x03, 0xE0, 0x01, 1, 2, 3, 7};
    std::ranges::copy(row, flash.begin() + 100 + 12 * (2 * 3 + 1)); // language 2, index 1 of 3
    LoadBytes(flash);
    Sections = {.PageImageTable = 100 + 12 * 6, .PageCount = 2, .ImageTable = 100, .ImageCount = 3};
    Language = 2;
    const ImageRow expected{0x12345678, 800, 480, 0x030201, 7};
    EXPECT_EQ(TableImageRow(1), expected);
    EXPECT_EQ(PageImageRow(1), expected);
    EXPECT_EQ(TableImageRow(3), ImageRow());
    EXPECT_EQ(PageImageRow(2), ImageRow());
    Sections.ImageCount = 0xFFFFFFFF;
    EXPECT_EQ(TableImageRow(0xFFFF).Format, 0) << "beyond the end: zero bytes";
}

class Surfaces : public ::testing::Test {
protected:
    Surfaces() {
        ColourMode = 0;
        ICType = 6;
        MakeSurfaces({40, 30});
        WorkSurface.fill(QColor(90, 130, 170, 200));
    }
};

TEST_F(Surfaces, CopiesToTheFrameAreCutOnSmallChipsUnlessAnOpaqueZipWasDecoded) {
    struct Case {
        std::uint8_t chip, zipModeBefore, rows, zipModeAfter;
    };
    for (const Case& row : {Case{0, 5, 133, 0}, {2, 0, 133, 0}, {2, 3, 200, 3}, {3, 5, 200, 5}}) {
        MakeSurfaces({300, 240});
        WorkSurface.fill(Qt::white);
        ICType = row.chip;
        LastZipMode = row.zipModeBefore;
        CopyToFrame(WorkSurface, {0, 0, 300, 200}, {0, 0});
        EXPECT_EQ(FrameSurface.pixel(299, row.rows - 1), 0xFFFFFFFF) << int{row.chip};
        EXPECT_EQ(FrameSurface.pixel(0, row.rows), 0xFF000000) << int{row.chip};
        EXPECT_EQ(LastZipMode, row.zipModeAfter) << int{row.chip};
    }
    EXPECT_EQ(SmallChipHeight(400, 101), 100);
    EXPECT_EQ(SmallChipHeight(65535, 65535), 0);
}

TEST_F(Surfaces, WritersReplaceBlendAndClip) {
    QImage expected = WorkSurface;
    PlotWork(3, 4, 0x0001);
    expected.setPixelColor(3, 4, QColor(0, 0, 8));
    PlotCoverage(5, 4, 0.5F, 0xF800);
    const QPoint point(5, 4);
    QPainter painter(&expected);
    painter.setPen(QColor(255, 0, 0, 127));
    painter.drawPoints(&point, 1);
    painter.end();
    PlotCoverage(6, 4, 0.0F, 0xF800);
    PlotCoverage(7, 4, 1.0F, 0xFFFF);
    expected.setPixelColor(7, 4, Qt::white);
    for (const QPoint outside : {QPoint(-1, 0), {0, -1}, {40, 0}, {0, 30}, {65535, 65535}})
        PlotWork(outside.x(), outside.y(), 0xFFFF);
    FillWorkRect({-5, 20, 10, 100}, 0xF800);
    FillWorkRect({10, 10, 0, 5}, 0xF800);
    FillWorkRect({10, 10, 5, -3}, 0xF800);
    QPainter(&expected).fillRect(0, 20, 5, 10, QColor(255, 0, 0));
    EXPECT_EQ(WorkSurface, expected);
}

TEST_F(Surfaces, AWriteLeavesTheWindowsCopyOfTheFrameAlone) {
    const QImage shown = FrameSurface, before = shown.copy();
    FillFrameRect({0, 0, 40, 30}, 0);
    EXPECT_EQ(shown, before);
    const auto key = FrameSurface.cacheKey();
    FillFrameRect({40, 0, 5, 5}, 0);
    EXPECT_EQ(FrameSurface.cacheKey(), key) << "nothing was drawn, so the frame has not changed";
}

} // namespace
} // namespace panel
