#include "widgets/touch/pointer.h"

#include "host/config_block.h"

namespace panel {
namespace {

bool beyondFarEdge(QPoint at) { return at.x() >= DisplayWidth || at.y() >= DisplayHeight; }

void touchAt(QPoint at) {
    TouchX = static_cast<std::uint16_t>(at.x());
    TouchY = static_cast<std::uint16_t>(at.y());
    if (!TouchStartLatched) {
        TouchStartX = TouchX;
        TouchStartY = TouchY;
        TouchStartLatched = 1;
    }
    TouchPressed = 1;
}

} // namespace

void PressPointer(QPoint at) {
    if (at.x() < 0 || at.y() < 0) return;
    if (beyondFarEdge(at))
        ReleasePointer();
    else
        touchAt(at);
}

void MovePointer(QPoint at) {
    if (at.x() < 0 || at.y() < 0 || beyondFarEdge(at))
        ReleasePointer();
    else
        touchAt(at);
}

void ReleasePointer() {
    TouchPressed = 0;
    TouchStartLatched = 0;
}

void ForgetPress() {
    TouchBusy = 0;
    ReleasePointer();
}

} // namespace panel
