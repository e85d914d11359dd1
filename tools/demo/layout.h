// Where things stand on the demo's pages: the painted cards and keys, and the places that the live widgets
// fill. All in px of the panel; places on a pop-up count from the top left corner of its picture.
#pragma once

#include <QPoint>
#include <QRect>

namespace demo::layout {

inline constexpr QSize Screen{800, 480};

inline constexpr int Left = 108, Right = 780, Top = 66, Bottom = 464; // of the content
inline constexpr int Gap = 12;
inline constexpr int Width = Right - Left;
inline constexpr int Height = Bottom - Top;

/// The rectangle from one corner to the other, the far edges not included.
constexpr QRect Span(int left, int top, int right, int bottom) {
    return QRect(left, top, right - left, bottom - top);
}
/// Cell `index` of `count` equal cells side by side (or one above the other) with a gap between them.
constexpr QRect Column(const QRect& area, int index, int count, int gap = Gap) {
    const int width = (area.width() - gap * (count - 1)) / count;
    return QRect(area.x() + index * (width + gap), area.y(), width, area.height());
}
constexpr QRect Row(const QRect& area, int index, int count, int gap = Gap) {
    const int height = (area.height() - gap * (count - 1)) / count;
    return QRect(area.x(), area.y() + index * (height + gap), area.width(), height);
}

inline constexpr QRect Content = Span(Left, Top, Right, Bottom);

// On every page.
inline constexpr int NavigationItems = 7;
inline constexpr QRect Rail{0, 0, 88, 480};
constexpr QRect NavigationKey(int index) { return QRect(8, 12 + 65 * index, 72, 62); }
inline constexpr QRect Title{Left, 14, 380, 40};
inline constexpr QRect Wifi{612, 22, 24, 24};
inline constexpr QRect Bell{648, 22, 24, 24};
inline constexpr QRect Clock{688, 18, 92, 32};

namespace home {
inline constexpr QRect RoomCard = Span(Left, Top, 464, 368);
inline constexpr QRect RoomName{124, 76, 240, 28};
inline constexpr QRect Rooms{427, 80, 20, 20}; // the way to the ring and all rooms
inline constexpr QPoint DialCentre{286, 222};
inline constexpr int DialRadius = 102; // to the middle of the ring
inline constexpr int DialWidth = 14;
inline constexpr QRect RoomValue{226, 182, 120, 58};
inline constexpr QRect TargetValue{254, 266, 64, 28};
inline constexpr QRect ColderKey{208, 312, 44, 44};
inline constexpr QRect WarmerKey{320, 312, 44, 44};
inline constexpr QRect WeatherCard = Span(476, Top, Right, 211);
inline constexpr QRect Greeting{300, 20, 296, 28};
inline constexpr QRect Weather{680, 76, 82, 18};
inline constexpr QRect OutdoorValue{610, 98, 152, 50};
inline constexpr QRect HumidityValue{520, 172, 94, 28};
inline constexpr QRect WindValue{668, 172, 94, 28};
inline constexpr QRect HeatPumpCard = Span(476, 223, Right, 368);
inline constexpr QRect Status{684, 312, 78, 16};
inline constexpr QRect OutdoorUnit{494, 270, 84, 70};
inline constexpr QRect Fan{511, 287, 36, 36};
inline constexpr QRect SupplyValue{600, 266, 77, 32};
inline constexpr QRect ReturnValue{685, 266, 77, 32};
inline constexpr QRect PowerBar{600, 334, 162, 10};
inline constexpr QRect SceneRow = Span(Left, 380, Right, Bottom);
constexpr QRect SceneKey(int index) { return Column(SceneRow, index, 4); }
} // namespace home

namespace heating {
inline constexpr QRect PlantCard = Span(Left, Top, Right, 272);
inline constexpr QRect Fan{154, 144, 56, 56};
inline constexpr QRect SupplyValue{330, 118, 84, 30};
inline constexpr QRect ReturnValue{330, 214, 84, 30};
inline constexpr QRect BufferValue{452, 166, 68, 30};
inline constexpr QRect FlowValue{590, 118, 86, 30};
inline constexpr QRect PressureValue{590, 214, 86, 30};
inline constexpr QRect CurveCard = Span(Left, 284, 464, Bottom);
inline constexpr QRect CurvePlot{150, 330, 296, 104};
inline constexpr QRect SlopeCard = Span(476, 284, Right, 368);
inline constexpr QRect SlopeSlider{494, 338, 268, 8};
inline constexpr QRect SlopeValue{698, 298, 64, 26};
inline constexpr QRect ShiftCard = Span(476, 380, Right, Bottom);
inline constexpr QRect ShiftSlider{494, 434, 268, 8};
inline constexpr QRect ShiftValue{698, 394, 64, 26};
} // namespace heating

namespace water {
inline constexpr QRect TankCard = Span(Left, Top, 398, Bottom);
inline constexpr QRect Tank{176, 108, 118, 334};
inline constexpr QRect TankTopValue{308, 136, 74, 32};
inline constexpr QRect TankBottomValue{308, 338, 74, 32};
inline constexpr QRect TargetCard = Span(410, Top, Right, 228);
inline constexpr QRect BoostTime{690, 77, 72, 26};
inline constexpr QRect TargetValue{500, 110, 190, 56};
inline constexpr QRect LessKey{430, 112, 52, 52};
inline constexpr QRect MoreKey{708, 112, 52, 52};
inline constexpr QRect TargetSlider{436, 190, 318, 8};
inline constexpr QRect ModeRow = Span(410, 240, Right, 332);
constexpr QRect ModeKey(int index) { return Column(ModeRow, index, 3); }
inline constexpr QRect OptionCard = Span(410, 344, Right, Bottom);
constexpr QRect OptionRow(int index) { return Row(OptionCard, index, 2, 0); }
constexpr QRect OptionSwitch(int index) { return QRect(708, OptionRow(index).y() + 17, 52, 28); }
} // namespace water

namespace energy {
inline constexpr QRect FigureRow = Span(Left, Top, Right, 168);
constexpr QRect FigureCard(int index) { return Column(FigureRow, index, 4); }
constexpr QRect FigureValue(int index) { return QRect(FigureCard(index).x() + 14, 120, 131, 36); }
inline constexpr QRect WeekCard = Span(Left, 180, 566, Bottom);
inline constexpr QRect WeekPlot{152, 228, 396, 196};
constexpr QRect DayBar(int day) {
    return QRect(WeekPlot.x() + 19 + day * 54, WeekPlot.y(), 34, WeekPlot.height());
}
constexpr QRect DayFigure(int day) { return QRect(DayBar(day).x() - 4, DayBar(day).y() + 4, 42, 18); }
inline constexpr QRect ShareCard = Span(578, 180, Right, Bottom);
inline constexpr QPoint ShareCentre{679, 290};
inline constexpr int ShareRadius = 60, ShareWidth = 16;
constexpr QRect ShareRowValue(int index) { return QRect(700, 370 + index * 29, 62, 25); }
inline constexpr QRect ShareValue{639, 270, 80, 36};
} // namespace energy

namespace schedule {
inline constexpr QRect WeekCard = Span(Left, Top, Right, 398);
inline constexpr QRect Hours{168, 104, 594, 280};
constexpr QRect DayTrack(int day) { return QRect(Hours.x(), Hours.y() + 8 + day * 39, Hours.width(), 26); }
inline constexpr QRect KeyRow = Span(Left, 410, Right, Bottom);
constexpr QRect ProgramKey(int index) { return Column(KeyRow, index, 4); }
} // namespace schedule

namespace settings {
constexpr QRect Tile(int column, int row) { return Row(Column(Content, column, 2), row, 4); }
constexpr QRect TileSlider(const QRect& tile) {
    return QRect(tile.x() + 68, tile.y() + 60, tile.width() - 88, 8);
}
constexpr QRect TileValue(const QRect& tile) { return QRect(tile.right() - 121, tile.y() + 31, 78, 30); }
constexpr QRect TileName(const QRect& tile) { return QRect(tile.right() - 171, tile.y() + 31, 128, 30); }
constexpr QRect TileSwitch(const QRect& tile) { return QRect(tile.right() - 67, tile.y() + 32, 52, 28); }
} // namespace settings

namespace service {
inline constexpr QRect ReadingCard = Span(Left, Top, 474, Bottom);
inline constexpr int Readings = 8;
constexpr QRect ReadingRow(int index) { return QRect(ReadingCard.x() + 16, 106 + index * 43, 334, 43); }
constexpr QRect ReadingValue(int index) { return QRect(342, ReadingRow(index).y() + 8, 70, 28); }
inline constexpr QRect CircuitCard = Span(486, Top, Right, 296);
inline constexpr QRect SupportCard = Span(486, 308, Right, Bottom);
inline constexpr QRect ServicePin{688, 420, 74, 26};
inline constexpr QRect QrCode{504, 326, 120, 120};
} // namespace service

/// The page behind the refrigerant circuit: instruments on the move.
namespace gauges {
inline constexpr QRect CompressorCard = Span(Left, Top, 340, 286);
inline constexpr QRect PressureCard = Span(352, Top, 560, 286);
inline constexpr QRect ClockCard = Span(572, Top, Right, 286);
inline constexpr int DialSide = 168;
constexpr QRect DialOf(const QRect& card) {
    return QRect(card.x() + (card.width() - DialSide) / 2, card.y() + 42, DialSide, DialSide);
}
inline constexpr QRect Face{606, 92, 140, 140};
inline constexpr QRect Weekday{592, 250, 44, 24};
inline constexpr QRect Date{642, 250, 120, 24};
inline constexpr QRect TrendCard = Span(Left, 298, 560, 418);
inline constexpr QRect TrendPlot{152, 342, 394, 62};
inline constexpr QRect EfficiencyCard = Span(572, 298, Right, 418);
inline constexpr QPoint EfficiencyCentre{622, 373};
inline constexpr int EfficiencyRadius = 28, EfficiencyWidth = 9;
inline constexpr QRect EfficiencyValue{668, 356, 96, 36};
inline constexpr QRect MessageCard = Span(Left, 430, Right, Bottom);
inline constexpr QRect Message{152, 434, 614, 26};
} // namespace gauges

/// A ring to turn, and rooms side by side.
namespace rooms {
inline constexpr QRect BackKey{24, 18, 48, 48};
inline constexpr QRect RoomsKey{728, 18, 48, 48};
inline constexpr QRect Title{200, 18, 400, 48};
inline constexpr QRect ColderKey{132, 234, 64, 64};
inline constexpr QRect WarmerKey{604, 234, 64, 64};
inline constexpr QPoint Centre{400, 262};
inline constexpr int Radius = 146, Width = 24;
inline constexpr QRect Target{300, 212, 200, 70};
inline constexpr QRect Measured{350, 352, 100, 34};
constexpr QPoint Dot(int room) { return {372 + room * 24, 452}; }
} // namespace rooms

/// A list of messages that is longer than its window.
namespace events {
inline constexpr QRect Window{Left, Top, 652, 398};
inline constexpr int Rows = 9, RowHeight = 76; // of the list's picture
constexpr QRect Row(int index) { return QRect(0, index * RowHeight, Window.width(), RowHeight - 10); }
constexpr QRect Switch(int index) { return QRect(Window.width() - 72, Row(index).y() + 19, 52, 28); }
inline constexpr QRect Value{Window.width() - 110, Row(0).y() + 14, 80, 36};
constexpr QRect Alarm(int index) { return QRect(Row(index).x() + 12, Row(index).y() + 9, 440, 48); }
inline constexpr QRect Slider{Window.width() - 240, Row(1).y() + 30, 210, 8};
} // namespace events

/// Cards that follow each other around.
namespace tips {
inline constexpr QRect Key{480, 18, 112, 36}; // on the page of messages
inline constexpr QRect Window = Content;
inline constexpr int Cards = 5, CardWidth = 236;
constexpr QRect Card(int index) { return QRect(index * CardWidth + 6, 0, CardWidth - 12, Window.height()); }
} // namespace tips

/// Fresh air: level, amounts, quality.
namespace ventilation {
inline constexpr QRect Key{384, 80, 20, 20}; // the way there, on the home page
inline constexpr QRect LevelCard = Span(Left, Top, 324, 272);
inline constexpr QRect LevelKey{142, 108, 148, 148};
inline constexpr QRect AirCard = Span(336, Top, 552, 272);
constexpr QRect AirTrack(int index) { return QRect(389 + index * 102, 132, 8, 92); }
constexpr QRect AirName(int index) { return QRect(AirTrack(index).x() - 45, 104, 98, 18); }
constexpr QRect AirValue(int index) { return QRect(AirTrack(index).x() - 41, 234, 90, 26); }
inline constexpr QRect QualityCard = Span(564, Top, Right, 272);
inline constexpr QRect QualityDial{582, 102, 180, 160};
inline constexpr QPoint QualityCentre{672, 204};
inline constexpr QRect HumidityCard = Span(Left, 284, 436, 374);
inline constexpr QRect HumidityDrum{127, 322, 290, 42};
inline constexpr int HumidityCell = 58;
inline constexpr QRect AiringCard = Span(Left, 386, 436, Bottom);
inline constexpr QRect AiringTime{267, 411, 94, 28};
inline constexpr QRect AiringSwitch{368, 411, 52, 28};
inline constexpr QRect StatusCard = Span(448, 284, Right, Bottom);
inline constexpr int Flags = 3;
constexpr QRect FlagRow(int index) { return QRect(StatusCard.x() + 18, 314 + index * 34, 296, 34); }
inline constexpr QRect FilterBar{466, 438, 296, 10};
} // namespace ventilation

/// The weather of the next hours in a wide picture, and what it means.
namespace forecast {
inline constexpr QRect Key{478, 70, 112, 84}; // sun and cloud on the home page
inline constexpr QRect Window = Span(Left, Top, Right, 284);
inline constexpr int Hours = 24, HourWidth = 84;
constexpr QRect Hour(int index) { return QRect(index * HourWidth + 4, 0, HourWidth - 8, Window.height()); }
inline constexpr QRect Now{10, 65, 64, 26}; // the value on the list
inline constexpr QRect WindCard = Span(Left, 296, 324, Bottom);
inline constexpr QRect Compass{122, 332, 120, 120};
inline constexpr QRect WindValue{246, 380, 68, 28};
inline constexpr QRect RainCard = Span(336, 296, 552, Bottom);
inline constexpr QPoint RainCentre{444, 394};
inline constexpr int RainRadius = 48, RainWidth = 14;
inline constexpr QRect SunCard = Span(564, 296, Right, Bottom);
} // namespace forecast

/// Questions that follow each other around.
namespace help {
inline constexpr QRect Key{632, 312, 140, 100}; // on the service page
inline constexpr QRect Window = Content;
inline constexpr int Cards = 6, CardHeight = 104;
constexpr QRect Card(int index) { return QRect(0, index * CardHeight + 6, Window.width(), CardHeight - 12); }
constexpr QRect CardKey(int index) { return QRect(Window.width() - 68, Card(index).y() + 22, 48, 48); }
} // namespace help

/// The clock of a panel that nobody needs.
namespace standby {
inline constexpr QRect Time{0, 84, 800, 180}; // and what follows, in the middle of these lines
inline constexpr QRect Date{0, 268, 800, 40};
constexpr QRect Name(int index) { return QRect(240 + index * 170, 366, 150, 20); }
constexpr QRect Value(int index) { return QRect(240 + index * 170, 390, 150, 36); }
} // namespace standby

namespace popup {
inline constexpr int Shadow = 28; // px of shadow around the window
inline constexpr QSize Picture{452, 316};
inline constexpr QPoint Origin{218, 82}; // on the screen
inline constexpr QRect Window{Shadow, Shadow, 396, 260};
inline constexpr QRect LessKey{Shadow + 92, Shadow + 124, 48, 48};
inline constexpr QRect Value{Shadow + 148, Shadow + 126, 100, 44};
inline constexpr QRect MoreKey{Shadow + 256, Shadow + 124, 48, 48};
constexpr QRect Drum(int index) { return QRect(Shadow + 38 + index * 112, Shadow + 52, 96, 120); }
inline constexpr QRect Sign{Shadow + 20, Shadow + 20, 52, 52}; // of an alarm
inline constexpr QRect Reading{Shadow + 138, Shadow + 122, 120, 48};
inline constexpr QRect CancelKey{Shadow + 20, Shadow + 192, 172, 48};
inline constexpr QRect ConfirmKey{Shadow + 204, Shadow + 192, 172, 48};
} // namespace popup

} // namespace demo::layout
