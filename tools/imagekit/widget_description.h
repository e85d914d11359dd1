// What the design tool tells the variable inspector about a widget: the two tables beside an image list them.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace imagekit {

class ImageBuilder;

enum class WidgetTable : std::uint8_t { Display, Touch };

/// A row of a table. A widget's own struct gives its kind and addresses by an overload of
/// `WidgetDescription Describe(const Widget&)` beside it, which Page::add() finds there.
struct WidgetDescription {
    QString Name{};                       // the kind, "_" and what tells the page's widgets apart
    QString Text{};                       // for people
    std::uint16_t Address = 0xFFFF;       // of the variable; 0xFFFF: it has none
    std::uint16_t VectorAddress = 0xFFFF; // where the parameters lie in the store; 0xFFFF: they do not
    QString Code{};                       // number: data type, two digits; uitimer: preset address
    QString ControlAddress{};             // uitimer
    std::optional<std::uint8_t> Font{};   // of a text, which is in its encoding
    WidgetTable Table = WidgetTable::Display;
};

/// An address as the tables have it, as in 0x1000.
QString AddressText(std::uint16_t address);

/// A table of all widgets that are described, page by page. Throws for a text with a comma or a line break,
/// since the tables know no quotes, and for a font that the image does not have.
QByteArray EncodeWidgetTable(const ImageBuilder& image, WidgetTable table);

/// Writes both tables into the directory of an image, in which the inspector looks for them. Throws
/// ImageError when one cannot be written.
void WriteWidgetTables(const ImageBuilder& image, const QString& directory);

} // namespace imagekit
