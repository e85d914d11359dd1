#include "shell/window_fixture.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QToolBar>

#include <sys/stat.h>

namespace {

class LoadingTest : public WindowTest {
protected:
    /// The settings of the image as the window tells them.
    QStringList settings() const {
        QStringList texts;
        for (const char* label :
             {"label_EditorVer", "label_DevAddr", "label_LCDresulution", "label_Flashsize", "label_BdRate",
              "label_RGBFormat", "label_ICType", "label_UserID", "label_UserVer"})
            texts << text(label);
        return texts;
    }
    bool settingsAreEmpty() const { return settings().join("").isEmpty(); }

    /// Picks a file in the dialog of the Load action; "" cancels. `look` sees the dialog before.
    void load(const QString& file, const std::function<void(QFileDialog&)>& look = {}) {
        whenOpen<QFileDialog>([=](QFileDialog& dialog) {
            if (look) look(dialog);
            if (file.isEmpty()) {
                dialog.reject();
                return;
            }
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            name->setText(file);
            QTest::keyClick(name, Qt::Key_Return);
        });
        trigger("actionLoad");
    }

    /// Opens a path that cannot be read and closes the message, whose text it gives.
    QString messageFor(const QString& file) {
        QString message;
        whenOpen<QMessageBox>([&](QMessageBox& box) {
            message = box.text();
            EXPECT_EQ(box.windowTitle(), "Message");
            EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
            box.button(QMessageBox::Ok)->click();
        });
        window_->openImage(file);
        return message;
    }
};

TEST_F(LoadingTest, TheLoadActionLoadsThePickedImageAndDescribesIt) {
    imagekit::PanelConfig config{.Width = 480, .Height = 272, .ICType = 7, .BAUD = 10, .FlhSize = 12};
    config.EditorVersion = "V3.1.4";
    config.USER_KEY = 0x00C0FFEE;
    config.UserVER = "12345678";
    config.DevAddr = 0xAB;
    const QString file = writeImage("coffee.bin", Qt::green, config);
    QFile::resize(file, 3'500 * 1024);
    writeFile("lastbin_path.ini", "\xEF\xBB\xBF" + directory_.path().toUtf8() + "/");
    openWindow();
    load(file, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Select Flash Code");
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(directory_.path()).canonicalPath());
        EXPECT_EQ(log(), "Loading...");
        EXPECT_TRUE(find<QTextEdit>("textEdit").toHtml().contains("color:#ff0000"));
    });
    EXPECT_TRUE(shows(Qt::green));
    EXPECT_EQ(view().size(), QSize(480, 272));
    EXPECT_EQ(text("label_PathStr"), "Path: " + file);
    EXPECT_EQ(settings(), QStringList({"V3.1.4", "0xab", "480*272", "16MB", "115200", "aRGB8888", "ZR18(MCU)",
                                       "0x00C0FFEE", "12345678"}));
    EXPECT_EQ(text("label_Filesize"), "3.42 MB");
    EXPECT_EQ(log(), "File size:3584000");
    EXPECT_FALSE(find<QTextEdit>("textEdit").toHtml().contains("color:#ff0000"));
    EXPECT_EQ(readFile("lastbin_path.ini"), "\xEF\xBB\xBF" + directory_.path().toUtf8() + "/");
    EXPECT_EQ(window_->focusWidget(), &view());
    load("");
    EXPECT_EQ(log(), "") << "cancelled";
    EXPECT_TRUE(shows(Qt::green));
    EXPECT_TRUE(engineRuns());
    EXPECT_EQ(text("label_LCDresulution"), "480*272");
}

TEST_F(LoadingTest, StartsWithTheImageOfThePathFileAfterASecond) {
    const QString file = writeImage("a.bin", Qt::cyan);
    writeFile("currentbin_path.ini", file.toUtf8() + "\r\n");
    openWindow();
    EXPECT_EQ(log(), "Loading...");
    QTest::qWait(200);
    EXPECT_EQ(shownColour(), QColor(Qt::black));
    EXPECT_TRUE(shows(Qt::cyan));
    EXPECT_EQ(text("label_PathStr"), "Path: " + file);

    openWindow();
    window_->openImage(writeImage("b.bin", Qt::green)); // what the user chose wins over the path file
    QTest::qWait(1200);
    EXPECT_EQ(shownColour(), QColor(Qt::green));

    writeFile("currentbin_path.ini", "/nowhere/x.bin"); // leaves the placeholder
    openWindow();
    EXPECT_EQ(log(), "");
    QTest::qWait(1200);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(view().size(), QSize(800, 480));
    EXPECT_EQ(shownColour(), QColor(Qt::black));
    EXPECT_FALSE(engineRuns());
}

TEST_F(LoadingTest, WhatIsNoReadableFileIsReportedAndLeavesNoEngine) {
    QFile tooLarge(path("large.bin"));
    ASSERT_TRUE(tooLarge.open(QIODevice::WriteOnly) && tooLarge.resize(Q_INT64_C(1) << 31));
    ASSERT_EQ(mkfifo(qPrintable(path("pipe.bin")), 0600), 0);
    const QString sound = writeImage("a.bin", Qt::green);
    openWindow();
    for (const QString& file : {path("nothing.bin"), directory_.path(), path("pipe.bin"), path("large.bin"),
                                QString("/dev/zero")}) {
        window_->openImage(sound);
        EXPECT_TRUE(engineRuns());
        EXPECT_EQ(messageFor(file), "<font color='blue'>Read fail,please check the path!    </font>")
            << qPrintable(file);
        EXPECT_FALSE(engineRuns()) << qPrintable(file);
        EXPECT_EQ(panel::FlashImage.size, 0);
        EXPECT_TRUE(settingsAreEmpty());
    }
    window_->openImage(sound);
    EXPECT_TRUE(engineRuns());
}

TEST_F(LoadingTest, AnIllegalImageEndsInTheErrorFrameAndAnEmptyPanel) {
    imagekit::ImageBuilder image;
    image.addPage();
    image.patch(0x80 + 0x10, {0x21}); // the check does not hold any more
    const QString illegal = writeFile("illegal.bin", image.build());
    openWindow();
    window_->openImage(writeImage("a.bin", Qt::green));
    const QString soundPath = text("label_PathStr");
    window_->openImage(illegal);
    EXPECT_TRUE(shows(QColor(0, 0xA2 * 0xE0 / 0xFF, 0xE0))); // #00A2FF, dimmed
    EXPECT_TRUE(settingsAreEmpty());
    EXPECT_EQ(text("label_Filesize") + log(), "");
    EXPECT_EQ(text("label_PathStr"), soundPath);
    EXPECT_FALSE(engineRuns());

    window_->openImage(writeImage("a.bin", Qt::green));
    EXPECT_TRUE(shows(Qt::green));
    EXPECT_EQ(text("label_LCDresulution"), "800*480");
}

TEST_F(LoadingTest, ShortFilesLoadAndAreDescribedOnlyAbove1024Bytes) {
    openWindow();
    for (const int size : {0, 1, 0x80, 0x173, 0x400}) {
        window_->openImage(writeFile("short.bin", QByteArray(size, '\0')));
        EXPECT_TRUE(settingsAreEmpty()) << size;
        EXPECT_EQ(text("label_Filesize"), "0.00 MB");
        EXPECT_EQ(log(), QString("File size:%1").arg(size));
        QTest::qWait(30);
    }
    window_->openImage(writeFile("short.bin", QByteArray(0x401, '\0')));
    EXPECT_EQ(text("label_ICType"), "ZR11");
    EXPECT_EQ(text("label_UserID"), "0x00000000");
}

TEST_F(LoadingTest, AHundredLoadsInARowEndWithTheLast) {
    const QString files[] = {writeImage("a.bin", Qt::green), writeFile("broken.bin", QByteArray(100, 'U')),
                             writeImage("b.bin", Qt::cyan, {.Width = 320, .Height = 240})};
    openWindow();
    for (int i = 0; i < 99; ++i) {
        window_->openImage(files[i % 3]);
        if (i % 5 == 0) QTest::qWait(i % 7);
    }
    EXPECT_TRUE(shows(Qt::cyan));
    EXPECT_EQ(view().size(), QSize(320, 240));
    EXPECT_TRUE(engineRuns());
}

TEST_F(LoadingTest, TheWindowMayCloseAtAnyMoment) {
    const QString file = writeImage("a.bin", Qt::green);
    writeFile("currentbin_path.ini", file.toUtf8());
    for (int wait = 0; wait < 12; ++wait) {
        openWindow();
        if (wait > 0) window_->openImage(file);
        QTest::qWait(5 * (wait / 2));
        window_->close();
        window_.reset();
        QCoreApplication::processEvents();
    }
    EXPECT_FALSE(engineRuns());
}

TEST_F(LoadingTest, ADroppedImageIsLoaded) {
    openWindow();
    const auto drop = [&](const QString& file) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(QPoint(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent dropped(QPointF(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window_.get(), &dropped);
        return true;
    };
    EXPECT_FALSE(drop(writeFile("notes.txt", "text")));
    EXPECT_TRUE(drop(writeImage("A.BIN", Qt::green)));
    EXPECT_TRUE(shows(Qt::green));
}

TEST_F(LoadingTest, AWatchedImageIsLoadedAgainOnceItIsWrittenWhole) {
    openWindow();
    window_->watchImage();
    window_->openImage(writeImage("a.bin", Qt::green), MainWindow::zoomOf(140));
    ASSERT_TRUE(shows(Qt::green));

    writeImage("b.bin", Qt::red);
    const QByteArray next = readFile("b.bin");
    for (int part = 1; part <= 5; ++part) { // a slow writer
        writeFile("a.bin", next.left(next.size() * part / 5));
        QTest::qWait(150);
        if (part < 5) {
            EXPECT_EQ(shownColour(), Qt::green) << part;
        }
    }
    EXPECT_TRUE(shows(Qt::red));
    EXPECT_EQ(view().width(), qRound(800 * 1.4F));

    QFile::remove(path("a.bin")); // a tool that replaces the file, and takes its time
    QTest::qWait(700);
    EXPECT_EQ(shownColour(), Qt::red);
    writeImage("a.bin", Qt::blue);
    EXPECT_TRUE(shows(Qt::blue));
}

TEST_F(LoadingTest, TheToolbarHasPictures) {
    openWindow();
    for (const QAction* action : find<QToolBar>("toolBar").actions())
        EXPECT_TRUE(action->isSeparator() || !action->icon().pixmap(24).isNull());
}

} // namespace
