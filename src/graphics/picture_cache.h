// Decoded pictures, kept so that a picture which is drawn again is not decoded again. Bounded in bytes; the
// picture used longest ago goes first. Any thread.
#pragma once

#include "graphics/zip_image.h"

#include <QImage>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <mutex>
#include <unordered_map>

namespace panel {

/// Where a picture lies in the image, and what it is read as.
struct PictureKey {
    enum class Kind : std::uint8_t { Png, Zip };

    std::uint32_t Address = 0;
    std::uint32_t Length = 0; // bytes; 0 for a picture that knows its own
    Kind kind = Kind::Png;
    bool operator==(const PictureKey&) const = default;
};

class PictureCache {
public:
    explicit PictureCache(std::size_t limitBytes) : limit_(limitBytes) {}

    /// The kept picture, or what `decode` gives, which is kept from then on. A null picture is kept too:
    /// broken data stay broken. What is larger than the limit is not kept. Others wait during `decode`.
    QImage picture(const PictureKey& key, const std::function<QImage()>& decode);
    void setLimit(std::size_t bytes);
    void clear();

    std::size_t bytes() const; // held, with an allowance for each entry

private:
    struct Entry {
        PictureKey key;
        QImage picture;
    };
    struct KeyHash {
        std::size_t operator()(const PictureKey& key) const;
    };

    static std::size_t cost(const QImage& picture);
    void keep(const PictureKey& key, const QImage& picture);
    void shrinkTo(std::size_t bytes);

    mutable std::mutex lock_; // of all below; the private functions are called with it held
    std::size_t limit_;
    std::size_t bytes_ = 0;
    std::list<Entry> entries_; // the one used last is first
    std::unordered_map<PictureKey, std::list<Entry>::iterator, KeyHash> places_;
};

/// A widget draws two pictures over each other, and both have to stay: else each redraw decodes both.
inline constexpr std::size_t PictureCacheBytes = std::size_t{136} << 20;
static_assert(PictureCacheBytes > 2 * sizeof(QRgb) * LargestPicturePixels);
inline PictureCache DecodedPictures(PictureCacheBytes);

/// DecodePng() and DecodeZipImage() by way of the cache.
QImage PngPicture(std::uint32_t address, std::uint32_t length);
QImage ZipPicture(std::uint32_t address, const ZipHead& head);

} // namespace panel
