// make-sampler: an image with all kinds of widgets in pictures and fonts that are computed here, so that it
// looks the same on every machine. Its tour is compared with golden pictures.

#include "imagekit/bar_widgets.h"
#include "imagekit/chart_widgets.h"
#include "imagekit/clock_widgets.h"
#include "imagekit/encoder_widgets.h"
#include "imagekit/entry_widgets.h"
#include "imagekit/icon_widgets.h"
#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"
#include "imagekit/meter_widgets.h"
#include "imagekit/touch_controls.h"

#include "store/system_words.h"

#include <cstdio>

namespace {

using namespace imagekit;

enum PageId : std::uint16_t {
    TextPage,
    IconPage,
    DialPage,
    ClockPage,
    KeyPage,
    ControlPage,
    EntryPage,
    ListPage,
    LeftPage,
    RightPage,
    PopupPage,
    KeyboardPage,
    KeyboardPressedPage,
    ListPicture,
};

enum Word : std::uint16_t {
    Level = 0x0100, // 0 to 100
    Angle,
    Choice, // 0 to 2
    Flags,
    Signed,
    Control,
    Preset,
    Left, // of a timer, and what another one has counted
    Passed,
    TimerControl,
    Stepped,
    Entered,
    Selector,
    Text = 0x0120,
    LongText = 0x0140,
    Name = 0x0160,
    Link = 0x0180,
};

constexpr int Width = 320, Height = 240;
const QColor Ground(24, 32, 48), Ink(240, 240, 230), Warm(250, 140, 60), Cool(70, 150, 250), Dark(50, 64, 88);

std::uint16_t u16(int value) { return static_cast<std::uint16_t>(value); }
Area areaAt(int x, int y, int width, int height) {
    return {u16(x), u16(y), u16(x + width - 1), u16(y + height - 1)};
}

// Pictures, made of whole pixels.

QImage plain(int width, int height, const QColor& colour) {
    QImage picture(width, height, QImage::Format_ARGB32);
    picture.fill(colour);
    return picture;
}

void fill(QImage& picture, const QRect& area, const QColor& colour) {
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) picture.setPixelColor(x, y, colour);
}

/// A face with a frame, and a mark that tells it from its neighbours.
QImage tile(int width, int height, const QColor& face, int mark = 0) {
    QImage picture = plain(width, height, Ink);
    fill(picture, QRect(2, 2, width - 4, height - 4), face);
    for (int i = 0; i < mark; ++i) fill(picture, QRect(5 + 6 * i, height - 9, 4, 4), Ink);
    return picture;
}

QImage ring(int side, int hole, const QColor& colour) {
    QImage picture = plain(side, side, Qt::transparent);
    const auto square = [](int value) { return value * value; };
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const int distance = square(2 * x + 1 - side) + square(2 * y + 1 - side);
            if (distance <= square(side) && distance >= square(hole)) picture.setPixelColor(x, y, colour);
        }
    return picture;
}

/// Seven segments, from the top clockwise, the middle one last; then the signs.
QImage digit(char character) {
    constexpr QRect segments[] = {{2, 1, 6, 2}, {7, 2, 2, 6}, {7, 8, 2, 6},  {2, 13, 6, 2}, {1, 8, 2, 6},
                                  {1, 2, 2, 6}, {2, 7, 6, 2}, {4, 12, 3, 3}, {4, 3, 3, 3}};
    constexpr std::pair<char, unsigned> lit[] = {
        {'0', 0x3F}, {'1', 0x06}, {'2', 0x5B}, {'3', 0x4F}, {'4', 0x66}, {'5', 0x6D}, {'6', 0x7D},
        {'7', 0x07}, {'8', 0x7F}, {'9', 0x6F}, {'-', 0x40}, {'.', 0x80}, {':', 0x180}};
    QImage picture = plain(10, 16, Ground);
    for (const auto& [name, bits] : lit)
        for (std::size_t i = 0; name == character && i < std::size(segments); ++i)
            if (bits >> i & 1) fill(picture, segments[i], Ink);
    return picture;
}

/// The pages, and what they share.
class Sampler {
public:
    Sampler()
        : image({.Width = Width, .Height = Height, .ColourMode = 1}),
          font(image.addFont(SyntheticFont({.Width = 8, .Height = 16}))),
          fine(image.addFont(SyntheticFont({.Width = 12, .Height = 20, .Depth = 4}))),
          gbk(image.addFont(SyntheticFont({.Kind = FontKind::Gbk, .Width = 8, .Height = 12}))),
          digits(run("0123456789.-")), timeDigits(run("0123456789:--.")) {
        for (int day = 0; day < 7; ++day) add(tile(60, 16, Dark, day + 1)); // behind the digits of a clock
        for (int page = TextPage; page <= RightPage; ++page)
            image.addPage(Solid{Width, Height, page % 2 == 0 ? Ground : QColor(36, 30, 44)});
        image.addPage(Pixels{tile(160, 120, Dark), format::PngOpaque});
        image.addPage(Pixels{tile(200, 100, Dark), format::RGB565});
        image.addPage(Pixels{tile(200, 100, Warm), format::RGB565});
        image.addPage(Pixels{listPicture(), format::PngOpaque});
        addTexts();
        addIcons();
        addDials();
        addClocks();
        addKeys();
        addControls();
        addEntries();
        addList();
        addSlides();
        addPopup();
        setWords();
    }

    ImageBuilder image;

private:
    std::uint16_t add(const QImage& picture, std::uint8_t pixelFormat = format::aRGB8888) {
        return image.addPicture(Pixels{picture, pixelFormat});
    }
    std::uint16_t run(const std::string& characters) {
        std::uint16_t last = 0;
        for (const char character : characters) last = add(digit(character), format::RGB565);
        return u16(last + 1 - static_cast<int>(characters.size()));
    }
    std::uint32_t colour(const QColor& value) const { return image.colour(value); }

    Label label(Word address, const Area& box, std::uint8_t labelFont) const {
        return {.TextAddress = address,
                .X1 = box.X0,
                .Y1 = box.Y0,
                .X2 = box.X1,
                .Y2 = box.Y1,
                .Colour = colour(Ink),
                .Font = labelFont,
                .TextLength = 8};
    }
    Number number(Word address, int x, int y, std::uint8_t integerDigits) const {
        return {.ValueAddress = address,
                .X = u16(x),
                .Y = u16(y),
                .Colour = colour(Ink),
                .Font = font,
                .IntegerDigits = integerDigits};
    }
    PngNumber pictureNumber(Word address, int x, int y, std::uint8_t integerDigits) const {
        return {.ValueAddress = address,
                .X = u16(x),
                .Y = u16(y),
                .FirstImage = digits,
                .LastImage = u16(digits + 11),
                .IntegerDigits = integerDigits};
    }

    static QImage listPicture() {
        QImage picture = plain(200, 480, Ground);
        for (int row = 0; row < 8; ++row)
            fill(picture, QRect(6, 60 * row + 6, 188 - 12 * row, 48), row % 2 ? Dark : Cool);
        return picture;
    }

    void addTexts() {
        Page& page = image.page(TextPage);
        for (int anchor = 0; anchor < 9; ++anchor) {
            Label text = label(Text, areaAt(8 + anchor % 3 * 104, 8 + anchor / 3 * 44, 96, 40), font);
            text.BackColour = colour(Dark);
            text.Anchor = static_cast<std::uint8_t>(anchor);
            text.Opaque = anchor % 2 == 0;
            text.Masked = anchor == 3;
            page.add(text);
        }
        const DataType types[] = {DataType::U8, DataType::U16, DataType::S16, DataType::U32};
        for (int i = 0; i < 4; ++i)
            page.add(Number{.ValueAddress = Signed,
                            .X = u16(80 + 70 * i),
                            .Y = 144,
                            .Colour = colour(Warm),
                            .Font = font,
                            .LeadingZeros = i == 1,
                            .Align = Alignment::Right,
                            .IntegerDigits = 5,
                            .DecimalDigits = static_cast<std::uint8_t>(i % 3),
                            .Type = types[i],
                            .Unit = i == 2 ? "K" : ""});
        page.add(Textroll{.TextAddress = LongText,
                          .X1 = 8,
                          .Y1 = 176,
                          .X2 = 311,
                          .Y2 = 197,
                          .TextWords = 24,
                          .Font = fine,
                          .GlyphWidth = 12,
                          .GlyphHeight = 20,
                          .RollAlways = true,
                          .Colour = colour(Cool),
                          .Speed = 2});
        page.add(Textroll{.TextAddress = Text,
                          .X1 = 8,
                          .Y1 = 206,
                          .X2 = 311,
                          .Y2 = 227,
                          .TextWords = 8,
                          .Font = font,
                          .Align = Alignment::Centre,
                          .Colour = colour(Ink),
                          .BackColour = colour(Dark),
                          .Opaque = true});
        page.add(EncoderPages{.CounterClockwise = RightPage, .Clockwise = IconPage});
    }

    void addIcons() {
        Page& page = image.page(IconPage);
        const std::uint16_t icons = add(tile(48, 32, Cool, 1));
        add(tile(48, 32, Warm, 2));
        add(tile(48, 32, Dark, 3));
        page.add(ValueIcon{.ValueAddress = Choice, .X = 8, .Y = 8, .FirstImage = icons, .Maximum = 2});
        for (int bit = 0; bit < 4; ++bit)
            page.add(BitIcon{.ValueAddress = Flags,
                             .X = u16(72 + 56 * bit),
                             .Y = 8,
                             .Bit = static_cast<std::uint8_t>(bit),
                             .ClearImage = icons,
                             .SetImage = u16(icons + 1)});
        for (const Alignment align : {Alignment::Left, Alignment::Centre, Alignment::Right}) {
            PngNumber value = pictureNumber(Signed, 160, 52 + 20 * static_cast<int>(align), 4);
            value.Align = align;
            value.DecimalDigits = 1;
            value.Type = DataType::S16;
            page.add(value);
        }
        std::vector<Picture> frames;
        for (int mark = 1; mark <= 4; ++mark)
            frames.push_back(Pixels{tile(48, 32, mark % 2 ? Cool : Warm, mark), format::aRGB8888});
        page.add(ImageAnimation{.ControlAddress = Control,
                                .X = 8,
                                .Y = 56,
                                .Width = 48,
                                .Height = 32,
                                .Sequence = image.addSequence(frames),
                                .Delay = 10});
        for (const BarGrowth growth : {BarGrowth::Right, BarGrowth::Left, BarGrowth::Down, BarGrowth::Up})
            addBar(page, growth);
        for (const TimerDirection direction : {TimerDirection::Down, TimerDirection::Up}) {
            const bool up = direction == TimerDirection::Up;
            page.add(UiTimer{.PresetAddress = Preset,
                             .TimerAddress = up ? Passed : Left,
                             .ControlAddress = TimerControl,
                             .X = u16(8 + 120 * up),
                             .Y = 206,
                             .FirstImage = timeDigits,
                             .Direction = direction});
        }
        page.add(AutoStep{.TargetAddress = Stepped, .ControlAddress = Control, .Highest = 60, .Step = 3});
        page.add(number(Stepped, 260, 206, 3));
    }

    void addBar(Page& page, BarGrowth growth) {
        const int index = static_cast<int>(growth);
        page.add(ImageBar{.ValueAddress = Level,
                          .BarX = u16(12 + 76 * index),
                          .BarY = 124,
                          .BarImage = add(plain(60, 60, Warm)),
                          .Direction = growth,
                          .BackX = u16(8 + 76 * index),
                          .BackY = 120,
                          .BackImage = add(tile(68, 68, Dark))});
    }

    NeedleMeter meter(int x, int y, Needle kind) {
        return {.ValueAddress = Angle,
                .Dial = add(ring(96, 60, Dark)),
                .X = u16(x),
                .Y = u16(y),
                .Width = 96,
                .Height = 96,
                .CentreX = u16(x + 48),
                .CentreY = u16(y + 48),
                .Step = 15,
                .Cover = add(ring(12, 0, Ink)),
                .DigitsAddress = Angle,
                .DigitsX = u16(x + 48),
                .DigitsY = u16(y + 66),
                .FirstDigit = digits,
                .Kind = kind,
                .NeedleWidth = 10,
                .ColourA = colour(Warm),
                .ColourB = colour(Cool)};
    }

    void addDials() {
        Page& page = image.page(DialPage);
        page.add(meter(8, 8, Needle::Triangles));
        NeedleMeter smooth = meter(112, 8, Needle::SmoothTriangles);
        smooth.Smooth = true;
        page.add(smooth);
        page.add(meter(216, 8, Needle::Stroke));
        NeedleMeter pictures = meter(8, 112, Needle::Image);
        pictures.Tail = 40;
        for (int mark = 0; mark <= 24; ++mark)
            pictures.FirstNeedle =
                u16(image.addPicture(NeedlePicture({tile(20, 20, Cool, mark % 3), format::aRGB8888},
                                                   {3 * mark % 60, 2 * mark % 60}, image.config()))
                    - mark);
        page.add(pictures);
        RingGauge gauge{.ValueAddress = Level,
                        .X = 112,
                        .Y = 112,
                        .Foreground = add(ring(96, 64, Warm)),
                        .Background = add(ring(96, 64, Dark)),
                        .StartAngle = 45,
                        .EndAngle = 315,
                        .ReadoutX = 160,
                        .ReadoutY = 152,
                        .Font = font,
                        .Colour = colour(Ink),
                        .Readout = RingReadout::Text};
        page.add(gauge);
        for (const bool leftToRight : {false, true})
            page.add(Curve{.X1 = 216,
                           .Y1 = u16(leftToRight ? 164 : 112),
                           .X2 = 311,
                           .Y2 = u16(leftToRight ? 207 : 155),
                           .BaseOffset = 40,
                           .Scale = 100,
                           .Colour = colour(leftToRight ? Cool : Warm),
                           .Channel = leftToRight,
                           .LeftToRight = leftToRight,
                           .StepX = 4,
                           .Thickness = static_cast<std::uint8_t>(leftToRight ? 3 : 1)});
    }

    void addClocks() {
        Page& page = image.page(ClockPage);
        const ClockFormat formats[] = {ClockFormat::ClosedDateAndTime, ClockFormat::ClosedMonthAndDay,
                                       ClockFormat::YearAndMonth, ClockFormat::Time, ClockFormat::Weekday};
        for (int i = 0; i < 5; ++i)
            page.add(PngClock{.X = 8, .Y = u16(8 + 22 * i), .FirstImage = timeDigits, .Format = formats[i]});
        page.add(AnalogClock{.X = 8,
                             .Y = 128,
                             .Face = add(ring(104, 92, Dark)),
                             .Hours = {28, 4, 7, colour(Ink)},
                             .Minutes = {40, 6, 4, colour(Ink)},
                             .Seconds = {44, 10, 2, colour(Warm)},
                             .Cap = add(ring(10, 0, Warm))});
        page.add(QrCode{.TextAddress = Link, .TextWords = 16, .X = 200, .Y = 128, .SizeUnits = 2});
        page.addToGroup(1, PngClock{.X = 216, .Y = 56, .FirstImage = timeDigits});
        page.add(PageKey{.Where = areaAt(208, 48, 100, 32),
                         .NormalImage = add(tile(100, 32, Dark)),
                         .PressImage = add(tile(100, 32, Warm)),
                         .TargetPage = KeyPage,
                         .OverlayGroup = 1});
    }

    void addKeys() {
        Page& page = image.page(KeyPage);
        const std::uint16_t normal = add(tile(90, 40, Dark)), pressed = add(tile(90, 40, Warm));
        std::uint16_t states = 0;
        for (int value = 0; value < 3; ++value) {
            states = add(tile(90, 40, Cool, value + 1));
            add(tile(90, 40, Warm, value + 1));
        }
        const auto addKey = [&](auto key) {
            key.NormalImage = normal;
            key.PressImage = pressed;
            page.add(key);
        };
        page.addToGroup(1, number(Level, 20, 20, 3));
        addKey(PageKey{.Where = areaAt(8, 8, 90, 40), .Notify = true, .NotifyCode = 7, .OverlayGroup = 1});
        page.add(StateKey{.Where = areaAt(112, 8, 90, 40),
                          .Address = Choice,
                          .Highest = 2,
                          .FirstImage = u16(states - 4),
                          .FirstPreset = 1});
        for (int value = 0; value < 3; ++value)
            page.add(PagePreset{.Id = u16(1 + value), .Items = {{Choice, u16((value + 1) % 3)}}});
        addKey(CopyKey{.Where = areaAt(216, 8, 90, 40), .Destination = Level, .Source = Choice});
        addKey(StepKey{.Where = areaAt(8, 60, 90, 40),
                       .Address = Level,
                       .Wrap = true,
                       .Step = 25,
                       .Highest = 100,
                       .Repeat = true});
        addKey(PopupKey{
            .Where = areaAt(112, 60, 90, 40), .Page = PopupPage, .PopupX = 80, .PopupY = 60, .Dim = true});
        addKey(MultiKey{.Where = areaAt(216, 60, 90, 40),
                        .Click = {.Enabled = true, .Address = Level, .Value = 11},
                        .DoubleClick = {.Enabled = true, .Address = Level, .Value = 22},
                        .LongPress = {.Enabled = true, .Address = Level, .Value = 33}});
        page.add(EncoderMenu{.SelectorAddress = Selector,
                             .Entries = {EncoderStep{.Address = Level, .Step = 10, .Wrap = true},
                                         EncoderValue{.Address = Level, .Step = 5}}});
        page.add(ValueIcon{
            .ValueAddress = Selector, .X = 8, .Y = 120, .FirstImage = u16(states - 4), .Maximum = 1});
    }

    void addControls() {
        Page& page = image.page(ControlPage);
        const std::uint16_t thumb = add(ring(18, 6, Ink));
        for (const SlideDirection direction :
             {SlideDirection::Right, SlideDirection::Left, SlideDirection::Down, SlideDirection::Up}) {
            const int index = static_cast<int>(direction);
            const bool upright = index > 1;
            const QRect track =
                upright ? QRect(140 + 40 * (index - 2), 16, 8, 90) : QRect(12, 24 + 40 * index, 100, 8);
            page.add(Slider{.FillX = u16(track.x()),
                            .FillY = u16(track.y()),
                            .FillImage = add(plain(track.width(), track.height(), index % 2 ? Cool : Warm)),
                            .Address = Level,
                            .Where = areaAt(track.x() - 12 * upright, track.y() - 12 * !upright,
                                            track.width() + 24 * upright, track.height() + 24 * !upright),
                            .ThumbImage = thumb,
                            .Direction = direction});
        }
        for (const bool horizontal : {false, true}) addRoller(page, horizontal);
        page.add(Rtouch{.Address = Level,
                        .X = 196,
                        .Y = 116,
                        .Foreground = add(ring(111, 80, Warm)),
                        .Background = add(ring(111, 80, Dark)),
                        .Thumb = thumb,
                        .Radius = 48,
                        .HalfWidth = 14,
                        .StartAngle = 30,
                        .EndAngle = 330,
                        .ReadoutX = 251,
                        .ReadoutY = 164,
                        .FirstDigit = digits,
                        .Readout = RingReadout::Pictures});
    }

    void addRoller(Page& page, bool horizontal) {
        constexpr int cell = 40, cells = 5;
        QImage strips[] = {plain(cell, cells * cell, Dark), plain(cell, cells * cell, Ground)};
        for (QImage& strip : strips) {
            if (horizontal) strip = plain(cells * cell, cell, strip.pixelColor(0, 0));
            for (int i = 0; i < cells; ++i)
                fill(strip,
                     QRect(horizontal ? i * cell + 4 : 4, horizontal ? 4 : i * cell + 4, 6 + 6 * i, 32),
                     &strip == strips ? Warm : Cool);
        }
        const int length = 3 * cell;
        page.add(RollerPicker{.Address = Choice,
                              .Window = {u16(horizontal ? 64 : 12), u16(horizontal ? 190 : 112),
                                         u16(horizontal ? 64 + length : 12 + cell),
                                         u16(horizontal ? 190 + cell : 112 + length)},
                              .MarginA = cell,
                              .MarginB = cell,
                              .Horizontal = horizontal,
                              .StopsAtEnds = horizontal,
                              .SelectedStrip = add(strips[0]),
                              .NormalStrip = add(strips[1]),
                              .Highest = cells - 1,
                              .Step = 1});
    }

    void addEntries() {
        Page& page = image.page(EntryPage);
        const KeyboardPlace keyboard{.Page = KeyboardPage, .X = 60, .Y = 120, .TextX = 8, .TextY = 6};
        const auto addEntry = [&](auto entry) {
            entry.Keyboard = keyboard;
            entry.TextColour = colour(Ink);
            entry.CursorColour = colour(Warm);
            page.add(entry);
        };
        addEntry(NumberEntry{.Where = areaAt(8, 8, 90, 30),
                             .Address = Entered,
                             .Font = font,
                             .Limited = true,
                             .Highest = 500,
                             .Prefilled = true});
        addEntry(TextEntry{.Where = areaAt(112, 8, 90, 30), .Address = Text, .Font = font});
        addEntry(PinyinEntry{.Where = areaAt(216, 8, 90, 30),
                             .Address = Name,
                             .Prefilled = true,
                             .Font = gbk,
                             .GlyphWidth = 8,
                             .GlyphHeight = 12,
                             .PinyinFont = gbk,
                             .PinyinGlyphWidth = 8,
                             .PinyinGlyphHeight = 12,
                             .PinyinColour = colour(Cool),
                             .LettersX = 8,
                             .LettersY = 24,
                             .CandidatesX = 60,
                             .CandidatesY = 24,
                             .Gap = 6});
        page.add(number(Entered, 12, 50, 5));
        page.add(label(Text, areaAt(112, 50, 90, 20), font));
        page.add(label(Name, areaAt(216, 50, 90, 20), gbk));
        image.setPinyin({{"a", "啊阿"}, {"ba", "八吧"}});
        const std::uint16_t codes[] = {'1',
                                       '2',
                                       '3',
                                       CharacterKey('a', 'A'),
                                       CharacterKey('b', 'B'),
                                       key_code::Shift,
                                       key_code::LanguageSwitch,
                                       key_code::Backspace,
                                       key_code::Clear,
                                       key_code::Cancel,
                                       key_code::Enter,
                                       key_code::NextCandidates};
        for (int i = 0; i < 12; ++i)
            image.page(KeyboardPage)
                .add(KeyboardKey{.Where = areaAt(8 + i % 6 * 31, 44 + i / 6 * 26, 28, 22),
                                 .Code = codes[i],
                                 .PressPicture = KeyboardPressedPage});
    }

    void addList() {
        Page& page = image.page(ListPage);
        page.add(SlidingList{.Window = areaAt(40, 20, 200, 200),
                             .ListPage = ListPicture,
                             .BarAtRest = add(plain(6, 50, Dark)),
                             .BarMoving = add(plain(6, 50, Warm)),
                             .BarMargin = 2,
                             .BarOffset = 8});
        page.add(Slider{.InList = 1,
                        .FillX = 20,
                        .FillY = 86,
                        .FillImage = add(plain(120, 8, Warm)),
                        .Address = Level,
                        .Where = areaAt(20, 74, 121, 32),
                        .ThumbImage = add(ring(18, 6, Ink))});
        page.add(StepKey{.Where = areaAt(20, 136, 60, 28),
                         .InList = 1,
                         .Address = Level,
                         .Step = 10,
                         .Highest = 100,
                         .NormalImage = add(tile(60, 28, Dark)),
                         .PressImage = add(tile(60, 28, Warm))});
        PngNumber value = pictureNumber(Level, 20, 22, 3);
        value.InList = true;
        page.add(value);
        page.add(PngClock{.InList = true, .X = 60, .Y = 22, .FirstImage = timeDigits});
        page.add(ImageAnimation{.InList = true,
                                .ControlAddress = Control,
                                .X = 100,
                                .Y = 134,
                                .Width = 48,
                                .Height = 32,
                                .Delay = 10});
    }

    void addSlides() {
        for (const std::uint16_t here : {LeftPage, RightPage}) {
            const std::uint16_t other = here == LeftPage ? RightPage : LeftPage;
            Page& page = image.page(here);
            page.add(SlidePage{.NextPage = other, .PreviousPage = other, .BandBottom = Height});
            page.add(SwipeGesture{.Up = {TextPage, 0}});
            page.add(RingGauge{.ValueAddress = Level,
                               .X = u16(here == LeftPage ? 40 : 180),
                               .Y = 60,
                               .Foreground = add(ring(96, 64, here == LeftPage ? Cool : Warm))});
            page.add(EncoderEntry{.Value = EncoderValue{.Address = Level, .Step = 4}});
        }
    }

    void addPopup() {
        Page& page = image.page(PopupPage);
        page.add(PageKey{.Where = areaAt(40, 70, 80, 32),
                         .NormalImage = add(tile(80, 32, Cool, 1)),
                         .PressImage = add(tile(80, 32, Warm, 1)),
                         .TargetPage = KeyPage});
        page.add(pictureNumber(Level, 60, 30, 3));
    }

    void setWords() {
        constexpr std::pair<Word, int> words[] = {
            {Level, 60},  {Angle, 75},  {Choice, 1}, {Flags, 0b0101},   {Signed, -1234},
            {Control, 1}, {Preset, 90}, {Left, 75},  {TimerControl, 1}, {Entered, 12}};
        for (const auto& [address, value] : words) image.setWord(address, u16(value));
        image.setText(Text, "Sampler", font);
        image.setText(LongText, "A text that is longer than its box.", fine);
        image.setText(Link, "https://example.com", font);
    }

    std::uint8_t font, fine, gbk;
    std::uint16_t digits, timeDigits; // the first of a run of pictures
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make-sampler IMAGE.bin\n", stderr);
        return 2;
    }
    try {
        Sampler().image.write(argv[1]);
    } catch (const ImageError& error) {
        std::fprintf(stderr, "make-sampler: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
