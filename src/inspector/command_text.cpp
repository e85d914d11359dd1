#include "inspector/command_text.h"

#include "inspector/command_preview.h"
#include "inspector/hex_text.h"
#include "store/variable_value.h"

#include <QStringList>

#include <array>
#include <cstdint>

namespace inspector {
namespace {

constexpr int DigitsPerWord = 4;

constexpr std::array<std::uint16_t, 256> crcTable() {
    std::array<std::uint16_t, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit) crc = (crc & 1) != 0 ? crc >> 1 ^ 0xA001 : crc >> 1;
        table[byte] = static_cast<std::uint16_t>(crc);
    }
    return table;
}
constexpr std::array<std::uint16_t, 256> CrcTable = crcTable();

unsigned digitValue(QChar digit) { return QString(digit).toUInt(nullptr, 16); }

QString withoutBlanks(const QString& text) { return QString(text).remove(' '); }

QString withoutWhiteSpace(const QString& text) { return text.simplified().remove(' '); }

/// Closes a text with one zero byte or two, so that it fills whole words: each byte is two digits and a
/// blank.
QString closed(const QString& data, const Variable& variable) {
    if (variable.typeIndex != panel::value_type::String) return data;
    return data + (data.size() % 2 != 0 ? "00" : "0000");
}

/// Digits in upper case below 0x10 and in lower case from there on, as panels' tools print it.
QString lengthText(int bytes) {
    return bytes < 0x10 ? FormatHex(static_cast<std::uint64_t>(bytes), 2) : QString::number(bytes, 16);
}

QString commandText(const QString& code, const QString& data, const Variable& variable) {
    const QString address = variable.addressText.mid(2);
    QString body = withoutBlanks(code + address + data);
    const QString crc = PreviewNoCrc != 0 ? QString() : CommandCrc(body);
    body += crc;
    QStringList items{PreviewHeader, lengthText(body.size() / 2), code, address, data, crc};
    items.removeAll(QString());
    return items.join(' ');
}

} // namespace

QString CommandCrc(const QString& hexText) {
    unsigned crc = 0xFFFF;
    for (int at = 0; at + 1 < hexText.size(); at += 2) {
        const unsigned byte = digitValue(hexText[at]) << 4 | digitValue(hexText[at + 1]);
        crc = crc >> 8 ^ CrcTable[(crc ^ byte) & 0xFF];
    }
    return FormatHex(crc & 0xFF, 2) + FormatHex(crc >> 8, 2);
}

QString CommandData(const QString& value, const Variable& variable) {
    if (variable.typeIndex == panel::value_type::String)
        return TextToHexBytes(value, CommandEncoding(variable.encodeIndex));
    return ValueToHexBytes(value, variable.typeIndex);
}

QString ReadCommandText(const QString& value, const Variable& variable) {
    const QString data = withoutWhiteSpace(closed(CommandData(value, variable), variable));
    const auto words = static_cast<std::uint64_t>(data.size() / DigitsPerWord);
    return commandText("03", FormatHex(words, DigitsPerWord), variable);
}

QString WriteCommandText(const QString& data, const Variable& variable) {
    return commandText("10", withoutWhiteSpace(closed(data, variable)), variable);
}

} // namespace inspector
