#include "host/command_line.h"
#include "host/main_window.h"
#include "host/platform_setup.h"
#include "host/session_recorder.h"
#include "host/video_decoder.h"

#include <QApplication>
#include <QIcon>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
    if (AsksForTextOnly(argc, argv)) return std::make_unique<QCoreApplication>(argc, argv);
    return std::make_unique<QApplication>(argc, argv);
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 128}) icon.addFile(QStringLiteral(":/Icon/vendaro-%1.png").arg(size));
    return icon;
}

/// No box in a run that nobody watches: a message ends it.
void failWithMessage(const QString& text) {
    std::fprintf(stderr, "vendaro: %s\n", qPrintable(text));
    QCoreApplication::exit(EXIT_FAILURE);
}

void showWindow(QWidget& window, const CommandLine& line) {
    if (line.size.isValid())
        window.resize(line.size);
    else if (line.screenshot.isEmpty()) // the inspector beside a panel is wider than a small laptop's screen
        window.resize(window.size().boundedTo(window.screen()->availableSize()));
    if (line.maximised)
        window.showMaximized();
    else
        window.show();
}

bool record(MainWindow& window, const QString& file) {
    auto recorder = std::make_unique<SessionRecorder>([&window] { return window.progress(); });
    if (!recorder->open(file)) {
        std::fprintf(stderr, "vendaro: Cannot write %s.\n", qPrintable(file));
        return false;
    }
    window.setInput(std::move(recorder));
    return true;
}

/// What a run that nobody watches can do without is only told.
QMessageBox::StandardButton tellOnly(const QString& text, QMessageBox::StandardButtons,
                                     QMessageBox::StandardButton) {
    std::fprintf(stderr, "vendaro: %s\n", qPrintable(text));
    return QMessageBox::NoButton;
}

void planScreenshot(MainWindow& window, const CommandLine& line) {
    QTimer::singleShot(line.afterMs, &window, [&window, file = line.screenshot] {
        if (window.grab().save(file, "PNG"))
            QCoreApplication::quit();
        else
            failWithMessage(QStringLiteral("Cannot write %1.").arg(file));
    });
}

/// What the command line asks of a window that is on show.
void begin(MainWindow& window, const CommandLine& line) {
    if (!line.image.isEmpty()) window.openImage(line.image, MainWindow::zoomOf(line.zoom));
    if (!line.screenshot.isEmpty()) planScreenshot(window, line);
}

} // namespace

int main(int argc, char** argv) {
    SetUpPlatform();
    QCoreApplication::setApplicationName(QStringLiteral("vendaro"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VENDARO_VERSION));
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
    const CommandLine line = ReadCommandLine(*application);

    MainWindow window;
    QApplication::setWindowIcon(programIcon());
    if (!line.record.isEmpty() && !record(window, line.record)) return EXIT_FAILURE;
    if (line.watch) window.watchImage();
    if (!line.screenshot.isEmpty()) {
        window.setMessageSink(failWithMessage);
        window.setAskUser(tellOnly);
    }
    QTimer::singleShot(0, &window, [&window, &line] { begin(window, line); });
    showWindow(window, line);
    ProbeVideoDecoder(window.askUser());
    return QCoreApplication::exec();
}
