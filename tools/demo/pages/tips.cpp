#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::tips;

struct Tip {
    Icon icon;
    QColor colour;
    const char* title;
    const char* text;
};

const Tip TipCards[Cards] = {
    {Icon::Wind, colour::Cool, "Air briefly",
     "Five minutes with wide\nopen windows beat an\nhour with tilted ones."},
    {Icon::Thermometer, colour::Warm, "One degree less",
     "Each degree that a room\nis cooler saves about\nsix per cent of heat."},
    {Icon::Sun, colour::Sun, "Use your sun",
     "Heat water around noon,\nwhen the roof has more\npower than the house."},
    {Icon::Radiator, colour::Hot, "Keep it free",
     "A floor under thick\ncarpets warms the room\nlate and costs more."},
    {Icon::Leaf, colour::Eco, "Slow and steady",
     "A heat pump likes an even\npace: lower the slope,\nnot the target."},
};

void paintTip(Canvas& canvas, int index) {
    const Tip& tip = TipCards[index];
    const QRect card = Card(index);
    const QPointF middle = QRectF(card).center();
    canvas.card(QRectF(card));
    canvas.badge(tip.icon, QRectF(middle.x() - 56, card.y() + 54, 112, 112), tip.colour);
    const QRectF words(card.x() + 8, card.y() + 196, card.width() - 16, 30);
    canvas.text(words, tip.title, TextStyle{19, QFont::DemiBold, colour::Text}, Qt::AlignCenter);
    const QStringList lines = QString(tip.text).split('\n');
    for (int line = 0; line < lines.size(); ++line)
        canvas.text(QRectF(words.x(), card.y() + 240 + 24 * line, words.width(), 24), lines[line],
                    style::Body.in(colour::Muted), Qt::AlignCenter);
}

} // namespace

Art PaintTips() { return PageCanvas(Place::Home, "Tips").take(); }

Art PaintTipsList() {
    Canvas canvas({Cards * CardWidth, Window.height()}, colour::Ground);
    for (int i = 0; i < Cards; ++i) paintTip(canvas, i);
    return canvas.take();
}

} // namespace demo
