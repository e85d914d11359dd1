#include "store/variable_value.h"

#include "store/system_words.h"
#include "store/variable_store.h"
#include "store/variable_text.h"

#include <QTextCodec>

namespace panel {
namespace {

bool isSystemWord(std::uint32_t address) { return address >= FirstSystemWord && address < StoreWordCount; }

TextEncoding encodingOf(int encodeIndex) {
    const bool known = encodeIndex >= 0 && encodeIndex <= static_cast<int>(TextEncoding::Utf8);
    return known ? static_cast<TextEncoding>(encodeIndex) : TextEncoding::GB2312;
}

/// Texts that leave the program by way of the locale are UTF-8 from the first text variable on.
void useUtf8AsLocale() { QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); }

std::uint64_t readNumber(std::uint32_t address, int width) {
    if (!IsInReach(address, width)) return 0;
    const auto word = static_cast<std::uint16_t>(address);
    if (width == 1) return ReadLowByte(word);
    std::uint64_t value = 0;
    for (int i = 0; i < width / 2; ++i) value = value << 16 | ReadWord(static_cast<std::uint16_t>(word + i));
    return value;
}

QString readText(std::uint32_t address, TextEncoding encoding) {
    useUtf8AsLocale();
    return address < StoreWordCount ? ReadVariableText(static_cast<std::uint16_t>(address), encoding)
                                    : QString();
}

void writeText(std::uint32_t address, const QString& text, TextEncoding encoding) {
    useUtf8AsLocale();
    if (address < StoreWordCount)
        WriteVariableText(static_cast<std::uint16_t>(address), EncodeText(text, encoding));
}

} // namespace

int StoreWidth(int typeIndex) {
    switch (typeIndex) {
    case value_type::Char:
    case value_type::UChar: return 1;
    case value_type::Int:
    case value_type::UInt: return 4;
    case value_type::LongLong: return 8;
    default: return 2;
    }
}

bool IsInReach(std::uint32_t address, int width) {
    const std::uint32_t words = width > 2 ? static_cast<std::uint32_t>(width) / 2 : 1;
    return address <= HandWrittenWordCount - words || (width == 2 && isSystemWord(address));
}

bool WriteNumber(std::uint32_t address, std::int64_t value, int width) {
    if (!IsInReach(address, width)) return false;
    const auto word = static_cast<std::uint16_t>(address);
    if (width == 1)
        StoreWord(word, static_cast<std::uint8_t>(value));
    else
        StoreNumber(word, static_cast<std::uint64_t>(value), static_cast<std::size_t>(width));
    if (isSystemWord(address)) ApplySystemWordFromMainThread(word);
    return true;
}

QString ReadVar(std::uint32_t address, int typeIndex, int encodeIndex) {
    if (typeIndex == value_type::String) return readText(address, encodingOf(encodeIndex));
    return QString::number(static_cast<qint64>(readNumber(address, StoreWidth(typeIndex))));
}

void WriteVar(std::uint32_t address, const QString& text, int typeIndex, int encodeIndex) {
    if (typeIndex == value_type::String)
        writeText(address, text, encodingOf(encodeIndex));
    else
        WriteNumber(address, text.toLongLong(), StoreWidth(typeIndex));
}

} // namespace panel
