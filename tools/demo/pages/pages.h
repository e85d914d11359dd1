// The pages of the demo, one function each.
#pragma once

#include "demo/canvas.h"

namespace demo {

Art PaintHome();
Art PaintHeating();
Art PaintHotWater();
Art PaintEnergy();
Art PaintSchedule();
Art PaintSettings();
Art PaintService();
Art PaintGauges();
Art PaintThermostat();
Art PaintRoom(int room); // 0 to 2
Art PaintEvents();
Art PaintEventsList();
Art PaintTips();
Art PaintTipsList();
Art PaintVentilation();
Art PaintForecast();
Art PaintForecastList();
Art PaintHelp();
Art PaintHelpList();
Art PaintStandby();

// Pop-ups: smaller than the screen, transparent around the window and its shadow.
Art PaintAwayPopup();
Art PaintBoostPopup();
Art PaintDatePopup();
Art PaintAlarmPopup();

} // namespace demo
