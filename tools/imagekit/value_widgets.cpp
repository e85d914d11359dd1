#include "imagekit/value_widgets.h"

#include "imagekit/image_error.h"

namespace imagekit {
namespace {

constexpr std::size_t LongestUnit = 0x7F - 0x13; // what the block has room for beside its other fields

template <class Enum>
std::uint32_t code(Enum value) {
    return static_cast<std::uint32_t>(value);
}

std::uint32_t alignmentByte(Alignment alignment, bool leadingZeros) {
    return code(alignment) | (leadingZeros ? 0x80u : 0u);
}

QString typeText(DataType type) { return QString("%1").arg(code(type), 2, 16, QChar('0')); }

} // namespace

DisplayRecord Encode(const Label& label) {
    const std::uint32_t flags = (label.Opaque ? 1u : 0u) | (label.Masked ? 2u : 0u);
    ByteWriter block;
    block.u16(label.TextAddress).u16(label.X1).u16(label.Y1).u16(label.X2).u16(label.Y2);
    block.u24(label.Colour).u8(0).u24(label.BackColour).u8(0).u8(label.Font).u8(0);
    block.u16(label.TextLength).u8(label.CharSpacing).u8(label.LineSpacing).u8(label.Anchor).u8(flags);
    block.u8(label.String != 0 ? 1 : 0).u16(label.String);
    return {.Kind = 0x01,
            .Flags = ListFlag(label.InList),
            .ParameterAddress = label.ParameterAddress,
            .Block = block.take()};
}

DisplayRecord Encode(const Number& number) {
    if (number.Unit.size() > LongestUnit)
        throw ImageError("number", AtMost(number.Unit.size(), "bytes of unit", LongestUnit));
    ByteWriter block;
    block.u16(number.ValueAddress).u16(number.X).u16(number.Y).u24(number.Colour).u8(0).u8(number.Font).u8(0);
    block.u8(alignmentByte(number.Align, number.LeadingZeros))
        .u8(number.IntegerDigits)
        .u8(number.DecimalDigits)
        .u8(code(number.Type));
    block.u8(static_cast<std::uint32_t>(number.Unit.size())).text(number.Unit).u16(number.HideAddress);
    return {.Kind = 0x02,
            .Flags = ListFlag(number.InList),
            .ParameterAddress = number.ParameterAddress,
            .Block = block.take()};
}

DisplayRecord Encode(const PngNumber& number) {
    ByteWriter block;
    block.u16(number.ValueAddress).u16(number.X).u16(number.Y).u16(number.FirstImage).u16(number.LastImage);
    block.u8(code(number.Type)).u8(number.IntegerDigits).u8(number.DecimalDigits);
    block.u8(alignmentByte(number.Align, number.LeadingZeros)).u16(number.HideAddress);
    return {.Kind = 0x04,
            .Flags = ListFlag(number.InList),
            .ParameterAddress = number.ParameterAddress,
            .Block = block.take()};
}

DisplayRecord Encode(const ImageAnimation& animation) {
    ByteWriter block;
    block.u16(animation.ControlAddress).u16(animation.X).u16(animation.Y).u16(animation.Width);
    block.u16(animation.Height).u16(animation.Sequence).u8(animation.Delay).u8(0);
    block.u8(animation.HoldFirst ? 1 : 0).u16(animation.LoopValue).u16(animation.IdleValue).u8(0);
    block.u16(animation.OnceValue).u16(animation.HideValue).u16(animation.DoneAddress);
    block.u16(animation.DoneValue).u16(animation.Group);
    return {.Kind = 0x05,
            .Flags = ListFlag(animation.InList),
            .ParameterAddress = animation.ParameterAddress,
            .Block = block.take(),
            .LengthFlag = animation.Shown};
}

DisplayRecord Encode(const UiTimer& timer) {
    ByteWriter block;
    block.u16(timer.PresetAddress)
        .u16(timer.TimerAddress)
        .u16(timer.ControlAddress)
        .u16(timer.X)
        .u16(timer.Y);
    block.u16(timer.FirstImage).u8(code(timer.Format)).u8(code(timer.Direction));
    block.u8(timer.Background ? 1 : 0)
        .u8(timer.Notify ? 1 : 0)
        .u16(timer.TargetAddress)
        .u16(timer.TargetValue);
    return {.Kind = 0x10, .ParameterAddress = timer.ParameterAddress, .Block = block.take()};
}

WidgetDescription Describe(const Label& label) {
    return {.Name = "label",
            .Address = label.String == 0 ? label.TextAddress : None,
            .VectorAddress = label.ParameterAddress,
            .Font = label.Font};
}

WidgetDescription Describe(const Number& number) {
    return {.Name = "number",
            .Address = number.ValueAddress,
            .VectorAddress = number.ParameterAddress,
            .Code = typeText(number.Type)};
}

WidgetDescription Describe(const PngNumber& number) {
    return {.Name = "pngNumber",
            .Address = number.ValueAddress,
            .VectorAddress = number.ParameterAddress,
            .Code = typeText(number.Type)};
}

WidgetDescription Describe(const ImageAnimation& animation) {
    return {.Name = "imageAnimation",
            .Address = animation.ControlAddress,
            .VectorAddress = animation.ParameterAddress};
}

WidgetDescription Describe(const UiTimer& timer) {
    return {.Name = "uitimer",
            .Address = timer.TimerAddress,
            .VectorAddress = timer.ParameterAddress,
            .Code = AddressText(timer.PresetAddress),
            .ControlAddress = AddressText(timer.ControlAddress)};
}

} // namespace imagekit
