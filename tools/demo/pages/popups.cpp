#include "demo/canvas.h"
#include "demo/layout.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::popup;

constexpr int WindowRadius = 22;

struct Popup {
    Icon icon;
    QColor colour;
    const char* title;
    const char* description;
    const char* unit;
    const char* confirm;
};

/// Rings of little alpha that add up to a soft edge, a little lower than the window itself.
void paintShadow(Canvas& canvas) {
    for (int ring = Shadow - 4; ring > 0; ring -= 2)
        canvas.rounded(QRectF(Window).adjusted(-ring, 4 - ring, ring, 4 + ring), WindowRadius + ring,
                       Tint(Qt::black, 5));
}

void paintWindow(Canvas& canvas) {
    canvas.painter().setPen(QPen(colour::Track, 1.5));
    canvas.painter().setBrush(colour::Card);
    canvas.painter().drawRoundedRect(QRectF(Window).adjusted(0.75, 0.75, -0.75, -0.75), WindowRadius,
                                     WindowRadius);
}

Art paintPopup(const Popup& popup) {
    Canvas canvas(Picture, Qt::transparent);
    paintShadow(canvas);
    paintWindow(canvas);
    canvas.badge(popup.icon, QRectF(Window.x() + 20, Window.y() + 20, 52, 52), popup.colour);
    const QRectF title(Window.x() + 88, Window.y() + 18, Window.width() - 108, 26);
    canvas.text(title, popup.title, TextStyle{20, QFont::DemiBold, colour::Text});
    canvas.text(QRectF(title.x(), title.bottom() + 4, title.width(), 44), popup.description, style::Caption,
                Qt::AlignLeft | Qt::AlignTop);
    canvas.iconKey(LessKey, Icon::Minus);
    canvas.well(layout::popup::Value, popup.unit);
    canvas.iconKey(MoreKey, Icon::Plus);
    canvas.labelKey(CancelKey, "Cancel", colour::Raised, colour::Text);
    canvas.labelKey(ConfirmKey, popup.confirm, popup.colour, colour::Rail);
    return canvas.take();
}

} // namespace

Art PaintDatePopup() {
    Canvas canvas(Picture, Qt::transparent);
    paintShadow(canvas);
    paintWindow(canvas);
    canvas.text(QRectF(Window.x(), Window.y() + 14, Window.width(), 26), "Date",
                TextStyle{20, QFont::DemiBold, colour::Text}, Qt::AlignCenter);
    for (int i = 0; i < 3; ++i) canvas.well(Drum(i).adjusted(-6, -6, 6, 6));
    canvas.labelKey(CancelKey, "Cancel", colour::Raised, colour::Text);
    canvas.labelKey(ConfirmKey, "Set date", colour::Warm, colour::Rail);
    return canvas.take();
}

Art PaintAlarmPopup() {
    Canvas canvas(Picture, Qt::transparent);
    paintShadow(canvas);
    paintWindow(canvas);
    const QRectF title(Window.x() + 88, Window.y() + 18, Window.width() - 108, 26);
    canvas.text(title, "Low water pressure", TextStyle{20, QFont::DemiBold, colour::Text});
    canvas.text(QRectF(title.x(), title.bottom() + 4, title.width(), 44),
                "Refill the heating water until\nthe pressure is above 1.5 bar.", style::Caption,
                Qt::AlignLeft | Qt::AlignTop);
    canvas.well(Reading, "bar");
    canvas.labelKey(CancelKey, "Later", colour::Raised, colour::Text);
    canvas.labelKey(ConfirmKey, "Done", colour::Warm, colour::Rail);
    return canvas.take();
}

Art PaintAwayPopup() {
    return paintPopup({Icon::Suitcase, colour::Cool, "Away mode",
                       "Keeps the house frost-free and heats up\nagain before you are back.", "days",
                       "Start away mode"});
}

Art PaintBoostPopup() {
    return paintPopup({Icon::Flame, colour::Hot, "Hot water boost",
                       "Heats the whole tank once,\nas fast as the heat pump can.", "min", "Start boost"});
}

} // namespace demo
