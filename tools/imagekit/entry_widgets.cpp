#include "imagekit/entry_widgets.h"

namespace imagekit {
namespace {

ByteWriter beginWith(const Area& area) {
    ByteWriter body;
    body.u16(area.X0).u16(area.Y0).u16(area.X1).u16(area.Y1);
    return body;
}

} // namespace

TouchRecord Encode(const KeyboardKey& key) {
    ByteWriter body = beginWith(key.Where);
    body.u16(key.Code).u16(key.PressPicture);
    return {.Family = 0x8005, .Body = body.take()};
}

TouchRecord Encode(const NumberEntry& entry) {
    const KeyboardPlace& keyboard = entry.Keyboard;
    ByteWriter body = beginWith(entry.Where);
    body.u16(entry.Address).u8(static_cast<std::uint32_t>(entry.Type));
    body.u8(entry.IntegerDigits).u8(entry.Decimals);
    body.u16(keyboard.X).u16(keyboard.Y).u16(keyboard.TextX).u16(keyboard.TextY);
    body.u8(entry.Font).u8(entry.GlyphWidth).u8(entry.Cursor ? 1 : 0).u16(keyboard.Page);
    body.u8(entry.Limited ? 1 : 0);
    body.u32(static_cast<std::uint32_t>(entry.Highest)).u32(static_cast<std::uint32_t>(entry.Lowest));
    body.u8(static_cast<std::uint32_t>(entry.Align)).u24(entry.TextColour).u24(entry.CursorColour);
    body.u8(entry.Prefilled ? 1 : 0);
    return {.Family = 0x8002, .Notify = entry.Notify, .InList = entry.InList, .Body = body.take()};
}

TouchRecord Encode(const TextEntry& entry) {
    const KeyboardPlace& keyboard = entry.Keyboard;
    ByteWriter body = beginWith(entry.Where);
    body.u16(entry.Address).u16(entry.Capacity).u8(entry.Prefilled ? 1 : 0);
    body.u8(entry.Font).u8(entry.GlyphWidth).u8(entry.GlyphHeight).u8(entry.Cursor ? 1 : 0);
    body.u24(entry.TextColour).u24(entry.CursorColour).u16(keyboard.TextX).u16(keyboard.TextY);
    body.u16(keyboard.Page).u16(keyboard.X).u16(keyboard.Y).u8(entry.Password ? 1 : 0);
    return {.Family = 0x8009, .Notify = entry.Notify, .InList = entry.InList, .Body = body.take()};
}

TouchRecord Encode(const PinyinEntry& entry) {
    const KeyboardPlace& keyboard = entry.Keyboard;
    ByteWriter body = beginWith(entry.Where);
    body.u16(entry.Address).u16(entry.Capacity).u8(entry.Prefilled ? 1 : 0);
    body.u8(entry.Font).u8(entry.GlyphWidth).u8(entry.GlyphHeight);
    body.u8(entry.PinyinFont).u8(entry.PinyinGlyphWidth).u8(entry.PinyinGlyphHeight);
    body.u8(entry.Cursor ? 1 : 0).u24(entry.TextColour).u24(entry.CursorColour);
    body.u16(keyboard.TextX).u16(keyboard.TextY).u24(entry.PinyinColour);
    body.u16(entry.LettersX).u16(entry.LettersY).u16(entry.CandidatesX).u16(entry.CandidatesY);
    body.u8(entry.Gap).u16(keyboard.Page).u16(keyboard.X).u16(keyboard.Y);
    return {.Family = 0x800A, .Notify = entry.Notify, .InList = entry.InList, .Body = body.take()};
}

} // namespace imagekit
