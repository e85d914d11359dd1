#include "widgets/display/value_icon.h"

#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "pages/display_kinds.h"
#include "pages/page_switch.h"
#include "store/variable_store.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/placement.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/key_image.h"

#include <optional>
#include <utility>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Value = 5;
constexpr std::size_t X = 7;
constexpr std::size_t Y = 9;
constexpr std::size_t FirstImage = 0x0B;
constexpr std::size_t Minimum = 0x0F;
constexpr std::size_t Maximum = 0x11;
constexpr std::size_t Backdrop = 0x13;
constexpr std::size_t Group = 0x14;
} // namespace field

bool exists(const Parameters& p) { return p.u16(field::FirstImage) < ValueIconImageBound; }

QPoint placeOf(const Parameters& p) { return QPoint(p.u16(field::X), p.u16(field::Y)) + PopupShift(); }

/// The picture of the variable's value; none when it is out of range.
std::optional<std::uint16_t> currentImage(const Parameters& p) {
    const std::uint16_t value = ReadWord(p.u16(field::Value));
    const std::uint16_t minimum = p.u16(field::Minimum);
    if (value < minimum || value > p.u16(field::Maximum)) return std::nullopt;
    return static_cast<std::uint16_t>(p.u16(field::FirstImage) + value - minimum);
}

/// The place that all pictures of the icon share. Empty when the first one is no picture.
QRect areaOf(const Parameters& p) {
    const ImageRow first = TableImageRow(p.u16(field::FirstImage));
    return first.hasPicture() ? QRect(placeOf(p), QSize(first.Width, first.Height)) : QRect();
}

/// An icon of the page is also taken out of what others have behind them.
void eraseFromPage(QRect area) {
    RestoreBackground(area);
    if (IsUnderAnimation(area.x(), area.y()))
        CopySurfaceRect(TextSurface, area, FrameSurface, area.topLeft());
    if (BaseInUse) CopySurfaceRect(PageBackground, area, BaseSurface, area.topLeft());
}

void eraseUnderGroup(QRect area, std::uint16_t group, std::uint8_t inList) {
    BackdropToWork(area, inList);
    DrawGroupInRect(CurrentPage, group, area);
    LandWork(area, inList);
}

void erase(const Parameters& p) {
    const QRect area = areaOf(p);
    if (area.isEmpty()) return;
    const std::uint16_t group = p.u16(field::Group);
    if (group != NoGroup)
        eraseUnderGroup(area, group, p.inList());
    else if (p.inList())
        CopySurfaceRect(ListSurfaceB, area, ListSurfaceA, area.topLeft());
    else
        eraseFromPage(area);
}

void show(const Parameters& p, std::uint16_t image) {
    const std::uint16_t group = p.u16(field::Group);
    if (group != NoGroup)
        DrawKeyImageWithGroup(image, placeOf(p), group, p.inList());
    else
        DrawKeyImage(image, placeOf(p), static_cast<Backdrop>(p.u8(field::Backdrop)), p.inList());
}

constexpr std::uint8_t PassOfDisplay = 1;
constexpr std::uint8_t PassAfterTouch = 2;

/// Icons on top of the page. The background widget under them brings back what lies behind.
void showOnTop(const Parameters& p, std::uint8_t pass) {
    if (pass != PassOfDisplay && pass != PassAfterTouch) return;
    if (const auto image = currentImage(p))
        DrawKeyImageWithGroup(*image, placeOf(p), p.u16(field::Group), 0);
    else if (pass == PassAfterTouch && BaseInUse)
        CopyToFrame(BaseSurface, areaOf(p), placeOf(p));
}

} // namespace

void DisplayValueIcon(const Parameters& p) {
    const std::uint8_t pass = std::exchange(IconPass, std::uint8_t{0});
    if (!exists(p)) return;
    if (pass != 0 || p.u16(field::Value) == BaseVariable)
        showOnTop(p, pass);
    else if (const auto image = currentImage(p))
        show(p, *image);
    else
        erase(p);
}

void DisplayValueIconInGroup(const Parameters& p, QRect host) {
    if (!exists(p)) return;
    if (const auto image = currentImage(p)) BlitKeyImage(*image, placeOf(p) - host.topLeft());
}

} // namespace panel
