// Sounds of the panel as files. Any thread.
#pragma once

#include <QByteArray>

#include <cstdint>

namespace panel {

inline constexpr std::uint32_t SampleRate = 22050; // 16 bits, signed, one channel

/// What stands before `byteCount` bytes of samples in a sound file: 44 bytes.
QByteArray RiffHead(std::uint32_t byteCount);

} // namespace panel
