#include "widgets/touch/hit_test.h"

#include "widgets/touch/pointer.h"
#include "widgets/touch/sliding_list.h"

namespace panel {
namespace {

/// A coordinate along the axis of an endless list, for a pointer `at` px behind the window's start. Below the
/// seam the list begins anew.
int onEndlessList(int at, int length, int view) {
    const bool seamInSight = ListShown > length - view;
    const int along = at + ListShown;
    return seamInSight && along >= length ? along - length : along;
}

/// A place in the window as a place on the picture that slides through it.
QPoint onList(QPoint at) {
    switch (ListMode) {
    case list_mode::Vertical: return at + QPoint(0, ListShown);
    case list_mode::Horizontal: return at + QPoint(ListShown, 0);
    case list_mode::EndlessVertical: return {at.x(), onEndlessList(at.y(), ListH, ListWindow.height())};
    case list_mode::EndlessHorizontal: return {onEndlessList(at.x(), ListW, ListWindow.width()), at.y()};
    default: return {-1, -1}; // nothing lies there
    }
}

} // namespace

QPoint PointerPlace(std::uint8_t inList) {
    const QPoint at(TouchX, TouchY);
    return inList == 0 ? at : onList(at - ListWindow.topLeft());
}

bool HitTest(std::uint16_t x0, std::uint16_t x1, std::uint16_t y0, std::uint16_t y1, std::uint8_t inList) {
    if (inList != 0 && (!SlideListActive || !ListWindow.contains(TouchX, TouchY))) return false;
    const QPoint at = PointerPlace(inList);
    return x0 <= at.x() && at.x() <= x1 && y0 <= at.y() && at.y() <= y1;
}

} // namespace panel
