#include "inspector/dialog_reg.h"

#include "host/flash_image.h"
#include "inspector/hex_text.h"
#include "inspector/typed_access.h"
#include "store/system_words.h"
#include "store/variable_value.h"
#include "ui_dialog_reg.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QCursor>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>

namespace {

namespace value_type = panel::value_type;

enum Column { Page, WidgetName, Description, VarAddr, Data, DataType, Encode, Read, Write };

struct ColumnFormat {
    const char* head;
    int width; // px
};
constexpr ColumnFormat Columns[] = {{"Page", 65},     {"WidgetName", 120}, {"Description", 140},
                                    {"Var_Addr", 80}, {"Data", 150},       {"DataType", 90},
                                    {"Encode", 90},   {"Read", 60},        {"Write", 60}};
constexpr int ColumnCount = std::size(Columns);
constexpr int FirstRowCount = 8;
constexpr int RowHeight = 35;

// Where a row keeps its indexes, in its Var_Addr cell.
constexpr int TypeRole = Qt::UserRole;
constexpr int EncodeRole = Qt::UserRole + 1;

/// These get all their widgets, once and for all, one row after the other, a moment after the window is
/// there. Further down a row has its buttons while it is in view, and no combos, whose columns nobody sees: a
/// styled combo costs as much as a hundred rows of cells.
int systemRowCount() { return static_cast<int>(inspector::SystemRows().size()); }

constexpr int RowWidgetsDelay = 200;                 // ms, so that the first image is on show before
constexpr int EventPeriod = 20;                      // ms between two looks at the events in a long fill
constexpr qint64 LargestTableFile = 64 << 20;        // bytes
constexpr int NumericalFormat = 0, StringFormat = 1; // of the panel

const char* const HeadStyle =
    "QHeaderView::section{border-top:0px solid #E5E5E5;border-left:0px solid #E5E5E5;border-right:0.5px "
    "solid "
    "#E5E5E5;border-bottom: 0.5px solid #E5E5E5;background-color:white;padding:4px;}";
const char* const RowButtonStyle =
    "QPushButton{background: #ffffff;border: 1px solid #d9dfe7;border-radius: 3px;color: "
    "#333333;}QPushButton:hover{background: #e0eef9;border: 1px solid #54a4e1;border-radius: 3px;color: "
    "#333333;}";
const char* const RowComboStyle = "background-color:rgb(255,255,255);";

const char* const NoPage = "-"; // of a system row

const QStringList& typeNames() {
    static const QStringList names{"char", "short", "int", "uchar", "ushort", "uint", "longlong", "String"};
    return names;
}

QStringList numberNames() { return typeNames().mid(0, value_type::String); }

QStringList panelEncodings() { return {"GB2312", "GBK", "BIG5", "Unicode", "UTF-8"}; }

/// A cell of the table. It knows its look instead of keeping it, as there can be very many.
class Cell : public QTableWidgetItem {
public:
    explicit Cell(const QString& text, Qt::ItemFlags flags = Qt::ItemIsEnabled) : QTableWidgetItem(text) {
        setFlags(flags);
    }
    QVariant data(int role) const override {
        static const QVariant font = QFont("Arial", 9);
        if (role == Qt::FontRole) return font;
        if (role == Qt::TextAlignmentRole) return int{Qt::AlignCenter};
        return QTableWidgetItem::data(role);
    }
};

QTableWidgetItem* makeDataCell(const QString& text) {
    return new Cell(text, Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable);
}

void fill(QStandardItemModel& model, const QStringList& names) {
    for (const QString& name : names) {
        auto* item = new QStandardItem(name);
        item->setTextAlignment(Qt::AlignCenter);
        model.appendRow(item);
    }
}

/// The text of a table file; null when there is none.
QString readTable(const QString& path) {
    QFile file(path);
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.read(LargestTableFile);
    return bytes.isEmpty() ? QString("") : QString::fromUtf8(bytes);
}

} // namespace

DialogReg::DialogReg(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      ui_(std::make_unique<Ui::DialogReg>()), contextMenu_(new QMenu(this)),
      gotoPageAction_(contextMenu_->addAction(QStringLiteral("goto page"))) {
    setAttribute(Qt::WA_QuitOnClose, false);
    ui_->setupUi(this);
    setUpTable();
    connectAll();
    setUpPanel();
}

DialogReg::~DialogReg() = default;

void DialogReg::setTableDirectory(const QString& directory) {
    displayCsvPath_ = directory + "DisplayWidget.csv";
    touchCsvPath_ = directory + "TouchWidget.csv";
}

void DialogReg::setUpTable() {
    fill(typeItems_, typeNames());
    fill(encodeItems_, {"GBK2312", "GBK", "BIG5", "UNicode", "UTF-8"});

    QTableWidget& table = *ui_->tableWidget;
    table.setRowCount(FirstRowCount);
    table.setColumnCount(ColumnCount);
    QHeaderView& head = *table.horizontalHeader();
    for (int column = 0; column < ColumnCount; ++column) {
        table.setHorizontalHeaderItem(column, new QTableWidgetItem(Columns[column].head));
        head.setSectionResizeMode(column, column == Data ? QHeaderView::Stretch : QHeaderView::Fixed);
        table.setColumnWidth(column, Columns[column].width);
    }
    QFont headFont = head.font();
    headFont.setWeight(QFont::Bold);
    head.setFont(headFont);
    head.setStyleSheet(HeadStyle);
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(RowHeight);
    table.hideColumn(DataType);
    table.hideColumn(Encode);
    AddSystemRows();
    connect(&rowWidgetsTimer_, &QTimer::timeout, this, &DialogReg::addSystemRowWidgets);
    rowWidgetsTimer_.start(RowWidgetsDelay);
}

void DialogReg::setUpPanel() {
    ui_->comboBox_VarType->addItems({"Numerical", "String"});
    ui_->comboBox_VarType->setCurrentIndex(-1); // shows nothing until an image is loaded
    ui_->comboBox_CodeType->setCurrentIndex(-1);
}

void DialogReg::connectAll() {
    const QTableWidget* table = ui_->tableWidget;
    connect(ui_->comboBox_VarType, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &DialogReg::OnSelectChanged);
    connect(table, &QTableWidget::itemDoubleClicked, this, &DialogReg::TakeRowToPanel);
    connect(table, &QTableWidget::customContextMenuRequested, this, &DialogReg::sltShowPopMenu);
    connect(gotoPageAction_, &QAction::triggered, this, &DialogReg::RightClick);
    const QScrollBar* scrollBar = table->verticalScrollBar();
    connect(scrollBar, &QScrollBar::valueChanged, this, &DialogReg::showRowButtons);
    connect(scrollBar, &QScrollBar::rangeChanged, this, &DialogReg::showRowButtons);
    addShortcuts();
}

// --- Keys ---

void DialogReg::addShortcuts() {
    const auto add = [this](const char* keys, void (DialogReg::*act)()) {
        auto* shortcut = new QShortcut(QKeySequence(QString::fromLatin1(keys)), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    add("Ctrl+R", &DialogReg::readByKey);
    add("Ctrl+Return", &DialogReg::writeByKey);
    add("Ctrl+G", &DialogReg::goToPageByKey);
}

bool DialogReg::inTable() const {
    return ui_->tableWidget->hasFocus() || ui_->tableWidget->isAncestorOf(focusWidget());
}

void DialogReg::readByKey() {
    if (inTable())
        tableWidget_readVar();
    else
        on_pushButton_VarRead_clicked();
}

void DialogReg::writeByKey() {
    if (!inTable()) {
        on_pushButton_VarWrite_clicked();
        return;
    }
    ui_->tableWidget->setFocus(); // ends the editing of a cell, and its text counts
    tableWidget_writeVar();
}

void DialogReg::goToPageByKey() {
    const int row = ui_->tableWidget->currentRow();
    if (!inTable() || !hasRow(row)) return;
    const QTableWidgetItem& page = *ui_->tableWidget->item(row, Page);
    if (page.text() != NoPage) goToPage(page);
}

// --- The panel under the table ---

void DialogReg::ResetPanel() {
    ui_->lineEdit_VarAddr->setText(QStringLiteral("0x7000"));
    ui_->comboBox_VarType->setCurrentIndex(NumericalFormat);
    ui_->comboBox_CodeType->setCurrentIndex(value_type::Short);
    ui_->lineEdit_2->setText(panel::ReadVar(panel::word::Page, value_type::Short, 0));
}

void DialogReg::OnSelectChanged() {
    const int format = ui_->comboBox_VarType->currentIndex();
    if (format != NumericalFormat && format != StringFormat) return;
    ui_->comboBox_CodeType->clear();
    ui_->comboBox_CodeType->addItems(format == StringFormat ? panelEncodings() : numberNames());
}

inspector::Variable DialogReg::panelVariable() const {
    const QString address = ui_->lineEdit_VarAddr->text();
    const int index = ui_->comboBox_CodeType->currentIndex();
    if (ui_->comboBox_VarType->currentIndex() == StringFormat) return {address, value_type::String, index};
    return {address, index, 0};
}

void DialogReg::on_pushButton_VarRead_clicked() {
    if (panel::IllegalImage) return;
    const inspector::Variable variable = panelVariable();
    const QString value = inspector::ReadTyped(variable);
    ui_->lineEdit_2->setText(value);
    ui_->lineEdit->setText(inspector::ReadCommandText(value, variable));
}

void DialogReg::on_pushButton_VarWrite_clicked() {
    if (panel::IllegalImage) return;
    const auto command = inspector::WriteTyped(panelVariable(), ui_->lineEdit_2->text(),
                                               inspector::HexDigits::FilledUp, *writer_);
    if (command) ui_->lineEdit->setText(*command);
}

void DialogReg::TakeRowToPanel(QTableWidgetItem* item) {
    if (item->column() != VarAddr) return;
    const inspector::Variable variable = rowVariable(item->row());
    ui_->lineEdit_VarAddr->setText(variable.addressText);
    const QTableWidgetItem* value = ui_->tableWidget->item(item->row(), Data);
    ui_->lineEdit_2->setText(value ? value->text() : QString());
    if (variable.typeIndex == value_type::String) {
        ui_->comboBox_VarType->setCurrentIndex(StringFormat);
        ui_->comboBox_CodeType->setCurrentIndex(variable.encodeIndex);
    } else if (variable.typeIndex >= 0) {
        ui_->comboBox_VarType->setCurrentIndex(NumericalFormat);
        ui_->comboBox_CodeType->setCurrentIndex(variable.typeIndex);
    }
    ui_->lineEdit->clear();
}

// --- The rows ---

void DialogReg::AddSystemRows() {
    passingRows_.clear();
    int row = 0;
    for (const inspector::WidgetRow& systemRow : inspector::SystemRows()) AddRow(systemRow, row++);
}

void DialogReg::AddRow(const inspector::WidgetRow& row, int at) {
    QTableWidget& table = *ui_->tableWidget;
    if (at == table.rowCount()) table.insertRow(at);
    table.setItem(at, Page, new Cell(row.page));
    table.setItem(at, WidgetName, new Cell(row.widgetName));
    table.setItem(at, Description, new Cell(row.description));
    auto* address = new Cell(row.address);
    address->setData(TypeRole, row.typeIndex);
    address->setData(EncodeRole, row.encodeIndex);
    table.setItem(at, VarAddr, address);
    table.setItem(at, Data, makeDataCell({}));
}

void DialogReg::addSystemRowWidgets() {
    rowWidgetsTimer_.setInterval(0);
    const int row = rowsWithWidgets_++;
    if (rowsWithWidgets_ == systemRowCount()) rowWidgetsTimer_.stop();
    QTableWidget& table = *ui_->tableWidget;
    table.setCellWidget(row, DataType, makeRowCombo(typeItems_, rowIndex(row, DataType)));
    table.setCellWidget(row, Encode, makeRowCombo(encodeItems_, rowIndex(row, Encode)));
    addRowButtons(row);
}

void DialogReg::addRowButtons(int row) {
    QTableWidget& table = *ui_->tableWidget;
    table.setCellWidget(row, Read, makeRowButton(readIcon_, "Read", &DialogReg::tableWidget_readVar));
    table.setCellWidget(row, Write, makeRowButton(writeIcon_, "Write", &DialogReg::tableWidget_writeVar));
}

void DialogReg::showRowButtons() {
    QTableWidget& table = *ui_->tableWidget;
    const int first = std::max(table.rowAt(0), 0);
    const int lowest = table.rowAt(table.viewport()->height() - 1);
    const int last = lowest < 0 ? table.rowCount() - 1 : lowest;
    for (auto row = passingRows_.begin(); row != passingRows_.end();) {
        const bool inView = *row >= first && *row <= last;
        if (!inView)
            for (const Column column : {Read, Write}) table.removeCellWidget(*row, column);
        row = inView ? std::next(row) : passingRows_.erase(row);
    }
    for (int row = std::max(first, systemRowCount()); row <= last; ++row) {
        if (!hasRow(row) || passingRows_.contains(row)) continue;
        addRowButtons(row);
        passingRows_ += row;
    }
}

QComboBox* DialogReg::makeRowCombo(QStandardItemModel& items, int index) {
    auto* combo = new QComboBox;
    combo->setModel(&items);
    combo->setView(new QListView);
    combo->setEditable(true);
    combo->lineEdit()->setReadOnly(true);
    combo->lineEdit()->setAlignment(Qt::AlignCenter);
    combo->setFrame(false);
    combo->setStyleSheet(RowComboStyle);
    combo->setCurrentIndex(index);
    return combo;
}

QWidget* DialogReg::makeRowButton(const QIcon& icon, const QString& name, void (DialogReg::*act)()) {
    auto* button = new QPushButton(icon, {});
    button->setAccessibleName(name);
    button->setToolTip(name + " the selected row");
    button->setStyleSheet(RowButtonStyle);
    button->setAutoDefault(false); // Enter belongs to the field that is being edited
    // A button with the focus would make its row the current one. So a click gives it to the table, which
    // also ends the editing of a cell, and its text counts.
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

bool DialogReg::hasRow(int row) const { return row >= 0 && ui_->tableWidget->item(row, VarAddr); }

int DialogReg::rowIndex(int row, int column) const {
    if (const auto* combo = qobject_cast<QComboBox*>(ui_->tableWidget->cellWidget(row, column)))
        return combo->currentIndex();
    return ui_->tableWidget->item(row, VarAddr)->data(column == DataType ? TypeRole : EncodeRole).toInt();
}

inspector::Variable DialogReg::rowVariable(int row) const {
    return {ui_->tableWidget->item(row, VarAddr)->text(), rowIndex(row, DataType), rowIndex(row, Encode)};
}

void DialogReg::readRow(int row) {
    ui_->tableWidget->setItem(row, Data, makeDataCell(inspector::ReadTyped(rowVariable(row))));
}

void DialogReg::tableWidget_readVar() {
    const int row = ui_->tableWidget->currentRow();
    if (panel::IllegalImage || !hasRow(row)) return;
    readRow(row);
    ui_->lineEdit->setText(
        inspector::ReadCommandText(ui_->tableWidget->item(row, Data)->text(), rowVariable(row)));
}

void DialogReg::tableWidget_writeVar() {
    const int row = ui_->tableWidget->currentRow();
    if (panel::IllegalImage || !hasRow(row)) return;
    const auto command = inspector::WriteTyped(rowVariable(row), ui_->tableWidget->item(row, Data)->text(),
                                               inspector::HexDigits::AsTyped, *writer_);
    if (command) ui_->lineEdit->setText(*command);
}

// --- The menu ---

void DialogReg::sltShowPopMenu(const QPoint& position) {
    const QTableWidgetItem* item = ui_->tableWidget->itemAt(position);
    if (item && item->column() == Page && item->text() != NoPage) contextMenu_->popup(QCursor::pos());
}

void DialogReg::RightClick() {
    if (const QTableWidgetItem* item = ui_->tableWidget->currentItem()) goToPage(*item);
}

void DialogReg::goToPage(const QTableWidgetItem& item) {
    writer_->writeVar(panel::word::Page, item.text(), value_type::Short, 0);
}

// --- Filling ---

void DialogReg::AddrInit() {
    ++fill_;
    sinceEvents_.start();
    ui_->lineEdit_VarAddr->clear();
    ui_->lineEdit_2->clear();
    ui_->tableWidget->setRowCount(systemRowCount());
    AddSystemRows();
    if (panel::IllegalImage) return;
    ResetPanel();
    const int fill = fill_;
    LoadWidgetTables();
    if (fill == fill_) tableWidget_initialize();
}

void DialogReg::LoadWidgetTables() {
    const QString touchTable = readTable(touchCsvPath_);
    if (touchTable.isNull()) return;
    const QString displayTable = readTable(displayCsvPath_);
    if (displayTable.isNull()) return;
    addRows(inspector::ReadWidgetTables(touchTable, displayTable));
    showRowButtons();
}

void DialogReg::addRows(const std::vector<inspector::WidgetRow>& rows) {
    const int fill = fill_;
    int at = systemRowCount();
    ui_->tableWidget->setRowCount(at + static_cast<int>(rows.size()));
    for (const inspector::WidgetRow& row : rows) {
        AddRow(row, at++);
        serveEvents();
        if (fill != fill_) return;
    }
}

void DialogReg::tableWidget_initialize() {
    if (panel::IllegalImage) return;
    const int fill = fill_;
    ResetPanel();
    for (int row = 0; fill == fill_ && row < ui_->tableWidget->rowCount(); ++row) {
        if (hasRow(row)) readRow(row);
        serveEvents();
    }
}

void DialogReg::serveEvents() {
    if (sinceEvents_.elapsed() < EventPeriod) return;
    QCoreApplication::processEvents();
    sinceEvents_.restart();
}
