#include "host/image_watcher.h"

#include <QFileInfo>

using namespace std::chrono_literals;

namespace {

constexpr auto LookPeriod = 300ms; // a file that is the same at two looks is whole

} // namespace

ImageWatcher::ImageWatcher(QObject* parent) : QObject(parent) {
    connect(&timer_, &QTimer::timeout, this, &ImageWatcher::compare);
}

void ImageWatcher::watch(const QString& path) {
    path_ = path;
    told_ = seen_ = look();
    timer_.start(LookPeriod);
}

ImageWatcher::State ImageWatcher::look() const {
    const QFileInfo file(path_);
    if (!file.isFile()) return {};
    return {.exists = true, .size = file.size(), .written = file.lastModified()};
}

void ImageWatcher::compare() {
    const State now = look();
    const bool settled = now == seen_;
    seen_ = now;
    if (!settled || !now.exists || now.size == 0 || now == told_) return;
    told_ = now;
    emit changed(path_);
}
