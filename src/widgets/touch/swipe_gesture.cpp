#include "widgets/touch/swipe_gesture.h"

#include "graphics/image_row.h"
#include "host/reply_frame.h"
#include "pages/page_switch.h"
#include "widgets/touch/pointer.h"
#include "widgets/touch/slider.h"
#include "widgets/touch/touch_families.h"
#include "widgets/touch/touch_row.h"

#include <QPoint>

#include <array>
#include <cstdlib>

namespace panel {
namespace {

enum class Direction : std::uint8_t { Up, Down, Left, Right };

struct Target {
    std::uint16_t page = NoPage;
    std::uint16_t code = 0; // for the host
};

struct GestureSettings {
    bool notifies = false;
    std::array<Target, 4> targets{}; // by Direction
};
GestureSettings Settings;

constexpr int FastStart = 24; // px that a press has moved at the first look, and no key keeps it
constexpr int Shortest = 49;  // px; a swipe is longer than that

QPoint moved() { return {TouchX - int{TouchStartX}, TouchY - int{TouchStartY}}; }
bool isWithin(QPoint way, int reach) { return std::abs(way.x()) <= reach && std::abs(way.y()) <= reach; }

void arm() {
    GestureArmed = 1;
    if (isWithin(moved(), FastStart)) return;
    YieldToSwipe();
    CloseTextFields();
    SliderChanged = 0;
    PopupActive = 0;
}

Direction directionOf(QPoint way) {
    if (std::abs(way.y()) > std::abs(way.x())) return way.y() < 0 ? Direction::Up : Direction::Down;
    return way.x() < 0 ? Direction::Left : Direction::Right;
}

void swipe(Direction direction) {
    const Target target = Settings.targets[static_cast<std::size_t>(direction)];
    if (target.page == NoPage) return;
    GestureActive = 0;
    if (Settings.notifies) SendActionCode(target.code);
    ShowPage(target.page);
}

} // namespace

void AddSwipeGesture(const Parameters& p) {
    constexpr std::size_t firstTarget = 3, targetBytes = 4;
    GestureActive = 1;
    Settings.notifies = p.typeWord() == ((p.typeWord() & FamilyMask) | NotifyFlag);
    for (std::size_t i = 0; i < Settings.targets.size(); ++i) {
        const std::size_t at = firstTarget + targetBytes * i;
        Settings.targets[i] = {p.u16(at), p.u16(at + 2)};
    }
}

void ResetSwipeGesture() {
    GestureActive = 0;
    GestureArmed = 0;
}

void GestureTick() {
    if (!GestureActive) return;
    if (TouchPressed && !GestureArmed) arm();
    if (TouchPressed || !GestureArmed) return;
    GestureArmed = 0;
    if (!isWithin(moved(), Shortest)) swipe(directionOf(moved()));
}

} // namespace panel
