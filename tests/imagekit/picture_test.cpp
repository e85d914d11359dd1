#include "imagekit/image_reader.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

using namespace imagekit;

namespace {

struct Row {
    std::uint32_t address, width, height, extra, format;
};

Row rowAt(const ImageReader& image, std::uint32_t at) {
    return {image.u32(at), image.u16(at + 4), image.u16(at + 6), image.u24(at + 8), image.u8(at + 11)};
}

/// The picture table's row `index`, one language.
Row pictureRow(const ImageReader& image, std::uint32_t index) {
    return rowAt(image, image.section(12) + 12 * index);
}

/// Any colour and alpha, with the corner cases of rounding and of black made frequent.
QImage randomImage(int width, int height, unsigned seed) {
    std::mt19937 random(seed);
    const auto channel = [&] {
        return random() % 3 ? static_cast<int>(random() % 256) : static_cast<int>(random() % 10);
    };
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int alpha = random() % 3 ? channel() : 255;
            image.setPixel(x, y, qRgba(channel(), channel(), channel(), alpha));
        }
    return image;
}

/// The step 0..largest whose expansion lies nearest to an 8-bit value, by trying all.
std::uint32_t nearestStep(int value, int largest) {
    int best = 0;
    for (int step = 1; step <= largest; ++step)
        if (std::abs(value * largest - step * 255) < std::abs(value * largest - best * 255)) best = step;
    return static_cast<std::uint32_t>(best);
}

std::uint32_t nearest565(QRgb p) {
    return nearestStep(qRed(p), 31) << 11 | nearestStep(qGreen(p), 63) << 5 | nearestStep(qBlue(p), 31);
}

std::uint32_t nearest4444(QRgb p) {
    return nearestStep(qAlpha(p), 15) << 12 | nearestStep(qRed(p), 15) << 8 | nearestStep(qGreen(p), 15) << 4
           | nearestStep(qBlue(p), 15);
}

std::uint32_t keyed(QRgb p, std::uint32_t word, std::uint32_t darkest) {
    if (qAlpha(p) < 128) return 0;
    return word == 0 ? darkest : word;
}

struct RawCase {
    const char* name;
    std::uint8_t format, colourMode, chip;
    int pixelBytes;
    std::uint32_t (*word)(QRgb); // of a pixel, as a little-endian number
};

const RawCase RawCases[] = {
    {"Opaque16", 0, 0, 4, 2, nearest565},
    {"Keyed16", 1, 0, 4, 2, [](QRgb p) { return keyed(p, nearest565(p), 0x0020); }},
    {"Alpha4", 2, 0, 4, 2, nearest4444},
    {"Alpha8", 6, 0, 4, 4, [](QRgb p) -> std::uint32_t { return p; }},
    {"Opaque16Alpha8", 8, 0, 4, 3,
     [](QRgb p) { return nearest565(p) | static_cast<std::uint32_t>(qAlpha(p)) << 16; }},
    {"Opaque24", 0, 1, 4, 3, [](QRgb p) -> std::uint32_t { return p & 0xFFFFFF; }},
    {"Keyed24", 1, 1, 4, 3, [](QRgb p) { return keyed(p, p & 0xFFFFFF, 1); }},
    {"Alpha4InMode1", 2, 1, 4, 2, nearest4444},
    {"Alpha8InMode1", 6, 1, 4, 4, [](QRgb p) -> std::uint32_t { return p; }},
    {"Opaque24OfChip5", 0, 1, 5, 4, [](QRgb p) -> std::uint32_t { return p; }},
    {"Keyed24OfChip5", 1, 1, 5, 4,
     [](QRgb p) { return qAlpha(p) < 128 ? 0 : 0xFF000000 | keyed(p, p & 0xFFFFFF, 1); }},
    {"Alpha4OfChip5", 2, 1, 5, 4, [](QRgb p) -> std::uint32_t { return p; }},
    {"Chip5InMode0", 0, 0, 5, 2, nearest565},
};

class RawPictures : public ::testing::TestWithParam<RawCase> {};

TEST_P(RawPictures, HoldTheNearestColoursRowByRow) {
    const RawCase& test = GetParam();
    for (const bool nand : {false, true}) {
        for (const int width : {1, 2, 3, 4, 30}) {
            const QImage source = randomImage(width, 7, static_cast<unsigned>(width));
            ImageBuilder builder({.ColourMode = test.colourMode, .ICType = test.chip, .NandFlash = nand});
            builder.addPicture(Pixels{source, test.format});
            const ImageReader image(builder.build());
            const Row row = pictureRow(image, 0);
            ASSERT_EQ(row.width, static_cast<std::uint32_t>(width));
            ASSERT_EQ(row.height, 7u);
            ASSERT_EQ(row.format, test.format);
            ASSERT_NE(row.extra, 0u);
            const int stride = nand ? (width + 3) / 4 * 4 : width;
            for (int y = 0; y < 7; ++y)
                for (int x = 0; x < width; ++x) {
                    const auto at =
                        row.address + static_cast<std::uint32_t>((y * stride + x) * test.pixelBytes);
                    std::uint32_t stored = 0;
                    for (int i = 0; i < test.pixelBytes; ++i)
                        stored |= image.u8(at + static_cast<std::uint32_t>(i)) << 8 * i;
                    ASSERT_EQ(stored, test.word(source.pixel(x, y)))
                        << width << " wide, nand " << nand << ", " << x << ' ' << y;
                }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, RawPictures, ::testing::ValuesIn(RawCases),
                         [](const auto& row) { return std::string(row.param.name); });

/// Palette words of all pixels of a compressed picture, by the plain rules of the coding.
std::vector<std::uint32_t> unzip(const ImageReader& image, std::uint32_t at) {
    EXPECT_EQ(image.u16(at), 0x525Au) << "magic";
    const std::uint32_t segments = image.u8(at + 6);
    std::uint32_t data = at + 12 + 516 * segments;
    std::vector<std::uint32_t> words;
    for (std::uint32_t entry = at + 12; entry < at + 12 + 516 * segments; entry += 516) {
        const std::uint32_t length = image.u24(entry);
        const bool runs = image.u8(entry + 3) == 1;
        for (std::uint32_t i = 0; i < length; i += runs ? 2 : 1) {
            const std::uint32_t count = runs ? image.u8(data + i) + 1 : 1;
            const std::uint32_t index = image.u8(data + i + (runs ? 1 : 0));
            words.insert(words.end(), count, image.u16(entry + 4 + 2 * index));
        }
        data += length;
    }
    return words;
}

std::vector<std::uint32_t> expectedZipWords(const QImage& image, int mode) {
    std::vector<std::uint32_t> words;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            const std::uint32_t alphaWord = nearest4444(p) < 0x1000 ? 0 : nearest4444(p);
            words.push_back(mode == 3   ? nearest565(p)
                            : mode == 4 ? keyed(p, nearest565(p), 0x0020)
                                        : alphaWord);
        }
    return words;
}

class ZipPictures : public ::testing::TestWithParam<int> {};

TEST_P(ZipPictures, HoldEveryPixelInAnyCoding) {
    const auto mode = static_cast<std::uint8_t>(GetParam());
    // Few colours in long runs, and more colours than one palette holds.
    const QImage pictures[] = {randomImage(4, 3, 7).scaled(120, 60), randomImage(61, 37, 8)};
    for (const QImage& source : pictures)
        for (const ZipCoding coding : {ZipCoding::Shortest, ZipCoding::Raw, ZipCoding::Runs}) {
            ImageBuilder builder({.NandFlash = true}); // row padding is no matter of compressed pictures
            builder.addPicture(Pixels{source, mode, coding});
            const ImageReader image(builder.build());
            const Row row = pictureRow(image, 0);
            EXPECT_EQ(image.u16(row.address + 2), static_cast<std::uint32_t>(source.width()));
            EXPECT_EQ(image.u16(row.address + 4), static_cast<std::uint32_t>(source.height()));
            EXPECT_EQ(image.u8(row.address + 7), mode);
            EXPECT_EQ(unzip(image, row.address), expectedZipWords(source, mode));
        }
}

INSTANTIATE_TEST_SUITE_P(Modes, ZipPictures, ::testing::Values(3, 4, 5));

TEST(ZipPicture, TakesTheShorterCodingForEachSegment) {
    QImage source(256, 2,
                  QImage::Format_ARGB32); // a row in which no pixel equals its neighbour, then a flat one
    for (int x = 0; x < 256; ++x) {
        source.setPixel(x, 0, qRgb(255 * (x % 32) / 31, 0, 255 * (x / 32) / 31));
        source.setPixel(x, 1, qRgb(0, 255, 0));
    }
    ImageBuilder builder;
    builder.addPicture(Pixels{source, format::ZipImage});
    const ImageReader image(builder.build());
    const std::uint32_t at = pictureRow(image, 0).address;
    ASSERT_EQ(image.u8(at + 6), 2u);
    EXPECT_EQ(image.u32(at + 12), 256u) << "a byte a pixel";
    EXPECT_EQ(image.u32(at + 12 + 516), 0x01000002u) << "one run";
}

TEST(PngPictures, AreWholeFilesWithTheirLength) {
    const QImage source = randomImage(20, 10, 3);
    ImageBuilder builder({.ColourMode = 1});
    builder.addPicture(Pixels{source, format::PngAlpha});
    builder.addPicture(Pixels{source, format::PngOpaque});
    const ImageReader image(builder.build());
    for (const std::uint32_t index : {0u, 1u}) {
        const Row row = pictureRow(image, index);
        const auto file = image.bytes(row.address, row.extra);
        QImage loaded;
        ASSERT_TRUE(loaded.loadFromData(file.data(), static_cast<int>(file.size())));
        EXPECT_EQ(loaded.hasAlphaChannel(), index == 0);
        const QImage expected = index == 0 ? source : source.convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(loaded, expected.convertToFormat(loaded.format()));
    }
}

TEST(SolidPictures, StoreTheirColourWordAndAreNeverTakenForNone) {
    struct Case {
        std::uint8_t mode;
        QColor colour;
        std::uint32_t extra;
    };
    for (const Case& test : {Case{0, QColor(255, 128, 8), 0xFC01}, Case{1, QColor(255, 128, 9), 0xFF8009},
                             Case{0, QColor(0, 0, 0), 0x0020}, Case{1, QColor(0, 0, 0), 0x000001}}) {
        ImageBuilder builder({.ColourMode = test.mode});
        builder.addPage(Solid{30, 20, test.colour});
        builder.addPage(Solid{30, 20, test.colour});
        const ImageReader image(builder.build());
        const Row row = rowAt(image, image.section(8));
        EXPECT_EQ(row.extra, test.extra);
        EXPECT_EQ(row.width, 30u);
        EXPECT_EQ(row.height, 20u);
        EXPECT_EQ(row.format, 16u);
        EXPECT_NE(row.address, rowAt(image, image.section(8) + 12).address) << "pages are told apart by it";
    }
}

TEST(Pictures, ThatTheFormatCannotHoldAreRefused) {
    ImageBuilder shallow;
    ImageBuilder deep({.ColourMode = 1});
    EXPECT_THROW(shallow.addPicture(Pixels{QImage(), format::RGB565}), ImageError);
    EXPECT_THROW(shallow.addPicture(Pixels{randomImage(1, 1, 1).scaled(65536, 1), format::RGB565}),
                 ImageError);
    EXPECT_THROW(shallow.addPicture(Solid{0, 5, Qt::red}), ImageError);
    EXPECT_THROW(shallow.addPicture(Pixels{randomImage(2, 2, 1), format::ScratchAlpha}), ImageError);
    EXPECT_THROW(deep.addPicture(Pixels{randomImage(2, 2, 1), format::RGB565A8}), ImageError);
    EXPECT_THROW(deep.addPicture(Pixels{randomImage(2, 2, 1), format::ZipImage}), ImageError);
    EXPECT_THROW(shallow.addPicture(Pixels{randomImage(512, 512, 1), format::ZipImage}), ImageError)
        << "needs more than 255 segments";
    EXPECT_NO_THROW(shallow.addPicture(Pixels{randomImage(65535, 1, 1), format::RGB565}));
}

} // namespace
