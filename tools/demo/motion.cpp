#include "demo/motion.h"

#include "demo/instrument_art.h"
#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/words.h"

#include "imagekit/encoder_widgets.h"
#include "imagekit/icon_widgets.h"
#include "imagekit/media_widgets.h"
#include "imagekit/touch_controls.h"

#include "store/system_words.h"

#include <QConicalGradient>

#include <algorithm>

namespace demo {
namespace {

namespace format = imagekit::format;

constexpr TextStyle TargetStyle{58, QFont::DemiBold, colour::Text};
constexpr TextStyle MeasuredStyle{22, QFont::DemiBold, colour::Muted};

constexpr int ThumbSize = 44;

struct Room {
    PageId page;
    std::uint16_t target, measured; // words, tenths of a degree
};
constexpr Room Rooms[] = {{LivingRoomPage, words::RoomTarget, words::RoomTemperature},
                          {BedroomPage, words::BedroomTarget, words::BedroomTemperature},
                          {KitchenPage, words::KitchenTarget, words::KitchenTemperature}};

std::uint16_t addDigits(imagekit::ImageBuilder& image, const TextStyle& style) {
    QStringList texts = TimeGlyphs();
    texts.back() = ".";
    return AddGlyphPictures(image, texts, style, colour::Ground);
}

/// The pictures that all rooms share.
struct RoomArt {
    std::uint16_t ring, thumb, target, measured;
    int side; // px of the ring's picture
};

RoomArt addRoomArt(imagekit::ImageBuilder& image, KeyArt& art) {
    using namespace layout::rooms;
    const RingShape shape{Radius, Width, 45, 315, 0, ThumbSize / 2};
    const double middle = RingSide(shape) / 2.0;
    QConicalGradient colours(middle, middle, 270);
    colours.setColorAt(0.125, colour::Hot);
    colours.setColorAt(0.4, colour::Warm);
    colours.setColorAt(0.875, colour::Cool);
    return {image.addPicture(imagekit::Pixels{RingPicture(shape, colours), format::PngAlpha}),
            art.withAlpha(SliderThumb(ThumbSize)), addDigits(image, TargetStyle),
            addDigits(image, MeasuredStyle), RingSide(shape)};
}

imagekit::Rtouch ringOf(const Room& room, const RoomArt& art) {
    using namespace layout::rooms;
    return {.Notify = true,
            .Address = room.target,
            .X = U16(Centre.x() - art.side / 2),
            .Y = U16(Centre.y() - art.side / 2),
            .Foreground = art.ring,
            .Thumb = art.thumb,
            .Radius = Radius,
            .HalfWidth = 26,
            .Lowest = 50,
            .Highest = 300,
            .StartAngle = 45,
            .EndAngle = 315,
            .ReadoutX = U16(Centre.x()),
            .ReadoutY = U16(Target.y()),
            .IntegerDigits = 2,
            .Decimals = 1,
            .FirstDigit = art.target,
            .Readout = imagekit::RingReadout::Pictures,
            .OverlayGroup = GaugeGroup};
}

void addKey(imagekit::Page& page, KeyArt& art, const QRect& area, PageId target) {
    const KeyLooks looks = art.cut(static_cast<PageId>(page.index()), area, area, area.height() / 2);
    page.add(imagekit::PageKey{.Where = AreaOf(area),
                               .NormalImage = looks.normal,
                               .PressImage = looks.pressed,
                               .TargetPage = target});
}

void addStep(imagekit::Page& page, KeyArt& art, const QRect& area, const Room& room, bool up) {
    const KeyLooks looks = art.cut(room.page, area, area, area.height() / 2);
    page.add(imagekit::StepKey{.Where = AreaOf(area),
                               .Address = room.target,
                               .Up = up,
                               .Step = 5,
                               .Highest = 300,
                               .Lowest = 50,
                               .NormalImage = looks.normal,
                               .PressImage = looks.pressed,
                               .Repeat = true});
}

void addMeasured(imagekit::Page& page, const Room& room, const RoomArt& pictures) {
    page.addToGroup(GaugeGroup, imagekit::PngNumber{.ValueAddress = room.measured,
                                                    .X = U16(layout::rooms::Centre.x()),
                                                    .Y = U16(layout::rooms::Measured.y()),
                                                    .FirstImage = pictures.measured,
                                                    .LastImage = U16(pictures.measured + 10),
                                                    .Align = imagekit::Alignment::Centre,
                                                    .IntegerDigits = 2,
                                                    .DecimalDigits = 1});
}

/// The knob turns the target, key 1 leads home, keys 2 and 3 choose comfort and eco.
void addTargetByKnob(imagekit::Page& page) {
    using imagekit::EncoderAction;
    page.add(imagekit::EncoderEntry{
        .Keys = {EncoderAction{.Page = HomePage}, EncoderAction{.Address = words::RoomTarget, .Value = 215},
                 EncoderAction{.Address = words::RoomTarget, .Value = 195}},
        .Value = imagekit::EncoderValue{
            .Notify = true, .Address = words::RoomTarget, .Highest = 300, .Lowest = 50, .Step = 5}});
}

void addThermostat(imagekit::ImageBuilder& image, KeyArt& art, const RoomArt& pictures) {
    imagekit::Page& page = image.page(ThermostatPage);
    addKey(page, art, layout::rooms::BackKey, HomePage);
    addKey(page, art, layout::rooms::RoomsKey, LivingRoomPage);
    addMeasured(page, Rooms[0], pictures);
    page.add(ringOf(Rooms[0], pictures), "Room target temperature");
    addTargetByKnob(page);
}

/// Rooms follow each other without an end; a swipe upwards, or the key, leads home. A finger that moves drags
/// the page, so the ring only shows and keys change it.
void addRoom(imagekit::ImageBuilder& image, KeyArt& art, const RoomArt& pictures, int index) {
    constexpr int rooms = std::size(Rooms);
    const Room& room = Rooms[index];
    imagekit::Page& page = image.page(room.page);
    page.add(imagekit::SlidePage{.NextPage = Rooms[(index + 1) % rooms].page,
                                 .PreviousPage = Rooms[(index + rooms - 1) % rooms].page,
                                 .BandBottom = U16(layout::Screen.height())});
    page.add(imagekit::SwipeGesture{.Up = {HomePage, 0}});
    page.add(imagekit::EncoderPages{.CounterClockwise = Rooms[(index + rooms - 1) % rooms].page,
                                    .Clockwise = Rooms[(index + 1) % rooms].page});
    addKey(page, art, layout::rooms::BackKey, HomePage);
    addStep(page, art, layout::rooms::ColderKey, room, false);
    addStep(page, art, layout::rooms::WarmerKey, room, true);
    addMeasured(page, room, pictures);
    imagekit::Rtouch ring = ringOf(room, pictures);
    ring.Touchable = false;
    page.add(ring, "Target temperature of a room");
}

void addRooms(imagekit::ImageBuilder& image, KeyArt& art) {
    const RoomArt pictures = addRoomArt(image, art);
    addThermostat(image, art, pictures);
    for (int i = 0; i < static_cast<int>(std::size(Rooms)); ++i) addRoom(image, art, pictures, i);
}

// The messages.

void addSwitchOnList(imagekit::Page& page, KeyArt& art, int index) {
    const QRect area = layout::events::Switch(index);
    const auto picture = [&](SwitchLook look) { return art.opaque(SwitchPicture(area.size(), look)); };
    const std::uint16_t word = U16(words::EventsDone + index);
    page.add(imagekit::StepKey{.Where = AreaOf(area),
                               .InList = 1,
                               .Address = word,
                               .Type = imagekit::BitOfWord(0),
                               .PressImage = picture(SwitchLook::Pressed)});
    page.add(imagekit::BitIcon{.InList = true,
                               .ValueAddress = word,
                               .X = U16(area.x()),
                               .Y = U16(area.y()),
                               .ClearImage = picture(SwitchLook::Off),
                               .SetImage = picture(SwitchLook::On)});
}

void addOutdoorsOnList(imagekit::ImageBuilder& image, imagekit::Page& page) {
    constexpr TextStyle style{22, QFont::DemiBold, colour::Text};
    const QRect well = layout::events::Value;
    QStringList texts = TimeGlyphs();
    texts.back() = ".";
    const std::uint16_t digits = AddGlyphPictures(image, texts << QChar(0x2212), style, colour::Well);
    page.add(imagekit::PngNumber{.InList = true,
                                 .ValueAddress = words::OutdoorTemperature,
                                 .X = U16(well.x() + well.width() / 2),
                                 .Y = U16(well.y() + 4),
                                 .FirstImage = digits,
                                 .LastImage = U16(digits + 11),
                                 .Align = imagekit::Alignment::Centre,
                                 .IntegerDigits = 2,
                                 .DecimalDigits = 1,
                                 .Type = imagekit::DataType::S16});
}

std::uint16_t addBar(imagekit::ImageBuilder& image, const QColor& ink) {
    Canvas canvas({6, 70}, Qt::transparent);
    canvas.rounded(QRectF(0, 0, 6, 70), 3, ink);
    return image.addPicture(imagekit::Pixels{canvas.take().image, format::aRGB8888});
}

/// A message that opens the alarm behind it. It has no look of its own: the page would be dimmed with it.
imagekit::PopupKey alarmKey() {
    return {.Where = AreaOf(layout::events::Alarm(2)),
            .InList = 1,
            .Page = AlarmPopup,
            .PopupX = U16(layout::popup::Origin.x()),
            .PopupY = U16(layout::popup::Origin.y()),
            .Dim = true};
}

/// A sign that fades in and out.
std::vector<imagekit::Picture> alarmFrames() {
    constexpr int frames = 6;
    std::vector<imagekit::Picture> pictures;
    for (int frame = 0; frame < frames; ++frame) {
        Canvas canvas(layout::popup::Sign.size(), colour::Card);
        canvas.painter().setOpacity(1 - 0.12 * std::min(frame, frames - frame));
        canvas.rounded(QRectF({0, 0}, layout::popup::Sign.size()), 26, colour::Hot);
        canvas.icon(Icon::Drop, QRectF(13, 13, 26, 26), colour::Text, 2);
        pictures.push_back(imagekit::Pixels{canvas.take().image, format::aRGB8888});
    }
    return pictures;
}

/// It rings as it opens.
void addAlarm(imagekit::ImageBuilder& image) {
    const QRect area = layout::popup::Sign;
    imagekit::Page& page = image.page(AlarmPopup);
    page.add(imagekit::MusicPlayer{.Number = ChimeSound});
    page.add(imagekit::ImageAnimation{.ControlAddress = words::Numbers + 1,
                                      .X = U16(area.x()),
                                      .Y = U16(area.y()),
                                      .Width = U16(area.width()),
                                      .Height = U16(area.height()),
                                      .Sequence = image.addSequence(alarmFrames()),
                                      .Delay = 14},
             "Sign of the alarm");
}

void addMessages(imagekit::ImageBuilder& image, KeyArt& art) {
    using namespace layout::events;
    imagekit::Page& page = image.page(EventsPage);
    page.add(imagekit::SlidingList{.Window = AreaOf(Window),
                                   .ListPage = EventsList,
                                   .BarAtRest = addBar(image, colour::Track),
                                   .BarMoving = addBar(image, colour::Warm),
                                   .BarMargin = 4,
                                   .BarOffset = 10});
    addOutdoorsOnList(image, page);
    page.add(
        imagekit::Slider{.InList = 1,
                         .FillX = U16(Slider.x()),
                         .FillY = U16(Slider.y()),
                         .FillImage = art.withAlpha(SliderFill(Slider.size(), colour::Cool, colour::Warm)),
                         .Address = words::AlarmVolume,
                         .Where = AreaOf(Slider.adjusted(0, -18, 1, 18)),
                         .ThumbImage = art.withAlpha(SliderThumb(26))});
    page.add(alarmKey());
    for (int i = 2; i < Rows; ++i) addSwitchOnList(page, art, i);
}

void addTips(imagekit::ImageBuilder& image) {
    image.page(TipsPage).add(imagekit::SlidingList{.Window = AreaOf(layout::tips::Window),
                                                   .ListPage = TipsList,
                                                   .Mode = imagekit::ListMode::EndlessHorizontal});
}

void addHelp(imagekit::ImageBuilder& image, KeyArt& art) {
    using namespace layout::help;
    imagekit::Page& page = image.page(HelpPage);
    page.add(imagekit::SlidingList{
        .Window = AreaOf(Window), .ListPage = HelpList, .Mode = imagekit::ListMode::EndlessVertical});
    const PageId answers[Cards] = {ThermostatPage,  HotWaterPage, HeatingPage,
                                   VentilationPage, HomePage,     ServicePage};
    for (int i = 0; i < Cards; ++i) {
        const QRect area = CardKey(i);
        const KeyLooks looks = art.cut(HelpList, area, area, area.height() / 2);
        page.add(imagekit::PageKey{.Where = AreaOf(area),
                                   .InList = 1,
                                   .NormalImage = looks.normal,
                                   .PressImage = looks.pressed,
                                   .TargetPage = answers[i]});
    }
}

/// The bell of each page leads to the messages, the signs of the living room to its ring and to fresh air.
void addWays(imagekit::ImageBuilder& image, KeyArt& art) {
    const auto around = [](const QRect& icon) { return icon.adjusted(-10, -10, 10, 10); };
    for (std::uint16_t page = HomePage; page < layout::NavigationItems; ++page)
        addKey(image.page(page), art, around(layout::Bell), EventsPage);
    for (const PageId page : PagesBehind)
        if (page != EventsPage) addKey(image.page(page), art, around(layout::Bell), EventsPage);
    addKey(image.page(HomePage), art, around(layout::home::Rooms), ThermostatPage);
    addKey(image.page(HomePage), art, around(layout::ventilation::Key), VentilationPage);
}

/// The settings by the rotary encoder: the knob moves a mark from tile to tile, key 1 begins and ends the
/// change of what stands there.
void addSettingsMenu(imagekit::ImageBuilder& image) {
    namespace word = panel::word;
    using imagekit::EncoderStep;
    using imagekit::EncoderValue;
    imagekit::Page& page = image.page(SettingsPage);
    const auto flips = [](std::uint16_t address) {
        return EncoderStep{.Address = address, .Highest = 1, .Wrap = true};
    };
    page.add(imagekit::EncoderMenu{
        .SelectorAddress = words::MenuEntry,
        .Entries = {EncoderValue{.Address = word::Brightness, .Highest = 63, .Lowest = 8, .Step = 5},
                    EncoderValue{.Address = word::Volume, .Highest = 16, .Step = 1}, flips(word::AutoDimming),
                    flips(words::KeyTones), flips(word::Language)}});
    constexpr QSize size(5, 56);
    Canvas canvas(size, Qt::transparent);
    canvas.rounded(QRectF({0, 0}, size), 2.5, colour::Warm);
    const std::uint16_t mark = image.addPicture(imagekit::Pixels{canvas.take().image, format::aRGB8888});
    for (int entry = 0; entry < 5; ++entry) {
        const QRect tile = layout::settings::Tile(entry / 4, entry % 4);
        page.add(imagekit::ValueIcon{.ValueAddress = words::MenuEntry,
                                     .X = U16(tile.x() + 3),
                                     .Y = U16(tile.y() + (tile.height() - size.height()) / 2),
                                     .FirstImage = mark,
                                     .Minimum = U16(entry),
                                     .Maximum = U16(entry)});
    }
}

} // namespace

void AddMotion(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages) {
    KeyArt art(image, pages);
    addRooms(image, art);
    addMessages(image, art);
    addAlarm(image);
    addTips(image);
    addHelp(image, art);
    addWays(image, art);
    addSettingsMenu(image);
}

} // namespace demo
