#include "widgets/touch/number_entry.h"

#include "host/flash_image.h"
#include "host/reply_frame.h"
#include "store/system_words.h"
#include "store/typed_value.h"
#include "store/variable_store.h"
#include "widgets/display/number_text.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_families.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Address = 11;
constexpr std::size_t DataType = 13;
constexpr std::size_t IntegerDigits = 14;
constexpr std::size_t Decimals = 15;
constexpr std::size_t KbdX = 16;
constexpr std::size_t KbdY = 18;
constexpr std::size_t TextX = 20;
constexpr std::size_t TextY = 22;
constexpr std::size_t Font = 24;
constexpr std::size_t GlyphWidth = 25;
constexpr std::size_t Cursor = 26;
constexpr std::size_t KeyboardPage = 27;
constexpr std::size_t LimitsFlag = 29;
constexpr std::size_t Highest = 30;
constexpr std::size_t Lowest = 34;
constexpr std::size_t Alignment = 38;
constexpr std::size_t TextColour = 39;
constexpr std::size_t CursorColour = 42;
constexpr std::size_t Prefilled = 45;
} // namespace field

constexpr std::uint32_t CursorWidthInFont = 101; // the width of "|"
constexpr std::uint8_t Centred = 1, Right = 2;

/// The field whose keyboard is up, kept apart from the table that the keyboard's page fills.
NumberEntryRow Open;

// The value of the text.

/// Of a number with the sign that is typed, in 64 bits.
std::uint64_t largestMagnitude() {
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    return NegativeTyped ? largest + 1 : largest;
}

/// Appends a digit to a magnitude; nothing when that is too large.
std::optional<std::uint64_t> withDigit(std::uint64_t value, unsigned digit) {
    if (value > (largestMagnitude() - digit) / 10) return std::nullopt;
    return value * 10 + digit;
}

/// The typed number without its sign, in units of the field's last decimal; nothing when it is too large.
std::optional<std::uint64_t> typedMagnitude() {
    std::optional<std::uint64_t> value = 0;
    for (const std::uint8_t character : EntryText())
        if (character >= '0' && character <= '9' && value) value = withDigit(*value, character - '0');
    for (int missing = Open.Decimals - DecimalCount; missing > 0 && value && *value != 0; --missing)
        value = withDigit(*value, 0);
    return value;
}

bool withinLimits(std::int64_t value) {
    return !Open.Limited || (value >= Open.Lowest && value <= Open.Highest);
}

/// Fields know 64 bits only in the signed type. With limits it is a value of 32, with its sign in front.
void storeValue(std::int64_t value) {
    if (Open.DataType == TypePlain64) return;
    const bool isLong = Open.DataType == (TypePlain64 | TypeSignedBit);
    StoreNumeric(Open.Address, Open.DataType,
                 isLong && Open.Limited ? static_cast<std::int32_t>(value) : value);
}

/// Writes the typed number; false when the limits refuse it.
bool commitNumber() {
    const std::uint64_t magnitude = typedMagnitude().value_or(0);
    const auto value = static_cast<std::int64_t>(NegativeTyped ? 0 - magnitude : magnitude);
    if (!withinLimits(value)) return false;
    if (IsStoreWord(Open.Address)) storeValue(value);
    return true;
}

// The text on the keyboard.

int measuredWidth(const TextBox& box) {
    const std::uint16_t shown = TextWidth;
    DrawEntryText(box, TextMode::Measure);
    return std::exchange(TextWidth, shown);
}

/// From the text's place to the keyboard's edge; a centred text keeps the box of a longer one before it.
TextBox numberBox() {
    const EntryField& field = Open.Field;
    const QPoint at = field.textPlace();
    const int bottom = at.y() + field.Font.height - 1;
    if (field.Anchor == Right)
        return {field.Keyboard.x(), at.y(), field.Keyboard.x() + field.Text.x() - CursorWidth + 1, bottom};
    const TextBox toTheEdge{at.x(), at.y(), KeyboardRect().right(), bottom};
    if (field.Anchor != Centred) return toTheEdge;
    const int width = std::max<int>(measuredWidth(toTheEdge), TextWidth);
    const int left = at.x() - width / 2;
    return {left, at.y(), left + width + CursorWidth + 1, bottom};
}

void drawEntryNumber() {
    constexpr std::uint16_t shownAtTheNextTick = 60;
    DrawEntryText(numberBox(), TextMode::Draw);
    CursorTicks = shownAtTheNextTick;
}

void forgetCounts() {
    NegativeTyped = 0;
    PointTyped = 0;
    IntegerCount = 0;
    DecimalCount = 0;
}

/// Counts a character as if it had been typed.
void putPrefilled(char character) {
    if (!TypeByte(static_cast<std::uint8_t>(character))) return;
    if (character == '-')
        NegativeTyped = 1;
    else if (character == '.')
        PointTyped = 1;
    else
        ++(PointTyped ? DecimalCount : IntegerCount);
}

void prefill() {
    const NumberFormat format{.integerDigits = Open.IntegerDigits, .decimalDigits = Open.Decimals};
    const NumberText text = PictureNumberText(ReadNumeric(Open.Address, Open.DataType), format);
    for (const char character : text.view()) putPrefilled(character);
    drawEntryNumber();
}

// Opening.

void raiseKeyboard(const NumberEntryRow& row) {
    Open = row;
    const EntryField& field = Open.Field;
    TurnToKeyboardPage(field);
    DrawKeyboard(field);
    CursorWidth = ReadU8(field.Font.address + CursorWidthInFont);
    BuildTouchTables(field.KeyboardPage);
    BeginEntry(field);
    NumberOpen = 1;
    forgetCounts();
}

void open(const NumberEntryRow& row) {
    if (!KeyboardExists(row.Field)) return;
    raiseKeyboard(row);
    DrawCursor(CursorPlace());
    CursorHidden = 1;
    if (Open.Prefilled) prefill();
}

void openByVirtualKey(const NumberEntryRow& row) {
    if (!KeyboardExists(row.Field)) return;
    raiseKeyboard(row);
    DrawCursor(CursorPlace());
}

constexpr KeyFamily<NumberEntryRow, NumberEntries.Capacity> Family{.rows = NumberEntries,
                                                                   .active = NumberActive,
                                                                   .activeRow = NumberRow,
                                                                   .act = open,
                                                                   .virtualKey = openByVirtualKey};

// Typing.

/// One digit more than the field has is taken when it is a zero.
bool takesDigit(std::uint8_t digit) {
    if (PointTyped) return DecimalCount < Open.Decimals;
    return IntegerCount < Open.IntegerDigits || (IntegerCount == Open.IntegerDigits && digit == '0');
}

bool typeDigit(std::uint8_t digit) {
    if (!takesDigit(digit) || !TypeByte(digit)) return false;
    std::uint8_t& count = PointTyped ? DecimalCount : IntegerCount;
    ++count;
    if (typedMagnitude()) return true;
    --count;
    EraseByte();
    return false;
}

bool typePoint() {
    const int before = NegativeTyped ? 2 : 1;
    if (Open.Decimals == 0 || PointTyped || EntryLength < before || !TypeByte('.')) return false;
    PointTyped = 1;
    return true;
}

bool typeMinus() {
    const bool first = !NegativeTyped && IntegerCount == 0 && DecimalCount == 0;
    const bool hasSign = Open.DataType >= 0x80 && Open.DataType <= 0x83;
    if (!first || !hasSign || !TypeByte('-')) return false;
    NegativeTyped = 1;
    return true;
}

void uncount() {
    if (PointTyped && DecimalCount == 0)
        PointTyped = 0;
    else if (PointTyped)
        --DecimalCount;
    else if (IntegerCount > 0)
        --IntegerCount;
}

bool backspace() {
    uncount();
    if (!EraseByte()) return false;
    if (EntryLength == 0) NegativeTyped = 0;
    return true;
}

void leave() {
    NumberOpen = 0;
    LeaveKeyboard();
}

void enter() {
    if (!commitNumber()) return;
    const std::uint16_t address = Open.Address;
    if (Open.head.notifies() && IsStoreWord(address)) SendVariable(address, ValueFrameBytes(Open.DataType));
    NumberOpen = 0;
    ApplySystemWord(address);
    leave();
}

void act(std::uint16_t code) {
    bool changed = false;
    if (code >= '0' && code <= '9')
        changed = typeDigit(static_cast<std::uint8_t>(code));
    else if (code == '.')
        changed = typePoint();
    else if (code == '-')
        changed = typeMinus();
    else if (code == key_code::Backspace)
        changed = backspace();
    else if (code == key_code::Cancel)
        return leave();
    else if (code == key_code::Enter)
        return enter();
    if (changed) drawEntryNumber();
}

EntryField readField(const Parameters& p) {
    TextFont font = TableFont(p.u8(field::Font));
    font.encoding = Encoding::Ascii;
    font.width = p.u8(field::GlyphWidth);
    return {.KeyboardPage = p.u16(field::KeyboardPage),
            .Keyboard = {p.u16(field::KbdX), p.u16(field::KbdY)},
            .Text = {p.u16(field::TextX), p.u16(field::TextY)},
            .Font = font,
            .Anchor = std::min(p.u8(field::Alignment), Right), // others count as right
            .Cursor = p.u8(field::Cursor) == 1,
            .TextColour = p.u24(field::TextColour),
            .CursorColour = p.u24(field::CursorColour)};
}

} // namespace

void ResetNumberEntries() {
    ResetKeys(Family);
    NumberOpen = 0;
}

void AddNumberEntry(const Parameters& p) {
    NumberEntryRow* row = NumberEntries.append();
    if (!row) return;
    *row = {.head = ReadTouchHead(p),
            .Address = p.u16(field::Address),
            .DataType = p.u8(field::DataType),
            .IntegerDigits = p.u8(field::IntegerDigits),
            .Decimals = p.u8(field::Decimals),
            .Field = readField(p),
            .Limited = p.u8(field::LimitsFlag) == 1,
            .Highest = static_cast<std::int32_t>(p.u32(field::Highest)),
            .Lowest = static_cast<std::int32_t>(p.u32(field::Lowest)),
            .Prefilled = p.u8(field::Prefilled) == 1};
}

void TouchNumberEntry() {
    if (!NumberOpen) return ScanKeys(Family);
    const KeyboardKeyRow* key = ScanKeyboard();
    if (!key) return;
    RestoreKey(*key);
    act(key->Code);
}

} // namespace panel
