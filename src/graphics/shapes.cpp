#include "graphics/shapes.h"

#include "graphics/colour.h"
#include "graphics/pixels.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace panel {
namespace {

constexpr double RadiansPerDegree = 3.14159265358979323846 / 180;
constexpr double Millionths = 1e6;

struct SinCos {
    float sin, cos;
};

std::array<SinCos, 91> makeSinCosTable() {
    const auto rounded = [](double value) {
        return static_cast<float>(std::round(value * Millionths) / Millionths);
    };
    std::array<SinCos, 91> table{};
    for (std::size_t degree = 0; degree < table.size(); ++degree) {
        const double angle = static_cast<double>(degree) * RadiansPerDegree;
        table[degree] = {rounded(std::sin(angle)), rounded(std::cos(angle))};
    }
    return table;
}

std::array<float, 46> makeTanTable() {
    // Half a millionth of a millionth keeps tan 45, which comes out just below 1, from being cut to 0.999999.
    const auto cut = [](double value) {
        return static_cast<float>(std::floor(value * Millionths + 5e-7) / Millionths);
    };
    std::array<float, 46> table{};
    for (std::size_t degree = 0; degree < table.size(); ++degree)
        table[degree] = cut(std::tan(static_cast<double>(degree) * RadiansPerDegree));
    // The panel's table is off in these two, and needles point where it says.
    table[31] = 0.600840F;
    table[42] = 0.900400F;
    return table;
}

const std::array<SinCos, 91> SinCosTable = makeSinCosTable();
const std::array<float, 46> TanTable = makeTanTable();

/// The angle in 0..360. A multiple of 360 is 0 when it was negative or 0, else 360.
int turned(int degrees) {
    if (degrees > 360) return (degrees - 1) % 360 + 1;
    return degrees < 0 ? (degrees % 360 + 360) % 360 : degrees;
}

const SinCos& row(int degrees) { return SinCosTable[static_cast<std::size_t>(degrees)]; }

/// Ends further away than this lie on no panel, and lines to them are not drawn.
constexpr int FarthestPixel = 1 << 17;

bool isNear(int coordinate) { return coordinate >= -FarthestPixel && coordinate <= FarthestPixel; }

/// One coordinate of a line, as the panel steps it: an error sum takes the way of this axis at every step,
/// and the coordinate moves when the sum has passed the way of the longer axis.
class LineAxis {
public:
    LineAxis(int from, int to, int distance)
        : from_(from), way_(std::abs(to - from)), step_(to < from ? -1 : 1), distance_(distance) {}

    /// Goes from the start to the coordinate after `steps` steps. Strictly passed, so it moves one step later
    /// than it could.
    void goTo(std::int64_t steps) {
        if (steps == 0 || way_ == 0) return;
        const std::int64_t sum = steps * way_ - 1;
        rest_ = sum % distance_;
        position_ = from_ + step_ * static_cast<int>(sum / distance_);
    }
    void next() {
        rest_ += way_;
        if (rest_ < distance_) return;
        rest_ -= distance_;
        position_ += step_;
    }
    int position() const { return position_; }
    bool isLonger() const { return way_ == distance_; }

    /// The range of steps at which a longer axis lies in 0..size-1, as far as it lies in 0..last.
    std::pair<int, int> stepsInside(int size, int last) const {
        const int toEdge =
            step_ > 0 ? -from_ : from_ - (size - 1); // steps of the coordinate until it is inside
        return {std::max(0, toEdge), std::min(last, toEdge + size)};
    }

private:
    int from_;
    std::int64_t way_;
    int step_;
    std::int64_t distance_;
    int position_ = from_;
    std::int64_t rest_ = -1; // of the error sum
};

/// Replaces pixels of the WorkSurface, as PlotWork() does, with one look at the surface for all of them.
class WorkPen {
public:
    explicit WorkPen(std::uint32_t word)
        : pixel_(ExpandPixel(word, ColourKind::Opaque)), size_(WorkSurface.size()), bits_(WorkSurface.bits()),
          bytesPerLine_(WorkSurface.bytesPerLine()) {}

    void plot(int x, int y) {
        if (x < 0 || y < 0 || x >= size_.width() || y >= size_.height()) return;
        reinterpret_cast<Pixel*>(bits_ + y * bytesPerLine_)[x] = pixel_;
    }

private:
    Pixel pixel_;
    QSize size_;
    std::uint8_t* bits_;
    qsizetype bytesPerLine_;
};

} // namespace

float SinDeg(int degrees) {
    const int d = turned(degrees);
    if (d <= 90) return row(d).sin;
    if (d <= 180) return row(180 - d).sin;
    if (d <= 270) return -row(d - 180).sin;
    return -row(360 - d).sin;
}

float CosDeg(int degrees) {
    const int d = turned(degrees);
    if (d <= 90) return row(d).cos;
    if (d <= 180) return -row(180 - d).cos;
    if (d <= 270) return -row(d - 180).cos;
    return row(360 - d).cos;
}

float TanDeg(int degrees) { return TanTable[static_cast<std::size_t>(std::clamp(degrees, 0, 45))]; }

void DrawLine(int x0, int y0, int x1, int y1, std::uint32_t word) {
    if (!isNear(x0) || !isNear(y0) || !isNear(x1) || !isNear(y1)) return;
    const int distance = std::max(std::abs(x1 - x0), std::abs(y1 - y0));
    LineAxis x(x0, x1, distance), y(y0, y1, distance);
    // Only the steps at which the longer axis is on the surface can plot anything.
    const auto [first, last] = x.isLonger() ? x.stepsInside(WorkSurface.width(), distance + 1)
                                            : y.stepsInside(WorkSurface.height(), distance + 1);
    WorkPen pen(word);
    x.goTo(first);
    y.goTo(first);
    for (int step = first; step <= last; ++step, x.next(), y.next()) pen.plot(x.position(), y.position());
}

void DrawThickLine(int x0, int y0, int x1, int y1, std::uint32_t word, int thickness) {
    if (!isNear(y0) || !isNear(y1)) return;
    const int first = std::max(0, -std::max(y0, y1) - 1);
    const int last = std::min(thickness, WorkSurface.height() - std::min(y0, y1) + 1);
    for (int i = first; i < last; ++i) DrawLine(x0, y0 + i, x1, y1 + i, word);
}

void FillTriangle(int x0, int y0, int x1, int y1, int x2, int y2, std::uint32_t word) {
    const QColor colour = ExpandColour(word, ColourKind::Opaque);
    QPainter painter(&WorkSurface);
    painter.setPen(colour);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF({QPointF(x0, y0), QPointF(x1, y1), QPointF(x2, y2)}), Qt::OddEvenFill);
}

float CapsuleDistance(float px, float py, float ax, float ay, float bx, float by, float r) {
    const float dx = bx - ax, dy = by - ay;
    const float lengthSquared = dy * dy + dx * dx;
    const float along = lengthSquared == 0.0F ? 0.0F : ((py - ay) * dy + (px - ax) * dx) / lengthSquared;
    const float h = std::max(std::min(along, 1.0F), 0.0F);
    const float ex = (px - ax) - dx * h, ey = (py - ay) - dy * h;
    return std::sqrt(ex * ex + ey * ey) - r;
}

void DrawCapsule(float ax, float ay, float bx, float by, float r, std::uint32_t word) {
    // Clamped while they are floats: an end far outside, or one that is no number, does not fit an int.
    const auto first = [](int size, float low) {
        return static_cast<int>(std::min(static_cast<float>(size), std::max(0.0F, std::floor(low))));
    };
    const auto last = [](int size, float high) {
        return static_cast<int>(std::max(-1.0F, std::min(static_cast<float>(size - 1), std::ceil(high))));
    };
    const int width = WorkSurface.width(), height = WorkSurface.height();
    const int yLow = first(height, std::min(ay, by) - r), yHigh = last(height, std::max(ay, by) + r);
    const int xLow = first(width, std::min(ax, bx) - r), xHigh = last(width, std::max(ax, bx) + r);
    WorkPen pen(word);
    for (int y = yLow; y <= yHigh; ++y) {
        for (int x = xLow; x <= xHigh; ++x) {
            const float distance =
                CapsuleDistance(static_cast<float>(x), static_cast<float>(y), ax, ay, bx, by, r);
            const float coverage = 0.5F - distance;
            if (coverage >= 1.0F)
                pen.plot(x, y);
            else
                PlotCoverage(x, y, std::max(coverage, 0.0F), word);
        }
    }
}

} // namespace panel
