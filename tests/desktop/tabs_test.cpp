// Pulls tabs out of the window and puts them back, with a real mouse on a real desktop.
#include "shell/window_fixture.h"

#include "inspector/dialog_reg.h"
#include "inspector/my_tab_popup.h"
#include "inspector/my_tab_widget.h"

#include <QPointer>
#include <QProcess>
#include <QTabBar>

namespace {

class TabsTest : public WindowTest {
protected:
    void SetUp() override {
        openWindow();
        window_->move(20, 20);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get(), Patience));
        page_ = window_->findChild<DialogReg*>();
    }

    MyTabWidget& tabs() const { return find<MyTabWidget>("tabWidget"); }
    QPoint tab(int index) const {
        return tabs().tabBar()->mapToGlobal(tabs().tabBar()->tabRect(index).center());
    }
    MyTabPopup* popup() const {
        auto* open = window_->findChild<MyTabPopup*>();
        return open && open->isVisible() ? open : nullptr;
    }
    bool isOut() const { return popup() && popup()->ContentWidget() == page_ && tabs().indexOf(page_) < 0; }
    bool isIn() const { return !popup() && tabs().currentWidget() == page_ && page_->isVisible(); }

    /// Moves a hand that the program knows nothing of, and waits until the program has seen it all.
    static void act(const QString& script) {
        QProcess hand;
        hand.start("xdotool", script.split(' '));
        EXPECT_TRUE(QTest::qWaitFor([&] { return hand.state() == QProcess::NotRunning; }, 10000));
        EXPECT_EQ(hand.exitCode(), 0) << hand.readAllStandardError().toStdString();
        QTest::qWait(200);
    }
    static void drag(QPoint from, QPoint to) {
        QString script = QString("mousemove %1 %2 sleep 0.1 mousedown 1").arg(from.x()).arg(from.y());
        constexpr int steps = 8;
        for (int i = 1; i <= steps; ++i) {
            const QPoint at = from + (to - from) * i / steps;
            script += QString(" sleep 0.03 mousemove %1 %2").arg(at.x()).arg(at.y());
        }
        act(script + " sleep 0.5 mouseup 1"); // by then even a busy machine has begun the drag
    }
    void pullOut() {
        drag(tab(1), OutsideTheBar);
        ASSERT_TRUE(QTest::qWaitFor([this] { return isOut(); }, Patience));
        ASSERT_TRUE(QTest::qWaitForWindowActive(popup(), Patience));
    }
    QPoint titleBar() const { return popup()->geometry().topLeft() + QPoint(200, -8); }

    static constexpr QPoint OutsideTheBar{900, 250};
    QPointer<DialogReg> page_;
};

TEST_F(TabsTest, ATabPulledOutLivesInAWindowUntilThatIsClosed) {
    const QSize size = page_->size();
    pullOut();
    EXPECT_EQ(popup()->windowTitle(), "Emulation");
    EXPECT_EQ(popup()->size(), size);
    EXPECT_TRUE(QTest::qWaitFor([this] { return popup()->pos() == OutsideTheBar - QPoint(10, 10); }));
    window_->openImage(writeImage("a.bin", Qt::green));
    EXPECT_EQ(find<QLineEdit>("lineEdit_VarAddr").text(), "0x7000") << "it is filled while it is outside";

    for (const char* close : {"key alt+F4", "key Escape"}) {
        act(close);
        EXPECT_TRUE(QTest::qWaitFor([this] { return isIn(); }, Patience)) << close;
        pullOut();
    }
}

TEST_F(TabsTest, AReleaseOverTheBarLeavesTheTabAndAFixedOneNeverLeaves) {
    const QPoint below = tab(1) + QPoint(0, 60);
    act(QString("mousemove %1 %2 mousedown 1 sleep 0.1 mousemove %3 %4 sleep 0.1 mousemove %3 %5 sleep 0.5 "
                "mousemove %1 %2 sleep 0.5 mouseup 1")
            .arg(tab(1).x())
            .arg(tab(1).y())
            .arg(below.x())
            .arg(below.y())
            .arg(below.y() + 5));
    EXPECT_TRUE(isIn());
    drag(tab(0), OutsideTheBar);
    EXPECT_FALSE(popup());
    EXPECT_EQ(tabs().count(), 2);
    tabs().RemovePageAt(0);
    EXPECT_EQ(tabs().count(), 2);
}

TEST_F(TabsTest, ATitleBarReleasedOverTheBarDocksAndElsewhereDoesNot) {
    pullOut();
    drag(titleBar(), titleBar() + QPoint(40, 50));
    EXPECT_TRUE(isOut());
    drag(titleBar(), tab(0));
    EXPECT_TRUE(QTest::qWaitFor([this] { return isIn(); }, Patience));
    EXPECT_EQ(tabs().indexOf(page_), 1);
}

TEST_F(TabsTest, ATabPulledOutByItsKeyStaysOutUnderAMouseThatRestsOnTheBar) {
    tabs().setCurrentIndex(1);
    act(QString("mousemove %1 %2 sleep 0.2 key ctrl+d").arg(tab(0).x()).arg(tab(0).y()));
    ASSERT_TRUE(QTest::qWaitFor([this] { return isOut(); }, Patience));
    QTest::qWait(500); // longer than it takes to see a mouse button released
    EXPECT_TRUE(isOut());
}

TEST_F(TabsTest, APageEndsOnceWithTheWindowWhereverItIs) {
    pullOut();
    window_->openImage(writeImage("a.bin", Qt::green));
    window_->close();
    window_.reset();
    EXPECT_FALSE(page_);

    openWindow();
    page_ = window_->findChild<DialogReg*>();
    tabs().RemovePageAt(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !page_; }));
    window_->openImage(writeImage("b.bin", Qt::red));
    EXPECT_TRUE(shows(Qt::red)) << "the panel runs on without its inspector";
}

} // namespace
