// The thread that runs the panel.
#pragma once

#include "host/community.h"
#include "host/panel_outputs.h"
#include "store/shared.h"

#include <QImage>
#include <QThread>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>

/// How far an engine has come: the cycles that have ended since the program's start, and the page shown after
/// the last one.
struct EngineProgress {
    std::uint64_t cycles = 0;
    int page = 0;
};

/// Runs the engine over the loaded image until it is asked to stop. Made, started and stopped by the main
/// thread.
class WorkThread : public QThread, private panel::PanelOutputs {
    Q_OBJECT

public:
    explicit WorkThread(QObject* parent = nullptr);
    ~WorkThread() override;

    /// Once, before the first start. Not owned.
    void setCommunity(panel::community* window) { community_ = window; }

    /// Asks the engine to stop and waits: at most one cycle and its sleep. Does nothing when it does not run.
    void stop();

    /// Main thread.
    EngineProgress progress() const;

    /// The newest frame that Update_to_MainWindow announced and nobody has taken yet. Main thread.
    std::optional<QImage> takeFrame();

signals:
    /// A frame is there. Emitted for the first frame only while frames wait: takeFrame() gives the newest.
    void Update_to_MainWindow(QImage frame);
    void Play_Wav_Signals();
    void Play_Video_Signals();
    void Play_Camera_Signals();

public slots:
    // Sends the signal and takes the request back.
    void playWav();
    void playVideo() override;
    void playCamera() override;

protected:
    void run() override;

private:
    /// From the start-up to the stop.
    void runPanel();
    void noteCycle();

    void showFrame(const QImage& frame) override;
    bool pause(int microseconds) override;
    void playSound() override { playWav(); }
    void setPlayerVolume(int volume) override;
    void stopMusic() override;
    void closeVideo() override;
    void closeCamera() override;

    panel::community* community_ = nullptr;
    std::atomic<bool> panelLeft_{false};
    panel::Shared<std::uint64_t> progress_{0}; // cycles << 16 | page: one word, so that the pair never tears
    std::mutex frameLock_;
    QImage waitingFrame_; // under frameLock_; null when none waits
};
