#include "widgets/touch/key_image.h"

#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "widgets/display/image_animation.h"
#include "widgets/touch/encoder.h"

namespace panel {
namespace {

QRect placedAt(QPoint at, const ImageRow& image) { return {at, QSize(image.Width, image.Height)}; }

/// An icon over an animation stands on the animation, and is no part of the page's background.
bool standsOnAnimation(const ImageRow& image, QPoint at) {
    return image.Format == format::aRGB4444 && IsUnderAnimation(at.x(), at.y());
}

void prepareWork(const QRect& rect, std::uint8_t inList) {
    if (inList)
        CopySurfaceRect(ListSurfaceB, rect, WorkSurface, {0, 0});
    else
        RestoreWorkRect({0, 0}, rect);
}

void landWork(const QRect& rect, std::uint8_t inList) {
    const QRect source({0, 0}, rect.size());
    if (inList)
        CopySurfaceRect(WorkSurface, source, ListSurfaceA, rect.topLeft());
    else
        CopyToFrame(WorkSurface, source, rect.topLeft());
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

void DrawKeyImageWithGroup(std::uint16_t image, QPoint at, std::uint16_t group, std::uint8_t inList) {
    const ImageRow row = TableImageRow(image);
    if (!DrawsSomething(row)) return;
    const QRect rect = placedAt(at, row);
    if (row.showsWhatIsBehind()) prepareWork(rect, inList);
    BlitImage(WorkSurface, {0, 0}, row, {{0, 0}, rect.size()}, row.Width);
    DrawGroupInRect(CurrentPage, group, rect);
    landWork(rect, inList);
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

void DrawNewKey(const TouchHead& head, std::uint16_t image, std::uint16_t group) {
    if (head.onScreen()) DrawKey(head, image, group);
}

} // namespace panel
