// Colours, type and measures of the demo's look, in one place.
#pragma once

#include <QColor>
#include <QFont>

namespace demo {

/// A colour that 16-bit pictures hold exactly, so that pages of different pixel formats match.
constexpr QColor Rgb16(int red, int green, int blue) {
    const int r = (red * 31 + 127) / 255, g = (green * 63 + 127) / 255, b = (blue * 31 + 127) / 255;
    return {(r * 255 + 15) / 31, (g * 255 + 31) / 63, (b * 255 + 15) / 31};
}

namespace colour {
inline constexpr QColor Ground = Rgb16(14, 20, 31);
inline constexpr QColor Rail = Rgb16(9, 13, 21);
inline constexpr QColor Card = Rgb16(25, 34, 49);
inline constexpr QColor CardEdge = Rgb16(42, 54, 73);
inline constexpr QColor Well = Rgb16(16, 20, 33);   // where a live value stands; the ground shows through
inline constexpr QColor Raised = Rgb16(41, 54, 75); // keys
inline constexpr QColor Track = Rgb16(48, 61, 83);
inline constexpr QColor Text = Rgb16(241, 245, 250);
inline constexpr QColor Muted = Rgb16(154, 168, 189);
inline constexpr QColor Faint = Rgb16(104, 119, 143);
inline constexpr QColor Warm = Rgb16(255, 149, 64);
inline constexpr QColor Hot = Rgb16(255, 92, 74);
inline constexpr QColor Cool = Rgb16(77, 163, 255);
inline constexpr QColor Eco = Rgb16(63, 204, 149);
inline constexpr QColor Sun = Rgb16(255, 205, 84);
inline constexpr QColor Violet = Rgb16(160, 134, 255);
} // namespace colour

struct TextStyle {
    int size; // px
    QFont::Weight weight;
    QColor colour;

    constexpr TextStyle in(const QColor& other) const { return {size, weight, other}; }
};

namespace style {
inline constexpr TextStyle Title{26, QFont::DemiBold, colour::Text};
inline constexpr TextStyle Heading{16, QFont::DemiBold, colour::Text};
inline constexpr TextStyle Body{14, QFont::Medium, colour::Text};
inline constexpr TextStyle Caption{13, QFont::Normal, colour::Muted};
inline constexpr TextStyle Small{12, QFont::Normal, colour::Muted};
inline constexpr TextStyle Scale{11, QFont::Normal, colour::Muted};
} // namespace style

inline constexpr int CardRadius = 16;
inline constexpr int KeyRadius = 12;
inline constexpr int WellRadius = 8;

/// `colour` with `percent` of its full opacity.
QColor Tint(const QColor& colour, int percent);

/// Names of the faces for texts of all languages, the preferred one first.
QString ThemeFaces();

/// A font of that style in the best open face that is installed.
QFont ThemeFont(const TextStyle& style);

} // namespace demo
