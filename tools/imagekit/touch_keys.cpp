#include "imagekit/touch_keys.h"

namespace imagekit {
namespace {

ByteWriter& write(ByteWriter& body, const Area& area) {
    return body.u16(area.X0).u16(area.Y0).u16(area.X1).u16(area.Y1);
}

/// The record of a key whose body begins with its rectangle.
template <class Key>
TouchRecord record(std::uint16_t family, const Key& key, ByteWriter& body) {
    return {.Family = family, .Notify = key.Notify, .InList = key.InList, .Body = body.take()};
}

} // namespace

TouchRecord Encode(const PageKey& key) {
    ByteWriter body;
    write(body, key.Where).u16(key.NotifyCode).u16(key.NormalImage).u16(key.PressImage);
    body.u16(key.TargetPage).u16(key.OverlayGroup);
    return record(0x8001, key, body);
}

TouchRecord Encode(const StateKey& key) {
    ByteWriter body;
    write(body, key.Where).u16(key.Address).u16(key.Lowest).u16(key.Highest);
    body.u16(key.FirstImage).u16(key.FirstPreset).u16(key.OverlayGroup);
    return record(0x800D, key, body);
}

TouchRecord Encode(const CopyKey& key) {
    ByteWriter body;
    write(body, key.Where).u16(key.NotifyCode).u16(key.TargetPage).u16(key.NormalImage).u16(key.PressImage);
    body.u16(key.Destination).u16(key.Source).u8(key.WordCount).u16(key.OverlayGroup);
    return record(0x800E, key, body);
}

TouchRecord Encode(const StepKey& key) {
    ByteWriter body;
    write(body, key.Where).u16(key.Address).u8(static_cast<std::uint32_t>(key.Type));
    body.u8(key.Up ? 1 : 0).u8(key.Wrap ? 1 : 0).u16(key.Step);
    body.u16(static_cast<std::uint16_t>(key.Highest)).u16(static_cast<std::uint16_t>(key.Lowest));
    body.u16(key.NormalImage).u16(key.PressImage).u8(key.Repeat ? 1 : 0);
    return record(0x8003, key, body);
}

TouchRecord Encode(const PopupKey& key) {
    ByteWriter body;
    write(body, key.Where).u16(key.NotifyCode).u16(key.NormalImage).u16(key.PressImage);
    body.u16(key.Page).u16(key.PopupX).u16(key.PopupY).u8((key.Dim ? 1u : 0u) | (key.CleanOld ? 2u : 0u));
    return record(0x8008, key, body);
}

TouchRecord Encode(const MultiKey& key) {
    const std::uint32_t flags = (key.Click.Enabled ? 1u : 0u) | (key.DoubleClick.Enabled ? 2u : 0u)
                                | (key.LongPress.Enabled ? 4u : 0u);
    ByteWriter body;
    write(body, key.Where).u16(key.NormalImage).u8(flags).u16(key.Click.NotifyCode).u16(key.PressImage);
    body.u16(key.Click.TargetPage).u16(key.Click.Address).u16(key.Click.Value);
    body.u16(key.DoubleClick.NotifyCode).u16(0).u8(key.DoubleClickWindow);
    body.u16(key.DoubleClick.TargetPage).u16(key.DoubleClick.Address).u16(key.DoubleClick.Value);
    body.u16(key.LongPress.NotifyCode).u16(0).u8(key.LongPressTicks);
    body.u16(key.LongPress.TargetPage).u16(key.LongPress.Address).u16(key.LongPress.Value);
    body.u16(key.OverlayGroup);
    return record(0x800B, key, body);
}

} // namespace imagekit
