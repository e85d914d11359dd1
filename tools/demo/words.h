// The variables of the demo project: what each word of the panel's memory means to its pages.
#pragma once

#include <cstdint>

namespace demo::words {

enum Word : std::uint16_t {
    // Measured by the heat pump. Temperatures are in tenths of a degree.
    RoomTemperature = 0x0100,
    OutdoorTemperature,
    Humidity,  // %
    WindSpeed, // tenths of m/s
    SupplyTemperature,
    ReturnTemperature,
    BufferTemperature,
    TankUpperTemperature,
    TankLowerTemperature,
    FlowRate,        // l/h
    WaterPressure,   // tenths of a bar
    PowerLevel,      // %
    CompressorSpeed, // Hz
    FanSpeed,        // rpm
    HighPressure,    // tenths of a bar
    LowPressure,
    DischargeTemperature,
    SuctionTemperature,
    ValveOpening, // %
    OperatingHours,
    ElectricityToday, // tenths of a kWh
    HeatToday,
    SolarToday,
    Efficiency,   // hundredths
    ShareHeating, // %
    ShareHotWater,
    ShareStandby,
    WeekEnergy = 0x0140, // seven words from Monday, tenths of a kWh

    // Set by the user.
    RoomTarget = 0x0200,
    Scene,      // SceneId
    CurveSlope, // hundredths
    CurveShift, // K, signed
    WaterTarget,
    WaterMode,   // 0 eco, 1 comfort, 2 boost
    Circulation, // 0 or 1, and so are the following two
    Hygiene,
    ChildLock,
    AwayDays,
    BoostMinutes,
};

enum SceneId : std::uint16_t { Comfort, Eco, Night, Away };

/// System word: the page on show.
inline constexpr std::uint16_t Page = 0x7000;

} // namespace demo::words
