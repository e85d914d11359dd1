#include "demo/layout.h"
#include "demo/pages/pages.h"

namespace demo {

Art PaintStandby() {
    Canvas canvas(layout::Screen, colour::Rail);
    canvas.text(layout::standby::Name(0), "Indoors °C", style::Body.in(colour::Faint), Qt::AlignCenter);
    canvas.text(layout::standby::Name(1), "Outdoors °C", style::Body.in(colour::Faint), Qt::AlignCenter);
    return canvas.take();
}

} // namespace demo
