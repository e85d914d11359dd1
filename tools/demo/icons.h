// The demo's icons: line drawings on a grid of 24 x 24 units.
#pragma once

#include <QPainterPath>

namespace demo {

enum class Icon {
    Home,
    Radiator,
    Drop,
    Chart,
    Calendar,
    Sliders,
    Pulse,
    Sun,
    Leaf,
    Suitcase,
    Flame,
    Snowflake,
    Wifi,
    Bell,
    Plus,
    Minus,
    Bolt,
    Globe,
    Clock,
    Speaker,
    Brightness,
    Moon,
    Shield,
    Loop,
    Fan,
    Thermometer,
    Check,
    Copy,
    ChevronRight,
    Wind,
};

inline constexpr int IconGrid = 24;

/// The lines of an icon, to be stroked with round ends.
QPainterPath IconPath(Icon icon);

} // namespace demo
