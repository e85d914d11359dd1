// The end of a run: something that cannot be understood or carried out.
#pragma once

#include <QString>

#include <stdexcept>

namespace replay {

/// A line that is not understood, a file that cannot be read or written, a request that the panel as it is
/// cannot serve. Ends the run with exit code 2. The message names no place; whoever catches it knows the
/// line.
class CommandError : public std::runtime_error {
public:
    explicit CommandError(const QString& message) : std::runtime_error(shortened(message).toStdString()) {}
    QString message() const { return QString::fromUtf8(what()); }

private:
    /// A message may repeat a word, and a word can be as long as a line.
    static QString shortened(const QString& message) {
        constexpr int most = 300;
        return message.size() <= most ? message : message.left(most) + "...";
    }
};

} // namespace replay
