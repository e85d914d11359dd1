// rtouch: a ring that a finger turns. The angle between two limits stands for the value of a variable. Engine
// thread.
#pragma once

#include "pages/parameters.h"
#include "store/row_table.h"
#include "widgets/display/ring_picture.h"

#include <QPoint>
#include <QSize>

#include <cstdint>

namespace panel {

/// One widget of the page. Angles are degrees clockwise from straight down.
struct RtouchRecord {
    bool Notifies = false;
    std::uint16_t Address = 0;
    QPoint At{};                                             // top left corner on the panel, px
    std::uint16_t Foreground = 0, Background = 0, Thumb = 0; // pictures
    int Radius = 0;    // px, of the middle of the band that a finger can reach
    int HalfWidth = 0; // px, of that band
    RingScale Scale{};
    RingReadout Readout{};
    bool Touchable = false;
    std::uint16_t OverlayGroup = 0;

    QSize Size{};    // of the foreground, px
    QPoint Centre{}; // on the panel
};

inline RowTable<RtouchRecord, 32> Rtouches;
inline std::uint8_t RingActive = 0; // 1 while a ring owns the press
inline std::uint8_t RingRow = 0;    // which one

void AddRtouch(const Parameters& p);
void ResetRtouches();
void TouchRtouch();

/// Takes the size of the foreground, and the centre from it.
void DrawRtouchBack(RtouchRecord& row);
/// Draws the widget for an angle.
void DrawRtouchKnob(RtouchRecord& row, int position);

void RefreshRtouches(std::uint16_t page);
void RefreshRtouchesAfterTouch(std::uint16_t page);
void SyncRtouches();

} // namespace panel
