#include "demo/layout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace demo::layout;

/// A page's keys and places of live values, which widgets are going to fill.
struct PagePlaces {
    const char* name;
    QRect bounds;
    std::vector<QRect> places;
};

template <class PlaceOf>
void append(std::vector<QRect>& places, int count, PlaceOf placeOf) {
    for (int i = 0; i < count; ++i) places.push_back(placeOf(i));
}

std::vector<PagePlaces> allPages() {
    PagePlaces frame{"Frame", QRect({0, 0}, Screen), {Title, Wifi, Bell, Clock, Content}};
    append(frame.places, NavigationItems, NavigationKey);
    PagePlaces homePage{"Home",
                        Content,
                        {home::RoomValue, home::TargetValue, home::ColderKey, home::WarmerKey,
                         home::OutdoorValue, home::HumidityValue, home::WindValue, home::SupplyValue,
                         home::ReturnValue, home::PowerBar}};
    append(homePage.places, 4, home::SceneKey);
    PagePlaces heatingPage{"Heating",
                           Content,
                           {heating::SupplyValue, heating::ReturnValue, heating::BufferValue,
                            heating::FlowValue, heating::PressureValue, heating::CurvePlot,
                            heating::SlopeSlider, heating::SlopeValue, heating::ShiftSlider,
                            heating::ShiftValue}};
    PagePlaces waterPage{"HotWater",
                         Content,
                         {water::Tank, water::TankTopValue, water::TankBottomValue, water::TargetValue,
                          water::LessKey, water::MoreKey, water::TargetSlider}};
    append(waterPage.places, 3, water::ModeKey);
    append(waterPage.places, 2, water::OptionSwitch);
    PagePlaces energyPage{"Energy", Content, {energy::ShareValue}};
    append(energyPage.places, 4, energy::FigureValue);
    append(energyPage.places, 7, energy::DayBar);
    PagePlaces schedulePage{"Schedule", Content, {}};
    append(schedulePage.places, 7, schedule::DayTrack);
    append(schedulePage.places, 4, schedule::ProgramKey);
    PagePlaces settingsPage{"Settings", Content, {}};
    append(settingsPage.places, 8, [](int i) { return settings::Tile(i / 4, i % 4); });
    PagePlaces servicePage{"Service", Content, {service::QrCode, service::CircuitCard}};
    append(servicePage.places, service::Readings, service::ReadingValue);
    PagePlaces popupWindow{
        "Popup",
        popup::Window,
        {popup::LessKey, popup::Value, popup::MoreKey, popup::CancelKey, popup::ConfirmKey}};
    return {frame,        homePage,     heatingPage, waterPage,  energyPage,
            schedulePage, settingsPage, servicePage, popupWindow};
}

class Layout : public ::testing::TestWithParam<PagePlaces> {};

TEST_P(Layout, KeepsPlacesInsideAndApart) {
    const PagePlaces& page = GetParam();
    for (std::size_t i = 0; i < page.places.size(); ++i) {
        EXPECT_TRUE(page.bounds.contains(page.places[i])) << "place " << i;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(page.places[i].intersects(page.places[j])) << "places " << j << " and " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, Layout, ::testing::ValuesIn(allPages()),
                         [](const auto& page) { return std::string(page.param.name); });

TEST(Layout, PutsSettingsControlsInsideTheirTiles) {
    for (int column = 0; column < 2; ++column)
        for (int row = 0; row < 4; ++row) {
            const QRect tile = settings::Tile(column, row);
            for (const QRect& control :
                 {settings::TileSlider(tile), settings::TileValue(tile), settings::TileSwitch(tile)})
                EXPECT_TRUE(tile.contains(control));
        }
}

TEST(Layout, CentresThePopupOverTheContent) {
    const QRect window = popup::Window.translated(popup::Origin);
    EXPECT_TRUE(Content.contains(window));
    EXPECT_LE((window.center() - Content.center()).manhattanLength(), 40);
}

} // namespace
