#include "widgets/display/media_files.h"

#include "widgets/display/media.h"

#include <QDir>

namespace panel {
namespace {

QString TheMediaDirectory;

} // namespace

void SetMediaDirectory(const QString& directory) {
    TheMediaDirectory = directory;
    if (!directory.isEmpty() && !directory.endsWith('/')) TheMediaDirectory += '/';
}

QString MediaDirectory() { return TheMediaDirectory; }

QString MediaNumber(int number) { return QString("%1").arg(number, 4, 10, QChar('0')); }

QString FindMediaFile(const QString& folder, const QString& name) {
    QString found = MediaDirectory() + folder;
    const QDir directory(found);
    for (const QFileInfo& file : directory.entryInfoList(QDir::Files | QDir::CaseSensitive, QDir::Unsorted))
        if (file.baseName().contains(name)) found = file.filePath();
    return found;
}

} // namespace panel
