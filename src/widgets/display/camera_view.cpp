// Shows the camera's picture on its page while a word is not 0.
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/media_requests.h"
#include "pages/page_switch.h"
#include "store/variable_store.h"
#include "widgets/display/group.h"
#include "widgets/display/group_clock.h"
#include "widgets/display/media.h"
#include "widgets/display/placement.h"

#include <mutex>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Control = 5;
constexpr std::size_t Corners = 7;
constexpr std::size_t PictureMode = 0x0F;
constexpr std::size_t Group = 0x17;
} // namespace field

std::uint16_t CameraAddress = 0;
std::uint16_t CameraWord = 0; // the control word as last seen
bool CameraRunning = false;   // a start was asked for, and no stop since

std::mutex CameraLock;
ReadyCamera Camera; // under CameraLock

/// A camera that ran when its page was left runs again.
void resumeCamera() {
    if (CameraResetPending.exchange(0) == 1 && CameraWord <= 1) StoreWord(CameraAddress, CameraWord);
}

/// What is to be seen while no camera runs.
void drawGroup(const ReadyCamera& camera) {
    if (camera.group == NoGroup) return;
    CopySurfaceRect(FrameSurface, camera.rect, WorkSurface, {0, 0});
    DrawGroupInRect(CurrentPage, camera.group, camera.rect);
    LandWork(camera.rect, 0);
}

void handOverClocks(const ReadyCamera& camera) {
    HandOverCameraClocks(CurrentPage, camera.group, camera.rect.topLeft());
}

} // namespace

ReadyCamera CameraToShow() {
    const std::lock_guard lock(CameraLock);
    return Camera;
}

void ShowCameraView(const Parameters& p) {
    const ReadyCamera camera{.rect = ReadCorners(p, field::Corners),
                             .pictureMode = p.u8(field::PictureMode),
                             .group = p.u16(field::Group)};
    CameraAddress = p.u16(field::Control);
    resumeCamera();
    CameraOnPage = 1;
    CameraRunning = false;
    {
        const std::lock_guard lock(CameraLock);
        Camera = camera;
    }
    drawGroup(camera);
}

void CameraWatch() {
    if (CameraOnPage != 1) return;
    CameraWord = ReadWord(CameraAddress);
    const bool wanted = CameraWord != 0;
    if (wanted) handOverClocks(CameraToShow());
    if (wanted == CameraRunning) return;
    (wanted ? CameraRequest : CameraCloseRequest) = 1;
    CameraRunning = wanted;
}

} // namespace panel
