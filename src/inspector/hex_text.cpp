#include "inspector/hex_text.h"

#include "store/variable_value.h"

#include <QByteArray>
#include <QStringList>

#include <algorithm>
#include <array>

namespace inspector {
namespace {

constexpr int AddressDigits = 8;

/// How numbers of a type stand in a command.
struct NumberFormat {
    int digits;
    std::uint64_t (*fromDecimal)(const QString&);
    QString (*toDecimal)(const QString& hex);
};

std::uint64_t lowByteOf(const QString& decimal, int smallest, int largest) {
    const short value = decimal.toShort();
    return value >= smallest && value <= largest ? static_cast<std::uint8_t>(value) : 0;
}

std::uint16_t word(const QString& hex) { return hex.toUShort(nullptr, 16); }
std::uint32_t doubleWord(const QString& hex) { return hex.toUInt(nullptr, 16); }

// By panel::value_type, Char to LongLong.
constexpr std::array<NumberFormat, 7> NumberFormats{{
    {4, [](const QString& text) { return lowByteOf(text, -128, 127); },
     [](const QString& hex) { return QString::number(static_cast<std::int8_t>(word(hex))); }},
    {4, [](const QString& text) { return std::uint64_t{static_cast<std::uint16_t>(text.toShort())}; },
     [](const QString& hex) { return QString::number(static_cast<std::int16_t>(word(hex))); }},
    {8, [](const QString& text) { return std::uint64_t{static_cast<std::uint32_t>(text.toInt())}; },
     [](const QString& hex) { return QString::number(static_cast<std::int32_t>(doubleWord(hex))); }},
    {4, [](const QString& text) { return lowByteOf(text, 0, 255); },
     [](const QString& hex) { return QString::number(word(hex)); }},
    {4, [](const QString& text) { return std::uint64_t{text.toUShort()}; },
     [](const QString& hex) { return QString::number(word(hex)); }},
    {8, [](const QString& text) { return std::uint64_t{text.toUInt()}; },
     [](const QString& hex) { return QString::number(doubleWord(hex)); }},
    {16, [](const QString& text) { return static_cast<std::uint64_t>(text.toLongLong()); },
     [](const QString& hex) { return QString::number(static_cast<qint64>(hex.toULongLong(nullptr, 16))); }},
}};

const NumberFormat& formatOf(int typeIndex) {
    const bool known = typeIndex >= 0 && typeIndex < static_cast<int>(NumberFormats.size());
    return NumberFormats.at(static_cast<std::size_t>(known ? typeIndex : panel::value_type::Short));
}

bool isHexDigit(QChar character) {
    return character.unicode() < 0x80 && std::isxdigit(static_cast<unsigned char>(character.unicode())) != 0;
}

QString unicodeUnits(const QString& digits) {
    QString text;
    for (int at = 0; at < digits.size(); at += 4) text += QChar(word(digits.mid(at, 4)));
    return text;
}

} // namespace

QString FormatHex(std::uint64_t value, int digits) {
    return QString::number(value, 16).toUpper().rightJustified(digits, '0');
}

std::uint32_t ParseHexAddress(const QString& text) {
    const int lower = text.indexOf('x');
    const int mark = lower >= 0 ? lower : text.indexOf('X');
    if (mark < 0) return 0;
    QString digits;
    for (int at = mark + 1; at < text.size() && text[at] != '/' && digits.size() < AddressDigits; ++at)
        if (isHexDigit(text[at])) digits += text[at];
    return doubleWord(digits);
}

bool TakeHexPrefix(QString& text) {
    if (!text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) return false;
    text.remove(0, 2);
    return true;
}

QString ValueToHexBytes(const QString& decimalList, int typeIndex) {
    const NumberFormat& format = formatOf(typeIndex);
    QByteArray digits;
    for (const QString& value : decimalList.split(','))
        digits += FormatHex(format.fromDecimal(value), format.digits).toLatin1();
    return QByteArray::fromHex(digits).toHex(' ').toUpper();
}

QString HexToValueList(const QString& hex, int typeIndex) {
    const NumberFormat& format = formatOf(typeIndex);
    const QString digits = QString(hex).remove(' ');
    QStringList values;
    int groupEnd = digits.size() % format.digits; // the first group takes what is over
    if (groupEnd == 0) groupEnd = format.digits;
    for (int at = 0; at < digits.size(); at = groupEnd, groupEnd += format.digits)
        values += format.toDecimal(digits.mid(at, groupEnd - at));
    return values.join(',');
}

panel::TextEncoding CommandEncoding(int encodeIndex) {
    switch (encodeIndex) {
    case 1:
    case 2: return panel::TextEncoding::GBK;
    case 3: return panel::TextEncoding::Unicode;
    case 4: return panel::TextEncoding::Utf8;
    default: return panel::TextEncoding::GB2312;
    }
}

QString TextToHexBytes(const QString& text, panel::TextEncoding encoding) {
    QByteArray bytes = panel::EncodeText(text, encoding).bytes;
    bytes.chop(encoding == panel::TextEncoding::Unicode ? 2 : 1);
    return bytes.isEmpty() ? QString() : QString(bytes.toHex(' ').toUpper() + ' ');
}

QString HexBytesToText(const QString& hex, panel::TextEncoding encoding) {
    const QString digits = QString(hex).remove(' ');
    if (encoding == panel::TextEncoding::Unicode) return unicodeUnits(digits);
    return panel::DecodeText(QByteArray::fromHex(digits.toLatin1()), encoding);
}

} // namespace inspector
