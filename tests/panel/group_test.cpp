#include "widgets/display/group.h"

#include "golden.h"
#include "touch_fixture.h"

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Group = 7, Control = 0x0100; // full for the slider, in range for the icon, idle
constexpr std::uint16_t Switch = 0x0110, State = 0x0111, Count = 0x0112, Hide = 0x0113;
constexpr QRect Host(10, 8, 20, 16);

enum class HostKind { Key, MultiKey, Icon, Animation, Slider };

/// A host with members that overlap and reach beyond its rectangle.
class GroupHosts : public TouchTest, public ::testing::WithParamInterface<HostKind> {
protected:
    GroupHosts() {
        const auto x = static_cast<std::uint16_t>(Host.x()), y = static_cast<std::uint16_t>(Host.y());
        const Area where{x, y, 29, 23};
        const std::uint16_t look = addPicture(HostColour, Host.width(), Host.height());
        const std::uint16_t pressed = addPicture(PressColour, Host.width(), Host.height());
        Page& page = addPage();
        switch (GetParam()) {
        case HostKind::Key:
            page.add(
                PageKey{.Where = where, .NormalImage = look, .PressImage = pressed, .OverlayGroup = Group});
            break;
        case HostKind::MultiKey:
            page.add(MultiKey{where, false, 0, look, pressed, KeyAction{true}, {}, {}, 6, 100, Group});
            break;
        case HostKind::Icon: page.add(ValueIcon{None, false, Control, x, y, look, 100, 100, 0, Group}); break;
        case HostKind::Animation: {
            QImage frame(Host.size(), QImage::Format_ARGB32);
            frame.fill(HostColour);
            const std::uint16_t sequence = image.addSequence({Pixels{frame}});
            page.add(ImageAnimation{None, false, false, Control, x, y, 20, 16, sequence, 0, false, 1, 2, 100,
                                    3, None, 0, Group});
            break;
        }
        case HostKind::Slider:
            page.add(imagekit::Slider{false, 0, x, y, look, Control, where, None, SlideDirection::Right, 100,
                                      0, x, y, None, true, Group});
        }
        image.setWord(Control, 100);
        addMembers(page);
    }

    void addMembers(Page& page) {
        const std::uint16_t clear = addPicture(ClearColour, 6, 6), set = addPicture(SetColour, 6, 6);
        const std::uint16_t low = addPicture(LowColour, 8, 8);
        addPicture(HighColour, 8, 8);
        const std::uint16_t corner = addPicture(CornerColour, 10, 10);
        const std::uint16_t zero = addPicture(digitColour(0), 5, 5);
        for (int digit = 1; digit < 10; ++digit) addPicture(digitColour(digit), 5, 5);
        page.addToGroup(Group, BitIcon{None, false, Switch, 8, 6, 0, clear, set});
        page.addToGroup(Group, ValueIcon{None, false, State, 12, 10, low, 1, 2});
        page.addToGroup(Group + 1, BitIcon{None, false, State, 12, 10, 0, clear, set}); // of nobody
        page.addToGroup(
            Group, PngNumber{None, false, Count, 16, 13, zero, zero, false, {}, 1, 0, DataType::U16, Hide});
        page.addToGroup(Group, BitIcon{None, false, Switch, 26, 20, 15, corner, corner});
    }

    static QColor digitColour(int digit) { return {100 + 10 * digit, 10, 10}; }
    inline static const QColor HostColour{1, 0, 200}, PressColour{2, 0, 100}, ClearColour{0, 100, 0},
        SetColour{0, 200, 0}, LowColour{0, 100, 100}, HighColour{0, 200, 200}, CornerColour{200, 200, 0};
};

/// On a frame that is wiped before each step, so that only what is painted shows.
TEST_P(GroupHosts, ShowTheirMembersInOrderAndOnlyWhenOneChanges) {
    start();
    const std::pair<std::uint16_t, std::uint16_t> steps[] = {
        {Switch, 1}, {State, 1}, {State, 1},  {Count, 7}, {Switch, 3}, // another bit than the icon's
        {State, 2},  {Hide, 1},  {Switch, 0}, {State, 3}, {Hide, 0},   {Count, 10}, {State, 0}};
    Sheet sheet({64, 48}, 12, 2);
    for (const auto& [word, value] : steps) {
        FrameSurface.fill(Qt::white);
        StoreWord(word, value);
        run(240);
        sheet.add(outputs.frame);
        if (GetParam() > HostKind::MultiKey) continue;
        TouchPressed ? letGo() : press(15, 15);
        sheet.add(outputs.frame);
    }
    EXPECT_TRUE(EqualsGolden(sheet.picture(), QString("panel/golden/group-%1.png").arg(int(GetParam()))));
}

INSTANTIATE_TEST_SUITE_P(Kinds, GroupHosts,
                         ::testing::Values(HostKind::Key, HostKind::MultiKey, HostKind::Icon,
                                           HostKind::Animation, HostKind::Slider));

} // namespace
} // namespace panel
