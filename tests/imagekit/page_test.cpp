#include "imagekit/image_reader.h"

#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"
#include "imagekit/value_widgets.h"

#include <gtest/gtest.h>

using namespace imagekit;

namespace {

/// The bytes of page 1's stream of a table with rows of some bytes, as its row tells.
Bytes stream(const ImageReader& image, std::uint32_t tableWord, std::uint32_t rowBytes,
             std::uint32_t at = 0) {
    const std::uint32_t row = image.section(tableWord) + rowBytes + at;
    return image.bytes(image.u32(row), image.u16(row + 4));
}

TEST(Streams, FrameTheirRecordsInOrder) {
    ImageBuilder builder;
    builder.addPage();
    Page& page = builder.addPage();
    page.add(DisplayRecord{.Kind = 0x0B, .Block = {1, 2, 3}});
    page.add(DisplayRecord{
        .Kind = 0x03, .Flags = 0x0100, .ParameterAddress = 0x1234, .Block = {4}, .LengthFlag = true});
    page.add(DisplayRecord{.Kind = 0x0E, .Block = Bytes(300, 9)});
    page.add(TouchRecord{.Family = 0x8001, .Notify = true, .InList = 3, .Body = {5, 6}});
    page.add(TouchRecord{.Family = 0x800F});
    page.add(GroupRecord{.Group = 0x0201, .Record = {.Kind = 2, .Block = {7, 8}}});
    page.addToGroup(3, DisplayRecord{.Kind = 1});
    page.add(PagePreset{.Id = 0x0403, .Items = {{0x1020, 0x3040}, {0x7000, 2}}});
    page.add(PagePreset{.Id = 5, .Items = {}});
    const ImageReader image(builder.build());

    const ByteWriter display =
        ByteWriter()
            .bytes(Bytes{0x0B, 0, 0xFF, 0xFF, 3, 1, 2, 3, 0x03, 1, 0x34, 0x12, 0x81, 4})
            .bytes(Bytes{0x0E, 0, 0xFF, 0xFF, 0x2C, 1})
            .bytes(Bytes(300, 9));
    EXPECT_EQ(stream(image, 2, 12), display.data());
    EXPECT_EQ(stream(image, 2, 12, 6), (Bytes{0x01, 0xC3, 2, 5, 6, 0x0F, 0x80, 0}));
    EXPECT_EQ(stream(image, 22, 6), (Bytes{1, 2, 2, 0, 0xFF, 0xFF, 4, 7, 8, 3, 0, 1, 0, 0xFF, 0xFF, 2}));
    EXPECT_EQ(stream(image, 28, 8), (Bytes{3, 4, 8, 0x20, 0x10, 0x40, 0x30, 0, 0x70, 2, 0, 5, 0, 0}));
    for (const std::uint32_t countWord : {3u, 9u, 23u, 29u})
        EXPECT_EQ(image.section(countWord), 2u) << countWord;
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

TEST(Sequences, AreRunsOfFrameRecords) {
    ImageBuilder builder({.ColourMode = 1});
    builder.addSequence({StoredPicture{.Data = {9}}});
    const StoredPicture first{
        .Width = 0x0102, .Height = 0x0304, .Extra = 0x050607, .Format = 7, .Data = {1, 2, 3}};
    const StoredPicture second{.Width = 1, .Height = 1, .Format = 0, .Address = 0x11223344};
    EXPECT_EQ(builder.addSequence({first, second}), 1);
    const ImageReader image(builder.build());
    EXPECT_EQ(image.section(11), 2u);
    const std::uint32_t row = image.section(10) + 8;
    EXPECT_EQ(image.u32(row + 4) & 0xFFFFFF, 2u);
    const std::uint32_t frames = image.u32(row);
    EXPECT_EQ(image.bytes(image.u32(frames), 3), (Bytes{1, 2, 3}));
    EXPECT_EQ(image.bytes(frames + 4, 12), (Bytes{2, 1, 4, 3, 0, 0, 0, 0, 7, 6, 5, 7}));
    EXPECT_EQ(image.bytes(frames + 16, 16),
              (Bytes{0x44, 0x33, 0x22, 0x11, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

} // namespace
