#include "host/command_line.h"

#include "host/main_window.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr int LargestSide = 16384; // px
constexpr int LongestWaitMs = 24 * 60 * 60 * 1000;

[[noreturn]] void refuse(const QString& reason) {
    std::fprintf(stderr, "vendaro: %s\nTry \"vendaro --help\".\n", qPrintable(reason));
    std::exit(EXIT_FAILURE);
}

int readZoom(const QString& text) {
    bool sound = false;
    const int percent = text.toInt(&sound);
    if (!sound || percent < MainWindow::SmallestZoomPercent || percent > MainWindow::LargestZoomPercent
        || percent % MainWindow::ZoomStepPercent != 0)
        refuse(QStringLiteral("--zoom takes a percentage of 60, 80, 100 and so on to 300, not \"%1\".")
                   .arg(text));
    return percent;
}

QSize readSize(const QString& text) {
    const QStringList sides = text.split('x');
    const QSize size(sides.value(0).toInt(), sides.value(1).toInt());
    if (sides.size() != 2 || size.isEmpty() || size.width() > LargestSide || size.height() > LargestSide)
        refuse(QStringLiteral("--size takes a size as in 1480x620, not \"%1\".").arg(text));
    return size;
}

int readWait(const QString& text) {
    bool sound = false;
    const int ms = text.toInt(&sound);
    if (!sound || ms < 0 || ms > LongestWaitMs)
        refuse(
            QStringLiteral("--after takes milliseconds, 0 to %1, not \"%2\".").arg(LongestWaitMs).arg(text));
    return ms;
}

struct Options {
    QCommandLineOption watch{
        QStringLiteral("watch"),
        QStringLiteral("Load the image again when the design tool has written it anew.")};
    QCommandLineOption record{
        QStringLiteral("record"),
        QStringLiteral("Write what happens to the panel to FILE, as a script for vendaro-replay."),
        QStringLiteral("FILE")};
    QCommandLineOption zoom{QStringLiteral("zoom"),
                            QStringLiteral("Show IMAGE.bin at PERCENT: 60 to 300, in steps of 20."),
                            QStringLiteral("PERCENT"), QStringLiteral("100")};
    QCommandLineOption size{QStringLiteral("size"), QStringLiteral("Open the window in this size."),
                            QStringLiteral("WIDTHxHEIGHT")};
    QCommandLineOption maximised{QStringLiteral("maximized"), QStringLiteral("Open the window maximized.")};
    QCommandLineOption screenshot{QStringLiteral("screenshot"),
                                  QStringLiteral("Write a picture of the whole window to FILE.png and exit."),
                                  QStringLiteral("FILE.png")};
    QCommandLineOption after{
        QStringLiteral("after"),
        QStringLiteral("Take the screenshot MS milliseconds after the start, or after IMAGE.bin is loaded."),
        QStringLiteral("MS"), QString::number(CommandLine().afterMs)};
};

void setUp(QCommandLineParser& parser, const Options& options) {
    parser.setApplicationDescription(QStringLiteral("Emulator of serial TFT touch panels."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({options.watch, options.record, options.zoom, options.size, options.maximised,
                       options.screenshot, options.after});
    parser.addPositionalArgument(QStringLiteral("IMAGE.bin"), QStringLiteral("Panel image to load."),
                                 QStringLiteral("[IMAGE.bin]"));
}

QString readImage(const QStringList& images) {
    if (images.size() > 1) refuse(QStringLiteral("Only one image can be loaded."));
    return images.isEmpty() ? QString() : QFileInfo(images.first()).absoluteFilePath();
}

/// The value of an option that names a file; empty when it is not given.
QString readFile(const QCommandLineParser& parser, const QCommandLineOption& option) {
    const QString file = parser.value(option);
    if (parser.isSet(option) && file.isEmpty())
        refuse(QStringLiteral("--%1 needs a file.").arg(option.names().first()));
    return file;
}

} // namespace

bool AsksForTextOnly(int argc, char** argv) {
    static constexpr std::string_view textOptions[] = {"-h", "--help", "--help-all", "-v", "--version"};
    return std::any_of(argv, argv + argc, [](const char* argument) {
        return std::ranges::find(textOptions, argument) != std::end(textOptions);
    });
}

CommandLine ReadCommandLine(const QCoreApplication& application) {
    const Options options;
    QCommandLineParser parser;
    setUp(parser, options);
    parser.process(application);

    CommandLine line;
    line.image = readImage(parser.positionalArguments());
    line.screenshot = readFile(parser, options.screenshot);
    line.afterMs = readWait(parser.value(options.after));
    line.record = readFile(parser, options.record);
    line.watch = parser.isSet(options.watch);
    line.zoom = readZoom(parser.value(options.zoom));
    if (parser.isSet(options.zoom) && line.image.isEmpty()) refuse(QStringLiteral("--zoom needs an image."));
    if (parser.isSet(options.size)) line.size = readSize(parser.value(options.size));
    line.maximised = parser.isSet(options.maximised);
    return line;
}
