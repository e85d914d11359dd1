#include "host/work_thread.h"

#include "host/engine_loop.h"
#include "host/media_requests.h"
#include "pages/page_switch.h"

#include <QCoreApplication>

#include <utility>

namespace {

constexpr unsigned long CyclePause = 20; // ms
constexpr int PageBits = 16;

} // namespace

WorkThread::WorkThread(QObject* parent) : QThread(parent) {}

WorkThread::~WorkThread() { stop(); }

void WorkThread::stop() {
    requestInterruption();
    wait();
    // All that the engine did comes before what the caller does next with image and tables. wait() promises
    // it, and this says it where race detectors can see it.
    (void)panelLeft_.load(std::memory_order_acquire);
}

void WorkThread::run() {
    runPanel();
    panelLeft_.store(true, std::memory_order_release);
}

void WorkThread::runPanel() {
    if (panel::StartPanel(*this) != panel::StartResult::Running) return;
    while (!isInterruptionRequested()) {
        panel::EngineCycle(*this);
        noteCycle();
        msleep(CyclePause);
        QCoreApplication::processEvents();
    }
}

void WorkThread::noteCycle() {
    const std::uint64_t cycles = (progress_ >> PageBits) + 1;
    progress_ = cycles << PageBits | panel::CurrentPage;
}

EngineProgress WorkThread::progress() const {
    const std::uint64_t progress = progress_;
    return {.cycles = progress >> PageBits, .page = static_cast<std::uint16_t>(progress)};
}

std::optional<QImage> WorkThread::takeFrame() {
    const std::scoped_lock lock(frameLock_);
    if (waitingFrame_.isNull()) return std::nullopt;
    return std::exchange(waitingFrame_, QImage());
}

void WorkThread::showFrame(const QImage& frame) {
    bool announced = false;
    {
        const std::scoped_lock lock(frameLock_);
        announced = !waitingFrame_.isNull();
        waitingFrame_ = frame;
    }
    if (!announced) emit Update_to_MainWindow(frame);
}

bool WorkThread::pause(int microseconds) {
    usleep(static_cast<unsigned long>(microseconds));
    return !isInterruptionRequested();
}

void WorkThread::playWav() { emit Play_Wav_Signals(); }

void WorkThread::playVideo() {
    emit Play_Video_Signals();
    panel::VideoRequest = 0;
}

void WorkThread::playCamera() {
    emit Play_Camera_Signals();
    panel::CameraRequest = 0;
}

void WorkThread::setPlayerVolume(int volume) {
    if (community_) community_->setPlayerVolume(volume);
}

void WorkThread::stopMusic() {
    if (community_) community_->stopMusic();
}

void WorkThread::closeVideo() {
    if (community_) community_->Close_Video();
}

void WorkThread::closeCamera() {
    if (community_) community_->Close_Camera();
}
