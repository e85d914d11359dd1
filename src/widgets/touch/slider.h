// Linear controls: a fill picture that is shown as far as the value reaches, with or without a thumb and a
// background. Engine thread.
#pragma once

#include "store/row_table.h"
#include "widgets/touch/key_image.h"
#include "widgets/touch/slider_track.h"

#include <cstdint>

namespace panel {

struct SliderRecord {
    TouchHead head{}; // the rectangle is the track; drawing narrows it so that the thumb stays inside
    std::uint16_t FillX = 0, FillY = 0;
    std::uint16_t FillImage = NoImage; // none: the slider is not drawn
    std::uint16_t Address = 0;
    std::uint16_t ThumbImage = NoImage;
    std::uint8_t Direction = 0; // 0 right, 1 left, 2 down, 3 up: the way in which the value rises
    SliderRange Range{};
    std::uint16_t BackX = 0, BackY = 0;
    std::uint16_t BackImage = NoImage;
    bool Touchable = false;
    std::uint16_t OverlayGroup = NoGroup;

    std::uint16_t LastX = NoPosition, LastY = NoPosition; // the pointer as last seen, on the panel
    std::uint16_t ThumbX = 0, ThumbY = 0;                 // its last place on the track
};
inline RowTable<SliderRecord, 32> Sliders;

inline std::uint8_t SliderActive = 0;  // 1 while a slider is dragged
inline std::uint8_t SliderRow = 0;     // and which one
inline std::uint8_t SliderChanged = 0; // 1: it moved, and is to be drawn

void ResetSliders();
void AddSlider(const Parameters& p);
void TouchSlider();

/// Draws the slider from its variable.
void DrawSlider(SliderRecord& row);

/// The steps of a refresh: draws the sliders whose variable has changed, but for the one that is dragged.
/// The full refresh also looks at their groups.
void RefreshSliders(std::uint16_t page);
void RefreshSlidersAfterTouch(std::uint16_t page);
void SyncSliders();

} // namespace panel
