// The variable inspector: stands in for the serial line of the panel. A person reads and writes any variable
// in it, finds the variables of the image's widgets in a table, and sees the command that would do the same
// on a real panel.
#pragma once

#include "inspector/command_text.h"
#include "inspector/typed_access.h"
#include "inspector/widget_tables.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QIcon>
#include <QSet>
#include <QStandardItemModel>
#include <QTimer>

#include <memory>
#include <vector>

class QComboBox;
class QMenu;
class QTableWidgetItem;

namespace Ui {
class DialogReg;
}

/// Main thread; the engine works on the same variables meanwhile.
class DialogReg : public QDialog {
    Q_OBJECT

public:
    explicit DialogReg(QWidget* parent = nullptr);
    ~DialogReg() override;

    /// Where writes go from now on; it must outlive the dialog or be replaced.
    void setWriter(inspector::VariableWriter& writer) { writer_ = &writer; }

    /// The directory in which the two tables of the loaded image may lie; ends in "/".
    void setTableDirectory(const QString& directory);

    /// Escape does not close a page of the window.
    void reject() override {}

signals:
    void camera_statu_Signals();

public slots:
    /// Starts anew with the image just loaded.
    void AddrInit();
    void on_pushButton_VarRead_clicked();
    void on_pushButton_VarWrite_clicked();
    /// The row buttons act on the current row, whichever row they stand in.
    void tableWidget_writeVar();
    void tableWidget_readVar();
    /// Reads the variables of all rows.
    void tableWidget_initialize();
    void sltShowPopMenu(const QPoint& position);
    /// Switches the panel to the page in the current cell.
    void RightClick();
    void OnSelectChanged();

private:
    void setUpTable();
    void setUpPanel();
    void connectAll();
    void addShortcuts();

    // The keyboard's way to what buttons and menu do: in the table the current row, else the panel's fields.
    bool inTable() const;
    void readByKey();
    void writeByKey();
    void goToPageByKey();
    /// The page that the cell tells.
    void goToPage(const QTableWidgetItem& item);

    void ResetPanel();
    void LoadWidgetTables();
    void TakeRowToPanel(QTableWidgetItem* item);
    inspector::Variable panelVariable() const;

    void AddSystemRows();
    void addRows(const std::vector<inspector::WidgetRow>& rows);
    void AddRow(const inspector::WidgetRow& row, int at);
    void addSystemRowWidgets();
    void addRowButtons(int row);
    void showRowButtons();
    QComboBox* makeRowCombo(QStandardItemModel& items, int index);
    QWidget* makeRowButton(const QIcon& icon, const QString& name, void (DialogReg::*act)());
    bool hasRow(int row) const;
    inspector::Variable rowVariable(int row) const;
    int rowIndex(int row, int column) const;
    void readRow(int row);

    /// Keeps the window alive in a long fill. An event may start another fill, which raises fill_.
    void serveEvents();

    std::unique_ptr<Ui::DialogReg> ui_;
    inspector::VariableWriter store_;
    inspector::VariableWriter* writer_ = &store_;
    QMenu* contextMenu_;
    QAction* gotoPageAction_;
    QStandardItemModel typeItems_;   // of the rows' DataType combos, which share it
    QStandardItemModel encodeItems_; // and of their Encode combos
    QString displayCsvPath_;
    QString touchCsvPath_;
    const QIcon readIcon_{QStringLiteral(":/Icon/read.png")};
    const QIcon writeIcon_{QStringLiteral(":/Icon/write.png")};
    QTimer rowWidgetsTimer_;    // runs until the system rows have their widgets
    int rowsWithWidgets_ = 0;   // system rows
    QSet<int> passingRows_;     // rows that have buttons only while they are in view
    QElapsedTimer sinceEvents_; // since events were last served in a long fill
    int fill_ = 0;              // counts the fills, so that one that was overtaken can end
};
