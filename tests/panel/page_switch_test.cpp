#include "pages/page_switch.h"

#include "graphics/image_row.h"
#include "host/media_requests.h"
#include "pages/page_presets.h"
#include "panel_test.h"
#include "store/clock.h"
#include "store/host_time.h"
#include "store/language.h"
#include "store/system_words.h"
#include "widgets/touch/encoder.h"

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::PagePreset;
using imagekit::PanelConfig;

const PanelConfig Small{.Width = 64, .Height = 48, .ColourMode = 1, .LangueNum = 2};
const QColor Red(200, 0, 0), Green(0, 200, 0), Blue(0, 0, 200);

imagekit::Pixels picture(QSize size, QColor colour, std::uint8_t pictureFormat = format::RGB565) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return {.Image = image, .Format = pictureFormat};
}

class PageSwitch : public PanelTest {
protected:
    PageSwitch() {
        image.addPage(PlainPage(Small, Red));
        image.addPage(picture({64, 48}, Green));
        image.addPage(picture({20, 10}, QColor(0, 0, 200, 128), format::aRGB8888)); // a translucent pop-up
        image.addPage();                                                            // without a picture
    }

    /// Opens a pop-up as its key does.
    static void openPopup(std::uint16_t page, std::uint16_t x, std::uint16_t y) {
        PopupActive = 1;
        PopupPage = page;
        PopupOriginX = x;
        PopupOriginY = y;
        OpenPopup(page, x, y);
    }
    static QRgb frameAt(int x, int y) { return FrameSurface.pixel(x, y); }

    ImageBuilder image{Small};
};

TEST_F(PageSwitch, ShowsThePictureAndKeepsACleanCopy) {
    boot(image);
    EXPECT_EQ(CurrentPage, 0);
    EXPECT_EQ(frameAt(0, 0), Red.rgb());
    ShowPage(1);
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(ReadWord(word::Page), 1);
    EXPECT_EQ(frameAt(63, 47), Green.rgb());
    EXPECT_EQ(PageBackground, FrameSurface);
    FrameSurface.fill(Qt::white);
    EXPECT_EQ(PageBackground.pixel(5, 5), Green.rgb());
    ShowPage(1);
    EXPECT_EQ(frameAt(5, 5), Green.rgb()) << "the page on show is drawn anew";
}

TEST_F(PageSwitch, RefusesPagesThatDoNotExist) {
    boot(image);
    for (const std::uint16_t page : {4, 5, 0xFFFF}) {
        ShowPage(page);
        openPopup(page, 0, 0);
        EXPECT_EQ(CurrentPage, 0);
        EXPECT_EQ(ReadWord(word::Page), 0);
    }
}

TEST_F(PageSwitch, ForgetsPressPopupAndEncoder) {
    boot(image);
    PressPointer({5, 5});
    TouchBusy = 1;
    PopupActive = 1;
    EncoderState = 2;
    ShowPage(1);
    EXPECT_EQ(TouchPressed, 0);
    EXPECT_EQ(TouchStartLatched, 0);
    EXPECT_EQ(TouchBusy, 0);
    EXPECT_EQ(PopupActive, 0);
    EXPECT_EQ(EncoderState, 0);
}

TEST_F(PageSwitch, StopsMediaOnAPageButNotForAPopup) {
    boot(image);
    cycles(1);
    EXPECT_EQ(media(), (std::vector<std::string>{"volume 48", "close video", "stop music"}));
    cycles(3);
    EXPECT_TRUE(media().empty()) << "each request is passed on once";

    StoreWord(word::Music, 3);
    CameraRequest = 0; // a first camera start has passed
    CameraOnPage = 1;
    openPopup(2, 0, 0);
    cycles(1);
    EXPECT_TRUE(media().empty());
    EXPECT_EQ(ReadWord(word::Music), 3);

    ShowPage(1);
    cycles(1);
    EXPECT_EQ(media(), (std::vector<std::string>{"close video", "stop music", "close camera"}));
    EXPECT_EQ(ReadWord(word::Music), 0);
    EXPECT_EQ(CameraResetPending, 1u);
}

TEST_F(PageSwitch, APopupIsBlendedOverTheFrameAndBecomesTheBackground) {
    boot(image);
    QImage expected = FrameSurface.copy();
    for (int y = 10; y < 20; ++y)
        for (int x = 30; x < 50; ++x) expected.setPixel(x, y, 0);
    openPopup(2, 30, 10);
    EXPECT_EQ(CurrentPage, 2);
    EXPECT_EQ(PageImage, PopupImage);
    EXPECT_EQ(PageImage.Width, 20);
    EXPECT_EQ(frameAt(29, 10), Red.rgb());
    EXPECT_EQ(frameAt(50, 19), Red.rgb());
    const QColor inside(frameAt(30, 10));
    EXPECT_NEAR(inside.red(), 100, 1);
    EXPECT_NEAR(inside.blue(), 100, 1);
    EXPECT_EQ(PageBackground, FrameSurface);
}

TEST_F(PageSwitch, APopupThatPassesTheEdgeIsCut) {
    boot(image);
    openPopup(2, 60, 45);
    EXPECT_NE(frameAt(63, 47), Red.rgb());
    EXPECT_EQ(PageBackground, FrameSurface);
    openPopup(2, 0xFFFF, 0xFFFF);
}

TEST_F(PageSwitch, APopupWithoutAPictureShowsWhatLiesUnderIt) {
    boot(image);
    openPopup(3, 10, 10);
    EXPECT_EQ(CurrentPage, 3);
    EXPECT_FALSE(PageImage.hasPicture());
    EXPECT_EQ(frameAt(10, 10), Red.rgb());
}

TEST_F(PageSwitch, TimeWordsFollowTheClockAndAPopupTakesThemBack) {
    SetHostTime(QDateTime::fromString("2026-11-22T10:20:30", Qt::ISODate));
    boot(image);
    run(2000);
    EXPECT_EQ(ReadWord(word::Second), 30);
    ShowPage(1);
    EXPECT_EQ(ReadWord(word::Second), 32);
    EXPECT_EQ(ReadWord(word::SetTime), 0);

    StoreWord(word::Hour, 23);
    openPopup(2, 0, 0);
    EXPECT_EQ(Clock.Hour, 23);
}

TEST_F(PageSwitch, ALanguageChangeOpensThePopupAgain) {
    boot(image);
    openPopup(2, 30, 10);
    StoreLowByte(word::Language, 1);
    ApplySystemWord(word::Language);
    EXPECT_EQ(CurrentPage, 2);
    EXPECT_EQ(PopupActive, 1);
    EXPECT_EQ(frameAt(0, 0), Red.rgb());
}

class StartPageTest : public PageSwitch {
protected:
    StartResult bootAt(std::uint16_t startPage) {
        ImageBuilder at({.Width = 64, .Height = 48, .ColourMode = 1, .StartPage = startPage});
        at.addPage(PlainPage(Small, Red));
        at.addPage(PlainPage(Small, Green));
        return boot(at);
    }
};

TEST_F(StartPageTest, IsShownIfItExists) {
    bootAt(1);
    EXPECT_EQ(frameAt(0, 0), Green.rgb());
    bootAt(3);
    EXPECT_EQ(frameAt(0, 0), Red.rgb()) << "beyond the last page: page 0";
    CurrentPage = 7;
    bootAt(2);
    EXPECT_EQ(frameAt(0, 0), 0xFF000000u) << "one past the last page: none";
    EXPECT_EQ(CurrentPage, 7);
    cycles(2);
}

class Presets : public PageSwitch {
protected:
    void bootWith(std::initializer_list<PagePreset> presets) {
        for (const PagePreset& preset : presets) image.page(0).add(preset);
        boot(image);
    }
    static void applyPreset(std::uint16_t id) {
        StoreWord(word::PagePreset, id);
        ApplySystemWord(word::PagePreset);
    }
};

TEST_F(Presets, WriteTheirWordsAndApplySystemWords) {
    bootWith({{5, {{0x0100, 1}}}, {6, {{0x0100, 0x1234}, {word::Volume, 3}, {0x70FF, 9}, {0xFFFF, 9}}}});
    applyPreset(6);
    EXPECT_EQ(ReadWord(0x0100), 0x1234);
    EXPECT_EQ(Volume, 3);
    EXPECT_TRUE(WordDiffers(0x0100)) << "widgets have yet to show it";
}

TEST_F(Presets, ChangeThePageAsTheirLastAct) {
    bootWith({{5, {{word::Page, 1}, {0x0100, 7}}}});
    applyPreset(5);
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(ReadWord(0x0100), 7);

    applyPreset(5);
    EXPECT_EQ(CurrentPage, 1) << "page 1 has no presets of its own";
    StoreWord(word::Page, 2);
    applyPreset(99);
    EXPECT_EQ(CurrentPage, 2) << "an unknown one still applies the page word";
}

TEST_F(Presets, OfAPageReplaceThoseOfTheLast) {
    image.page(1).add(PagePreset{5, {{0x0100, 0xBBBB}}});
    bootWith({{5, {{0x0100, 0xAAAA}}}});
    ShowPage(1);
    applyPreset(5);
    EXPECT_EQ(ReadWord(0x0100), 0xBBBB);
}

TEST_F(Presets, LanguageChangeInTheMiddleKeepsTheItemsThatFollow) {
    bootWith({{5, {{word::Language, 1}, {word::Page, 1}, {0x0100, 7}}}});
    applyPreset(5);
    EXPECT_EQ(Language, 1);
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(ReadWord(0x0100), 7);
}

TEST_F(Presets, ThatApplyThemselvesComeToAnEnd) {
    PagePreset loop{5, {}};
    for (int i = 0; i < 60; ++i) loop.Items.push_back({word::PagePreset, 5});
    loop.Items.push_back({0x0100, 7});
    bootWith({loop});
    applyPreset(5);
    EXPECT_EQ(ReadWord(0x0100), 7);
    StoreWord(0x0100, 0);
    applyPreset(5);
    EXPECT_EQ(ReadWord(0x0100), 7) << "and work the next time";
}

TEST_F(Presets, BeyondTheBufferAreNotFound) {
    imagekit::Bytes stream;
    for (std::uint8_t id = 0; id < 200; ++id) {
        const imagekit::Bytes record{id, 0, 4, 0x00, 0x01, id, 0};
        stream.insert(stream.end(), record.begin(), record.end());
    }
    image.page(0).setRawStream(imagekit::Stream::Presets, stream);
    boot(image);
    applyPreset(145);
    EXPECT_EQ(ReadWord(0x0100), 145);
    applyPreset(150);
    EXPECT_EQ(ReadWord(0x0100), 145);
}

} // namespace
} // namespace panel
