#include "imagekit/touch_controls.h"

namespace imagekit {

TouchRecord Encode(const Slider& slider) {
    ByteWriter body;
    body.u16(slider.FillX).u16(slider.FillY).u16(slider.FillImage).u16(slider.Address);
    body.u16(slider.Where.X0).u16(slider.Where.Y0).u16(slider.Where.X1).u16(slider.Where.Y1);
    body.u16(slider.ThumbImage).u8(static_cast<std::uint32_t>(slider.Direction));
    body.u16(static_cast<std::uint16_t>(slider.Highest)).u16(static_cast<std::uint16_t>(slider.Lowest));
    body.u16(slider.BackX).u16(slider.BackY).u16(slider.BackImage).u8(slider.Touchable ? 1 : 0);
    body.u16(slider.OverlayGroup);
    return {.Family = 0x8004, .Notify = slider.Notify, .InList = slider.InList, .Body = body.take()};
}

TouchRecord Encode(const RollerPicker& picker) {
    ByteWriter body;
    body.u16(picker.Address);
    body.u16(picker.Window.X0).u16(picker.Window.Y0).u16(picker.Window.X1).u16(picker.Window.Y1);
    body.u16(picker.MarginA).u16(picker.MarginB);
    body.u8((picker.Horizontal ? 0x01u : 0u) | (picker.StopsAtEnds ? 0x80u : 0u));
    body.u16(picker.SelectedStrip).u16(picker.NormalStrip);
    body.u16(picker.Lowest).u16(picker.Highest).u16(picker.Step);
    return {.Family = 0x8006, .Notify = picker.Notify, .Body = body.take()};
}

TouchRecord Encode(const Rtouch& ring) {
    ByteWriter body;
    body.u16(ring.Address).u16(ring.X).u16(ring.Y).u16(ring.Foreground).u16(ring.Background).u16(ring.Thumb);
    body.u16(ring.Radius).u8(ring.HalfWidth).u16(static_cast<std::uint16_t>(ring.Lowest));
    body.u16(static_cast<std::uint16_t>(ring.Highest)).u16(ring.StartAngle).u16(ring.EndAngle);
    body.u16(ring.ReadoutX).u16(ring.ReadoutY).u8(ring.IntegerDigits).u8(ring.Decimals);
    body.u8(static_cast<std::uint8_t>(ring.Align)).u8(ring.Font).u24(ring.Colour).u16(ring.FirstDigit);
    body.u16(0).u8(static_cast<std::uint8_t>(ring.Readout)).u8(ring.Touchable ? 1 : 0).u16(ring.OverlayGroup);
    return {.Family = 0x8007, .Notify = ring.Notify, .Body = body.take()};
}

TouchRecord Encode(const SlidePage& slide) {
    ByteWriter body;
    body.zeros(8).u16(slide.NextPage).u16(slide.NextCode).u16(slide.PreviousPage).u16(slide.PreviousCode);
    body.u16(slide.BandTop).u16(slide.BandBottom);
    return {.Family = 0x800C, .Notify = slide.Notify, .Body = body.take()};
}

TouchRecord Encode(const SlidingList& list) {
    ByteWriter body;
    body.u16(0).u16(list.Window.X0).u16(list.Window.Y0).u16(list.Window.X1).u16(list.Window.Y1).u8(0);
    body.u16(list.ListPage).u8(static_cast<std::uint8_t>(list.Mode)).zeros(5);
    body.u16(list.BarAtRest).u16(list.BarMoving).u16(list.BarMargin).u16(list.BarOffset);
    return {.Family = 0x800F, .Body = body.take()};
}

TouchRecord Encode(const SwipeGesture& gesture) {
    ByteWriter body;
    for (const SwipeTarget& target : {gesture.Up, gesture.Down, gesture.Left, gesture.Right})
        body.u16(target.Page).u16(target.Code);
    return {.Family = 0x8000, .Notify = gesture.Notify, .Body = body.take()};
}

WidgetDescription Describe(const Slider& slider) {
    return {.Name = "slider", .Address = slider.Address, .Table = WidgetTable::Touch};
}

WidgetDescription Describe(const Rtouch& ring) {
    return {.Name = "rtouch", .Address = ring.Address, .Table = WidgetTable::Touch};
}

} // namespace imagekit
