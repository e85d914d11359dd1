#include "imagekit/widget_description.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"

#include <QDir>
#include <QSaveFile>
#include <QStringList>

namespace imagekit {
namespace {

/// The inspector's code of the encoding that a font's texts have.
QString encodingCode(FontKind kind) {
    switch (kind) {
    case FontKind::Gb2312: return "0";
    case FontKind::Gbk: return "1";
    case FontKind::Big5: return "2";
    case FontKind::Ascii: return "4";
    default: return "3"; // 16-bit codes
    }
}

std::string placeOf(std::uint16_t page, const WidgetDescription& widget) {
    return "page " + std::to_string(page) + ", description of " + widget.Name.toStdString();
}

QStringList cells(const ImageBuilder& image, std::uint16_t page, const WidgetDescription& widget) {
    const QString address = widget.Address == 0xFFFF ? " " : AddressText(widget.Address);
    QStringList row{QString::number(page), widget.Name, widget.Text, address};
    if (widget.Table == WidgetTable::Touch) return row;
    const QString code =
        widget.Font ? encodingCode(image.font(*widget.Font, placeOf(page, widget)).Kind) : widget.Code;
    return row += {"", AddressText(widget.VectorAddress), "", code, "", widget.ControlAddress};
}

QString lineOf(const ImageBuilder& image, std::uint16_t page, const WidgetDescription& widget) {
    const QStringList row = cells(image, page, widget);
    for (const QString& cell : row)
        if (cell.contains(',') || cell.contains('\n') || cell.contains('\r'))
            throw ImageError(placeOf(page, widget), "a comma or a line break ends a cell of the table");
    return row.join(',') + '\n';
}

} // namespace

QString AddressText(std::uint16_t address) {
    return "0x" + QString("%1").arg(address, 4, 16, QChar('0')).toUpper();
}

QByteArray EncodeWidgetTable(const ImageBuilder& image, WidgetTable table) {
    QString text = table == WidgetTable::Touch
                       ? "Page,WidgetName,Description,Var_Addr\n"
                       : "Page,WidgetName,Description,Var_Addr,,Vector_Addr,,Type,,Control_Addr\n";
    for (std::uint16_t page = 0; page < image.pageCount(); ++page)
        for (const WidgetDescription& widget : image.page(page).descriptions())
            if (widget.Table == table) text += lineOf(image, page, widget);
    return text.toUtf8();
}

void WriteWidgetTables(const ImageBuilder& image, const QString& directory) {
    const std::pair<const char*, WidgetTable> files[] = {{"DisplayWidget.csv", WidgetTable::Display},
                                                         {"TouchWidget.csv", WidgetTable::Touch}};
    for (const auto& [name, table] : files) {
        QSaveFile file(QDir(directory).filePath(name));
        const QByteArray bytes = EncodeWidgetTable(image, table);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
            throw ImageError(file.fileName().toStdString(), "cannot be written");
    }
}

} // namespace imagekit
