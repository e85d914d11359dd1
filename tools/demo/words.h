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
    CompressorAngle, // of its gauge, degrees, and so is the next
    PressureAngle,
    BedroomTemperature,
    KitchenTemperature,
    Co2,                 // ppm
    Co2Angle,            // of its gauge, degrees, and so is the next
    WindDirection,       // from which it comes
    RainChance,          // %
    FilterLife,          // %
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
    KeyTones, // 0 or 1
    BedroomTarget,
    KitchenTarget,
    AlarmVolume,
    MenuEntry, // of the settings, by the rotary encoder
    FanLevel,  // of the ventilation: 0 off to 3 high
    SupplyAir, // m3/h, and so is the next
    ExhaustAir,
    TargetHumidity,       // %
    VentilationFlags,     // a bit each: summer bypass, frost protection, filter in order
    Numbers = 0x0240,     // 0, 1 and 2, for keys that copy one of them
    DayPrograms = 0x0250, // seven words from Monday: 0 comfort, 1 eco, 2 night

    // Of the panel itself.
    FanControl = 0x0300, // 0 stands still, 1 turns
    BoostDuration,       // seconds
    BoostTimeLeft,
    BoostControl, // as of a timer: 0 stopped, 1 counting, 2 hidden
    AiringLimit,  // seconds
    AiringTime,
    AiringControl,       // likewise
    Motion,              // Direction of the values that move by themselves
    EventsDone = 0x0310, // 0 or 1, a word an event
    ServicePin = 0x0320, // text of TextWords, and so are the following
    Greeting = 0x0340,   // in the language of the panel, and so is the next
    Weather = 0x0360,

    RoomName = 0x0380, // in GBK, of NameWords
    SupportLink = 0x03A0,
    Message = 0x03C0, // in GBK
};

inline constexpr std::uint16_t TextWords = 0x20; // room of a text
inline constexpr std::uint16_t NameWords = 6;
inline constexpr std::uint16_t MessageWords = 0x38;
inline constexpr std::uint16_t PinWords = 4; // of the PIN, two characters each

/// Channels of the trend chart, fed by the host.
inline constexpr std::uint8_t SupplyChannel = 0, ReturnChannel = 1;

/// Of Motion; any other value stops it.
enum Direction : std::uint16_t { Still, MovingUp, MovingDown, NeverMoving = 0xFFFF };

enum SceneId : std::uint16_t { Comfort, Eco, Night, Away };

/// System words: the page on show, the language.
inline constexpr std::uint16_t Page = 0x7000;
inline constexpr std::uint16_t Language = 0x703F;

} // namespace demo::words
