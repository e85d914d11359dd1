#include "host/media_bridge.h"

#include "demo/avi_file.h"
#include "host/frame_picture.h"
#include "host/riff_head.h"
#include "host/video_decoder.h"
#include "imagekit/media_widgets.h"
#include "pages/page_switch.h"
#include "shell/window_fixture.h"
#include "store/backlight.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/display/media.h"

#include <QBuffer>
#include <QCameraInfo>
#include <QPainter>
#include <QSignalSpy>
#include <QVideoFrame>

#include <algorithm>

namespace {

using namespace imagekit;

/// Every pixel another one.
QImage testPicture(QSize size, QImage::Format format = QImage::Format_ARGB32) {
    QImage picture(size, format);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixelColor(x, y, QColor(x * 37 % 256, y * 53 % 256, (x + y) * 11 % 256));
    return picture;
}

TEST(VideoPicture, LiesInTheMiddleOfATransparentRectangle) {
    const struct {
        QSize frame, rect;
        QRect picture; // where the frame lies in the rectangle
    } cases[] = {{{8, 6}, {8, 6}, {0, 0, 8, 6}},
                 {{8, 4}, {16, 20}, {0, 6, 16, 8}},
                 {{4, 8}, {9, 8}, {2, 0, 4, 8}}, // an odd rest
                 {{40, 40}, {10, 5}, {2, 0, 5, 5}}};
    for (const auto& [size, rect, inside] : cases) {
        const QImage frame = testPicture(size);
        QImage expected(rect, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        QPainter(&expected).drawImage(inside.topLeft(), frame.scaled(inside.size()));
        EXPECT_EQ(ComposeVideoPicture(frame, rect).convertToFormat(expected.format()), expected)
            << rect.width();
    }
}

TEST(VideoPicture, IsCutAtThePanelsEdgeAndNeverWholeBeyondIt) {
    const QImage picture = testPicture({10, 8}, QImage::Format_ARGB32_Premultiplied);
    const QSize panel(30, 20);
    EXPECT_EQ(ClippedToPanel(picture, {20, 12}, panel), picture);
    EXPECT_EQ(ClippedToPanel(picture, {25, 12}, panel), picture.copy(0, 0, 5, 8));
    EXPECT_EQ(ClippedToPanel(picture, {25, 17}, panel), picture.copy(0, 0, 5, 3));
    for (const QPoint beyond : {QPoint(30, 0), QPoint(0, 20), QPoint(65535, 65535)})
        EXPECT_TRUE(ClippedToPanel(picture, beyond, panel).isNull());
    EXPECT_TRUE(ComposeVideoPicture(picture, {0, 5}).isNull());
    EXPECT_TRUE(ComposeVideoPicture(picture, {-4, 5}).isNull());
}

TEST(VideoPicture, IsZoomedAndThenVeiled) {
    const QImage picture = testPicture({10, 5}, QImage::Format_ARGB32_Premultiplied);
    for (const float zoom : {0.6F, 1.0F, 2.0F}) {
        const QImage shown = ZoomedUnderVeil(picture, zoom, 100);
        ASSERT_EQ(shown.size(), QSize(qRound(10 * zoom), qRound(5 * zoom)));
        const QImage bright = picture.scaled(shown.size());
        for (int x = 0; x < shown.width(); ++x) {
            const int t = bright.pixelColor(x, 0).red() * (255 - 100);
            ASSERT_EQ(shown.pixelColor(x, 0).red(), (t + (t >> 8) + 128) >> 8);
        }
    }
    EXPECT_EQ(ZoomedPoint({11, 7}, 0.6F), QPoint(7, 4));
    const QImage covering = ComposeCameraPicture(picture, {10, 10}, 2.0F, 255);
    EXPECT_EQ(covering.size(), QSize(40, 20));
    EXPECT_EQ(covering.pixelColor(20, 10), QColor(Qt::black));
}

/// A frame of bytes in memory.
QVideoFrame frameOf(const QByteArray& bytes, QVideoFrame::PixelFormat format) {
    QVideoFrame frame(bytes.size(), {6, 4}, 6, format);
    if (frame.map(QAbstractVideoBuffer::WriteOnly)) std::ranges::copy(bytes, frame.bits());
    frame.unmap();
    return frame;
}

class HandleBuffer : public QAbstractVideoBuffer {
public:
    using QAbstractVideoBuffer::QAbstractVideoBuffer;
    MapMode mapMode() const override { return NotMapped; }
    uchar* map(MapMode, int*, int*) override { return nullptr; }
    void unmap() override {}
    QVariant handle() const override { return 1; }
};

TEST(VideoFrame, BecomesAPictureWhateverItsFormat) {
    const QImage picture = testPicture({6, 4}, QImage::Format_RGB32);
    EXPECT_EQ(FrameToImage(QVideoFrame(picture)), picture.convertToFormat(QImage::Format_ARGB32));
    EXPECT_EQ(FrameToImage(frameOf(QByteArray(36, '\x80'), QVideoFrame::Format_YUV420P)).size(), QSize(6, 4));

    QByteArray file;
    QBuffer out(&file);
    ASSERT_TRUE(picture.save(&out, "PNG"));
    EXPECT_EQ(FrameToImage(frameOf(file, QVideoFrame::Format_Jpeg)),
              picture.convertToFormat(QImage::Format_ARGB32));

    EXPECT_TRUE(FrameToImage(frameOf("no picture", QVideoFrame::Format_Jpeg)).isNull());
    EXPECT_TRUE(FrameToImage(QVideoFrame()).isNull());
    for (const auto type : {QAbstractVideoBuffer::GLTextureHandle, QAbstractVideoBuffer::UserHandle})
        EXPECT_TRUE(
            FrameToImage(QVideoFrame(new HandleBuffer(type), {6, 4}, QVideoFrame::Format_RGB32)).isNull());
}

TEST(Surfaces, PassSoundFramesOnAndTurnTheCamera) {
    const QImage picture = testPicture({6, 4}, QImage::Format_RGB32);
    CameraVideoSurface camera;
    QImage turned;
    QObject::connect(&camera, &CameraVideoSurface::sndImage, [&](const QImage& image) { turned = image; });
    EXPECT_TRUE(camera.present(QVideoFrame(picture)));
    EXPECT_EQ(turned, picture.mirrored(true, true));
    EXPECT_FALSE(camera.present(QVideoFrame()));

    videosurface video;
    int frames = 0;
    QObject::connect(&video, &videosurface::showImage, [&] { ++frames; });
    EXPECT_FALSE(video.present(QVideoFrame()));
    EXPECT_TRUE(video.present(QVideoFrame(picture)));
    EXPECT_EQ(frames, 1);
    EXPECT_EQ(video.supportedPixelFormats(QAbstractVideoBuffer::NoHandle).size(), 32);
}

TEST(RiffHead, TellsOneChannelOf22050SamplesASecond) {
    EXPECT_EQ(panel::RiffHead(0x01020304).toHex(' '),
              "52 49 46 46 28 03 02 01 57 41 56 45 66 6d 74 20 10 00 00 00 01 00 01 00 22 56 00 00 44 ac "
              "00 00 02 00 10 00 64 61 74 61 04 03 02 01");
}

// --- Playing in the window ---

class MediaWindowTest : public WindowTest {
protected:
    void SetUp() override {
        QDir(directory_.path()).mkdir("Video");
        QDir(directory_.path()).mkdir("Music");
        writeFile("Video/0001.avi", film());
        openWindow();
        window_->setAskUser([this](const QString& text, auto, auto) {
            questions_ << text;
            return QMessageBox::No;
        });
    }

    /// A third of a second of pure red.
    static QByteArray film(QSize size = {64, 32}) {
        QImage frame(size, QImage::Format_RGB32);
        frame.fill(Qt::red);
        return demo::AviFile(std::vector<QImage>(8, frame), 25);
    }

    static VideoPlayer video(panel::VideoMode mode, std::uint16_t number = 1) {
        return {.Number = number, .X1 = 20, .Y1 = 10, .X2 = 83, .Y2 = 41, .Mode = std::uint8_t(mode)};
    }

    /// An image of these pages, on the chip that plays files unless told otherwise; a page without a widget
    /// is a rest.
    template <class... Widgets>
    void open(const Widgets&... widgets) {
        ImageBuilder image({.Width = 200, .Height = 100, .ColourMode = 1, .ICType = chip_});
        image.addSound(std::vector<std::int16_t>(2205, 1000));
        const auto addPage = [&](const auto& widget) {
            if constexpr (std::is_null_pointer_v<std::remove_cvref_t<decltype(widget)>>)
                image.addPage();
            else
                image.addPage().add(widget);
        };
        (addPage(widgets), ...);
        openAndRun(writeFile("media.bin", image.build()));
    }

    static void write(std::uint16_t address, std::uint16_t value) {
        panel::StoreWord(address, value);
        panel::ApplySystemWordFromMainThread(address);
    }
    static bool goTo(std::uint16_t page) {
        write(panel::word::Page, page);
        return QTest::qWaitFor([] { return panel::PageRequestFromInspector == 0; }, Patience);
    }

    QList<QMediaPlayer*> players() const { return bridge().findChildren<QMediaPlayer*>(); }
    MediaBridge& bridge() const { return *window_->findChild<MediaBridge*>(); }
    /// The one player, as soon as there is one.
    QMediaPlayer* player() const {
        const bool made = QTest::qWaitFor([this] { return players().size() == 1; }, Patience);
        return made ? players().first() : nullptr;
    }
    static int ends(const QSignalSpy& statuses) {
        return static_cast<int>(std::ranges::count_if(statuses, [](const QList<QVariant>& change) {
            return change.first().value<QMediaPlayer::MediaStatus>() == QMediaPlayer::EndOfMedia;
        }));
    }
    static bool reachesEnds(const QSignalSpy& statuses, int count) {
        return QTest::qWaitFor([&] { return ends(statuses) >= count; }, Patience);
    }
    QLabel& videoLabel() const { return find<QLabel>("videoLabel"); }
    bool showsVideo() const {
        return QTest::qWaitFor(
            [this] { return !videoLabel().pixmap(Qt::ReturnByValue).isNull() && videoLabel().isVisible(); },
            Patience);
    }
    bool hidesVideo() const {
        return QTest::qWaitFor([this] { return !videoLabel().isVisible(); }, Patience);
    }

    std::uint8_t chip_ = 5;
    QStringList questions_;
};

TEST_F(MediaWindowTest, ASoundOfTheImageRepeatsUntilItsPageIsLeft) {
    chip_ = 7;
    open(MusicPlayer{.Number = 1, .Repeat = true}, nullptr);
    QMediaPlayer* music = player();
    ASSERT_TRUE(music);
    QSignalSpy repeating(music, &QMediaPlayer::mediaStatusChanged);
    EXPECT_TRUE(reachesEnds(repeating, 3));

    ASSERT_TRUE(goTo(1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return music->state() == QMediaPlayer::StoppedState; }, Patience));
    QTest::qWait(100);
    const int heard = ends(repeating);
    QTest::qWait(300);
    EXPECT_EQ(ends(repeating), heard);
}

TEST_F(MediaWindowTest, AStopAtTheEndOfASoundOvertakesItsRepeat) {
    chip_ = 7;
    open(MusicPlayer{.Number = 1, .Repeat = true});
    QMediaPlayer* music = player();
    ASSERT_TRUE(music);
    QSignalSpy statuses(music, &QMediaPlayer::mediaStatusChanged);
    QObject::connect(music, &QMediaPlayer::mediaStatusChanged, &bridge(),
                     [this](QMediaPlayer::MediaStatus status) {
                         if (status == QMediaPlayer::EndOfMedia) bridge().stopMusic();
                     });
    EXPECT_TRUE(reachesEnds(statuses, 1));
    QTest::qWait(300);
    EXPECT_EQ(ends(statuses), 1);
}

TEST_F(MediaWindowTest, ASoundFileEndsOnceAndBothPlayersTakeTheVolume) {
    const QByteArray samples(4410, '\1');
    writeFile("Music/0000.wav", panel::RiffHead(4410) + samples);
    open(MusicPlayer{.Number = 1}, video(panel::VideoMode::Repeat));
    QMediaPlayer* music = player();
    ASSERT_TRUE(music);
    QSignalSpy statuses(music, &QMediaPlayer::mediaStatusChanged);
    EXPECT_TRUE(reachesEnds(statuses, 1));
    QTest::qWait(200);
    EXPECT_EQ(ends(statuses), 1);

    ASSERT_TRUE(goTo(1));
    EXPECT_TRUE(showsVideo());
    ASSERT_EQ(players().size(), 2);
    write(panel::word::Volume, 5);
    for (QMediaPlayer* each : players())
        EXPECT_TRUE(QTest::qWaitFor([&] { return each->volume() == 30; }, Patience));
}

TEST_F(MediaWindowTest, ASingleVideoCarriesOutItsEndActions) {
    VideoPlayer once = video(panel::VideoMode::PlayOnce);
    once.EndActions = {EndAction{0x0123, 77}, EndAction{}, EndAction{0x7000, 1}, EndAction{0x70FF, 1}};
    open(once, nullptr);
    ASSERT_TRUE(showsVideo());
    EXPECT_EQ(videoLabel().geometry(), QRect(20, 10, 64, 32));
    const QColor shown = videoLabel().pixmap(Qt::ReturnByValue).toImage().pixelColor(32, 16);
    EXPECT_GT(shown.red(), 240);
    EXPECT_LT(shown.green() + shown.blue(), 20);

    EXPECT_TRUE(QTest::qWaitFor([] { return panel::ReadWord(0x0123) == 77; }, Patience));
    EXPECT_TRUE(QTest::qWaitFor([] { return panel::CurrentPage == 1; }, Patience));
    EXPECT_FALSE(videoLabel().isVisible());
    EXPECT_EQ(players().first()->state(), QMediaPlayer::StoppedState);
    EXPECT_EQ(questions_, QStringList());
}

TEST_F(MediaWindowTest, AVideoRepeatsAndStopsWithItsPageOrImage) {
    open(video(panel::VideoMode::Repeat), nullptr);
    QMediaPlayer* film = player();
    ASSERT_TRUE(film);
    const auto isStopped = [&] {
        QTest::qWait(300);
        return film->state() == QMediaPlayer::StoppedState && !videoLabel().isVisible()
               && videoLabel().pixmap(Qt::ReturnByValue).isNull();
    };
    QSignalSpy statuses(film, &QMediaPlayer::mediaStatusChanged);
    EXPECT_TRUE(reachesEnds(statuses, 2));
    EXPECT_TRUE(showsVideo());
    ASSERT_TRUE(goTo(1));
    EXPECT_TRUE(hidesVideo());
    EXPECT_TRUE(isStopped());
    ASSERT_TRUE(goTo(0));
    EXPECT_TRUE(showsVideo());
    window_->openImage(writeImage("still.bin", Qt::green));
    EXPECT_TRUE(isStopped());
}

TEST_F(MediaWindowTest, ModesLoadContinueAndPause) {
    open(video(panel::VideoMode::LoadHidden), video(panel::VideoMode::Continue),
         video(panel::VideoMode::Pause));
    ASSERT_TRUE(player());
    EXPECT_FALSE(videoLabel().isVisible());
    EXPECT_EQ(player()->state(), QMediaPlayer::StoppedState);
    ASSERT_TRUE(goTo(1));
    EXPECT_TRUE(showsVideo());
    ASSERT_TRUE(goTo(2));
    EXPECT_TRUE(QTest::qWaitFor([this] { return player()->state() == QMediaPlayer::PausedState; }, Patience));
    EXPECT_TRUE(showsVideo());

    trigger("actionZoomIn"); // a paused video follows the zoom and the dimming
    EXPECT_EQ(videoLabel().geometry(), QRect(24, 12, 77, 38));
    write(panel::word::Brightness, 0);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
            const QImage shown = videoLabel().pixmap(Qt::ReturnByValue).toImage();
            return shown.pixelColor(shown.rect().center()) == QColor(Qt::black);
        },
        Patience));
}

TEST_F(MediaWindowTest, AFileThatCannotBePlayedLeavesTheLabelHidden) {
    writeFile("Video/0002.avi", "");
    writeFile("Video/0003.webm", "This is no film.");
    writeFile("Video/0004.txt", "Nor is this.");
    writeFile("Video/0005.avi", film().left(300));
    VideoPlayer beyondThePanel = video(panel::VideoMode::Repeat);
    beyondThePanel.X2 = 200;
    open(beyondThePanel, video(panel::VideoMode::Repeat, 2), video(panel::VideoMode::Repeat, 3),
         video(panel::VideoMode::PlayOnce, 4), video(panel::VideoMode::Repeat, 5),
         video(panel::VideoMode::Repeat, 99), video(panel::VideoMode::Repeat, 1));
    QTest::qWait(500);
    EXPECT_TRUE(players().isEmpty());
    for (std::uint16_t page = 1; page <= 5; ++page) {
        ASSERT_TRUE(goTo(page));
        QTest::qWait(300);
        EXPECT_TRUE(hidesVideo()) << page;
    }
    ASSERT_TRUE(goTo(6)); // and a sound one still plays
    EXPECT_TRUE(showsVideo());
}

TEST_F(MediaWindowTest, AHundredPageChangesLeaveNothingBehind) {
    const auto threads = [] { return QDir("/proc/self/task").count(); };
    open(video(panel::VideoMode::Repeat), video(panel::VideoMode::PlayOnce), nullptr);
    ASSERT_TRUE(showsVideo());
    ASSERT_TRUE(goTo(2));
    QTest::qWait(300);
    const auto threadsAtRest = threads();
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(goTo(i % 2));
        QTest::qWait(i % 7 * 10);
    }
    EXPECT_TRUE(showsVideo());
    EXPECT_EQ(players().size(), 1);
    EXPECT_EQ(bridge().findChildren<videosurface*>().size(), 1);
    ASSERT_TRUE(goTo(2));
    EXPECT_TRUE(hidesVideo());
    EXPECT_TRUE(QTest::qWaitFor([&] { return threads() <= threadsAtRest; }, Patience)) << threads();
}

TEST_F(MediaWindowTest, TellsThatThereIsNoCamera) {
    if (!QCameraInfo::availableCameras().isEmpty()) GTEST_SKIP() << "there is one";
    open(CameraView{.ControlAddress = 0x0100, .X1 = 0, .Y1 = 0, .X2 = 63, .Y2 = 47}, nullptr);
    panel::StoreWord(0x0100, 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !questions_.isEmpty(); }, Patience));
    EXPECT_EQ(NoCamera, 1);
    EXPECT_FALSE(find<QLabel>("cameraLabel").isVisible());
    panel::StoreWord(0x0100, 0);
    ASSERT_TRUE(goTo(1));
    QTest::qWait(200);
    EXPECT_EQ(questions_, QStringList("No camera is detected."));

    auto& label = find<QLabel>("cameraLabel");
    label.show();
    bridge().Close_Camera();
    EXPECT_TRUE(label.isVisible()) << "one found later is the image's to end";
    bridge().leaveImage();
    EXPECT_FALSE(label.isVisible());
}

TEST_F(MediaWindowTest, WithoutADecoderTheUserIsToldAndNothingPlays) {
    qputenv("GST_PLUGIN_SYSTEM_PATH_1_0", "/nowhere");
    qputenv("GST_REGISTRY_1_0", path("registry.bin").toUtf8());
    const QString text = "The video decoder, LAV Filter, is not detected.<br>Install LAV Filter?";
    QDir folder(QCoreApplication::applicationDirPath() + "/LAV Filters");
    folder.removeRecursively();
    QMessageBox::StandardButtons offered;
    const auto probe = [&](QMessageBox::StandardButton answer) {
        QStringList asked;
        ProbeVideoDecoder([&](const QString& question, auto buttons, auto) {
            asked << question;
            offered = buttons;
            return answer;
        });
        return asked;
    };
    EXPECT_EQ(probe(QMessageBox::No), QStringList(text));
    EXPECT_EQ(offered, QMessageBox::Yes | QMessageBox::No | QMessageBox::Ignore);
    EXPECT_EQ(probe(QMessageBox::Ignore), QStringList(text)) << "a No is for once";
    EXPECT_TRUE(QFile::exists(folder.filePath("1.txt")));
    EXPECT_EQ(probe(QMessageBox::No), QStringList()) << "an Ignore is for good";
    folder.removeRecursively();

    open(video(panel::VideoMode::Repeat));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !questions_.isEmpty(); }, Patience));
    QTest::qWait(200);
    EXPECT_EQ(questions_, QStringList(text));
    EXPECT_TRUE(players().isEmpty());
    EXPECT_FALSE(videoLabel().isVisible());
}

} // namespace
