#include "host/engine_loop.h"

#include "host/config_block.h"
#include "host/media_requests.h"
#include "host/work_thread.h"
#include "panel_test.h"
#include "store/backlight.h"

#include <QCoreApplication>

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::PanelConfig;

constexpr QRgb ErrorColour = qRgb(0x00, 0xA2, 0xFF);

ImageBuilder twoPages(const PanelConfig& config = Small) {
    return ColouredPages({Qt::red, Qt::green}, config);
}

class EngineLoop : public PanelTest {};

TEST_F(EngineLoop, APanelThatCannotBeEndsInAFrameOfOneColour) {
    QByteArray wrongCheck = twoPages().build();
    wrongCheck[static_cast<int>(ConfigBlockAddress) + 40] = 'x'; // a covered byte
    const PanelConfig noColours{.Width = 64, .Height = 48, .ColourMode = 2, .Rotate = 1, .WithCheck = false};
    struct Case {
        QByteArray image;
        StartResult result;
        QSize size;
        QRgb colour;
    };
    const QSize usual(800, 480);
    const Case cases[] = {
        {wrongCheck, StartResult::Illegal, {64, 48}, ErrorColour},
        {twoPages(noColours).build(), StartResult::UnknownColours, {48, 64}, qRgb(0, 0, 255)},
        {{}, StartResult::Illegal, usual, ErrorColour},
        {QByteArray(1024, '\0'), StartResult::Illegal, usual, ErrorColour},
        {ImageBuilder({.Width = 0}).build(), StartResult::Illegal, usual, ErrorColour},
        {ImageBuilder({.Height = 4097}).build(), StartResult::Illegal, usual, ErrorColour}};
    for (const Case& row : cases) {
        outputs = {};
        EXPECT_EQ(boot(row.image), row.result);
        EXPECT_EQ(outputs.frames, 1);
        EXPECT_EQ(outputs.frame.size(), row.size);
        EXPECT_EQ(pixel(row.size.width() - 1, row.size.height() - 1), row.colour);
        EXPECT_TRUE(media().empty());
    }
}

TEST_F(EngineLoop, MediaRequestsArePassedOnceAndVideoOnItsChipAlone) {
    for (const std::uint8_t chip : {4, 5}) {
        boot(twoPages({.Width = 64, .Height = 48, .ColourMode = 1, .ICType = chip}));
        cycles(1);
        media();
        VideoRequest = MusicPlaying = CameraRequest = 1;
        cycles(3);
        const std::vector<std::string> all{"video", "sound", "camera"};
        EXPECT_EQ(media(), chip == 5 ? all : std::vector<std::string>({"sound", "camera"})) << int{chip};
        EXPECT_EQ(VideoRequest, chip == 5 ? 0u : 1u);
        for (const std::uint16_t volume : {8, 3, 3}) {
            apply(word::Volume, volume);
            cycles(2);
        }
        EXPECT_EQ(media(), (std::vector<std::string>{"volume 18"})) << "only when it changes";
    }
}

TEST_F(EngineLoop, FramesThatNobodyTakesGiveWayToTheNewest) {
    int argc = 1;
    char name[] = "test";
    char* argv[] = {name, nullptr};
    QCoreApplication application(argc, argv);
    WorkThread thread;
    std::vector<QImage> taken;
    QObject::connect(&thread, &WorkThread::Update_to_MainWindow, &thread, [&] {
        if (const auto frame = thread.takeFrame()) taken.push_back(*frame);
    });
    LoadFlash(twoPages().build());
    thread.start();
    QThread::msleep(200); // many frames, and no event loop to take them
    StoreWord(word::Page, 1);
    ApplySystemWordFromMainThread(word::Page);
    QThread::msleep(100);
    thread.stop();
    EXPECT_FALSE(thread.isRunning());
    QCoreApplication::processEvents();
    ASSERT_EQ(taken.size(), 1u);
    EXPECT_EQ(taken[0].pixel(0, 0), qRgb(0, 255, 0));
}

} // namespace
} // namespace panel
