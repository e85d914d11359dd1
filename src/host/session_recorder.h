// Writes down what a person does with the panel, as a script that vendaro-replay repeats.
#pragma once

#include "host/panel_input.h"
#include "host/work_thread.h"

#include <QDateTime>
#include <QFile>
#include <QString>

#include <cstdint>
#include <functional>

/// Hands everything to the engine, and notes it with the ticks and cycles between. A line is in the file as
/// soon as the next thing happens, so that a session that breaks off leaves its script. Main thread.
class SessionRecorder : public PanelInput {
public:
    /// `progress` tells how far the engine has come.
    explicit SessionRecorder(std::function<EngineProgress()> progress) : progress_(std::move(progress)) {}
    /// Writes the time since the last event.
    ~SessionRecorder() override;

    /// Before anything else. False when the file cannot be written.
    bool open(const QString& file);

    void load(const QString& path) override;
    void tick(int& tickCount) override;
    void press(QPoint at) override;
    void move(QPoint at) override;
    void release() override;
    void key(std::optional<panel::EncoderKey> key) override;
    void writeVar(std::uint32_t address, const QString& text, int typeIndex, int encodeIndex) override;
    void writeRaw(std::uint32_t address, const QByteArray& bytes, bool isText) override;

private:
    void noteStart(const QString& path);
    /// Writes the passed time and what happens now.
    void note(const QString& line);
    void noteTime();
    void noteNumber(std::uint32_t address, qint64 value, int width);
    void noteText(std::uint32_t address, const QString& text, int encodeIndex);
    /// The words as they are now, for a write that no other command can repeat.
    void noteWords(std::uint32_t first, std::size_t count);
    /// Cycles that have ended since the last look go behind the ticks seen so far.
    EngineProgress lookAtEngine();
    void write(const QString& line);

    std::function<EngineProgress()> progress_;
    QFile file_;
    QDateTime start_;   // of the panel's clock; null before the first image
    int ticks_ = 0;     // since then
    QByteArray passed_; // since the last line: 't' a tick, 'c' a cycle, in order
    std::uint64_t cycles_ = 0;
    int page_ = -1; // the last one noted
};
