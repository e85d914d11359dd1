#include "panel_test.h"

#include "demo/layout.h"
#include "demo/project.h"
#include "demo/words.h"

#include "pages/page_switch.h"

#include <QGuiApplication>

#include <cstdlib>

namespace {

using namespace demo;

/// The demo on a running panel. Painting it needs the toolkit's fonts.
class DemoProject : public panel::PanelTest {
protected:
    DemoProject() : pages(PaintPages()) { boot(BuildProject(pages)); }

private:
    int argumentCount_ = 0;
    QGuiApplication application_{argumentCount_, nullptr};

protected:
    std::vector<PaintedPage> pages;
};

/// The largest difference of any colour byte.
int difference(const QImage& a, const QImage& b) {
    int largest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                std::abs(qBlue(p) - qBlue(q))});
        }
    return largest;
}

TEST_F(DemoProject, ShowsEveryPageAsItWasPainted) {
    ASSERT_EQ(pages.size(), StandbyPage + 1u);
    for (std::uint16_t id = 0; id < pages.size(); ++id) {
        if (id == AwayPopup || id == BoostPopup) continue;
        panel::ShowPage(id);
        ASSERT_EQ(panel::FrameSurface.size(), layout::Screen);
        EXPECT_LE(difference(panel::FrameSurface, pages[id].image), 4) << "a 5-bit step: " << pages[id].name;
    }
}

TEST_F(DemoProject, OpensPopupsOverThePageWithTheirShadow) {
    for (const PageId id : {AwayPopup, BoostPopup}) {
        panel::ShowPage(HomePage);
        panel::OpenPopup(id, layout::popup::Origin.x(), layout::popup::Origin.y());
        const QImage& popup = pages[id].image;
        const QRect window = layout::popup::Window.translated(layout::popup::Origin);
        EXPECT_EQ(qAlpha(popup.pixel(0, 0)), 0) << "the corner shows the page";
        EXPECT_EQ(panel::FrameSurface.pixel(layout::popup::Origin),
                  pages[HomePage].image.pixel(layout::popup::Origin));
        EXPECT_EQ(panel::FrameSurface.pixel(window.center()), popup.pixel(layout::popup::Window.center()));
    }
}

TEST_F(DemoProject, StartsAtHomeAndChangesScenesByPresets) {
    EXPECT_EQ(panel::CurrentPage, HomePage);
    EXPECT_EQ(panel::ReadWord(words::RoomTarget), 215);
    for (const PageId from : {HomePage, AwayPopup}) {
        panel::ShowPage(from);
        apply(0x7014, words::Away + 1);
        EXPECT_EQ(panel::ReadWord(words::Scene), words::Away);
        EXPECT_EQ(panel::ReadWord(words::RoomTarget), 150);
        EXPECT_EQ(panel::CurrentPage, HomePage);
        panel::StoreWord(words::Scene, words::Comfort);
        panel::StoreWord(words::RoomTarget, 0);
    }
}

} // namespace
