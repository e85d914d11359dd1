#include "pages/slide_page.h"

#include "graphics/image_row.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "host/reply_frame.h"
#include "pages/neighbour_page.h"
#include "pages/page_switch.h"
#include "widgets/touch/pointer.h"
#include "widgets/touch/touch_families.h"
#include "widgets/touch/touch_row.h"

#include <cstdlib>

namespace panel {
namespace {

namespace field {
constexpr std::size_t NextPage = 0x0B;
constexpr std::size_t NextCode = 0x0D;
constexpr std::size_t PreviousPage = 0x0F;
constexpr std::size_t PreviousCode = 0x11;
constexpr std::size_t BandTop = 0x13;
constexpr std::size_t BandBottom = 0x15;
} // namespace field

struct Neighbour {
    std::uint16_t page = NoPage;
    std::uint16_t code = 0; // for the host, on arrival

    bool exists() const { return page != NoPage; }
};

struct SlideSettings {
    bool notifies = false;
    Neighbour next, previous;
    int bandTop = 0, bandBottom = 0; // rows that slide
};
SlideSettings Settings;

constexpr int StepPixels = 4;
constexpr int StartPixels = 25;  // a finger that has moved further drags the page
constexpr int SettlePause = 400; // microseconds
constexpr int TurnTenths = 3;    // of the panel, from which on the neighbour is shown

int home() { return DisplayWidth; }
int turnDistance() { return DisplayWidth * TurnTenths / 10; }

void letGo() {
    LetGoOfTouchFamilies();
    PopupActive = 0;
}

/// Copies the window at a strip column to the band. While it moves right in the strip the last column of the
/// panel stays.
void showWindow(int column, bool movesRight) {
    const QRect window(column, Settings.bandTop, DisplayWidth - (movesRight ? 1 : 0),
                       Settings.bandBottom - Settings.bandTop);
    CopyToFrame(SlideSurface, window, {0, Settings.bandTop});
}

bool hasMovedFarEnough() {
    const auto moved = static_cast<std::uint16_t>(SlideLastX + StartPixels - TouchX);
    return moved > 2 * StartPixels;
}

void startSliding() {
    Sliding = 1;
    TouchBusy = 1;
    letGo();
    SlideLastX = TouchX;
    CopyToSlide(FrameSurface, FrameSurface.rect(), {home(), 0});
}

void awaitSliding() {
    SlideWanted = SlideShown = DisplayWidth;
    if (SlideLastX == 0)
        SlideLastX = TouchX;
    else if (hasMovedFarEnough())
        startSliding();
}

/// The finger cannot drag towards a side without a page.
std::uint16_t reachable(std::uint16_t column) {
    const bool outside =
        (column > home() && !Settings.next.exists()) || (column < home() && !Settings.previous.exists());
    return outside ? static_cast<std::uint16_t>(home()) : column;
}

/// Of the windows on the way only the last one is seen.
void followFinger() {
    const std::uint16_t x = TouchX;
    if (x == SlideLastX) return;
    SlideWanted = reachable(static_cast<std::uint16_t>(SlideWanted + SlideLastX - x));
    SlideLastX = x;
    const int target = SlideWanted / StepPixels * StepPixels, way = target - SlideShown;
    const int steps = way / StepPixels;
    if (steps != 0) showWindow(SlideShown + steps * StepPixels, way > 0);
    SlideShown = static_cast<std::uint16_t>(target);
}

/// Moves the window on to a column, a frame a step. False when the engine is to stop.
bool settle(PanelOutputs& outputs, int target) {
    const int way = target - SlideShown;
    for (int moved = 0; moved < std::abs(way); moved += StepPixels) {
        showWindow(SlideShown + (way > 0 ? moved : -moved), way > 0);
        if (!outputs.pause(SettlePause)) return false;
        outputs.showFrame(FrameSurface);
    }
    return true;
}

void turnTo(PanelOutputs& outputs, const Neighbour& neighbour, int column) {
    if (!settle(outputs, column)) return;
    SlideWanted = DisplayWidth;
    if (Settings.notifies) SendActionCode(neighbour.code);
    ShowPage(neighbour.page);
}

void snapBack(PanelOutputs& outputs) {
    if (SlideShown == home() || !settle(outputs, home())) return;
    showWindow(home(), false);
    outputs.showFrame(FrameSurface);
    SlideWanted = DisplayWidth;
}

void release(PanelOutputs& outputs) {
    Sliding = 0;
    TouchBusy = 0;
    letGo();
    if (SlideWanted > home() + turnDistance())
        turnTo(outputs, Settings.next, 2 * home());
    else if (SlideWanted < DisplayWidth * (10 - TurnTenths) / 10)
        turnTo(outputs, Settings.previous, 0);
    else
        snapBack(outputs);
}

void drawNeighbour(const Neighbour& neighbour, int column) {
    if (!neighbour.exists()) return;
    RenderNeighbourPage(neighbour.page);
    CopyToSlide(FrameSurface, FrameSurface.rect(), {column, 0});
}

} // namespace

void PrepareSlidePage(std::uint16_t page, const Parameters& record) {
    SlidePageActive = 1;
    Settings = {.notifies = (record.typeWord() & NotifyFlag) != 0,
                .next = {record.u16(field::NextPage), record.u16(field::NextCode)},
                .previous = {record.u16(field::PreviousPage), record.u16(field::PreviousCode)},
                .bandTop = record.u16(field::BandTop),
                .bandBottom = record.u16(field::BandBottom)};
    drawNeighbour(Settings.previous, 0);
    drawNeighbour(Settings.next, 2 * home());
    ReturnFromNeighbours(page);
}

void ForgetSlidePage() {
    SlidePageActive = 0;
    Sliding = 0;
    SlideLastX = 0;
}

void SlidePageTick(PanelOutputs& outputs) {
    if (SmallChip() || !SlidePageActive) return;
    if (TouchPressed && !Sliding) awaitSliding();
    if (TouchPressed && Sliding) return followFinger();
    if (TouchPressed) return;
    if (Sliding) release(outputs);
    SlideLastX = 0; // the next press starts from its own place, even in the very next cycle
}

} // namespace panel
