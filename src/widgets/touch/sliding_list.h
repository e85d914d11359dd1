// SlidingList: a window on the page through which a tall or wide picture is dragged, with the widgets that
// lie on it. Those draw on ListSurfaceA, over ListSurfaceB. Engine thread.
#pragma once

#include "pages/parameters.h"

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

/// The px along the axis that the finger has dragged the list, and those by which the picture on show has
/// moved: the same in steps of 4. Of an endless list the latter lies within its length.
inline int ListPosition = 0;
inline int ListShown = 0;

inline std::uint8_t ListDragging = 0; // 1 while a finger drags the list
inline std::uint16_t ListStart = 0;   // where the finger was, px along the axis; 0: nowhere yet

inline bool ListIsEndless() { return (ListMode & 0x80) != 0; }
inline bool ListIsVertical() { return (ListMode & 0x01) == 0; }

/// Takes the record of a list; the last one of a page counts. One whose picture has no size, or is larger
/// than 16 million pixels, makes no list.
void AddSlidingList(const Parameters& p);
void ResetSlidingList();
/// Makes the list's surfaces, transparent where its picture is not painted, and shows its beginning.
void PrepareList(std::uint16_t page);

/// Follows the finger. A press becomes a drag when it has moved far enough; the key under it gives it up.
/// Once a cycle, before the families.
void SlideListDrag();
/// The glide after a flick: the panel knows none.
void SlideListCoast();
/// Shows the list at its position, with what its widgets have drawn. Once a cycle, behind the families.
void SlideListRefresh();

/// The bar beside the list; `position` is that of the picture on show.
void DrawListBar(int position);

} // namespace panel
