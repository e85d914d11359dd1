// A font of 4 x 6 px whose characters can be read back from the screen: the first two rows of a glyph are the
// bits of its code, the others are set.
#pragma once

#include "imagekit/font.h"

#include <QImage>

#include <string>

namespace panel {

inline constexpr int ReadableWidth = 4;
inline constexpr int ReadableHeight = 6;

inline imagekit::StoredFont ReadableFont() {
    const imagekit::FontShape shape{.Width = ReadableWidth, .Height = ReadableHeight};
    return EncodeFont(shape, [](std::uint16_t code) {
        imagekit::Glyph glyph{.Advance = ReadableWidth, .Values = {}};
        for (int bit = 0; bit < 8; ++bit) glyph.Values.push_back(code >> bit & 1);
        glyph.Values.resize(std::size_t{ReadableWidth} * ReadableHeight, 1);
        return glyph;
    });
}

/// The text of that colour from (x, y) on, up to the first place without a character.
inline std::string ReadText(const QImage& surface, int x, int y, QRgb colour) {
    std::string text;
    for (; surface.valid(x, y + 2) && surface.pixel(x, y + 2) == colour; x += ReadableWidth) {
        int code = 0;
        for (int bit = 0; bit < 8; ++bit)
            if (surface.pixel(x + bit % ReadableWidth, y + bit / ReadableWidth) == colour) code |= 1 << bit;
        text.push_back(static_cast<char>(code));
    }
    return text;
}

} // namespace panel
