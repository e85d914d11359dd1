#include "pages/refresh.h"

#include "imagekit/icon_widgets.h"
#include "pages/display_kinds.h"
#include "pages/page_switch.h"
#include "pages/page_table.h"
#include "panel_test.h"
#include "readable_font.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/uitimer.h"

#include <random>

namespace panel {
namespace {

using imagekit::DataType;
using imagekit::ImageBuilder;
using imagekit::Label;
using imagekit::Number;
using Names = std::vector<std::string>;

constexpr QRgb Mark = 0xFFFF00FF;
constexpr std::uint16_t ByteValue = 0x0100, LongValue = 0x0102, HideWord = 0x0106, Timer = 0x0111;
constexpr std::uint16_t Text = 0x0120, Block = 0x0200, BlockText = 0x0130, OnlyBlock = 0x0240;

/// The widgets of the page and where each one stands; rows of 8 px.
const Names WidgetNames{"byte", "long", "label", "pointer label", "empty pointer label", "timer"};

Label labelAt(std::uint16_t text, std::uint16_t y, std::uint16_t words,
              std::uint16_t block = imagekit::Inline) {
    return {.ParameterAddress = block,
            .TextAddress = text,
            .X1 = 0,
            .Y1 = y,
            .X2 = 60,
            .Y2 = static_cast<std::uint16_t>(y + 5),
            .TextLength = words,
            .Anchor = 3};
}

class RefreshTest : public PanelTest {
protected:
    void SetUp() override {
        const imagekit::PanelConfig config{.Width = 64, .Height = 48, .ColourMode = 1};
        ImageBuilder image(config);
        image.addFont(ReadableFont());
        QImage digit(4, 6, QImage::Format_ARGB32);
        digit.fill(Qt::red);
        for (int i = 0; i < 10; ++i) image.addPicture(imagekit::Pixels{digit});
        auto& page = image.addPage(PlainPage(config, Qt::gray));
        page.add(Number{.ValueAddress = ByteValue, .Y = 0, .IntegerDigits = 3, .Type = DataType::U8});
        page.add(Number{.ValueAddress = LongValue | 0x8000, // the same word
                        .Y = 8,
                        .IntegerDigits = 3,
                        .Type = DataType::S32,
                        .HideAddress = HideWord});
        const Label pointed = labelAt(BlockText, 24, 4, Block);
        const Label empty = labelAt(BlockText, 32, 0, OnlyBlock);
        page.add(labelAt(Text, 16, 4));
        page.add(pointed);
        page.add(empty);
        page.add(imagekit::UiTimer{.PresetAddress = 0x0110,
                                   .TimerAddress = Timer,
                                   .ControlAddress = 0x0112,
                                   .Y = 40,
                                   .Format = imagekit::TimerFormat::Plain});
        image.setBytes(Block, Encode(pointed).Block);
        image.setBytes(OnlyBlock, Encode(empty).Block);
        image.setText(Text, "ab", 0);
        image.setText(static_cast<std::uint16_t>(Text + 2), "hidden", 0); // behind a zero word
        boot(image);
        FrameSurface.fill(Mark);
    }

    /// The widgets that were drawn since the last call.
    static Names redrawn() {
        Names names;
        for (int i = 0; i < static_cast<int>(WidgetNames.size()); ++i) {
            QImage untouched(64, 8, FrameSurface.format());
            untouched.fill(Mark);
            if (FrameSurface.copy(0, 8 * i, 64, 8) != untouched)
                names.push_back(WidgetNames[static_cast<std::size_t>(i)]);
        }
        FrameSurface.fill(Mark);
        return names;
    }
};

TEST_F(RefreshTest, DrawsNothingWhileNothingChanges) {
    for (int i = 0; i < 3; ++i) {
        RefreshPageWidgets(0);
        RefreshAfterTouch(0);
    }
    run(1000);
    EXPECT_EQ(redrawn(), Names());
}

struct ChangeCase {
    const char* name;
    std::size_t byte; // of the store; its bits are turned round
    Names full;
    Names afterTouch;
};
class Changes : public RefreshTest, public ::testing::WithParamInterface<ChangeCase> {
protected:
    static void change() {
        StoreByte(GetParam().byte, static_cast<std::uint8_t>(~ReadByte(GetParam().byte)));
    }
};

TEST_P(Changes, RedrawWhatDependsOnThemOnce) {
    change();
    RefreshPageWidgets(0);
    EXPECT_EQ(redrawn(), GetParam().full);
    RefreshPageWidgets(0);
    EXPECT_EQ(redrawn(), Names()) << "the second time nothing differs";
    change();
    RefreshAfterTouch(0);
    EXPECT_EQ(redrawn(), GetParam().afterTouch);
    RefreshAfterTouch(0);
    EXPECT_EQ(redrawn(), Names());
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, Changes,
    ::testing::Values(
        ChangeCase{"LowByteOfAByte", 2 * ByteValue + 1, {"byte"}, {"byte"}},
        ChangeCase{"HighByteOfAByte", 2 * ByteValue, {}, {}},
        ChangeCase{"FirstOfFour", 2 * LongValue, {"long"}, {"long"}},
        ChangeCase{"LastOfFour", 2 * LongValue + 3, {"long"}, {"long"}},
        ChangeCase{"BehindTheFour", 2 * LongValue + 4, {}, {}},
        ChangeCase{"HideWord", 2 * HideWord, {"long"}, {"long"}},
        ChangeCase{"TextBeforeItsEnd", 2 * Text, {"label"}, {"label"}},
        ChangeCase{"TextEnd", 2 * Text + 2, {"label"}, {"label"}},
        ChangeCase{"TextBehindItsEnd", 2 * Text + 4, {}, {}},
        ChangeCase{"TextOfABlock", 2 * BlockText, {"pointer label"}, {"pointer label"}},
        ChangeCase{"Block", 2 * Block + 10, {"pointer label"}, {"pointer label"}},
        ChangeCase{"BlockWithoutText", 2 * OnlyBlock + 10, {"empty pointer label"}, {"empty pointer label"}},
        ChangeCase{"Timer", 2 * Timer + 1, {"timer"}, {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(RefreshTest, ComesAboutFiveTimesASecond) {
    StoreWord(ByteValue, 7);
    run(180);
    EXPECT_EQ(redrawn(), Names());
    run(60);
    EXPECT_EQ(redrawn(), Names{"byte"});
}

TEST_F(RefreshTest, AfterATouchLeavesFlaggedRecordsToTheFullRefresh) {
    ImageBuilder image({.Width = 64, .Height = 48});
    image.addFont(ReadableFont());
    image.addPage().add(Number{.InList = true, .ValueAddress = ByteValue, .IntegerDigits = 3});
    boot(image);
    StoreWord(ByteValue, 1);
    RefreshAfterTouch(0);
    EXPECT_TRUE(WordDiffers(ByteValue));
    RefreshPageWidgets(0);
    EXPECT_FALSE(WordDiffers(ByteValue));
}

TEST_F(RefreshTest, BringsTheStreamBackThatASlideReplaced) {
    DisplayStream.load({});
    StoreWord(ByteValue, 7);
    RefreshAfterTouch(0);
    EXPECT_EQ(redrawn(), Names()) << "walks the buffer as it is";
    RefreshPageWidgets(0);
    EXPECT_EQ(redrawn(), Names{"byte"});
}

struct GroupCase {
    const char* name;
    imagekit::DisplayRecord record;
    std::size_t byte;
    bool changed;
};
class GroupChanges : public PanelTest, public ::testing::WithParamInterface<GroupCase> {};

TEST_P(GroupChanges, AreSeenForTheirOwnGroup) {
    ImageBuilder image({.Width = 64, .Height = 48});
    image.addPage().addToGroup(3, GetParam().record);
    image.page(0).addToGroup(4, Label{});
    image.setBytes(Block, GetParam().record.Block);
    boot(image);
    EXPECT_FALSE(GroupChanged(0, 3));
    StoreByte(GetParam().byte, 0x55);
    EXPECT_EQ(GroupChanged(0, 3), GetParam().changed);
    EXPECT_FALSE(GroupChanged(0, 4));
    EXPECT_FALSE(GroupChanged(1, 3)) << "a page without groups";
}

INSTANTIATE_TEST_SUITE_P(
    Records, GroupChanges,
    ::testing::Values(
        GroupCase{"Label", Encode(labelAt(Text, 0, 4)), 2 * Text, true},
        GroupCase{"LabelWithoutText", Encode(labelAt(Text, 0, 0)), 2 * Text, false},
        GroupCase{"Number", Encode(Number{.ValueAddress = Text}), 2 * Text, true},
        GroupCase{"NumberOfAByte", Encode(Number{.ValueAddress = Text, .Type = DataType::U8}), 2 * Text,
                  false},
        GroupCase{"HideWord", Encode(Number{.ValueAddress = Text, .HideAddress = HideWord}), 2 * HideWord,
                  true},
        GroupCase{"Block", Encode(labelAt(Text, 0, 0, Block)), 2 * Block + 3, true},
        GroupCase{"BlockText", Encode(labelAt(Text, 0, 4, Block)), 2 * Text, true},
        GroupCase{"ValueIcon", Encode(imagekit::ValueIcon{.ValueAddress = Text}), 2 * Text, true},
        GroupCase{"ItsBit", Encode(imagekit::BitIcon{.ValueAddress = Text, .Bit = 8}), 2 * Text, true},
        GroupCase{"OtherBit", Encode(imagekit::BitIcon{.ValueAddress = Text, .Bit = 9}), 2 * Text, false},
        GroupCase{"BitOfABlock", Encode(imagekit::BitIcon{Block, false, Text, 0, 0, 8}), 2 * Text, false},
        GroupCase{"Flagged", Encode(Label{.InList = true, .TextAddress = Text, .TextLength = 4}), 2 * Text,
                  false},
        GroupCase{"KindOutsideGroups", Encode(imagekit::UiTimer{.PresetAddress = Text}), 2 * Text, false}),
    [](const auto& row) { return std::string(row.param.name); });

/// Text that ends in a pair of zeros: the mark counts as shown, also where the old text went on behind it.
TEST(StoreRuns, TextsThatEndInAPairOfZerosDifferNoLongerOnceCopied) {
    const std::uint8_t record[] = {7, 0, 0xFF, 0xFF, 4, 0x00, 0x01, 6, 0};
    const Parameters p(record);
    for (const std::string_view text : {"abcdefghijkl", "ab", "abc", "", "abcdefghijk"}) {
        for (std::size_t i = 0; i < 12; ++i)
            StoreByte(0x0200 + i, i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0);
        EXPECT_TRUE(RunsDiffer(QrText(p))) << text;
        SyncRuns(QrText(p));
        EXPECT_FALSE(RunsDiffer(QrText(p))) << text;
    }
}

/// Pages of records whose fields are chance, over variables, pictures and fonts that are chance as well.
TEST(HostilePages, DoNoHarm) {
    std::mt19937 random(20261122);
    const auto bytes = [&random](std::size_t count) {
        imagekit::Bytes result(count);
        for (auto& byte : result) byte = static_cast<std::uint8_t>(random() % 4 == 0 ? 0 : random());
        return result;
    };
    constexpr std::uint16_t kinds[] = {0x01, 0x02, 0x05, 0x10, 0x03, 0x07, 0x09, 0x0F, 0x11};
    const auto record = [&]() -> imagekit::DisplayRecord {
        return {.Kind = kinds[random() % std::size(kinds)],
                .Flags = static_cast<std::uint16_t>(random() % 8 == 0 ? 0x100 : 0),
                .ParameterAddress = static_cast<std::uint16_t>(random() % 3 == 0 ? random() : 0xFFFF),
                .Block = bytes(random() % 60),
                .LengthFlag = random() % 2 == 0};
    };
    for (int round = 0; round < 150; ++round) {
        ImageBuilder image({.Width = 64,
                            .Height = 48,
                            .ColourMode = static_cast<std::uint8_t>(round & 1),
                            .ICType = static_cast<std::uint8_t>(random() % 6),
                            .Rotate = static_cast<std::uint8_t>(random() % 4)});
        image.addFont({imagekit::FontKind::Ascii, bytes(300)});
        for (int page = 0; page < 2; ++page) {
            auto& streams = image.addPage();
            imagekit::Bytes display;
            for (int i = 0; i < 40; ++i) {
                const auto encoded = imagekit::EncodeRecord(record(), "");
                display.insert(display.end(), encoded.begin(), encoded.end());
                streams.addToGroup(static_cast<std::uint16_t>(random() % 4), record());
            }
            streams.setRawStream(imagekit::Stream::Display, display);
        }
        image.setBytes(0, bytes(4000));
        RecordedOutputs outputs;
        LoadFlash(image.build());
        ASSERT_EQ(StartPanel(outputs), StartResult::Running);
        int ticks = 0;
        for (int cycle = 0; cycle < 60; ++cycle) {
            for (int i = 0; i < 8; ++i) CountTick(ticks);
            StoreByte(random() % 6000, static_cast<std::uint8_t>(random() % 4));
            EngineCycle(outputs);
            if (cycle % 20 == 0) ShowPage(static_cast<std::uint16_t>(random() % 2));
            RefreshAfterTouch(CurrentPage);
        }
        ASSERT_EQ(outputs.frame.size(), FrameSurface.size());
    }
}

} // namespace
} // namespace panel
