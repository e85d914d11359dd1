#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::settings;

enum class Control { Slider, Switch, Value, Name };

struct Setting {
    Icon icon;
    QColor colour;
    Control control;
    const char* name;
    const char* description;     // none beside a slider
    const char* value = nullptr; // of Control::Value
};

const Setting Settings[2][4] = {
    {{Icon::Brightness, colour::Sun, Control::Slider, "Brightness", nullptr},
     {Icon::Speaker, colour::Cool, Control::Slider, "Volume", nullptr},
     {Icon::Moon, colour::Violet, Control::Switch, "Auto-dimming", "Dims when nobody is near"},
     {Icon::Bell, colour::Warm, Control::Switch, "Key tones", "A click at every touch"}},
    {{Icon::Globe, colour::Eco, Control::Value, "Language", "Of this display", "English"},
     {Icon::Clock, colour::Warm, Control::Value, "Date and time", "Of this display", "Change"},
     {Icon::Home, colour::Cool, Control::Name, "Room", "Tap to name"},
     {Icon::Shield, colour::Hot, Control::Switch, "Child lock", "Hold to lock, tap twice to free"}},
};

void paintChevron(Canvas& canvas, const QRect& tile) {
    canvas.icon(Icon::ChevronRight, QRectF(tile.right() - 35, tile.y() + 36, 20, 20), colour::Faint, 2.2);
}

void paintControl(Canvas& canvas, const QRect& tile, const Setting& setting) {
    switch (setting.control) {
    case Control::Slider: canvas.sliderTrack(TileSlider(tile), 9); break;
    case Control::Switch: canvas.switchTrack(TileSwitch(tile)); break;
    case Control::Value:
        canvas.well(TileValue(tile));
        canvas.text(TileValue(tile), setting.value, style::Small.in(colour::Text), Qt::AlignCenter);
        paintChevron(canvas, tile);
        break;
    case Control::Name:
        canvas.well(TileName(tile));
        paintChevron(canvas, tile);
        break;
    }
}

void paintTile(Canvas& canvas, const QRect& tile, const Setting& setting) {
    canvas.card(tile);
    canvas.badge(setting.icon, QRectF(tile.x() + 14, tile.y() + 25, 40, 40), setting.colour);
    const int top = setting.control == Control::Slider ? 20 : 25;
    const int room = setting.control == Control::Value ? 140 : 190;
    const QRectF name(tile.x() + 68, tile.y() + top, room, 21);
    canvas.text(name, setting.name, style::Heading);
    if (setting.description) canvas.text(name.translated(0, 22), setting.description, style::Small);
    paintControl(canvas, tile, setting);
}

} // namespace

Art PaintSettings() {
    PageCanvas canvas(Place::Settings);
    for (int column = 0; column < 2; ++column)
        for (int row = 0; row < 4; ++row) paintTile(canvas, Tile(column, row), Settings[column][row]);
    return canvas.take();
}

} // namespace demo
