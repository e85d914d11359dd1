// Shows a numbered video on its page.
#include "host/media_requests.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/display/media.h"
#include "widgets/display/media_files.h"
#include "widgets/display/placement.h"

#include <array>
#include <mutex>
#include <optional>
#include <utility>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Number = 5;
constexpr std::size_t Corners = 7;
constexpr std::size_t Mode = 0x0F;
} // namespace field

constexpr std::uint16_t MirrorWord = 0x7012; // the first of the words that repeat the record from Number on
constexpr std::uint16_t MirroredWords = 22;

constexpr std::uint16_t EndActionWord = 0x7018; // among them

struct EndAction {
    std::uint16_t address = 0xFFFF;
    std::uint16_t value = 0;
};
using EndActions = std::array<EndAction, 8>;

std::mutex VideoLock; // for both
ReadyVideo Video;
std::optional<EndActions> DueEndActions;

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
    DueEndActions.reset();
    VideoModeInForce = 0;
}

void RequestEndActions() {
    EndActions actions;
    std::uint16_t word = EndActionWord;
    for (EndAction& action : actions) {
        action = {.address = ReadWord(word), .value = ReadWord(word + 1)};
        word += 2;
    }
    const std::lock_guard lock(VideoLock);
    DueEndActions = actions;
}

void CarryOutEndActions() {
    std::optional<EndActions> due;
    {
        const std::lock_guard lock(VideoLock);
        due = std::exchange(DueEndActions, std::nullopt);
    }
    if (!due) return;
    for (const EndAction& action : *due) {
        StoreWord(action.address, action.value);
        ApplySystemWord(action.address);
    }
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
