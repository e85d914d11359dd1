// vendaro-replay: a panel without a window, driven by a script.
#include "check/image_check.h"
#include "host/image_file.h"
#include "replay/command_error.h"
#include "replay/commands.h"
#include "replay/runner.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QLoggingCategory>

#include <iostream>

namespace {

using replay::Outcome;

constexpr char Purpose[] =
    "Runs a panel image without a window, in virtual time, and obeys a script.\n"
    "\n"
    "Without SCRIPT, or with -, commands come from standard input and each is carried\n"
    "out as it arrives. A SCRIPT file is checked whole before anything runs. Answers\n"
    "go to standard output, a line each, diagnostics to standard error.\n"
    "\n"
    "Exit code: 0 all commands ran and every expect held; 1 an expect failed;\n"
    "2 bad usage, a file that cannot be read or written, or a command that is not\n"
    "understood.\n"
    "\n"
    "With --check nothing runs: the program lists what is wrong with the image, a line\n"
    "each, and a summary. An error is something that the image names and that is not\n"
    "there or does not fit, such as a page, a picture, a font or a sound that does not\n"
    "exist, a widget off the panel, or too many widgets on a page. A warning may be\n"
    "meant, such as a widget partly off the panel or a record that no panel knows.\n"
    "Exit code: 0 no errors; 1 at least one error; 2 bad usage or a file that cannot be\n"
    "read.";

struct Options {
    QString image;
    QDateTime clock; // null: the computer's own
    QString script;  // empty: standard input
    replay::PictureRules pictures;
    bool check = false; // look at the image and run nothing
};

void setUp(QCommandLineParser& parser) {
    parser.setApplicationDescription(Purpose);
    parser.addOptions(
        {{{"h", "help"}, "Shows this help."},
         {{"v", "version"}, "Shows the version."},
         {"check", "Lists what is wrong with the image, and runs nothing."},
         {"clock", "The date and time that the panel's clock starts from, as in \"2026-01-01 00:00:00\".",
          "TIME"},
         {"evidence", "Keeps traces of pictures that are not as expected in DIR.", "DIR"},
         {"bless", "Writes pictures that are not as expected over their references."}});
    parser.addPositionalArgument("IMAGE.bin", "The image to load.");
    parser.addPositionalArgument("SCRIPT", "The commands.", "[SCRIPT | -]");
}

QDateTime readClock(const QString& text) {
    const QDateTime time = QDateTime::fromString(text, "yyyy-MM-dd HH:mm:ss");
    const int year = time.date().year();
    if (!time.isValid() || year < 2010 || year > 2099)
        throw replay::CommandError(
            "--clock must be a time of the years 2010 to 2099, as in \"2026-01-01 00:00:00\"");
    return time;
}

Options readOptions(const QCommandLineParser& parser) {
    const QStringList files = parser.positionalArguments();
    if (files.isEmpty() || files.size() > 2)
        throw replay::CommandError("give an image, and at most one script; --help tells more");
    const bool check = parser.isSet("check");
    if (check && parser.optionNames().size() + files.size() > 2)
        throw replay::CommandError("--check takes an image and nothing else");
    return {.image = files[0],
            .clock = parser.isSet("clock") ? readClock(parser.value("clock")) : QDateTime(),
            .script = files.value(1) == "-" ? QString() : files.value(1),
            .pictures = {.evidence = parser.value("evidence"), .bless = parser.isSet("bless")},
            .check = check};
}

Outcome run(const Options& options) {
    const bool fromInput = options.script.isEmpty();
    replay::Bench bench{.panel = {},
                        .report = {fromInput ? replay::InputName : options.script, std::cout, std::cerr},
                        .pictures = options.pictures};
    bench.panel.setClock(options.clock);
    bench.panel.load(options.image);
    return fromInput ? replay::RunLines(std::cin, bench) : replay::RunFile(options.script, bench);
}

Outcome checkImage(const QString& image) {
    if (!panel::ReadImageFile(image)) throw replay::CommandError("cannot read the image " + image);
    const check::Report report = check::CheckImage(QFileInfo(image).path());
    for (const check::Finding& finding : report.findings) std::cout << finding.line << '\n';
    std::cout << check::Summary(report) << '\n';
    return report.errors == 0 ? Outcome::Passed : Outcome::Failed;
}

Outcome runProgram(const QCoreApplication& application) {
    QCommandLineParser parser;
    setUp(parser);
    if (!parser.parse(application.arguments())) throw replay::CommandError(parser.errorText());
    if (parser.isSet("version")) {
        std::cout << "vendaro-replay " VENDARO_VERSION "\n";
        return Outcome::Passed;
    }
    if (parser.isSet("help")) {
        std::cout << parser.helpText().toStdString() << "\nCommands:\n"
                  << replay::CommandHelp().toStdString();
        return Outcome::Passed;
    }
    const Options options = readOptions(parser);
    return options.check ? checkImage(options.image) : run(options);
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules("*.debug=false"); // diagnostics are about the script
    try {
        return static_cast<int>(runProgram(application));
    } catch (const replay::CommandError& error) {
        std::cerr << "vendaro-replay: " << error.what() << '\n';
        return static_cast<int>(Outcome::Error);
    }
}
