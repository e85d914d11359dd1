// Opens the real window on files of its own, for tests that use it as a person does.
#pragma once

#include "host/flash_image.h"
#include "host/main_window.h"
#include "host/media_requests.h"
#include "host/work_thread.h"
#include "temporary_files.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <gtest/gtest.h>
#include <memory>

/// For what comes soon, but late on a busy machine, ms.
constexpr int Patience = 20000;

class WindowTest : public ::testing::Test, protected TemporaryFiles {
protected:
    explicit WindowTest(const char* scale = "1") {
        qputenv("QT_SCALE_FACTOR", scale);
        application_ = std::make_unique<QApplication>(argc_, argv_);
    }

    void openWindow() {
        window_.reset(); // there is one panel
        window_ = std::make_unique<MainWindow>(PathFiles(directory_.path()));
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get(), Patience));
    }

    /// Opens an image and waits for its engine, whose start-up sets variables.
    void openAndRun(const QString& image) {
        const auto cycles = window_->progress().cycles;
        window_->openImage(image);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window_->progress().cycles > cycles + 2; }));
    }

    template <class Widget>
    Widget& find(const char* name) const {
        return *window_->findChild<Widget*>(name);
    }
    QString text(const char* label) const { return find<QLabel>(label).text(); }
    QString log() const { return find<QTextEdit>("textEdit").toPlainText(); }
    QLabel& view() const { return find<QLabel>("label_Show"); }
    void trigger(const char* action) const { find<QAction>(action).trigger(); }

    // The mouse, at places of the view.
    QPoint moveCursor(QPoint inView) const {
        QCursor::setPos(view().mapToGlobal(inView));
        return view().mapTo(window_.get(), inView);
    }
    void press(QPoint at) const { QTest::mousePress(hand(), Qt::LeftButton, {}, moveCursor(at)); }
    void move(QPoint at) const { QTest::mouseMove(hand(), moveCursor(at)); }
    void release() const { QTest::mouseRelease(hand(), Qt::LeftButton); }
    QWindow* hand() const { return window_->windowHandle(); }

    QColor shownColour() const {
        const QImage picture = view().pixmap(Qt::ReturnByValue).toImage();
        return picture.pixelColor(picture.rect().center());
    }
    bool shows(const QColor& colour) const {
        return QTest::qWaitFor([&] { return shownColour() == colour; }, 3000);
    }

    /// Whether there is an engine that serves its requests.
    static bool engineRuns() {
        panel::MusicStopRequest = 1;
        return QTest::qWaitFor([] { return panel::MusicStopRequest == 0; }, 300);
    }

    /// Does something with the next modal window, as soon as it is there.
    template <class Dialog>
    static void whenOpen(std::function<void(Dialog&)> act) {
        QTimer::singleShot(10, qApp, [act] {
            if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget()))
                act(*dialog);
            else
                whenOpen<Dialog>(act);
        });
    }

    std::unique_ptr<MainWindow> window_;

private:
    char name_[6] = "tests";
    char* argv_[2] = {name_, nullptr};
    int argc_ = 1;
    std::unique_ptr<QApplication> application_;

public:
    ~WindowTest() override { window_.reset(); } // before the application
};
