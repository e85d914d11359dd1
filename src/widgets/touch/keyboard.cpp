#include "widgets/touch/keyboard.h"

#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/flash_image.h"
#include "pages/page_switch.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/open_entry.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t X0 = 3;
constexpr std::size_t Y0 = 5;
constexpr std::size_t X1 = 7;
constexpr std::size_t Y1 = 9;
constexpr std::size_t Code = 11;
constexpr std::size_t PressPicture = 13;
} // namespace field

constexpr std::uint8_t CursorGlyph = '|';

/// The keyboard as it came onto the screen, to take clean pieces from, and where on the panel that is: an
/// image may give it a size that no panel has.
QImage CleanKeyboard;
QRect CleanPlace;
ImageRow KeyboardPicture;

QRect keyRect(const KeyboardKeyRow& key) {
    return QRect(QPoint(key.x0, key.y0), QPoint(key.x1, key.y1)).translated(OpenField->Keyboard);
}

void showKeyPressed(const KeyboardKeyRow& key) {
    const ImageRow picture = PageImageRow(key.PressPicture);
    const QRect place = keyRect(key);
    if (DrawsSomething(picture))
        BlitImage(FrameSurface, place.topLeft(), picture, place.translated(-OpenField->Keyboard),
                  picture.Width);
}

void takeKey() {
    const QPoint pointer(TouchX, TouchY);
    std::uint8_t index = 0;
    for (const KeyboardKeyRow& key : KeyboardKeys.rows()) {
        if (keyRect(key).contains(pointer)) {
            showKeyPressed(key);
            KeyRow = index;
            KeyActive = 1;
            return BeepIfEnabled();
        }
        ++index;
    }
}

TextStyle entryStyle(std::uint32_t colour) {
    return {.font = OpenField->Font, .anchor = OpenField->Anchor, .colour = colour, .backColour = 0xFFFF};
}

} // namespace

void ResetKeyboard() {
    KeyboardKeys.clear();
    KeyActive = 0;
    KeyRow = 0;
    CloseField();
}

void CloseField() {
    OpenField.reset();
    OpenEntryRect.reset();
    CursorBlinks = 0;
}

void AddKeyboardKey(const Parameters& p) {
    KeyboardKeyRow* key = KeyboardKeys.append();
    if (!key) return;
    *key = {.x0 = p.u16(field::X0),
            .y0 = p.u16(field::Y0),
            .x1 = p.u16(field::X1),
            .y1 = p.u16(field::Y1),
            .Code = p.u16(field::Code),
            .PressPicture = p.u16(field::PressPicture)};
}

bool TypeByte(std::uint8_t byte, std::size_t capacity) {
    if (EntryLength >= std::min(capacity, EntryBuffer.size())) return false;
    EntryBuffer[EntryLength++] = byte;
    return true;
}

bool EraseByte() {
    if (EntryLength == 0) return false;
    EntryBuffer[--EntryLength] = 0;
    return true;
}

void ClearEntry() {
    EntryBuffer.fill(0);
    EntryLength = 0;
    TextWidth = 0;
}

bool KeyboardExists(const EntryField& field) { return field.KeyboardPage < Sections.PageCount; }

/// The keyboard's page is not shown as others are: nothing of its widgets is drawn, and the page word stays.
void TurnToKeyboardPage(const EntryField& field) {
    PreviousPage = CurrentPage;
    CurrentPage = field.KeyboardPage;
}

QRect KeyboardRect() { return {OpenField->Keyboard, QSize(KeyboardPicture.Width, KeyboardPicture.Height)}; }

void DrawKeyboard(const EntryField& field) {
    KeyboardPicture = PageImageRow(field.KeyboardPage);
    if (KeyboardPicture.hasPicture())
        DrawImage(FrameSurface, field.Keyboard, KeyboardPicture, Backdrop::Frame);
    const QRect whole(field.Keyboard, QSize(KeyboardPicture.Width, KeyboardPicture.Height));
    CleanPlace = whole & FrameSurface.rect();
    CleanKeyboard = CleanPlace.isEmpty() ? QImage() : FrameSurface.copy(CleanPlace);
}

void BeginEntry(const EntryField& field) {
    OpenField = field;
    const QRect rect = KeyboardRect();
    OpenEntryRect = EntryRect{rect.left(), rect.top(), rect.right(), rect.bottom()};
    ClearEntry();
    CursorBlinks = field.Cursor ? 1 : 0;
    CursorTicks = 0;
    TouchBusy = 0;
}

void LeaveKeyboard() {
    KeyActive = 0;
    if (PopupActive)
        OpenPopup(PopupPage, PopupOriginX, PopupOriginY);
    else
        ShowPage(PreviousPage);
}

const KeyboardKeyRow* ScanKeyboard() {
    if (TouchPressed && !KeyActive) takeKey();
    if (TouchPressed || KeyActive != 1) return nullptr;
    KeyActive = 0;
    return KeyboardKeys.at(KeyRow);
}

void RestoreKey(const KeyboardKeyRow& key) {
    if (key.PressPicture != NoImage) RestoreKeyboard(keyRect(key));
}

TextBackground KeyboardBackground() {
    PlacedImageRow placed{KeyboardPicture};
    placed.OriginX = static_cast<std::uint16_t>(OpenField->Keyboard.x());
    placed.OriginY = static_cast<std::uint16_t>(OpenField->Keyboard.y());
    return {.source = BackSource::Image, .image = placed};
}

void DrawEntryText(TextBox box, TextMode mode) {
    DrawTextFrame(entryStyle(OpenField->TextColour), KeyboardBackground(), box, EntryText(), mode);
    TextWidth = LastTextWidth;
}

void RestoreKeyboard(QRect rect) {
    const QRect place = rect & CleanPlace;
    CopySurfaceRect(CleanKeyboard, place.translated(-CleanPlace.topLeft()), FrameSurface, place.topLeft());
}

QPoint CursorPlace() {
    const QPoint text = OpenField->textPlace();
    switch (OpenField->Anchor) {
    case 1: return text + QPoint(1 + TextWidth / 2, 0);
    case 2: return text - QPoint(CursorWidth, 0);
    default: return text + QPoint(TextWidth, 0);
    }
}

void DrawCursor(QPoint at) {
    const TextBox box{at.x(), at.y(), at.x() + CursorWidth + 1, at.y() + OpenField->Font.height - 1};
    DrawTextFrame(entryStyle(OpenField->CursorColour), KeyboardBackground(), box, std::span(&CursorGlyph, 1));
}

void BlinkCursor() {
    constexpr std::uint16_t phaseTicks = 60; // to be passed, not only reached
    if (CursorTicks <= phaseTicks) return;
    CursorTicks = 0;
    CursorHidden = CursorHidden ? 0 : 1;
    if (!OpenField || !OpenField->Cursor) return;
    if (CursorHidden)
        RestoreKeyboard({CursorPlace(), QSize(CursorWidth, OpenField->Font.height)});
    else
        DrawCursor(CursorPlace());
}

void CountCursorTicks() {
    if (CursorBlinks) CursorTicks += 1;
}

} // namespace panel
