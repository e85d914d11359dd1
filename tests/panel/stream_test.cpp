#include "imagekit/bar_widgets.h"
#include "imagekit/chart_widgets.h"
#include "imagekit/image_error.h"
#include "pages/display_kinds.h"
#include "pages/display_page.h"
#include "pages/parameters.h"
#include "pages/stream_walker.h"
#include "panel_test.h"
#include "widgets/touch/touch_families.h"

namespace panel {
namespace {

using namespace imagekit;

Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

const Bytes label{0x01, 0x00, 0xFF, 0xFF, 0x02, 0xAA, 0xBB};
const Bytes flaggedMenu{0x0E, 0x01, 0xFF, 0xFF, 0x03, 0x00, 1, 2, 3}; // of kind 0xE too
const Bytes menu{0x0E, 0x00, 0xFF, 0xFF, 0x02, 0x00, 1, 2};
const Bytes groupLabel{0x07, 0x00, 0x01, 0x00, 0xFF, 0xFF, 0x04, 0xAA, 0xBB};
const Bytes key{0x01, 0xC0, 0x02, 0xAA, 0xBB};

TEST(StreamWalker, FindsTheRecordsThatAreWhole) {
    struct Case {
        const char* name;
        Framing framing;
        Bytes stream;
        std::vector<std::size_t> offsets; // of the records that are found
    };
    using enum Framing;
    const Case cases[] = {
        {"empty", Display, {}, {}},
        {"head cut short", Display, label + Bytes{0x01, 0x00, 0xFF, 0xFF}, {0}},
        {"claims more than is left", Display, label + Bytes{0x01, 0x00, 0xFF, 0xFF, 1}, {0}},
        {"length flag does not count", Display, Bytes{1, 0, 0xFF, 0xFF, 0x81, 9} + label, {0, 6}},
        {"menu by the plain rule", Display, Bytes{0x0E, 0, 0xFF, 0xFF, 3, 0, 1, 2} + label, {0, 8}},
        {"menu by kind", DisplayByKind, flaggedMenu + menu + label, {0, 9, 17}},
        {"menu by type word", DisplayByTypeWord, menu + label, {0, 8}},
        {"flagged menu by type word", DisplayByTypeWord, flaggedMenu, {0}},
        {"huge menu", DisplayByKind, {0x0E, 0, 0xFF, 0xFF, 0xFF, 0xFF, 1}, {}},
        {"group length counts the id", Group, groupLabel + groupLabel, {0, 9}},
        {"group shorter than its head", Group, Bytes{7, 0, 1, 0, 0xFF, 0xFF, 1, 9, 9}, {}},
        {"touch", Touch, key + Bytes{0, 0x80, 0} + key, {0, 5, 8}},
        {"touch cut short", Touch, key + Bytes{0x01, 0x80, 9, 1}, {0}}};
    for (const Case& row : cases) {
        StreamWalker walker(row.stream, row.framing);
        std::vector<std::size_t> offsets;
        while (const auto record = walker.next()) offsets.push_back(record->offset);
        EXPECT_EQ(offsets, row.offsets) << row.name;
        EXPECT_FALSE(walker.next()) << "the end is for good: " << row.name;
    }
    const auto record = StreamWalker(groupLabel, Group).next();
    EXPECT_EQ(record->groupId, 7);
    EXPECT_EQ(record->kind(), 1) << "a display record behind its id";
}

TEST(Parameters, ReadTheRecordOrTheStoreAndNothingBeyond) {
    const Bytes inlineForm{0x03, 0x0A, 0xFF, 0xFF, 0x83, 0x11, 0x22, 0x33};
    const Parameters p(inlineForm);
    EXPECT_FALSE(p.inStore());
    EXPECT_EQ(p.inList(), 0x0A);
    EXPECT_EQ(p.blockLength(), 3u);
    EXPECT_EQ(p.u24(5), 0x332211u);
    EXPECT_EQ(p.u16(7), 0x0033) << "cut at the record's end";
    EXPECT_EQ(p.u32(100), 0u);

    StoreWord(0x0100, 0x1122);
    StoreWord(0x0101, 0x3344);
    const Bytes pointerForm{0x03, 0x00, 0x00, 0x01, 0x03};
    const Parameters q(pointerForm);
    EXPECT_TRUE(q.inStore());
    EXPECT_EQ(q.u16(5), 0x2211) << "the block keeps the image's byte order";
    EXPECT_EQ(q.u16(7), 0x0033) << "cut at the block's end";
    EXPECT_EQ(q.u8(0), 0) << "before the block";
    EXPECT_EQ(Parameters(pointerForm, 4).u8(4), 0x11) << "a kind whose block begins a byte earlier";

    const Bytes beyondStore{0x03, 0x00, 0xFE, 0x70, 0x7F};
    EXPECT_EQ(Parameters(beyondStore).u32(7), 0u);
}

class DisplayStream : public PanelTest {
protected:
    /// Every byte from word 0x0100 on differs, and no text ends before its seventh byte.
    static void fillStore() {
        for (const int shown : {1, 0})
            for (std::size_t at = 0; at < 0x20; ++at) {
                StoreByte(0x0200 + at, static_cast<std::uint8_t>(at < 6 ? 0xDD + shown : shown));
                if (shown) SyncBytes(0x0200 + at, 1);
            }
    }
    static std::vector<int> syncedBytes() {
        std::vector<int> synced;
        for (int at = 0; at < 0x20; ++at)
            if (!BytesDiffer(static_cast<std::size_t>(0x0200 + at), 1)) synced.push_back(at);
        return synced;
    }
};

TEST_F(DisplayStream, BringsInLineWhatItsRecordsDependOn) {
    struct Case {
        const char* name;
        DisplayRecord record;
        std::vector<int> synced; // byte offsets from word 0x0100
    };
    constexpr std::uint16_t value = 0x0100, hide = 0x0104;
    PngNumber pngNumber{.ValueAddress = value, .IntegerDigits = 1};
    pngNumber.HideAddress = hide;
    const Case cases[] = {
        {"label up to its zero word",
         Encode(Label{.TextAddress = value, .TextLength = 9}),
         {0, 1, 2, 3, 4, 5, 6, 7}},
        {"label without text", Encode(Label{.TextAddress = value}), {}},
        {"number of one byte",
         Encode(Number{.ValueAddress = value, .Type = DataType::S8, .Unit = "kg"}),
         {1}},
        {"number and hide word",
         Encode(Number{.ValueAddress = value, .Type = DataType::U32, .Unit = "kg", .HideAddress = hide}),
         {0, 1, 2, 3, 8, 9}},
        {"PNG number", Encode(pngNumber), {0, 1, 8, 9}},
        {"flagged bit icon", {0x0F, 0x0300, 0xFFFF, {0x00, 0x01, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}, {0, 1}},
        {"QR text up to zeros",
         Encode(QrCode{.TextAddress = value, .TextWords = 9}),
         {0, 1, 2, 3, 4, 5, 6, 7}},
        {"QR text by its length", Encode(QrCode{.TextAddress = value, .TextWords = 1}), {0, 1}},
        {"rolling text", Encode(Textroll{.TextAddress = value, .TextWords = 0xFF03}), {0, 1, 2, 3, 4, 5}},
        {"curve", Encode(Curve{}), {}},
        {"curve block in the store", {0x0D, 0, 0x0102, Bytes(3)}, {4, 5, 6}},
        {"music has no block", {0x0A, 0, 0x0102, Bytes(3)}, {}},
        {"unknown kind", {0x1F, 0, 0xFFFF, {0x00, 0x01}}, {}}};
    for (const Case& row : cases) {
        ImageBuilder image({.Width = 64, .Height = 48, .InitVar = false});
        image.addPage().add(row.record);
        LoadFlash(image.build());
        LoadSectionTable();
        fillStore();
        DisplayPage(0);
        EXPECT_EQ(syncedBytes(), row.synced) << row.name;
    }
}

TEST_F(DisplayStream, StreamsThatAreTooLongAreCut) {
    ImageBuilder image({.Width = 64, .Height = 48});
    Bytes stream;
    while (stream.size() < 5000) stream = stream + label;
    image.addPage();
    for (const auto kind : {Stream::Display, Stream::Touch, Stream::Group})
        image.page(0).setRawStream(kind, stream);
    image.addPage().setRawStream(Stream::Display, {}, 0xFFFE); // more than the image has
    EXPECT_EQ(boot(image), StartResult::Running);
    ShowPage(1);
    cycles(2);
}

TEST(PageLimits, AreThoseOfTheTablesThatThePanelFills) {
    ImageBuilder image;
    const auto expectLimit = [&image](const auto& record, std::size_t limit) {
        Page& page = image.addPage();
        for (std::size_t i = 0; i < limit; ++i) page.add(record);
        EXPECT_THROW(page.add(record), ImageError) << page.index();
    };
    for (const DisplayKind& kind : DisplayKinds())
        if (kind.capacity != 0) expectLimit(DisplayRecord{.Kind = kind.code}, kind.capacity);
    for (std::uint16_t code = 0x8000; const TouchFamily* family = FindTouchFamily(code); ++code)
        expectLimit(TouchRecord{.Family = code}, family->capacity);
}

} // namespace
} // namespace panel
