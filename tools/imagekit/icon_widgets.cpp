#include "imagekit/icon_widgets.h"

namespace imagekit {

DisplayRecord Encode(const ValueIcon& icon) {
    ByteWriter block;
    block.u16(icon.ValueAddress).u16(icon.X).u16(icon.Y).u16(icon.FirstImage).u16(0);
    block.u16(icon.Minimum).u16(icon.Maximum).u8(icon.Backdrop).u16(icon.Group);
    return {.Kind = 0x03,
            .Flags = ListFlag(icon.InList),
            .ParameterAddress = icon.ParameterAddress,
            .Block = block.take()};
}

DisplayRecord Encode(const BitIcon& icon) {
    ByteWriter block;
    block.u16(icon.ValueAddress).u16(icon.X).u16(icon.Y).u8(icon.Bit).u16(icon.ClearImage);
    block.u16(icon.SetImage).u8(icon.Backdrop).u16(icon.Group);
    return {.Kind = 0x0F,
            .Flags = ListFlag(icon.InList),
            .ParameterAddress = icon.ParameterAddress,
            .Block = block.take()};
}

WidgetDescription Describe(const ValueIcon& icon) {
    return {.Name = "valueIcon", .Address = icon.ValueAddress, .VectorAddress = icon.ParameterAddress};
}

WidgetDescription Describe(const BitIcon& icon) {
    return {.Name = "bitIcon", .Address = icon.ValueAddress, .VectorAddress = icon.ParameterAddress};
}

} // namespace imagekit
