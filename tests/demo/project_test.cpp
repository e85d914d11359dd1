#include "panel_test.h"
#include "temporary_files.h"

#include "demo/layout.h"
#include "demo/media_project.h"
#include "demo/project.h"
#include "demo/texts.h"
#include "demo/words.h"

#include "pages/display_kinds.h"
#include "pages/page_switch.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"
#include "store/curve_samples.h"
#include "store/host_time.h"
#include "widgets/touch/touch_families.h"
#include "widgets/touch/touch_row.h"

#include <QGuiApplication>

#include <cstdlib>
#include <set>

namespace {

using namespace demo;

/// The demo on a running panel. Painting it needs the toolkit's fonts.
class DemoProject : public panel::PanelTest, protected TemporaryFiles {
protected:
    DemoProject() : pages(PaintPages()) {
        panel::SetHostTime(QDateTime({2026, 11, 23}, {10, 8})); // no minute ends during a test
        boot(BuildProject(pages));
    }

private:
    int argumentCount_ = 0;
    QGuiApplication application_{argumentCount_, nullptr};

protected:
    std::vector<PaintedPage> pages;
};

/// The smallest rectangle that holds all pixels of which a colour byte differs by more than `tolerance`.
QRect changedArea(const QImage& before, const QImage& after, int tolerance = 0) {
    QRect area;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x) {
            const QRgb p = before.pixel(x, y), q = after.pixel(x, y);
            if (std::abs(qRed(p) - qRed(q)) > tolerance || std::abs(qGreen(p) - qGreen(q)) > tolerance
                || std::abs(qBlue(p) - qBlue(q)) > tolerance)
                area |= QRect(x, y, 1, 1);
        }
    return area;
}

TEST_F(DemoProject, HasEveryPageAsItWasPainted) {
    constexpr int Rounding = 4; // a 5-bit step
    ASSERT_EQ(pages.size(), HelpList + 1u);
    for (std::uint16_t id = 0; id < pages.size(); ++id) {
        const bool isFull = id < AwayPopup || id == StandbyPage || id == GaugesPage || id == VentilationPage;
        if (!isFull) continue;
        panel::ShowPage(id);
        EXPECT_TRUE(changedArea(pages[id].image, panel::PageBackground, Rounding).isEmpty())
            << pages[id].name;
    }
}

/// The kinds and families of the records on the pages of the loaded image.
std::set<std::uint16_t> widgetsOfTheImage() {
    std::set<std::uint16_t> found;
    for (std::uint16_t page = 0; page < panel::Sections.PageCount; ++page) {
        panel::DisplayStream.load(panel::DisplayStreamPlace(page));
        panel::StreamWalker display(panel::DisplayStream.bytes(), panel::Framing::DisplayByKind);
        while (const auto record = display.next()) found.insert(record->kind());
        panel::TouchStream.load(panel::TouchStreamPlace(page));
        panel::StreamWalker touch(panel::TouchStream.bytes(), panel::Framing::Touch);
        while (const auto record = touch.next()) found.insert(record->typeWord & panel::FamilyMask);
    }
    return found;
}

TEST_F(DemoProject, HasEveryKindAndFamilyOnAPageOfItsImages) {
    std::set<std::uint16_t> widgets = widgetsOfTheImage();
    WriteMediaProject(directory_.path());
    boot(readFile("media.bin"));
    widgets.merge(widgetsOfTheImage());
    for (const panel::DisplayKind& kind : panel::DisplayKinds())
        EXPECT_TRUE(widgets.contains(kind.code)) << kind.name;
    for (std::uint16_t family = 0x8000; family <= 0x80FF; ++family)
        EXPECT_EQ(widgets.contains(family), panel::FindTouchFamily(family) != nullptr) << std::hex << family;
}

TEST_F(DemoProject, FitsIntoTheFlashOfAPanel) { EXPECT_LE(BuildProject(pages).build().size(), 16 << 20); }

TEST_F(DemoProject, OpensPopupsOverThePageWithTheirShadow) {
    for (const PageId id : {AwayPopup, BoostPopup, DatePopup, AlarmPopup}) {
        panel::ShowPage(HomePage);
        openPopup(id, static_cast<std::uint16_t>(layout::popup::Origin.x()),
                  static_cast<std::uint16_t>(layout::popup::Origin.y()));
        const QImage& popup = pages[id].image;
        const QRect window = layout::popup::Window.translated(layout::popup::Origin);
        EXPECT_EQ(qAlpha(popup.pixel(0, 0)), 0) << "the corner shows the page";
        EXPECT_EQ(panel::FrameSurface.pixel(layout::popup::Origin),
                  pages[HomePage].image.pixel(layout::popup::Origin));
        const QPoint plain(20, 110); // in the window, where no widget stands
        EXPECT_EQ(panel::FrameSurface.pixel(window.topLeft() + plain),
                  popup.pixel(layout::popup::Window.topLeft() + plain));
    }
}

TEST_F(DemoProject, ShowsEachChangeInItsPlace) {
    const struct {
        PageId page;
        std::uint16_t word, value;
        QRect place;
    } changes[] = {{HomePage, words::RoomTemperature, 250, layout::home::RoomCard},
                   {HomePage, words::FanControl, 1, layout::home::Fan},
                   {HeatingPage, words::CurveShift, 0xFFF4, layout::heating::ShiftCard}, // with its slider
                   {HotWaterPage, words::TankUpperTemperature, 1, layout::water::TankTopValue},
                   {HotWaterPage, words::BoostControl, 1, layout::water::BoostTime},
                   {HomePage, words::PowerLevel, 90, layout::home::PowerBar},
                   {EnergyPage, words::WeekEnergy + 2, 100, layout::energy::DayBar(2).adjusted(-4, 0, 4, 0)},
                   {EnergyPage, words::ShareHeating, 20, layout::energy::ShareCard},
                   {VentilationPage, words::FilterLife, 20, layout::ventilation::FilterBar},
                   {VentilationPage, words::FanLevel, 3, layout::ventilation::LevelKey},
                   {ForecastPage, words::RainChance, 80, layout::forecast::RainCard},
                   {ServicePage, words::SupportLink, 0x4141, layout::service::QrCode},
                   {ServicePage, words::ServicePin, 0, layout::service::ServicePin}};
    for (const auto& change : changes) {
        panel::StoreWord(words::FanControl, 0); // what moves would change the picture as well
        panel::StoreWord(words::Motion, words::Still);
        panel::StoreWord(words::BoostControl, 0);
        panel::ShowPage(change.page);
        run(500);
        const QImage before = outputs.frame.copy();
        panel::StoreWord(change.word, change.value);
        run(1500);
        const QRect changed = changedArea(before, outputs.frame);
        EXPECT_FALSE(changed.isEmpty()) << change.word;
        EXPECT_TRUE(change.place.contains(changed)) << change.word;
    }
}

TEST_F(DemoProject, SpeaksTheLanguageOfThePanel) {
    panel::StoreWord(words::FanControl, 0);
    panel::StoreWord(words::Motion, words::Still);
    run(1100); // the clock is right from the first second on
    const QImage english = outputs.frame.copy();
    apply(words::Language, ChineseLanguage);
    run(100);
    for (const QRect& text : {layout::Title, layout::NavigationKey(3), layout::home::SceneKey(1),
                              layout::home::Greeting, layout::home::Weather})
        EXPECT_NE(outputs.frame.copy(text), english.copy(text)) << text.x() << ' ' << text.y();
    EXPECT_EQ(outputs.frame.copy(layout::home::RoomValue), english.copy(layout::home::RoomValue));
    apply(words::Language, English);
    run(100);
    EXPECT_TRUE(changedArea(english, outputs.frame).isEmpty());
}

TEST_F(DemoProject, KeepsItsGaugesMovingByItself) {
    panel::ShowPage(GaugesPage);
    run(200);
    const QImage before = outputs.frame.copy();
    run(2000);
    for (const QRect& place : {layout::gauges::DialOf(layout::gauges::CompressorCard),
                               layout::gauges::DialOf(layout::gauges::PressureCard), layout::gauges::Face,
                               layout::gauges::Message})
        EXPECT_NE(outputs.frame.copy(place), before.copy(place)) << place.x();
    EXPECT_EQ(outputs.frame.copy(layout::gauges::TrendCard), before.copy(layout::gauges::TrendCard));
    panel::AppendCurveSamples(0x0003, std::vector<std::uint16_t>(40, 400));
    run(100);
    EXPECT_NE(outputs.frame.copy(layout::gauges::TrendCard), before.copy(layout::gauges::TrendCard));
}

} // namespace
