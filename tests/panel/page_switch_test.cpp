#include "pages/page_switch.h"

#include "graphics/image_row.h"
#include "host/media_requests.h"
#include "pages/page_presets.h"
#include "panel_test.h"
#include "store/clock.h"
#include "store/host_time.h"
#include "store/language.h"
#include "widgets/touch/encoder.h"

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::PagePreset;

const QColor Red(200, 0, 0), Green(0, 200, 0);

/// A red page, a green one, a translucent blue pop-up, and one without a picture.
class PageSwitch : public PanelTest {
protected:
    PageSwitch() {
        image.addPage(Filled(20, 10, QColor(0, 0, 200, 128), format::aRGB8888));
        image.addPage();
    }

    static QRgb frameAt(int x, int y) { return FrameSurface.pixel(x, y); }

    ImageBuilder image =
        ColouredPages({Red, Green}, {.Width = 64, .Height = 48, .ColourMode = 1, .LangueNum = 2});
};

TEST_F(PageSwitch, ShowsThePictureAndKeepsACleanCopy) {
    boot(image);
    EXPECT_EQ(frameAt(0, 0), Red.rgb());
    PressPointer({5, 5});
    TouchBusy = PopupActive = 1;
    EncoderState = 2;
    ShowPage(1);
    EXPECT_EQ(TouchPressed + TouchStartLatched + TouchBusy + PopupActive + EncoderState, 0)
        << "all forgotten";
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(ReadWord(word::Page), 1);
    EXPECT_EQ(frameAt(63, 47), Green.rgb());
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
        EXPECT_EQ(ReadWord(word::Page), 0);
        apply(word::Page, page);
        EXPECT_EQ(CurrentPage, 0);
        EXPECT_EQ(ReadWord(word::Page), page) << "a request stays as it was written";
        StoreWord(word::Page, 0);
    }
}

TEST_F(PageSwitch, StopsMediaOnAPageButNotForAPopup) {
    boot(image);
    cycles(1);
    EXPECT_EQ(media(), (std::vector<std::string>{"volume 48", "close video", "stop music"}));
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
    openPopup(2, 30, 10);
    EXPECT_EQ(CurrentPage, 2);
    EXPECT_EQ(PageImage.Width, 20);
    EXPECT_EQ(frameAt(29, 10), Red.rgb());
    EXPECT_EQ(frameAt(50, 19), Red.rgb());
    const QColor inside(frameAt(30, 10));
    EXPECT_NEAR(inside.red(), 100, 1);
    EXPECT_NEAR(inside.blue(), 100, 1);
    EXPECT_EQ(PageBackground, FrameSurface);
    apply(word::Language, 1);
    EXPECT_EQ(PopupActive * 10 + CurrentPage, 12) << "a change of language opens it again";
    EXPECT_EQ(frameAt(0, 0), Red.rgb());

    openPopup(2, 60, 45);
    EXPECT_NE(frameAt(63, 47), Red.rgb()) << "one that passes the edge is cut";
    openPopup(2, 0xFFFF, 0xFFFF);
    openPopup(3, 0, 0);
    EXPECT_EQ(CurrentPage, 3);
    EXPECT_EQ(frameAt(0, 0), Red.rgb()) << "one without a picture shows what lies under it";
}

TEST_F(PageSwitch, TimeWordsFollowTheClockAndAPopupTakesThemBack) {
    SetHostTime(QDateTime::fromString("2026-11-22T10:20:30", Qt::ISODate));
    boot(image);
    run(2000);
    EXPECT_EQ(ReadWord(word::Second), 30);
    ShowPage(1);
    EXPECT_EQ(ReadWord(word::Second), 32);

    StoreWord(word::Hour, 23);
    openPopup(2, 0, 0);
    EXPECT_EQ(Clock.Hour, 23);
}

TEST_F(PageSwitch, AStartPageIsShownIfItExists) {
    const auto bootAt = [this](std::uint16_t page) {
        boot(ColouredPages({Red, Green}, {.Width = 64, .Height = 48, .ColourMode = 1, .StartPage = page}));
        return frameAt(0, 0);
    };
    EXPECT_EQ(bootAt(1), Green.rgb());
    EXPECT_EQ(bootAt(3), Red.rgb()) << "beyond the last page: page 0";
    CurrentPage = 7;
    EXPECT_EQ(bootAt(2), 0xFF000000u) << "one past the last page: none";
    EXPECT_EQ(CurrentPage, 7);
    cycles(2);
}

class Presets : public PageSwitch {};

TEST_F(Presets, ChangeThePageAsTheirLastActAndBelongToTheirPage) {
    image.page(1).add(PagePreset{5, {{0x0100, 8}}});
    image.page(0).add(
        PagePreset{5, {{word::Language, 1}, {word::Page, 1}, {word::Volume, 3}, {0x0100, 7}, {0xFFFF, 9}}});
    boot(image);
    apply(word::PagePreset, 5);
    EXPECT_EQ(Language, 1);
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(Volume, 3);
    EXPECT_EQ(ReadWord(0x0100), 7) << "a change of language in the middle keeps the items that follow";
    EXPECT_TRUE(WordDiffers(0x0100)) << "widgets have yet to show it";
    apply(word::PagePreset, 5);
    EXPECT_EQ(ReadWord(0x0100), 8);
    StoreWord(word::Page, 2);
    apply(word::PagePreset, 99);
    EXPECT_EQ(CurrentPage, 2) << "an unknown one still applies the page word";
}

TEST_F(Presets, ThatApplyThemselvesComeToAnEnd) {
    PagePreset loop{5, std::vector<imagekit::PresetItem>(60, {word::PagePreset, 5})};
    loop.Items.push_back({0x0100, 7});
    image.page(0).add(loop);
    boot(image);
    for (int round = 0; round < 2; ++round) {
        StoreWord(0x0100, 0);
        apply(word::PagePreset, 5);
        EXPECT_EQ(ReadWord(0x0100), 7);
    }
}

TEST_F(Presets, BeyondTheBufferAreNotFound) {
    imagekit::ByteWriter stream;
    for (std::uint8_t id = 0; id < 200; ++id) stream.bytes(imagekit::Bytes{id, 0, 4, 0x00, 0x01, id, 0});
    image.page(0).setRawStream(imagekit::Stream::Presets, stream.data());
    boot(image);
    apply(word::PagePreset, 145);
    apply(word::PagePreset, 150);
    EXPECT_EQ(ReadWord(0x0100), 145);
}

} // namespace
} // namespace panel
