#include "replay/panel_session.h"

#include "graphics/surfaces.h"
#include "host/engine_loop.h"
#include "host/image_file.h"
#include "host/serial_recorder.h"
#include "replay/command_error.h"

#include <utility>

namespace replay {

void OutputRecorder::showFrame(const QImage& frame) {
    lastFrame_ = frame;
    ++frameCount_;
}

void PanelSession::load(const QString& path) {
    running_ = false;
    if (!panel::ReadImageFile(path)) throw CommandError("cannot read the image " + path);
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
    for (int passed = 0; passed < milliseconds; passed += 10) passTick();
}

void PanelSession::tick() { panel::CountTick(tickCount_); }

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
