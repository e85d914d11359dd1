#include "golden.h"
#include "touch_fixture.h"
#include "widgets/touch/roller_picker.h"

namespace panel {
namespace {

using imagekit::RollerPicker;

constexpr std::uint16_t Value = 0x0100;
constexpr int Across = 7, Cells = 4, Cell = 6, Window = 17;

/// A roller of the values 3, 7, 11 and 15 whose window is a little shorter than its strip.
RollerPicker pickerAt(bool horizontal) {
    RollerPicker picker{.Notify = true, .Address = Value, .Horizontal = horizontal};
    picker.Window = horizontal ? imagekit::Area{20, 10, 20 + Window, 10 + Across}
                               : imagekit::Area{20, 10, 20 + Across, 10 + Window};
    picker.MarginA = 7;
    picker.MarginB = 4;
    picker.SelectedStrip = horizontal ? 1 : 0;
    picker.NormalStrip = horizontal ? 3 : 2;
    picker.Lowest = 3;
    picker.Highest = 15;
    picker.Step = 4;
    return picker;
}

class RollerTest : public TouchTest {
protected:
    /// Pictures 0 and 1: the selected strips, tall and wide; 2 and 3: the normal ones. A keyed strip lets the
    /// page through at an edge.
    void addStrips(std::uint8_t selectedFormat = format::RGB565, int length = Cells * Cell) {
        for (const bool selected : {true, false})
            for (const bool wide : {false, true}) {
                QImage strip = Pattern(wide ? length : Across, wide ? Across : length);
                strip.convertTo(QImage::Format_ARGB32);
                if (!selected) strip.invertPixels();
                for (int i = 0; i < length; ++i) strip.setPixel(wide ? QPoint(i, 0) : QPoint(0, i), 0);
                const std::uint8_t kind = selected ? selectedFormat : format::RGB565;
                image.addPicture(kind == format::None ? imagekit::Picture() : imagekit::Pixels{strip, kind});
            }
    }

    static Roller& roller() { return *Rollers.at(Rollers.size() - 1); }
    /// The place of the strip that the band begins with, on the screen.
    static int shownOffset() {
        return roller().Horizontal ? qRed(FrameSurface.pixel(27, 11)) : qGreen(FrameSurface.pixel(21, 17));
    }
};

TEST_F(RollerTest, TheWindowShowsTheStripAtItsOffset) {
    const int offsets[] = {-30, -24, -7, 0, 1, 6, 11, 17, 18, 23, 24, 26};
    Sheet sheet({64, 48}, int(std::size(offsets)), 3 * 2);
    for (const std::uint8_t kind : {format::RGB565, format::RGB565Key, format::None}) {
        image = imagekit::ImageBuilder(Small);
        addStrips(kind);
        for (const bool horizontal : {false, true}) addPage().add(pickerAt(horizontal));
        start();
        for (const std::uint16_t page : {0, 1}) {
            ShowPage(page);
            for (const int offset : offsets) {
                roller().Offset = static_cast<std::int16_t>(offset);
                WorkSurface.fill(Qt::magenta); // what another widget may have left there
                DrawRoller(roller());
                EXPECT_EQ(roller().Offset, std::min(offset, Cells * Cell));
                sheet.add(FrameSurface);
            }
        }
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), "panel/golden/rollers.png"));
}

TEST_F(RollerTest, TheStripFollowsTheFingerAndSnapsWhenLetGo) {
    addStrips();
    for (const bool stops : {false, true})
        for (const bool horizontal : {false, true}) {
            RollerPicker picker = pickerAt(horizontal), beyond = picker;
            picker.StopsAtEnds = stops;
            beyond.Window.X0 += 100; // out of reach, and first in the table
            beyond.Window.X1 += 100;
            imagekit::Page& page = addPage();
            page.add(beyond);
            page.add(picker);
        }
    start();
    const struct {
        int moved;                        // by the finger towards the strip's start, from the value 7 on
        std::array<int, 2> offset, value; // of an endless strip, and of one that stops at its ends
    } cases[] = {{0, {6, 6}, {7, 7}},     {3, {9, 9}, {7, 7}}, // half a cell
                 {4, {10, 10}, {11, 11}}, {12, {18, 18}, {15, 15}}, {14, {20, 18}, {15, 15}},
                 {16, {22, 18}, {3, 15}}, {18, {24, 18}, {3, 15}},  {19, {1, 18}, {3, 15}},
                 {22, {4, 18}, {7, 15}},  {-4, {2, 2}, {3, 3}},     {-6, {0, 0}, {3, 3}},
                 {-7, {23, 0}, {3, 3}},   {-9, {21, 0}, {15, 3}},   {-22, {8, 0}, {7, 3}}};
    for (std::uint16_t page = 0; page < 4; ++page)
        for (const auto& [moved, offsets, values] : cases) {
            SCOPED_TRACE(testing::Message() << "page " << page << ", moved by " << moved);
            const bool stops = page / 2 == 1, horizontal = page % 2 == 1;
            const auto dragAlong = [&](int along, int across) {
                horizontal ? drag(20 + along, 10 + across) : drag(20 + across, 10 + along);
            };
            StoreWord(Value, 7);
            ShowPage(page);
            press(60, 40); // beside it
            EXPECT_EQ(TouchBusy, 0);
            dragAlong(14, 3);
            dragAlong(14 - moved / 2, 25); // also outside the window
            dragAlong(14 - moved, 3);
            EXPECT_EQ(roller().Offset, offsets[stops]);
            EXPECT_EQ(shownOffset(), offsets[stops] % (Cells * Cell));
            EXPECT_EQ(TakeSentFrames(), Payloads());
            letGo();
            EXPECT_EQ(ReadWord(Value), values[stops]);
            EXPECT_EQ(shownOffset(), (values[stops] - 3) / 4 * Cell);
            EXPECT_EQ(TakeSentFrames(),
                      (Payloads{{0x41, 1, 0, 0, static_cast<std::uint8_t>(values[stops])}}));
            EXPECT_EQ(TouchBusy, 0);
        }
}

TEST_F(RollerTest, ADayEndsWithItsMonth) {
    addStrips(format::RGB565, 31 * Cell);
    for (const bool stops : {false, true}) {
        RollerPicker picker = pickerAt(false);
        picker.Address = word::Day;
        picker.StopsAtEnds = stops;
        picker.Lowest = picker.Step = 1;
        picker.Highest = 31;
        addPage().add(picker);
    }
    start();
    const auto dayAfterDrag = [&](int fromDay, int pixels) {
        roller().Offset = static_cast<std::int16_t>((fromDay - 1) * Cell);
        press(22, 26);
        drag(22, 26 - pixels);
        letGo();
        return ReadWord(word::Day);
    };
    const struct {
        int year, month, days;
    } cases[] = {{23, 2, 28},  {24, 2, 29}, {100, 2, 28}, {200, 2, 28}, // 2100 and 2200 are no leap years
                 {24, 11, 30}, {0, 12, 31}, {24, 0, 31},  {24, 13, 31}};
    for (const auto& [year, month, days] : cases)
        for (const bool stops : {false, true}) {
            SCOPED_TRACE(testing::Message() << year << '-' << month << " stops: " << stops);
            ShowPage(stops ? 1 : 0);
            StoreLowByte(word::Year, static_cast<std::uint8_t>(year));
            StoreLowByte(word::Month, static_cast<std::uint8_t>(month));
            EXPECT_EQ(dayAfterDrag(days - 1, Cell + 3), days);
            EXPECT_EQ(dayAfterDrag(days, 4), stops ? days : 1);
            EXPECT_EQ(dayAfterDrag(days, 10), stops ? days : 2);
            EXPECT_EQ(dayAfterDrag(1, -4), stops ? 1 : days);
        }
}

TEST_F(RollerTest, VariablesAreHeldToTheLimitsOnEntryAndInTheFullRefresh) {
    addStrips();
    addPage().add(pickerAt(false));
    start();
    const std::array<int, 3> cases[] = {{0, 3, 0}, {6, 6, 0}, {14, 14, 12}, {16, 15, 18}, {0xFFFF, 15, 18}};
    for (const auto& [written, held, offset] : cases) {
        StoreWord(Value, static_cast<std::uint16_t>(written));
        ShowPage(0);
        EXPECT_EQ(ReadWord(Value), held);
        EXPECT_EQ(shownOffset(), offset);

        StoreWord(Value, 11);
        run(460);
        StoreWord(Value, static_cast<std::uint16_t>(written));
        RefreshAfterTouch(0);
        EXPECT_EQ(ReadWord(Value), written) << "not yet";
        EXPECT_EQ(shownOffset(), 2 * Cell);
        run(460);
        EXPECT_EQ(ReadWord(Value), held);
        EXPECT_EQ(shownOffset(), offset);
    }
    press(22, 20);
    StoreWord(Value, 99);
    run(460);
    EXPECT_EQ(ReadWord(Value), 99) << "the one under the finger is left alone";
    letGo();
    EXPECT_EQ(ReadWord(Value), 15);
}

TEST_F(RollerTest, ARollerOfPagesTurnsThemAndAPageChangeEndsTheDrag) {
    addStrips();
    RollerPicker pages = pickerAt(false);
    pages.Address = word::Page;
    pages.Lowest = 0;
    pages.Highest = 3;
    pages.Step = 1;
    imagekit::TouchRecord onList = Encode(pages); // the bits are ignored, but such a row never sends
    onList.InList = 3;
    addPage().add(onList);
    addPage(Qt::green).add(pages);
    start();
    press(22, 20);
    drag(22, 20 - Cell);
    EXPECT_EQ(CurrentPage, 0);
    letGo();
    EXPECT_EQ(CurrentPage, 1);
    EXPECT_EQ(TouchBusy + RollerActive, 0);
    EXPECT_EQ(TakeSentFrames(), Payloads());
    press(22, 20);
    drag(22, 20 + Cell);
    ShowPage(1);
    letGo();
    EXPECT_EQ(CurrentPage, 1);

    openPopup(1, 20, 0); // the page as a pop-up, moved to the right
    press(22, 20);
    EXPECT_EQ(TouchBusy, 0);
    tap(42, 20);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0x70, 0, 0, 1}}));
}

TEST_F(RollerTest, WithoutAStepOrABandThereIsNothingToTurn) {
    addStrips();
    RollerPicker noStep = pickerAt(false), noBand = noStep;
    noStep.Step = 0;
    noBand.MarginA = 13;
    for (const RollerPicker& picker : {noStep, noBand}) addPage().add(picker);
    start();
    for (const std::uint16_t page : {0, 1}) {
        StoreWord(Value, 11);
        ShowPage(page);
        EXPECT_EQ(roller().Offset, 0);
        press(22, 20);
        EXPECT_EQ(TouchBusy, 0);
        drag(22, 12);
        letGo();
        EXPECT_EQ(ReadWord(Value), 11);
    }
}

} // namespace
} // namespace panel
