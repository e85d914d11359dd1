#include "widgets/display/group_clock.h"

#include "graphics/image_blit.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "pages/display_kinds.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"
#include "store/clock.h"
#include "widgets/display/clock_glyphs.h"
#include "widgets/display/group.h"
#include "widgets/display/placement.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace panel {
namespace {

constexpr int Gap = 14; // px, between date and time

/// A clock that knows its place on the surface.
struct PlacedClock {
    PngClockFields fields;
    QPoint at;
};

std::mutex OverlayLock;
std::vector<PlacedClock> CameraClocks; // under OverlayLock, as is the OverlaySurface

using Blit = void (*)(QPoint at, const ImageRow& picture);

void blitToWork(QPoint at, const ImageRow& picture) { BlitToWork(picture, at); }
void blitToOverlay(QPoint at, const ImageRow& picture) { BlitOwnData(OverlaySurface, at, picture); }

/// The first picture of a text decides for all.
bool canBeginText(const ImageRow& picture) {
    return picture.showsWhatIsBehind() || picture.Format == format::RGB565
           || picture.Format == format::PngOpaque;
}

/// From the place of a picture to its top left corner.
QPoint cornerOf(const ImageRow& picture, int firstWidth) {
    switch (Rotation) {
    case 1: return {-firstWidth, 0};
    case 2: return {-picture.Width, -picture.Height};
    case 3: return {0, -picture.Height};
    default: return {0, 0};
    }
}

/// Returns the place behind the text.
QPoint drawText(const GlyphPictures& glyphs, QPoint at, Blit blit) {
    const auto pictures = glyphs.pictures();
    const auto first = std::ranges::find_if(pictures, &ImageRow::hasPicture);
    if (first == pictures.end() || !canBeginText(*first)) return at;
    for (const ImageRow& picture : pictures) {
        if (!picture.hasPicture()) continue;
        blit(at + cornerOf(picture, first->Width), picture);
        at += TextStep({picture.Width, picture.Height}, Rotation);
    }
    return at;
}

void drawClock(const PlacedClock& clock, const ClockLayout& layout, Blit blit) {
    const auto yearDigits = layout.hasGap() ? YearDigits::AsNeeded : YearDigits::Four;
    const std::uint16_t firstImage = clock.fields.FirstImage;
    const QPoint end = drawText(ClockGlyphs(layout.text, firstImage, yearDigits), clock.at, blit);
    if (!layout.hasGap()) return;
    const QPoint timeAt = end + TextStep({Gap, Gap}, Rotation);
    drawText(ClockGlyphs(layout.timeText, firstImage, yearDigits), timeAt, blit);
}

PlacedClock placedClock(const Parameters& p, QPoint corner) {
    const PngClockFields fields = ReadPngClock(p);
    return {fields, QPoint(fields.X, fields.Y) - corner};
}

bool reachesOverlay(const ClockLayout& layout) { return !layout.hasGap() && !layout.isWeekday(); }

/// On the OverlaySurface; the caller holds the lock.
void drawOnOverlay(const PlacedClock& clock) {
    const ClockLayout* layout = FindClockLayout(clock.fields.Format);
    if (layout && reachesOverlay(*layout)) drawClock(clock, *layout, blitToOverlay);
}

} // namespace

void DisplayClockInGroup(const Parameters& p, QRect host) {
    DrawGroupClock(p, host);
    DrawGroupClockOverlay(p, host);
}

void DrawGroupClock(const Parameters& p, QRect host) {
    const PlacedClock clock = placedClock(p, host.topLeft());
    if (const ClockLayout* layout = FindClockLayout(clock.fields.Format))
        drawClock(clock, *layout, blitToWork);
}

void DrawGroupClockOverlay(const Parameters& p, QRect host) {
    const PlacedClock clock = placedClock(p, host.topLeft());
    const ClockLayout* layout = FindClockLayout(clock.fields.Format);
    if (!layout) return;
    if (!reachesOverlay(*layout)) return drawClock(clock, *layout, blitToWork);
    const std::lock_guard lock(OverlayLock);
    drawOnOverlay(clock);
}

bool ClockChangedInGroup(const Parameters& /*p*/) { return ClockSecondFlag != 0; }

void HandOverCameraClocks(std::uint16_t page, std::uint16_t group, QPoint corner) {
    static std::vector<PlacedClock> found; // kept for its memory
    found.clear();
    ForEachInGroup(page, group, [corner](const DisplayKind& kind, const Parameters& p) {
        if (kind.displayInGroup == DisplayClockInGroup) found.push_back(placedClock(p, corner));
    });
    const std::lock_guard lock(OverlayLock);
    CameraClocks.swap(found);
}

QImage DrawGroupClocksOnly(QImage cameraPicture) {
    const std::lock_guard lock(OverlayLock);
    OverlaySurface = std::move(cameraPicture);
    for (const PlacedClock& clock : CameraClocks) drawOnOverlay(clock);
    return OverlaySurface;
}

} // namespace panel
