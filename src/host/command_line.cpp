#include "host/command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr int LongestWaitMs = 24 * 60 * 60 * 1000;

[[noreturn]] void refuse(const QString& reason) {
    std::fprintf(stderr, "vendaro: %s\nTry \"vendaro --help\".\n", qPrintable(reason));
    std::exit(EXIT_FAILURE);
}

int readWait(const QString& text) {
    bool sound = false;
    const int ms = text.toInt(&sound);
    if (!sound || ms < 0 || ms > LongestWaitMs)
        refuse(
            QStringLiteral("--after takes milliseconds, 0 to %1, not \"%2\".").arg(LongestWaitMs).arg(text));
    return ms;
}

} // namespace

bool AsksForTextOnly(int argc, char** argv) {
    static constexpr std::string_view textOptions[] = {"-h", "--help", "--help-all", "-v", "--version"};
    return std::any_of(argv, argv + argc, [](const char* argument) {
        return std::ranges::find(textOptions, argument) != std::end(textOptions);
    });
}

CommandLine ReadCommandLine(const QCoreApplication& application) {
    CommandLine line;
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Write a picture of the whole window to FILE.png and exit."),
        QStringLiteral("FILE.png"));
    const QCommandLineOption after(QStringLiteral("after"),
                                   QStringLiteral("Take the screenshot MS milliseconds after the start."),
                                   QStringLiteral("MS"), QString::number(line.afterMs));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Emulator of serial TFT touch panels."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({screenshot, after});
    parser.addPositionalArgument(QStringLiteral("IMAGE.bin"), QStringLiteral("Panel image to load."),
                                 QStringLiteral("[IMAGE.bin]"));
    parser.process(application);

    const QStringList images = parser.positionalArguments();
    if (images.size() > 1) refuse(QStringLiteral("Only one image can be loaded."));
    if (!images.isEmpty()) line.image = QFileInfo(images.first()).absoluteFilePath();
    line.screenshot = parser.value(screenshot);
    if (parser.isSet(screenshot) && line.screenshot.isEmpty())
        refuse(QStringLiteral("--screenshot needs a file."));
    line.afterMs = readWait(parser.value(after));
    return line;
}
