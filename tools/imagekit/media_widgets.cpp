#include "imagekit/media_widgets.h"

namespace imagekit {

DisplayRecord Encode(const MusicPlayer& player) {
    ByteWriter block;
    block.u16(MusicCode(player));
    return {.Kind = 0x0A, .Block = block.take()};
}

DisplayRecord Encode(const VideoPlayer& player) {
    ByteWriter block;
    block.u16(player.Number).u16(player.X1).u16(player.Y1).u16(player.X2).u16(player.Y2);
    block.u8(player.Mode).u8(0);
    for (const EndAction& action : player.EndActions) block.u16(action.Address).u16(action.Value);
    return {.Kind = 0x22, .Block = block.take()};
}

DisplayRecord Encode(const CameraView& view) {
    ByteWriter block;
    block.u16(view.ControlAddress).u16(view.X1).u16(view.Y1).u16(view.X2).u16(view.Y2);
    block.u8(view.PictureMode).zeros(7).u16(view.Group);
    return {.Kind = 0x20, .Block = block.take()};
}

} // namespace imagekit
