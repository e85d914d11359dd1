#include "shell/window_fixture.h"

#include "host/session_recorder.h"
#include "imagekit/bar_widgets.h"
#include "imagekit/touch_controls.h"
#include "imagekit/touch_keys.h"
#include "inspector/dialog_reg.h"
#include "pages/page_switch.h"
#include "store/variable_store.h"

#include <QProcess>

namespace {

using namespace imagekit;

class RecordingTest : public WindowTest {
protected:
    /// A page with a key that counts while it is held and one to the second page, where a slider waits; a
    /// value runs by itself meanwhile.
    QString writeProject(const QString& name, std::uint16_t start) {
        ImageBuilder image({.Width = 200, .Height = 120, .ColourMode = 1});
        image.setWord(Counter, start);
        image.setWord(RunControl, 1);
        Page& first = image.addPage(Solid{.Width = 200, .Height = 120, .Colour = Qt::darkGreen});
        first.add(StepKey{.Where = {0, 0, 99, 119}, .Address = Counter, .Highest = 900, .Repeat = true});
        first.add(PageKey{.Where = {100, 0, 199, 119}, .TargetPage = 1});
        first.add(
            AutoStep{.TargetAddress = Running, .ControlAddress = RunControl, .Highest = 9000, .Period = 7});
        Page& second = image.addPage(Solid{.Width = 200, .Height = 120, .Colour = Qt::darkBlue});
        second.add(imagekit::Slider{.Address = Slid, .Where = {10, 20, 190, 100}});
        return writeFile(name, image.build());
    }

    void startRecording() {
        openWindow();
        auto recorder =
            std::make_unique<SessionRecorder>([window = window_.get()] { return window->progress(); });
        ASSERT_TRUE(recorder->open(path("s.replay")));
        window_->setInput(std::move(recorder));
    }

    void hold(QPoint at, int milliseconds) const {
        press(at);
        QTest::qWait(milliseconds);
        release();
    }

    void write(const QString& address, const QString& format, const QString& type, const QString& value) {
        find<QTabWidget>("tabWidget").setCurrentWidget(window_->findChild<DialogReg*>());
        find<QLineEdit>("lineEdit_VarAddr").setText(address);
        find<QComboBox>("comboBox_VarType").setCurrentText(format);
        find<QComboBox>("comboBox_CodeType").setCurrentText(type);
        find<QLineEdit>("lineEdit_2").setText(value);
        find<QPushButton>("pushButton_VarWrite").click();
    }

    /// What the recorded script, and then a look at the panel, answer.
    QString replay(const QByteArray& image, const QByteArray& look) const {
        const QByteArray script = readFile("s.replay");
        const QByteArray clock = script.split('"').value(1);
        QProcess program;
        program.start(REPLAY_PROGRAM,
                      {"--clock", clock, path(image), writeFile("all.replay", script + look)});
        EXPECT_TRUE(program.waitForFinished(20000));
        EXPECT_EQ(program.exitCode(), 0)
            << program.readAllStandardError().toStdString() << script.toStdString();
        return program.readAllStandardOutput().trimmed();
    }
    static QString wordsNow(std::uint16_t first, int count) {
        QString line = QString("0x%1:").arg(first, 4, 16, QLatin1Char('0'));
        for (int i = 0; i < count; ++i)
            line += QString(" %1").arg(panel::ReadWord(static_cast<std::uint16_t>(first + i)), 4, 16,
                                       QLatin1Char('0'));
        return line;
    }

    static constexpr std::uint16_t Counter = 0x1000, Running = 0x1001, RunControl = 0x1002, Slid = 0x1003;
};

TEST_F(RecordingTest, AReplayEndsOnThePageAndWithTheWordsOfTheSession) {
    startRecording();
    openAndRun(writeProject("a.bin", 5));
    hold({50, 60}, 900);
    QTest::qWait(100);
    write("0x1010", "Numerical", "int", "-2");
    write("0x1012", "Numerical", "uchar", "300");
    write("0x1014", "String", "Unicode", QString::fromUtf8("21 °C \"warm\""));
    write("0x1024", "String", "GBK", QString::fromUtf8("温 😀"));
    write("0x1030", "Numerical", "short", "0x0x\"raw\"7F");
    QTest::keyClick(&view(), Qt::Key_A);
    hold({150, 60}, 60);
    ASSERT_TRUE(QTest::qWaitFor([] { return panel::CurrentPage == 1; }));
    press({30, 60});
    for (int x = 40; x <= 140; x += 10) {
        move({x, 60});
        QTest::qWait(15);
    }
    release();
    QTest::qWait(100);
    const int slid = panel::ReadWord(Slid);
    openAndRun(writeProject("b.bin", 700));
    hold({50, 60}, 60);
    QTest::qWait(1100);
    window_.reset();

    EXPECT_GT(slid, 40);
    EXPECT_EQ(panel::ReadWord(Counter), 701);
    // The word that runs is left out: of a slow cycle nobody can tell which ticks its autoStep has seen.
    EXPECT_EQ(replay("a.bin", "read 0x1000\nread 0x1002 0x3E\nread 0x7000 8\n"),
              wordsNow(Counter, 1) + '\n' + wordsNow(RunControl, 0x3E) + '\n' + wordsNow(0x7000, 8));
    EXPECT_TRUE(readFile("s.replay").contains("\nexpect page 1\n"));
}

TEST_F(RecordingTest, WhatCannotBeRepeatedIsNotWritten) {
    startRecording();
    hold({50, 60}, 0);
    EXPECT_EQ(readFile("s.replay"), "") << "nothing happens before the first image";
    openAndRun(writeProject("a.bin", 5));
    write("0x6000", "Numerical", "int", "7");
    write("0x5FFF", "String", "UTF-8", "too long for its place");
    window_.reset();
    EXPECT_FALSE(readFile("s.replay").contains("set "));
    EXPECT_FALSE(readFile("s.replay").contains("text "));
    EXPECT_FALSE(SessionRecorder({}).open(path("no/such/directory/s.replay")));
}

} // namespace
