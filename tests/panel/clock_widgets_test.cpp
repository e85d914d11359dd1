#include "imagekit/clock_widgets.h"

#include "golden.h"
#include "imagekit/media_widgets.h"
#include "panel_test.h"
#include "store/clock.h"
#include "store/host_time.h"
#include "widgets/display/analog_clock.h"
#include "widgets/display/group.h"
#include "widgets/display/group_clock.h"
#include "widgets/display/png_clock.h"
#include "widgets/touch/open_entry.h"

#include <QDateTime>

#include <thread>

namespace panel {
namespace {

using imagekit::AnalogClock, imagekit::Inline, imagekit::Pixels, imagekit::PngClock;

constexpr std::uint16_t Digit0 = 2, Block = 0x0200, Control = 0x0100;

/// Glyphs of all widths, and of all heights or one. The pixel (1, 1) lets half of what is behind through.
QImage glyph(QChar character, bool even) {
    const int code = QString("0123456789:.-|abcdefg").indexOf(character);
    QImage picture =
        Filled(code < 14 ? 3 + code % 4 : 8, even ? 6 : 5 + code % 3, qRgb(90 + 5 * code, 40, 0)).Image;
    picture.setPixel(1, 1, qRgba(0, 0, 0, 128));
    return picture;
}

QImage pattern(int width, int height) {
    return Pattern(width, height).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

enum class Place { Page, Popup, List };

class Clocks : public PanelTest {
protected:
    explicit Clocks(bool evenGlyphs = true, std::uint8_t rotation = 0)
        : image({.Width = 170, .Height = 150, .ColourMode = 1, .Rotate = rotation}) {
        for (int i = 0; i < Digit0; ++i) image.addPicture(imagekit::Solid{9, 9, Qt::green});
        for (const QChar character : QString("0123456789:.-|abcdefg"))
            image.addPicture(Pixels{glyph(character, evenGlyphs), format::aRGB8888});
        image.addPage(Pixels{pattern(170, 150)});
        image.addPage(Pixels{pattern(160, 120)});
    }

    static PngClock clock(std::uint16_t x, std::uint16_t y, int format, std::uint16_t firstImage = Digit0) {
        return {Inline, false, x, y, firstImage, static_cast<imagekit::ClockFormat>(format)};
    }
    template <class Widget>
    void add(Place place, Widget widget, std::uint16_t block) {
        widget.InList = place == Place::List;
        if (block != Inline) widget.ParameterAddress = block + 16 * static_cast<int>(blocks.size());
        const imagekit::DisplayRecord record = Encode(widget);
        image.page(place == Place::Popup ? 1 : 0).add(record);
        if (block != Inline) blocks.emplace_back(widget.ParameterAddress, record.Block);
    }
    /// Boots, and fills the blocks only afterwards. Returns by how much the place moves its widgets.
    QPoint show(Place place) {
        boot(image);
        ListSurfaceA = ListSurfaceB = PageBackground;
        if (place == Place::Popup) openPopup(1, 7, 5);
        for (const auto& [address, bytes] : blocks) StoreBytes(std::size_t{2} * address, bytes);
        FrameSurface = PageBackground;
        return PopupActive ? QPoint(7, 5) : QPoint();
    }
    static void setTime(const char* text) {
        SetHostTime(QDateTime::fromString(text, Qt::ISODate));
        InitClock();
    }
    void second() {
        OncePerSecond();
        cycles(1);
    }

    imagekit::ImageBuilder image;
    std::vector<std::pair<std::uint16_t, imagekit::Bytes>> blocks;
};

TEST_F(Clocks, OnAPageLeaveNothingBehindOverMidnightsAndEndsOfMonthAndYear) {
    const char* const starts[] = {"2025-12-31T23:59:57", "2024-02-28T23:59:57", "2023-02-28T23:59:57",
                                  "2026-04-30T19:59:57", "2026-11-18T09:05:02", "0999-01-01T00:00:00"};
    constexpr QSize shown(140, 78);
    const imagekit::ImageBuilder empty = image;
    for (const int firstFormat : {0, 6}) {
        Sheet sheet(shown, 10, 18);
        for (const Place place : {Place::Page, Place::Popup, Place::List})
            for (const char* start : starts)
                for (const std::uint16_t block : {Inline, Block}) {
                    image = empty;
                    blocks.clear();
                    for (int i = 0; i < 6; ++i) add(place, clock(4, 3 + 12 * i, firstFormat + i), block);
                    const QPoint shift = show(place);
                    setTime(start);
                    for (int i = 0; i < 5; ++i) {
                        second();
                        sheet.add((place == Place::List ? ListSurfaceA : FrameSurface).copy({shift, shown}));
                    }
                }
        EXPECT_TRUE(
            EqualsGolden(sheet.picture(), QString("panel/golden/page-clocks-%1.png").arg(firstFormat)));
    }
}

class GroupClocks : public Clocks, public ::testing::WithParamInterface<std::uint8_t> {
protected:
    GroupClocks() : Clocks(false, GetParam()) {}
};

TEST_P(GroupClocks, StandAsThePanelIsTurnedAndChangeEachSecond) {
    for (std::uint16_t i = 0; i < 24; ++i) {
        PngClock member = clock(90, 70, i % 12);
        if (i >= 12) member.ParameterAddress = i * 16;
        image.page(0).addToGroup(i, member);
        image.setBytes(i * 16, Encode(member).Block);
    }
    boot(image);
    const QImage clear = WorkSurface;
    Sheet sheet({170, 170}, 12, 8); // both ways up
    for (const char* time : {"2026-11-18T09:05:03", "0987-10-28T23:59:48"})
        for (std::uint16_t i = 0; i < 24; ++i) {
            setTime(time);
            WorkSurface = OverlaySurface = clear;
            DrawGroupInRect(0, i, {11, 7, 5, 5});
            sheet.add(WorkSurface);
            sheet.add(OverlaySurface);
        }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), QString("panel/golden/group-clocks-%1.png").arg(GetParam())));
    OncePerSecond();
    EXPECT_TRUE(GroupChanged(0, 3));
    cycles(1);
    EXPECT_FALSE(GroupChanged(0, 3));
}
INSTANTIATE_TEST_SUITE_P(Turns, GroupClocks, ::testing::Values(0, 1, 2, 3));

TEST_F(Clocks, TickOverTheCameraPicture) {
    image.page(0).add(
        imagekit::CameraView{.ControlAddress = Control, .X1 = 10, .Y1 = 20, .X2 = 99, .Y2 = 79, .Group = 4});
    for (int i = 0; i < 12; ++i) image.page(0).addToGroup(4 + i % 2, clock(15, 25 + 9 * i, i));
    boot(image);
    setTime("2026-12-31T23:59:58");
    StoreWord(Control, 1);
    cycles(1);
    const QImage camera = pattern(120, 150);
    Sheet sheet(camera.size(), 3, 1);
    for (int i = 0; i < 3; ++i, OncePerSecond()) // the engine has not had its cycle
        sheet.add(DrawGroupClocksOnly(camera));
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/camera-clocks.png"));
    std::thread frames([&] {
        for (int i = 0; i < 200; ++i) DrawGroupClocksOnly(camera);
    });
    cycles(500);
    frames.join();
}

/// The run begins with two pictures of a kind that no text may begin with: the 1 of the year, not the 2 of
/// the hour.
TEST_F(Clocks, InAGroupGoByTheFirstPictureOfEachText) {
    image.page(0).addToGroup(4, clock(5, 5, 0, 0));
    boot(image);
    setTime("1999-11-18T22:33:44");
    Clock.Hour = 122; // as a host may set it in a year that the clock cannot count
    DrawGroupInRect(0, 4, {0, 0, 9, 9});
    EXPECT_TRUE(EqualsGolden(WorkSurface, "panel/golden/clock-without-digits.png"));
}

TEST_F(Clocks, BeyondTheTablesAreRefusedAndNoneDrawsIntoAnOpenEntry) {
    std::vector<imagekit::DisplayRecord> records;
    for (const PngClock& each : {clock(20, 30, 4), clock(20, 50, 7), clock(20, 65, 0), clock(0, 0, 12),
                                 clock(0, 0, 4, 0xFFFC), clock(0, 0, 255), clock(0, 0, 4)})
        records.push_back(Encode(each)); // the seventh would show something
    for (const std::uint16_t x : {20, 60, 100})
        records.push_back(Encode(AnalogClock{.X = x, .Y = 90, .Face = Digit0 + 14}));
    image.page(0).setRawStream(imagekit::Stream::Display, RawStream(records));
    boot(image);
    for (const QPoint refused : {QPoint(0, 0), QPoint(100, 90)})
        EXPECT_EQ(FrameSurface.pixel(refused), PageBackground.pixel(refused));
    const int areas[][4] = {{20, 30, 35, 6}, {20, 50, 8, 6}, {20, 65, 42, 6}, {60, 90, 8, 6}}; // at 11:11:12
    for (const auto& [x, y, w, h] : areas)
        for (int side = 0; side < 8; ++side) { // boxes that touch the widget, and those a pixel away
            const int away = side / 4;
            const EntryRect boxes[] = {{0, y, x - away, y},
                                       {x + w + away, y, 169, y},
                                       {x, 0, x, y - away},
                                       {x, y + h + away, x, 149}};
            OpenEntryRect = boxes[side % 4];
            setTime("2026-11-18T11:11:11");
            FrameSurface.fill(Qt::red);
            second();
            ASSERT_EQ(FrameSurface.pixelColor(x, y) == Qt::red, away == 0) << y << ' ' << side;
        }
}

TEST_F(Clocks, DialsPointToTheTimeOfDay) {
    const std::uint16_t face = image.addPicture(Pixels{pattern(40, 36)}), cap = Digit0 + 1;
    const std::uint16_t clear = image.addPicture(Filled(33, 31, QColor(0, 0, 0, 128), format::aRGB8888));
    const AnalogClock dials[] = {
        {Inline, false, 3, 4, face, {9, 2, 5, 0x102030}, {14, 0, 3, 0x405060}, {19, 6, 1, 0xFF0000}, cap},
        {Inline, false, 60, 50, clear, {6, 0, 2, 0xFFFFFF}, {30, 30, 4, 0x00FF00}}};
    const imagekit::ImageBuilder empty = image;
    constexpr QSize shown(100, 85);
    Sheet sheet(shown, 12, 6);
    for (const Place place : {Place::Page, Place::Popup, Place::List})
        for (const std::uint16_t block : {Inline, Block}) {
            image = empty;
            blocks.clear();
            for (const AnalogClock& dial : dials) add(place, dial, block);
            const QPoint shift = show(place);
            RefreshPageWidgets(CurrentPage);
            for (int i = 0; i < 12; ++i) {
                const int minute = 131 * i;
                SetClock(2026, 11, 18, minute / 60, minute % 60, minute * 7 % 60);
                SecondTick = 1;
                AnalogClockTick();
                sheet.add((place == Place::List ? ListSurfaceA : FrameSurface).copy({shift, shown}));
            }
        }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/dials.png", 40));
}

} // namespace
} // namespace panel
