#include "widgets/display/needle_meter.h"

#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/shapes.h"
#include "graphics/surfaces.h"
#include "host/flash_image.h"
#include "store/typed_value.h"
#include "store/variable_store.h"
#include "widgets/display/glyph_pictures.h"
#include "widgets/display/placement.h"
#include "widgets/touch/open_entry.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Value = 5;
constexpr std::size_t Dial = 7;
constexpr std::size_t X = 9;
constexpr std::size_t Y = 0x0B;
constexpr std::size_t Width = 0x0D;
constexpr std::size_t Height = 0x0F;
constexpr std::size_t CentreX = 0x11;
constexpr std::size_t CentreY = 0x13;
constexpr std::size_t Lowest = 0x15;
constexpr std::size_t Highest = 0x17;
constexpr std::size_t Step = 0x19;
constexpr std::size_t Smooth = 0x1B;
constexpr std::size_t Cover = 0x1C;
constexpr std::size_t Digits = 0x1E;
constexpr std::size_t DigitsValue = 0x1F;
constexpr std::size_t DigitsType = 0x21;
constexpr std::size_t DigitsX = 0x22;
constexpr std::size_t DigitsY = 0x24;
constexpr std::size_t FirstDigit = 0x26;
constexpr std::size_t Alignment = 0x2A; // and leading zeros
constexpr std::size_t IntegerDigits = 0x2B;
constexpr std::size_t DecimalDigits = 0x2C;
constexpr std::size_t Kind = 0x2D;
constexpr std::size_t NeedleWidth = 0x2E;
constexpr std::size_t Tail = 0x30;
constexpr std::size_t ColourA = 0x32;
constexpr std::size_t Length = 0x35;
constexpr std::size_t ColourB = 0x37;
constexpr std::size_t FirstNeedle = 0x3A;
} // namespace field

constexpr std::uint8_t TicksBetween = 5;

NeedleMeterSettings settingsOf(const Parameters& p) {
    return {.Value = p.u16(field::Value),
            .Dial = p.u16(field::Dial),
            .Area = {p.u16(field::X), p.u16(field::Y), p.u16(field::Width), p.u16(field::Height)},
            .Centre = {p.u16(field::CentreX), p.u16(field::CentreY)},
            .Lowest = p.u16(field::Lowest),
            .Highest = p.u16(field::Highest),
            .Step = p.u16(field::Step),
            .Smooth = p.u8(field::Smooth) == 1,
            .Cover = p.u16(field::Cover),
            .Digits = p.u8(field::Digits) == 1,
            .DigitsValue = p.u16(field::DigitsValue),
            .DigitsType = p.u8(field::DigitsType),
            .DigitsAt = {p.u16(field::DigitsX), p.u16(field::DigitsY)},
            .FirstDigit = p.u16(field::FirstDigit),
            .Align = AlignmentIn(p.u8(field::Alignment)),
            .Format = {.integerDigits = p.u8(field::IntegerDigits),
                       .decimalDigits = p.u8(field::DecimalDigits),
                       .leadingZeros = LeadingZerosIn(p.u8(field::Alignment))},
            .Kind = static_cast<NeedleKind>(p.u8(field::Kind)),
            .HalfWidth = p.u16(field::NeedleWidth) / 2,
            .Tail = p.u16(field::Tail),
            .ColourA = p.u24(field::ColourA),
            .Length = p.u16(field::Length),
            .ColourB = p.u24(field::ColourB),
            .FirstNeedle = p.u16(field::FirstNeedle)};
}

bool isOnFrame(const NeedleMeterSettings& s) { return s.Kind == NeedleKind::ImageOnFrame; }

// The number beside the needle.

/// 32 bits are signed in any case, and 64 count as 0.
NumericValue digitsValue(const NeedleMeterSettings& s) {
    constexpr std::uint8_t longType = 0x02;
    switch (s.DigitsType & ~TypeSignedBit) {
    case 0x00:
    case 0x01: return ReadNumeric(s.DigitsValue, s.DigitsType);
    case longType: return ReadNumeric(s.DigitsValue, longType | TypeSignedBit);
    default: return {};
    }
}

/// What is shown is no longer a change.
void syncDigits(const NeedleMeterSettings& s) {
    const std::size_t offset = 2 * std::size_t{s.DigitsValue};
    switch (s.DigitsType & ~TypeSignedBit) {
    case 0x00: return SyncBytes(offset + 1, 1);
    case 0x01: return SyncBytes(offset, 2);
    case 0x02: return SyncBytes(offset, 4);
    default: return;
    }
}

/// Where the text of that width begins. An unknown alignment leads to the edge of the panel.
int digitsStart(const NeedleMeterSettings& s, int width) {
    return s.Align > NumberAlignment::Right ? 0 : s.DigitsAt.x() - LeftOf(s.Align, width);
}

void drawDigitsOnFrame(NeedleMeterRow& row, const GlyphPictures& glyphs, QPoint at) {
    if (row.LastDigitsArea.x() < at.x()) CopyBackgroundToFrame(row.LastDigitsArea);
    const int width = DrawGlyphs(glyphs, FrameSurface, at, Backdrop::Page);
    int height = 0;
    for (const ImageRow& picture : glyphs.pictures()) height = std::max<int>(height, picture.Height);
    row.LastDigitsArea = {at, QSize(width, height)};
}

void drawDigits(NeedleMeterRow& row) {
    const NeedleMeterSettings& s = row.settings;
    if (!s.Digits || !IsStoreWord(s.DigitsValue)) return;
    const NumericValue value = digitsValue(s);
    syncDigits(s);
    const GlyphPictures glyphs = NumberGlyphs(PictureNumberText(value, s.Format).view(), s.FirstDigit);
    const QPoint at(digitsStart(s, glyphs.width()), s.DigitsAt.y());
    if (isOnFrame(s))
        drawDigitsOnFrame(row, glyphs, at);
    else
        BlitGlyphs(glyphs, at - s.Area.topLeft());
}

// The value.

/// The value within its limits, which is the variable's from now on.
std::int16_t limitedValue(const NeedleMeterSettings& s) {
    const std::uint16_t value = ReadWord(s.Value);
    const std::uint16_t limited = value > s.Highest ? s.Highest : std::max(value, s.Lowest);
    if (limited != value) StoreWord(s.Value, limited);
    return static_cast<std::int16_t>(limited);
}

void moveNeedle(NeedleMeterRow& row) {
    const NeedleMeterSettings& s = row.settings;
    const int target = limitedValue(s), shown = row.ShownValue;
    const int next = shown < target ? shown + s.Step : shown - s.Step;
    const bool arrives = shown < target ? next >= target : next <= target;
    if (s.Smooth && !arrives) {
        row.ShownValue = static_cast<std::int16_t>(next);
        return;
    }
    row.ShownValue = static_cast<std::int16_t>(target);
    SyncWord(s.Value);
}

// The needle.

/// The point at that distance from the hub, clockwise from straight up, in px of the widget.
QPoint pointAt(const NeedleMeterSettings& s, int degrees, int radius) {
    const QPoint hub = s.Centre - s.Area.topLeft();
    const auto r = static_cast<float>(radius);
    return {static_cast<int>(static_cast<float>(hub.x()) + SinDeg(degrees) * r),
            static_cast<int>(static_cast<float>(hub.y()) - CosDeg(degrees) * r)};
}

struct Outline {
    QPoint tip, tail, sideA, sideB;
};

Outline outlineOf(const NeedleMeterRow& row) {
    const NeedleMeterSettings& s = row.settings;
    const int angle = row.ShownValue;
    return {pointAt(s, angle, s.Length), pointAt(s, angle + 180, s.Tail),
            pointAt(s, angle + 270, s.HalfWidth), pointAt(s, angle + 90, s.HalfWidth)};
}

void fillTriangle(QPoint a, QPoint b, QPoint c, std::uint32_t colour) {
    FillTriangle(a.x(), a.y(), b.x(), b.y(), c.x(), c.y(), colour);
}

void drawCapsule(QPoint a, QPoint b, int radius, std::uint32_t colour) {
    const auto number = [](int value) { return static_cast<float>(value); };
    DrawCapsule(number(a.x()), number(a.y()), number(b.x()), number(b.y()), number(radius), colour);
}

/// Two halves, which can differ in colour.
Outline drawTriangles(const NeedleMeterRow& row) {
    const NeedleMeterSettings& s = row.settings;
    const Outline o = outlineOf(row);
    fillTriangle(o.sideA, o.tip, o.tail, s.ColourB);
    fillTriangle(o.sideB, o.tip, o.tail, s.ColourA);
    return o;
}

void drawSmoothTriangles(const NeedleMeterRow& row) {
    const NeedleMeterSettings& s = row.settings;
    const Outline o = drawTriangles(row);
    drawCapsule(o.sideA, o.tip, 1, s.ColourB);
    drawCapsule(o.sideA, o.tail, 1, s.ColourB);
    drawCapsule(o.tip, o.sideB, 1, s.ColourA);
    drawCapsule(o.sideB, o.tail, 1, s.ColourA);
}

void drawStroke(const NeedleMeterRow& row) {
    const Outline o = outlineOf(row);
    drawCapsule(o.tip, o.tail, row.settings.HalfWidth, row.settings.ColourA);
}

// Needles that are pictures.

int imageOf(const NeedleMeterRow& row) {
    const NeedleMeterSettings& s = row.settings;
    return s.Step == 0 ? 0 : (row.ShownValue - s.Lowest) / s.Step;
}

/// A picture of the run, and where it goes when its field is around the hub.
struct NeedleImage {
    ImageRow pixels;
    QPoint at; // px on the panel
};

NeedleImage needleImage(const NeedleMeterSettings& s, int number) {
    const int index = s.FirstNeedle + number;
    if (index < 0 || index > 0xFFFF) return {};
    ImageRow image = TableImageRow(static_cast<std::uint16_t>(index));
    const QPoint offset(ReadU16(image.Address), ReadU16(image.Address + 2));
    image.Address += NeedleHeadBytes;
    return {image, offset + s.Centre - QPoint(s.Tail, s.Tail)};
}

void drawImage(const NeedleMeterRow& row) {
    const NeedleImage needle = needleImage(row.settings, imageOf(row));
    BlitToWork(needle.pixels, needle.at - row.settings.Area.topLeft());
}

void drawImageOnFrame(NeedleMeterRow& row) {
    const int number = imageOf(row);
    const auto [pixels, at] = needleImage(row.settings, number);
    if (!pixels.hasPicture()) return;
    if (number != row.LastImage) CopyBackgroundToFrame(row.LastImageArea);
    DrawImage(FrameSurface, at, pixels, Backdrop::Page);
    row.LastImage = number;
    row.LastImageArea = {at, QSize(pixels.Width, pixels.Height)};
}

void drawNeedle(NeedleMeterRow& row) {
    switch (row.settings.Kind) {
    case NeedleKind::Triangles: drawTriangles(row); break;
    case NeedleKind::SmoothTriangles: drawSmoothTriangles(row); break;
    case NeedleKind::Image: drawImage(row); break;
    case NeedleKind::Stroke: drawStroke(row); break;
    case NeedleKind::ImageOnFrame: drawImageOnFrame(row); break;
    }
}

void drawDial(const NeedleMeterSettings& s) {
    BackdropToWork(s.Area, 0);
    if (s.Dial != NoImage) BlitToWork(TableImageRow(s.Dial), {0, 0});
}

void drawCover(const NeedleMeterSettings& s) {
    if (s.Cover == NoImage) return;
    const ImageRow cover = TableImageRow(s.Cover);
    BlitToWork(cover, s.Centre - QPoint(cover.Width / 2, cover.Height / 2) - s.Area.topLeft());
}

} // namespace

void AddNeedleMeter(const Parameters& p) {
    NeedleMeterRow* row = NeedleMeterTable.next();
    if (!row) return;
    row->settings = settingsOf(p);
    row->ShownValue = static_cast<std::int16_t>(ReadWord(row->settings.Value));
    DrawNeedleMeter(*row);
    NeedleMeterTable.commit();
}

void ForgetNeedleMeters() {
    NeedleMeterTable.clear();
    NeedleTickCount = 0;
}

void RefreshNeedleMeter(std::uint16_t /*page*/, const Parameters& p, bool blockChanged) {
    NeedleMeterRow* row = NeedleMeterTable.at(NeedleMeterCursor);
    if (!row || !blockChanged) return;
    row->settings = settingsOf(p);
    row->LastDigitsArea.setWidth(0);
}

void CountNeedleMeterTicks() {
    if (!NeedleMeterTable.empty()) NeedleTickCount += 1;
}

void NeedleMeterTick() {
    if (NeedleMeterTable.empty() || NeedleTickCount <= TicksBetween) return;
    NeedleTickCount = 0;
    for (NeedleMeterRow& row : NeedleMeterTable.rows()) DrawNeedleMeter(row);
}

void DrawNeedleMeter(NeedleMeterRow& row) {
    const NeedleMeterSettings& s = row.settings;
    if (OverlapsOpenEntry(s.Area.x(), s.Area.y(), s.Area.width(), s.Area.height())) return;
    if (!isOnFrame(s)) drawDial(s);
    drawDigits(row);
    moveNeedle(row);
    drawNeedle(row);
    if (isOnFrame(s)) return;
    drawCover(s);
    LandWork(s.Area, 0);
}

} // namespace panel
