#include "replay/word_text.h"

#include "store/variable_store.h"

#include <QByteArray>

namespace replay {

QString AddressText(int address) { return "0x" + WordText(static_cast<std::uint16_t>(address)); }

QString WordText(std::uint16_t value) { return QString("%1").arg(value, 4, 16, QChar('0')); }

QString WordsText(int address, int count) {
    QString text = AddressText(address) + ':';
    for (int at = address; at < address + count; ++at)
        text += ' ' + WordText(panel::ReadWord(static_cast<std::uint16_t>(at)));
    return text;
}

QString BytesText(std::span<const std::uint8_t> bytes) {
    if (bytes.empty()) return "none";
    const QByteArray all(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
    return QString::fromLatin1(all.toHex(' '));
}

} // namespace replay
