// Compressed and PNG pictures: the cases of the format, broken and hostile data, and the cache.
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

constexpr QRgb Black = 0xFF000000, Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF,
               White = 0xFFFFFFFF;
constexpr ImageRow Zip{.Address = 0, .Width = 3, .Height = 2, .Format = format::ZipImage};

class Decoding : public ::testing::Test {
protected:
    Decoding() {
        ColourMode = 0;
        ICType = 6;
        DisplayWidth = 20;
        DisplayHeight = 10;
        MakeSurfaces({20, 10});
        for (QImage* surface : {&FrameSurface, &WorkSurface, &PageBackground, &BaseSurface})
            surface->fill(Qt::white);
        PageImage = {.Address = 0xFFFFFFFF};
    }

    static ZipSegment segment(int coding, const Bytes& data) {
        ZipSegment made{.Coding = coding, .Data = data};
        made.Palette[1] = 0xF800;
        made.Palette[2] = 0x07E0;
        return made;
    }
    void load(int mode, std::vector<ZipSegment> segments, QSize size = {3, 2}) {
        LoadBytes(ZipBytes{size, mode, std::move(segments)}.build());
    }
    static std::vector<QRgb> pixels(const QImage& surface, QSize size = {3, 2}) {
        std::vector<QRgb> row;
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x) row.push_back(surface.pixel(x, y));
        return row;
    }
    static BlitResult blit() { return BlitImage(WorkSurface, {0, 0}, Zip, {0, 0, 3, 2}, 3); }
    static double seconds(const std::function<void()>& job) {
        const auto start = std::chrono::steady_clock::now();
        job();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
};

// In a piece, transparent pixels are black; in a whole picture the backdrop, which is white here, shows.
TEST_F(Decoding, SegmentsFollowTheirRules) {
    struct Case {
        const char* name;
        int mode;
        std::vector<ZipSegment> segments;
        std::vector<QRgb> piece, whole;
    };
    const std::vector<QRgb> across{Red, Red, Red, Red, Red, Green};
    const std::vector<QRgb> skipped{Red, Green, Green, Green, Red, Red};
    const Case cases[] = {{"a run crosses the end of a row", 3, {segment(1, {4, 1, 0, 2})}, across, across},
                          {"an unknown coding takes data but no pixels",
                           3,
                           {segment(0, {1}), segment(2, {1, 1, 1, 1}), segment(0, {2, 2, 2, 1, 1})},
                           skipped,
                           skipped},
                          {"transparent pixels",
                           4,
                           {segment(0, {0, 1, 0, 1, 0, 2})},
                           {Black, Red, Black, Red, Black, Green},
                           {White, Red, White, Red, White, Green}},
                          {"an unknown mode",
                           7,
                           {segment(0, {1, 1, 1, 1, 1, 1})},
                           std::vector(6, Black),
                           std::vector(6, White)}};
    for (const Case& row : cases) {
        load(row.mode, row.segments);
        for (QImage* surface : {&FrameSurface, &WorkSurface}) surface->fill(Qt::white);
        EXPECT_EQ(blit(), BlitResult::Done) << row.name;
        EXPECT_EQ(pixels(WorkSurface), row.piece) << row.name;
        EXPECT_EQ(WorkSurface.pixel(3, 0), White) << row.name;
        EXPECT_EQ(LastZipMode, row.mode) << row.name;
        DrawImage(PageBackground, {0, 0}, Zip, Backdrop::Page);
        EXPECT_EQ(pixels(FrameSurface), row.whole) << row.name;
    }
    EXPECT_EQ(pixels(PageBackground), std::vector(6, White)) << "whatever the target, it lands on the frame";
}

TEST_F(Decoding, BytesBeyondTheImageAreZero) {
    ZipSegment made = segment(1, {0, 1, 2}); // the index of the second run is missing, and three more pairs
    made.Palette[0] = 0x001F;
    made.Length = 8;
    load(3, {made}, {4, 2});
    EXPECT_EQ(BlitImage(WorkSurface, {0, 0}, Zip, {0, 0, 4, 2}, 4), BlitResult::Done);
    EXPECT_EQ(pixels(WorkSurface, {4, 2}), (std::vector{Red, Blue, Blue, Blue, Blue, Blue, Black, Black}));
}

TEST_F(Decoding, LongRunsOfEveryLengthFillThePicture) {
    for (int last = 0; last < 600; ++last) { // so the end of the picture cuts runs at every place
        std::vector<QRgb> expected;
        Bytes data;
        for (int i = 0; static_cast<int>(expected.size()) < 1000 + last; ++i) {
            const int count = (i * 37 + last) % 256 + 1, index = 1 + i % 2;
            data << Bytes{static_cast<std::uint8_t>(count - 1), static_cast<std::uint8_t>(index)};
            expected.insert(expected.end(), static_cast<std::size_t>(count), index == 1 ? Red : Green);
        }
        const QSize size(1000 + last, 1);
        expected.resize(static_cast<std::size_t>(size.width()));
        load(3, {segment(1, data)}, size);
        ASSERT_EQ(pixels(ZipPicture(0, *ReadZipHead(0)), size), expected) << last;
    }
}

TEST_F(Decoding, HugeClaimsCostNoTime) {
    ZipSegment endless = segment(1, {});
    endless.Length = 0xFFFFFF;
    load(3, std::vector<ZipSegment>(255, endless), {4096, 4096});
    EXPECT_LT(seconds([] { blit(); }), 2);
    EXPECT_EQ(WorkSurface.pixel(0, 0), Black);
    load(3, {segment(0, {1})}, {65535, 65535});
    EXPECT_EQ(blit(), BlitResult::BadData) << "more pixels than any panel has";
    for (const QSize empty : {QSize(0, 5), QSize(5, 0)}) {
        load(4, {segment(0, {1})}, empty);
        EXPECT_EQ(blit(), BlitResult::Done);
        DrawImage(FrameSurface, {0, 0}, Zip, Backdrop::Page);
    }
    EXPECT_EQ(pixels(FrameSurface), std::vector<QRgb>(6, White));
}

TEST_F(Decoding, TheLastRowOfAnImageIsReadToItsLastByte) {
    for (const int imageFormat : {0, 1, 2, 6, 8})
        for (int width = 1; width < 20; ++width) {
            const int bytes = imageFormat == 6 ? 4 : imageFormat == 8 ? 3 : 2;
            LoadBytes(Bytes(static_cast<std::size_t>(width * bytes), 0xFF));
            FrameSurface.fill(Qt::black);
            BlitImage(FrameSurface, {0, 0}, {.Address = 0, .Format = static_cast<std::uint8_t>(imageFormat)},
                      {0, 0, width, 1}, width);
            EXPECT_EQ(pixels(FrameSurface, {width, 1}), std::vector(static_cast<std::size_t>(width), White));
        }
}

TEST_F(Decoding, AnythingCanBeAPicture) {
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
        const QPoint at(number() - 30, static_cast<int>(generator()));
        const QRect source(number(), number(), number(), number());
        BlitImage(FrameSurface, trial % 3 ? QPoint(1, 1) : at, row, source, number());
        DrawImage(FrameSurface, trial % 3 ? QPoint(1, 1) : at, row, static_cast<Backdrop>(generator() % 8));
        RestoreFrameRect({1, 1}, row, source, number());
        RestoreWorkRect(at, source);
    }
}

TEST_F(Decoding, APngThatCannotBeLoadedIsBlackOrLeavesTheBackdrop) {
    QImage huge(1, 1, QImage::Format_RGB32);
    QByteArray png = PngBytes(huge);
    png[16] = 0x7F; // a width of two thousand million pixels
    LoadBytes(Bytes(png.begin(), png.end()));
    ImageRow row{.Width = 3,
                 .Height = 2,
                 .Extra = static_cast<std::uint32_t>(png.size()),
                 .Format = format::PngOpaque};
    BlitImage(FrameSurface, {0, 0}, row, {0, 0, 3, 2}, 3);
    EXPECT_EQ(pixels(FrameSurface), std::vector<QRgb>(6, Black));
    row.Format = format::PngAlpha;
    BlitImage(WorkSurface, {0, 0}, row, {0, 0, 3, 2}, 3);
    EXPECT_EQ(pixels(WorkSurface), std::vector<QRgb>(6, White));
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
    EXPECT_FALSE(
        cache.picture({.Address = 2, .kind = PictureKey::Kind::Zip}, [] { return QImage(); }).width());
    cache.setLimit(5000);
    EXPECT_LE(cache.bytes(), 5000U);
    cache.clear();
    EXPECT_EQ(cache.bytes(), 0U);
    EXPECT_FALSE(get(2));
}

} // namespace
} // namespace panel
