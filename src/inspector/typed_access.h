// Variables as a person names and types them. Data comes in three forms: a value or text, hexadecimal digits
// behind "0x", and raw bytes behind a second "0x".
#pragma once

#include "inspector/command_text.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace inspector {

/// The text of a variable. Any thread.
QString ReadTyped(const Variable& variable);

/// Where the variables that a person writes go: into the store. Main thread.
class VariableWriter {
public:
    virtual ~VariableWriter() = default;
    /// As panel::WriteVar() and WriteRawBytes().
    virtual void writeVar(std::uint32_t address, const QString& text, int typeIndex, int encodeIndex);
    virtual void writeRaw(std::uint32_t address, const QByteArray& bytes, bool isText);
};

/// How hexadecimal digits of a number stand in the command text.
enum class HexDigits { AsTyped, FilledUp };

/// Writes a variable as typed, and gives the command that would do the same; nothing when there is no such
/// command, or nothing was to be written. Main thread.
std::optional<QString> WriteTyped(const Variable& variable, QString typed, HexDigits hexDigits,
                                  VariableWriter& writer);

} // namespace inspector
