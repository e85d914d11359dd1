#include "widgets/display/curve.h"

#include "graphics/shapes.h"
#include "graphics/surfaces.h"
#include "store/curve_samples.h"
#include "widgets/display/placement.h"

#include <QDebug>

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Corners = 5;
constexpr std::size_t BaseOffset = 0x0D;
constexpr std::size_t BaseValue = 0x0F;
constexpr std::size_t Scale = 0x11;
constexpr std::size_t Colour = 0x13;
constexpr std::size_t Channel = 0x16; // and the direction
constexpr std::size_t StepX = 0x17;
constexpr std::size_t Thickness = 0x18;
} // namespace field

constexpr std::uint8_t LeftToRightFlag = 0x80;

CurveRow rowOf(const Parameters& p) {
    const std::uint8_t channel = p.u8(field::Channel);
    return {.Area = ReadCorners(p, field::Corners).translated(PopupShift()),
            .BaseOffset = p.u16(field::BaseOffset),
            .BaseValue = p.u16(field::BaseValue),
            .Scale = p.u16(field::Scale),
            .Colour = p.u24(field::Colour),
            .Channel = static_cast<std::uint8_t>(channel & ~LeftToRightFlag),
            .LeftToRight = (channel & LeftToRightFlag) != 0,
            .StepX = p.u8(field::StepX),
            .Thickness = p.u8(field::Thickness)};
}

/// Where the samples of a curve lie in its rectangle.
class Plot {
public:
    explicit Plot(const CurveRow& row)
        : row_(row), width_(row.Area.width()), lowestY_(row.Area.height() - row.Thickness),
          baseY_(row.BaseOffset + (scaled(row.BaseValue) >> 8)) {}

    int startX() const { return row_.LeftToRight ? 0 : width_ - row_.Thickness; }
    int step() const { return row_.LeftToRight ? row_.StepX : -row_.StepX; }
    int points() const { return (row_.LeftToRight ? width_ : startX() + 1) / row_.StepX; }
    bool hasRoomAt(int x) const { return x >= 0 && x + row_.Thickness <= width_; }

    int yOf(std::uint16_t sample) const {
        const int y = baseY_ - static_cast<std::int16_t>(scaled(sample) / 256);
        return y < 0 ? 0 : std::min(y, lowestY_);
    }

private:
    /// In 1/256 px. A large scale runs over, as on the panel.
    int scaled(std::uint16_t value) const {
        return static_cast<std::int32_t>(std::uint32_t{value} * row_.Scale);
    }

    const CurveRow& row_;
    int width_, lowestY_, baseY_;
};

/// A sample of the channel, `age` before the newest.
std::uint16_t sampleOf(std::uint8_t channel, int age) {
    const auto newest = CurveHead[channel] + CurveRingSize - 1;
    return CurveSamples[channel][(newest + CurveRingSize - static_cast<std::size_t>(age) % CurveRingSize)
                                 % CurveRingSize];
}

bool isOnSurface(int x, int nextX) {
    return std::max(x, nextX) >= 0 && std::min(x, nextX) < WorkSurface.width();
}

/// From the newest sample on, back in time.
void drawLine(const CurveRow& row) {
    const Plot plot(row);
    int x = plot.startX();
    for (int i = 0; i < plot.points(); ++i) {
        const int next = x + plot.step();
        if (row.LeftToRight ? !plot.hasRoomAt(next) : next < 0) return;
        if (isOnSurface(x, next))
            DrawThickLine(x, plot.yOf(sampleOf(row.Channel, i)), next, plot.yOf(sampleOf(row.Channel, i + 1)),
                          row.Colour, row.Thickness);
        x = next;
    }
}

std::uint8_t groupOf(const CurveRow& row) {
    for (const CurveRow& earlier : Curves.rows())
        if (earlier.Area == row.Area) return earlier.Group;
    return ++CurveGroupCount;
}

bool hasNewSamples(std::uint8_t group) {
    return std::ranges::any_of(Curves.rows(), [group](const CurveRow& row) {
        return row.Group == group && CurveDirty[row.Channel];
    });
}

} // namespace

void DisplayCurve(const Parameters& p) {
    CurveRow* row = Curves.next();
    if (!row) return;
    *row = rowOf(p);
    if (row->StepX == 0 || row->Channel >= CurveChannelCount) return;
    DrawCurve(*row);
    CurveDirty[row->Channel] = 0;
    row->Group = groupOf(*row);
    Curves.commit();
}

void ForgetCurves() {
    Curves.clear();
    CurveGroupCount = 0;
}

/// Here the last column and the last row of the rectangle stay as they are.
void DrawCurve(const CurveRow& row) {
    const QRect drawn = row.Area.adjusted(0, 0, -1, -1);
    BackdropToWork(drawn, 0);
    drawLine(row);
    LandWork(drawn, 0);
}

void RedrawCurveGroup(std::uint8_t group) {
    QRect area;
    for (const CurveRow& row : Curves.rows()) {
        qDebug("curve_num  %d  \r", static_cast<int>(Curves.size()));
        if (row.Group != group) continue;
        if (area.isNull()) BackdropToWork(area = row.Area, 0);
        drawLine(row);
    }
    LandWork(area, 0);
}

void CountCurveTicks() {
    if (!Curves.empty()) CurveDue = 1;
}

void CurveTick() {
    if (Curves.empty() || !CurveDue.exchange(0)) return;
    for (std::uint8_t group = 1; group <= CurveGroupCount; ++group)
        if (hasNewSamples(group)) RedrawCurveGroup(group);
    CurveDirty.fill(0);
}

} // namespace panel
