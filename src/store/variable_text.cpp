#include "store/variable_text.h"

#include "store/variable_store.h"

#include <QTextCodec>

#include <algorithm>
#include <array>

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

QString readUnicode(std::uint16_t address) {
    QString text;
    for (std::size_t i = 0; i < LongestTextBytes / 2 && address + i < StoreWordCount; ++i) {
        const std::uint16_t unit = ReadWord(static_cast<std::uint16_t>(address + i));
        if (unit == 0) break;
        text += QChar(unit);
    }
    return text;
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

QString ReadVariableText(std::uint16_t address, TextEncoding encoding) {
    if (encoding == TextEncoding::Unicode) return readUnicode(address);
    std::array<std::uint8_t, LongestTextBytes> bytes{};
    ReadBytes(2 * std::size_t{address}, bytes);
    const auto length = std::ranges::find(bytes, std::uint8_t{0}) - bytes.begin();
    return codecOf(encoding)->toUnicode(reinterpret_cast<const char*>(bytes.data()),
                                        static_cast<int>(length));
}

} // namespace panel
