#include "widgets/display/placement.h"

#include "graphics/primitives.h"
#include "graphics/surfaces.h"

namespace panel {

bool BlitToWork(const ImageRow& image, QPoint at) {
    if (!DrawsSomething(image)) return false;
    BlitImage(WorkSurface, at, image, {0, 0, image.Width, image.Height}, image.Width);
    return true;
}

void CopyBackgroundToFrame(QRect rect) {
    CopySurfaceRect(PageBackground, rect, FrameSurface, rect.topLeft());
}

void BackdropToWork(QRect rect, std::uint8_t inList) {
    CopySurfaceRect(inList ? ListSurfaceB : PageBackground, rect, WorkSurface, {0, 0});
}

void LandWork(QRect rect, std::uint8_t inList) {
    const QRect source({0, 0}, rect.size());
    if (inList)
        CopySurfaceRect(WorkSurface, source, ListSurfaceA, rect.topLeft());
    else
        CopyToFrame(WorkSurface, source, rect.topLeft());
}

} // namespace panel
