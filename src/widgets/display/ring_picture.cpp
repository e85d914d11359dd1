#include "widgets/display/ring_picture.h"

#include "graphics/font.h"
#include "graphics/text.h"
#include "widgets/display/glyph_pictures.h"
#include "widgets/display/placement.h"

#include <cstdlib>

namespace panel {
namespace {

NumericValue numericOf(std::int16_t value) {
    return {.magnitude = static_cast<std::uint64_t>(std::abs(int{value})), .negative = value < 0};
}

void drawText(const RingReadout& readout, QRect box, NumericValue value) {
    constexpr std::uint8_t anchorLeft = 9; // at a point; centre and right follow
    NumberFormat format = readout.format;
    if (value.negative) format.integerDigits = 5; // all there are: it is never cut
    TextStyle style{.font = TableFont(readout.font),
                    .anchor = static_cast<std::uint8_t>(anchorLeft + static_cast<int>(readout.alignment)),
                    .colour = readout.colour};
    style.font.encoding = Encoding::Ascii;
    DrawTextWork(style, box, PageNumberText(value, format, {}).bytes());
}

void drawPictures(const RingReadout& readout, QPoint at, NumericValue value) {
    const GlyphPictures glyphs =
        NumberGlyphs(PictureNumberText(value, readout.format).view(), readout.firstImage);
    BlitGlyphs(glyphs, at - QPoint(LeftOf(readout.alignment, glyphs.width()), 0));
}

} // namespace

int RingScale::angleOf(int value) const {
    if (value <= lowest) return start;
    if (value >= highest) return end;
    return static_cast<int>(start + std::int64_t{end - start} * (value - lowest) / (highest - lowest));
}

RingScale ReadRingScale(const Parameters& p, std::size_t at) {
    return {.lowest = p.i16(at), .highest = p.i16(at + 2), .start = p.u16(at + 4), .end = p.u16(at + 6)};
}

RingReadout ReadRingReadout(const Parameters& p, std::size_t at) {
    return {.at = QPoint(p.u16(at), p.u16(at + 2)) + PopupShift(),
            .format = {.integerDigits = p.u8(at + 4), .decimalDigits = p.u8(at + 5)},
            .alignment = static_cast<NumberAlignment>(p.u8(at + 6)),
            .font = p.u8(at + 7),
            .colour = p.u24(at + 8),
            .firstImage = p.u16(at + 11),
            .mode = static_cast<ReadoutMode>(p.u8(at + 15))};
}

void DrawRingBackground(std::uint16_t background, QRect area) {
    BackdropToWork(area, 0);
    BlitToWork(TableImageRow(background), {0, 0});
}

void DrawRingReadout(const RingReadout& readout, QRect area, std::int16_t value) {
    const QPoint at = readout.at - area.topLeft();
    switch (readout.mode) {
    case ReadoutMode::Text: return drawText(readout, {at, area.size()}, numericOf(value));
    case ReadoutMode::Pictures: return drawPictures(readout, at, numericOf(value));
    default: return;
    }
}

} // namespace panel
