// Bytes that a person types for the store as they stand, behind a second "0x".
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace inspector {

/// Pairs of hexadecimal digits, in runs ended by blanks, and literals in double quotes, taken as UTF-8. "/"
/// ends the text; every other character is skipped. A run of an odd number of digits makes all of it empty.
QByteArray ParseRawBytes(const QString& text);

/// Puts the bytes into the store from a word on; for a text in reverse, so that the last one lies in the
/// word's low byte. Bytes outside the store are dropped. A system word takes effect after each byte. Main
/// thread.
void WriteRawBytes(std::uint32_t address, const QByteArray& bytes, bool isText);

} // namespace inspector
