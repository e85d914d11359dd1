#include "replay/arguments.h"

#include "replay/command_error.h"

#include <QRegularExpression>

#include <optional>

namespace replay {
namespace {

constexpr int LargestTime = 24 * 60 * 60 * 1000; // ms

std::optional<qlonglong> parseNumber(const QString& text) {
    static const QRegularExpression decimal("\\A-?[0-9]+\\z");
    static const QRegularExpression hexadecimal("\\A0[xX][0-9a-fA-F]+\\z");
    bool fits = false;
    qlonglong value = 0;
    if (decimal.match(text).hasMatch())
        value = text.toLongLong(&fits, 10);
    else if (hexadecimal.match(text).hasMatch())
        value = text.mid(2).toLongLong(&fits, 16);
    return fits ? std::optional(value) : std::nullopt;
}

} // namespace

QString Arguments::text(const char* name) {
    if (empty()) throw CommandError(QString("%1 is missing").arg(name));
    return words_.takeFirst();
}

void Arguments::refuseName(const char* name, const QString& word, const QStringList& known) {
    throw CommandError(QString("%1 must be one of %2, not %3").arg(name, known.join(' '), word));
}

bool Arguments::takeIf(const char* word) {
    if (empty() || words_.front() != word) return false;
    words_.removeFirst();
    return true;
}

int Arguments::number(const char* name, int least, int most) {
    const QString word = text(name);
    const auto value = parseNumber(word);
    if (!value || *value < least || *value > most)
        throw CommandError(
            QString("%1 must be a number from %2 to %3, not %4").arg(name).arg(least).arg(most).arg(word));
    return static_cast<int>(*value);
}

int Arguments::numberOr(int absent, const char* name, int least, int most) {
    return empty() ? absent : number(name, least, most);
}

int Arguments::milliseconds(int step) {
    const int time = number("MS", step, LargestTime);
    if (time % step != 0)
        throw CommandError(QString("MS must be a multiple of %1, not %2").arg(step).arg(time));
    return time;
}

QPoint Arguments::point() {
    constexpr int farthest = 0xFFFF;
    const int x = number("X", 0, farthest);
    return {x, number("Y", 0, farthest)};
}

std::uint16_t Arguments::address(int end) {
    const QString word = text("ADDR");
    const auto value = parseNumber(word);
    if (!value || *value < 0 || *value >= end)
        throw CommandError(
            QString("ADDR must be a word address below 0x%1, not %2").arg(end, 4, 16, QChar('0')).arg(word));
    return static_cast<std::uint16_t>(*value);
}

std::uint16_t Arguments::word(const char* name) {
    return static_cast<std::uint16_t>(number(name, -0x8000, 0xFFFF));
}

std::vector<std::uint8_t> Arguments::hexBytes() {
    static const QRegularExpression pairs("\\A([0-9a-fA-F]{2})+\\z");
    QString digits = text("HEX");
    while (!empty()) digits += words_.takeFirst();
    if (!pairs.match(digits).hasMatch())
        throw CommandError("HEX must be bytes of two hexadecimal digits, not " + digits);
    const QByteArray bytes = QByteArray::fromHex(digits.toLatin1());
    return {bytes.begin(), bytes.end()};
}

QRgb Arguments::colour() {
    static const QRegularExpression form("\\A#([0-9a-fA-F]{2})?[0-9a-fA-F]{6}\\z");
    const QString word = text("#RRGGBB");
    if (!form.match(word).hasMatch())
        throw CommandError("a colour must be #RRGGBB or #AARRGGBB, not " + word);
    const QRgb value = word.mid(1).toUInt(nullptr, 16);
    return word.size() == 7 ? 0xFF000000u | value : value;
}

QString Arguments::pictureFile() {
    const QString file = text("FILE.png");
    if (!file.endsWith(".png", Qt::CaseInsensitive))
        throw CommandError("the name of a picture must end in .png, not " + file);
    return file;
}

void Arguments::finish() const {
    if (!empty()) throw CommandError("too many words: " + words_.join(' '));
}

} // namespace replay
