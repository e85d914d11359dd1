// The rows of the inspector's table: the system words, and the variables of the widgets that an image's two
// CSV tables list.
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace inspector {

/// A row's first four cells, and how its variable is read and written, by the indexes of ReadVar(). A type
/// index of -1 is none of the types.
struct WidgetRow {
    QString page; // decimal; "-" of a system word
    QString widgetName;
    QString description;
    QString address; // as in "0x7000"
    int typeIndex = 1;
    int encodeIndex = 0;
};

/// The system words that stand first in every table.
const std::vector<WidgetRow>& SystemRows();

/// More rows than any project has; further ones are left out.
inline constexpr std::size_t MostWidgetRows = 400'000;

/// The rows of both tables, pages in rising order, the touch widgets of a page first. A line of the display
/// table with too few fields ends it. Any text is taken; cells are cut to a length that a table can show.
std::vector<WidgetRow> ReadWidgetTables(const QString& touchTable, const QString& displayTable);

} // namespace inspector
