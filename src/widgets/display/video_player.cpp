// Shows a numbered video on its page.
#include "host/media_requests.h"
#include "store/variable_store.h"
#include "widgets/display/media.h"
#include "widgets/display/media_files.h"
#include "widgets/display/placement.h"

#include <mutex>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Number = 5;
constexpr std::size_t Corners = 7;
constexpr std::size_t Mode = 0x0F;
} // namespace field

constexpr std::uint16_t MirrorWord = 0x7012; // the first of the words that repeat the record from Number on
constexpr std::uint16_t MirroredWords = 22;

std::mutex VideoLock;
ReadyVideo Video; // under VideoLock

/// A host can read the record there, and write other end actions.
void mirrorRecord(const Parameters& p) {
    for (std::uint16_t i = 0; i < MirroredWords; ++i)
        StoreWord(static_cast<std::uint16_t>(MirrorWord + i), p.u16(field::Number + 2 * std::size_t{i}));
}

} // namespace

ReadyVideo VideoToPlay() {
    const std::lock_guard lock(VideoLock);
    return Video;
}

void ForgetReadyVideo() {
    const std::lock_guard lock(VideoLock);
    Video = {};
    VideoModeInForce = 0;
}

void ShowVideo(const Parameters& p) {
    const ReadyVideo video{.file = FindMediaFile(VideoFolder, MediaNumber(p.u16(field::Number))),
                           .rect = ReadCorners(p, field::Corners),
                           .mode = p.u8(field::Mode)};
    {
        const std::lock_guard lock(VideoLock);
        Video = video;
    }
    VideoModeInForce = video.mode;
    VideoOnPage = 1;
    mirrorRecord(p);
    VideoRequest = 1;
}

} // namespace panel
