#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::events;

struct Event {
    Icon icon;
    QColor colour;
    const char* title;
    const char* details;
};

const Event EventList[Rows] = {
    {Icon::Thermometer, colour::Cool, "Frost tonight", "It is now outdoors, °C"},
    {Icon::Speaker, colour::Warm, "Volume of alarms", "Slide to change it"},
    {Icon::Drop, colour::Cool, "Refill the heating water", "Tap for details"},
    {Icon::Shield, colour::Eco, "Hygiene programme done", "65 °C for 12 minutes"},
    {Icon::Bolt, colour::Sun, "A sunny day", "5.6 kWh of your own power so far"},
    {Icon::Fan, colour::Violet, "Clean the outdoor unit", "Leaves slow its fan down"},
    {Icon::Wifi, colour::Cool, "Connected again", "After two minutes without a network"},
    {Icon::Calendar, colour::Warm, "Service in 212 hours", "Ask for a date now"},
    {Icon::Leaf, colour::Eco, "A good week", "Eleven per cent less than the last one"},
};

void paintEvent(Canvas& canvas, int index) {
    const Event& event = EventList[index];
    const QRect row = Row(index);
    canvas.card(QRectF(row));
    canvas.badge(event.icon, QRectF(row.x() + 16, row.y() + 13, 40, 40), event.colour);
    canvas.text(QRectF(row.x() + 72, row.y() + 11, 330, 22), event.title, style::Heading);
    canvas.text(QRectF(row.x() + 72, row.y() + 35, 330, 18), event.details, style::Caption);
    if (index == 0) canvas.well(Value);
    if (index == 1) canvas.sliderTrack(Slider, 9);
    if (index > 1) canvas.switchTrack(Switch(index));
}

} // namespace

Art PaintEvents() {
    PageCanvas canvas(Place::Home, "Messages");
    canvas.labelKey(layout::tips::Key, "Tips", colour::Raised, colour::Text);
    return canvas.take();
}

Art PaintEventsList() {
    Canvas canvas({Window.width(), Rows * RowHeight - 10}, colour::Ground);
    for (int i = 0; i < Rows; ++i) paintEvent(canvas, i);
    return canvas.take();
}

} // namespace demo
