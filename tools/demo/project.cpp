#include "demo/project.h"

#include "demo/controls.h"
#include "demo/dither.h"
#include "demo/forecast.h"
#include "demo/instruments.h"
#include "demo/keyboards.h"
#include "demo/layout.h"
#include "demo/live_values.h"
#include "demo/motion.h"
#include "demo/pages/pages.h"
#include "demo/sounds.h"
#include "demo/standby.h"
#include "demo/texts.h"
#include "demo/theme.h"
#include "demo/translations.h"
#include "demo/ventilation.h"
#include "demo/words.h"

namespace demo {
namespace {

namespace format = imagekit::format;

PaintedPage pageOf(const char* name, const Art& art, std::uint8_t format) {
    return {name, format == format::RGB565 ? DitherTo565(art.image) : art.image, format, art.captions};
}

imagekit::Picture pictureOf(const PaintedPage& page) {
    if (page.format != format::SolidColour) return imagekit::Pixels{page.image, page.format};
    return imagekit::Solid{static_cast<std::uint16_t>(page.image.width()),
                           static_cast<std::uint16_t>(page.image.height()), page.image.pixelColor(0, 0)};
}

/// What a scene sets, and that its choice leads back to the home page.
imagekit::PagePreset scenePreset(words::SceneId scene, std::uint16_t roomTarget, std::uint16_t waterTarget,
                                 std::uint16_t waterMode) {
    return {.Id = static_cast<std::uint16_t>(scene + 1),
            .Items = {{words::Scene, scene},
                      {words::RoomTarget, roomTarget},
                      {words::WaterTarget, waterTarget},
                      {words::WaterMode, waterMode},
                      {words::Page, HomePage}}};
}

void addScenes(imagekit::Page& page) {
    page.add(scenePreset(words::Comfort, 215, 500, 1));
    page.add(scenePreset(words::Eco, 195, 450, 0));
    page.add(scenePreset(words::Night, 175, 450, 0));
    page.add(scenePreset(words::Away, 150, 400, 0));
}

void setMeasurements(imagekit::ImageBuilder& image) {
    image.setWord(words::RoomTemperature, 212);
    image.setWord(words::OutdoorTemperature, 74);
    image.setWord(words::BedroomTemperature, 191);
    image.setWord(words::KitchenTemperature, 208);
    image.setWord(words::Humidity, 48);
    image.setWord(words::WindSpeed, 31);
    image.setWord(words::SupplyTemperature, 348);
    image.setWord(words::ReturnTemperature, 296);
    image.setWord(words::BufferTemperature, 341);
    image.setWord(words::TankUpperTemperature, 518);
    image.setWord(words::TankLowerTemperature, 436);
    image.setWord(words::FlowRate, 920);
    image.setWord(words::WaterPressure, 12);
    image.setWord(words::PowerLevel, 42);
    image.setWord(words::CompressorSpeed, 46);
    image.setWord(words::CompressorAngle, 225 + 3 * 46);
    image.setWord(words::PressureAngle, 225 + 9 * 24);
    image.setWord(words::FanSpeed, 610);
    image.setWord(words::HighPressure, 243);
    image.setWord(words::LowPressure, 78);
    image.setWord(words::DischargeTemperature, 687);
    image.setWord(words::SuctionTemperature, 53);
    image.setWord(words::ValveOpening, 37);
    image.setWord(words::OperatingHours, 4318);
    image.setWord(words::Co2, 400 + 6 * 45);
    image.setWord(words::Co2Angle, 270 + 45);
    image.setWord(words::WindDirection, 235);
    image.setWord(words::RainChance, 35);
    image.setWord(words::FilterLife, 78);
    image.setWord(words::VentilationFlags, 0b100);
}

void setEnergy(imagekit::ImageBuilder& image) {
    image.setWord(words::ElectricityToday, 83);
    image.setWord(words::HeatToday, 341);
    image.setWord(words::SolarToday, 56);
    image.setWord(words::Efficiency, 411);
    image.setWord(words::ShareHeating, 68);
    image.setWord(words::ShareHotWater, 27);
    image.setWord(words::ShareStandby, 5);
    image.setWords(words::WeekEnergy, {212, 187, 243, 201, 176, 264, 83});
}

void setChoices(imagekit::ImageBuilder& image) {
    image.setWord(words::RoomTarget, 215);
    image.setWord(words::BedroomTarget, 185);
    image.setWord(words::KitchenTarget, 205);
    image.setWord(words::AlarmVolume, 60);
    image.setWord(words::Scene, words::Comfort);
    image.setWord(words::CurveSlope, 90);
    image.setWord(words::CurveShift, 2);
    image.setWord(words::WaterTarget, 500);
    image.setWord(words::WaterMode, 2);
    image.setWord(words::Circulation, 1);
    image.setWord(words::Hygiene, 1);
    image.setWord(words::AwayDays, 7);
    image.setWord(words::BoostMinutes, 45);
    image.setWord(words::KeyTones, 1);
    image.setWord(words::FanLevel, 2);
    image.setWord(words::SupplyAir, 160);
    image.setWord(words::ExhaustAir, 150);
    image.setWord(words::TargetHumidity, 45);
    image.setWords(words::Numbers, {0, 1, 2});
    image.setWords(words::DayPrograms, {0, 0, 0, 0, 0, 1, 1});
}

void setRunning(imagekit::ImageBuilder& image) {
    image.setWord(words::FanControl, 1);
    image.setWord(words::BoostDuration, 45 * 60);
    image.setWord(words::BoostTimeLeft, 42 * 60 + 15);
    image.setWord(words::BoostControl, 1);
    image.setWord(words::AiringLimit, 60 * 60);
}

void addWidgets(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages,
                const EntryFont& nameFont) {
    Texts texts(image);
    NeedLiveTexts(texts);
    for (const PaintedPage& page : pages)
        for (const Caption& caption : page.captions)
            texts.need(caption.style, caption.words + Chinese(caption.words));
    texts.addFonts();
    AddControls(image, texts, pages);
    AddInstruments(image, pages, nameFont);
    AddMotion(image, pages);
    AddVentilation(image, pages);
    AddForecast(image);
    AddStandby(image);
    AddLiveValues(image, texts);
}

} // namespace

std::vector<PaintedPage> PaintPages() {
    // Art with gradients goes into formats that keep them; flat pages compress well.
    return {pageOf("home", PaintHome(), format::PngOpaque),
            pageOf("heating", PaintHeating(), format::RGB565),
            pageOf("hot-water", PaintHotWater(), format::aRGB8888),
            pageOf("energy", PaintEnergy(), format::ZipImage),
            pageOf("schedule", PaintSchedule(), format::ZipImage),
            pageOf("settings", PaintSettings(), format::ZipImage),
            pageOf("service", PaintService(), format::RGB565),
            pageOf("away", PaintAwayPopup(), format::PngAlpha),
            pageOf("boost", PaintBoostPopup(), format::aRGB8888),
            pageOf("standby", PaintStandby(), format::SolidColour),
            pageOf("date", PaintDatePopup(), format::PngAlpha),
            pageOf("keypad", PaintKeypad(false), format::RGB565),
            pageOf("keypad-pressed", PaintKeypad(true), format::RGB565),
            pageOf("keyboard", PaintTextKeyboard(false), format::RGB565),
            pageOf("keyboard-pressed", PaintTextKeyboard(true), format::RGB565),
            pageOf("chinese-keyboard", PaintChineseKeyboard(false), format::RGB565),
            pageOf("chinese-keyboard-pressed", PaintChineseKeyboard(true), format::RGB565),
            pageOf("gauges", PaintGauges(), format::PngOpaque),
            pageOf("thermostat", PaintThermostat(), format::PngOpaque),
            pageOf("living-room", PaintRoom(0), format::PngOpaque),
            pageOf("bedroom", PaintRoom(1), format::PngOpaque),
            pageOf("kitchen", PaintRoom(2), format::PngOpaque),
            pageOf("messages", PaintEvents(), format::RGB565),
            pageOf("messages-list", PaintEventsList(), format::PngOpaque),
            pageOf("tips", PaintTips(), format::RGB565),
            pageOf("tips-list", PaintTipsList(), format::PngOpaque),
            pageOf("ventilation", PaintVentilation(), format::ZipImage),
            pageOf("alarm", PaintAlarmPopup(), format::PngAlpha),
            pageOf("forecast", PaintForecast(), format::ZipImage),
            pageOf("forecast-list", PaintForecastList(), format::PngOpaque),
            pageOf("help", PaintHelp(), format::RGB565),
            pageOf("help-list", PaintHelpList(), format::PngOpaque)};
}

imagekit::ImageBuilder BuildProject(const std::vector<PaintedPage>& pages) {
    imagekit::ImageBuilder image({.Width = layout::Screen.width(),
                                  .Height = layout::Screen.height(),
                                  .EditorVersion = "V1.20",
                                  .UserVER = "Demo 1",
                                  .StartPage = HomePage,
                                  .LangueNum = LanguageIds});
    for (const PaintedPage& page : pages) image.addPage(pictureOf(page));
    image.addSound(Chime());
    const EntryFont nameFont = AddNameFont(image);
    addWidgets(image, pages, nameFont);
    AddKeyboards(image, nameFont);
    addScenes(image.page(HomePage));
    addScenes(image.page(AwayPopup));
    setMeasurements(image);
    setEnergy(image);
    setChoices(image);
    setRunning(image);
    return image;
}

} // namespace demo
