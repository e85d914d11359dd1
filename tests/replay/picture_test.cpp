#include "replay_test.h"

#include <QDir>
#include <QFile>
#include <QImage>

namespace {

using namespace replay;

class Pictures : public ReplayTest {
protected:
    void SetUp() override { load(colouredPages()); }

    /// A picture of a page's colour with some other pixels in it.
    void saveReference(const char* name, QSize size, std::initializer_list<QPoint> others = {}) const {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::red);
        for (const QPoint at : others) picture.setPixel(at, qRgb(1, 2, 3));
        ASSERT_TRUE(picture.save(path(name)));
    }
    QImage saved(const char* name) const { return QImage(path(name)).convertToFormat(QImage::Format_ARGB32); }
};

TEST_F(Pictures, AreSavedAsThePanelAndAsThePersonSeesThem) {
    run("set 0x7001 31\nframe {}/frame.png\nview {}/view.png\nframe {}/slide.png SlideSurface");
    EXPECT_EQ(saved("frame.png").size(), QSize(width, height));
    EXPECT_EQ(saved("frame.png").pixel(9, 9), 0xFFFF0000u);
    EXPECT_EQ(saved("view.png").pixel(9, 9), 0xFF7C0000u) << "level 31: a veil of alpha 131";
    EXPECT_EQ(saved("slide.png").size(), QSize(3 * width, height));
}

TEST_F(Pictures, EqualTheirReferencesButForAllowedPixels) {
    saveReference("same.png", {width, height});
    saveReference("two.png", {width, height}, {{5, 1}, {3, 2}});
    saveReference("part.png", {10, 8});
    saveReference("part1.png", {10, 8}, {{9, 7}});
    EXPECT_EQ(run("expect frame {}/same.png\nexpect frame {}/two.png 2\nexpect region 54 40 {}/part.png\n"
                  "expect region 0 0 {}/part1.png 1\nawait 100 frame {}/same.png"),
              Outcome::Passed)
        << diagnostics();
    EXPECT_EQ(run("expect frame {}/two.png 1\nexpect region 2 3 {}/part1.png"), Outcome::Failed);
    EXPECT_EQ(
        diagnostics(),
        "test:1: expected frame {}/two.png but for 1 pixels, got 2 differing pixels, the first at (5, 1): "
        "#ff010203 expected, #ffff0000 shown\n"
        "test:2: expected region 2 3 {}/part1.png, got 1 differing pixels, the first at (9, 7): "
        "#ff010203 expected, #ffff0000 shown\n");
}

TEST_F(Pictures, ThatCannotBeComparedAreFailures) {
    saveReference("small.png", {width, height - 1});
    writeImage(colouredPages(), "garbage.png");
    const QString sizes = "a panel of 64 x 48 pixels, and the file has 64 x 47 pixels";
    const std::pair<QString, QString> cases[] = {{"frame {}/none.png", "no such file"},
                                                 {"frame {}/small.png", sizes},
                                                 {"frame {}/garbage.png", "a file that is no PNG picture"},
                                                 {"region 1 0 {}/small.png", sizes},
                                                 {"region 0 0 {}/none.png", "no such file"}};
    for (const auto& [expected, got] : cases) {
        EXPECT_EQ(run("expect " + expected), Outcome::Failed);
        EXPECT_EQ(diagnostics(), QString("test:1: expected %1, got %2\n").arg(expected, got).toStdString());
    }
    EXPECT_FALSE(QFile::exists(path("none.png")));
}

TEST_F(Pictures, AreBlessedOnlyWhenAsked) {
    bench.pictures.bless = true;
    saveReference("two.png", {width, height}, {{5, 1}, {3, 2}});
    saveReference("part.png", {10, 8}, {{0, 0}});
    const QString script = "expect frame {}/two.png\nexpect frame {}/new.png\nexpect region 2 2 {}/part.png";
    EXPECT_EQ(run(script), Outcome::Passed);
    EXPECT_EQ(diagnostics(),
              "test:1: blessed {}/two.png\ntest:2: blessed {}/new.png\ntest:3: blessed {}/part.png\n");
    EXPECT_EQ(run("expect page 1\nexpect region 0 0 {}/unknown.png"), Outcome::Failed)
        << "neither a page nor a region of unknown size can be blessed";
    EXPECT_FALSE(QFile::exists(path("unknown.png")));
    bench.pictures.bless = false;
    EXPECT_EQ(run(script), Outcome::Passed);
}

TEST_F(Pictures, LeaveEvidenceWhenTheyFail) {
    bench.pictures.evidence = path("kept/here");
    saveReference("part.png", {10, 8}, {{0, 0}});
    EXPECT_EQ(run("set 0x0009 0xabcd\nexpect page 1\n  expect region 2 2 {}/part.png # why\nexpect frame "
                  "{}/none.png"),
              Outcome::Failed);
    EXPECT_EQ(QDir(path("kept/here")).entryList(QDir::Files).join(' ').toStdString(),
              "test.3.actual.png test.3.difference.png test.3.line.txt test.3.words.txt "
              "test.4.actual.png test.4.line.txt test.4.words.txt");
    EXPECT_EQ(saved("kept/here/test.3.actual.png").size(), QSize(10, 8));
    const QImage difference = saved("kept/here/test.3.difference.png");
    EXPECT_EQ(difference.pixel(0, 0), 0xFFFF0000u);
    EXPECT_EQ(difference.pixel(1, 0), 0xFF3F0000u);
    const auto lines = readFile("kept/here/test.3.words.txt").split('\n');
    EXPECT_EQ(lines[1], "0x0008: 0000 abcd 0000 0000 0000 0000 0000 0000");
    EXPECT_EQ(lines[lines.size() - 2], "0x70f8:" + QByteArray(" 0000").repeated(7));
    EXPECT_TRUE(readFile("kept/here/test.3.line.txt").startsWith("  expect region 2 2 "));
}

TEST_F(Pictures, EndTheRunWhenEvidenceCannotBeKept) {
    bench.pictures.evidence = writeImage(colouredPages()); // a file, not a directory
    EXPECT_EQ(run("expect frame {}/none.png\nstate"), Outcome::Error);
    EXPECT_EQ(answerStream.str(), "");
}

} // namespace
