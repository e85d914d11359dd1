// The serial commands that would read or write a variable on a real panel, as text for people.
#pragma once

#include <QString>

namespace inspector {

/// Which variable a command is about. The address is text such as "0x7000" and stands in the command as it
/// was typed, without its first two characters; the indexes are as in ReadVar().
struct Variable {
    QString addressText;
    int typeIndex = 0;
    int encodeIndex = 0;
};

/// The CRC-16 of Modbus over pairs of hexadecimal digits, as four digits, low byte first. A character that is
/// no digit counts as 0, an odd last digit does not count.
QString CommandCrc(const QString& hexText);

/// A value or text as the bytes of a command.
QString CommandData(const QString& value, const Variable& variable);

/// The command that reads the variable; `value` tells how many words.
QString ReadCommandText(const QString& value, const Variable& variable);
/// The command that writes `data`, hexadecimal digits as from CommandData(), to the variable.
QString WriteCommandText(const QString& data, const Variable& variable);

} // namespace inspector
