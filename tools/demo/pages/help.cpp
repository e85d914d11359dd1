#include "demo/layout.h"
#include "demo/page_frame.h"
#include "demo/pages/pages.h"

namespace demo {
namespace {

using namespace layout::help;

struct Question {
    Icon icon;
    QColor colour;
    const char* question;
    const char* answer;
};

const Question Questions[Cards] = {
    {Icon::Thermometer, colour::Warm, "Too cold in a room?", "Turn its ring up by half a degree a day."},
    {Icon::Drop, colour::Cool, "No hot water?", "Start a boost, or raise the target temperature."},
    {Icon::Radiator, colour::Hot, "High bills?", "Lower the slope of the heating curve a little."},
    {Icon::Wind, colour::Eco, "Stuffy air?", "Let the ventilation run on a higher level."},
    {Icon::Suitcase, colour::Violet, "Going away?", "Away mode keeps the house frost-free."},
    {Icon::Bell, colour::Sun, "A message you cannot place?", "Your installer reads it from the code."},
};

void paintCard(Canvas& canvas, int index) {
    const Question& card = Questions[index];
    const QRect area = Card(index);
    canvas.card(QRectF(area));
    canvas.badge(card.icon, QRectF(area.x() + 20, area.y() + 20, 52, 52), card.colour);
    const QRectF words(area.x() + 92, area.y() + 21, 460, 26);
    canvas.text(words, card.question, TextStyle{19, QFont::DemiBold, colour::Text});
    canvas.text(words.translated(0, 28), card.answer, style::Body.in(colour::Muted));
    canvas.iconKey(CardKey(index), Icon::ChevronRight);
}

} // namespace

Art PaintHelp() { return PageCanvas(Place::Service, "Help").take(); }

Art PaintHelpList() {
    Canvas canvas({Window.width(), Cards * CardHeight}, colour::Ground);
    for (int i = 0; i < Cards; ++i) paintCard(canvas, i);
    return canvas.take();
}

} // namespace demo
