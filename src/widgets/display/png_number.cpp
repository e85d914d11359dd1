#include "widgets/display/png_number.h"

#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "widgets/display/glyph_pictures.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/number_record.h"
#include "widgets/display/number_text.h"
#include "widgets/display/placement.h"

#include <algorithm>
#include <utility>

namespace panel {
namespace {

namespace field {
constexpr std::size_t X = 7;
constexpr std::size_t Y = 9;
constexpr std::size_t FirstImage = 0x0B;
constexpr std::size_t LastImage = 0x0D;
constexpr std::size_t DataType = 0x0F;
constexpr std::size_t IntegerDigits = 0x10;
constexpr std::size_t DecimalDigits = 0x11;
constexpr std::size_t Alignment = 0x12; // and leading zeros
constexpr std::size_t Hide = 0x13;
} // namespace field

QPoint positionOf(const Parameters& p) { return QPoint(p.u16(field::X), p.u16(field::Y)) + PopupShift(); }
NumberAlignment alignmentOf(const Parameters& p) { return AlignmentIn(p.u8(field::Alignment)); }
bool isHidden(const Parameters& p) { return HidesNumber(p.u16(field::Hide)); }

NumberFormat formatOf(const Parameters& p) {
    return {.integerDigits = p.u8(field::IntegerDigits),
            .decimalDigits = p.u8(field::DecimalDigits),
            .leadingZeros = LeadingZerosIn(p.u8(field::Alignment))};
}

NumericValue valueOf(const Parameters& p) {
    return ReadNumericStrictly(NumberAddress(p), p.u8(field::DataType));
}

/// A run that ends at the point or before has no minus.
bool hasMinus(const Parameters& p) { return p.u16(field::LastImage) - p.u16(field::FirstImage) > 10; }

GlyphPictures glyphsOf(NumericValue value, const Parameters& p) {
    return NumberGlyphs(PictureNumberText(value, formatOf(p)).view(), p.u16(field::FirstImage));
}

GlyphPictures glyphsOnPage(const Parameters& p) {
    NumericValue value = valueOf(p);
    value.negative = value.negative && hasMinus(p);
    return glyphsOf(value, p);
}

/// Remembers the width of the text for the next one, and tells that of the text before.
int replaceWidth(int width) {
    constexpr int largest = 0xFFFF;
    if (PngNumberCursor >= PngNumberWidthMemory.size()) return 0;
    return std::exchange(PngNumberWidthMemory[PngNumberCursor],
                         static_cast<std::uint16_t>(std::min(width, largest)));
}

/// The last picture of a text tells the height. One that is missing does not: what was there before is
/// cleared in the height of a digit.
int heightOf(const GlyphPictures& glyphs, const Parameters& p) {
    const int height = glyphs.pictures().back().Height;
    return height != 0 ? height : GlyphPicture(p.u16(field::FirstImage), 0).Height;
}

/// How much of some `space` an alignment leaves before a text that runs right or down.
int spaceBefore(NumberAlignment alignment, int space) {
    switch (alignment) {
    case NumberAlignment::Centre: return space / 2;
    case NumberAlignment::Right: return space;
    default: return 0;
    }
}

/// And before one in a group that runs left or up.
int spaceBeforeTurned(NumberAlignment alignment, int space) {
    switch (alignment) {
    case NumberAlignment::Left: return space;
    case NumberAlignment::Centre: return space / 2;
    default: return 0;
    }
}

/// Over an animation the piece of the surface is that at the record's position, whatever the alignment.
void putBackdrop(const Parameters& p, QRect area) {
    const QPoint at = positionOf(p);
    if (IsUnderAnimation(at.x(), at.y()))
        CopySurfaceRect(TextSurface, {at, area.size()}, WorkSurface, {0, 0});
    else
        BackdropToWork(area, p.inList());
}

/// Where the first picture of a text in a group lies on the panel. `digit` is the size of the digit 0.
QPoint startInGroup(NumberAlignment alignment, int rotation, QPoint at, int length, QSize digit) {
    switch (rotation) {
    case 1: return at - QPoint(digit.width(), spaceBefore(alignment, length));
    case 2: return at - QPoint(spaceBeforeTurned(alignment, length), digit.height());
    case 3: return at - QPoint(0, spaceBeforeTurned(alignment, length));
    default: return at - QPoint(LeftOf(alignment, length), 0);
    }
}

int roundedUpToEven(int length) { return length + length % 2; }

} // namespace

void ForgetPngNumberWidths() { PngNumberWidthMemory.fill(0); }

void DisplayPngNumber(const Parameters& p) {
    if (!IsStoreWord(NumberAddress(p))) return;
    const GlyphPictures glyphs = glyphsOnPage(p);
    const NumberAlignment alignment = alignmentOf(p);
    const int width = glyphs.width();
    const int span = std::max(width, replaceWidth(width));
    const QPoint at = positionOf(p) - QPoint(LeftOf(alignment, span), 0);
    const QRect area(at, QSize(span, heightOf(glyphs, p)).boundedTo(WorkSurface.size()));
    putBackdrop(p, area);
    if (!isHidden(p)) BlitGlyphs(glyphs, {spaceBefore(alignment, span - width), 0});
    LandWork(area, p.inList());
}

void DisplayPngNumberInGroup(const Parameters& p, QRect host) {
    if (isHidden(p) || !IsStoreWord(NumberAddress(p))) return;
    const GlyphPictures glyphs = glyphsOf(valueOf(p), p);
    const bool upright = Rotation == 0 || Rotation == 2;
    const int length = roundedUpToEven(upright ? glyphs.width() : glyphs.height());
    const ImageRow digit = GlyphPicture(p.u16(field::FirstImage), 0);
    const QPoint start =
        startInGroup(alignmentOf(p), Rotation, positionOf(p), length, {digit.Width, digit.Height});
    BlitGlyphs(glyphs, start - host.topLeft(), Rotation);
}

} // namespace panel
