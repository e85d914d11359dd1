#include "graphics/picture_cache.h"

#include "graphics/image_blit.h"
#include "graphics/png_image.h"

namespace panel {
namespace {

constexpr std::size_t EntryBytes = 256; // of the cache's own books, and of a QImage

} // namespace

std::size_t PictureCache::KeyHash::operator()(const PictureKey& key) const {
    const std::uint64_t both =
        std::uint64_t{key.Address} << 32 | key.Length << 1 | static_cast<unsigned>(key.kind);
    return std::hash<std::uint64_t>()(both);
}

std::size_t PictureCache::cost(const QImage& picture) {
    return EntryBytes + static_cast<std::size_t>(picture.sizeInBytes());
}

QImage PictureCache::picture(const PictureKey& key, const std::function<QImage()>& decode) {
    const std::lock_guard lock(lock_);
    if (const auto found = places_.find(key); found != places_.end()) {
        entries_.splice(entries_.begin(), entries_, found->second);
        return found->second->picture;
    }
    QImage decoded = decode();
    keep(key, decoded);
    return decoded;
}

void PictureCache::keep(const PictureKey& key, const QImage& picture) {
    const std::size_t needed = cost(picture);
    if (needed > limit_) return;
    shrinkTo(limit_ - needed);
    entries_.push_front({key, picture});
    places_[key] = entries_.begin();
    bytes_ += needed;
}

void PictureCache::shrinkTo(std::size_t bytes) {
    while (bytes_ > bytes) {
        bytes_ -= cost(entries_.back().picture);
        places_.erase(entries_.back().key);
        entries_.pop_back();
    }
}

void PictureCache::setLimit(std::size_t bytes) {
    const std::lock_guard lock(lock_);
    limit_ = bytes;
    shrinkTo(limit_);
}

void PictureCache::clear() {
    const std::lock_guard lock(lock_);
    shrinkTo(0);
}

std::size_t PictureCache::bytes() const {
    const std::lock_guard lock(lock_);
    return bytes_;
}

QImage PngPicture(std::uint32_t address, std::uint32_t length) {
    return DecodedPictures.picture({address, length, PictureKey::Kind::Png},
                                   [=] { return DecodePng(address, length); });
}

QImage ZipPicture(std::uint32_t address, const ZipHead& head) {
    return DecodedPictures.picture({address, 0, PictureKey::Kind::Zip},
                                   [&] { return DecodeZipImage(address, head); });
}

void DropDecodedPictures() { DecodedPictures.clear(); }

} // namespace panel
