#include "imagekit/bar_widgets.h"

namespace imagekit {
namespace {

void putBigEndian(ByteWriter& block, std::int64_t value) {
    for (int shift = 56; shift >= 0; shift -= 8) block.u8(static_cast<std::uint64_t>(value) >> shift & 0xFF);
}

std::uint16_t bits(std::int16_t value) { return static_cast<std::uint16_t>(value); }

} // namespace

DisplayRecord Encode(const ImageBar& bar) {
    ByteWriter block;
    block.u16(bar.ValueAddress).u16(bar.BarX).u16(bar.BarY).u16(bar.BarImage);
    block.u8(static_cast<std::uint8_t>(bar.Direction)).u16(bits(bar.Maximum)).u16(bits(bar.Minimum));
    block.u16(bar.BackX).u16(bar.BackY).u16(bar.BackImage);
    return {.Kind = 0x0B, .ParameterAddress = bar.ParameterAddress, .Block = block.take()};
}

DisplayRecord Encode(const QrCode& code) {
    ByteWriter block;
    block.u16(code.TextAddress).u16(code.TextWords).u16(code.X).u16(code.Y).u8(code.SizeUnits);
    return {.Kind = 0x07,
            .Flags = ListFlag(code.InList),
            .ParameterAddress = code.ParameterAddress,
            .Block = block.take()};
}

DisplayRecord Encode(const AutoStep& step) {
    ByteWriter block;
    block.u16(step.TargetAddress).u8(static_cast<std::uint8_t>(step.Type)).u16(step.ControlAddress);
    block.u16(step.CycleValue).u16(step.RunValue).u16(step.EndValue);
    putBigEndian(block, step.Lowest);
    putBigEndian(block, step.Highest);
    block.u16(step.Step).u16(step.Period).u16(step.DoneAddress).u16(step.DoneValue);
    block.u8(step.Up ? 1 : 0).u8(step.Notify ? 1 : 0);
    return {.Kind = 0x11, .ParameterAddress = step.ParameterAddress, .Block = block.take()};
}

WidgetDescription Describe(const ImageBar& bar) {
    return {.Name = "imageBar", .Address = bar.ValueAddress, .VectorAddress = bar.ParameterAddress};
}

WidgetDescription Describe(const QrCode& code) {
    return {.Name = "qrcode", .Address = code.TextAddress, .VectorAddress = code.ParameterAddress};
}

WidgetDescription Describe(const AutoStep& step) {
    return {.Name = "autoStep", .Address = step.TargetAddress, .VectorAddress = step.ParameterAddress};
}

} // namespace imagekit
