// Texts in the VariableStore, in the encodings that the panel's widgets know: reading and writing them by
// hand.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace panel {

enum class TextEncoding : std::uint8_t { GB2312 = 0, GBK = 1, Big5 = 2, Unicode = 3, Utf8 = 4 };

/// A text as the store holds it, its end mark included: a zero byte, or of Unicode, which is UTF-16 with the
/// high byte first, a zero word.
struct EncodedText {
    QByteArray bytes;
    int replaced = 0; // characters that the encoding does not have; each became a question mark
};
EncodedText EncodeText(const QString& text, TextEncoding encoding);

/// The text of bytes that hold no end mark; of Unicode an odd last byte is left out.
QString DecodeText(const QByteArray& bytes, TextEncoding encoding);

/// User words from here on are out of reach of writes by hand.
inline constexpr std::uint16_t HandWrittenWordCount = 0x6000;

/// Whether a text can be written from a word address on: it holds more than its end mark and ends below
/// HandWrittenWordCount.
bool VariableTextFits(std::uint16_t address, const EncodedText& text);
/// Writes a text that fits; any other is dropped. Any thread.
void WriteVariableText(std::uint16_t address, const EncodedText& text);

/// The text from a word address on, up to its end mark. One without an end mark ends after 0x2000 bytes or
/// with the store. Any thread.
QString ReadVariableText(std::uint16_t address, TextEncoding encoding);

} // namespace panel
