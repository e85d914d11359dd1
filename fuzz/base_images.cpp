#include "base_images.h"

#include "imagekit/bar_widgets.h"
#include "imagekit/chart_widgets.h"
#include "imagekit/clock_widgets.h"
#include "imagekit/encoder_widgets.h"
#include "imagekit/entry_widgets.h"
#include "imagekit/icon_widgets.h"
#include "imagekit/image_builder.h"
#include "imagekit/media_widgets.h"
#include "imagekit/meter_widgets.h"
#include "imagekit/touch_controls.h"

#include <iterator>

namespace fuzz {
namespace {

using namespace imagekit;

QImage gradient(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgba(x * 8, y * 8, x ^ y, x * y));
    return image;
}

bool hasOnly16Bits(std::uint8_t format) { return format == 8 || (format >= 3 && format <= 5); }

/// An image with a page of every picture format, a pop-up, presets, languages and all three streams.
ImageBuilder everyFormat(PanelConfig config) {
    ImageBuilder image(config);
    for (const std::uint8_t format : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10}) {
        if (config.ColourMode == 1 && hasOnly16Bits(format)) continue;
        image.addPage(Pixels{gradient(40, 30), format});
    }
    Page& page = image.addPage(Solid{40, 30, Qt::blue});
    for (std::uint16_t kind = 1; kind <= 0x22; ++kind) {
        page.add(DisplayRecord{.Kind = kind, .Block = Bytes(28, 0x11)});
        page.add(DisplayRecord{.Kind = kind, .ParameterAddress = 0x0040, .Block = Bytes(28, 0)});
        page.add(GroupRecord{1, {.Kind = kind, .Block = Bytes(20, 0x11)}});
    }
    for (std::uint16_t family = 0x8000; family <= 0x800F; ++family)
        page.add(TouchRecord{.Family = family, .Notify = true, .Body = Bytes(30, 0x05)});
    page.add(PagePreset{1, {{0x0100, 1}, {0x7000, 0}, {0x703F, 1}}});
    image.page(0).add(PagePreset{2, {{0x7014, 2}, {0x7000, 10}}});
    const Bytes preset{1, 2, 3, 4};
    image.addLanguagePreset(1, 0x0100, preset);
    image.addPicture(Pixels{gradient(16, 16), 6});
    image.setWord(0x0100, 0x1234);
    return image;
}

/// An image whose pages are covered with touch widgets and icons, with groups on them.
ImageBuilder everyTouchWidget(PanelConfig config) {
    ImageBuilder image(config);
    for (const std::uint8_t format : {6, 2, 10}) image.addPicture(Pixels{gradient(12, 12), format});
    image.addFont(SyntheticFont({.Kind = FontKind::Ascii, .Width = 4, .Height = 8}));
    image.addSound({1, 2, 3});
    const std::uint16_t strip = image.addPicture(Pixels{gradient(10, 60), 6});
    for (const std::uint16_t target : {1, 2, 0}) {
        Page& page = image.addPage(Pixels{gradient(40, 30), 6});
        page.addToGroup(1, BitIcon{.ValueAddress = 0x70, .X = 2, .Y = 2, .ClearImage = 0, .SetImage = 1});
        page.addToGroup(1, ValueIcon{.ValueAddress = 0x70, .X = 6, .Y = 6, .Maximum = 2});
        page.add(PageKey{.Where = {0, 0, 9, 9},
                         .Notify = true,
                         .NormalImage = 0,
                         .PressImage = 1,
                         .TargetPage = target,
                         .OverlayGroup = 1});
        page.add(StepKey{.Where = {10, 0, 19, 9},
                         .Notify = true,
                         .Address = 0x70,
                         .Wrap = true,
                         .Highest = 3,
                         .NormalImage = 1,
                         .PressImage = 2,
                         .Repeat = true});
        page.add(StateKey{.Where = {20, 0, 29, 9}, .Address = 0x70, .FirstPreset = 1, .OverlayGroup = 1});
        page.add(CopyKey{
            .Where = {30, 0, 39, 9}, .NormalImage = 2, .Destination = 0x71, .Source = 0x70, .WordCount = 9});
        page.add(PopupKey{.Where = {0, 10, 9, 19},
                          .NormalImage = 0,
                          .PressImage = 1,
                          .Page = target,
                          .PopupX = 8,
                          .PopupY = 8,
                          .Dim = true,
                          .CleanOld = true});
        page.add(MultiKey{.Where = {10, 10, 19, 19},
                          .NormalImage = 0,
                          .PressImage = 1,
                          .Click = {.Enabled = true, .Address = 0x70, .Value = 1},
                          .DoubleClick = {.Enabled = true, .TargetPage = target},
                          .LongPress = {.Enabled = true, .Address = 0x70, .Value = 2},
                          .LongPressTicks = 8,
                          .OverlayGroup = 1});
        page.add(Slider{.Notify = true,
                        .FillX = 2,
                        .FillY = 20,
                        .FillImage = strip,
                        .Address = 0x71,
                        .Where = {0, 20, 39, 30},
                        .ThumbImage = 2,
                        .BackX = 0,
                        .BackY = 20,
                        .BackImage = 0,
                        .OverlayGroup = 1});
        page.add(Rtouch{.Notify = true,
                        .Address = 0x71,
                        .X = 4,
                        .Y = 4,
                        .Foreground = strip,
                        .Background = 0,
                        .Thumb = 1,
                        .Radius = 9,
                        .HalfWidth = 4,
                        .FirstDigit = 0,
                        .Readout = RingReadout::Pictures,
                        .OverlayGroup = 1});
        page.add(SlidingList{.Window = {4, 4, 30, 30},
                             .ListPage = target,
                             .Mode = static_cast<ListMode>(target % 2 ? 0x80 : 0),
                             .BarAtRest = 0,
                             .BarMoving = 1});
        page.add(SwipeGesture{.Notify = true, .Left = {target, 1}});
        page.add(SlidePage{.Notify = true, .NextPage = target, .PreviousPage = 0, .BandBottom = 40});
        page.add(RollerPicker{.Notify = true,
                              .Address = 0x7004,
                              .Window = {30, 10, 39, 39},
                              .MarginA = 10,
                              .MarginB = 10,
                              .SelectedStrip = strip,
                              .NormalStrip = strip,
                              .Lowest = 1,
                              .Highest = 31});
        const KeyboardPlace keyboard{.Page = target, .X = 4, .Y = 4, .TextX = 2, .TextY = 2};
        page.add(NumberEntry{.Where = {20, 20, 29, 29},
                             .Address = 0x74,
                             .Type = DataType::S32,
                             .Decimals = 1,
                             .Keyboard = keyboard,
                             .Prefilled = true});
        page.add(
            TextEntry{.Where = {30, 20, 39, 29}, .Address = 0x78, .Prefilled = true, .Keyboard = keyboard});
        page.add(PinyinEntry{.Where = {40, 20, 49, 29},
                             .Address = 0x80,
                             .Prefilled = true,
                             .Keyboard = keyboard,
                             .CandidatesX = 2,
                             .CandidatesY = 20,
                             .Gap = 2});
        for (std::uint16_t key = 0; key < 16; ++key) {
            const std::uint16_t codes[] = {'1', 'a', '-', 0xF0, 0xF1, 0xF2, 0xF4, 0xF8};
            const auto x = static_cast<std::uint16_t>(key % 4 * 10),
                       y = static_cast<std::uint16_t>(key / 4 * 8);
            page.add(KeyboardKey{
                .Where = {x, y, static_cast<std::uint16_t>(x + 9), static_cast<std::uint16_t>(y + 7)},
                .Code = codes[key % std::size(codes)],
                .PressPicture = target});
        }
        page.add(MusicPlayer{.Number = target, .Repeat = true});
        page.add(CameraView{.ControlAddress = 0x70, .X2 = 20, .Y2 = 20, .Group = 1});
        page.add(VideoPlayer{.X2 = 20, .Y2 = 20});
        page.add(PngNumber{.ValueAddress = 0x70, .X = 20, .Y = 30, .LastImage = 3, .IntegerDigits = 2});
        page.add(ValueIcon{.ValueAddress = 0x70, .X = 20, .Y = 12, .Maximum = 2, .Group = 1});
        page.add(BitIcon{.ValueAddress = 0x71, .X = 24, .Y = 14, .Bit = 1, .ClearImage = 0, .SetImage = 2});
        page.add(PagePreset{1, {{0x70, 2}, {0x7000, target}}});
    }
    image.setPinyin({{"a", QString(20, QChar(0x554A))}});
    return image;
}

/// A page with the instruments, which move by themselves.
ImageBuilder everyInstrument(const PanelConfig& config) {
    ImageBuilder image(config);
    for (const std::uint8_t pixelFormat : {0, 2, 6, 7, 10})
        image.addPicture(Pixels{gradient(14, 14), pixelFormat});
    const std::uint8_t font = image.addFont(SyntheticFont({.Width = 6, .Height = 8, .Depth = 4}));
    Page& page = image.addPage(Pixels{gradient(40, 30), 6});
    page.addToGroup(1, PngClock{.X = 4, .Y = 4});
    page.add(PngClock{.X = 2, .Y = 34, .Format = ClockFormat::DateAndTime});
    page.add(AnalogClock{.X = 24, .Y = 24, .Face = 4, .Seconds = {.Ahead = 5, .Behind = 2}, .Cap = 0});
    for (std::uint8_t kind = 0; kind < 4; ++kind)
        page.add(NeedleMeter{.ValueAddress = 0x70,
                             .Dial = 3,
                             .X = 2,
                             .Y = 2,
                             .Width = 14,
                             .Height = 14,
                             .CentreX = 9,
                             .CentreY = 9,
                             .Step = 20,
                             .Smooth = kind == 1,
                             .DigitsAddress = 0x71,
                             .FirstDigit = 0,
                             .Kind = static_cast<Needle>(kind + kind / 2),
                             .Length = 6,
                             .FirstNeedle = 0});
    for (std::uint16_t picture = 0; picture < 5; ++picture)
        page.add(RingGauge{.ValueAddress = 0x71,
                           .X = 20,
                           .Y = 2,
                           .Foreground = picture,
                           .ReadoutX = 22,
                           .ReadoutY = 4,
                           .Font = font,
                           .FirstDigit = 0,
                           .Readout = static_cast<RingReadout>(picture % 3),
                           .Group = 1});
    page.add(ImageBar{.ValueAddress = 0x70, .BarX = 4, .BarY = 20, .BarImage = 4, .BackImage = 1});
    page.add(imagekit::QrCode{.TextAddress = 0x100, .TextWords = 8, .X = 10, .Y = 10, .SizeUnits = 1});
    page.add(Textroll{.TextAddress = 0x100,
                      .X1 = 4,
                      .Y1 = 20,
                      .X2 = 30,
                      .Y2 = 32,
                      .TextWords = 8,
                      .Font = font,
                      .GlyphWidth = 6,
                      .GlyphHeight = 8,
                      .Speed = 0,
                      .Gap = 5});
    for (std::uint8_t channel = 0; channel < 3; ++channel)
        page.add(Curve{
            .X1 = 2, .Y1 = 2, .X2 = 40, .Y2 = 30, .BaseOffset = 20, .Channel = channel, .Thickness = 2});
    page.add(
        AutoStep{.TargetAddress = 0x70, .ControlAddress = 0x72, .CycleValue = 0, .Step = 7, .Period = 2});
    page.add(AutoStep{
        .TargetAddress = 0x71, .ControlAddress = 0x73, .RunValue = 0, .EndValue = 1, .Notify = true});
    EncoderActions actions{.Notify = true};
    actions.Keys[0] = {.Page = 0, .Address = 0x70, .Value = 3};
    page.add(EncoderMenu{.SelectorAddress = 0x74,
                         .Entries = {EncoderStep{.Address = 0x70}, EncoderValue{.Address = 0x71}, actions}});
    image.setBytes(0x100, Bytes(16, 'q'));
    return image;
}

} // namespace

std::vector<QByteArray> BaseImages() {
    std::vector<QByteArray> images{everyTouchWidget({.Width = 48, .Height = 40, .LangueNum = 2}).build(),
                                   everyInstrument({.Width = 48, .Height = 40}).build()};
    for (const std::uint8_t chip : {1, 4, 5})
        for (const std::uint8_t mode : {0, 1})
            for (const bool nand : {false, true})
                images.push_back(everyFormat({.Width = 48,
                                              .Height = 40,
                                              .ColourMode = mode,
                                              .ICType = chip,
                                              .NandFlash = nand,
                                              .LangueNum = 2})
                                     .build());
    return images;
}

} // namespace fuzz
