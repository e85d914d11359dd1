#include "pages/page_switch.h"

#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/flash_image.h"
#include "host/media_requests.h"
#include "pages/display_kinds.h"
#include "pages/display_page.h"
#include "pages/page_presets.h"
#include "pages/slide_page.h"
#include "store/clock.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/display/media.h"
#include "widgets/display/uitimer.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/pointer.h"
#include "widgets/touch/touch_families.h"

namespace panel {
namespace {

void takePage(std::uint16_t page) {
    StoreWord(word::Page, page);
    CurrentPage = page;
}

void stopPageMusic() {
    StoreWord(word::Music, 0);
    MusicPlaying = 0;
    MusicStopRequest = 1;
}

void closePageMedia() {
    VideoCloseRequest = 1;
    if (CameraRequest == 0) CameraCloseRequest = 1;
    if (CameraOnPage.exchange(0) == 1) CameraResetPending = 1;
    VideoOnPage = 0;
}

/// A pop-up without a picture of its own shows what lies under it.
void drawPopupImage(QPoint origin) {
    PopupImage = PageImage;
    if (!PopupImage.hasPicture()) return;
    DrawImage(FrameSurface, origin, PopupImage, Backdrop::Frame);
    CopySurfaceRect(FrameSurface, {origin, QSize(PopupImage.Width, PopupImage.Height)}, PageBackground,
                    origin);
    TextSurface = PageBackground;
}

/// Touch rows come before the widgets, which are drawn on top of the key images.
void showWidgets(std::uint16_t page) {
    LoadPagePresets(page);
    BuildTouchTables(page);
    DisplayPage(page);
}

} // namespace

void ForgetWidgets() {
    ResetTouchFamilies();
    ForgetDisplayKinds();
    MergeUiTimers();
    BaseInUse = 0;
}

void DrawPagePicture(std::uint16_t page) {
    PageImage = PageImageRow(page);
    DrawImage(FrameSurface, {0, 0}, PageImage, Backdrop::Page);
    PageBackground = FrameSurface.copy();
    TextSurface = PageBackground;
}

void ShowPage(std::uint16_t page) {
    if (page < Sections.PageCount) ShowPageUnchecked(page);
}

void ShowPageUnchecked(std::uint16_t page) {
    takePage(page);
    ForgetWidgets();
    ForgetPress();
    ForgetSlidePage();
    PopupActive = 0;
    EncoderState = 0;
    stopPageMusic();
    closePageMedia();
    CopyClockToWords();
    DrawPagePicture(page);
    showWidgets(page);
}

void OpenPopup(std::uint16_t page, std::uint16_t x, std::uint16_t y) {
    if (page >= Sections.PageCount) return;
    takePage(page);
    PageImage = PageImageRow(page);
    AdjustMode = 0;
    drawPopupImage({x, y});
    ForgetWidgets();
    ForgetPress();
    ReadClockWords();
    CopyClockToWords();
    showWidgets(page);
    PlayMusic(ReadWord(word::Music)); // what the page under the pop-up plays begins anew
}

} // namespace panel
