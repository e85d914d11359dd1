// Runs the program itself, in a directory of its own so that its path files are its own too.
#include "temporary_files.h"

#include <QImage>
#include <QProcess>

namespace {

class ProgramTest : public ::testing::Test, protected TemporaryFiles {
protected:
    void SetUp() override { ASSERT_TRUE(QFile::copy(VENDARO_PROGRAM, path("vendaro"))); }

    int run(const QStringList& arguments, const QString& platform = "offscreen") {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", platform);
        program_.setProcessEnvironment(environment);
        program_.start(path("vendaro"), arguments);
        EXPECT_TRUE(program_.waitForFinished(20000));
        return program_.exitStatus() == QProcess::NormalExit ? program_.exitCode() : -1;
    }

    QString writeProject() const {
        return writeImage("a.bin", QColor(255, 0, 255), {.Width = 320, .Height = 240});
    }

    /// Pixels of a picture that have the colour of the image's page.
    int pagePixels(const QString& picture) const {
        const QImage image(picture);
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == QColor(255, 0, 255);
        return count;
    }

    QProcess program_;
};

TEST_F(ProgramTest, AnswersWithoutADisplay) {
    EXPECT_EQ(run({"--version"}, "none"), 0);
    EXPECT_EQ(program_.readAllStandardOutput(), "vendaro 1.20\n");
    EXPECT_EQ(run({"--help"}, "none"), 0);
    EXPECT_TRUE(program_.readAllStandardOutput().contains("--screenshot <FILE.png>"));
}

TEST_F(ProgramTest, RefusesWhatIsNoCommandLine) {
    for (const QStringList& arguments :
         {QStringList{"--nonsense"}, QStringList{"a.bin", "b.bin"}, QStringList{"--after", "soon"},
          QStringList{"--after", "-1"}, QStringList{"--screenshot", ""}, QStringList{"--zoom", "100"},
          QStringList{"--zoom", "90", "a.bin"}, QStringList{"--size", "640"}, QStringList{"--size", "0x9"},
          QStringList{"--record", path("no/such/directory/s.replay")}}) {
        EXPECT_EQ(run(arguments), 1) << qPrintable(arguments.join(' '));
        EXPECT_TRUE(program_.readAllStandardError().contains("vendaro: "));
    }
}

TEST_F(ProgramTest, TakesAScreenshotOfTheWindowWithTheGivenImageOrThatOfThePathFile) {
    EXPECT_EQ(run({"--screenshot", path("a.png"), "--after", "1200", writeProject()}), 0);
    EXPECT_EQ(pagePixels(path("a.png")), 320 * 240);
    EXPECT_GT(QImage(path("a.png")).width(), 320);

    EXPECT_EQ(run({"--screenshot", path("a.png"), "--after", "1200", "--size", "1300x700", "--zoom", "60",
                   "--record", path("s.replay"), writeProject()}),
              0);
    EXPECT_EQ(QImage(path("a.png")).size(), QSize(1300, 700));
    EXPECT_NEAR(pagePixels(path("a.png")), 192 * 144, 2 * (192 + 144)) << "a scaled edge is blended";
    EXPECT_TRUE(readFile("s.replay").startsWith("# Recorded by vendaro 1.20."));

    writeFile("currentbin_path.ini", writeProject().toUtf8());
    EXPECT_EQ(run({"--screenshot", path("b.png")}), 0);
    EXPECT_EQ(pagePixels(path("b.png")), 320 * 240);
}

TEST_F(ProgramTest, AScreenshotThatFailsSaysSoWithoutABox) {
    EXPECT_EQ(run({"--screenshot", path("a.png"), "--after", "10000", path("nothing.bin")}), 1);
    EXPECT_TRUE(program_.readAllStandardError().contains("Read fail,please check the path!"));
    EXPECT_FALSE(QFile::exists(path("a.png")));
    EXPECT_EQ(run({"--screenshot", path("no/such/directory.png"), "--after", "0"}), 1);
    EXPECT_TRUE(program_.readAllStandardError().contains("Cannot write"));
}

} // namespace
