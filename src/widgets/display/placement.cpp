#include "widgets/display/placement.h"

#include "graphics/primitives.h"
#include "graphics/surfaces.h"

namespace panel {

void BackdropToWork(QRect rect, std::uint8_t inList) {
    if (inList)
        CopySurfaceRect(ListSurfaceB, rect, WorkSurface, {0, 0});
    else
        RestoreWorkRect({0, 0}, rect);
}

void LandWork(QRect rect, std::uint8_t inList) {
    const QRect source({0, 0}, rect.size());
    if (inList)
        CopySurfaceRect(WorkSurface, source, ListSurfaceA, rect.topLeft());
    else
        CopyToFrame(WorkSurface, source, rect.topLeft());
}

} // namespace panel
