#include "graphics/surfaces.h"

#include <algorithm>
#include <array>

namespace panel {
namespace {

struct NamedSurface {
    std::string_view name;
    QImage* surface;
};
const std::array<NamedSurface, 11> SurfaceNames{{{"PageBackground", &PageBackground},
                                                 {"FrameSurface", &FrameSurface},
                                                 {"WorkSurface", &WorkSurface},
                                                 {"BaseSurface", &BaseSurface},
                                                 {"SlideSurface", &SlideSurface},
                                                 {"TextSurface", &TextSurface},
                                                 {"PopupSaveSurface", &PopupSaveSurface},
                                                 {"ImageScratchSurface", &ImageScratchSurface},
                                                 {"OverlaySurface", &OverlaySurface},
                                                 {"ListSurfaceA", &ListSurfaceA},
                                                 {"ListSurfaceB", &ListSurfaceB}}};

QImage newSurface(QSize size, Qt::GlobalColor colour) {
    QImage surface(size, QImage::Format_ARGB32_Premultiplied);
    surface.fill(colour);
    return surface;
}

} // namespace

void MakeSurfaces(QSize size) {
    for (QImage* surface : {&PageBackground, &FrameSurface}) *surface = newSurface(size, Qt::black);
    for (QImage* surface :
         {&WorkSurface, &BaseSurface, &TextSurface, &PopupSaveSurface, &ImageScratchSurface, &OverlaySurface})
        *surface = newSurface(size, Qt::transparent);
    SlideSurface = newSurface({3 * size.width(), size.height()}, Qt::transparent);
    ListSurfaceA = QImage();
    ListSurfaceB = QImage();
}

QImage* FindSurface(std::string_view name) {
    const auto found = std::ranges::find(SurfaceNames, name, &NamedSurface::name);
    return found == SurfaceNames.end() ? nullptr : found->surface;
}

} // namespace panel
