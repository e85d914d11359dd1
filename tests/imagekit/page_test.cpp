#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"
#include "imagekit/value_widgets.h"

#include <gtest/gtest.h>

using namespace imagekit;

namespace {

TEST(Records, BeginWithTheirFlagsAndLength) {
    const DisplayRecord flagged{
        .Kind = 0x03, .Flags = 0x0100, .ParameterAddress = 0x1234, .Block = {4}, .LengthFlag = true};
    EXPECT_EQ(EncodeRecord(flagged, ""), (Bytes{0x03, 1, 0x34, 0x12, 0x81, 4}));
    const TouchRecord inList{.Family = 0x8001, .Notify = true, .InList = 3, .Body = {5, 6}};
    EXPECT_EQ(EncodeRecord(inList, ""), (Bytes{0x01, 0xC3, 2, 5, 6}));
}

/// The message of the refusal, or what was done instead.
template <class Record>
std::string refusal(Page& page, const Record& record) {
    try {
        page.add(record);
    } catch (const ImageError& error) {
        return error.what();
    }
    return "taken";
}

TEST(Records, ThatCannotBeHeldAreRefusedByNameAndLeaveThePageAsItWas) {
    ImageBuilder builder;
    builder.addPage();
    Page& page = builder.addPage();
    page.add(DisplayRecord{.Kind = 1, .Block = Bytes(127)});
    EXPECT_EQ(refusal(page, DisplayRecord{.Kind = 1, .Block = Bytes(128)}),
              "page 1, display record 1: 128 bytes, at most 127");
    EXPECT_EQ(refusal(page, DisplayRecord{.Kind = 0x0E, .Block = Bytes(3072 - 132 - 5)}),
              "page 1, display record 1: makes the stream 3073 bytes, at most 3072");
    EXPECT_EQ(refusal(page, DisplayRecord{.Kind = 0x0E, .Block = Bytes(3072 - 132 - 6)}), "taken");
    EXPECT_EQ(refusal(page, TouchRecord{.Family = 0x8001, .Body = Bytes(256)}),
              "page 1, touch record 0: 256 bytes, at most 255");
    EXPECT_EQ(refusal(page, GroupRecord{.Group = 1, .Record = {.Kind = 1, .Block = Bytes(126)}}),
              "page 1, group record 0: 126 bytes, at most 125");
    EXPECT_EQ(refusal(page, PagePreset{.Id = 1, .Items = std::vector<PresetItem>(64)}),
              "page 1, preset 0: 64 items, at most 63");
    EXPECT_NE(refusal(page, DisplayRecord{.Kind = 0x0103}), "taken");
    EXPECT_NE(refusal(page, DisplayRecord{.Kind = 3, .Flags = 0x1000}), "taken");
    EXPECT_NE(refusal(page, TouchRecord{.Family = 0xC001}), "taken");
    EXPECT_NE(refusal(page, TouchRecord{.Family = 0x8001, .InList = 16}), "taken");
    EXPECT_EQ(page.bytes(Stream::Display).size(), 3072u);
    EXPECT_TRUE(page.bytes(Stream::Touch).empty());
}

TEST(Records, ThatThePanelHasNoRowForAreRefused) {
    ImageBuilder builder;
    Page& page = builder.addPage();
    for (int i = 0; i < 30; ++i) page.add(Number{});
    EXPECT_EQ(refusal(page, Number{}), "page 0, display record 30: 31 numbers, at most 30");
    EXPECT_EQ(refusal(page, Label{}), "taken") << "a label takes no row";
    EXPECT_NE(refusal(page, Number{.Unit = std::string(109, 'm')}), "taken") << "a unit that no record holds";
}

} // namespace
