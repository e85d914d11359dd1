// Starts a sound when its page is shown, and for whoever writes the music's system word.
#include "host/config_block.h"
#include "host/flash_image.h"
#include "host/media_requests.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/display/media.h"
#include "widgets/display/media_files.h"

#include <mutex>
#include <utility>

namespace panel {
namespace {

constexpr std::size_t CodeField = 5;
constexpr std::uint16_t RepeatBit = 0x8000;

std::mutex SoundLock;
ReadySound Sound; // under SoundLock

/// Samples lie in the image with their zero shifted by 0x7FFF.
QByteArray convertedSamples(std::span<const std::uint8_t> stored) {
    QByteArray samples(static_cast<int>(stored.size() / 2 * 2), '\0');
    for (std::size_t i = 0; i + 1 < stored.size(); i += 2) {
        const unsigned sample = (stored[i] | stored[i + 1] << 8) - 0x7FFFu;
        samples[static_cast<int>(i)] = static_cast<char>(sample & 0xFF);
        samples[static_cast<int>(i) + 1] = static_cast<char>(sample >> 8 & 0xFF);
    }
    return samples;
}

void makeReady(ReadySound sound) {
    const std::lock_guard lock(SoundLock);
    sound.ready = true;
    MusicRepeat = sound.repeat ? 1 : 0;
    Sound = std::move(sound);
}

/// An empty row asks for a sound all the same: the player gets what stands ready.
void prepareSamples(std::uint16_t number, bool repeat) {
    const std::uint32_t row = Sections.AudioTable + AudioRowBytes * (number - 1u);
    const auto stored = FlashBytes(ReadU32(row), ReadU32(row + 4));
    if (!stored.empty()) makeReady({.samples = convertedSamples(stored), .file = {}, .repeat = repeat});
    MusicPlaying = 1;
}

void prepareFile(int number, bool repeat) {
    makeReady({.samples = {}, .file = FindMediaFile(MusicFolder, MediaNumber(number)), .repeat = repeat});
    MusicPlaying = 1;
}

void stopMusic() {
    MusicPlaying = 0;
    StoreWord(word::Music, 0);
    MusicStopRequest = 1;
}

} // namespace

ReadySound TakeReadySound() {
    const std::lock_guard lock(SoundLock);
    if (!Sound.file.isEmpty()) return Sound;
    return std::exchange(Sound, {});
}

void ForgetReadySound() {
    const std::lock_guard lock(SoundLock);
    Sound = {};
    MusicRepeat = 0;
}

void PlayMusic(std::uint16_t code) {
    if (code == 0) return stopMusic();
    const bool repeat = (code & RepeatBit) != 0;
    const auto number = static_cast<std::uint16_t>(code & ~RepeatBit);
    if (number != 0 && number <= Sections.AudioTableCount) prepareSamples(number, repeat);
    if (FileMediaChip()) prepareFile(number - 1, repeat);
}

void DisplayMusicPlayer(const Parameters& p) {
    const std::uint16_t code = p.u16(CodeField);
    StoreWord(word::Music, code);
    PlayMusic(code);
}

} // namespace panel
