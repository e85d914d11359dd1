// The demo project as a whole: which page has which picture, the presets, and the values at start.
#pragma once

#include "demo/canvas.h"

#include "imagekit/image_builder.h"

#include <QImage>

#include <cstdint>
#include <vector>

namespace demo {

/// In the order of the image's pages; the first seven are those of the navigation rail.
enum PageId : std::uint16_t {
    HomePage,
    HeatingPage,
    HotWaterPage,
    EnergyPage,
    SchedulePage,
    SettingsPage,
    ServicePage,
    AwayPopup,
    BoostPopup,
    StandbyPage,
    DatePopup,
    KeypadPage, // keyboards, each with a page of its keys pressed
    KeypadPressedPage,
    TextKeyboardPage,
    TextKeyboardPressedPage,
    ChineseKeyboardPage,
    ChineseKeyboardPressedPage,
    GaugesPage,
    ThermostatPage, // a ring to turn
    LivingRoomPage, // rooms, which slide into each other
    BedroomPage,
    KitchenPage,
    EventsPage,
    EventsList, // the picture that is dragged through the window of the page before
    TipsPage,
    TipsList, // likewise, around without an end
    VentilationPage,
    AlarmPopup,
    ForecastPage,
    ForecastList,
    HelpPage,
    HelpList,
};

/// Full pages behind those of the navigation rail, with the same frame.
inline constexpr PageId PagesBehind[] = {GaugesPage,      EventsPage,   TipsPage,
                                         VentilationPage, ForecastPage, HelpPage};

struct PaintedPage {
    const char* name; // of its file, without ending
    QImage image;
    std::uint8_t format;
    std::vector<Caption> captions;
};

/// The group of what lies on the gauge of a page.
inline constexpr std::uint16_t GaugeGroup = 100;
/// And of the clock on the key of the status line.
inline constexpr std::uint16_t ClockGroup = 101;

/// The number of the one sound that the image holds, a chime.
inline constexpr std::uint16_t ChimeSound = 1;

/// All pages, painted, in the order of PageId.
std::vector<PaintedPage> PaintPages();

imagekit::ImageBuilder BuildProject(const std::vector<PaintedPage>& pages);

} // namespace demo
