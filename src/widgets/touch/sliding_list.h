// The state of the page's sliding list: a window on the page through which a tall or wide picture is seen,
// with the widgets that lie on it. Engine thread.
#pragma once

#include <QRect>

#include <cstdint>

namespace panel {

/// Along which axis the list slides, and whether its start follows its end.
namespace list_mode {
inline constexpr std::uint8_t Vertical = 0x00;
inline constexpr std::uint8_t Horizontal = 0x01;
inline constexpr std::uint8_t EndlessVertical = 0x80;
inline constexpr std::uint8_t EndlessHorizontal = 0x81;
} // namespace list_mode

inline std::uint8_t SlideListActive = 0; // 1: the page has a list
inline QRect ListWindow;                 // on the panel, px
inline std::uint8_t ListMode = list_mode::Vertical;
inline std::uint16_t ListW = 0, ListH = 0; // size of the list's picture, px
inline std::int16_t ListShown = 0;         // px along the axis by which the picture on show has moved

inline bool ListIsEndless() { return (ListMode & 0x80) != 0; }
inline bool ListIsVertical() { return (ListMode & 0x01) == 0; }

} // namespace panel
