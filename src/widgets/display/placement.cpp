#include "widgets/display/placement.h"

#include "graphics/primitives.h"
#include "graphics/surfaces.h"

namespace panel {

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
