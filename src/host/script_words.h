// Words of the replay scripts, for the tool that reads them and the recorder that writes them.
#pragma once

#include "store/variable_text.h"
#include "widgets/touch/encoder.h"

#include <array>
#include <cstddef>
#include <optional>

namespace panel::script {

struct KeyName {
    const char* name;
    std::optional<EncoderKey> key; // none: a key that only wakes the panel
};
inline constexpr std::array<KeyName, 6> KeyNames{{{"right", EncoderKey::Clockwise},
                                                  {"left", EncoderKey::CounterClockwise},
                                                  {"1", EncoderKey::Key1},
                                                  {"2", EncoderKey::Key2},
                                                  {"3", EncoderKey::Key3},
                                                  {"other", std::nullopt}}};

struct EncodingName {
    const char* name;
    TextEncoding encoding;
};
/// In the order of the encodings' codes.
inline constexpr std::array<EncodingName, 5> EncodingNames{{{"gb2312", TextEncoding::GB2312},
                                                            {"gbk", TextEncoding::GBK},
                                                            {"big5", TextEncoding::Big5},
                                                            {"unicode", TextEncoding::Unicode},
                                                            {"utf-8", TextEncoding::Utf8}}};

/// The most words of a write: a command's length byte counts 255 bytes, of which the command, the address and
/// two check bytes leave 125 words.
inline constexpr std::size_t LargestWrite = 125;

} // namespace panel::script
