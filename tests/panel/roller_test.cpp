#include "touch_fixture.h"
#include "widgets/touch/roller_picker.h"

#include <QDate>

namespace panel {
namespace {

using imagekit::RollerPicker;

constexpr std::uint16_t Value = 0x0100;
constexpr QRgb Gray = 0xFFA0A0A4;
constexpr int Across = 7, Cells = 4, Cell = 6, Window = 17;

/// A colour for each place of a strip; none where a keyed strip lets the page through.
QRgb stripPixel(bool selected, int along, int across) {
    if ((along + across) % 4 == 0) return qRgba(0, 0, 0, 0);
    return qRgb(1 + along, 10 * across, selected ? 200 : 100);
}

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
    /// Pictures 0 and 1: the selected strips, tall and wide; 2 and 3: the normal ones.
    void addStrips(std::uint8_t selectedFormat = format::RGB565, int length = Cells * Cell) {
        for (const bool selected : {true, false})
            for (const bool wide : {false, true}) {
                QImage strip(wide ? length : Across, wide ? Across : length, QImage::Format_ARGB32);
                for (int y = 0; y < strip.height(); ++y)
                    for (int x = 0; x < strip.width(); ++x)
                        strip.setPixel(x, y, stripPixel(selected, wide ? x : y, wide ? y : x));
                const std::uint8_t kind = selected ? selectedFormat : format::RGB565;
                image.addPicture(kind == format::None ? imagekit::Picture() : imagekit::Pixels{strip, kind});
            }
    }

    /// Holds the whole frame against the definition of the window, place by place.
    void expectWindow(const RollerPicker& picker, int offset, std::uint8_t selectedFormat = format::RGB565) {
        QImage expected(64, 48, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Gray);
        const int length = Cells * Cell;
        for (int d = 0; d < Window; ++d)
            for (int across = 0; across < Across; ++across) {
                const bool selected = d >= picker.MarginA && d < Window - picker.MarginB;
                const std::uint8_t kind = selected ? selectedFormat : format::RGB565;
                const int along = ((offset + d - picker.MarginA) % length + length) % length;
                const QRgb colour = stripPixel(selected, along, across);
                if (kind == format::None || (kind == format::RGB565Key && colour == 0)) continue;
                const QPoint at = picker.Horizontal ? QPoint(d, across) : QPoint(across, d);
                expected.setPixel(QPoint(20, 10) + at, colour | 0xFF000000);
            }
        ASSERT_TRUE(FrameSurface == expected) << offset << (picker.Horizontal ? " wide" : " tall");
    }

    Roller& roller() { return *Rollers.at(Rollers.size() - 1); }
};

TEST_F(RollerTest, TheWindowShowsTheStripAtEveryOffset) {
    for (const std::uint8_t kind : {format::RGB565, format::RGB565Key, format::None}) {
        image = imagekit::ImageBuilder(Small);
        addStrips(kind);
        for (const bool horizontal : {false, true}) addPage().add(pickerAt(horizontal));
        start();
        for (const bool horizontal : {false, true}) {
            ShowPage(horizontal ? 1 : 0);
            for (int offset = -30; offset <= 26; ++offset) {
                roller().Offset = static_cast<std::int16_t>(offset);
                WorkSurface.fill(Qt::magenta); // what another widget may have left there
                DrawRoller(roller());
                EXPECT_EQ(roller().Offset, std::min(offset, Cells * Cell));
                expectWindow(pickerAt(horizontal), roller().Offset, kind);
            }
        }
    }
}

/// The rules of a drag, one movement of up to a strip's length at a time.
struct PlainRoller {
    bool stops = false;
    int offset = 0, last = 0;
    std::uint16_t value = 0;
    bool active = false;

    void drag(int pointer) {
        constexpr int length = Cells * Cell;
        offset += last - pointer;
        last = pointer;
        if (stops) offset = std::clamp(offset, 0, length - Cell);
        if (offset < 0) offset += length;
        if (offset > length) offset -= length;
    }
    void letGo() {
        active = false;
        const int index = (offset + (Cell - 1) / 2) / Cell; // half a cell is still the lower one's
        offset = index * Cell;
        value = static_cast<std::uint16_t>(index < Cells ? 3 + 4 * index : 3);
    }
};

TEST_F(RollerTest, TheStripFollowsTheFingerAndSnapsWhenLetGo) {
    addStrips();
    for (int kind = 0; kind < 4; ++kind) {
        RollerPicker picker = pickerAt((kind & 1) != 0);
        picker.StopsAtEnds = (kind & 2) != 0;
        RollerPicker beyond = picker; // out of reach, and first in the table
        beyond.Window.X0 += 100;
        beyond.Window.X1 += 100;
        imagekit::Page& page = addPage();
        page.add(beyond);
        page.add(picker);
    }
    start();
    std::mt19937 random(706);
    for (std::uint16_t page = 0; page < 4; ++page) {
        const RollerPicker picker = pickerAt((page & 1) != 0);
        StoreWord(Value, 7);
        ShowPage(page);
        PlainRoller plain{.stops = (page & 2) != 0, .offset = Cell, .value = 7};
        QPoint at(22, 12);
        for (int i = 0; i < 2000; ++i) {
            if (random() % 8 == 0) {
                letGo();
                const bool acted = std::exchange(plain.active, false);
                if (acted) plain.letGo();
                const Payload frame{0x41, 1, 0, 0, static_cast<std::uint8_t>(plain.value)};
                ASSERT_EQ(TakeSentFrames(), acted ? Payloads{frame} : Payloads()) << i;
                ASSERT_EQ(TouchBusy, 0);
                at = {22, 18}; // from where the window is easily hit
            } else {
                const auto next = [&](int from, int end) {
                    return std::clamp(from + static_cast<int>(random() % 21) - 10, 0, end);
                };
                at = {next(at.x(), 63), next(at.y(), 47)}; // also far outside the window
                drag(at.x(), at.y());
                const int along = picker.Horizontal ? at.x() : at.y();
                const auto [x0, y0, x1, y1] = picker.Window;
                if (!plain.active && at.x() >= x0 && at.x() <= x1 && at.y() >= y0 && at.y() <= y1) {
                    plain.active = true;
                    plain.last = along;
                }
                if (plain.active) plain.drag(along);
            }
            ASSERT_EQ(ReadWord(Value), plain.value) << i;
            ASSERT_EQ(roller().Offset, plain.offset) << i;
            expectWindow(picker, plain.offset);
        }
        letGo();
        TakeSentFrames();
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
    for (const int year : {0, 23, 24, 100, 200}) { // 2100 and 2200 are no leap years
        for (int month = 0; month <= 13; ++month) {
            const QDate first(2000 + year, month, 1);
            const int days = first.isValid() ? first.daysInMonth() : 31;
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
        expectWindow(pickerAt(false), offset);

        StoreWord(Value, 11);
        run(460);
        StoreWord(Value, static_cast<std::uint16_t>(written));
        RefreshAfterTouch(0);
        EXPECT_EQ(ReadWord(Value), written) << "not yet";
        expectWindow(pickerAt(false), 2 * Cell);
        run(460);
        EXPECT_EQ(ReadWord(Value), held);
        expectWindow(pickerAt(false), offset);
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
