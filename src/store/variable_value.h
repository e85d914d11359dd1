// Variables as a person reads and writes them by hand: numbers as decimal text, and texts.
#pragma once

#include <QString>

#include <cstdint>

namespace panel {

/// The type of a variable by its place in the lists that a person chooses from. Any other index counts as a
/// 16-bit number.
namespace value_type {
inline constexpr int Char = 0, Short = 1, Int = 2, UChar = 3, UShort = 4, UInt = 5, LongLong = 6, String = 7;
} // namespace value_type

/// Bytes that a number of this type has in the store: 1, 2, 4 or 8. One byte is the low byte of its word.
int StoreWidth(int typeIndex);

/// Whether a number of this many bytes is within reach of reads and writes by hand: wholly below
/// HandWrittenWordCount, or a 16-bit system word.
bool IsInReach(std::uint32_t address, int width);

/// Writes the low bytes of a number; one byte takes its whole word. A system word takes effect. Returns
/// false, and nothing is written, out of reach. Main thread.
bool WriteNumber(std::uint32_t address, std::int64_t value, int width);

/// The text of a variable; "0" of a number out of reach. Numbers of less than 64 bits are shown without a
/// sign. `encodeIndex` is a TextEncoding. Any thread.
QString ReadVar(std::uint32_t address, int typeIndex, int encodeIndex);

/// Writes a variable. A text that is no number writes 0; what does not fit within reach is dropped. Main
/// thread.
void WriteVar(std::uint32_t address, const QString& text, int typeIndex, int encodeIndex);

} // namespace panel
