#include "check/media_check.h"

#include "widgets/display/media.h"
#include "widgets/display/media_files.h"

#include <QFileInfo>

namespace check {

MediaFiles::MediaFiles(const std::optional<QString>& directory) : known_(directory.has_value()) {
    if (directory) panel::SetMediaDirectory(*directory);
}

bool MediaFiles::has(const char* folder, int number) {
    if (!known_) return true;
    const QString name = panel::MediaNumber(number);
    const auto [file, isNew] = found_.try_emplace(folder + ('/' + name));
    if (isNew) file->second = QFileInfo(panel::FindMediaFile(folder, name)).isFile();
    return file->second;
}

} // namespace check
