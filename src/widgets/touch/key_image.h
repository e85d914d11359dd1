// The pictures of keys and icons, and how a press shows. Engine thread.
#pragma once

#include "graphics/image_blit.h"
#include "host/reply_frame.h"
#include "widgets/display/group.h"
#include "widgets/touch/touch_row.h"

#include <QPoint>

#include <cstdint>

namespace panel {

// `image` is an index of the image table in the language in force. One without a picture, or with a picture
// of a kind that keys do not know, draws nothing. `at` is in panel coordinates, and on the picture of the
// sliding list when `inList` is not 0: there the list shows it in its next refresh.

/// Draws a picture over the backdrop that `behind` names.
void DrawKeyImage(std::uint16_t image, QPoint at, Backdrop behind, std::uint8_t inList);
/// Draws a picture over the page, and the records of a group over it.
void DrawKeyImageWithGroup(std::uint16_t image, QPoint at, std::uint16_t group, std::uint8_t inList);

/// Draws a whole picture at `at` on the WorkSurface, over what is there. Returns false when there was nothing
/// to draw.
bool BlitKeyImage(std::uint16_t image, QPoint at);

/// The looks of a key, as indices of the image table or NoImage, and the group over them or NoGroup.
struct KeyLooks {
    std::uint16_t NormalImage = NoImage;
    std::uint16_t PressImage = NoImage;
    std::uint16_t OverlayGroup = NoGroup;
};

/// Draws a look at the key's place, when there is one. `group` may be NoGroup.
void DrawKey(const TouchHead& head, std::uint16_t image, std::uint16_t group = NoGroup);
inline void ShowNormal(const TouchHead& head, const KeyLooks& looks) {
    DrawKey(head, looks.NormalImage, looks.OverlayGroup);
}
inline void ShowPressed(const TouchHead& head, const KeyLooks& looks) {
    DrawKey(head, looks.PressImage, looks.OverlayGroup);
}

/// The first look of a key whose table is being built: only keys on the screen show.
inline void ShowNewKey(const TouchHead& head, const KeyLooks& looks) {
    if (head.onScreen()) ShowNormal(head, looks);
}

// The hooks of families whose rows have a head, looks and, for the frames, a notify code.

template <class Row>
void ShowRowPressed(const Row& row) {
    ShowPressed(row.head, row.Looks);
}
/// A pressed row at rest again; one without a press look never looked otherwise.
template <class Row>
void ShowRowAtRest(const Row& row) {
    if (row.Looks.PressImage != NoImage) ShowNormal(row.head, row.Looks);
}
template <class Row>
void NotifyByCode(const Row& row) {
    if (row.head.notifies()) SendActionCode(row.NotifyCode);
}
template <class Row>
void NotifyAndShowNormal(const Row& row) {
    NotifyByCode(row);
    ShowNormal(row.head, row.Looks);
}

/// Draws a key again when its group has changed; a look that it lacks is replaced by the other one.
void RepaintChangedGroup(std::uint16_t page, const TouchHead& head, const KeyLooks& looks, bool pressed);

} // namespace panel
