#include "demo/keyboards.h"

#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/pinyin_syllables.h"
#include "demo/texts.h"
#include "demo/words.h"

#include "imagekit/entry_widgets.h"
#include "imagekit/value_widgets.h"

namespace demo {
namespace {

namespace keys = imagekit::key_code;

constexpr TextStyle EntryStyle{24, QFont::DemiBold, colour::Warm};
constexpr int Margin = 14, KeyGap = 6;
constexpr QRect EntryLine(Margin, Margin, 0, 46); // as wide as the keyboard
constexpr int FirstRow = Margin + 46 + 10;
constexpr TextStyle NameStyle{18, QFont::DemiBold, colour::Warm};
constexpr int MostLetters = 6, CandidateGap = 22;

struct KeyCap {
    QRect place;
    QString label;
    std::uint16_t code;
    QColor fill = colour::Raised;
};

struct Keyboard {
    QSize size;
    std::vector<KeyCap> keys;
    std::vector<QRect> wells{}; // besides the line of the text
};

QString asciiCharacters() {
    QString ascii;
    for (char character = ' '; character <= '~'; ++character) ascii += QChar(character);
    return ascii;
}

/// Cell of a grid of keys, some columns wide.
QRect cell(QSize key, int column, int row, int columns = 1) {
    return QRect(Margin + column * (key.width() + KeyGap), FirstRow + row * (key.height() + KeyGap),
                 columns * (key.width() + KeyGap) - KeyGap, key.height());
}

QSize sizeOf(QSize key, int columns, int rows) {
    const QRect last = cell(key, columns - 1, rows - 1);
    return {last.right() + 1 + Margin, last.bottom() + 1 + Margin};
}

Keyboard keypad() {
    constexpr QSize key(66, 52);
    Keyboard pad{sizeOf(key, 4, 4), {}};
    const char* const rows[] = {"789", "456", "123", "0.-"};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 3; ++column) {
            const char character = rows[row][column];
            pad.keys.push_back(
                {cell(key, column, row), QString(QChar(character)), static_cast<std::uint16_t>(character)});
        }
    pad.keys.push_back({cell(key, 3, 0), "Del", keys::Backspace, colour::Track});
    pad.keys.push_back({cell(key, 3, 1), "Esc", keys::Cancel, colour::Track});
    pad.keys.push_back({cell(key, 3, 2) | cell(key, 3, 3), "OK", keys::Enter, colour::Eco});
    return pad;
}

void addCharacters(Keyboard& board, QSize key, QPoint first, const char* plain, const char* shifted) {
    for (int i = 0; plain[i]; ++i)
        board.keys.push_back({cell(key, first.x() + i, first.y()), QString(QChar(plain[i])),
                              imagekit::CharacterKey(plain[i], shifted[i])});
}

Keyboard textKeyboard() {
    constexpr QSize key(58, 46);
    Keyboard board{sizeOf(key, 10, 5), {}};
    addCharacters(board, key, {0, 0}, "1234567890", "!@#$%^&*()");
    addCharacters(board, key, {0, 1}, "qwertyuiop", "QWERTYUIOP");
    addCharacters(board, key, {0, 2}, "asdfghjkl-", "ASDFGHJKL_");
    board.keys.push_back({cell(key, 0, 3), "Shift", keys::Shift, colour::Track});
    addCharacters(board, key, {1, 3}, "zxcvbnm.", "ZXCVBNM,");
    board.keys.push_back({cell(key, 9, 3), "Del", keys::Backspace, colour::Track});
    board.keys.push_back({cell(key, 0, 4, 2), "Esc", keys::Cancel, colour::Track});
    board.keys.push_back({cell(key, 2, 4, 4), "Space", imagekit::CharacterKey(' ', ' ')});
    board.keys.push_back({cell(key, 6, 4, 2), "Clear", keys::Clear, colour::Track});
    board.keys.push_back({cell(key, 8, 4, 2), "OK", keys::Enter, colour::Eco});
    return board;
}

constexpr QSize ChineseKey(58, 42);
/// Where letters and candidates stand, with the keys that turn their pages at its end.
const QRect CandidateRow = cell(ChineseKey, 0, 0, 8);

Keyboard chineseKeyboard() {
    constexpr QSize key = ChineseKey;
    Keyboard board{sizeOf(key, 10, 6), {}, {CandidateRow}};
    board.keys.push_back({cell(key, 8, 0), "\u2039", keys::PreviousCandidates, colour::Track});
    board.keys.push_back({cell(key, 9, 0), "\u203A", keys::NextCandidates, colour::Track});
    addCharacters(board, key, {0, 1}, "1234567890", "!@#$%^&*()");
    addCharacters(board, key, {0, 2}, "qwertyuiop", "QWERTYUIOP");
    addCharacters(board, key, {0, 3}, "asdfghjkl-", "ASDFGHJKL_");
    board.keys.push_back({cell(key, 0, 4), "Shift", keys::Shift, colour::Track});
    addCharacters(board, key, {1, 4}, "zxcvbnm.", "ZXCVBNM,");
    board.keys.push_back({cell(key, 9, 4), "Del", keys::Backspace, colour::Track});
    board.keys.push_back({cell(key, 0, 5, 2), "Esc", keys::Cancel, colour::Track});
    board.keys.push_back({cell(key, 2, 5), "abc", keys::LanguageSwitch, colour::Track});
    board.keys.push_back({cell(key, 3, 5, 3), "Space", imagekit::CharacterKey(' ', ' ')});
    board.keys.push_back({cell(key, 6, 5, 2), "Clear", keys::Clear, colour::Track});
    board.keys.push_back({cell(key, 8, 5, 2), "OK", keys::Enter, colour::Eco});
    return board;
}

Art paint(const Keyboard& keyboard, bool pressed) {
    Canvas canvas(keyboard.size, colour::CardEdge);
    canvas.painter().fillRect(QRect(QPoint(2, 2), keyboard.size - QSize(4, 4)), colour::Card);
    canvas.painter().fillRect(EntryLine.adjusted(0, 0, keyboard.size.width() - 2 * Margin, 0), colour::Well);
    for (const QRect& well : keyboard.wells) canvas.painter().fillRect(well, colour::Well);
    for (const KeyCap& key : keyboard.keys) {
        canvas.key(key.place, pressed ? colour::Warm : key.fill);
        const QColor ink = pressed || key.fill == colour::Eco ? colour::Rail : colour::Text;
        canvas.text(key.place, key.label, TextStyle{17, QFont::DemiBold, ink}, Qt::AlignCenter);
    }
    return canvas.take();
}

void addKeys(imagekit::Page& page, const Keyboard& keyboard, PageId pressed) {
    for (const KeyCap& key : keyboard.keys)
        page.add(
            imagekit::KeyboardKey{.Where = AreaOf(key.place), .Code = key.code, .PressPicture = pressed});
}

/// A keyboard in the middle of the panel, with its text in the line on top.
imagekit::KeyboardPlace inTheMiddle(PageId page, QSize size, const EntryFont& font) {
    return {.Page = page,
            .X = U16((layout::Screen.width() - size.width()) / 2),
            .Y = U16((layout::Screen.height() - size.height()) / 2),
            .TextX = U16(EntryLine.x() + 12),
            .TextY = U16(EntryLine.y() + (EntryLine.height() - font.height) / 2)};
}

void addNameLabel(imagekit::Page& page, const QRect& area, std::uint8_t anchor, const EntryFont& font,
                  imagekit::ImageBuilder& image) {
    page.add(imagekit::Label{.TextAddress = words::RoomName,
                             .X1 = U16(area.left()),
                             .Y1 = U16(area.top()),
                             .X2 = U16(area.right()),
                             .Y2 = U16(area.bottom()),
                             .Colour = image.colour(colour::Text),
                             .Font = font.index,
                             .TextLength = words::NameWords,
                             .Anchor = anchor},
             "Room name");
}

void addTemperature(imagekit::Page& page, const QRect& well, words::Word word, int lowest, int highest,
                    const EntryFont& font, imagekit::ImageBuilder& image) {
    page.add(imagekit::NumberEntry{.Where = AreaOf(well),
                                   .Notify = true,
                                   .Address = word,
                                   .Type = imagekit::DataType::U16,
                                   .IntegerDigits = 2,
                                   .Decimals = 1,
                                   .Keyboard = inTheMiddle(KeypadPage, keypad().size, font),
                                   .Font = font.index,
                                   .GlyphWidth = font.width,
                                   .Limited = true,
                                   .Highest = highest,
                                   .Lowest = lowest,
                                   .TextColour = image.colour(EntryStyle.colour),
                                   .CursorColour = image.colour(colour::Text),
                                   .Prefilled = true});
}

void addPin(imagekit::Page& page, const EntryFont& font, imagekit::ImageBuilder& image) {
    page.add(imagekit::TextEntry{.Where = AreaOf(layout::service::ServicePin),
                                 .Address = words::ServicePin,
                                 .Capacity = words::PinWords,
                                 .Prefilled = true,
                                 .Font = font.index,
                                 .GlyphWidth = font.width,
                                 .GlyphHeight = font.height,
                                 .TextColour = image.colour(EntryStyle.colour),
                                 .CursorColour = image.colour(colour::Text),
                                 .Keyboard = inTheMiddle(TextKeyboardPage, textKeyboard().size, font),
                                 .Password = true});
}

/// The name of the room, and the field that it is typed in.
void addRoomName(imagekit::ImageBuilder& image, const EntryFont& font) {
    const int lettersX = CandidateRow.x() + 12;
    const std::uint16_t lineY = U16(CandidateRow.y() + (CandidateRow.height() - font.height) / 2);
    image.page(SettingsPage)
        .add(imagekit::PinyinEntry{.Where = AreaOf(layout::settings::Tile(1, 2)),
                                   .Notify = true,
                                   .Address = words::RoomName,
                                   .Capacity = words::NameWords,
                                   .Prefilled = true,
                                   .Font = font.index,
                                   .GlyphWidth = font.width,
                                   .GlyphHeight = font.height,
                                   .PinyinFont = font.index,
                                   .PinyinGlyphWidth = font.width,
                                   .PinyinGlyphHeight = font.height,
                                   .TextColour = image.colour(NameStyle.colour),
                                   .CursorColour = image.colour(colour::Text),
                                   .PinyinColour = image.colour(colour::Text),
                                   .Keyboard = inTheMiddle(ChineseKeyboardPage, chineseKeyboard().size, font),
                                   .LettersX = U16(lettersX),
                                   .LettersY = lineY,
                                   .CandidatesX = U16(lettersX + (MostLetters + 1) * font.width),
                                   .CandidatesY = lineY,
                                   .Gap = CandidateGap});
    addNameLabel(image.page(SettingsPage), layout::settings::TileName(layout::settings::Tile(1, 2)), 1, font,
                 image);
    addNameLabel(image.page(HomePage), layout::home::RoomName, 0, font, image);
    image.setBytes(words::RoomName, imagekit::EncodeText("Living room", imagekit::FontKind::Gbk));
}

} // namespace

Art PaintKeypad(bool pressed) { return paint(keypad(), pressed); }
Art PaintTextKeyboard(bool pressed) { return paint(textKeyboard(), pressed); }
Art PaintChineseKeyboard(bool pressed) { return paint(chineseKeyboard(), pressed); }

EntryFont AddEntryFont(imagekit::ImageBuilder& image, const TextStyle& style) {
    const auto width = static_cast<std::uint8_t>(style.size),
               height = static_cast<std::uint8_t>(LineHeight(style));
    const imagekit::StoredFont font = imagekit::RasterFont({.Width = width, .Height = height, .Depth = 4},
                                                           {.Family = ThemeFaces(),
                                                            .PixelSize = style.size,
                                                            .Weight = style.weight,
                                                            .Characters = asciiCharacters()});
    return {image.addFont(font), width, height};
}

EntryFont AddNameFont(imagekit::ImageBuilder& image) {
    QString characters = asciiCharacters() + "，。";
    for (const auto& [letters, meanings] : PinyinSyllables()) characters += meanings;
    const auto width = static_cast<std::uint8_t>(NameStyle.size),
               height = static_cast<std::uint8_t>(LineHeight(NameStyle));
    const imagekit::StoredFont font =
        imagekit::RasterFont({.Kind = imagekit::FontKind::Gbk, .Width = width, .Height = height, .Depth = 2},
                             {.Family = ThemeFaces(),
                              .PixelSize = NameStyle.size,
                              .Weight = NameStyle.weight,
                              .Characters = characters});
    return {image.addFont(font), width, height};
}

void AddKeyboards(imagekit::ImageBuilder& image, const EntryFont& nameFont) {
    const EntryFont font = AddEntryFont(image, EntryStyle);
    addKeys(image.page(KeypadPage), keypad(), KeypadPressedPage);
    addKeys(image.page(TextKeyboardPage), textKeyboard(), TextKeyboardPressedPage);
    addKeys(image.page(ChineseKeyboardPage), chineseKeyboard(), ChineseKeyboardPressedPage);
    addTemperature(image.page(HomePage), layout::home::TargetValue, words::RoomTarget, 50, 300, font, image);
    addTemperature(image.page(HotWaterPage), layout::water::TargetValue, words::WaterTarget, 350, 650, font,
                   image);
    addPin(image.page(ServicePage), font, image);
    image.setPinyin(PinyinSyllables());
    addRoomName(image, nameFont);
}

} // namespace demo
