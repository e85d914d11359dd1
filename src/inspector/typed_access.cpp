#include "inspector/typed_access.h"

#include "inspector/hex_text.h"
#include "inspector/raw_bytes.h"
#include "store/variable_value.h"

namespace inspector {
namespace {

bool isText(const Variable& variable) { return variable.typeIndex == panel::value_type::String; }

/// The value or text that hexadecimal digits stand for. Numbers are taken as 32 bits whatever the type.
QString valueOfHex(const QString& hex, const Variable& variable) {
    if (!isText(variable)) return HexToValueList(hex, panel::value_type::Int);
    return HexBytesToText(hex, CommandEncoding(variable.encodeIndex)).remove(QChar::Null);
}

QString hexData(const QString& hex, const Variable& variable, HexDigits hexDigits) {
    if (isText(variable) || hexDigits == HexDigits::AsTyped) return hex;
    return ValueToHexBytes(HexToValueList(hex, variable.typeIndex), variable.typeIndex);
}

} // namespace

void VariableWriter::writeVar(std::uint32_t address, const QString& text, int typeIndex, int encodeIndex) {
    panel::WriteVar(address, text, typeIndex, encodeIndex);
}

void VariableWriter::writeRaw(std::uint32_t address, const QByteArray& bytes, bool isText) {
    WriteRawBytes(address, bytes, isText);
}

QString ReadTyped(const Variable& variable) {
    return panel::ReadVar(ParseHexAddress(variable.addressText), variable.typeIndex, variable.encodeIndex);
}

std::optional<QString> WriteTyped(const Variable& variable, QString typed, HexDigits hexDigits,
                                  VariableWriter& writer) {
    const std::uint32_t address = ParseHexAddress(variable.addressText);
    const bool isHex = TakeHexPrefix(typed);
    if (QString raw = typed; isHex && TakeHexPrefix(raw)) {
        writer.writeRaw(address, ParseRawBytes(raw), isText(variable));
        return std::nullopt;
    }
    const QString value = isHex ? valueOfHex(typed, variable) : typed;
    if (value.isEmpty()) return std::nullopt;
    writer.writeVar(address, value, variable.typeIndex, variable.encodeIndex);
    const QString data = isHex ? hexData(typed, variable, hexDigits) : CommandData(value, variable);
    return WriteCommandText(data, variable);
}

} // namespace inspector
