#include "host/image_file.h"

#include "host/flash_image.h"
#include "host/media_requests.h"
#include "store/system_words.h"
#include "widgets/display/media.h"

#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <limits>
#include <memory>
#include <new>

namespace panel {
namespace {

void forgetImage() {
    FlashImage.replace(nullptr, 0);
    IllegalImage = 0;
    VideoOnPage = 0;
    CameraOnPage = 0;
    CameraResetPending = 0;
    VideoRequest = 0; // on a chip without video nobody has taken it
    MusicPlaying = 0;
    ForgetReadySound();
    ForgetReadyVideo();
    ForgetInspectorRequests();
}

} // namespace

bool ReadImageFile(const QString& path) {
    forgetImage(); // first, so that two images never take memory at once
    // A device or a pipe could keep the reader waiting, or never end.
    if (!QFileInfo(path).isFile()) return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const qint64 size = file.size();
    if (size > std::numeric_limits<std::int32_t>::max()) return false;
    std::unique_ptr<std::uint8_t[]> bytes(new (std::nothrow) std::uint8_t[static_cast<std::size_t>(size)]);
    if (!bytes || file.read(reinterpret_cast<char*>(bytes.get()), size) != size) return false;
    FlashImage.replace(std::move(bytes), static_cast<std::int32_t>(size));
    CheckImageIntegrity();
    return true;
}

} // namespace panel
