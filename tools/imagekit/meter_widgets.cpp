#include "imagekit/meter_widgets.h"

namespace imagekit {
namespace {

std::uint16_t bits(std::int16_t value) { return static_cast<std::uint16_t>(value); }

} // namespace

StoredPicture NeedlePicture(const Pixels& pixels, QPoint offset, const PanelConfig& config) {
    StoredPicture picture = EncodePicture(pixels, PixelLayout(config), "needle");
    ByteWriter data;
    data.u16(static_cast<std::uint16_t>(offset.x())).u16(static_cast<std::uint16_t>(offset.y())).u32(0);
    picture.Data = data.bytes(picture.Data).take();
    return picture;
}

DisplayRecord Encode(const RingGauge& gauge) {
    ByteWriter block;
    block.u16(gauge.ValueAddress).u16(gauge.X).u16(gauge.Y).u16(gauge.Foreground).u16(gauge.Background);
    block.u16(bits(gauge.Lowest)).u16(bits(gauge.Highest)).u16(gauge.StartAngle).u16(gauge.EndAngle);
    block.u16(gauge.ReadoutX).u16(gauge.ReadoutY).u8(gauge.IntegerDigits).u8(gauge.Decimals);
    block.u8(static_cast<std::uint8_t>(gauge.Align)).u8(gauge.Font).u24(gauge.Colour).u16(gauge.FirstDigit);
    block.u16(0).u8(static_cast<std::uint8_t>(gauge.Readout)).u16(gauge.Group);
    return {.Kind = 0x0C, .ParameterAddress = gauge.ParameterAddress, .Block = block.take()};
}

DisplayRecord Encode(const NeedleMeter& meter) {
    ByteWriter block;
    block.u16(meter.ValueAddress).u16(meter.Dial).u16(meter.X).u16(meter.Y).u16(meter.Width);
    block.u16(meter.Height).u16(meter.CentreX).u16(meter.CentreY).u16(meter.Lowest).u16(meter.Highest);
    block.u16(meter.Step).u8(meter.Smooth ? 1 : 0).u16(meter.Cover);
    block.u8(meter.DigitsAddress != None ? 1 : 0).u16(meter.DigitsAddress);
    block.u8(static_cast<std::uint8_t>(meter.DigitsType)).u16(meter.DigitsX).u16(meter.DigitsY);
    block.u16(meter.FirstDigit).u16(0);
    block.u8(
        static_cast<std::uint8_t>(static_cast<unsigned>(meter.Align) | (meter.LeadingZeros ? 0x80U : 0U)));
    block.u8(meter.IntegerDigits).u8(meter.Decimals).u8(static_cast<std::uint8_t>(meter.Kind));
    block.u16(meter.NeedleWidth).u16(meter.Tail).u24(meter.ColourA).u16(meter.Length).u24(meter.ColourB);
    block.u16(meter.FirstNeedle).u16(0).u16(0);
    return {.Kind = 0x12, .ParameterAddress = meter.ParameterAddress, .Block = block.take()};
}

WidgetDescription Describe(const RingGauge& gauge) {
    return {.Name = "ringGauge", .Address = gauge.ValueAddress, .VectorAddress = gauge.ParameterAddress};
}

WidgetDescription Describe(const NeedleMeter& meter) {
    return {.Name = "needleMeter", .Address = meter.ValueAddress, .VectorAddress = meter.ParameterAddress};
}

} // namespace imagekit
