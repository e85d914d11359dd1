#include "demo/dither.h"

#include <gtest/gtest.h>

#include <set>

namespace {

/// The values that a channel of so many steps can have.
std::set<int> heldValues(int largestStep) {
    std::set<int> values;
    for (int step = 0; step <= largestStep; ++step)
        values.insert((step * 255 + largestStep / 2) / largestStep);
    return values;
}

TEST(Dither, GivesColoursThat16BitPixelsHoldAndKeepsTheirAverage) {
    const auto fine = heldValues(63), coarse = heldValues(31);
    for (const QRgb colour : {qRgb(0, 0, 0), qRgb(255, 255, 255), qRgb(17, 34, 51), qRgb(200, 101, 3)}) {
        QImage flat(64, 64, QImage::Format_RGB32);
        flat.fill(colour);
        const QImage dithered = demo::DitherTo565(flat);
        double sums[3] = {};
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x) {
                const QRgb p = dithered.pixel(x, y);
                ASSERT_TRUE(coarse.count(qRed(p)) && fine.count(qGreen(p)) && coarse.count(qBlue(p)));
                sums[0] += qRed(p), sums[1] += qGreen(p), sums[2] += qBlue(p);
            }
        EXPECT_NEAR(sums[0] / 4096, qRed(colour), 0.2);
        EXPECT_NEAR(sums[1] / 4096, qGreen(colour), 0.2);
        EXPECT_NEAR(sums[2] / 4096, qBlue(colour), 0.2);
    }
}

} // namespace
