#include "demo/controls.h"

#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/words.h"

#include "imagekit/icon_widgets.h"
#include "imagekit/touch_controls.h"

#include "store/system_words.h"

#include <optional>

namespace demo {
namespace {

namespace panelWord = panel::word;

/// What a key shows when a word has a certain value.
struct Choice {
    words::Word word;
    int value;
    QColor colour;
};

/// The controls of one image as they are being added.
class Builder {
public:
    Builder(imagekit::ImageBuilder& image, Texts& texts, const std::vector<PaintedPage>& pages)
        : image_(image), texts_(texts), pages_(pages), art_(image, pages), groups_(pages.size(), 0),
          captionTaken_(pages.size()) {
        for (std::size_t i = 0; i < pages.size(); ++i) captionTaken_[i].resize(pages[i].captions.size());
    }

    /// A key with all that lies on it: its captions, and a mark while its choice is the one in force.
    template <class Key>
    void key(PageId page, const QRect& area, int radius, Key key, const Choice* choice = nullptr) {
        const KeyLooks looks = art_.cut(page, area, area, radius);
        key.Where = AreaOf(area);
        key.NormalImage = looks.normal;
        key.PressImage = looks.pressed;
        key.OverlayGroup = groupOn(page, area, choice);
        image_.page(page).add(key);
    }

    /// A key that can carry no texts: a finger lights only the round piece of it that `lit` names. The look
    /// begins at the key's top left corner.
    template <class Key>
    void plainKey(PageId page, const QRect& area, const QRect& lit, Key key) {
        const QRect piece = area & QRect(area.topLeft(), lit.bottomRight() + QPoint(4, 4));
        const KeyLooks looks = art_.cut(page, piece, lit, lit.height() / 2);
        key.Where = AreaOf(area);
        key.NormalImage = looks.normal;
        key.PressImage = looks.pressed;
        image_.page(page).add(key);
    }

    void roundStep(PageId page, const QRect& area, const imagekit::StepKey& key) {
        plainKey(page, area, area, key);
    }

    void onOff(PageId page, const QRect& area, std::uint16_t word, const QString& name) {
        AddSwitch(image_.page(page), art_, area, word, name);
    }
    void slider(PageId page, const QRect& track, std::uint16_t word, const SliderScale& scale,
                const QString& name) {
        AddSlider(image_.page(page), art_, track, word, scale, name);
    }

    void drum(PageId page, const QRect& window, std::uint16_t word, int lowest,
              const std::vector<QString>& cells, bool stops) {
        const QSize cell(window.width(), window.height() / 3);
        image_.page(page).add(imagekit::RollerPicker{
            .Address = word,
            .Window = {U16(window.x()), U16(window.y()), U16(window.x() + window.width()),
                       U16(window.y() + window.height())},
            .MarginA = U16(cell.height()),
            .MarginB = U16(cell.height()),
            .StopsAtEnds = stops,
            .SelectedStrip = art_.opaque(DrumStrip(cells, cell, true)),
            .NormalStrip = art_.opaque(DrumStrip(cells, cell, false)),
            .Lowest = U16(lowest),
            .Highest = U16(lowest + static_cast<int>(cells.size()) - 1)});
    }

    /// A mark of its own, beside a key that carries none.
    void mark(PageId page, const QRect& card, const Choice& choice) {
        image_.page(page).add(markOn(card, choice));
    }

    /// A dot in the colour of a value.
    void dot(PageId page, QPoint at, std::uint16_t word, const std::vector<QColor>& colours) {
        std::vector<std::uint16_t> pictures;
        for (const QColor& colour : colours) pictures.push_back(art_.withAlpha(Dot(10, colour)));
        image_.page(page).add(imagekit::ValueIcon{.ValueAddress = word,
                                                  .X = U16(at.x()),
                                                  .Y = U16(at.y()),
                                                  .FirstImage = pictures.front(),
                                                  .Maximum = U16(static_cast<int>(colours.size()) - 1)});
    }

    /// Leaves the captions of an area to the group of the page's gauge.
    void captionsOnGauge(PageId page, const QRect& area) { addCaptions(page, area, GaugeGroup); }

    /// The captions that are on no key. Those of a list's picture belong to the page that shows it.
    void addOtherCaptions() {
        for (std::uint16_t page = 0; page < pages_.size(); ++page) {
            const std::optional<PageId> host = hostOf(page);
            for (std::size_t i = 0; i < pages_[page].captions.size(); ++i) {
                if (captionTaken_[page][i]) continue;
                imagekit::Label label = texts_.caption(pages_[page].captions[i]);
                if (host) putOnCard(label);
                image_.page(host.value_or(static_cast<PageId>(page))).add(label);
            }
        }
    }

private:
    static constexpr int MarkSize = 16;

    static std::optional<PageId> hostOf(std::uint16_t page) {
        switch (page) {
        case EventsList: return EventsPage;
        case TipsList: return TipsPage;
        case ForecastList: return ForecastPage;
        case HelpList: return HelpPage;
        default: return {};
        }
    }

    imagekit::ValueIcon markOn(const QRect& card, const Choice& choice) {
        return {.ValueAddress = choice.word,
                .X = U16(card.right() - MarkSize - 8),
                .Y = U16(card.y() + 9),
                .FirstImage = art_.withAlpha(ChosenMark(MarkSize, choice.colour)),
                .Minimum = U16(choice.value),
                .Maximum = U16(choice.value)};
    }

    /// On a list a text that shows what is behind it would also clean its place on the page.
    void putOnCard(imagekit::Label& label) const {
        label.InList = true;
        label.Opaque = true;
        label.BackColour = image_.colour(colour::Card);
    }

    /// Whether there were any.
    bool addCaptions(PageId page, const QRect& area, std::uint16_t group) {
        bool used = false;
        for (std::size_t i = 0; i < pages_[page].captions.size(); ++i) {
            const Caption& caption = pages_[page].captions[i];
            if (captionTaken_[page][i] || !area.contains(caption.area)) continue;
            image_.page(page).addToGroup(group, texts_.caption(caption));
            captionTaken_[page][i] = used = true;
        }
        return used;
    }

    std::uint16_t groupOn(PageId page, const QRect& area, const Choice* choice) {
        const std::uint16_t group = groups_[page];
        const bool used = addCaptions(page, area, group);
        if (choice) image_.page(page).addToGroup(group, markOn(area, *choice));
        if (!used && !choice) return imagekit::None;
        ++groups_[page];
        return group;
    }

    imagekit::ImageBuilder& image_;
    Texts& texts_;
    const std::vector<PaintedPage>& pages_;
    KeyArt art_;
    std::vector<std::uint16_t> groups_; // the next free id of each page
    std::vector<std::vector<bool>> captionTaken_;
};

imagekit::StepKey stepOf(std::uint16_t word, bool up, int step, int lowest, int highest) {
    return {
        .Address = word, .Up = up, .Step = U16(step), .Highest = highest, .Lowest = lowest, .Repeat = true};
}

/// Writes a word at a click, and then changes the page.
imagekit::MultiKey writing(std::uint16_t word, int value, std::uint16_t target = imagekit::None) {
    return {.Click = {.Enabled = true, .TargetPage = target, .Address = word, .Value = U16(value)}};
}

/// Copies one of the words 0, 1, 2 that the image holds for it.
imagekit::CopyKey choosing(std::uint16_t word, int value, std::uint16_t target = imagekit::None) {
    return {.TargetPage = target, .Destination = word, .Source = U16(words::Numbers + value)};
}

imagekit::PopupKey opening(PageId popup) {
    return {.Page = popup,
            .PopupX = U16(layout::popup::Origin.x()),
            .PopupY = U16(layout::popup::Origin.y()),
            .Dim = true};
}

void addNavigationKey(Builder& controls, PageId page, std::uint16_t target) {
    controls.key(page, layout::NavigationKey(target), KeyRadius,
                 imagekit::PageKey{.Notify = true, .NotifyCode = target, .TargetPage = target});
}

void addNavigation(Builder& controls) {
    for (std::uint16_t page = HomePage; page < layout::NavigationItems; ++page)
        for (std::uint16_t target = HomePage; target < layout::NavigationItems; ++target)
            if (target != page) addNavigationKey(controls, static_cast<PageId>(page), target);
    for (const PageId page : PagesBehind)
        for (std::uint16_t target = HomePage; target < layout::NavigationItems; ++target)
            addNavigationKey(controls, page, target);
}

void addHome(Builder& controls) {
    using namespace layout::home;
    controls.captionsOnGauge(HomePage, {DialCentre - QPoint(70, 70), QSize(140, 140)});
    controls.roundStep(HomePage, ColderKey, stepOf(words::RoomTarget, false, 5, 50, 300));
    controls.roundStep(HomePage, WarmerKey, stepOf(words::RoomTarget, true, 5, 50, 300));
    controls.key(HomePage, layout::forecast::Key, KeyRadius, imagekit::PageKey{.TargetPage = ForecastPage});
    const QColor colours[] = {colour::Warm, colour::Eco, colour::Violet, colour::Cool};
    for (int scene = words::Comfort; scene < words::Away; ++scene) {
        const Choice choice{words::Scene, scene, colours[scene]};
        controls.key(HomePage, SceneKey(scene), CardRadius, writing(panelWord::PagePreset, scene + 1),
                     &choice);
    }
    const QRect away = SceneKey(words::Away);
    controls.plainKey(HomePage, away, {away.x() + 10, away.y() + 17, 50, 50}, opening(AwayPopup));
    controls.mark(HomePage, away, {words::Scene, words::Away, colour::Cool});
}

void addHeating(Builder& controls) {
    using namespace layout::heating;
    controls.slider(HeatingPage, SlopeSlider, words::CurveSlope, {20, 200, colour::Warm, colour::Hot},
                    "Curve slope");
    controls.slider(HeatingPage, ShiftSlider, words::CurveShift, {-5, 5, colour::Cool, colour::Warm},
                    "Curve shift");
}

void addHotWater(Builder& controls) {
    using namespace layout::water;
    controls.roundStep(HotWaterPage, LessKey, stepOf(words::WaterTarget, false, 5, 350, 650));
    controls.roundStep(HotWaterPage, MoreKey, stepOf(words::WaterTarget, true, 5, 350, 650));
    controls.slider(HotWaterPage, TargetSlider, words::WaterTarget, {350, 650, colour::Cool, colour::Hot},
                    "Hot water target temperature");
    const QColor colours[] = {colour::Eco, colour::Warm, colour::Hot};
    for (int mode = 0; mode < 2; ++mode) {
        const Choice choice{words::WaterMode, mode, colours[mode]};
        controls.key(HotWaterPage, ModeKey(mode), CardRadius, choosing(words::WaterMode, mode), &choice);
    }
    const QRect boost = ModeKey(2);
    controls.plainKey(HotWaterPage, boost, {boost.x() + boost.width() / 2 - 24, boost.y() + 8, 48, 48},
                      opening(BoostPopup));
    controls.mark(HotWaterPage, boost, {words::WaterMode, 2, colours[2]});
    controls.onOff(HotWaterPage, OptionSwitch(0), words::Circulation, "Circulation");
    controls.onOff(HotWaterPage, OptionSwitch(1), words::Hygiene, "Hygiene programme");
}

void addSchedule(Builder& controls) {
    using namespace layout::schedule;
    const std::vector<QColor> colours{colour::Warm, colour::Eco, colour::Violet};
    for (int program = 0; program < 3; ++program) {
        const Choice choice{words::DayPrograms, program, colours[static_cast<std::size_t>(program)]};
        controls.key(SchedulePage, ProgramKey(program), CardRadius, choosing(words::DayPrograms, program),
                     &choice);
    }
    // The copy goes upwards, word by word: Monday ends up on every day.
    controls.key(SchedulePage, ProgramKey(3), CardRadius,
                 imagekit::CopyKey{.Notify = true,
                                   .NotifyCode = 0x0100,
                                   .Destination = words::DayPrograms + 1,
                                   .Source = words::DayPrograms,
                                   .WordCount = 6});
    for (int day = 0; day < 7; ++day)
        controls.dot(SchedulePage, {layout::Left + 4, DayTrack(day).y() + 8}, U16(words::DayPrograms + day),
                     colours);
}

void addEnergyAndService(Builder& controls) {
    using namespace layout;
    controls.captionsOnGauge(EnergyPage, {energy::ShareCentre - QPoint(50, 50), QSize(100, 100)});
    controls.key(ServicePage, service::CircuitCard, CardRadius, imagekit::PageKey{.TargetPage = GaugesPage});
    controls.key(ServicePage, help::Key, KeyRadius, imagekit::PageKey{.TargetPage = HelpPage});
}

void addRoomsAndTips(Builder& controls) {
    const QPoint centre = layout::rooms::Centre;
    for (const PageId page : {ThermostatPage, LivingRoomPage, BedroomPage, KitchenPage})
        controls.captionsOnGauge(page, {centre - QPoint(110, 110), QSize(220, 260)});
    controls.key(EventsPage, layout::tips::Key, KeyRadius, imagekit::PageKey{.TargetPage = TipsPage});
}

void addSettings(Builder& controls) {
    using namespace layout::settings;
    const auto badge = [](const QRect& tile) { return QRect(tile.x() + 10, tile.y() + 21, 48, 48); };
    controls.slider(SettingsPage, TileSlider(Tile(0, 0)), panelWord::Brightness,
                    {8, 63, colour::Warm, colour::Sun}, "Brightness");
    controls.slider(SettingsPage, TileSlider(Tile(0, 1)), panelWord::Volume,
                    {0, 16, colour::Cool, colour::Cool}, "Volume");
    controls.onOff(SettingsPage, TileSwitch(Tile(0, 2)), panelWord::AutoDimming, "Auto-dimming");
    controls.onOff(SettingsPage, TileSwitch(Tile(0, 3)), words::KeyTones, "Key tones");
    const QRect bell = badge(Tile(0, 3));
    controls.key(SettingsPage, bell, bell.height() / 2, writing(panelWord::Music, ChimeSound));
    imagekit::StepKey language = stepOf(panelWord::Language, true, 1, 0, LanguageIds - 1);
    language.Wrap = true;
    language.Repeat = false;
    controls.plainKey(SettingsPage, Tile(1, 0), badge(Tile(1, 0)), language);
    controls.plainKey(SettingsPage, Tile(1, 1), badge(Tile(1, 1)), opening(DatePopup));
    // A hold locks, two clicks free, one click only tells the host.
    const QRect lock = badge(Tile(1, 3));
    imagekit::MultiKey childLock{
        .Notify = true,
        .Click = {.Enabled = true, .NotifyCode = 0x0200},
        .DoubleClick = {.Enabled = true, .NotifyCode = 0x0201, .Address = words::ChildLock, .Value = 0},
        .LongPress = {.Enabled = true, .NotifyCode = 0x0202, .Address = words::ChildLock, .Value = 1}};
    controls.key(SettingsPage, lock, lock.height() / 2, childLock);
    controls.onOff(SettingsPage, TileSwitch(Tile(1, 3)), words::ChildLock, "Child lock");
}

void addPopups(Builder& controls) {
    using namespace layout::popup;
    controls.roundStep(AwayPopup, LessKey, stepOf(words::AwayDays, false, 1, 1, 99));
    controls.roundStep(AwayPopup, MoreKey, stepOf(words::AwayDays, true, 1, 1, 99));
    controls.key(AwayPopup, CancelKey, KeyRadius, imagekit::PageKey{.TargetPage = HomePage});
    controls.key(AwayPopup, ConfirmKey, KeyRadius, writing(panelWord::PagePreset, words::Away + 1));
    controls.roundStep(BoostPopup, LessKey, stepOf(words::BoostMinutes, false, 5, 5, 90));
    controls.roundStep(BoostPopup, MoreKey, stepOf(words::BoostMinutes, true, 5, 5, 90));
    controls.key(BoostPopup, CancelKey, KeyRadius, imagekit::PageKey{.TargetPage = HotWaterPage});
    controls.key(BoostPopup, ConfirmKey, KeyRadius, choosing(words::WaterMode, 2, HotWaterPage));
}

void addAlarmPopup(Builder& controls) {
    using namespace layout::popup;
    controls.key(AlarmPopup, CancelKey, KeyRadius, imagekit::PageKey{.TargetPage = EventsPage});
    controls.key(AlarmPopup, ConfirmKey, KeyRadius, writing(words::EventsDone + 2, 1, EventsPage));
}

std::vector<QString> numbers(int first, int last) {
    std::vector<QString> texts;
    for (int number = first; number <= last; ++number)
        texts.push_back(QString("%1").arg(number, 2, 10, QChar('0')));
    return texts;
}

void addDatePopup(Builder& controls) {
    using namespace layout::popup;
    controls.drum(DatePopup, Drum(0), panelWord::Year, 20, numbers(2020, 2049), true);
    controls.drum(DatePopup, Drum(1), panelWord::Month, 1, numbers(1, 12), false);
    controls.drum(DatePopup, Drum(2), panelWord::Day, 1, numbers(1, 31), false);
    controls.key(DatePopup, CancelKey, KeyRadius, imagekit::PageKey{.TargetPage = SettingsPage});
    controls.key(DatePopup, ConfirmKey, KeyRadius, writing(panelWord::SetTime, 1, SettingsPage));
}

} // namespace

void AddControls(imagekit::ImageBuilder& image, Texts& texts, const std::vector<PaintedPage>& pages) {
    Builder controls(image, texts, pages);
    addNavigation(controls);
    addHome(controls);
    addHeating(controls);
    addHotWater(controls);
    addEnergyAndService(controls);
    addRoomsAndTips(controls);
    addSchedule(controls);
    addSettings(controls);
    addPopups(controls);
    addDatePopup(controls);
    addAlarmPopup(controls);
    controls.addOtherCaptions();
}

} // namespace demo
