#include "widgets/touch/key_image.h"

#include "graphics/surfaces.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/placement.h"
#include "widgets/touch/encoder.h"

namespace panel {
namespace {

/// An icon over an animation stands on the animation, and is no part of the page's background.
bool standsOnAnimation(const ImageRow& image, QPoint at) {
    return image.Format == format::aRGB4444 && IsUnderAnimation(at.x(), at.y());
}

} // namespace

void DrawKeyImage(std::uint16_t image, QPoint at, Backdrop behind, std::uint8_t inList) {
    CurrentImage = TableImageRow(image);
    const ImageRow row = CurrentImage; // drawing may change the scratch row
    if (!DrawsSomething(row)) return;
    if (inList) return DrawImage(ListSurfaceA, at, row, Backdrop::ListB);
    if (standsOnAnimation(row, at)) return DrawImage(FrameSurface, at, row, Backdrop::Text);
    DrawImage(FrameSurface, at, row, behind);
    if (BaseInUse) DrawImage(BaseSurface, at, row, behind);
}

bool BlitKeyImage(std::uint16_t image, QPoint at) { return BlitToWork(TableImageRow(image), at); }

void DrawKeyImageWithGroup(std::uint16_t image, QPoint at, std::uint16_t group, std::uint8_t inList) {
    const ImageRow row = TableImageRow(image);
    const QRect rect(at, QSize(row.Width, row.Height));
    BackdropToWork(rect, inList); // also for opaque pictures: one may have fewer rows than its rectangle
    if (!BlitKeyImage(image, {0, 0})) return;
    DrawGroupInRect(CurrentPage, group, rect);
    LandWork(rect, inList);
}

void DrawKey(const TouchHead& head, std::uint16_t image, std::uint16_t group) {
    if (image == NoImage) return;
    if (group == NoGroup)
        DrawKeyImage(image, head.topLeft(), Backdrop::Page, head.inList());
    else
        DrawKeyImageWithGroup(image, head.topLeft(), group, head.inList());
}

void RepaintChangedGroup(std::uint16_t page, const TouchHead& head, const KeyLooks& looks, bool pressed) {
    if (looks.OverlayGroup == NoGroup || !GroupChanged(page, looks.OverlayGroup)) return;
    const std::uint16_t wanted = pressed ? looks.PressImage : looks.NormalImage;
    const std::uint16_t other = pressed ? looks.NormalImage : looks.PressImage;
    DrawKey(head, wanted != NoImage ? wanted : other, looks.OverlayGroup);
}

} // namespace panel
