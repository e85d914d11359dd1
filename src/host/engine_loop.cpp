#include "host/engine_loop.h"

#include "graphics/ascii_fonts.h"
#include "graphics/image_blit.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "host/flash_image.h"
#include "host/media_requests.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "pages/slide_page.h"
#include "store/backlight.h"
#include "store/clock.h"
#include "store/pending_writes.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/display/analog_clock.h"
#include "widgets/display/auto_step.h"
#include "widgets/display/curve.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/media.h"
#include "widgets/display/needle_meter.h"
#include "widgets/display/png_clock.h"
#include "widgets/display/textroll.h"
#include "widgets/display/uitimer.h"
#include "widgets/touch/copy_key.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/keyboard.h"
#include "widgets/touch/multi_key.h"
#include "widgets/touch/number_entry.h"
#include "widgets/touch/page_key.h"
#include "widgets/touch/pinyin_entry.h"
#include "widgets/touch/popup_key.h"
#include "widgets/touch/roller_picker.h"
#include "widgets/touch/rtouch.h"
#include "widgets/touch/slider.h"
#include "widgets/touch/sliding_list.h"
#include "widgets/touch/state_key.h"
#include "widgets/touch/step_key.h"
#include "widgets/touch/swipe_gesture.h"
#include "widgets/touch/text_entry.h"

#include <QColor>

namespace panel {
namespace {

constexpr QRgb ErrorColour = qRgb(0x00, 0xA2, 0xFF);
/// The same colour and red, as words of an image in colour mode 0 and in any other.
constexpr std::uint32_t ErrorColourWords[] = {0x051F, 0x00A2FF};
constexpr std::uint32_t RedWords[] = {0xF800, 0xFF0000};
constexpr std::uint8_t ErrorBrightness = 56;
constexpr QPoint ErrorTextAt(0, 10);
constexpr int ErrorTextHeight = 24;
constexpr QSize ErrorPanelSize(800, 480); // where the image names no size that can be
constexpr std::uint8_t RefreshPeriod = 20;

bool panelSizeCanBe() {
    return DisplayWidth >= 1 && DisplayWidth <= LargestPanelSide && DisplayHeight >= 1
           && DisplayHeight <= LargestPanelSide;
}

StartResult showError(PanelOutputs& outputs) {
    FrameSurface.fill(ErrorColour);
    const int mode = ColourMode == 0 ? 0 : 1;
    const auto background = PageImage.hasPicture() ? AsciiBackground::Page : AsciiBackground::Colour;
    DrawAsciiText(ErrorTextAt, ErrorTextHeight, background, RedWords[mode], ErrorColourWords[mode],
                  "Illegal UI file");
    DimValue = DimValueOf(ErrorBrightness);
    outputs.showFrame(FrameSurface);
    return StartResult::Illegal;
}

StartResult showImpossiblePanel(PanelOutputs& outputs) {
    DisplayWidth = static_cast<std::uint16_t>(ErrorPanelSize.width());
    DisplayHeight = static_cast<std::uint16_t>(ErrorPanelSize.height());
    MakeSurfaces(ErrorPanelSize);
    PageImage = {};
    return showError(outputs);
}

StartResult showUnknownColours(PanelOutputs& outputs) {
    QImage blue(DisplayWidth, DisplayHeight, QImage::Format_ARGB32_Premultiplied);
    blue.fill(Qt::blue);
    outputs.showFrame(blue);
    return StartResult::UnknownColours;
}

// The steps of a cycle.

void applyPendingWrite(PanelOutputs&) {
    if (const auto address = PendingSystemWrites.takeNewest()) ApplySystemWord(*address);
}

void refreshVariables(PanelOutputs&) {
    if (RefreshTicks <= RefreshPeriod) return;
    RefreshTicks = 0;
    RefreshPageWidgets(CurrentPage);
}

/// Each request is taken back before it is passed on, so the main thread hears of it once. An end comes
/// before a start: it is for what the page before has played.
void requestSoundAndVideo(PanelOutputs& outputs) {
    if (VideoCloseRequest.exchange(0) == 1) outputs.closeVideo();
    if (FileMediaChip() && VideoRequest.exchange(0) == 1) outputs.playVideo();
    if (MusicStopRequest.exchange(0) == 1) outputs.stopMusic();
    if (MusicPlaying.exchange(0) == 1) outputs.playSound();
}

void dimPanel(PanelOutputs&) {
    if (ReadLowByte(word::AutoDimming) == 1) BacklightTask();
}

void requestCamera(PanelOutputs& outputs) {
    if (CameraCloseRequest.exchange(0) == 1) outputs.closeCamera();
    if (CameraRequest != 1) return;
    CameraRequest = 0;
    outputs.playCamera();
}

void passVolume(PanelOutputs& outputs) {
    if (Volume == VolumeApplied) return;
    VolumeApplied = Volume;
    outputs.setPlayerVolume(VolumeApplied * PlayerSteps);
}

/// For all that stays inside the engine.
template <void (*Run)()>
void step(PanelOutputs&) {
    Run();
}

void sendFrame(PanelOutputs& outputs) { outputs.showFrame(FrameSurface); }

struct CycleStep {
    const char* name;
    void (*run)(PanelOutputs&);
};

/// One cycle, top to bottom. The order can be seen on the screen: what runs first wins a press or a pixel.
constexpr CycleStep CycleSteps[] = {
    {"system write queue", applyPendingWrite},
    {"variable refresh", refreshVariables},
    {"sound and video requests", requestSoundAndVideo},
    {"BacklightTask", dimPanel},
    {"CameraWatch", step<CameraWatch>},
    {"camera requests", requestCamera},
    {"AnimationTick", step<AnimationTick>},
    {"AnalogClockTick", step<AnalogClockTick>},
    {"ClockTick", step<ClockTick>},
    {"UiTimerTick", step<UiTimerTick>},
    {"TextrollTick", step<TextrollTick>},
    {"CurveTick", step<CurveTick>},
    {"AutoStepTick", step<AutoStepTick>},
    {"NeedleMeterTick", step<NeedleMeterTick>},
    {"GestureTick", step<GestureTick>},
    {"SlidePageTick", SlidePageTick},
    {"SlideListDrag", step<SlideListDrag>},
    {"SlideListCoast", step<SlideListCoast>},
    {"TouchPageKeys", step<TouchPageKeys>},
    {"TouchStepKeys", step<TouchStepKeys>},
    {"TouchMultiKeys", step<TouchMultiKeys>},
    {"TouchPopupKeys", step<TouchPopupKeys>},
    {"TouchStateKeys", step<TouchStateKeys>},
    {"TouchCopyKeys", step<TouchCopyKeys>},
    {"TouchSlider", step<TouchSlider>},
    {"TouchRollerPickers", step<TouchRollerPickers>},
    {"TouchRtouch", step<TouchRtouch>},
    {"TouchNumberEntry", step<TouchNumberEntry>},
    {"TouchTextEntry", step<TouchTextEntry>},
    {"TouchPinyinEntry", step<TouchPinyinEntry>},
    {"SlideListRefresh", step<SlideListRefresh>},
    {"EncoderTick", step<EncoderTick>},
    {"volume", passVolume},
    {"text cursor", step<BlinkCursor>},
    {"end of a video", step<CarryOutEndActions>},
    {"inspector requests", step<ServeInspectorRequests>},
    {"frame", sendFrame},
};

// What a tick counts, in its order.

void countRefresh() { RefreshTicks += 1; }

void countIdleTime() {
    if (ScreenBright) IdleTicks += 2; // the dimming time counts 200 a second
}

struct TickCounter {
    const char* name;
    void (*count)();
};
constexpr TickCounter TickCounters[] = {
    {"autoStep", CountAutoStepTicks},
    {"needleMeter", CountNeedleMeterTicks},
    {"imageAnimation", CountAnimationTicks},
    {"step repeat", CountRepeatTicks},
    {"text cursor", CountCursorTicks},
    {"textroll", CountTextrollTicks},
    {"curve", CountCurveTicks},
    {"idle time", countIdleTime},
    {"MultiKey", CountMultiKeyTicks},
    {"refresh", countRefresh},
};

} // namespace

StartResult StartPanel(PanelOutputs& outputs) {
    DropDecodedPictures();
    LoadConfigBlock();
    if (!panelSizeCanBe()) return showImpossiblePanel(outputs);
    if (ColourMode > 1) return showUnknownColours(outputs);
    MakeSurfaces({DisplayWidth, DisplayHeight});
    ShowPage(Sections.PageCount < StartPage ? std::uint16_t{0} : StartPage);
    DimValue = DimValueOf(ReadLowByte(word::Brightness));
    InitClock();
    if (IllegalImage) return showError(outputs);
    outputs.setPlayerVolume(Volume * PlayerSteps);
    return StartResult::Running;
}

void EngineCycle(PanelOutputs& outputs) {
    for (const CycleStep& step : CycleSteps) step.run(outputs);
}

void CountTick(int& tickCount) {
    constexpr int ticksPerSecond = 100;
    if (++tickCount >= ticksPerSecond) {
        tickCount = 0;
        OncePerSecond();
    }
    for (const TickCounter& counter : TickCounters) counter.count();
}

} // namespace panel
