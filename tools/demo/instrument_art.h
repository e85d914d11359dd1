// The pictures of bars, rings, dials and clocks.
#pragma once

#include "demo/theme.h"

#include "imagekit/image_builder.h"

#include <QBrush>
#include <QImage>
#include <QSize>
#include <QStringList>

namespace demo {

/// A full bar of the week's chart.
QImage DayBarPicture(QSize size);

/// A ring, or the arc of one from `start` to `end` degrees clockwise from straight down, with the centre in
/// its middle pixel; `height` px of it.
struct RingShape {
    int radius; // px, to the middle of the ring
    int width;  // px
    int start = 0, end = 360;
    int height = 0; // 0: as wide
    int margin = 2; // px around it, for a thumb that is wider
};
int RingSide(const RingShape& shape);
QImage RingPicture(const RingShape& shape, const QBrush& brush);

/// A dial for a needle that goes from bottom left to bottom right, with the marks of a scale.
struct DialScale {
    int highest, step; // from 0
    const char* unit;
    int redFrom; // of the warning range, in units of the scale
};
QImage DialPicture(int side, const DialScale& scale);
QImage HubPicture(int diameter);
QImage ClockFace(int side);

/// A text as a picture of one line on a ground, as wide as GlyphWidth() tells; digits are all of one width.
imagekit::Pixels GlyphPicture(const QString& text, const TextStyle& style, const QColor& ground);
/// A picture each. Gives the index of the first.
std::uint16_t AddGlyphPictures(imagekit::ImageBuilder& image, const QStringList& texts,
                               const TextStyle& style, const QColor& ground);
/// The weekdays from Sunday on, which follow the other glyphs of a clock, in both languages.
void AddWeekdays(imagekit::ImageBuilder& image, const TextStyle& style, const QColor& ground);
int GlyphWidth(const QString& text, const TextStyle& style);
/// The digits and a colon.
QStringList TimeGlyphs();

} // namespace demo
