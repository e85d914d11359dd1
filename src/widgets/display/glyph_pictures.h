// Texts made of pictures: digits, signs and separators side by side. Engine thread.
#pragma once

#include "graphics/image_blit.h"
#include "widgets/display/number_record.h"

#include <QPoint>
#include <QSize>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace panel {

/// The pictures of a text, in its order; what is beyond the capacity is dropped. A glyph's picture lies as
/// many places behind the first one of the run as its code tells: digits have the codes 0 to 9, the meaning
/// of others is the widget's. One beyond the image table is no picture and takes no room.
class GlyphPictures {
public:
    static constexpr std::size_t Capacity = 100;

    explicit GlyphPictures(std::uint16_t firstImage) : firstImage_(firstImage) {}

    GlyphPictures& put(unsigned code);
    GlyphPictures& putTwoDigits(unsigned value) { return put(value / 10).put(value % 10); }

    std::span<const ImageRow> pictures() const { return std::span(pictures_).first(count_); }
    int width() const;  // px, of all side by side
    int height() const; // px, of all one below the other

private:
    std::uint16_t firstImage_;
    std::array<ImageRow, Capacity> pictures_;
    std::size_t count_ = 0;
};

/// A number in pictures: digits, and behind them in the run the point and the minus sign.
GlyphPictures NumberGlyphs(std::string_view text, std::uint16_t firstImage);

/// How far the left edge of a text of `width` px lies left of its place.
int LeftOf(NumberAlignment alignment, int width);

/// The picture of one glyph of a run.
ImageRow GlyphPicture(std::uint16_t firstImage, unsigned code);

/// From the place of a glyph of that size to that of the next one. `rotation` tells the way of the text as
/// that of the panel does: to the right, down, to the left, up.
QPoint TextStep(QSize glyph, int rotation);

/// Draws the text on the WorkSurface, over what is there, along the direction of `rotation`. Every picture
/// takes the room that its row tells, also one that cannot be drawn.
void BlitGlyphs(const GlyphPictures& glyphs, QPoint at, int rotation = 0);

/// Draws the text to the right over a backdrop. A glyph without a picture takes no room. Returns the width
/// in px.
int DrawGlyphs(const GlyphPictures& glyphs, QImage& target, QPoint at, Backdrop backdrop);

} // namespace panel
