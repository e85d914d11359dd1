#include "widgets/display/uitimer.h"

#include "panel_test.h"
#include "store/clock.h"

#include <thread>

namespace panel {
namespace {

using imagekit::ImageBuilder;
using imagekit::TimerDirection;
using imagekit::UiTimer;

constexpr std::uint16_t Preset = 0x0100, Timer = 0x0101, Control = 0x0102, Target = 0x0103;
constexpr QRgb PageColour = 0xFF102030;
constexpr int GlyphWidth = 4;

/// Digit pictures of one colour each: the glyph's number in the red byte.
QRgb glyphColour(int glyph) { return qRgb(100 + glyph, 0, 0); }

UiTimer timerAt(std::uint16_t first) {
    const auto timer = static_cast<std::uint16_t>(first + 1), control = static_cast<std::uint16_t>(first + 2);
    return {.PresetAddress = first, .TimerAddress = timer, .ControlAddress = control, .X = 8, .Y = 6};
}
const UiTimer Plain = timerAt(Preset);

class UiTimers : public PanelTest {
protected:
    /// Pages of timers, and an empty page behind them.
    static ImageBuilder pages(const std::vector<std::vector<UiTimer>>& timersOfPages) {
        ImageBuilder image(Small);
        for (int glyph = 0; glyph <= 10; ++glyph) image.addPicture(Filled(GlyphWidth, 5, glyphColour(glyph)));
        for (const auto& timers : timersOfPages) {
            auto& page = image.addPage(PlainPage(Small, PageColour));
            for (const UiTimer& timer : timers) page.add(timer);
        }
        image.addPage(PlainPage(Small, PageColour));
        return image;
    }

    static void set(std::uint16_t preset, std::uint16_t timer, std::uint16_t control) {
        StoreWord(Preset, preset);
        StoreWord(Timer, timer);
        StoreWord(Control, control);
    }
    /// The digits on the screen from (x, y) on.
    static std::string shown(int x = 8, int y = 6) {
        std::string text;
        for (; FrameSurface.pixel(x, y) != PageColour; x += GlyphWidth)
            text += "0123456789:"[qRed(FrameSurface.pixel(x, y)) - 100];
        return text;
    }
    static void seconds(int count) {
        for (int i = 0; i < count; ++i) OncePerSecond();
    }
    using State = std::pair<int, int>; // of the timer: its count and its control word
    static State after(int count) {
        seconds(count);
        return {ReadWord(Timer), ReadWord(Control)};
    }
};

TEST_F(UiTimers, ShowTheCountInEveryFormat) {
    using Format = imagekit::TimerFormat;
    const struct {
        Format format;
        std::uint16_t preset, timer;
        const char* text;
    } cases[] = {{Format::HoursMinutesSeconds, 0, 3661, "01:01:01"},
                 {Format::HoursMinutesSeconds, 0, 36000, "10:00:00"},
                 {Format::HoursMinutesSeconds, 0, 65535, "18:12:15"},
                 {Format::HoursMinutes, 0, 3661, "01:01"},
                 {Format::MinutesSeconds, 0, 3661, "01:01"},
                 {Format::MinutesSeconds, 0, 7325, "02:05"},
                 {Format::Plain, 10, 7, "7"},
                 {Format::Plain, 11, 7, "07"},
                 {Format::Plain, 100, 123, "23"},
                 {Format::Plain, 1000, 7, "007"},
                 {Format::Plain, 10000, 12345, "2345"},
                 {Format::Plain, 10001, 7, "00007"},
                 {Format::Nothing, 0, 5, ""},
                 {static_cast<Format>(5), 0, 5, ""}};
    for (const auto& c : cases) {
        UiTimer timer = Plain;
        timer.Format = c.format;
        ImageBuilder image = pages({{timer}});
        image.setWords(Preset, {c.preset, c.timer, 0});
        boot(image);
        EXPECT_EQ(shown(), c.text) << c.preset << ' ' << c.timer;
    }
}

TEST_F(UiTimers, CountDownShowsZeroForASecondBeforeItEnds) {
    UiTimer timer = Plain;
    timer.Notify = true;
    timer.TargetAddress = Target;
    timer.TargetValue = 0x1234;
    boot(pages({{timer}}));
    set(0, 2, 1);
    EXPECT_EQ(after(2), State(0, 1));
    cycles(1);
    EXPECT_EQ(shown(), "00:00:00");
    EXPECT_EQ(TakeSentFrames(), Payloads());
    EXPECT_EQ(after(1), State(0, 0));
    EXPECT_EQ(ReadWord(Target), 0x1234);
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0x01, 0x03, 0x12, 0x34}}));
    seconds(3);
    EXPECT_EQ(TakeSentFrames(), Payloads());
}

TEST_F(UiTimers, CountUpEndsAtItsPreset) {
    UiTimer timer = Plain, again = Plain;
    timer.Direction = again.Direction = TimerDirection::Up;
    again.TargetAddress = Control;
    again.TargetValue = 1;
    boot(pages({{timer}, {again}}));
    set(3, 0, 1);
    EXPECT_EQ(after(3), State(3, 1));
    EXPECT_EQ(after(1), State(3, 0));
    set(0, 0, 1);
    EXPECT_EQ(after(1), State(0, 0)) << "without a preset it ends at once";
    ShowPage(1);
    set(3, 3, 1);
    EXPECT_EQ(after(1), State(4, 1)) << "one that starts itself again goes on in the same second";
}

TEST_F(UiTimers, OnlyACommandOfOneCountsAndHidingTakesTheDigitsOffOnce) {
    boot(pages({{Plain}}));
    set(9, 4, 0);
    seconds(1);
    UiTimerTick();
    EXPECT_EQ(shown(), "00:00:04") << "a stopped one shows what is written to it";
    for (const auto& [control, timer, text] :
         {std::tuple{3, 5, "00:00:05"}, {0, 6, "00:00:06"}, {0x0101, 7, "00:00:07"}, {2, 8, ""}}) {
        set(9, static_cast<std::uint16_t>(timer), static_cast<std::uint16_t>(control));
        seconds(2);
        cycles(1);
        EXPECT_EQ(ReadWord(Timer), timer) << control;
        EXPECT_EQ(shown(), text);
    }
    EXPECT_EQ(UiTimerTable.rows()[0].LastWidth, 0);
    FrameSurface.fill(Qt::green);
    seconds(1);
    cycles(1);
    EXPECT_EQ(FrameSurface.pixel(8, 6), 0xFF00FF00);
    set(0, 5, 7);
    seconds(1);
    cycles(1);
    EXPECT_EQ(FrameSurface.pixel(8, 6), glyphColour(0)) << "any other command shows it";
}

// Background timers.

UiTimer inBackground(UiTimer timer) {
    timer.Background = true;
    return timer;
}

TEST_F(UiTimers, ABackgroundTimerGoesOnFromWhereItWasAndComesBack) {
    UiTimer up = inBackground(Plain);
    up.Direction = TimerDirection::Up;
    UiTimer other = timerAt(0x0200);
    other.Y = 30;
    boot(pages({{up, other}}));
    set(5, 0, 1);
    seconds(1);
    ShowPage(1);
    EXPECT_EQ(RunningTimers.size(), 1u) << "the other one ends with its page";
    seconds(1);
    ShowPage(1);
    EXPECT_EQ(ReadWord(Timer), 2);
    ShowPage(0);
    EXPECT_TRUE(RunningTimers.empty());
    EXPECT_EQ(shown(), "00:00:02");
    seconds(3);
    ShowPage(1);
    EXPECT_EQ(ReadWord(Timer), 5);
    seconds(1);
    EXPECT_EQ(ReadWord(Timer), 6) << "counts before it looks";
    EXPECT_TRUE(RunningTimers.empty());
}

TEST_F(UiTimers, SeveralInTheBackgroundEndInTheVerySecondThatReachesZero) {
    const struct {
        std::uint16_t target, value, left;
    } cases[] = {{0x0300, 9, 2}, {word::Page, 0, 2}, {0x0302, 1, 3}, {0x0303, 1, 2}};
    std::vector<UiTimer> timers;
    for (std::uint16_t first = 0x0200; const auto& [target, value, left] : cases) {
        UiTimer timer = inBackground(timerAt(first));
        timer.Notify = target == 0x0300;
        timer.TargetAddress = target;
        timer.TargetValue = value;
        timers.push_back(timer);
        first = static_cast<std::uint16_t>(first + 4);
    }
    ImageBuilder image = pages({timers});
    for (std::size_t i = 0; i < timers.size(); ++i)
        image.setWords(timers[i].PresetAddress, {0, cases[i].left, 1});
    boot(image);
    ShowPage(1);
    seconds(1);
    EXPECT_EQ(RunningTimers.size(), 4u);
    EXPECT_EQ(ReadWord(0x0300), 0);
    seconds(1);
    EXPECT_EQ(ReadWord(0x0300), 9);
    EXPECT_EQ(ReadWord(0x0303), 1);
    EXPECT_EQ(ReadWord(0x0302), 0) << "has a second more";
    EXPECT_EQ(RunningTimers.size(), 1u);
    EXPECT_EQ(ReadWord(0x0202), 1) << "a background timer does not stop itself";
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 0x03, 0x00, 0, 9}}));
    EXPECT_EQ(CurrentPage, 1) << "the engine shows the page";
    cycles(1);
    EXPECT_EQ(CurrentPage, 0);
}

TEST_F(UiTimers, RunningTimersHoldEachIdOnceAndNoMoreThanTheirCapacity) {
    std::vector<std::vector<UiTimer>> all(3);
    for (std::uint16_t i = 0; i < 30; ++i)
        all[i / 10].push_back(
            inBackground(timerAt(static_cast<std::uint16_t>(0x0200 + 4 * (i == 1 ? 0 : i)))));
    boot(pages(all));
    ShowPage(3);
    EXPECT_EQ(RunningTimers.size(), 9u);
    for (const std::uint16_t page : {1, 2, 3}) ShowPage(page);
    EXPECT_EQ(RunningTimers.size(), 21u);
}

TEST_F(UiTimers, EverySecondCountsOnceWhilePagesChange) {
    boot(pages({{inBackground(Plain)}}));
    constexpr int count = 20000;
    set(0, 40000, 1);
    std::thread mainThread([] {
        for (int i = 0; i < count; ++i) OncePerSecond();
    });
    for (std::uint16_t i = 0; i < 600; ++i) ShowPage(i % 2);
    mainThread.join();
    EXPECT_EQ(ReadWord(Timer), 40000 - count);
}

TEST_F(UiTimers, LieWithinTheStoreAndReadTheirBlockAgainWhenItChanges) {
    UiTimer pointed = Plain;
    pointed.ParameterAddress = 0x0300;
    UiTimer lost[] = {Plain, Plain, Plain}; // in words that are not there
    lost[0].PresetAddress = 0x70FF;
    lost[1].TimerAddress = 0xFFFF;
    lost[2].ControlAddress = 0x8000;
    ImageBuilder image = pages({{pointed, lost[0], lost[1], lost[2]}});
    image.setBytes(0x0300, Encode(Plain).Block);
    boot(image);
    EXPECT_EQ(UiTimerTable.size(), 1u);
    StoreByte(2 * 0x0300 + 8, 26); // y
    StoreByte(2 * 0x0300 + 13, 1); // counts up
    RefreshPageWidgets(0);
    set(9, 6, 1);
    seconds(1);
    cycles(1);
    EXPECT_EQ(shown(8, 26), "00:00:07");
}

} // namespace
} // namespace panel
