// The words behind a command, taken one by one, each checked for what it must be.
#pragma once

#include <QPoint>
#include <QRgb>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace replay {

/// Every function takes the next word or words, and throws CommandError when they are missing or wrong.
/// `name` is the argument's name in the help.
class Arguments {
public:
    explicit Arguments(QStringList words) : words_(std::move(words)) {}

    bool empty() const { return words_.isEmpty(); }
    QString text(const char* name);
    /// The row of the table that has the word as its `name`.
    template <class Table>
    const auto& named(const char* name, const Table& table);
    /// Takes the next word only if it is this one.
    bool takeIf(const char* word);
    /// Decimal, or hexadecimal behind 0x. The bounds are allowed values.
    int number(const char* name, int least, int most);
    int numberOr(int absent, const char* name, int least, int most);
    /// Milliseconds, a multiple of `step`, at least one and at most a day.
    int milliseconds(int step);
    /// X and Y of a pixel.
    QPoint point();
    /// A word address below `end`.
    std::uint16_t address(int end);
    std::uint16_t word(const char* name);
    /// All words left: pairs of hexadecimal digits, joined or apart; at least one.
    std::vector<std::uint8_t> hexBytes();
    /// #RRGGBB, which is opaque, or #AARRGGBB.
    QRgb colour();
    /// The name of a picture file, which ends in .png.
    QString pictureFile();
    /// There must be no word left.
    void finish() const;

private:
    [[noreturn]] static void refuseName(const char* name, const QString& word, const QStringList& known);

    QStringList words_;
};

template <class Table>
const auto& Arguments::named(const char* name, const Table& table) {
    const QString word = text(name);
    QStringList known;
    for (const auto& row : table) {
        if (word == row.name) return row;
        known += row.name;
    }
    refuseName(name, word, known);
}

} // namespace replay
