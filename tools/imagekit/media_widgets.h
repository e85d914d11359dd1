// Widgets that play: sounds, videos, and the picture of a camera.
#pragma once

#include "imagekit/records.h"
#include "imagekit/value_widgets.h"

#include <array>
#include <cstdint>

namespace imagekit {

/// Starts a sound when its page is shown.
struct MusicPlayer {
    std::uint16_t Number = 1; // from 1: of ImageBuilder::addSound(), or of a file on the file-media chip
    bool Repeat = false;
};

/// The code by which a sound is started, also for word 0x700A.
constexpr std::uint16_t MusicCode(const MusicPlayer& player) {
    return static_cast<std::uint16_t>(player.Number | (player.Repeat ? 0x8000 : 0));
}

/// In place of an end action that is none.
struct EndAction {
    std::uint16_t Address = None, Value = 0;
};

/// Plays a file beside the image, on the file-media chip.
struct VideoPlayer {
    std::uint16_t Number = 1;                     // as its file is named
    std::uint16_t X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // px, all inside
    std::uint8_t Mode = 3;                        // a panel::VideoMode
    std::array<EndAction, 8> EndActions{};        // carried out when a single play ends
};

/// Shows the camera while its control word is not 0.
struct CameraView {
    std::uint16_t ControlAddress = 0;
    std::uint16_t X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // px, all inside
    std::uint8_t PictureMode = 0;
    std::uint16_t Group = None; // drawn over the picture
};

DisplayRecord Encode(const MusicPlayer& player);
DisplayRecord Encode(const VideoPlayer& player);
DisplayRecord Encode(const CameraView& view);

} // namespace imagekit
