#include "demo/page_frame.h"

#include "demo/layout.h"

#include <array>

namespace demo {
namespace {

struct NavigationItem {
    Icon icon;
    const char* label;
    const char* title;
    QColor colour;
};

const std::array<NavigationItem, layout::NavigationItems> Items{{
    {Icon::Home, "Home", "Home", colour::Warm},
    {Icon::Radiator, "Heating", "Heating circuit", colour::Hot},
    {Icon::Drop, "Water", "Hot water", colour::Cool},
    {Icon::Chart, "Energy", "Energy", colour::Eco},
    {Icon::Calendar, "Schedule", "Weekly schedule", colour::Violet},
    {Icon::Sliders, "Settings", "Settings", colour::Warm},
    {Icon::Pulse, "Service", "Service and diagnostics", colour::Eco},
}};

void paintItem(Canvas& canvas, int index, bool current) {
    const NavigationItem& item = Items[static_cast<std::size_t>(index)];
    const QRect key = layout::NavigationKey(index);
    if (current) {
        canvas.rounded(key, KeyRadius, colour::Raised);
        canvas.rounded(QRectF(0, key.y() + 16, 4, key.height() - 32), 2, item.colour);
    }
    const QColor ink = current ? item.colour : colour::Muted;
    canvas.icon(item.icon, QRectF(key.x() + 23, key.y() + 9, 26, 26), ink);
    const TextStyle label{11, current ? QFont::DemiBold : QFont::Normal,
                          current ? colour::Text : colour::Muted};
    canvas.text(QRectF(key.x(), key.y() + 38, key.width(), 18), item.label, label, Qt::AlignCenter);
}

void paintStatus(Canvas& canvas) {
    canvas.icon(Icon::Wifi, layout::Wifi, colour::Muted);
    canvas.icon(Icon::Bell, layout::Bell, colour::Muted);
    canvas.rounded(layout::Clock, layout::Clock.height() / 2.0, colour::Card);
}

} // namespace

PageCanvas::PageCanvas(Place place) : PageCanvas(place, Items[static_cast<std::size_t>(place)].title) {}

PageCanvas::PageCanvas(Place place, const QString& title) : Canvas(layout::Screen, colour::Ground) {
    painter().fillRect(layout::Rail, colour::Rail);
    const int current = static_cast<int>(place);
    for (int i = 0; i < layout::NavigationItems; ++i) paintItem(*this, i, i == current);
    text(layout::Title, title, style::Title);
    paintStatus(*this);
}

} // namespace demo
