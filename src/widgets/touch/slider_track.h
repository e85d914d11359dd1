// The arithmetic of a slider: values, pixels of its fill, and places of its thumb, along one axis.
#pragma once

#include <algorithm>
#include <cstdint>

namespace panel {

/// What a slider can be set to. Limits may be equal, and crossed ones give values that fall along the track.
struct SliderRange {
    std::int16_t lowest = 0;
    std::int16_t highest = 0;

    int span() const { return highest - lowest; }
    int clamped(std::int16_t value) const {
        return std::clamp(value, std::min(lowest, highest), std::max(lowest, highest));
    }
};

/// The part of `length` px that stands for a value, rounded towards zero; 0 when there is only one value.
/// `length` may be negative.
inline int SliderPixels(SliderRange range, std::int16_t value, int length) {
    if (range.span() == 0) return 0;
    return static_cast<int>(std::int64_t{range.clamped(value) - range.lowest} * length / range.span());
}

/// The value of a place on the track, whose low and high end may lie either way round. Beyond an end it is
/// that end's value.
inline std::int16_t SliderValue(SliderRange range, int place, int lowEnd, int highEnd) {
    const int along = highEnd >= lowEnd ? place - lowEnd : lowEnd - place;
    const int length = highEnd >= lowEnd ? highEnd - lowEnd : lowEnd - highEnd;
    if (along >= length) return range.highest;
    if (along <= 0) return range.lowest;
    return static_cast<std::int16_t>(range.lowest
                                     + along * (static_cast<long double>(range.span()) / length));
}

} // namespace panel
