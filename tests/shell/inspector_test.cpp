#include "shell/window_fixture.h"

#include "inspector/dialog_reg.h"
#include "pages/page_switch.h"
#include "store/variable_store.h"
#include "widgets/touch/encoder.h"

#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QTableWidget>

namespace {

constexpr int Page = 0, VarAddr = 3, Data = 4, DataType = 5, Encode = 6, Read = 7, Write = 8;

class InspectorTest : public WindowTest {
protected:
    void SetUp() override {
        openWindow();
        find<QTabWidget>("tabWidget").setCurrentWidget(&dialog());
        ASSERT_TRUE(QTest::qWaitFor([this] { return table().cellWidget(15, Write); }));
    }

    DialogReg& dialog() const { return *window_->findChild<DialogReg*>(); }
    QTableWidget& table() const { return find<QTableWidget>("tableWidget"); }

    /// Loads an image of five pages, with or without tables beside it.
    void load(const QByteArray& touchTable = {}, const QByteArray& displayTable = {}) {
        if (!touchTable.isEmpty()) writeFile("TouchWidget.csv", touchTable);
        if (!displayTable.isEmpty()) writeFile("DisplayWidget.csv", displayTable);
        imagekit::ImageBuilder image({.Width = 200, .Height = 120, .ColourMode = 1, .NoCRC = true});
        image.setWord(0x0300, 77);
        for (int page = 0; page < 5; ++page)
            image.addPage(imagekit::Solid{.Width = 200, .Height = 120, .Colour = QColor(0, 40 * page, 99)});
        openAndRun(writeFile("a.bin", image.build()));
    }

    void click(const char* button) const { QTest::mouseClick(&find<QPushButton>(button), Qt::LeftButton); }
    void clickRow(int row, int column) const {
        auto* button = qobject_cast<QPushButton*>(table().cellWidget(row, column));
        ASSERT_TRUE(button) << row;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void type(const char* field, const QString& text) const {
        auto& edit = find<QLineEdit>(field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Delete);
        QTest::keyClicks(&edit, text);
    }
    void writeByHand(const QString& value) const {
        type("lineEdit_2", value);
        click("pushButton_VarWrite");
    }
    QString field(const char* name) const { return find<QLineEdit>(name).text(); }
    QString command() const { return field("lineEdit"); }
    QString chosen(const char* combo) const { return find<QComboBox>(combo).currentText(); }
    QString chosenTypes() const { return chosen("comboBox_VarType") + ' ' + chosen("comboBox_CodeType"); }
    QString cell(int row, int column) const { return table().item(row, column)->text(); }

    QPoint placeOf(int row, int column) const {
        return table().visualItemRect(table().item(row, column)).center();
    }
    void doubleClick(int row, int column) const {
        const QPoint at = placeOf(row, column);
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, at);
    }
};

TEST_F(InspectorTest, ShowsTheSystemWordsAndNoChoiceBeforeTheFirstLoad) {
    EXPECT_EQ(find<QTabWidget>("tabWidget").tabText(1), "Emulation");
    EXPECT_EQ(table().rowCount(), 16);
    EXPECT_EQ(find<QComboBox>("comboBox_VarType").currentIndex(), -1);
    EXPECT_EQ(find<QComboBox>("comboBox_CodeType").currentIndex(), -1);
    QStringList heads;
    for (int column = 0; column < table().columnCount(); ++column)
        if (!table().isColumnHidden(column)) heads += table().horizontalHeaderItem(column)->text();
    EXPECT_EQ(heads.join(' '), "Page WidgetName Description Var_Addr Data Read Write");
}

TEST_F(InspectorTest, ReadsAndWritesAVariableByHand) {
    load();
    EXPECT_EQ(cell(1, Data) + ' ' + cell(2, Data), QDate::currentDate().toString("'63' yy"));
    EXPECT_EQ(field("lineEdit_VarAddr"), "0x7000");
    EXPECT_EQ(chosenTypes(), "Numerical short");
    type("lineEdit_VarAddr", "0x1234");
    writeByHand("-1");
    EXPECT_EQ(panel::ReadWord(0x1234), 0xFFFF);
    EXPECT_EQ(command(), "5AA5 05 10 1234 FFFF");
    click("pushButton_VarRead");
    EXPECT_EQ(field("lineEdit_2"), "65535");
    EXPECT_EQ(command(), "5AA5 05 03 1234 0001");
    writeByHand("0x10");
    EXPECT_EQ(panel::ReadWord(0x1234), 0x10);
    writeByHand("");
    EXPECT_EQ(panel::ReadWord(0x1234), 0x10);
    EXPECT_EQ(command(), "5AA5 05 10 1234 0010") << "an empty text leaves it";
}

TEST_F(InspectorTest, SwitchesThePage) {
    load("h\n", "h\n3,number_1,speed,0x0300,,0xFFFF,,81\n");
    writeByHand("2");
    EXPECT_TRUE(QTest::qWaitFor([] { return panel::CurrentPage == 2; }, 2000));

    emit table().customContextMenuRequested(placeOf(0, Page));
    EXPECT_FALSE(QApplication::activePopupWidget()) << "a system word has no page";
    table().scrollToBottom();
    const QPoint at = placeOf(16, Page);
    QTest::mouseClick(table().viewport(), Qt::RightButton, {}, at);
    emit table().customContextMenuRequested(at);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions().constFirst()->text(), "goto page");
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([] { return panel::CurrentPage == 3; }, 2000));
}

TEST_F(InspectorTest, RowButtonsActOnTheSelectedRow) {
    load("h\n", "h\n1,number_1,speed,0x0300,,0xFFFF,,82\n1,label_2,name,0x0400,,0xFFFF,,3\n");
    table().scrollToBottom();
    clickRow(16, Read);
    EXPECT_EQ(command(), "") << "there is no current row yet";
    panel::StoreWord(0x0300, 1);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, placeOf(16, Data));
    clickRow(17, Read);
    EXPECT_EQ(cell(16, Data), "65536");
    EXPECT_TRUE(command().contains("03 0300 0002"));

    doubleClick(17, Data);
    QTest::keyClicks(QApplication::focusWidget(), "z");
    clickRow(16, Write);
    EXPECT_EQ(panel::ReadWord(0x0400), 'z') << "a text in editing counts";
    EXPECT_TRUE(command().contains("10 0400 007A0000"));
    table().item(17, Data)->setText("0x0041");
    clickRow(17, Write);
    EXPECT_EQ(cell(17, Data), "0x0041") << "stays as typed";
    clickRow(17, Read);
    EXPECT_EQ(cell(17, Data), "A");
}

TEST_F(InspectorTest, ADoubleClickOnAnAddressTakesTheRowToThePanel) {
    load("h\n", "h\n1,pngNumber_1,n,0x0300,,0xFFFF,,83\n1,label_2,t,0x0400,,0xFFFF,,2\n1,number_3,x,0x0500,,"
                "0xFFFF,,41\n");
    table().scrollToBottom();
    const auto panelTexts = [this] { return field("lineEdit_VarAddr") + ' ' + chosenTypes(); };
    doubleClick(16, Page);
    EXPECT_EQ(panelTexts(), "0x7000 Numerical short") << "only from an address";
    click("pushButton_VarRead");
    doubleClick(16, VarAddr);
    EXPECT_EQ(panelTexts(), "0x0300 Numerical longlong");
    EXPECT_EQ(command(), "");
    doubleClick(17, VarAddr);
    EXPECT_EQ(panelTexts(), "0x0400 String BIG5");
    doubleClick(18, VarAddr);
    EXPECT_EQ(panelTexts(), "0x0500 String BIG5") << "a row without a type leaves the choice";
}

TEST_F(InspectorTest, FollowsTheFilesBesideTheImage) {
    load("h\n0,slider_1,s,0x0001\n");
    EXPECT_EQ(table().rowCount(), 16) << "one table is not enough";
    load({}, "h\n0,number_1,n,0x0300,,0x0310,,40\n");
    ASSERT_EQ(table().rowCount(), 19);
    EXPECT_EQ(cell(16, 1) + cell(17, 1) + cell(18, 2), "slider_1number_1n_VectorAddr");
    doubleClick(17, VarAddr);
    EXPECT_EQ(chosenTypes(), "String GB2312");
    for (const int column : {DataType, Encode})
        EXPECT_EQ(qobject_cast<QComboBox*>(table().cellWidget(15, column))->currentIndex(),
                  column == DataType);
    EXPECT_EQ(table().item(17, VarAddr)->flags(), Qt::ItemIsEnabled);
    QFile::remove(path("TouchWidget.csv"));
    load();
    EXPECT_EQ(table().rowCount(), 16);
}

TEST_F(InspectorTest, IsOutOfUseWithABrokenImage) {
    load("h\n", "h\n0,number_1,n,0x0300,,0xFFFF,,81\n");
    imagekit::ImageBuilder image({.Width = 200, .Height = 120});
    image.addPage();
    image.patch(0x80 + 0x10, {0x21}); // the check does not hold any more
    window_->openImage(writeFile("b.bin", image.build()));
    ASSERT_EQ(panel::IllegalImage, 1);
    EXPECT_EQ(table().rowCount(), 16);
    type("lineEdit_VarAddr", "0x1234");
    writeByHand("5");
    click("pushButton_VarRead");
    table().setCurrentCell(0, Data);
    clickRow(0, Read);
    clickRow(0, Write);
    EXPECT_EQ(panel::ReadWord(0x1234), 0);
    EXPECT_EQ(command(), "");
}

TEST_F(InspectorTest, TheKeyboardReachesAllItsActions) {
    load("head\n3,slider_1,Fan,0x1000\n", "head\n");
    ASSERT_TRUE(QTest::qWaitFor([this] { return table().rowCount() == 17; }));
    table().setFocus();
    table().setCurrentCell(16, Data);
    QTest::keyClicks(&table(), "5");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(panel::ReadWord(0x1000), 5) << "what is being typed counts";
    panel::StoreWord(0x1000, 6);
    QTest::keyClick(&table(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(cell(16, Data), "6");
    QTest::keyClick(&table(), Qt::Key_G, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return panel::CurrentPage == 3; }));

    type("lineEdit_VarAddr", "0x1000");
    QTest::keyClick(&find<QLineEdit>("lineEdit_VarAddr"), Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(field("lineEdit_2"), "6");
    const std::uint8_t before = panel::EncoderEvent;
    type("lineEdit_2", "123");
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Return, Qt::Key_Escape})
        QTest::keyClick(&find<QLineEdit>("lineEdit_2"), key);
    EXPECT_EQ(field("lineEdit_2"), "123");
    EXPECT_EQ(panel::EncoderEvent, before) << "keys in it are not the panel's";
    EXPECT_TRUE(dialog().isVisible()) << "the page stays in its tab";
    QTest::keyClick(&find<QLineEdit>("lineEdit_2"), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(panel::ReadWord(0x1000), 123);

    auto& tabs = find<QTabWidget>("tabWidget");
    QTest::keyClick(&tabs, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(tabs.count(), 1);
    QTest::keyClick(dialog().window(), Qt::Key_Escape);
    EXPECT_EQ(tabs.count(), 2);
}

TEST_F(InspectorTest, ALongTableLoadsWhileTheWindowStaysUsable) {
    QByteArray lines = "h\n";
    for (int i = 0; i < 100'000; ++i)
        lines += "1,number_" + QByteArray::number(i) + ",n,0x0300,,0xFFFF,,81\n";
    int beats = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, [&] { ++beats; });
    heart.start(5);
    load("h\n", lines);
    EXPECT_GT(beats, 10);
    ASSERT_EQ(table().rowCount(), 100'016);
    EXPECT_EQ(cell(100'015, Data), "77");

    for (const int row : {50'000, 100'015}) {
        table().scrollToItem(table().item(row, Page));
        table().setCurrentCell(row, Data);
        panel::StoreWord(0x0300, static_cast<std::uint16_t>(row / 2));
        clickRow(row, Read);
        EXPECT_EQ(cell(row, Data).toInt(), row / 2);
    }
    EXPECT_FALSE(table().cellWidget(50'000, Read)) << "rows out of view cost no widgets";
}

TEST_F(InspectorTest, ALoadDuringALoadTakesItsPlace) {
    QByteArray lines = "h\n";
    for (int i = 0; i < 20'000; ++i) lines += "1,number_1,n,0x0300,,0xFFFF,,81\n";
    QTimer::singleShot(0, window_.get(),
                       [this] { load("h\n", "h\n1,number_2,second,0x0301,,0xFFFF,,81\n"); });
    load("h\n", lines);
    ASSERT_EQ(table().rowCount(), 17);
    EXPECT_EQ(cell(16, 2), "second");
}

} // namespace
