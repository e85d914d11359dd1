// What --check says of images: a sound one with a fault each.
#include "check/image_check.h"
#include "check/references.h"
#include "host/memory_image.h"
#include "imagekit/bar_widgets.h"
#include "imagekit/encoder_widgets.h"
#include "imagekit/entry_widgets.h"
#include "imagekit/icon_widgets.h"
#include "imagekit/media_widgets.h"
#include "imagekit/meter_widgets.h"
#include "imagekit/touch_controls.h"
#include "imagekit/touch_keys.h"
#include "imagekit/value_widgets.h"
#include "pages/display_kinds.h"
#include "pages/page_table.h"
#include "temporary_files.h"
#include "widgets/touch/touch_families.h"

#include <functional>
#include <random>
#include <regex>

namespace {

using namespace imagekit;

constexpr std::uint16_t Elsewhere = 0x8000; // no word, no page, no picture

/// Two pages on which a widget of most kinds stands right.
ImageBuilder soundImage(PanelConfig config = {}) {
    config.Width = 64;
    config.Height = 48;
    config.LangueNum = 2;
    ImageBuilder image(config);
    QImage square(8, 8, QImage::Format_ARGB32);
    square.fill(Qt::red);
    for (int i = 0; i < 11; ++i) image.addPicture(Pixels{square, i == 0 ? format::PngAlpha : format::RGB565});
    image.addFont(SyntheticFont({.Kind = FontKind::Ascii, .Width = 4, .Height = 8}));
    image.addString({.Text = "on"});
    image.addSequence({Pixels{square}});
    image.addSound({1, 2, 3});
    for (const std::uint16_t other : {1, 0}) {
        Page& page = image.addPage(Solid{64, 48, Qt::blue});
        page.addToGroup(1, ValueIcon{.ValueAddress = 2, .X = 4, .Y = 4, .Maximum = 10});
        page.add(Label{.TextAddress = 0, .X2 = 63, .Y2 = 8, .Font = 0, .TextLength = 4});
        page.add(Number{.ValueAddress = 0x70FE, .X = 64, .Y = 8, .Font = 0, .Unit = "kW"});
        page.add(PngNumber{.ValueAddress = 2, .X = 20, .Y = 30, .IntegerDigits = 2});
        page.add(ImageAnimation{.X = 8, .Y = 8, .Width = 8, .Height = 8, .Group = 1});
        page.add(MusicPlayer{.Number = 1});
        page.add(PageKey{.Where = {0, 0, 9, 9}, .NormalImage = 10, .TargetPage = other, .OverlayGroup = 1});
        page.add(StepKey{.Where = VirtualKeyOnly(7), .Address = 3});
        page.add(PagePreset{1, {{0x7000, other}, {0x0100, 9}}});
    }
    return image;
}

check::Report checked(const ImageBuilder& image, const std::optional<QString>& directory = {}) {
    panel::TakeImage(image.build());
    return check::CheckImage(directory);
}

/// The lines without their offsets.
std::vector<std::string> linesOf(const check::Report& report) {
    std::vector<std::string> lines;
    for (const check::Finding& finding : report.findings)
        lines.push_back(std::regex_replace(finding.line, std::regex(" at 0x[0-9a-f]{8}:"), ":"));
    return lines;
}
using Lines = std::vector<std::string>;

/// Makes a fault in a sound image, on page 1.
using Make = std::function<void(ImageBuilder&, Page&)>;

template <class... Records>
Make add(Records... records) {
    return [=](ImageBuilder&, Page& page) { (page.add(records), ...); };
}
Make setTouchStream(const Bytes& bytes) {
    return [=](ImageBuilder&, Page& page) { page.setRawStream(Stream::Touch, bytes); };
}

/// A record of that kind with other parameters than its widget can have.
DisplayRecord bare(std::uint16_t kind, Bytes block) { return {.Kind = kind, .Block = std::move(block)}; }

/// More of the same record than a page takes.
Make setManyKeys(int count, const TouchRecord& record) {
    ByteWriter stream;
    for (int i = 0; i < count; ++i) stream.bytes(EncodeRecord(record, ""));
    return setTouchStream(stream.data());
}
EncoderMenu menuWithPage(std::uint16_t target) {
    EncoderActions actions;
    actions.Keys[1] = {.Page = target};
    return {.Entries = {EncoderStep{.Address = 2}, actions}};
}

struct Fault {
    const char* name;
    Make make;
    Lines lines;
    PanelConfig config{};
};

void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.name; }

constexpr Area Square{0, 0, 9, 9};
const StoredPicture FarAway{.Width = 8, .Height = 8, .Extra = 1, .Format = 0, .Address = 0xFFFFFFF0};

const Fault Faults[] = {
    {"Nothing", add(), {}},
    {"FontAndString",
     add(Label{.TextAddress = 0, .Font = 7}, Label{.Font = 7, .String = 2}),
     {"error: page 1 label: font 7 does not exist (the image has 1)",
      "error: page 1 label: string 2 does not exist (the image has 1)"}},
    {"Words",
     add(StepKey{.Where = Square, .Address = Elsewhere},
         Label{.TextAddress = 0x70F0, .Font = 0, .TextLength = 16},
         Number{.Unit = "kWh", .HideAddress = Elsewhere}),
     {"error: page 1 label: the 16 text words from 0x70f0 on reach beyond the last word",
      "error: page 1 number: hide word 0x8000 does not exist",
      "error: page 1 StepKey: value word 0x8000 does not exist"}},
    {"Pictures",
     add(BitIcon{.ClearImage = 3, .SetImage = 11}, ValueIcon{.FirstImage = 9, .Minimum = 2, .Maximum = 4}),
     {"error: page 1 bitIcon: set picture 11 does not exist (the image has 11)",
      "error: page 1 valueIcon: pictures 9 to 11 do not all exist (the image has 11)"}},
    {"GroupSequenceAndSound",
     add(RingGauge{.Foreground = 1, .Group = 5}, ImageAnimation{.Width = 1, .Height = 1, .Sequence = 1},
         MusicPlayer{.Number = 2, .Repeat = true}),
     {"error: page 1 ringGauge: the page has no group 5",
      "error: page 1 imageAnimation: sequence 1 does not exist (the image has 1)",
      "error: page 1 musicPlayer: sound 2 does not exist (the image has 1)"}},
    {"PagesByKeyWordAndMenu",
     add(SwipeGesture{.Left = {2, 0}, .Right = {0xFFFF, 0}},
         MultiKey{.Where = Square, .Click = {.Enabled = true, .Address = 0x7000, .Value = 2}},
         menuWithPage(2)),
     {"error: page 1 encoderMenu: key 2 page 2 does not exist (the image has 2)",
      "error: page 1 SwipeGesture: left page 2 does not exist (the image has 2)",
      "error: page 1 MultiKey: click page 2 does not exist (the image has 2)"}},
    {"PresetAndItsItems",
     add(StateKey{.Address = 2, .FirstPreset = 2}, PagePreset{2, {{0x7000, 2}, {Elsewhere, 0}, {0x703F, 2}}}),
     {"warning: page 1 StateKey: the page has no preset 3",
      "error: page 1 preset: preset page 2 does not exist (the image has 2)",
      "error: page 1 preset: preset word 0x8000 does not exist",
      "error: page 1 preset: preset language 2 does not exist (the image has 2)"}},
    {"OffThePanel",
     add(BitIcon{.X = 64, .Y = 0, .ClearImage = 1}, BitIcon{.X = 60, .Y = 0, .ClearImage = 1},
         CopyKey{.Where = {9, 9, 0, 0}}),
     {"error: page 1 bitIcon: (64, 0) to (71, 7) lies off the panel of 64 x 48",
      "warning: page 1 bitIcon: (60, 0) to (67, 7) lies partly off the panel of 64 x 48",
      "error: page 1 CopyKey: its rectangle from (9, 9) to (0, 0) is empty"}},
    {"BandsOfSlidingPages",
     [](ImageBuilder& image, Page& page) {
         image.page(0).add(SlidePage{.BandTop = 8, .BandBottom = 8});
         page.add(SlidePage{.BandTop = 8, .BandBottom = 49});
     },
     {"error: page 0 SlidePage: its rectangle from (0, 8) to (63, 7) is empty",
      "warning: page 1 SlidePage: (0, 8) to (63, 48) lies partly off the panel of 64 x 48"}},
    {"OnAListLargerThanThePanel",
     [](ImageBuilder& image, Page& page) {
         image.addPage(Solid{64, 200, Qt::red});
         page.add(SlidingList{.Window = {0, 0, 63, 47}, .ListPage = 2});
         page.add(PageKey{.Where = {0, 190, 9, 199}, .InList = 1});
         page.add(PopupKey{.Where = {0, 190, 9, 199}, .InList = 1, .Page = 0, .PopupY = 50});
         page.add(PageKey{.Where = {0, 200, 9, 209}, .InList = 1});
     },
     {"error: page 1 PopupKey: (0, 50) to (63, 97) lies off the panel of 64 x 48",
      "error: page 1 PageKey: (0, 200) to (9, 209) lies off the list of 64 x 200"}},
    {"OnAListThatIsMissing",
     add(PageKey{.Where = Square, .InList = 1}),
     {"warning: page 1 PageKey: it lies on a sliding list, and the page shows none"}},
    {"MoreThanAPageHolds",
     setManyKeys(22, Encode(StateKey{})),
     {"error: page 1 StateKey: a page holds 20 of these, and this is one more"}},
    {"StreamAboveItsBuffer",
     setManyKeys(17, {.Family = 0x8005, .Body = Bytes(255)}),
     {"error: page 1 touch stream: of its 4386 bytes the panel takes 4096"}},
    {"StreamBeyondTheImage",
     [](ImageBuilder& image, Page&) {
         panel::TakeImage(image.build());
         panel::LoadSectionTable();
         image.patch(panel::Sections.PageTable + panel::PageRowBytes, {0xFF, 0xFF, 0xFF, 0x7F});
     },
     {"error: page 1 display stream: its 123 bytes end beyond the image"}},
    {"StreamEndsInARecord",
     setTouchStream({0x01, 0x80, 0x12, 0}),
     {"error: page 1 touch stream: the stream ends inside a record"}},
    {"RecordTooShort",
     add(bare(0x0F, Bytes(4))),
     {"error: page 1 bitIcon: the record ends at 9, before its field at 7"}},
    {"UnknownRecords",
     add(bare(0x30, {}), TouchRecord{.Family = 0x8010}, GroupRecord{1, bare(0x0C, {})}),
     {"warning: page 1: the panel knows no widget kind 0x0030",
      "warning: page 1: no group shows the widget kind 0x000c",
      "warning: page 1: the panel knows no touch family 0x8010"}},
    {"ParametersInTheStore",
     [](ImageBuilder& image, Page& page) {
         image.setBytes(0x0200, Encode(Label{.TextAddress = Elsewhere, .Font = 0}).Block);
         for (const std::uint16_t address : {0x0200, 0x0300, 0x70FE}) // the second is left to the host
             page.add(Label{.ParameterAddress = address});
     },
     {"error: page 1 label: text word 0x8000 does not exist",
      "error: page 1 label: its parameters at word 0x70fe lie beyond the last word"}},
    {"PicturesBeyondTheImage",
     [](ImageBuilder& image, Page&) {
         image.setPicture(10, 1, FarAway);
         image.addPicture(FarAway); // nothing shows it
         image.addPage(FarAway);
     },
     {"error: page 2 background: 128 bytes at 0xfffffff0 end beyond the image",
      "error: picture 10 of language 1: 128 bytes at 0xfffffff0 end beyond the image"}},
    {"PngCut",
     [](ImageBuilder& image, Page&) {
         StoredPicture cut = EncodePicture(Pixels{QImage(8, 8, QImage::Format_RGB32), format::PngOpaque},
                                           PixelLayout(image.config()), "");
         cut.Extra -= 4;
         image.setPicture(10, 0, cut);
     },
     {"error: picture 10: its bytes are no whole PNG file"}},
    {"StartPageAndColourFormat",
     add(),
     {"error: head: the panel knows no colour format 2",
      "error: head: start page 2 does not exist (the image has 2)"},
     {.ColourMode = 2, .StartPage = 2}},
    {"CheckWords",
     [](ImageBuilder& image, Page&) { image.patch(0x80 + 60, {9}); },
     {"error: head: the check words are wrong, the panel refuses the image"}},
    {"TableBeyondTheImage",
     [](ImageBuilder& image, Page&) { image.patch(SectionWord::FontTable, 0x00F00000); },
     {"error: head: the font table of 1 rows at 0x00f00000 ends beyond the image",
      "error: font 0: there is no font at this place"}},
    {"VideoOnAnotherChip",
     add(VideoPlayer{.X2 = 9, .Y2 = 9}),
     {"warning: page 1 videoPlayer: this chip plays no video"}},
};

class CheckImage : public ::testing::TestWithParam<Fault> {};

TEST_P(CheckImage, TellsTheFault) {
    ImageBuilder image = soundImage(GetParam().config);
    GetParam().make(image, image.page(1));
    Lines lines = linesOf(checked(image));
    for (std::string& line : lines) // where pictures lie is no matter here
        line = std::regex_replace(line, std::regex("its [0-9]+ bytes at 0x[0-9a-f]+"), "its bytes");
    EXPECT_EQ(lines, GetParam().lines);
}
INSTANTIATE_TEST_SUITE_P(Faults, CheckImage, ::testing::ValuesIn(Faults),
                         [](const auto& fault) { return std::string(fault.param.name); });

TEST(Check, TellsWhereARecordLies) {
    ImageBuilder image = soundImage();
    const DisplayRecord record = Encode(Label{.TextAddress = 0, .Font = 0xAB});
    image.page(0).add(record);
    const check::Report report = checked(image);
    const QByteArray inFile(reinterpret_cast<const char*>(record.Block.data()),
                            static_cast<int>(record.Block.size()));
    const QString place = QString::asprintf("page 0 label at 0x%08x: ", image.build().indexOf(inFile) - 5);
    ASSERT_EQ(report.findings.size(), 1u);
    EXPECT_NE(report.findings[0].line.find(place.toStdString()), std::string::npos)
        << report.findings[0].line;
}

TEST(Check, ListsSoManyFindingsOfAPageAndCountsTheOthers) {
    ImageBuilder image = soundImage();
    for (int i = 0; i < 50; ++i) image.page(0).add(MusicPlayer{.Number = 9});
    image.page(1).add(bare(0x30, {}));
    const check::Report report = checked(image);
    ASSERT_EQ(report.findings.size(), 42u);
    EXPECT_EQ(report.findings[40].line, "error: page 0: not listed here: 10 errors, 0 warnings");
    EXPECT_EQ(check::Summary(report), "50 errors, 1 warning");
}

class CheckMedia : public ::testing::Test, protected TemporaryFiles {};

TEST_F(CheckMedia, LooksForTheFilesBesideTheImage) {
    ImageBuilder image({.ICType = 5});
    Page& page = image.addPage(Solid{800, 480, Qt::blue});
    for (const std::uint16_t number : {3, 4}) {
        page.add(MusicPlayer{.Number = number});
        page.add(VideoPlayer{.Number = number, .X2 = 9, .Y2 = 9});
    }
    writeFile("Music/0002.wav", "");
    writeFile("Video/0003.avi", "");
    EXPECT_EQ(linesOf(checked(image, directory_.path())),
              (Lines{"error: page 0 musicPlayer: sound 4 has no file 0003 in the folder Music",
                     "error: page 0 videoPlayer: video 4 has no file 0004 in the folder Video"}));
}

TEST(Check, KnowsEveryKindOfRecord) {
    for (const panel::DisplayKind& kind : panel::DisplayKinds())
        EXPECT_FALSE(check::ReferencesOf(kind.code).empty()) << kind.name;
    for (std::uint16_t code = 0x8000; panel::FindTouchFamily(code); ++code)
        EXPECT_FALSE(check::ReferencesOf(code).empty()) << panel::FindTouchFamily(code)->name;
}

/// The head is hit as often as all the rest: counts and addresses of tables lead everywhere.
TEST(Check, EndsOnAnyBytes) {
    const QByteArray sound = soundImage().build();
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        QByteArray bytes = sound;
        for (unsigned change = random() % 40; change-- > 0;) {
            const unsigned reach = random() % 2 ? 0x78u : static_cast<unsigned>(bytes.size());
            bytes[static_cast<int>(random() % reach)] = static_cast<char>(random() % 3 ? random() : 0xFF);
        }
        if (random() % 4 == 0) bytes.truncate(static_cast<int>(random() % 0x400));
        panel::TakeImage(bytes);
        const check::Report report = check::CheckImage({});
        EXPECT_LE(report.findings.empty(), report.errors + report.warnings == 0);
    }
}

} // namespace
