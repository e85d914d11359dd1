#include "pages/display_kinds.h"

#include "widgets/display/analog_clock.h"
#include "widgets/display/auto_step.h"
#include "widgets/display/bit_icon.h"
#include "widgets/display/curve.h"
#include "widgets/display/group_clock.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/image_bar.h"
#include "widgets/display/label.h"
#include "widgets/display/media.h"
#include "widgets/display/needle_meter.h"
#include "widgets/display/number.h"
#include "widgets/display/png_clock.h"
#include "widgets/display/png_number.h"
#include "widgets/display/qr_code.h"
#include "widgets/display/ring_gauge.h"
#include "widgets/display/textroll.h"
#include "widgets/display/uitimer.h"
#include "widgets/display/value_icon.h"

#include <algorithm>

namespace panel {
namespace {

constexpr DisplayKind Kinds[] = {
    {.code = 0x01,
     .name = "label",
     .dependsOn = LabelText,
     .display = DisplayLabel,
     .displayInGroup = DisplayLabelInGroup,
     .inGroups = true,
     .onNeighbours = true,
     .refresh = Refresh::ByValue,
     .afterTouch = true},
    {.code = 0x02,
     .name = "number",
     .dependsOn = NumberValue,
     .display = DisplayNumber,
     .displayInGroup = DisplayNumberInGroup,
     .forget = ForgetNumberWidths,
     .cursor = &NumberCursor,
     .capacity = NumberWidthMemory.size(),
     .inGroups = true,
     .onNeighbours = true,
     .refresh = Refresh::ByValue,
     .afterTouch = true},
    {.code = 0x03,
     .name = "valueIcon",
     .dependsOn = ValueWord,
     .display = DisplayValueIcon,
     .displayInGroup = DisplayValueIconInGroup,
     .inGroups = true,
     .onTop = true,
     .onNeighbours = true,
     .refresh = Refresh::ByValue,
     .afterTouch = true,
     .groupAt = 0x14},
    {.code = 0x04,
     .name = "pngNumber",
     .dependsOn = PngNumberValue,
     .display = DisplayPngNumber,
     .displayInGroup = DisplayPngNumberInGroup,
     .forget = ForgetPngNumberWidths,
     .cursor = &PngNumberCursor,
     .capacity = PngNumberWidthMemory.size(),
     .inGroups = true,
     .onNeighbours = true,
     .refresh = Refresh::ByValue,
     .afterTouch = true},
    {.code = 0x05,
     .name = "imageAnimation",
     .dependsOn = ValueWord,
     .display = AddAnimation,
     .forget = ForgetAnimations,
     .cursor = &AnimationCursor,
     .capacity = AnimationTable.Capacity,
     .refresh = Refresh::ByRow,
     .afterTouch = true,
     .refreshRow = RefreshAnimation},
    {.code = 0x06,
     .name = "pngClock",
     .display = AddClock,
     .displayInGroup = DisplayClockInGroup,
     .forget = ForgetClocks,
     .cursor = &ClockCursor,
     .capacity = ClockTable.Capacity,
     .blockAt = PngClockBlockAt,
     .inGroups = true,
     .refresh = Refresh::ByRow,
     .changedInGroup = ClockChangedInGroup,
     .refreshRow = RefreshClock},
    {.code = 0x07,
     .name = "qrcode",
     .dependsOn = QrText,
     .display = DisplayQrCode,
     .onNeighbours = true,
     .refresh = Refresh::ByValue},
    {.code = 0x08,
     .name = "AnalogClock",
     .display = DisplayAnalogClock,
     .forget = ForgetAnalogClocks,
     .cursor = &AnalogClockCursor,
     .capacity = AnalogClocks.Capacity,
     .refresh = Refresh::ByRow,
     .refreshRow = RefreshAnalogClock},
    {.code = 0x09,
     .name = "textroll",
     .dependsOn = TextrollText,
     .display = DisplayTextroll,
     .forget = ForgetTextrolls,
     .cursor = &TextrollCursor,
     .capacity = Textrolls.Capacity,
     .refresh = Refresh::ByValue},
    {.code = 0x0A, .name = "musicPlayer", .display = DisplayMusicPlayer, .hasBlock = false},
    {.code = 0x0B,
     .name = "imageBar",
     .dependsOn = ValueWord,
     .display = DisplayImageBar,
     .onNeighbours = true,
     .refresh = Refresh::ByValue,
     .afterTouch = true},
    {.code = 0x0C,
     .name = "ringGauge",
     .dependsOn = ValueWord,
     .display = DisplayRingGauge,
     .onNeighbours = true,
     .refresh = Refresh::ByValue,
     .afterTouch = true,
     .groupAt = 0x27},
    {.code = 0x0D,
     .name = "curve",
     .display = DisplayCurve,
     .forget = ForgetCurves,
     .capacity = Curves.Capacity,
     .blockAt = CurveBlockAt},
    {.code = 0x0E, .name = "encoderMenu", .hasBlock = false, .background = true},
    {.code = 0x0F,
     .name = "bitIcon",
     .dependsOn = ValueWord,
     .display = DisplayBitIcon,
     .displayInGroup = DisplayBitIconInGroup,
     .inGroups = true,
     .onNeighbours = true,
     .refresh = Refresh::ByValue,
     .afterTouch = true,
     .groupAt = 0x11,
     .valueChanged = BitChanged,
     .changedInGroup = BitChangedInGroup},
    {.code = 0x10,
     .name = "uitimer",
     .dependsOn = ValueWord,
     .display = AddUiTimer,
     .cursor = &UiTimerCursor,
     .capacity = UiTimerTable.Capacity,
     .refresh = Refresh::ByRow,
     .refreshRow = RefreshUiTimer,
     .refreshedWords = UiTimerWords},
    {.code = 0x11,
     .name = "autoStep",
     .dependsOn = ValueWord,
     .display = AddAutoStep,
     .forget = ForgetAutoSteps,
     .cursor = &AutoStepCursor,
     .capacity = AutoStepTable.Capacity,
     .refresh = Refresh::ByRow,
     .refreshRow = RefreshAutoStep},
    {.code = 0x12,
     .name = "needleMeter",
     .dependsOn = ValueWord,
     .display = AddNeedleMeter,
     .forget = ForgetNeedleMeters,
     .cursor = &NeedleMeterCursor,
     .capacity = NeedleMeterTable.Capacity,
     .refresh = Refresh::ByRow,
     .refreshRow = RefreshNeedleMeter},
    {.code = 0x13, .name = "encoderEntry", .hasBlock = false, .background = true},
    {.code = 0x14, .name = "encoderPages", .hasBlock = false, .background = true},
    {.code = 0x20, .name = "cameraView", .display = ShowCameraView, .hasBlock = false},
    {.code = 0x22, .name = "videoPlayer", .display = ShowVideo, .hasBlock = false},
};
static_assert(std::ranges::adjacent_find(Kinds, std::ranges::greater_equal{}, &DisplayKind::code)
              == std::end(Kinds));

} // namespace

std::span<const DisplayKind> DisplayKinds() { return Kinds; }

const DisplayKind* FindDisplayKind(std::uint16_t code) {
    const auto* found = std::ranges::lower_bound(Kinds, code, {}, &DisplayKind::code);
    return found != std::end(Kinds) && found->code == code ? found : nullptr;
}

Parameters ReadParameters(const DisplayKind& kind, std::span<const std::uint8_t> record) {
    return Parameters(record, kind.hasBlock ? kind.blockAt : WithoutBlock);
}

void ForgetDisplayKinds() {
    for (const DisplayKind& kind : Kinds)
        if (kind.forget) kind.forget();
    ResetCursors();
}

void ResetCursors() {
    for (const DisplayKind& kind : Kinds)
        if (kind.cursor) *kind.cursor = 0;
}

} // namespace panel
