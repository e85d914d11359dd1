#include "demo/layout.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace demo::layout;

TEST(Layout, KeepsPlacesInsideAndApart) {
    struct Page {
        const char* name;
        QRect bounds;
        std::vector<QRect> places; // keys and live values, which widgets are going to fill
    };
    using Places = std::vector<QRect>;
    const auto row = [](Places places, int count, auto placeOf) {
        for (int i = 0; i < count; ++i) places.push_back(placeOf(i));
        return places;
    };
    const Places homeValues{home::Fan,           home::Status,    home::Weather,     home::RoomValue,
                            home::TargetValue,   home::ColderKey, home::WarmerKey,   home::OutdoorValue,
                            home::HumidityValue, home::WindValue, home::SupplyValue, home::ReturnValue,
                            home::PowerBar};
    const Places heatingValues{heating::Fan,         heating::SupplyValue, heating::ReturnValue,
                               heating::BufferValue, heating::FlowValue,   heating::PressureValue,
                               heating::CurvePlot,   heating::SlopeSlider, heating::SlopeValue,
                               heating::ShiftSlider, heating::ShiftValue};
    const Places waterValues{
        water::Tank,        water::BoostTime, water::TankTopValue, water::TankBottomValue,
        water::TargetValue, water::LessKey,   water::MoreKey,      water::TargetSlider};
    const Page pages[] = {
        {"frame", QRect({0, 0}, Screen),
         row({Title, Wifi, Bell, Clock, Content}, NavigationItems, NavigationKey)},
        {"home", Content, row(homeValues, 4, home::SceneKey)},
        {"heating", Content, heatingValues},
        {"water", Content, row(row(waterValues, 3, water::ModeKey), 2, water::OptionSwitch)},
        {"energy", Content,
         row(row(row({energy::ShareValue}, 4, energy::FigureValue), 3, energy::ShareRowValue), 7,
             energy::DayBar)},
        {"schedule", Content, row(row({}, 7, schedule::DayTrack), 4, schedule::ProgramKey)},
        {"settings", Content, row({}, 8, [](int i) { return settings::Tile(i / 4, i % 4); })},
        {"service", Content,
         row({service::QrCode, service::ServicePin, service::CircuitCard}, service::Readings,
             service::ReadingValue)},
        {"popup",
         popup::Window,
         {popup::LessKey, popup::Value, popup::MoreKey, popup::CancelKey, popup::ConfirmKey}}};
    for (const Page& page : pages)
        for (std::size_t i = 0; i < page.places.size(); ++i) {
            EXPECT_TRUE(page.bounds.contains(page.places[i])) << page.name << " place " << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(page.places[i].intersects(page.places[j])) << page.name << ' ' << j << ' ' << i;
        }
}

} // namespace
