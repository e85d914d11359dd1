// Lines, capsules and the degree tables, against plain models.
#include "graphics/shapes.h"

#include "graphics/colour.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"

#include <gtest/gtest.h>

#include <QPainter>

#include <cmath>
#include <random>

namespace panel {
namespace {

TEST(Degrees, FollowTheTables) {
    EXPECT_EQ(SinDeg(45), 0.707107F);
    EXPECT_EQ(SinDeg(-90), -1.0F);
    EXPECT_EQ(CosDeg(450), 0.0F);
    for (int degrees = -2000; degrees <= 2000; ++degrees) {
        const double angle = degrees * 3.14159265358979 / 180;
        EXPECT_NEAR(SinDeg(degrees), std::sin(angle), 6e-7) << degrees;
        EXPECT_NEAR(CosDeg(degrees), std::cos(angle), 6e-7) << degrees;
    }
    const std::pair<int, float> tangents[] = {{0, 0.0F},       {1, 0.017455F},  {31, 0.600840F},
                                              {42, 0.900400F}, {44, 0.965688F}, {45, 1.0F}};
    for (const auto& [degrees, expected] : tangents) EXPECT_EQ(TanDeg(degrees), expected) << degrees;
}

class Shapes : public ::testing::Test {
protected:
    Shapes() {
        ColourMode = 0;
        MakeSurfaces({50, 40});
        WorkSurface.fill(Qt::darkGray);
        expected = WorkSurface;
    }
    int random(int low, int high) { return std::uniform_int_distribution<>(low, high)(generator); }

    void plotPlainly(int x, int y) {
        if (expected.valid(x, y)) expected.setPixelColor(x, y, Qt::white);
    }
    /// The line by its two error sums, without clipping.
    void linePlainly(int x0, int y0, int x1, int y1) {
        const int dx = std::abs(x1 - x0), dy = std::abs(y1 - y0), distance = std::max(dx, dy);
        const int stepX = x1 > x0 ? 1 : -1, stepY = y1 > y0 ? 1 : -1;
        int errorX = 0, errorY = 0, x = x0, y = y0;
        for (int t = 0; t <= distance + 1; ++t) {
            plotPlainly(x, y);
            errorX += dx;
            errorY += dy;
            if (errorX > distance) errorX -= distance, x += stepX;
            if (errorY > distance) errorY -= distance, y += stepY;
        }
    }

    std::mt19937 generator{3};
    QImage expected;
};

TEST_F(Shapes, LinesAreThoseOfTheTwoErrorSums) {
    for (int trial = 0; trial < 3000; ++trial) {
        const int reach = trial % 2 ? 60 : 400;
        const int x0 = random(-reach, reach), y0 = random(-reach, reach), x1 = random(-reach, reach);
        const int y1 = trial % 5 ? random(-reach, reach) : y0, thickness = random(0, 3);
        WorkSurface.fill(Qt::black);
        expected = WorkSurface;
        for (int i = 0; i < thickness; ++i) linePlainly(x0, y0 + i, x1, y1 + i);
        DrawThickLine(x0, y0, x1, y1, 0xFFFF, thickness);
        ASSERT_EQ(WorkSurface, expected) << x0 << ',' << y0 << ' ' << x1 << ',' << y1;
    }
}

TEST_F(Shapes, LinesOfAnyLengthEndSoon) {
    constexpr int Far = 1 << 16, Most = std::numeric_limits<int>::max();
    DrawThickLine(-Far, -Far, Far, Far, 0xFFFF, Most);
    EXPECT_EQ(WorkSurface.pixel(20, 30), 0xFFFFFFFF);
    DrawLine(-Most, 0, Most, Most, 0xFFFF);
    DrawCapsule(-1e30F, 5, 1e30F, 5, 3, 0xFFFF);
    DrawCapsule(NAN, 5, INFINITY, 5, 3, 0xFFFF);
}

TEST_F(Shapes, CapsulesCoverByDistance) {
    for (int trial = 0; trial < 60; ++trial) {
        const auto place = [this] { return static_cast<float>(random(-200, 700)) / 10; };
        const float ax = place(), ay = place(), r = static_cast<float>(random(0, 80)) / 10;
        const float bx = trial == 0 ? ax : place(), by = trial == 0 ? ay : place(); // once without length
        expected = WorkSurface;
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 50; ++x) {
                const float dx = bx - ax, dy = by - ay;
                const float fromX = static_cast<float>(x) - ax, fromY = static_cast<float>(y) - ay;
                const float along = (fromY * dy + fromX * dx) / (dy * dy + dx * dx);
                const float h = trial == 0 ? 0 : std::clamp(along, 0.0F, 1.0F);
                const float ex = fromX - dx * h, ey = fromY - dy * h;
                const float coverage = std::clamp(0.5F - (std::sqrt(ex * ex + ey * ey) - r), 0.0F, 1.0F);
                if (coverage <= 0) continue;
                QPainter painter(&expected);
                painter.setPen(QColor(255, 0, 0, static_cast<int>(coverage * 255)));
                painter.drawPoint(x, y);
            }
        DrawCapsule(ax, ay, bx, by, r, 0xF800);
        ASSERT_EQ(WorkSurface, expected) << trial;
    }
}

} // namespace
} // namespace panel
