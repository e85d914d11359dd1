// What the media widgets of a page ask for: the sound, the video and the camera picture that the main thread
// is to play. The engine fills these in and then raises a request of host/media_requests.h; the main thread
// reads them when the request reaches it.
#pragma once

#include "pages/parameters.h"
#include "store/shared.h"

#include <QByteArray>
#include <QRect>
#include <QString>

#include <cstdint>

namespace panel {

inline constexpr std::uint32_t AudioRowBytes = 8; // u32 address, u32 size in bytes

enum class VideoMode : std::uint8_t { Continue = 0, Pause = 1, LoadHidden = 2, PlayOnce = 3, Repeat = 4 };

/// A sound that stands ready: samples, or a file.
struct ReadySound {
    QByteArray samples; // 16 bits, little-endian, signed, one channel, 22050 a second; AudioSamples
    QString file;       // MusicFile; empty for a sound out of the image
    bool repeat = false;

    bool ready = false; // AudioReady
};

struct ReadyVideo {
    QString file; // VideoFile; the folder when it holds none of that number
    QRect rect;   // VideoRect, px on the panel
    std::uint8_t mode = 0;
};

struct ReadyCamera {
    QRect rect; // CameraRect, px on the panel
    std::uint8_t pictureMode = 0;
    std::uint16_t group = 0xFFFF; // CameraGroup
};

// Hand-overs of whole things. The engine sets them; any thread may take a copy, or take the sound.

/// The sound that PlayMusic() prepared. Its samples are given away once: afterwards it is not ready, but for
/// a file, which stays ready.
ReadySound TakeReadySound();
ReadyVideo VideoToPlay();
ReadyCamera CameraToShow();

/// The VideoMode of the last video widget. The engine writes, the main thread reads.
inline Shared<std::uint8_t> VideoModeInForce{0};
/// Whether the sound in force repeats. The engine writes, the main thread reads.
inline Shared<std::uint8_t> MusicRepeat{0};

/// Asks the engine for what the page wants done now that a single play of its video has ended: the pairs of
/// an address and a value in words 0x7018 to 0x7027, as they are at this moment.
void RequestEndActions();

/// Nothing is ready or asked for any more: another image is loaded. While no engine runs.
void ForgetReadySound();
void ForgetReadyVideo();

/// The directory that holds the folders "Music" and "Video": that of the image. Set while no engine runs,
/// read by the engine. Ends with a slash; empty: the working directory.
void SetMediaDirectory(const QString& directory);
QString MediaDirectory();

// Engine thread.

/// Starts the sound of a code: bit 15 repeats, the rest is the number from 1. 0 stops.
void PlayMusic(std::uint16_t code);
void DisplayMusicPlayer(const Parameters& p);
void ShowVideo(const Parameters& p);
/// Writes the values that were asked for, and acts on each system word before it writes the next one.
void CarryOutEndActions();
void ShowCameraView(const Parameters& p);
/// Starts and stops the camera by its control word, once a cycle.
void CameraWatch();

} // namespace panel
