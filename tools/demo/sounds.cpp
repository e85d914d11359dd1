#include "demo/sounds.h"

#include "host/riff_head.h"

#include <QDataStream>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace demo {
namespace {

using panel::SampleRate;

constexpr double Loudness = 9000; // of one note; several may sound at once

struct Note {
    double start, length; // seconds
    int semitone;         // from A4
};

double frequencyOf(int semitone) { return 440 * std::pow(2, semitone / 12.0); }

/// A bell: a sine and two of its partials, all dying away.
double bell(double time, double frequency, double length) {
    const double phase = 2 * std::numbers::pi * frequency * time;
    const double attack = std::min(1.0, time / 0.004);
    return attack * std::exp(-5 * time / length)
           * (std::sin(phase) + 0.35 * std::sin(2.76 * phase) + 0.2 * std::sin(2 * phase));
}

void addNote(std::vector<double>& sound, const Note& note) {
    const auto first = static_cast<std::size_t>(note.start * SampleRate);
    const auto count = static_cast<std::size_t>(note.length * SampleRate);
    if (sound.size() < first + count) sound.resize(first + count);
    for (std::size_t i = 0; i < count; ++i)
        sound[first + i] +=
            bell(static_cast<double>(i) / SampleRate, frequencyOf(note.semitone), note.length);
}

Samples play(std::initializer_list<Note> notes) {
    std::vector<double> sound;
    for (const Note& note : notes) addNote(sound, note);
    Samples samples(sound.size());
    std::ranges::transform(sound, samples.begin(), [](double value) {
        return static_cast<std::int16_t>(std::clamp(value * Loudness, -32767.0, 32767.0));
    });
    return samples;
}

} // namespace

Samples Chime() { return play({{0, 0.5, 7}, {0.12, 0.7, 12}}); }

Samples Melody() {
    return play({{0.0, 0.9, 3},   {0.0, 1.8, -9}, {0.4, 0.8, 7},  {0.8, 0.8, 10}, {1.2, 0.9, 15},
                 {1.6, 1.8, -14}, {1.6, 0.8, 14}, {2.0, 0.8, 10}, {2.4, 0.8, 7},  {2.8, 0.8, 10},
                 {3.2, 1.8, -12}, {3.2, 0.9, 12}, {3.6, 0.8, 7},  {4.0, 0.8, 3},  {4.4, 0.8, 7},
                 {4.8, 1.8, -16}, {4.8, 0.8, 8},  {5.2, 0.8, 3},  {5.6, 0.8, 7},  {6.0, 1.6, 15}});
}

QByteArray WavFile(const Samples& samples) {
    QByteArray file = panel::RiffHead(static_cast<std::uint32_t>(samples.size() * sizeof(std::int16_t)));
    QDataStream out(&file, QIODevice::WriteOnly | QIODevice::Append);
    out.setByteOrder(QDataStream::LittleEndian);
    for (const std::int16_t sample : samples) out << sample;
    return file;
}

} // namespace demo
