#include "imagekit/clock_widgets.h"

namespace imagekit {
namespace {

void writeHand(ByteWriter& block, const ClockHand& hand) {
    block.u8(hand.Ahead).u8(hand.Behind).u8(hand.Width).u24(hand.Colour);
}

} // namespace

DisplayRecord Encode(const PngClock& clock) {
    ByteWriter block;
    if (clock.ParameterAddress != Inline) block.u8(0);
    block.u16(clock.X).u16(clock.Y).u16(clock.FirstImage).u16(0);
    block.u8(static_cast<std::uint32_t>(clock.Format));
    return {.Kind = 0x06,
            .Flags = ListFlag(clock.InList),
            .ParameterAddress = clock.ParameterAddress,
            .Block = block.take()};
}

DisplayRecord Encode(const AnalogClock& clock) {
    ByteWriter block;
    block.u16(clock.X).u16(clock.Y).u16(clock.Face);
    writeHand(block, clock.Hours);
    writeHand(block, clock.Minutes);
    writeHand(block, clock.Seconds);
    block.u16(clock.Cap);
    return {.Kind = 0x08,
            .Flags = ListFlag(clock.InList),
            .ParameterAddress = clock.ParameterAddress,
            .Block = block.take()};
}

WidgetDescription Describe(const PngClock& clock) {
    return {.Name = "pngClock", .VectorAddress = clock.ParameterAddress};
}

WidgetDescription Describe(const AnalogClock& clock) {
    return {.Name = "AnalogClock", .VectorAddress = clock.ParameterAddress};
}

} // namespace imagekit
