#include "widgets/touch/pinyin_entry.h"

#include "host/reply_frame.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_families.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Font = 16;       // glyph width and height follow
constexpr std::size_t PinyinFont = 19; // the same
constexpr std::size_t Cursor = 22;
constexpr std::size_t TextColour = 23;
constexpr std::size_t CursorColour = 26;
constexpr std::size_t TextX = 29;
constexpr std::size_t TextY = 31;
constexpr std::size_t PinyinColour = 33;
constexpr std::size_t LettersX = 36;
constexpr std::size_t LettersY = 38;
constexpr std::size_t CandidatesX = 40;
constexpr std::size_t CandidatesY = 42;
constexpr std::size_t Gap = 44;
constexpr std::size_t KeyboardPage = 45;
constexpr std::size_t KbdX = 47;
constexpr std::size_t KbdY = 49;
} // namespace field

constexpr std::uint8_t TopLeft = 3; // the anchor
constexpr std::uint8_t Picked = 2;  // in KeyActive: a candidate was picked, and the finger is still down

/// The field whose keyboard is up, kept apart from the table that the keyboard's page fills.
PinyinEntryRow Open;

// What is on the keyboard.

void clearText() {
    constexpr int beyondTheCursor = 2;
    RestoreKeyboard(
        {Open.Field.textPlace(), QSize(TextWidth + CursorWidth + beyondTheCursor, Open.Field.Font.height)});
    ClearEntry();
}

int cellWidth() { return Open.PinyinFont.width + Open.Gap; }

QRect lettersRect() {
    const int width = static_cast<int>(MostLetters) * Open.PinyinFont.width;
    return {Open.Field.Keyboard + Open.Letters, QSize(width, Open.PinyinFont.height)};
}
QRect stripRect() {
    const int width = static_cast<int>(CandidatesOnPage) * cellWidth();
    return {Open.Field.Keyboard + Open.Candidates, QSize(width, Open.PinyinFont.height)};
}

void drawPinyin(QRect rect, std::uint8_t spacing, TextBytes text) {
    const TextStyle style{.font = Open.PinyinFont,
                          .anchor = TopLeft,
                          .colour = Open.PinyinColour,
                          .backColour = 0xFFFF,
                          .charSpacing = spacing};
    DrawTextFrame(style, KeyboardBackground(),
                  {rect.left(), rect.top(), rect.left() + rect.width(), rect.bottom()}, text);
}

// The composition.

void forgetLetters() {
    Letters.fill(0);
    LetterCount = 0;
}

/// A page behind the last one is the last one.
void showCandidatePage() {
    const unsigned pages = (Candidates.count + CandidatesOnPage - 1) / CandidatesOnPage;
    CandidatePage = static_cast<std::uint8_t>(std::min<unsigned>(CandidatePage, pages - 1));
    const std::size_t left = Candidates.count - CandidatesOnPage * CandidatePage;
    PageBytes = static_cast<std::uint8_t>(2 * std::min(left, CandidatesOnPage));
    const auto page = ReadCandidatePage(Candidates, CandidatePage);
    drawPinyin(stripRect(), Open.Gap, std::span(page).first(PageBytes));
}

/// In the room of the page that was shown before.
void showNoCandidates() {
    constexpr std::array<std::uint8_t, 4> text{'N', 'u', 'l', 'l'};
    if (LetterCount == 0) return RestoreKeyboard(stripRect());
    drawPinyin(stripRect(), Open.Gap, std::span(text).first(std::min<std::size_t>(PageBytes, text.size())));
}

void showCandidates() {
    drawPinyin(lettersRect(), 0, Letters);
    Candidates = LetterCount == 0 ? PinyinCandidates{}
                                  : FindCandidates(std::span(Letters).first(LetterCount), Candidates);
    if (Candidates.count == 0)
        showNoCandidates();
    else
        showCandidatePage();
}

/// A letter that is dropped leads back to the first page all the same.
void addLetter(std::uint8_t letter) {
    CandidatePage = 0;
    if (letter == 0) return;
    if (LetterCount == 0 || (LetterCount < MostLetters && Candidates.count != 0))
        Letters[LetterCount++] = letter;
    showCandidates();
}

void turnPage(int step) {
    if (LetterCount == 0 && step < 0) return;
    CandidatePage = static_cast<std::uint8_t>(std::clamp(CandidatePage + step, 0, 0xFF));
    showCandidates();
}

/// The left edge of a cell is its own, its upper and lower ones are not.
void pickCandidate() {
    const QRect strip = stripRect();
    const int x = TouchX - strip.left(), y = TouchY;
    if (x < 0 || y <= strip.top() || y >= strip.top() + strip.height() || cellWidth() == 0) return;
    const int index = x / cellWidth();
    if (index >= PageBytes / 2 || EntryLength + 2u > Open.Variable.capacityBytes()) return;
    const auto page = ReadCandidatePage(Candidates, CandidatePage);
    TypeByte(page[2 * static_cast<std::size_t>(index)]);
    TypeByte(page[2 * static_cast<std::size_t>(index) + 1]);
    KeyActive = Picked;
    forgetLetters();
}

void endPick() {
    KeyActive = 0;
    RestoreKeyboard(lettersRect());
    RestoreKeyboard(stripRect());
    DrawTextLine();
}

// Typing.

/// Removes the last character: two bytes, if the text read from its start says so.
void eraseCharacter() {
    std::size_t last = 0;
    for (std::size_t at = 0; at < EntryLength; at += EntryBuffer[at] < 0x80 ? 1 : 2) last = at;
    while (EntryLength > last) EraseByte();
    DrawTextLine();
}

void backspace() {
    if (LetterCount == 0) return eraseCharacter();
    Letters[--LetterCount] = 0;
    CandidatePage = 0;
    showCandidates();
}

bool typesPlainly() { return LetterCount == 0 && (EntryShift || DirectMode); }

void typeCharacter(std::uint16_t code) {
    const auto low = static_cast<std::uint8_t>(code);
    const bool isLetter = low >= 'a' && low <= 'z';
    if (typesPlainly() || (LetterCount == 0 && !isLetter))
        TypeKeyCode(Open.Variable, code);
    else if (!EntryShift)
        addLetter(low);
}

void leave() {
    PinyinOpen = 0;
    LeaveKeyboard();
}

/// What is being composed is dropped. The frame of an empty text holds its end mark.
void commit() {
    constexpr std::size_t endMark = 2;
    StoreText(Open.Variable);
    const std::size_t sent = EntryLength == 0 ? endMark : EntryLength + EntryLength % 2u;
    if (Open.head.notifies()) SendVariable(Open.Variable.Address, sent);
    leave();
}

void act(std::uint16_t code) {
    switch (code) {
    case key_code::Cancel: return leave();
    case key_code::Enter: return commit();
    case key_code::Backspace: return backspace();
    case key_code::Clear: return clearText();
    case key_code::Shift:
    case key_code::LanguageSwitch: return;
    case key_code::PreviousCandidates: return typesPlainly() ? void() : turnPage(-1);
    case key_code::NextCandidates: return typesPlainly() ? void() : turnPage(1);
    default: return typeCharacter(code);
    }
}

/// Turns a toggle over; true for one that is on from now on, which keeps its press look.
bool togglesOn(std::uint16_t code) {
    if (code != key_code::Shift && code != key_code::LanguageSwitch) return false;
    std::uint8_t& toggle = code == key_code::Shift ? EntryShift : DirectMode;
    toggle = toggle ? 0 : 1;
    return toggle != 0;
}

// Opening.

void open(const PinyinEntryRow& row) {
    if (!KeyboardExists(row.Field)) return;
    Open = row;
    const EntryField& field = Open.Field;
    TurnToKeyboardPage(field);
    DrawKeyboard(field);
    CursorWidth = field.Font.width;
    BuildTouchTables(field.KeyboardPage);
    BeginEntry(field);
    PinyinOpen = 1;
    EntryShift = 0;
    DirectMode = 0;
    forgetLetters();
    if (Open.Variable.Prefilled) {
        PrefillText(Open.Variable, TextBytesTaken::All);
        DrawTextLine();
    }
    if (field.Cursor) DrawCursor(CursorPlace());
}

constexpr KeyFamily<PinyinEntryRow, PinyinEntries.Capacity> Family{
    .rows = PinyinEntries, .active = PinyinActive, .activeRow = PinyinRow, .act = open, .virtualKey = open};

EntryField readField(const Parameters& p) {
    return {.KeyboardPage = p.u16(field::KeyboardPage),
            .Keyboard = {p.u16(field::KbdX), p.u16(field::KbdY)},
            .Text = {p.u16(field::TextX), p.u16(field::TextY)},
            .Font = ReadEntryFont(p, field::Font, Encoding::Gbk),
            .Anchor = TopLeft,
            .Cursor = p.u8(field::Cursor) == 1,
            .TextColour = p.u24(field::TextColour),
            .CursorColour = p.u24(field::CursorColour)};
}

} // namespace

void ResetPinyinEntries() {
    ResetKeys(Family);
    PinyinOpen = 0;
}

void AddPinyinEntry(const Parameters& p) {
    PinyinEntryRow* row = PinyinEntries.append();
    if (!row) return;
    *row = {.head = ReadTouchHead(p),
            .Variable = ReadTextVariable(p),
            .Field = readField(p),
            .PinyinFont = ReadEntryFont(p, field::PinyinFont, Encoding::Gbk),
            .PinyinColour = p.u24(field::PinyinColour),
            .Letters = {p.u16(field::LettersX), p.u16(field::LettersY)},
            .Candidates = {p.u16(field::CandidatesX), p.u16(field::CandidatesY)},
            .Gap = p.u8(field::Gap)};
}

void TouchPinyinEntry() {
    if (!PinyinOpen) return ScanKeys(Family);
    if (!TouchPressed && KeyActive == Picked) return endPick();
    if (const KeyboardKeyRow* key = ScanKeyboard()) {
        const std::uint16_t code = key->Code;
        if (!togglesOn(code)) RestoreKey(*key);
        return act(code);
    }
    if (TouchPressed && !KeyActive && LetterCount > 0 && Candidates.count != 0) pickCandidate();
}

} // namespace panel
