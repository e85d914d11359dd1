#include "widgets/touch/pinyin_entry.h"

#include "imagekit/entry_widgets.h"
#include "touch_fixture.h"

namespace panel {
namespace {

using namespace imagekit;

constexpr std::uint16_t Value = 0x0100;
constexpr QPoint At(10, 6);

/// Letters type themselves. '<' erases, '#' is Shift, '@' switches the language, '+' and '-' turn the pages,
/// '!' enters, '~' clears.
const std::string Keys = "abghnoz1<#@+-!~";

class PinyinTest : public TouchTest {
protected:
    PinyinTest() {
        image = ImageBuilder({.Width = 220, .Height = 90, .ColourMode = 1});
        const auto ascii = image.addFont(SyntheticFont({.Kind = FontKind::Gbk, .Width = 8, .Height = 8}));
        image.setPinyin({{"a", "啊阿"}, {"ang", "昂"}, {"hao", "好号毫豪耗浩郝皓昊"}, {"ni", "你泥尼"}});
        auto& page = image.addPage(PlainPage(image.config(), Qt::gray));
        auto& keyboard = image.addPage(Filled(200, 80, Qt::blue));
        image.addPage(Filled(200, 80, Qt::red));
        PinyinEntry entry{.Where = {0, 0, 9, 9}, .Notify = true, .Address = Value, .Capacity = 3};
        entry.Prefilled = true;
        entry.Font = entry.PinyinFont = ascii;
        entry.GlyphWidth = entry.GlyphHeight = entry.PinyinGlyphWidth = entry.PinyinGlyphHeight = 8;
        entry.TextColour = entry.PinyinColour = 0x00FF00;
        entry.Keyboard = {.Page = 1, .X = 10, .Y = 6, .TextX = 2, .TextY = 2};
        entry.LettersX = entry.CandidatesX = 2;
        entry.LettersY = 14;
        entry.CandidatesY = 26;
        entry.Gap = 4;
        page.add(entry);
        for (const char key : Keys) {
            const QRect place = keyPlace(key).translated(-At);
            keyboard.add(KeyboardKey{.Where = {std::uint16_t(place.left()), std::uint16_t(place.top()),
                                               std::uint16_t(place.right()), std::uint16_t(place.bottom())},
                                     .Code = codeOf(key),
                                     .PressPicture = 2});
        }
    }
    static QRect keyPlace(char key) {
        return QRect(At + QPoint(12 * static_cast<int>(Keys.find(key)), 50), QSize(10, 10));
    }
    static std::uint16_t codeOf(char key) {
        namespace code = imagekit::key_code;
        switch (key) {
        case '<': return code::Backspace;
        case '#': return code::Shift;
        case '@': return code::LanguageSwitch;
        case '+': return code::NextCandidates;
        case '-': return code::PreviousCandidates;
        case '!': return code::Enter;
        case '~': return code::Clear;
        default: return CharacterKey(key, key == 'a' ? 'A' : key);
        }
    }
    void type(const std::string& keys) {
        for (const char key : keys) tap(keyPlace(key).center().x(), keyPlace(key).center().y());
    }
    void pick(int cell) { tap(At.x() + 2 + 12 * cell + 5, At.y() + 26 + 4); }
    void open() { tap(5, 5); }
    static std::string letters() { return {Letters.begin(), Letters.begin() + LetterCount}; }
    static QByteArray typed() { return {reinterpret_cast<const char*>(EntryBuffer.data()), EntryLength}; }
    static QByteArray gbk(const QString& text) {
        const Bytes bytes = EncodeText(text, FontKind::Gbk);
        return {reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())};
    }
    /// The strip of candidates as it is on the screen.
    QImage strip() const { return outputs.frame.copy(QRect(At + QPoint(2, 26), QSize(96, 8))); }
};

TEST_F(PinyinTest, LettersBringCandidatesToPick) {
    start();
    open();
    ASSERT_EQ(PinyinOpen, 1);
    const QImage empty = strip();
    type("n");
    EXPECT_EQ(Candidates.count, 3) << "the first syllable that begins so";
    EXPECT_NE(strip(), empty);
    pick(3); // no fourth candidate
    EXPECT_EQ(typed(), "");
    pick(1);
    EXPECT_EQ(typed(), gbk("泥"));
    EXPECT_EQ(letters(), "");
    EXPECT_EQ(strip(), empty);
    type("ha-");
    EXPECT_EQ(CandidatePage * 100 + PageBytes, 16);
    const QImage first = strip();
    type("++");
    EXPECT_EQ(CandidatePage * 100 + PageBytes, 102) << "the last page stays";
    EXPECT_NE(strip(), first);
    pick(0);
    const QByteArray text = gbk("泥昊");
    EXPECT_EQ(typed(), text);
    for (const auto& [keys, composed, count] :
         {std::tuple{"a1", "a1", 0},
          {"n", "a1", 0},
          {"<n", "an", 1}}) { // nothing follows a key without candidates
        type(keys);
        EXPECT_EQ(letters(), composed);
        EXPECT_EQ(Candidates.count, count);
    }
    type("!");
    EXPECT_EQ(CurrentPage, 0);
    Payload frame{0x41, 1, 0};
    frame.insert(frame.end(), text.begin(), text.end());
    EXPECT_EQ(TakeSentFrames(), Payloads{frame}) << "without the letters";
    open();
    EXPECT_EQ(typed(), text) << "the text of the variable";
    type("1h");
    pick(0);
    EXPECT_EQ(typed(), text + '1') << "one byte is no room for a character";
    type("<<<<");
    EXPECT_EQ(typed(), "") << "character by character";
    type("!");
    EXPECT_EQ(TakeSentFrames(), (Payloads{{0x41, 1, 0, 0, 0}}));
}

TEST_F(PinyinTest, TogglesStayDownAndTypePlainly) {
    start();
    open();
    const QPoint shift = keyPlace('#').center(), language = keyPlace('@').center();
    type("#a");
    EXPECT_EQ(typed(), "A");
    EXPECT_EQ(pixel(shift.x(), shift.y()), 0xFFFF0000);
    type("#@ab");
    EXPECT_EQ(typed(), "Aab");
    EXPECT_EQ(pixel(shift.x(), shift.y()), 0xFF0000FF);
    EXPECT_EQ(pixel(language.x(), language.y()), 0xFFFF0000);
    type("@~hangaga");
    EXPECT_EQ(typed(), "");
    EXPECT_EQ(letters(), "han") << "a syllable that nobody has ends the composition";
}

TEST_F(PinyinTest, SevenLettersAndLettersBehindTheIndexChangeNothing) {
    image.setPinyin({{"aaaaaa", "好号毫豪耗浩郝皓昊"}, {"b", "不"}});
    start();
    open();
    type("aaaaaa+");
    EXPECT_EQ(PageBytes, 2);
    type("a");
    EXPECT_EQ(letters(), "aaaaaa");
    EXPECT_EQ(PageBytes, 16) << "but the first page is back";
    type("<<<<<<b");
    EXPECT_EQ(Candidates.count, 1);
    type("<z");
    EXPECT_EQ(Candidates.count, 0);
    type("<b!");
    open();
    const QImage empty = strip();
    type("z");
    EXPECT_NE(strip(), empty) << "no candidates, in the room of a page that another entry has shown";
}

TEST(PinyinTable, IsReadWithinTheImageOnly) {
    ImageBuilder image(Small);
    image.addPage();
    image.setPinyin({{"a", "啊"}});
    LoadFlash(image.build());
    LoadSectionTable();
    const PinyinCandidates before{.offset = 5, .count = 7};
    const std::uint8_t a[] = {'a'};
    const PinyinCandidates found = FindCandidates(a, before);
    ASSERT_EQ(found.count, 1);
    EXPECT_NE(ReadCandidatePage(found, 0)[0], 0);
    EXPECT_EQ(ReadCandidatePage(found, 255), decltype(ReadCandidatePage(found, 0)){}) << "beyond the image";
    const auto end = static_cast<std::uint32_t>(FlashImage.size);
    for (const std::uint32_t table : {end - 8, end, 0xFFFFFFF0u}) { // half a row, none, none
        Sections.PinyinTable = table;
        EXPECT_EQ(FindCandidates(a, before).count, before.count) << "the end leaves what was there";
    }
}

} // namespace
} // namespace panel
