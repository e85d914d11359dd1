#include "host/flash_image.h"
#include "host/image_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <limits>

namespace {

using namespace panel;

class ImageFile : public ::testing::Test {
protected:
    QString file(const char* name, const QByteArray& bytes) const {
        QFile out(directory.filePath(name));
        EXPECT_TRUE(out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size());
        return out.fileName();
    }
    QTemporaryDir directory;
};

TEST_F(ImageFile, IsReadWhole) {
    QByteArray bytes;
    for (int i = 0; i < 100000; ++i) bytes += static_cast<char>(i * 31);
    ASSERT_TRUE(ReadImageFile(file("image.bin", bytes)));
    ASSERT_EQ(FlashImage.size, bytes.size());
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(FlashImage.data.get()), FlashImage.size), bytes);
    ASSERT_TRUE(ReadImageFile(file("empty.bin", {})));
    EXPECT_EQ(FlashImage.size, 0);
}

TEST_F(ImageFile, IsTestedAnewAtEachRead) {
    QByteArray wrongCheck(0x400, '\0');
    wrongCheck.replace(0x80 + 0xEC, 4, "\xFE\xFF\xFF\xFF");
    wrongCheck.replace(0x80 + 0xF0, 4, QByteArray("\x01\0\0\0", 4));
    ASSERT_TRUE(ReadImageFile(file("wrong.bin", wrongCheck)));
    EXPECT_EQ(IllegalImage, 1);
    ASSERT_TRUE(ReadImageFile(file("unchecked.bin", QByteArray(0x400, '\0'))));
    EXPECT_EQ(IllegalImage, 0);
}

TEST_F(ImageFile, ThatCannotBeReadLeavesNoImage) {
    const QString good = file("image.bin", "abc");
    QFile large(file("large.bin", {}));
    ASSERT_TRUE(large.resize(qint64{std::numeric_limits<std::int32_t>::max()} + 1)); // sparse
    const QString pipe = directory.filePath("pipe");
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString& path : {directory.filePath("none.bin"), directory.path(), QString(),
                                QString("/dev/zero"), pipe, large.fileName()}) {
        ASSERT_TRUE(ReadImageFile(good));
        EXPECT_FALSE(ReadImageFile(path)) << path.toStdString();
        EXPECT_EQ(FlashImage.size, 0) << path.toStdString();
    }
}

} // namespace
