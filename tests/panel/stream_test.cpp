#include "pages/display_page.h"
#include "pages/page_switch.h"
#include "pages/parameters.h"
#include "pages/stream_walker.h"
#include "panel_test.h"

namespace panel {
namespace {

using imagekit::DisplayRecord;
using imagekit::ImageBuilder;
using Bytes = std::vector<std::uint8_t>;

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

const Bytes label{0x01, 0x00, 0xFF, 0xFF, 0x02, 0xAA, 0xBB};
const Bytes flaggedMenu{0x0E, 0x01, 0xFF, 0xFF, 0x03,
                        0x00, 1,    2,    3}; // bits above bit 7: kind 0xE, 16-bit length
const Bytes menu{0x0E, 0x00, 0xFF, 0xFF, 0x02, 0x00, 1, 2};
const Bytes groupLabel{0x07, 0x00, 0x01, 0x00, 0xFF, 0xFF, 0x04, 0xAA, 0xBB};
const Bytes key{0x01, 0xC0, 0x02, 0xAA, 0xBB};

struct WalkCase {
    const char* name;
    Framing framing;
    Bytes stream;
    std::vector<std::size_t> offsets; // of the records that are found
};
class Walk : public ::testing::TestWithParam<WalkCase> {};

TEST_P(Walk, FindsTheRecordsThatAreWhole) {
    StreamWalker walker(GetParam().stream, GetParam().framing);
    std::vector<std::size_t> offsets;
    while (const auto record = walker.next()) offsets.push_back(record->offset);
    EXPECT_EQ(offsets, GetParam().offsets);
    EXPECT_FALSE(walker.next()) << "the end is for good";
}

INSTANTIATE_TEST_SUITE_P(
    Streams, Walk,
    ::testing::Values(
        WalkCase{"Empty", Framing::Display, {}, {}}, //
        WalkCase{"HeadCutShort", Framing::Display, label + Bytes{0x01, 0x00, 0xFF, 0xFF}, {0}},
        WalkCase{"ClaimsMoreThanIsLeft", Framing::Display, label + Bytes{0x01, 0x00, 0xFF, 0xFF, 1}, {0}},
        WalkCase{
            "LengthFlagDoesNotCount", Framing::Display, Bytes{1, 0, 0xFF, 0xFF, 0x81, 9} + label, {0, 6}},
        WalkCase{
            "MenuByThePlainRule", Framing::Display, Bytes{0x0E, 0, 0xFF, 0xFF, 3, 0, 1, 2} + label, {0, 8}},
        WalkCase{"MenuByKind", Framing::DisplayByKind, flaggedMenu + menu + label, {0, 9, 17}},
        WalkCase{"MenuByTypeWord", Framing::DisplayByTypeWord, menu + label, {0, 8}},
        WalkCase{"FlaggedMenuByTypeWord", Framing::DisplayByTypeWord, flaggedMenu, {0}},
        WalkCase{"HugeMenu", Framing::DisplayByKind, {0x0E, 0, 0xFF, 0xFF, 0xFF, 0xFF, 1}, {}},
        WalkCase{"GroupLengthCountsTheId", Framing::Group, groupLabel + groupLabel, {0, 9}},
        WalkCase{"GroupShorterThanItsHead", Framing::Group, Bytes{7, 0, 1, 0, 0xFF, 0xFF, 1, 9, 9}, {}},
        WalkCase{"Touch", Framing::Touch, key + Bytes{0, 0x80, 0} + key, {0, 5, 8}},
        WalkCase{"TouchCutShort", Framing::Touch, key + Bytes{0x01, 0x80, 9, 1}, {0}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(StreamWalker, AGroupRecordIsADisplayRecordBehindItsId) {
    StreamWalker walker(groupLabel, Framing::Group);
    const auto record = walker.next();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->groupId, 7);
    EXPECT_EQ(record->kind(), 1);
    EXPECT_EQ(Parameters(record->bytes).u16(5), 0xBBAA);
}

TEST(Parameters, ReadTheRecordOrTheStoreAndNothingBeyond) {
    const Bytes inlineForm{0x03, 0x0A, 0xFF, 0xFF, 0x83, 0x11, 0x22, 0x33};
    const Parameters p(inlineForm);
    EXPECT_FALSE(p.inStore());
    EXPECT_EQ(p.inList(), 0x0A);
    EXPECT_EQ(p.blockLength(), 3u);
    EXPECT_EQ(p.u16(5), 0x2211);
    EXPECT_EQ(p.u24(5), 0x332211u);
    EXPECT_EQ(p.u16(7), 0x0033) << "cut at the record's end";
    EXPECT_EQ(p.u32(100), 0u);

    StoreWord(0x0100, 0x1122);
    StoreWord(0x0101, 0x3344);
    const Bytes pointerForm{0x03, 0x00, 0x00, 0x01, 0x03};
    const Parameters q(pointerForm);
    EXPECT_TRUE(q.inStore());
    EXPECT_EQ(q.u16(5), 0x2211) << "the block keeps the image's byte order";
    EXPECT_EQ(q.u8(7), 0x33);
    EXPECT_EQ(q.u8(8), 0) << "beyond the block";
    EXPECT_EQ(q.u8(0), 0) << "before the block";
    EXPECT_EQ(Parameters(pointerForm, 4).u8(4), 0x11) << "a kind whose block begins a byte earlier";

    const Bytes beyondStore{0x03, 0x00, 0xFE, 0x70, 0x7F};
    EXPECT_EQ(Parameters(beyondStore).u32(7), 0u);
}

// What of the store a record depends on, told as the bytes that a page display brings in line.
struct SyncCase {
    const char* name;
    DisplayRecord record;
    std::vector<std::size_t> synced; // byte offsets from word 0x0100
};

/// A block with little-endian words at record offsets.
Bytes block(std::size_t length, std::initializer_list<std::pair<std::size_t, int>> words) {
    Bytes bytes(length, 0);
    for (const auto& [offset, value] : words) {
        bytes[offset - 5] = static_cast<std::uint8_t>(value);
        if (offset - 4 < length) bytes[offset - 4] = static_cast<std::uint8_t>(value >> 8);
    }
    return bytes;
}

const Bytes valueWord = block(12, {{5, 0x0100}});
Bytes numberBlock(int type, int hideWord) {
    return block(
        0x20,
        {{5, 0x0100}, {0x14, type | 2 << 8}, {0x18, hideWord}}); // two bytes of text before the hide word
}

class Sync : public PanelTest, public ::testing::WithParamInterface<SyncCase> {
protected:
    /// Every byte from word 0x0100 on differs, and no text ends before its seventh byte.
    static void fillStore() {
        for (std::size_t at = 0x0200; at < 0x0220; ++at) StoreByte(at, at < 0x0206 ? 0xEE : 0);
        SyncBytes(0x0200, 0x20);
        for (std::size_t at = 0x0206; at < 0x0220; ++at) StoreByte(at, 1);
        SyncBytes(0x0206, 0x1A);
        for (std::size_t at = 0x0206; at < 0x0220; ++at) StoreByte(at, 0);
        for (std::size_t at = 0x0200; at < 0x0206; ++at) StoreByte(at, 0xDD);
    }
    static std::vector<std::size_t> syncedBytes() {
        std::vector<std::size_t> synced;
        for (std::size_t at = 0; at < 0x20; ++at)
            if (!BytesDiffer(0x0200 + at, 1)) synced.push_back(at);
        return synced;
    }
};

TEST_P(Sync, BringsInLineWhatTheRecordDependsOn) {
    ImageBuilder image({.Width = 64, .Height = 48, .InitVar = false});
    image.addPage().add(GetParam().record);
    LoadFlash(image.build());
    LoadSectionTable();
    fillStore();
    DisplayPage(0);
    EXPECT_EQ(syncedBytes(), GetParam().synced);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, Sync,
    ::testing::Values(
        SyncCase{"LabelUpToItsZeroWord",
                 {.Kind = 1, .Block = block(0x16, {{5, 0x0100}, {0x19, 9}})},
                 {0, 1, 2, 3, 4, 5, 6, 7}},
        SyncCase{"LabelWithoutText", {.Kind = 1, .Block = block(0x16, {{5, 0x0100}})}, {}},
        SyncCase{"NumberOfOneByte", {.Kind = 2, .Block = numberBlock(0x80, 0xFFFF)}, {1}},
        SyncCase{"NumberOfFourBytesAndHideWord",
                 {.Kind = 2, .Block = numberBlock(0x02, 0x0104)},
                 {0, 1, 2, 3, 8, 9}},
        SyncCase{"PngNumber",
                 {.Kind = 4, .Block = block(0x12, {{5, 0x0100}, {0x0F, 1}, {0x13, 0x0103}})},
                 {0, 1, 6, 7}},
        SyncCase{"ValueIcon", {.Kind = 3, .Block = valueWord}, {0, 1}},
        SyncCase{"FlaggedBitIcon", {.Kind = 0x0F, .Flags = 0x0300, .Block = valueWord}, {0, 1}},
        SyncCase{"QrTextUpToAPairOfZeros",
                 {.Kind = 7, .Block = block(12, {{5, 0x0100}, {7, 9}})},
                 {0, 1, 2, 3, 4, 5, 6, 7}},
        SyncCase{"QrTextByItsLength", {.Kind = 7, .Block = block(12, {{5, 0x0100}, {7, 1}})}, {0, 1}},
        SyncCase{
            "Textroll", {.Kind = 9, .Block = block(12, {{5, 0x0100}, {0x0F, 0xFF03}})}, {0, 1, 2, 3, 4, 5}},
        SyncCase{"CurveNothing", {.Kind = 0x0D, .Block = valueWord}, {}},
        SyncCase{"CurveBlock", {.Kind = 0x0D, .ParameterAddress = 0x0102, .Block = Bytes(3)}, {4, 5, 6}},
        SyncCase{"MusicHasNoBlock", {.Kind = 0x0A, .ParameterAddress = 0x0102, .Block = Bytes(3)}, {}},
        SyncCase{"UnknownKind", {.Kind = 0x1F, .Block = valueWord}, {}}),
    [](const auto& row) { return std::string(row.param.name); });

class Groups : public PanelTest {};

TEST_F(Groups, OnlyInlineRecordsOfGroupKindsAreBroughtInLine) {
    ImageBuilder image({.Width = 64, .Height = 48, .InitVar = false});
    auto& page = image.addPage();
    const auto icon = [](std::uint16_t kind, int address, std::uint16_t parameters = imagekit::Inline) {
        return imagekit::GroupRecord{
            1, {.Kind = kind, .ParameterAddress = parameters, .Block = block(12, {{5, address}})}};
    };
    page.add(icon(3, 0x0100));
    page.add(icon(0x0B, 0x0101)); // an image bar lives on pages alone
    page.add(icon(3, 0x0102, 0x0200));
    page.add(DisplayRecord{.Kind = 3, .Block = block(12, {{5, 0x0110}})});
    boot(image);
    for (std::uint16_t address = 0x0100; address < 0x0103; ++address) StoreWord(address, 0x5555);
    ShowPage(0);
    EXPECT_FALSE(WordDiffers(0x0100));
    EXPECT_TRUE(WordDiffers(0x0101));
    EXPECT_TRUE(WordDiffers(0x0102));
}

TEST_F(Groups, AnEncoderRecordMakesTheBaseSurface) {
    imagekit::PanelConfig config{.Width = 64, .Height = 48};
    ImageBuilder image(config);
    image.addPage(PlainPage(config, Qt::red)).add(DisplayRecord{.Kind = 3, .Block = valueWord});
    image.addPage(PlainPage(config, Qt::green)).add(DisplayRecord{.Kind = 0x14, .Block = Bytes(5)});
    boot(image);
    EXPECT_EQ(BaseSurface.pixel(1, 1), 0u) << "no background widget on this page";
    ShowPage(1);
    EXPECT_EQ(BaseSurface, PageBackground);
}

TEST_F(Groups, StreamsThatAreTooLongAreCut) {
    ImageBuilder image({.Width = 64, .Height = 48});
    Bytes stream;
    while (stream.size() < 5000) stream = stream + label;
    image.addPage().setRawStream(imagekit::Stream::Display, stream);
    image.page(0).setRawStream(imagekit::Stream::Touch, stream);
    image.page(0).setRawStream(imagekit::Stream::Group, stream);
    image.addPage().setRawStream(imagekit::Stream::Display, {},
                                 0xFFFE); // claims what the image does not have
    EXPECT_EQ(boot(image), StartResult::Running);
    ShowPage(1);
    cycles(2);
}

} // namespace
} // namespace panel
