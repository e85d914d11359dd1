// The man pages and the programs tell of the same options and commands.
#include "temporary_files.h"

#include <QProcess>
#include <QRegularExpression>

namespace {

/// What a program's --help names: options, and behind "Commands:" the first word of each line.
QStringList namesInHelp(const char* program) {
    QProcess process;
    process.start(program, {"--help"});
    EXPECT_TRUE(process.waitForFinished());
    const QStringList parts = QString(process.readAllStandardOutput()).split("Commands:");
    QStringList names;
    auto options = QRegularExpression("--([a-z]+)").globalMatch(parts[0]);
    while (options.hasNext()) names << options.next().captured(1);
    auto commands =
        QRegularExpression("^  ([a-z]+) ", QRegularExpression::MultilineOption).globalMatch(parts.value(1));
    while (commands.hasNext()) names << commands.next().captured(1);
    names.removeDuplicates();
    return names;
}

TEST(ManPages, TellOfEverythingInHelp) {
    const std::pair<const char*, const char*> pages[] = {{VENDARO_PROGRAM, "vendaro.1"},
                                                         {REPLAY_PROGRAM, "vendaro-replay.1"}};
    for (const auto& [program, page] : pages) {
        QFile file(QString(PACKAGING_DIRECTORY "/") + page);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = file.readAll();
        const QStringList names = namesInHelp(program);
        EXPECT_GE(names.size(), 7) << page;
        for (const QString& name : names)
            EXPECT_TRUE(QRegularExpression("\\b" + name + "\\b").match(text).hasMatch())
                << page << " does not tell of " << name.toStdString();
    }
}

} // namespace
