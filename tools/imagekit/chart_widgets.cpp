#include "imagekit/chart_widgets.h"

namespace imagekit {

DisplayRecord Encode(const Curve& curve) {
    ByteWriter block;
    if (curve.ParameterAddress != Inline) block.u8(0); // its block begins one byte earlier
    block.u16(curve.X1).u16(curve.Y1).u16(curve.X2).u16(curve.Y2).u16(curve.BaseOffset);
    block.u16(curve.BaseValue).u16(curve.Scale).u24(curve.Colour);
    block.u8(curve.Channel | (curve.LeftToRight ? 0x80U : 0U)).u8(curve.StepX).u8(curve.Thickness);
    return {.Kind = 0x0D, .ParameterAddress = curve.ParameterAddress, .Block = block.take()};
}

DisplayRecord Encode(const Textroll& text) {
    ByteWriter block;
    block.u16(text.TextAddress).u16(text.X1).u16(text.Y1).u16(text.X2).u16(text.Y2).u16(text.TextWords);
    block.u8(text.Font).u8(text.GlyphWidth).u8(text.GlyphHeight).u8(text.Encoding);
    block.u8(static_cast<std::uint8_t>(text.Align)).u8(text.RollAlways ? 1 : 0).u24(text.Colour);
    block.u8(text.Speed).u24(text.BackColour).u16(text.Gap).u8(text.Opaque ? 1 : 0);
    return {.Kind = 0x09,
            .Flags = ListFlag(text.InList),
            .ParameterAddress = text.ParameterAddress,
            .Block = block.take()};
}

WidgetDescription Describe(const Curve& curve) {
    return {.Name = "curve", .VectorAddress = curve.ParameterAddress};
}

WidgetDescription Describe(const Textroll& text) {
    return {.Name = "textroll",
            .Address = text.TextAddress,
            .VectorAddress = text.ParameterAddress,
            .Font = text.Font};
}

} // namespace imagekit
