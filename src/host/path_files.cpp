#include "host/path_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTextCodec>

#include <utility>

namespace {

constexpr int LongestDirectory = 1024; // characters
constexpr qint64 LargestPathFile = 64 * 1024;
constexpr auto LastPathName = "lastbin_path.ini";
constexpr auto StartPathName = "currentbin_path.ini";

QString firstLine(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return {};
    const QString text = DecodeText(file.read(LargestPathFile));
    return text.section('\n', 0, 0).remove('\r');
}

} // namespace

QString DirectoryOf(const QString& path) {
    const QString directory = path.left(path.lastIndexOf('/') + 1);
    return directory.size() > LongestDirectory ? QString() : directory;
}

QString DecodeText(const QByteArray& bytes) {
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars == 0 && state.remainingChars == 0) return text;
    return QTextCodec::codecForName("GBK")->toUnicode(bytes);
}

PathFiles::PathFiles(QString directory) : directory_(std::move(directory)) {}

QString PathFiles::defaultDirectory() {
    const QString beside = QCoreApplication::applicationDirPath();
    return QFileInfo(beside).isWritable()
               ? beside
               : QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

QString PathFiles::lastDirectory() const { return firstLine(QDir(directory_).filePath(LastPathName)); }

QString PathFiles::startImage() const { return firstLine(QDir(directory_).filePath(StartPathName)); }

void PathFiles::SaveLastPath(const QString& directory) const {
    if (!QDir().mkpath(directory_)) return;
    QSaveFile file(QDir(directory_).filePath(LastPathName));
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write((QChar(QChar::ByteOrderMark) + directory).toUtf8());
    file.commit();
}
