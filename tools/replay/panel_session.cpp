#include "replay/panel_session.h"

#include "graphics/surfaces.h"
#include "host/engine_loop.h"
#include "host/image_file.h"
#include "host/serial_recorder.h"
#include "replay/command_error.h"
#include "store/host_time.h"
#include "widgets/display/media.h"

#include <QFileInfo>

#include <utility>

namespace replay {
namespace {

constexpr qint64 TickTime = 10; // ms

/// A media file as seen from the directory of the image.
QString besideImage(const QString& file) {
    const QString directory = panel::MediaDirectory();
    return file.startsWith(directory) ? file.mid(directory.size()) : file;
}

QString placeText(const QRect& rect) {
    return QString("x=%1 y=%2 w=%3 h=%4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

} // namespace

void OutputRecorder::showFrame(const QImage& frame) {
    lastFrame_ = frame;
    ++frameCount_;
}

void OutputRecorder::playSound() {
    const panel::ReadySound sound = panel::TakeReadySound();
    media_ += QString("wav ready=%1 bytes=%2 repeat=%3 file=%4")
                  .arg(sound.ready ? 1 : 0)
                  .arg(sound.samples.size())
                  .arg(sound.repeat ? 1 : 0)
                  .arg(besideImage(sound.file));
}

void OutputRecorder::playVideo() {
    const panel::ReadyVideo video = panel::VideoToPlay();
    media_ += QString("video mode=%1 %2 file=%3")
                  .arg(video.mode)
                  .arg(placeText(video.rect), besideImage(video.file));
}

void OutputRecorder::playCamera() {
    const panel::ReadyCamera camera = panel::CameraToShow();
    media_ += QString("camera %1 group=%2").arg(placeText(camera.rect)).arg(camera.group);
}

void PanelSession::load(const QString& path) {
    running_ = false;
    if (!panel::ReadImageFile(path)) throw CommandError("cannot read the image " + path);
    panel::SetMediaDirectory(QFileInfo(path).path());
    if (clockStart_.isValid()) panel::SetHostTime(clockStart_.addMSecs(TickTime * ticks_));
    running_ = panel::StartPanel(outputs_) == panel::StartResult::Running;
}

void PanelSession::requireRunning() const {
    if (!running_)
        throw CommandError("the panel has ended: its image is illegal or of an unknown colour format");
}

bool PanelSession::passTick() {
    tick();
    const bool due = std::exchange(cycleDue_, !cycleDue_);
    if (due) cycle();
    return due;
}

void PanelSession::run(int milliseconds) {
    for (int passed = 0; passed < milliseconds; passed += TickTime) passTick();
}

void PanelSession::tick() {
    ++ticks_;
    panel::CountTick(tickCount_);
}

void PanelSession::cycle() {
    if (running_) panel::EngineCycle(outputs_);
}

QImage PanelSession::frame() const { return running_ ? panel::FrameSurface : outputs_.lastFrame(); }

std::optional<std::vector<std::uint8_t>> PanelSession::takeSent() {
    for (auto& frame : panel::TakeSentFrames()) sent_.push_back(std::move(frame));
    if (sent_.empty()) return std::nullopt;
    auto oldest = std::move(sent_.front());
    sent_.pop_front();
    return oldest;
}

} // namespace replay
