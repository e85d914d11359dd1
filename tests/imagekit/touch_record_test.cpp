#include "imagekit/icon_widgets.h"
#include "imagekit/touch_controls.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace imagekit {
namespace {

template <class Widget>
QByteArray hex(const Widget& widget) {
    const Bytes bytes = EncodeRecord(Encode(widget), "widget");
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())).toHex();
}

// Every field has a value of its own, so that two that changed places show.
TEST(TouchRecords, HaveTheirFieldsInPlace) {
    const Area area{0x0101, 0x0202, 0x0303, 0x0404};
    const KeyAction click{true, 1, 2, 3, 4}, twice{true, 5, 6, 7, 8}, held{true, 9, 10, 11, 12};
    const struct {
        QByteArray record, expected;
    } cases[] = {
        {hex(PageKey{area, true, 1, 0x11, 0x12, 0x13, 0x14, 0x15}),
         "01c112010102020303040411001200130014001500"},
        {hex(PageKey{.Where = VirtualKeyOnly(0x1234)}), "018012ffff3412000000000000ffffffffffffffff"},
        {hex(StateKey{area, false, 0, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16}),
         "0d80140101020203030404110012001300140015001600"},
        {hex(CopyKey{area, false, 0, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18}),
         "0e80170101020203030404110012001300140015001600171800"},
        {hex(StepKey{area, false, 0, 0x11, BitOfWord(5), true, false, 0x12, -2, 0x14, 0x15, 0x16, true}),
         "038018010102020303040411004501001200feff14001500160001"},
        {hex(PopupKey{area, false, 0, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, true, true}),
         "088015010102020303040411001200130014001500160003"},
        {hex(MultiKey{area, false, 0, 0x21, 0x22, click, twice, held, 0x23, 0x24, 0x25}),
         "0b802d010102020303040421000701002200020003000400050000002306000700080009000000240a000b000c002500"},
        {hex(Slider{true, 0, 0x11, 0x12, 0x13, 0x14, area, 0x15, SlideDirection::Up, 0x16, -1, 0x17, 0x18,
                    0x19, true, 0x1a}),
         "04c020110012001300140001010202030304041500031600ffff170018001900011a00"},
        {hex(RollerPicker{false, 0x11, area, 0x12, 0x13, true, true, 0x14, 0x15, 0x16, 0x17, 0x18}),
         "06801911000101020203030404120013008114001500160017001800"},
        {hex(ValueIcon{Inline, true, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18}),
         "0301ffff111100120013001400000015001600171800"},
        {hex(BitIcon{0x20, false, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18}),
         "0f0020000e1100120013001415001600171800"},
    };
    for (const auto& test : cases) EXPECT_EQ(test.record, test.expected);
}

} // namespace
} // namespace imagekit
