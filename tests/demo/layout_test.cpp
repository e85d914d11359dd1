#include "demo/layout.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace demo::layout;

TEST(Layout, KeepsWhatIsPlacedByHandInsideAndApart) {
    const struct {
        const char* name;
        QRect bounds;
        std::vector<QRect> places; // keys and live values
    } pages[] = {
        {"frame", QRect({0, 0}, Screen), {Rail, Title, Wifi, Bell, Clock, Content}},
        {"home",
         Content,
         {home::RoomValue, home::TargetValue, home::ColderKey, home::WarmerKey, home::Weather,
          home::OutdoorValue, home::HumidityValue, home::WindValue, home::SupplyValue, home::ReturnValue,
          home::Fan, home::Status, home::PowerBar, home::SceneRow}},
        {"heating",
         Content,
         {heating::Fan, heating::SupplyValue, heating::ReturnValue, heating::BufferValue, heating::FlowValue,
          heating::PressureValue, heating::CurvePlot, heating::SlopeSlider, heating::SlopeValue,
          heating::ShiftSlider, heating::ShiftValue}},
        {"water",
         Content,
         {water::Tank, water::TankTopValue, water::TankBottomValue, water::BoostTime, water::TargetValue,
          water::LessKey, water::MoreKey, water::TargetSlider, water::ModeRow, water::OptionCard}}};
    for (const auto& page : pages)
        for (std::size_t i = 0; i < page.places.size(); ++i) {
            EXPECT_TRUE(page.bounds.contains(page.places[i])) << page.name << " place " << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(page.places[i].intersects(page.places[j])) << page.name << ' ' << j << ' ' << i;
        }
}

} // namespace
