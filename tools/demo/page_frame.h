// What all full pages of the demo share: ground, navigation rail, title and status line.
#pragma once

#include "demo/canvas.h"

namespace demo {

/// In the order of the navigation rail, which is that of their pages in the image.
enum class Place { Home, Heating, HotWater, Energy, Schedule, Settings, Service };

/// A canvas with the frame painted and `place` marked as the page on show.
class PageCanvas : public Canvas {
public:
    explicit PageCanvas(Place place);
    /// A page behind that of the place.
    PageCanvas(Place place, const QString& title);
};

} // namespace demo
