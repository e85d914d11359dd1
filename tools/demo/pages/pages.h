// The painted pages of the demo, one function each.
#pragma once

#include <QImage>

namespace demo {

QImage PaintHome();
QImage PaintHeating();
QImage PaintHotWater();
QImage PaintEnergy();
QImage PaintSchedule();
QImage PaintSettings();
QImage PaintService();

// Pop-ups: smaller than the screen, transparent around the window and its shadow.
QImage PaintAwayPopup();
QImage PaintBoostPopup();

} // namespace demo
