// Runs the program itself, in a directory of its own so that its path files are its own too.
#include "imagekit/image_builder.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class ProgramTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(QFile::copy(VENDARO_PROGRAM, path("vendaro"))); }

    QString path(const QString& name) const { return directory_.filePath(name); }

    int run(const QStringList& arguments, const QString& platform = "offscreen") {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", platform);
        program_.setProcessEnvironment(environment);
        program_.start(path("vendaro"), arguments);
        EXPECT_TRUE(program_.waitForFinished(20000));
        return program_.exitStatus() == QProcess::NormalExit ? program_.exitCode() : -1;
    }

    QString writeImage() const {
        imagekit::ImageBuilder image({.Width = 320, .Height = 240, .ColourMode = 1});
        image.addPage(imagekit::Solid{.Width = 320, .Height = 240, .Colour = QColor(255, 0, 255)});
        image.write(path("a.bin"));
        return path("a.bin");
    }

    /// Pixels of a picture that have the colour of the image's page.
    int pagePixels(const QString& picture) const {
        const QImage image(picture);
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == QColor(255, 0, 255);
        return count;
    }

    QTemporaryDir directory_;
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
          QStringList{"--after", "-1"}, QStringList{"--screenshot", ""}}) {
        EXPECT_EQ(run(arguments), 1) << qPrintable(arguments.join(' '));
        EXPECT_TRUE(program_.readAllStandardError().contains("vendaro: "));
    }
}

TEST_F(ProgramTest, TakesAScreenshotOfTheWindowWithTheGivenImageOrThatOfThePathFile) {
    EXPECT_EQ(run({"--screenshot", path("a.png"), "--after", "400", writeImage()}), 0);
    EXPECT_EQ(pagePixels(path("a.png")), 320 * 240);
    EXPECT_GT(QImage(path("a.png")).width(), 320);

    QFile start(path("currentbin_path.ini"));
    ASSERT_TRUE(start.open(QIODevice::WriteOnly));
    start.write(writeImage().toUtf8());
    start.close();
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
