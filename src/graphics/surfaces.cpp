#include "graphics/surfaces.h"

#include <algorithm>
#include <array>
#include <cstdlib>

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

QImage blackSurface(QSize size) {
    QImage surface(size, QImage::Format_ARGB32_Premultiplied);
    surface.fill(Qt::black);
    return surface;
}

/// On memory that the system gives as zeros, so that what a project never uses costs neither time nor memory.
QImage transparentSurface(QSize size) {
    const auto rowBytes = static_cast<std::size_t>(size.width()) * sizeof(QRgb);
    auto* pixels = static_cast<uchar*>(std::calloc(static_cast<std::size_t>(size.height()), rowBytes));
    if (!pixels) return {};
    return {pixels,
            size.width(),
            size.height(),
            static_cast<int>(rowBytes),
            QImage::Format_ARGB32_Premultiplied,
            std::free,
            pixels};
}

} // namespace

void MakeSurfaces(QSize size) {
    for (QImage* surface : {&PageBackground, &FrameSurface}) *surface = blackSurface(size);
    for (QImage* surface :
         {&WorkSurface, &BaseSurface, &TextSurface, &PopupSaveSurface, &ImageScratchSurface, &OverlaySurface})
        *surface = transparentSurface(size);
    SlideSurface = transparentSurface({3 * size.width(), size.height()});
    ListSurfaceA = QImage();
    ListSurfaceB = QImage();
}

QImage* FindSurface(std::string_view name) {
    const auto found = std::ranges::find(SurfaceNames, name, &NamedSurface::name);
    return found == SurfaceNames.end() ? nullptr : found->surface;
}

} // namespace panel
