#include "shell/window_fixture.h"

#include "store/backlight.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/pointer.h"

#include <string>
#include <tuple>

namespace {

/// How dense the screen is and how often ZoomIn is pressed.
using Scale = std::tuple<std::string, int>;

class PointerTest : public WindowTest, public ::testing::WithParamInterface<Scale> {
protected:
    PointerTest() : WindowTest(std::get<0>(GetParam()).c_str()) {}

    void SetUp() override {
        openWindow();
        window_->openImage(writeImage("a.bin", Qt::green, {.Width = 200, .Height = 120}));
        ASSERT_TRUE(shows(Qt::green));
        for (int i = 0; i < std::get<1>(GetParam()); ++i) {
            trigger("actionZoomIn");
            zoom_ += 0.2F;
        }
    }

    static QPoint touched() { return {panel::TouchX, panel::TouchY}; }
    QPoint onPanel(QPoint inView) const {
        return {static_cast<int>(static_cast<float>(inView.x()) / zoom_),
                static_cast<int>(static_cast<float>(inView.y()) / zoom_)};
    }

    QSize size() const { return {qRound(200 * zoom_), qRound(120 * zoom_)}; }

    float zoom_ = 1.0F;
};

TEST_P(PointerTest, FollowsTheMouseInPanelPixels) {
    EXPECT_EQ(view().size(), size());
    EXPECT_EQ(view().pixmap(Qt::ReturnByValue).size(),
              (QSizeF(size()) * view().devicePixelRatioF()).toSize());
    const QPoint start(101, 63);
    const QPoint end(150, 99);
    press(start);
    EXPECT_EQ(panel::TouchPressed, 1);
    EXPECT_EQ(touched(), onPanel(start));
    move(end);
    EXPECT_EQ(touched(), onPanel(end));
    EXPECT_EQ(QPoint(panel::TouchStartX, panel::TouchStartY), onPanel(start));
    release();
    EXPECT_EQ(panel::TouchPressed, 0);

    window_->resize(560, 300);
    const QPoint nearFarCorner(size().width() - 8, size().height() - 8);
    find<QScrollArea>("scrollArea").ensureVisible(size().width() - 1, size().height() - 1, 0, 0);
    press(nearFarCorner);
    EXPECT_EQ(panel::TouchPressed, 1) << "in a scrolled view too";
    EXPECT_EQ(touched(), onPanel(nearFarCorner));
    release();
}

TEST_P(PointerTest, DraggingOffThePanelEndsThePress) {
    const QPoint farCorner(size().width(), size().height());
    for (const QPoint outside :
         {QPoint(-10, 20), QPoint(20, -10), farCorner + QPoint(1, -20), farCorner + QPoint(-20, 1)}) {
        press({20, 20});
        EXPECT_EQ(panel::TouchPressed, 1);
        move(outside);
        EXPECT_EQ(panel::TouchPressed, 0) << outside.x() << ',' << outside.y();
        release();
    }
    press(view().mapFromGlobal(find<QWidget>("tabInformation").mapToGlobal(QPoint(4, 4))));
    move({20, 20});
    EXPECT_EQ(panel::TouchPressed, 0) << "a press beside the view is not the panel's";
    release();
}

INSTANTIATE_TEST_SUITE_P(Scales, PointerTest,
                         ::testing::Combine(::testing::Values("1", "2"), ::testing::Values(0, 2, 10)),
                         [](const auto& row) {
                             return "Density" + std::get<0>(row.param) + "ZoomIn"
                                    + std::to_string(std::get<1>(row.param));
                         });

class ViewTest : public WindowTest {};

TEST_F(ViewTest, ZoomsInFloatStepsBetweenItsLimitsUntilTheNextLoad) {
    openWindow();
    float zoom = 1.0F;
    const auto expectZoom = [&] {
        EXPECT_EQ(view().size(), QSize(qRound(800 * zoom), qRound(480 * zoom))) << zoom;
        EXPECT_EQ(view().pixmap(Qt::ReturnByValue).size(), view().size());
    };
    for (int i = 0; i < 13; ++i) {
        trigger("actionZoomIn");
        if (zoom < 3.0F) zoom += 0.2F;
        expectZoom();
    }
    for (int i = 0; i < 15; ++i) {
        trigger("actionZoomOut");
        if (zoom > 0.6F) zoom -= 0.2F;
        expectZoom();
    }
    trigger("actionOriginal");
    zoom = 1.0F;
    expectZoom();
    trigger("actionZoomIn");
    window_->openImage(writeImage("a.bin", Qt::green));
    EXPECT_TRUE(shows(Qt::green));
    expectZoom();
}

TEST_F(ViewTest, AnUnchangedFrameIsNotUploadedAgain) {
    QLabel label;
    FramePresenter presenter(label);
    QImage frame(40, 30, QImage::Format_ARGB32_Premultiplied);
    frame.fill(Qt::red);
    auto uploads = [&, last = qint64{0}](std::uint8_t veil, float zoom) mutable {
        presenter.show(frame, veil, zoom);
        return std::exchange(last, label.pixmap(Qt::ReturnByValue).cacheKey()) != last;
    };
    EXPECT_TRUE(uploads(10, 1.0F));
    EXPECT_FALSE(uploads(10, 1.0F));
    EXPECT_TRUE(uploads(11, 1.0F));
    EXPECT_TRUE(uploads(11, 1.4F));
    frame.setPixel(0, 0, 0xff00ff00);
    EXPECT_TRUE(uploads(11, 1.4F));
    presenter.showAgain(0, 1.0F);
    EXPECT_EQ(label.pixmap(Qt::ReturnByValue).toImage().pixel(0, 0), 0xff00ff00);
}

TEST_F(ViewTest, KeysAreTheRotaryEncoder) {
    openWindow();
    view().setFocus();
    const std::pair<Qt::Key, int> keys[] = {
        {Qt::Key_Right, 0}, {Qt::Key_Left, 1}, {Qt::Key_1, 2}, {Qt::Key_2, 3}, {Qt::Key_3, 4}};
    for (const auto& [key, event] : keys) {
        panel::IdleTicks = 1000;
        QTest::keyClick(window_->windowHandle(), key);
        EXPECT_EQ(panel::EncoderEvent, event);
        EXPECT_EQ(panel::IdleTicks, 0U);
    }
    QTest::keyClick(window_->windowHandle(), Qt::Key_A);
    EXPECT_EQ(panel::EncoderEvent, 4);
}

} // namespace
