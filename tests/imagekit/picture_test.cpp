#include "imagekit/image_reader.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

using namespace imagekit;

namespace {

/// The picture table's first row.
struct Row {
    explicit Row(const ImageReader& image)
        : at(image.section(12)), address(image.u32(at)), width(image.u16(at + 4)), height(image.u16(at + 6)),
          format(image.u8(at + 11)) {}
    std::uint32_t at, address, width, height, format;
};

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

std::uint32_t wholePixel(QRgb p) { return p; }

std::uint32_t keyed(QRgb p, std::uint32_t word, std::uint32_t darkest) {
    if (qAlpha(p) < 128) return 0;
    return word == 0 ? darkest : word;
}

std::uint32_t keyed565(QRgb p) { return keyed(p, nearest565(p), 0x0020); }

struct RawCase {
    const char* name;
    std::uint8_t format, colourMode, chip;
    int pixelBytes;
    std::uint32_t (*word)(QRgb); // of a pixel, as a little-endian number
};

const RawCase RawCases[] = {
    {"Opaque16", 0, 0, 4, 2, nearest565},
    {"Keyed16", 1, 0, 4, 2, keyed565},
    {"Alpha4", 2, 0, 4, 2, nearest4444},
    {"Alpha8", 6, 0, 4, 4, wholePixel},
    {"Opaque16Alpha8", 8, 0, 4, 3,
     [](QRgb p) { return nearest565(p) | static_cast<std::uint32_t>(qAlpha(p)) << 16; }},
    {"Opaque24", 0, 1, 4, 3, [](QRgb p) -> std::uint32_t { return p & 0xFFFFFF; }},
    {"Keyed24", 1, 1, 4, 3, [](QRgb p) { return keyed(p, p & 0xFFFFFF, 1); }},
    {"Opaque24OfChip5", 0, 1, 5, 4, wholePixel},
    {"Keyed24OfChip5", 1, 1, 5, 4,
     [](QRgb p) { return qAlpha(p) < 128 ? 0 : 0xFF000000 | keyed(p, p & 0xFFFFFF, 1); }},
    {"Alpha4OfChip5", 2, 1, 5, 4, wholePixel},
    {"Chip5InMode0", 0, 0, 5, 2, nearest565},
};

TEST(RawPictures, HoldTheNearestColoursRowByRow) {
    for (const RawCase& test : RawCases)
        for (const bool nand : {false, true})
            for (const int width : {1, 4, 30}) {
                SCOPED_TRACE(std::string(test.name) + (nand ? " in rows of four, " : ", ")
                             + std::to_string(width));
                const QImage source = randomImage(width, 7, static_cast<unsigned>(width));
                ImageBuilder builder({.ColourMode = test.colourMode, .ICType = test.chip, .NandFlash = nand});
                builder.addPicture(Pixels{source, test.format});
                const ImageReader image(builder.build());
                const Row row(image);
                ASSERT_EQ(row.width, static_cast<std::uint32_t>(width));
                ASSERT_EQ(row.height, 7u);
                ASSERT_EQ(row.format, test.format);
                const int stride = nand ? (width + 3) / 4 * 4 : width;
                const std::uint32_t mask = ~0u >> (32 - 8 * test.pixelBytes);
                for (int y = 0; y < 7; ++y)
                    for (int x = 0; x < width; ++x) {
                        const int at = (y * stride + x) * test.pixelBytes;
                        ASSERT_EQ(image.u32(row.address + static_cast<std::uint32_t>(at)) & mask,
                                  test.word(source.pixel(x, y)));
                    }
            }
}

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
    const auto wordOf = mode == 3 ? nearest565 : mode == 4 ? keyed565 : nearest4444;
    std::vector<std::uint32_t> words;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const std::uint32_t word = wordOf(image.pixel(x, y));
            words.push_back(mode == 5 && word < 0x1000 ? 0 : word); // all that is transparent is alike
        }
    return words;
}

TEST(ZipPictures, HoldEveryPixelInAnyCoding) {
    // Few colours in long runs, and more colours than one palette holds.
    const QImage pictures[] = {randomImage(4, 3, 7).scaled(120, 60), randomImage(61, 37, 8)};
    for (const std::uint8_t mode : {3, 4, 5})
        for (const QImage& source : pictures)
            for (const ZipCoding coding : {ZipCoding::Shortest, ZipCoding::Raw, ZipCoding::Runs}) {
                ImageBuilder builder({.NandFlash = true}); // row padding is no matter of compressed pictures
                builder.addPicture(Pixels{source, mode, coding});
                const ImageReader image(builder.build());
                const Row row(image);
                EXPECT_EQ(image.u16(row.address + 2), static_cast<std::uint32_t>(source.width()));
                EXPECT_EQ(image.u16(row.address + 4), static_cast<std::uint32_t>(source.height()));
                EXPECT_EQ(image.u8(row.address + 7), mode);
                EXPECT_EQ(unzip(image, row.address), expectedZipWords(source, mode));
            }
}

TEST(Pictures, ThatTheFormatCannotHoldAreRefused) {
    ImageBuilder shallow;
    ImageBuilder deep({.ColourMode = 1});
    const QImage small = randomImage(2, 2, 1);
    for (const Pixels& refused :
         {Pixels{QImage(), format::RGB565}, Pixels{small.scaled(65536, 1), format::RGB565},
          Pixels{small, format::ScratchAlpha}, Pixels{randomImage(512, 512, 1), format::ZipImage}})
        EXPECT_THROW(shallow.addPicture(refused), ImageError);
    EXPECT_THROW(shallow.addPicture(Solid{0, 5, Qt::red}), ImageError);
    for (const std::uint8_t refused : {format::RGB565A8, format::ZipImage})
        EXPECT_THROW(deep.addPicture(Pixels{small, refused}), ImageError);
}

} // namespace
