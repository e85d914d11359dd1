#include "host/engine_loop.h"

#include "host/config_block.h"
#include "host/media_requests.h"
#include "host/work_thread.h"
#include "panel_test.h"
#include "store/backlight.h"
#include "widgets/touch/encoder.h"

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

TEST_F(EngineLoop, RandomBytesDoNoHarm) {
    std::mt19937 random(20261122);
    for (int round = 0; round < 300; ++round) {
        QByteArray image(static_cast<int>(random() % 20000), '\0');
        for (char& byte : image) byte = static_cast<char>(random());
        if (image.size() > 0x200) { // a panel size that can be, so that the rest of the head comes into play
            const char size[] = {0x40, 0x00, 0x30, 0x00};
            image.replace(static_cast<int>(ConfigBlockAddress) + 16, 4, size, 4);
            image[static_cast<int>(ConfigBlockAddress) + 7] = static_cast<char>(random() & 1);
        }
        if (boot(image) != StartResult::Running) continue;
        run(400);
        ASSERT_EQ(outputs.frame.size(), QSize(DisplayWidth, DisplayHeight));
    }
}

/// Pages of records of all kinds whose fields are chance, over variables, pictures and fonts that are chance
/// as well, with a finger and the knob at work.
TEST_F(EngineLoop, PagesOfNonsenseDoNoHarm) {
    std::mt19937 random(20261122);
    const auto u8 = [&random] { return static_cast<std::uint8_t>(random()); };
    // Words as a mistaken tool would write them: none, the largest, the most negative, usual ones, or any.
    const auto bytes = [&random](std::size_t count) {
        imagekit::Bytes result(count);
        for (std::size_t i = 0; i + 1 < count; i += 2) {
            const std::mt19937::result_type words[] = {0,       0xFFFF, 0x8000, random() % 64, random() % 64,
                                                       random()};
            const auto word = words[random() % std::size(words)];
            result[i] = static_cast<std::uint8_t>(word);
            result[i + 1] = static_cast<std::uint8_t>(word >> 8);
        }
        return result;
    };
    const auto record = [&]() -> imagekit::DisplayRecord {
        return {.Kind = static_cast<std::uint16_t>(random() % 0x23),
                .Flags = static_cast<std::uint16_t>(random() % 8 == 0 ? 0x100 : 0),
                .ParameterAddress = static_cast<std::uint16_t>(random() % 3 == 0 ? random() : 0xFFFF),
                .Block = bytes(random() % 90),
                .LengthFlag = random() % 2 == 0};
    };
    for (int round = 0; round < 100; ++round) {
        PanelConfig config{.Width = 64, .Height = 48};
        config.ColourMode = u8() % 2;
        config.ICType = u8() % 7;
        config.Rotate = u8() % 4;
        ImageBuilder image(config);
        image.addFont({imagekit::FontKind::Ascii, bytes(300)});
        for (const std::uint8_t format : {0, 3, 6, 10, 7, 0})
            image.addPicture(imagekit::StoredPicture{40, 30, 0x48, format, bytes(400)});
        for (int page = 0; page < 2; ++page) {
            auto& streams = image.addPage();
            std::vector<imagekit::DisplayRecord> display;
            std::vector<imagekit::TouchRecord> touch;
            for (int i = 0; i < 40; ++i) {
                display.push_back(record());
                streams.addToGroup(static_cast<std::uint16_t>(random() % 4), record());
                const auto family = static_cast<std::uint16_t>(0x8000 + random() % 16);
                touch.push_back({family, true, static_cast<std::uint8_t>(u8() % 2), bytes(u8() % 70)});
            }
            streams.setRawStream(imagekit::Stream::Display, RawStream(display));
            streams.setRawStream(imagekit::Stream::Touch, RawStream(touch));
        }
        image.setBytes(0, bytes(4000));
        ASSERT_EQ(boot(image), StartResult::Running);
        for (int cycle = 0; cycle < 60; ++cycle) {
            ticks(8);
            StoreByte(random() % 6000, u8() % 4);
            cycle % 4 == 3 ? ReleasePointer() : MovePointer({u8() % 70, u8() % 50});
            if (cycle % 8 == 0) PressKey(static_cast<EncoderKey>(u8() % 5));
            cycles(1);
            if (cycle % 20 == 0) ShowPage(u8() % 2);
            RefreshAfterTouch(CurrentPage);
        }
        ASSERT_EQ(outputs.frame.size(), FrameSurface.size());
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
