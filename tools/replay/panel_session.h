// A panel without a window: loads images, passes virtual time, and keeps what the engine sends out.
#pragma once

#include "host/panel_outputs.h"

#include <QDateTime>
#include <QImage>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

namespace replay {

/// Records what the engine asks of the main thread.
class OutputRecorder : public panel::PanelOutputs {
public:
    const QImage& lastFrame() const { return lastFrame_; }
    int frameCount() const { return frameCount_; }
    /// The requests to the media objects since the last call, oldest first, each as a line.
    QStringList takeMedia() { return std::exchange(media_, {}); }

    void showFrame(const QImage& frame) override;
    void setPlayerVolume(int volume) override { media_ += QString("volume %1").arg(volume); }
    void stopMusic() override { media_ += "stop-music"; }
    void closeVideo() override { media_ += "close-video"; }
    void closeCamera() override { media_ += "close-camera"; }
    void playSound() override;
    void playVideo() override;
    void playCamera() override;

private:
    QImage lastFrame_;
    int frameCount_ = 0;
    QStringList media_;
};

/// The engine is global, so a process has one session.
class PanelSession {
public:
    /// The host's date and time as long as no tick has passed; it goes on with the ticks. Before the first
    /// load. Without it the computer's own.
    void setClock(const QDateTime& start) { clockStart_ = start; }

    /// Loads an image and starts the panel with it: the first page is on show and no tick has passed. Throws
    /// CommandError for a file that cannot be read. An illegal image is loaded: its panel ends in an error
    /// frame.
    void load(const QString& path);

    /// False once the engine has ended: time goes on, and no cycle runs.
    bool running() const { return running_; }
    /// Throws CommandError when the engine has ended.
    void requireRunning() const;

    /// Passes 10 ms: a timer tick, and every second time a cycle of the engine loop. True when a cycle was
    /// due.
    bool passTick();
    /// A multiple of 10.
    void run(int milliseconds);
    /// Timer ticks and engine cycles alone; the rhythm of passTick() does not change.
    void tick();
    void cycle();

    /// The picture of the panel: the FrameSurface, or what an engine that ended left behind.
    QImage frame() const;
    OutputRecorder& outputs() { return outputs_; }

    /// The oldest notification that nobody has looked at, payload only.
    std::optional<std::vector<std::uint8_t>> takeSent();

private:
    OutputRecorder outputs_;
    std::deque<std::vector<std::uint8_t>> sent_;
    bool running_ = false;
    bool cycleDue_ = false; // at the next tick of passTick()
    int tickCount_ = 0;     // divider of the second
    QDateTime clockStart_;  // null: the computer's own time
    qint64 ticks_ = 0;      // since the session began
};

} // namespace replay
