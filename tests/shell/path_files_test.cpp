#include "host/path_files.h"
#include "temporary_files.h"

namespace {

class PathFilesTest : public ::testing::Test, protected TemporaryFiles {};

TEST_F(PathFilesTest, TheDirectoryEndsWithTheLastSlash) {
    const QString longest = QString(1023, 'd') + "/";
    EXPECT_EQ(DirectoryOf("/a/b c/x.bin"), "/a/b c/");
    EXPECT_EQ(DirectoryOf("x.bin"), QString());
    EXPECT_EQ(DirectoryOf(longest + "x.bin"), longest);
    EXPECT_EQ(DirectoryOf("d" + longest + "x.bin"), QString());
}

TEST_F(PathFilesTest, ReadsTheFirstLineInTheEncodingOfTheFile) {
    const std::pair<QByteArray, QString> cases[] = {
        {"", ""},
        {"/a/x.bin\r\n/b/y.bin\n", "/a/x.bin"},
        {"\n/b/y.bin", ""},
        {"\xEF\xBB\xBF/a/x.bin", "/a/x.bin"},
        {"/\xE9\xA1\xB9\xE7\x9B\xAE/x.bin", "/项目/x.bin"},
        {"/\xCF\xEE\xC4\xBF/x.bin", "/项目/x.bin"}, // no UTF-8, so GBK
    };
    for (const auto& [bytes, image] : cases) {
        writeFile("currentbin_path.ini", bytes);
        EXPECT_EQ(PathFiles(directory_.path()).startImage(), image) << bytes.toPercentEncoding().data();
    }
}

TEST_F(PathFilesTest, KeepsTheLastDirectoryWithAByteOrderMark) {
    const PathFiles files(path("made/on/demand"));
    EXPECT_EQ(files.lastDirectory(), QString());
    files.SaveLastPath("/a longer directory/");
    files.SaveLastPath("/项/");
    EXPECT_EQ(readFile("made/on/demand/lastbin_path.ini"), "\xEF\xBB\xBF/\xE9\xA1\xB9/");
    EXPECT_EQ(files.lastDirectory(), "/项/");
}

} // namespace
