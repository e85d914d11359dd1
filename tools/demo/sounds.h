// The sounds of the demo, made from sines.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <vector>

namespace demo {

/// As the panel plays them.
using Samples = std::vector<std::int16_t>;

/// Two bells, as a panel greets a choice.
Samples Chime();
/// Eight bars for a panel that plays files.
Samples Melody();

/// A WAV file of these samples.
QByteArray WavFile(const Samples& samples);

} // namespace demo
