// Conversions between what a person types or reads and the bytes of a serial command as hexadecimal digits.
#pragma once

#include "store/variable_text.h"

#include <QString>

#include <cstdint>

namespace inspector {

/// Upper-case hexadecimal digits, padded with zeros to at least `digits`.
QString FormatHex(std::uint64_t value, int digits);

/// The word address in a text such as "0x7000": up to 8 hexadecimal digits behind the first "x", or else
/// behind the first "X". Other characters between them are skipped, "/" ends the scan; 0 without an "x".
std::uint32_t ParseHexAddress(const QString& text);

/// Takes a leading "0x" or "0X" off the text; false when there is none.
bool TakeHexPrefix(QString& text);

/// Decimal numbers separated by "," as bytes, high byte first: "255,-1" of 16 bits is "00 FF FF FF".
/// `typeIndex` is a panel::value_type but for String. What the type cannot hold becomes 0.
QString ValueToHexBytes(const QString& decimalList, int typeIndex);
/// The way back. A group of digits that is no number becomes 0.
QString HexToValueList(const QString& hex, int typeIndex);

/// The encoding in which a text of the store stands in a command. Big5 travels as GBK.
panel::TextEncoding CommandEncoding(int encodeIndex);

/// The bytes of a text without an end mark, each as two digits and a blank.
QString TextToHexBytes(const QString& text, panel::TextEncoding encoding);
/// The way back. Digits may stand with or without blanks between them.
QString HexBytesToText(const QString& hex, panel::TextEncoding encoding);

} // namespace inspector
