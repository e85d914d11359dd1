#include "store/system_words.h"

#include "host/flash_image.h"
#include "pages/page_presets.h"
#include "pages/page_switch.h"
#include "store/backlight.h"
#include "store/clock.h"
#include "store/language.h"
#include "store/variable_store.h"
#include "widgets/display/media.h"

#include <algorithm>

namespace panel {
namespace {

void switchPage() {
    const std::uint16_t page = ReadWord(word::Page);
    if (page != CurrentPage && page < Sections.PageCount) ShowPageUnchecked(page);
}

void setBrightness() {
    if (ReadLowByte(word::Brightness) > LargestBrightness) StoreLowByte(word::Brightness, LargestBrightness);
    ShowNormalBrightness();
}

void setVolume() { Volume = std::min(ReadLowByte(word::Volume), LargestVolume); }

void raiseVirtualKey() {
    VirtualKeyCode = ReadWord(word::VirtualKey);
    VirtualKeyPending = 1;
}

void setAutoDimming() {
    switch (ReadLowByte(word::AutoDimming)) {
    case 1:
        if (ScreenBright) return;
        IdleTicks = 0;
        ShowNormalBrightness();
        break;
    case 0:
        IdleTicks = 0;
        ScreenBright = 0; // as bright as ever, but no count-down runs
        DimValue = DimValueOf(ReadLowByte(word::Brightness));
        break;
    default: break;
    }
}

void applyPreset() { ApplyPagePreset(ReadWord(word::PagePreset)); }

void playMusic() { PlayMusic(ReadWord(word::Music)); }

struct SystemWord {
    std::uint16_t address;
    void (*apply)();
    Shared<std::uint8_t>*
        request; // where the main thread leaves what only the engine may do; null: it may itself
};

constexpr SystemWord SystemWords[] = {
    {word::Page, switchPage, &PageRequestFromInspector},
    {word::Brightness, setBrightness, nullptr},
    {word::SetTime, SetClockFromWords, nullptr},
    {word::Music, playMusic, &MusicRequestFromInspector},
    {word::Volume, setVolume, nullptr},
    {word::VirtualKey, raiseVirtualKey, nullptr},
    {word::AutoDimming, setAutoDimming, nullptr},
    {word::PagePreset, applyPreset, &PresetRequestFromInspector},
    {word::Language, ChangeLanguage, &LanguageRequestFromInspector},
};

const SystemWord* findSystemWord(std::uint16_t address) {
    const auto* found = std::ranges::find(SystemWords, address, &SystemWord::address);
    return found == std::end(SystemWords) ? nullptr : found;
}

} // namespace

void ApplySystemWord(std::uint16_t address) {
    if (const SystemWord* known = findSystemWord(address)) known->apply();
}

void ApplySystemWordFromMainThread(std::uint16_t address) {
    const SystemWord* known = findSystemWord(address);
    if (!known) return;
    if (known->request)
        *known->request = 1;
    else
        known->apply();
}

void ForgetInspectorRequests() {
    for (const SystemWord& known : SystemWords)
        if (known.request) *known.request = 0;
}

void ServeInspectorRequests() {
    // The page comes first: language and preset may show the page on show again, which takes word 0x7000
    // back.
    const std::uint16_t page = ReadWord(word::Page);
    if (page != CurrentPage && PageRequestFromInspector) {
        PageRequestFromInspector = 0;
        ShowPage(page);
    }
    if (LanguageRequestFromInspector.exchange(0)) ChangeLanguage();
    if (PresetRequestFromInspector.exchange(0)) applyPreset();
    if (MusicRequestFromInspector.exchange(0)) playMusic();
}

} // namespace panel
