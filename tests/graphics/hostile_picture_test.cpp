// Broken and hostile pictures, the very last bytes of an image, and the cache of decoded pictures.
#include "graphics/image_blit.h"
#include "graphics/picture_cache.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "tests/graphics/flash_bytes.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

namespace panel {
namespace {

class HostilePictures : public ::testing::Test {
protected:
    HostilePictures() {
        ColourMode = 0;
        ICType = 6;
        DisplayWidth = 20;
        DisplayHeight = 10;
        MakeSurfaces({20, 10});
        for (QImage* surface : {&FrameSurface, &WorkSurface, &PageBackground, &BaseSurface})
            surface->fill(Qt::white);
        PageImage = {.Address = 0xFFFFFFFF};
    }

    /// Puts a picture of 3 x 2 pixels on the work surface.
    static BlitResult blit(std::uint8_t pictureFormat, std::uint32_t extra = 0) {
        return BlitImage(WorkSurface, {0, 0}, {.Address = 0, .Extra = extra, .Format = pictureFormat},
                         {0, 0, 3, 2}, 3);
    }
    static bool shows(const QImage& surface, QSize size, QColor colour) {
        QImage expected(size, surface.format());
        expected.fill(colour);
        return surface.copy(QRect({0, 0}, size)) == expected;
    }
};

TEST_F(HostilePictures, HugeClaimsCostNoTime) {
    const auto start = std::chrono::steady_clock::now();
    const std::vector<ZipSegment> endless(255, {.Coding = 1, .Data = {}, .Length = 0xFFFFFF});
    LoadBytes(ZipBytes{{4096, 4096}, 3, endless}.build());
    EXPECT_EQ(blit(format::ZipImage), BlitResult::Done);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_TRUE(shows(WorkSurface, {3, 2}, Qt::black));

    LoadBytes(ZipBytes{{65535, 65535}, 3, {{.Data = {1}}}}.build());
    EXPECT_EQ(blit(format::ZipImage), BlitResult::BadData) << "more pixels than any panel has";
    for (const QSize empty : {QSize(0, 5), QSize(5, 0)}) {
        LoadBytes(ZipBytes{empty, 4, {{.Data = {1}}}}.build());
        EXPECT_EQ(blit(format::ZipImage), BlitResult::Done);
        DrawImage(FrameSurface, {0, 0}, {.Address = 0, .Format = format::ZipImage}, Backdrop::Page);
    }
    EXPECT_TRUE(shows(FrameSurface, {20, 10}, Qt::white));
}

TEST_F(HostilePictures, TheLastRowOfAnImageIsReadToItsLastByte) {
    for (const std::uint8_t imageFormat : {0, 1, 2, 6, 8})
        for (int width = 1; width < 20; ++width) {
            const int bytes = imageFormat == 6 ? 4 : imageFormat == 8 ? 3 : 2;
            LoadBytes(Bytes(static_cast<std::size_t>(width * bytes), 0xFF));
            FrameSurface.fill(Qt::black);
            BlitImage(FrameSurface, {0, 0}, {.Address = 0, .Format = imageFormat}, {0, 0, width, 1}, width);
            EXPECT_TRUE(shows(FrameSurface, {width, 1}, Qt::white)) << int{imageFormat} << ' ' << width;
        }
}

TEST_F(HostilePictures, AnythingCanBeAPicture) {
    std::mt19937 generator(11);
    const auto number = [&] {
        return static_cast<int>(generator() % 3 ? generator() % 70000 : generator() % 40);
    };
    for (int trial = 0; trial < 4000; ++trial) {
        Bytes flash(generator() % 3000);
        for (auto& byte : flash) byte = static_cast<std::uint8_t>(generator());
        if (flash.size() > 8 && trial % 2)
            std::ranges::copy(Bytes{'Z', 'R', 9, 0, 9, 0, 2, 4}, flash.begin());
        LoadBytes(flash);
        ICType = static_cast<std::uint8_t>(generator() % 7);
        ColourMode = static_cast<std::uint8_t>(generator() % 3);
        NandFlash = generator() % 2;
        const std::uint32_t address = trial % 2 ? 0 : static_cast<std::uint32_t>(generator());
        const ImageRow row{address, static_cast<std::uint16_t>(number()),
                           static_cast<std::uint16_t>(number()), static_cast<std::uint32_t>(generator() >> 8),
                           static_cast<std::uint8_t>(generator() % 18)};
        PageImage = row;
        PageImage.Format = static_cast<std::uint8_t>(generator() % 18);
        const QPoint at = trial % 3 ? QPoint(1, 1) : QPoint(number() - 30, static_cast<int>(generator()));
        const QRect source(number(), number(), number(), number());
        BlitImage(FrameSurface, at, row, source, number());
        DrawImage(FrameSurface, at, row, static_cast<Backdrop>(generator() % 8));
        RestoreFrameRect({1, 1}, row, source, number());
        RestoreWorkRect(at, source);
    }
}

TEST_F(HostilePictures, APngThatCannotBeLoadedIsBlackOrLeavesTheBackdrop) {
    Bytes png = PngBytes(QImage(1, 1, QImage::Format_RGB32));
    png[16] = 0x7F; // a width of two thousand million pixels
    LoadBytes(png);
    blit(format::PngAlpha, static_cast<std::uint32_t>(png.size()));
    EXPECT_TRUE(shows(WorkSurface, {3, 2}, Qt::white));
    blit(format::PngOpaque, static_cast<std::uint32_t>(png.size()));
    EXPECT_TRUE(shows(WorkSurface, {3, 2}, Qt::black));
}

TEST(PictureCache, KeepsWithinItsBytesWhatWasUsedLast) {
    PictureCache cache(3 * 4096 + 4 * 256);
    int decoded = 0;
    const auto get = [&](std::uint32_t address, int side = 32) {
        const int before = decoded;
        const QImage picture = cache.picture({.Address = address}, [&] {
            ++decoded;
            return side > 0 ? QImage(side, side, QImage::Format_RGB32) : QImage();
        });
        EXPECT_EQ(picture.width(), side);
        EXPECT_LE(cache.bytes(), std::size_t{3 * 4096 + 4 * 256});
        return decoded == before; // a hit
    };
    for (const std::uint32_t address : {1, 2, 3}) EXPECT_FALSE(get(address));
    EXPECT_TRUE(get(1));
    EXPECT_FALSE(get(4)); // pushes 2 out
    EXPECT_TRUE(get(1) && get(3) && get(4));
    EXPECT_FALSE(get(2));
    EXPECT_FALSE(get(9, 100)); // too large to keep, and pushes nothing out
    EXPECT_FALSE(get(9, 100));
    EXPECT_TRUE(get(2));
    EXPECT_FALSE(get(5, 0));
    EXPECT_TRUE(get(5, 0)) << "that a picture is broken is remembered";
    const PictureKey otherKind{.Address = 2, .kind = PictureKey::Kind::Zip};
    EXPECT_TRUE(cache.picture(otherKind, [] { return QImage(); }).isNull());
    cache.setLimit(5000);
    EXPECT_LE(cache.bytes(), 5000U);
    cache.clear();
    EXPECT_FALSE(get(2));
}

} // namespace
} // namespace panel
