#include "store/variable_text.h"

#include "store/variable_store.h"

#include <QTextCodec>

#include <algorithm>

namespace panel {
namespace {

constexpr std::size_t LongestTextBytes = 0x2000;

QTextCodec* codecOf(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::Big5: return QTextCodec::codecForName("Big5");
    case TextEncoding::Utf8: return QTextCodec::codecForName("UTF-8");
    default: return QTextCodec::codecForName("GBK");
    }
}

std::uint8_t byteAt(const QByteArray& bytes, int at) { return static_cast<std::uint8_t>(bytes[at]); }

/// Replaces the characters of GBK that GB2312 does not have; the library knows one codec for both.
int limitToGb2312(QByteArray& gbk) {
    int replaced = 0;
    for (int at = 0; at < gbk.size(); ++at) {
        const std::uint8_t lead = byteAt(gbk, at);
        if (lead < 0x80) continue;
        const bool pair = lead > 0x80 && at + 1 < gbk.size(); // 0x80 alone is the euro sign
        if (pair && lead >= 0xA1 && lead <= 0xF7 && byteAt(gbk, at + 1) >= 0xA1) {
            ++at;
            continue;
        }
        gbk.replace(at, pair ? 2 : 1, "?");
        ++replaced;
    }
    return replaced;
}

EncodedText encodeUnicode(const QString& text) {
    EncodedText encoded;
    for (const QChar unit : text) {
        encoded.bytes += static_cast<char>(unit.row());
        encoded.bytes += static_cast<char>(unit.cell());
    }
    encoded.bytes.append(2, '\0');
    return encoded;
}

QString decodeUnicode(const QByteArray& bytes) {
    QString text;
    for (int at = 0; at + 1 < bytes.size(); at += 2) text += QChar(byteAt(bytes, at + 1), byteAt(bytes, at));
    return text;
}

/// Whether the end mark of a text stands at a byte of the store. Behind the last word there are only zeros.
bool endsAt(std::size_t offset, TextEncoding encoding) {
    return ReadByte(offset) == 0 && (encoding != TextEncoding::Unicode || ReadByte(offset + 1) == 0);
}

} // namespace

EncodedText EncodeText(const QString& text, TextEncoding encoding) {
    if (encoding == TextEncoding::Unicode) return encodeUnicode(text);
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    EncodedText encoded{.bytes = codecOf(encoding)->fromUnicode(text.constData(), text.size(), &state)};
    encoded.replaced = state.invalidChars;
    if (encoding == TextEncoding::GB2312) encoded.replaced += limitToGb2312(encoded.bytes);
    encoded.bytes += '\0';
    return encoded;
}

bool VariableTextFits(std::uint16_t address, const EncodedText& text) {
    const bool empty = std::ranges::all_of(text.bytes, [](char byte) { return byte == 0; });
    return !empty && 2 * address + text.bytes.size() <= 2 * HandWrittenWordCount;
}

void WriteVariableText(std::uint16_t address, const EncodedText& text) {
    if (!VariableTextFits(address, text)) return;
    StoreBytes(2 * std::size_t{address}, {reinterpret_cast<const std::uint8_t*>(text.bytes.constData()),
                                          static_cast<std::size_t>(text.bytes.size())});
}

QString DecodeText(const QByteArray& bytes, TextEncoding encoding) {
    if (encoding == TextEncoding::Unicode) return decodeUnicode(bytes);
    return codecOf(encoding)->toUnicode(bytes);
}

QString ReadVariableText(std::uint16_t address, TextEncoding encoding) {
    const std::size_t start = 2 * std::size_t{address};
    const std::size_t step = encoding == TextEncoding::Unicode ? 2 : 1;
    QByteArray bytes;
    for (std::size_t at = start; at < start + LongestTextBytes && !endsAt(at, encoding); at += step)
        for (std::size_t i = 0; i < step; ++i) bytes += static_cast<char>(ReadByte(at + i));
    return DecodeText(bytes, encoding);
}

} // namespace panel
