// A line of a script: from bytes to words.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <istream>
#include <optional>

namespace replay {

/// No line is longer; what is longer is no script.
inline constexpr int LargestLineBytes = 64 * 1024;

/// The next line without its line end, or nothing at the end. Throws CommandError for a line that is too
/// long.
std::optional<QByteArray> ReadScriptLine(std::istream& input);

/// The text of a line. Throws CommandError for anything but UTF-8 text.
QString DecodeScriptLine(const QByteArray& bytes);

/// The words of a line: split at blanks; a word in double quotes may hold blanks, and two double quotes in it
/// stand for one. A # that begins the line or stands between blanks begins a comment. Throws CommandError for
/// a quote that is not closed or does not stand at the edge of a word.
QStringList SplitScriptLine(const QString& line);

} // namespace replay
