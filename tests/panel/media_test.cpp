#include "widgets/display/media.h"

#include "host/image_file.h"
#include "host/media_requests.h"
#include "imagekit/media_widgets.h"
#include "panel_test.h"
#include "widgets/display/media_files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace panel {
namespace {

using namespace imagekit;
using Lines = std::vector<std::string>;

constexpr std::uint16_t Control = 0x0100;

class MediaTest : public PanelTest {
protected:
    /// Boots, and passes what the start asks for.
    void start(const ImageBuilder& image) {
        SetMediaDirectory(folder.path());
        ASSERT_EQ(boot(image), StartResult::Running);
        cycles(1);
        media();
    }
    void makeFile(const QString& path) const {
        QDir(folder.path()).mkpath(QFileInfo(path).path());
        QFile file(folder.filePath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    Lines cycle() {
        cycles(1);
        return media();
    }

    QTemporaryDir folder;
};

TEST_F(MediaTest, ASoundOfTheImageIsHandedOverOnce) {
    ImageBuilder image(Small);
    const std::vector<std::int16_t> first{0, 1, -1, 32767, -32768}, second{5, 6};
    image.addSound(first);
    image.addSound(second);
    image.addPage();
    image.addPage().add(MusicPlayer{.Number = 2, .Repeat = true});
    start(image);
    apply(word::Music, 1);
    EXPECT_EQ(cycle(), Lines{"sound"});
    EXPECT_EQ(cycle(), Lines{}) << "asked for once";
    ReadySound sound = TakeReadySound();
    EXPECT_TRUE(sound.ready);
    EXPECT_FALSE(sound.repeat);
    EXPECT_EQ(sound.samples, QByteArray(reinterpret_cast<const char*>(first.data()), 10));
    EXPECT_FALSE(TakeReadySound().ready);

    apply(word::Music, 3); // no such sound
    EXPECT_EQ(cycle(), Lines{});
    apply(word::Page, 1);
    EXPECT_EQ(ReadWord(word::Music), 0x8002);
    EXPECT_EQ(cycle(), (Lines{"close video", "stop music", "sound"})) << "the page before ends first";
    sound = TakeReadySound();
    EXPECT_EQ(sound.samples.size(), 4);
    EXPECT_TRUE(sound.repeat && MusicRepeat);
    OpenPopup(0, 0, 0);
    EXPECT_EQ(ReadWord(word::Music), 0x8002) << "a pop-up plays on";
    EXPECT_EQ(cycle(), Lines{"sound"});
    apply(word::Music, 0);
    EXPECT_EQ(cycle(), Lines{"stop music"});
    StoreWord(word::Music, 1);
    ApplySystemWordFromMainThread(word::Music);
    cycles(1); // served behind the media step
    EXPECT_EQ(cycle(), Lines{"sound"});
}

TEST_F(MediaTest, EndActionsTakeEffectOneAfterTheOther) {
    ImageBuilder image(Small);
    image.addSound({1});
    VideoPlayer next;
    next.EndActions[1] = {0x0100, 9};
    image.addPage().add(PagePreset{5, {{0x0200, 1}}});
    image.addPage().add(PagePreset{5, {{0x0200, 2}}});
    image.page(1).add(next);
    start(image);
    const std::uint16_t actions[]{word::Page,  0, word::PagePreset, 5, word::Page, 1,
                                  word::Music, 1, 0xFFFF,           7};
    for (std::uint16_t i = 0; i < std::size(actions); ++i) StoreWord(0x7018 + i, actions[i]);
    RequestEndActions();
    cycles(1);
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(ReadWord(0x0200), 1) << "the preset of the page before";
    EXPECT_EQ(ReadWord(word::Music), 1) << "the sound begins on the new page";
    EXPECT_EQ(cycle(), (Lines{"close video", "stop music", "sound"}));
    EXPECT_EQ(ReadWord(0x0100), 0) << "not those of the next video";

    apply(word::Page, 0);
    cycles(2);
    EXPECT_EQ(CurrentPage, 0) << "once";
}

TEST_F(MediaTest, SoundsBeyondTheImageAreCutAndEmptyOnesStillAskedFor) {
    ImageBuilder image(Small);
    image.addSound({});
    image.addSound({1, 2, 3});
    image.addPage();
    LoadFlash(image.build());
    image.patch(ReadU32(0x18) + 12, {0xFF, 0xFF, 0xFF, 0xFF}); // a size that no image has
    start(image);
    apply(word::Music, 1);
    EXPECT_EQ(cycle(), Lines{"sound"});
    EXPECT_FALSE(TakeReadySound().ready);
    apply(word::Music, 2);
    const ReadySound sound = TakeReadySound();
    EXPECT_TRUE(sound.ready);
    EXPECT_LE(sound.samples.size(), FlashImage.size);
    EXPECT_EQ(sound.samples.left(6), QByteArray("\1\0\2\0\3\0", 6));
}

TEST_F(MediaTest, TheFileMediaChipTakesNumberedFiles) {
    ImageBuilder image({.Width = 64, .Height = 48, .ColourMode = 1, .ICType = 5});
    image.addSound({1});
    VideoPlayer player{.Number = 12, .X1 = 3, .Y1 = 4, .X2 = 22, .Y2 = 13, .Mode = 3};
    player.EndActions = {{{0x7000, 2}, {None, 0}, {0x100, 7}}};
    image.addPage().add(player);
    image.addPage();
    makeFile("Music/0002.wav");
    makeFile("Music/0012.x.0007.wav"); // of the base name only what stands before the first point counts
    makeFile("Video/a0012b.avi");
    start(image);
    apply(word::Music, 0x8003);
    const ReadySound sound = TakeReadySound();
    EXPECT_EQ(sound.file, folder.filePath("Music/0002.wav"));
    EXPECT_TRUE(sound.repeat);
    EXPECT_TRUE(TakeReadySound().ready) << "a file stays ready";
    for (const auto& [code, name] :
         {std::pair{13, "Music/0012.x.0007.wav"}, {8, "Music"}, {0x8000, "Music"}, {1, "Music"}}) {
        apply(word::Music, static_cast<std::uint16_t>(code));
        EXPECT_EQ(TakeReadySound().file, folder.filePath(name)) << code;
    }
    const ReadyVideo video = VideoToPlay();
    EXPECT_EQ(video.file, folder.filePath("Video/a0012b.avi"));
    EXPECT_EQ(video.rect, QRect(3, 4, 20, 10));
    EXPECT_EQ(VideoModeInForce, 3);
    EXPECT_EQ(ReadWord(0x7012), 12);
    std::vector<int> words; // size, mode and end actions
    for (std::uint16_t address = 0x7016; address <= 0x701D; ++address) words.push_back(ReadWord(address));
    EXPECT_EQ(words, (std::vector{13, 3, 0x7000, 2, 0xFFFF, 0, 0x100, 7}));
    EXPECT_EQ(ReadWord(0x7026), 0xFFFF);
    ShowPage(0);
    EXPECT_EQ(cycle(), (Lines{"close video", "video", "stop music"}));
    EXPECT_EQ(cycle(), Lines{});
    apply(word::Page, 1);
    EXPECT_EQ(VideoOnPage, 0u);
    EXPECT_EQ(cycle(), (Lines{"close video", "stop music"}));

    makeFile("Video/00012.avi");
    QStringList inOrder;
    for (const QFileInfo& file : QDir(folder.filePath("Video")).entryInfoList(QDir::Files, QDir::Unsorted))
        inOrder += file.filePath();
    EXPECT_EQ(FindMediaFile("Video", "0012"), inOrder.last()) << "the one listed last";
    EXPECT_EQ(FindMediaFile("Video", "../Music/0002"), folder.filePath("Video"));
}

TEST_F(MediaTest, TheCameraFollowsItsWord) {
    ImageBuilder image(Small);
    image.addPage().add(
        CameraView{.ControlAddress = Control, .X1 = 1, .Y1 = 2, .X2 = 20, .Y2 = 11, .Group = 4});
    image.addPage();
    start(image);
    CameraRequest = 0; // as a first start leaves it
    EXPECT_EQ(CameraToShow().rect, QRect(1, 2, 20, 10));
    EXPECT_EQ(CameraToShow().group, 4);
    const auto set = [this](std::uint16_t value) {
        StoreWord(Control, value);
        return cycle();
    };
    EXPECT_EQ(set(0), Lines{});
    EXPECT_EQ(set(5), Lines{"camera"});
    EXPECT_EQ(set(7), Lines{});
    EXPECT_EQ(set(0), Lines{"close camera"});
    EXPECT_EQ(set(1), Lines{"camera"});
    apply(word::Page, 1);
    EXPECT_EQ(cycle(), (Lines{"close video", "stop music", "close camera"}));
    StoreWord(Control, 0);
    EXPECT_EQ(cycle(), Lines{}) << "nobody looks at the word on other pages";
    apply(word::Page, 0);
    EXPECT_EQ(ReadWord(Control), 1) << "it ran when the page was left";
    EXPECT_EQ(cycle(), (Lines{"close video", "stop music", "close camera", "camera"}));
}

TEST_F(MediaTest, ACameraThatRestsLeavesWhatStandsBehindIt) {
    ImageBuilder image(Small);
    const BitIcon icon{
        .ValueAddress = 0x0200, .X = 6, .Y = 6, .ClearImage = image.addPicture(Filled(8, 8, Qt::red))};
    image.addPage(PlainPage(Small, Qt::gray)).add(icon);
    image.addPage(PlainPage(Small, Qt::gray)).add(icon);
    image.page(1).add(
        CameraView{.ControlAddress = Control, .X1 = 1, .Y1 = 2, .X2 = 20, .Y2 = 15, .Group = 4});
    start(image);
    const QImage without = frameOf(0).copy();
    EXPECT_EQ(frameOf(1), without);
}

TEST_F(MediaTest, NothingOfAnImageIsReadyBehindTheNextOne) {
    const auto load = [this](std::uint8_t chip, const std::vector<std::int16_t>& samples) {
        ImageBuilder image({.Width = 64, .Height = 48, .ColourMode = 1, .ICType = chip});
        image.addSound(samples);
        image.addPage().add(MusicPlayer{});
        image.page(0).add(VideoPlayer{});
        image.write(folder.filePath("image.bin"));
        ASSERT_TRUE(ReadImageFile(folder.filePath("image.bin")));
        StartPanel(outputs);
    };
    SetMediaDirectory(folder.path());
    makeFile("Music/0000.wav");
    for (const std::uint8_t chip : {5, 4}) { // a file, and samples that nobody took
        load(chip, {1, 2, 3});
        load(4, {}); // asks for an empty sound
        EXPECT_FALSE(TakeReadySound().ready) << int{chip};
    }
    VideoRequest = 1; // of a chip without video
    for (const std::uint16_t address : {word::Page, word::Language, word::PagePreset, word::Music})
        ApplySystemWordFromMainThread(address);
    ASSERT_FALSE(ReadImageFile(folder.filePath("no.bin")));
    EXPECT_EQ(VideoRequest, 0u);
    EXPECT_EQ(VideoToPlay().file, QString());
    EXPECT_FALSE(PageRequestFromInspector || LanguageRequestFromInspector || PresetRequestFromInspector
                 || MusicRequestFromInspector);
}

} // namespace
} // namespace panel
