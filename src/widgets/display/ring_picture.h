// What a ring gauge and a ring slider show alike, composed on the WorkSurface: a background, the sector of a
// foreground that the value has swept, and a read-out. Engine thread.
#pragma once

#include "graphics/image_row.h"
#include "pages/parameters.h"
#include "widgets/display/number_record.h"
#include "widgets/display/number_text.h"

#include <QPoint>
#include <QRect>

#include <cstddef>
#include <cstdint>

namespace panel {

enum class ReadoutMode : std::uint8_t { None = 0, Text = 1, Pictures = 2 };

/// The value in figures.
struct RingReadout {
    QPoint at{}; // px on the panel
    NumberFormat format{};
    NumberAlignment alignment = NumberAlignment::Left;
    std::uint8_t font = 0;
    std::uint32_t colour = 0;
    std::uint16_t firstImage = 0; // digits, and behind them the point and the minus sign
    ReadoutMode mode = ReadoutMode::None;
};

/// The angle that a value stands for; both limits give the ends of the way, whatever lies between them.
struct RingScale {
    std::int16_t lowest = 0, highest = 0;
    std::uint16_t start = 0, end = 0; // degrees

    int angleOf(int value) const;
};

// In a record the scale stands from an offset on, and the read-out right behind it.

RingScale ReadRingScale(const Parameters& p, std::size_t at);
/// Its place is moved by the open pop-up.
RingReadout ReadRingReadout(const Parameters& p, std::size_t at);
inline constexpr std::size_t RingScaleBytes = 8;

/// Puts the background at (0, 0), over what lies behind the widget. `area` is the widget's on the panel.
void DrawRingBackground(std::uint16_t background, QRect area);
/// `area` as above; the value is signed.
void DrawRingReadout(const RingReadout& readout, QRect area, std::int16_t value);

} // namespace panel
