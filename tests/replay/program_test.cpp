// The program itself: arguments, streams, exit codes.
#include "replay/commands.h"
#include "replay_test.h"

#include <QFile>
#include <QProcess>

namespace {

class Program : public ReplayTest {
protected:
    struct Result {
        int exitCode;
        std::string answers;
        std::string diagnostics;

        bool operator==(const Result&) const = default;
        friend std::ostream& operator<<(std::ostream& out, const Result& result) {
            return out << result.exitCode << '\n' << result.answers << result.diagnostics;
        }
    };
    void SetUp() override { image = writeImage(colouredPages()); }

    Result start(const QStringList& arguments, const QByteArray& input = {}) const {
        QProcess process;
        process.start(REPLAY_PROGRAM, arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished()) << "does not end";
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().replace(directory_.path().toUtf8(), "{}").toStdString()};
    }

    QString image;
};

TEST_F(Program, TakesCommandsFromInputAndFromAFile) {
    const QByteArray commands = "# two pages\nread 0x7000\n\nwrite 0x7000 2\nexpect page 2\n";
    for (const QStringList& arguments :
         {QStringList{image}, QStringList{image, "-"}, QStringList{image, writeFile("menu.txt", commands)}})
        EXPECT_EQ(start(arguments, commands), (Result{0, "0x7000: 0000\n", ""}));
}

TEST_F(Program, AnswersEachCommandAsItArrives) {
    QProcess process;
    process.start(REPLAY_PROGRAM, {image});
    for (const char* answer : {"0x7000: 0000\n", "0x7000: 0001\n"}) {
        process.write("read 0x7000\nwrite 0x7000 1\n");
        ASSERT_TRUE(process.waitForReadyRead(10000));
        EXPECT_EQ(process.readAllStandardOutput(), answer);
    }
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(Program, TellsByItsExitCodeHowItWent) {
    EXPECT_EQ(start({image}, "expect page 1\nread 0x7000"),
              (Result{1, "0x7000: 0000\n", "stdin:1: expected page 1, got 0\n"}));
    EXPECT_EQ(start({image}, "read 0x7000\nraed 0x7000\nread 0x7000\n"),
              (Result{2, "0x7000: 0000\n", "stdin:2: there is no such command: raed\n"}))
        << "nothing behind the wrong line runs";
    EXPECT_EQ(start({image, writeFile("menu.txt", "expect page 1\nread 0x7000\nread 0x70ff\n")}),
              (Result{2, "", "{}/menu.txt:3: ADDR must be a word address below 0x70ff, not 0x70ff\n"}))
        << "a file is checked whole before anything runs";
}

TEST_F(Program, RefusesBadUsage) {
    const QString script = writeFile("menu.txt", "state\n");
    const QStringList refused[] = {{},
                                   {image, script, "more"},
                                   {"--nonsense", image},
                                   {"--evidence"},
                                   {"--clock", "yesterday", image},
                                   {"--clock", "2009-12-31 00:00:00", image},
                                   {path("none.bin")},
                                   {directory_.path()},
                                   {"/dev/zero"},
                                   {"--check"},
                                   {"--check", path("none.bin")},
                                   {"--check", image, script},
                                   {image, path("none.txt")},
                                   {image, directory_.path()},
                                   {image, "/dev/zero"},
                                   {image, "/proc/self/mem"},
                                   {image, image}};
    for (const QStringList& arguments : refused) {
        const Result result = start(arguments);
        EXPECT_EQ(result, (Result{2, "", result.diagnostics})) << arguments.join(' ').toStdString();
        EXPECT_NE(result.diagnostics, "") << arguments.join(' ').toStdString();
    }
}

TEST_F(Program, ChecksAnImageAndRunsNothing) {
    EXPECT_EQ(start({"--check", image}, "expect page 1\n"), (Result{0, "no errors\n", ""}));
    const Result faulty = start({"--check", writeImage(colouredPages({.StartPage = 9}))});
    EXPECT_EQ(faulty.exitCode, 1);
    EXPECT_EQ(faulty.answers,
              "error: head at 0x000000b8: start page 9 does not exist (the image has 3)\n1 error\n");
}

TEST_F(Program, ExplainsItself) {
    const Result help = start({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    for (const replay::Command& command : replay::Commands())
        EXPECT_NE(help.answers.find("\n  " + std::string(command.name) + ' '), std::string::npos)
            << command.name;
    EXPECT_EQ(start({"--version"}).answers, "vendaro-replay 1.20\n");
}

TEST_F(Program, KeepsEvidenceAndBlessesByItsOptions) {
    const QByteArray commands = "expect frame " + path("page.png").toUtf8() + "\n";
    EXPECT_EQ(start({"--evidence", path("kept"), image}, commands).exitCode, 1);
    EXPECT_TRUE(QFile::exists(path("kept/stdin.1.actual.png")));
    EXPECT_EQ(start({"--bless", image}, commands).diagnostics, "stdin:1: blessed {}/page.png\n");
    EXPECT_EQ(start({image}, commands).exitCode, 0);
}

TEST_F(Program, EndsAtGarbageOnItsInput) {
    QByteArray garbage;
    for (int i = 0; i < 100000; ++i) garbage += static_cast<char>(i * 7919 >> 3);
    for (const QByteArray& input :
         {garbage, QByteArray(1 << 20, '\0'), QByteArray(1 << 20, 'x'), QByteArray(1 << 20, '"')}) {
        const Result result = start({image}, input);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.diagnostics.substr(0, 6), "stdin:");
        EXPECT_LT(result.diagnostics.size(), 500u);
    }
}

} // namespace
