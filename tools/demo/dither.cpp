#include "demo/dither.h"

#include <algorithm>
#include <array>
#include <vector>

namespace demo {
namespace {

constexpr std::array<int, 3> LargestStep{31, 63, 31}; // red, green, blue

using Errors = std::vector<std::array<int, 3>>; // of a row, in sixteenths, one pixel more at each end

/// Floyd and Steinberg's shares of a rounding error.
void spread(Errors& thisRow, Errors& nextRow, std::size_t at, std::size_t channel, int error) {
    thisRow[at + 1][channel] += error * 7;
    nextRow[at - 1][channel] += error * 3;
    nextRow[at][channel] += error * 5;
    nextRow[at + 1][channel] += error;
}

/// The nearest value that a channel with that many steps can hold.
int nearest(int value, int largestStep) {
    const int step = (std::clamp(value, 0, 255) * largestStep + 127) / 255;
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
                const int value = wanted[channel] + thisRow[x + 1][channel] / 16;
                held[channel] = nearest(value, LargestStep[channel]);
                spread(thisRow, nextRow, x + 1, channel, value - held[channel]);
            }
            row[x] = qRgb(held[0], held[1], held[2]);
        }
        thisRow.swap(nextRow);
        std::fill(nextRow.begin(), nextRow.end(), std::array<int, 3>{});
    }
    return result;
}

} // namespace demo
