#include "widgets/display/glyph_pictures.h"

#include "widgets/display/placement.h"

namespace panel {
GlyphPictures& GlyphPictures::put(unsigned code) {
    if (count_ < Capacity) pictures_[count_++] = GlyphPicture(firstImage_, code);
    return *this;
}

int GlyphPictures::width() const {
    int sum = 0;
    for (const ImageRow& picture : pictures()) sum += picture.Width;
    return sum;
}

int GlyphPictures::height() const {
    int sum = 0;
    for (const ImageRow& picture : pictures()) sum += picture.Height;
    return sum;
}

GlyphPictures NumberGlyphs(std::string_view text, std::uint16_t firstImage) {
    constexpr unsigned point = 10, minus = 11;
    GlyphPictures glyphs(firstImage);
    for (const char character : text) {
        switch (character) {
        case '-': glyphs.put(minus); break;
        case '.': glyphs.put(point); break;
        default: glyphs.put(static_cast<unsigned>(character - '0'));
        }
    }
    return glyphs;
}

int LeftOf(NumberAlignment alignment, int width) {
    switch (alignment) {
    case NumberAlignment::Centre: return width / 2;
    case NumberAlignment::Right: return width - 1;
    default: return 0;
    }
}

ImageRow GlyphPicture(std::uint16_t firstImage, unsigned code) {
    const unsigned index = firstImage + code;
    return index <= 0xFFFF ? TableImageRow(static_cast<std::uint16_t>(index)) : ImageRow{};
}

QPoint TextStep(QSize glyph, int rotation) {
    switch (rotation) {
    case 1: return {0, glyph.height()};
    case 2: return {-glyph.width(), 0};
    case 3: return {0, -glyph.height()};
    default: return {glyph.width(), 0};
    }
}

void BlitGlyphs(const GlyphPictures& glyphs, QPoint at, int rotation) {
    for (const ImageRow& picture : glyphs.pictures()) {
        BlitToWork(picture, at);
        at += TextStep({picture.Width, picture.Height}, rotation);
    }
}

int DrawGlyphs(const GlyphPictures& glyphs, QImage& target, QPoint at, Backdrop backdrop) {
    int width = 0;
    for (const ImageRow& picture : glyphs.pictures()) {
        if (!picture.hasPicture()) continue;
        CurrentImage = picture;
        DrawImage(target, {at.x() + width, at.y()}, picture, backdrop);
        width += picture.Width;
    }
    return width;
}

} // namespace panel
