#include "widgets/display/sector.h"

#include "graphics/image_blit.h"
#include "graphics/shapes.h"
#include "graphics/surfaces.h"

#include <algorithm>
#include <cstdint>

namespace panel {
namespace {

/// Rounds down; `divisor` is above 0.
std::int64_t floorDivided(std::int64_t value, std::int64_t divisor) {
    return value >= 0 ? value / divisor : -((divisor - 1 - value) / divisor);
}

std::int64_t ceilDivided(std::int64_t value, std::int64_t divisor) { return -floorDivided(-value, divisor); }

/// The geometry of a picture's circle. An even width has no pixel in its middle.
struct Circle {
    explicit Circle(QSize size)
        : width(size.width()), height(size.height()), half(width / 2), radius(half + width % 2),
          centre(radius - 1) {}

    /// Where the line of the sweep meets the edge of the square, that far from the eighth's axis.
    float tangent(int degrees) const { return TanDeg(degrees) * static_cast<float>(radius); }
    int less(int degrees) const { return static_cast<int>(static_cast<float>(radius) - tangent(degrees)); }
    int more(int degrees) const { return static_cast<int>(static_cast<float>(radius) + tangent(degrees)); }

    QRect lowerLeftRim() const { return {0, centre, radius, height - centre}; }
    QRect upperLeftRim() const { return {0, 0, radius, radius}; }
    QRect upperRightRim() const { return {centre, 0, width - centre, radius}; }
    QRect lowerRightRim() const { return {centre + 1, centre, width - centre - 1, height - centre}; }
    QRect lowerLeft() const { return {0, centre + 1, half, height / 2}; }
    QRect leftHalf() const { return {0, 0, half, height}; }
    QRect upperRight() const { return {centre + 1, 0, radius, radius}; }

    int width, height, half, radius, centre;
};

Sector lowerLeftSector(const Circle& c, int angle) {
    if (angle == 90) return {.blocks = {QRect(0, c.centre, c.radius, c.height / 2)}};
    const QPoint edge =
        angle <= 45 ? QPoint(c.less(angle), 2 * c.radius - 1) : QPoint(0, c.more(90 - angle) - 1);
    return {.rim = c.lowerLeftRim(), .edge = edge};
}

Sector upperLeftSector(const Circle& c, int angle) {
    const QPoint edge = angle <= 135 ? QPoint(0, c.less(angle - 90)) : QPoint(c.less(180 - angle), 0);
    return {.blocks = {c.lowerLeft()}, .rim = c.upperLeftRim(), .edge = edge};
}

Sector upperRightSector(const Circle& c, int angle) {
    if (angle == 270) return {.blocks = {c.leftHalf(), c.upperRight()}};
    const QPoint edge =
        angle <= 225 ? QPoint(c.more(angle - 180), 0) : QPoint(2 * c.radius - 1, c.less(270 - angle));
    return {.blocks = {c.leftHalf()}, .rim = c.upperRightRim(), .edge = edge};
}

Sector lowerRightSector(const Circle& c, int angle) {
    if (angle == 360) return {.blocks = {QRect(0, 0, c.width, c.height)}};
    const QPoint edge = angle <= 315 ? QPoint(2 * c.radius - 1, c.more(angle - 270))
                                     : QPoint(c.more(360 - angle), 2 * c.radius - 1);
    return {.blocks = {c.leftHalf(), c.upperRight()}, .rim = c.lowerRightRim(), .edge = edge};
}

Sector sectorOn(const Circle& circle, int angle) {
    if (angle < 0 || angle > 360) return {};
    if (angle <= 90) return lowerLeftSector(circle, angle);
    if (angle <= 180) return upperLeftSector(circle, angle);
    if (angle <= 270) return upperRightSector(circle, angle);
    return lowerRightSector(circle, angle);
}

void blitPiece(const ImageRow& image, QRect piece) {
    if (!piece.isEmpty()) BlitImage(WorkSurface, piece.topLeft(), image, piece, image.Width);
}

} // namespace

bool SideOfLine(int x0, int y0, int x1, int y1, int px, int py) {
    return std::int64_t{y1 - y0} * (px - x0) < std::int64_t{py - y0} * (x1 - x0);
}

Sector SectorOf(QSize size, int angle) {
    const Circle circle(size);
    Sector sector = sectorOn(circle, angle);
    sector.centre = {circle.centre, circle.centre};
    return sector;
}

QRect RimRow(const Sector& sector, int y) {
    const QPoint way = sector.edge - sector.centre;
    // A pixel that lies `right` of the centre belongs to it where way.y() * right >= bound.
    const std::int64_t bound = std::int64_t{y - sector.centre.y()} * way.x();
    std::int64_t first = sector.rim.left(), last = sector.rim.right();
    if (way.y() > 0) first = std::max(first, sector.centre.x() + ceilDivided(bound, way.y()));
    if (way.y() < 0) last = std::min(last, sector.centre.x() + floorDivided(-bound, -std::int64_t{way.y()}));
    if ((way.y() == 0 && bound > 0) || first > last) return {};
    return {static_cast<int>(first), y, static_cast<int>(last - first + 1), 1};
}

void BlitSector(const ImageRow& image, int angle) {
    const Sector sector = SectorOf({image.Width, image.Height}, angle);
    for (const QRect& block : sector.blocks) blitPiece(image, block);
    const int bottom = std::min(sector.rim.bottom(), WorkSurface.height() - 1);
    for (int y = sector.rim.top(); y <= bottom; ++y) blitPiece(image, RimRow(sector, y));
}

} // namespace panel
