#include "pages/refresh.h"

#include "pages/display_kinds.h"
#include "pages/page_table.h"
#include "panel_test.h"
#include "readable_font.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/uitimer.h"

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
    Label label{
        .ParameterAddress = block, .TextAddress = text, .Y1 = y, .X2 = 60, .TextLength = words, .Anchor = 3};
    label.Y2 = static_cast<std::uint16_t>(y + 5);
    return label;
}

class RefreshTest : public PanelTest {
protected:
    void SetUp() override {
        ImageBuilder image(Small);
        image.addFont(ReadableFont());
        for (int i = 0; i < 10; ++i) image.addPicture(Filled(4, 6, Qt::red));
        auto& page = image.addPage(PlainPage(Small, Qt::gray));
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
        imagekit::UiTimer timer{
            .PresetAddress = 0x0110, .TimerAddress = Timer, .ControlAddress = 0x0112, .Y = 40};
        timer.Format = imagekit::TimerFormat::Plain;
        page.add(timer);
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
        QImage untouched(64, 8, FrameSurface.format());
        untouched.fill(Mark);
        for (int y = 0; const std::string& name : WidgetNames) {
            if (FrameSurface.copy(0, y, 64, 8) != untouched) names.push_back(name);
            y += 8;
        }
        FrameSurface.fill(Mark);
        return names;
    }
};

TEST_F(RefreshTest, RedrawsWhatDependsOnAChangeOnce) {
    const struct {
        const char* name;
        std::size_t byte; // of the store; its bits are turned round
        Names full, afterTouch;
    } cases[] = {{"low byte of a byte", 2 * ByteValue + 1, {"byte"}, {"byte"}},
                 {"high byte of a byte", 2 * ByteValue, {}, {}},
                 {"first of four", 2 * LongValue, {"long"}, {"long"}},
                 {"last of four", 2 * LongValue + 3, {"long"}, {"long"}},
                 {"behind the four", 2 * LongValue + 4, {}, {}},
                 {"hide word", 2 * HideWord, {"long"}, {"long"}},
                 {"text before its end", 2 * Text, {"label"}, {"label"}},
                 {"text end", 2 * Text + 2, {"label"}, {"label"}},
                 {"text behind its end", 2 * Text + 4, {}, {}},
                 {"text of a block", 2 * BlockText, {"pointer label"}, {"pointer label"}},
                 {"block", 2 * Block + 10, {"pointer label"}, {"pointer label"}},
                 {"block without text", 2 * OnlyBlock + 10, {"empty pointer label"}, {"empty pointer label"}},
                 {"timer", 2 * Timer + 1, {"timer"}, {}}};
    for (const auto& row : cases) {
        const auto change = [&row] { StoreByte(row.byte, static_cast<std::uint8_t>(~ReadByte(row.byte))); };
        change();
        RefreshPageWidgets(0);
        EXPECT_EQ(redrawn(), row.full) << row.name;
        RefreshPageWidgets(0);
        EXPECT_EQ(redrawn(), Names()) << row.name << ": the second time nothing differs";
        change();
        RefreshAfterTouch(0);
        EXPECT_EQ(redrawn(), row.afterTouch) << row.name;
        RefreshAfterTouch(0);
        EXPECT_EQ(redrawn(), Names()) << row.name;
    }
}

TEST_F(RefreshTest, ComesAboutFiveTimesASecondAndBringsTheStreamBackThatASlideReplaced) {
    DisplayStream.load({});
    StoreWord(ByteValue, 7);
    RefreshAfterTouch(0);
    run(180);
    EXPECT_EQ(redrawn(), Names()) << "walks the buffer as it is";
    run(60);
    EXPECT_EQ(redrawn(), Names{"byte"});
    run(1000);
    EXPECT_EQ(redrawn(), Names()) << "nothing has changed";
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

TEST_F(RefreshTest, SeesChangesOfAGroupsOwnMembers) {
    using imagekit::BitIcon;
    const struct {
        imagekit::DisplayRecord record;
        std::size_t byte;
        bool changed;
    } cases[] = {{Encode(labelAt(Text, 0, 4)), 2 * Text, true},
                 {Encode(labelAt(Text, 0, 0)), 2 * Text, false},
                 {Encode(Number{.ValueAddress = Text}), 2 * Text, true},
                 {Encode(Number{.ValueAddress = Text, .Type = DataType::U8}), 2 * Text, false},
                 {Encode(Number{.ValueAddress = Text, .HideAddress = HideWord}), 2 * HideWord, true},
                 {Encode(labelAt(Text, 0, 0, Block)), 2 * Block + 3, true},
                 {Encode(labelAt(Text, 0, 4, Block)), 2 * Text, true},
                 {Encode(imagekit::ValueIcon{.ValueAddress = Text}), 2 * Text, true},
                 {Encode(BitIcon{.ValueAddress = Text, .Bit = 8}), 2 * Text, true},
                 {Encode(BitIcon{.ValueAddress = Text, .Bit = 9}), 2 * Text, false},
                 {Encode(BitIcon{Block, false, Text, 0, 0, 8}), 2 * Text, false}, // only inline
                 {Encode(Label{.InList = true, .TextAddress = Text, .TextLength = 4}), 2 * Text, false},
                 {Encode(imagekit::UiTimer{.PresetAddress = Text}), 2 * Text, false}}; // of no group kind
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        ImageBuilder image({.Width = 64, .Height = 48});
        image.addPage().addToGroup(3, cases[i].record);
        image.page(0).addToGroup(4, Label{});
        image.setBytes(Block, cases[i].record.Block);
        boot(image);
        EXPECT_FALSE(GroupChanged(0, 3)) << i;
        StoreByte(cases[i].byte, 0x55);
        EXPECT_EQ(GroupChanged(0, 3), cases[i].changed) << i;
        EXPECT_FALSE(GroupChanged(0, 4)) << i;
        EXPECT_FALSE(GroupChanged(1, 3)) << "a page without groups";
    }
}

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

} // namespace
} // namespace panel
