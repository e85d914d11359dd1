#include "inspector/widget_tables.h"

#include "store/variable_value.h"

#include <QVarLengthArray>

#include <algorithm>
#include <optional>

namespace inspector {
namespace {

namespace value_type = panel::value_type;

constexpr int LongestCell = 1024; // characters
constexpr int MostFields = 10;    // further ones mean nothing
const QLatin1String NoAddress(" ");
const QLatin1String NoVector("0xFFFF");

// Encodings of a text, by panel::TextEncoding.
constexpr int Gb2312 = 0, Big5 = 2, Unicode = 3, Utf8 = 4;

/// The fields of one line, by their number. Borrows the text.
class Line {
public:
    explicit Line(const QStringRef& text) {
        for (int start = 0; fields_.size() < MostFields && start <= text.size();) {
            const int comma = text.indexOf(',', start);
            const int end = comma < 0 ? text.size() : comma;
            fields_.append(text.mid(start, std::min(end - start, LongestCell)));
            start = end + 1;
        }
    }

    bool has(int count) const { return fields_.size() >= count; }
    QString operator[](int field) const { return fields_.value(field).toString(); }

    int page() const { return fields_.value(0).toInt(); }
    QString kind() const {
        const QStringRef name = fields_.value(1);
        return name.left(name.indexOf('_')).toString();
    }
    bool hasAddress() const { return fields_.value(3) != NoAddress; }
    bool hasVector() const { return fields_.value(5) != NoVector; }

    WidgetRow row(int typeIndex, int encodeIndex) const {
        return {(*this)[0], (*this)[1], (*this)[2], (*this)[3], typeIndex, encodeIndex};
    }
    /// The row of another word of the same widget.
    WidgetRow wordRow(const char* suffix, int addressField) const {
        return {(*this)[0],        (*this)[1], (*this)[2] + suffix, (*this)[addressField],
                value_type::Short, Gb2312};
    }

private:
    QVarLengthArray<QStringRef, MostFields> fields_;
};

/// Gives the lines of a table one by one, without its head; empty ones do not count.
class Lines {
public:
    explicit Lines(const QString& text) : text_(text) { nextText(); }

    std::optional<Line> next() {
        const QStringRef text = nextText();
        if (text.isEmpty()) return std::nullopt;
        return Line(text);
    }

private:
    /// The next line that is not empty; empty at the end.
    QStringRef nextText() {
        while (at_ < text_.size()) {
            const int found = text_.indexOf('\n', at_);
            const int end = found < 0 ? text_.size() : found;
            QStringRef line = text_.midRef(at_, end - at_);
            at_ = end + 1;
            if (line.endsWith('\r')) line.chop(1);
            if (!line.isEmpty()) return line;
        }
        return {};
    }

    const QString& text_;
    int at_ = 0;
};

struct TouchRow {
    int page;
    WidgetRow row;
};

std::vector<TouchRow> readTouchTable(const QString& table) {
    std::vector<TouchRow> rows;
    Lines lines(table);
    while (const std::optional<Line> line = lines.next()) {
        const bool used = line->kind() == "slider" || line->kind() == "rtouch";
        if (used && line->has(4) && line->hasAddress() && rows.size() < MostWidgetRows)
            rows.push_back({line->page(), line->row(value_type::Short, Gb2312)});
    }
    return rows;
}

int textEncoding(const QString& code) {
    static const QStringList unicodeCodes{"3", "5", "6", "7", "8"};
    if (unicodeCodes.contains(code)) return Unicode;
    return code == "2" ? Big5 : Gb2312;
}

/// Data types of numbers in the order of the type indexes; those behind the eighth have none.
int numberType(const QString& code) {
    static constexpr std::array<int, 8> Codes{0x80, 0x81, 0x82, 0x00, 0x01, 0x02, 0x83, 0x40};
    bool isNumber = false;
    const int value = code.toInt(&isNumber, 16);
    if (!isNumber) return value_type::Short;
    if (value > 0x40 && value <= 0x4F) return -1;
    const auto* found = std::ranges::find(Codes, value);
    return found == Codes.end() ? value_type::Short : static_cast<int>(found - Codes.begin());
}

class WidgetTable {
public:
    explicit WidgetTable(std::vector<TouchRow> touchRows) : touchRows_(std::move(touchRows)) {}

    /// False when the line ends the table.
    bool take(const Line& line) {
        addTouchRowsTo(line.page());
        if (!line.has(6) || rows_.size() >= MostWidgetRows) return false;
        const bool whole = !line.hasAddress() || addOwnRows(line);
        if (whole && line.hasVector()) rows_.push_back(line.wordRow("_VectorAddr", 5));
        return true;
    }

    std::vector<WidgetRow> takeRows() {
        while (nextTouch_ < touchRows_.size()) addTouchRow();
        return std::move(rows_);
    }

private:
    void addTouchRow() { rows_.push_back(std::move(touchRows_[nextTouch_++].row)); }

    /// The touch rows up to a page, when a new page begins.
    void addTouchRowsTo(int page) {
        if (lastPage_ == page) return;
        lastPage_ = page;
        while (nextTouch_ < touchRows_.size() && touchRows_[nextTouch_].page <= page) addTouchRow();
    }

    /// The rows of the widget's own words. False when its vector address does not count.
    bool addOwnRows(const Line& line) {
        const QString kind = line.kind();
        if (kind == "uitimer") return addTimerRows(line);
        int type = value_type::Short;
        int encoding = Gb2312;
        const bool text = kind == "label" || kind == "textroll";
        const bool number = kind == "number" || kind == "pngNumber";
        if ((text || number) && !line.has(8)) return false;
        if (text || kind == "qrcode") type = value_type::String;
        if (text) encoding = textEncoding(line[7]);
        if (kind == "qrcode") encoding = Utf8;
        if (number) type = numberType(line[7]);
        rows_.push_back(line.row(type, encoding));
        return true;
    }

    bool addTimerRows(const Line& line) {
        if (!line.has(10)) return false;
        rows_.push_back(line.wordRow("_CalcAddr", 3));
        rows_.push_back(line.wordRow("_PresetAddr", 7));
        rows_.push_back(line.wordRow("_CtrlAddr", 9));
        return false;
    }

    std::vector<TouchRow> touchRows_;
    std::size_t nextTouch_ = 0;
    std::optional<int> lastPage_;
    std::vector<WidgetRow> rows_;
};

WidgetRow systemRow(const char* description, const char* address) {
    return {"-", "SystemFuction", description, address, value_type::Short, Gb2312};
}

} // namespace

const std::vector<WidgetRow>& SystemRows() {
    static const std::vector<WidgetRow> rows{systemRow("Switch page", "0x7000"),
                                             systemRow("Brightness CTRL", "0x7001"),
                                             systemRow("Year", "0x7002"),
                                             systemRow("Month", "0x7003"),
                                             systemRow("Day", "0x7004"),
                                             systemRow("Hour", "0x7005"),
                                             systemRow("Minute", "0x7006"),
                                             systemRow("Second", "0x7007"),
                                             systemRow("Refresh time", "0x7008"),
                                             systemRow("Play music", "0x700A"),
                                             systemRow("Volume CTRL", "0x700B"),
                                             systemRow("Open pop_window", "0x700D"),
                                             systemRow("Auto-dimming", "0x700E"),
                                             systemRow("Dimming level", "0x700F"),
                                             systemRow("Time to enter sleep", "0x7010"),
                                             systemRow("Multi-language", "0x703F")};
    return rows;
}

std::vector<WidgetRow> ReadWidgetTables(const QString& touchTable, const QString& displayTable) {
    WidgetTable table(readTouchTable(touchTable));
    Lines lines(displayTable);
    std::optional<Line> line = lines.next();
    while (line && table.take(*line)) line = lines.next();
    return table.takeRows();
}

} // namespace inspector
