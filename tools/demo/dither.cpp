#include "demo/dither.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace demo {
namespace {

constexpr std::array<int, 3> LargestStep{31, 63, 31}; // red, green, blue

using Channels = std::array<float, 3>;
using Errors = std::vector<Channels>; // of a row, one pixel more at each end

/// Floyd and Steinberg's shares of a rounding error.
void spread(Errors& thisRow, Errors& nextRow, std::size_t at, std::size_t channel, float error) {
    thisRow[at + 1][channel] += error * 7 / 16;
    nextRow[at - 1][channel] += error * 3 / 16;
    nextRow[at][channel] += error * 5 / 16;
    nextRow[at + 1][channel] += error / 16;
}

/// The nearest value that a channel with that many steps can hold.
int nearest(float value, int largestStep) {
    const auto step = static_cast<int>(
        std::lround(std::clamp(value, 0.0f, 255.0f) * static_cast<float>(largestStep) / 255));
    return (step * 255 + largestStep / 2) / largestStep;
}

} // namespace

QImage DitherTo565(const QImage& picture) {
    QImage result = picture.convertToFormat(QImage::Format_RGB32);
    const auto width = static_cast<std::size_t>(result.width());
    Errors thisRow(width + 2);
    Errors nextRow(width + 2);
    for (int y = 0; y < result.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (std::size_t x = 0; x < width; ++x) {
            const std::array<int, 3> wanted{qRed(row[x]), qGreen(row[x]), qBlue(row[x])};
            std::array<int, 3> held{};
            for (std::size_t channel = 0; channel < held.size(); ++channel) {
                const float value = static_cast<float>(wanted[channel]) + thisRow[x + 1][channel];
                held[channel] = nearest(value, LargestStep[channel]);
                spread(thisRow, nextRow, x + 1, channel, value - static_cast<float>(held[channel]));
            }
            row[x] = qRgb(held[0], held[1], held[2]);
        }
        thisRow.swap(nextRow);
        std::fill(nextRow.begin(), nextRow.end(), Channels{});
    }
    return result;
}

} // namespace demo
