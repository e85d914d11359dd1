#include "host/path_files.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

TEST(PathFilesTest, TheDirectoryEndsWithTheLastSlash) {
    const QString longest = QString(1023, 'd') + "/";
    EXPECT_EQ(DirectoryOf("/a/b c/x.bin"), "/a/b c/");
    EXPECT_EQ(DirectoryOf("x.bin"), QString());
    EXPECT_EQ(DirectoryOf(longest + "x.bin"), longest);
    EXPECT_EQ(DirectoryOf("d" + longest + "x.bin"), QString());
}

TEST(PathFilesTest, ReadsTheFirstLineInTheEncodingOfTheFile) {
    const std::pair<QByteArray, QString> cases[] = {
        {"", ""},
        {"/a/x.bin\r\n/b/y.bin\n", "/a/x.bin"},
        {"\n/b/y.bin", ""},
        {"\xEF\xBB\xBF/a/x.bin", "/a/x.bin"},
        {"/\xE9\xA1\xB9\xE7\x9B\xAE/x.bin", "/项目/x.bin"},
        {"/\xCF\xEE\xC4\xBF/x.bin", "/项目/x.bin"}, // no UTF-8, so GBK
    };
    QTemporaryDir directory;
    for (const auto& [bytes, path] : cases) {
        QFile file(directory.filePath("currentbin_path.ini"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        EXPECT_EQ(PathFiles(directory.path()).startImage(), path) << bytes.toPercentEncoding().data();
    }
}

TEST(PathFilesTest, KeepsTheLastDirectoryWithAByteOrderMark) {
    QTemporaryDir directory;
    const PathFiles files(directory.filePath("made/on/demand"));
    EXPECT_EQ(files.lastDirectory(), QString());
    files.SaveLastPath("/a longer directory/");
    files.SaveLastPath("/项/");
    EXPECT_EQ(readAll(directory.filePath("made/on/demand/lastbin_path.ini")), "\xEF\xBB\xBF/\xE9\xA1\xB9/");
    EXPECT_EQ(files.lastDirectory(), "/项/");
}

} // namespace
