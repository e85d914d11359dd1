#include "demo/keyboards.h"

#include "demo/key_art.h"
#include "demo/layout.h"
#include "demo/texts.h"
#include "demo/words.h"

#include "imagekit/entry_widgets.h"

namespace demo {
namespace {

namespace keys = imagekit::key_code;

constexpr TextStyle EntryStyle{24, QFont::DemiBold, colour::Warm};
constexpr int Margin = 14, KeyGap = 6;
constexpr QRect EntryLine(Margin, Margin, 0, 46); // as wide as the keyboard
constexpr int FirstRow = Margin + 46 + 10;

struct KeyCap {
    QRect place;
    QString label;
    std::uint16_t code;
    QColor fill = colour::Raised;
};

struct Keyboard {
    QSize size;
    std::vector<KeyCap> keys;
};

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

Keyboard textKeyboard() {
    constexpr QSize key(58, 46);
    Keyboard board{sizeOf(key, 10, 5), {}};
    const char* const plain[] = {"1234567890", "qwertyuiop", "asdfghjkl-"};
    const char* const shifted[] = {"!@#$%^&*()", "QWERTYUIOP", "ASDFGHJKL_"};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 10; ++column)
            board.keys.push_back({cell(key, column, row), QString(QChar(plain[row][column])),
                                  imagekit::CharacterKey(plain[row][column], shifted[row][column])});
    board.keys.push_back({cell(key, 0, 3), "Shift", keys::Shift, colour::Track});
    for (int column = 0; column < 7; ++column) {
        const char low = "zxcvbnm"[column], high = "ZXCVBNM"[column];
        board.keys.push_back(
            {cell(key, column + 1, 3), QString(QChar(low)), imagekit::CharacterKey(low, high)});
    }
    board.keys.push_back({cell(key, 8, 3), ".", imagekit::CharacterKey('.', ',')});
    board.keys.push_back({cell(key, 9, 3), "Del", keys::Backspace, colour::Track});
    board.keys.push_back({cell(key, 0, 4, 2), "Esc", keys::Cancel, colour::Track});
    board.keys.push_back({cell(key, 2, 4, 4), "Space", imagekit::CharacterKey(' ', ' ')});
    board.keys.push_back({cell(key, 6, 4, 2), "Clear", keys::Clear, colour::Track});
    board.keys.push_back({cell(key, 8, 4, 2), "OK", keys::Enter, colour::Eco});
    return board;
}

Art paint(const Keyboard& keyboard, bool pressed) {
    Canvas canvas(keyboard.size, colour::CardEdge);
    canvas.painter().fillRect(QRect(QPoint(2, 2), keyboard.size - QSize(4, 4)), colour::Card);
    canvas.painter().fillRect(EntryLine.adjusted(0, 0, keyboard.size.width() - 2 * Margin, 0), colour::Well);
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

} // namespace

Art PaintKeypad(bool pressed) { return paint(keypad(), pressed); }
Art PaintTextKeyboard(bool pressed) { return paint(textKeyboard(), pressed); }

EntryFont AddEntryFont(imagekit::ImageBuilder& image, const TextStyle& style) {
    QString ascii;
    for (char character = ' '; character <= '~'; ++character) ascii += QChar(character);
    const auto width = static_cast<std::uint8_t>(style.size),
               height = static_cast<std::uint8_t>(LineHeight(style));
    const imagekit::StoredFont font = imagekit::RasterFont(
        {.Width = width, .Height = height, .Depth = 4},
        {.Family = ThemeFaces(), .PixelSize = style.size, .Weight = style.weight, .Characters = ascii});
    return {image.addFont(font), width, height};
}

void AddKeyboards(imagekit::ImageBuilder& image) {
    const EntryFont font = AddEntryFont(image, EntryStyle);
    addKeys(image.page(KeypadPage), keypad(), KeypadPressedPage);
    addKeys(image.page(TextKeyboardPage), textKeyboard(), TextKeyboardPressedPage);
    addTemperature(image.page(HomePage), layout::home::TargetValue, words::RoomTarget, 50, 300, font, image);
    addTemperature(image.page(HotWaterPage), layout::water::TargetValue, words::WaterTarget, 350, 650, font,
                   image);
    addPin(image.page(ServicePage), font, image);
}

} // namespace demo
