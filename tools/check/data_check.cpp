#include "check/data_check.h"

#include "check/head_check.h"
#include "graphics/font.h"
#include "graphics/png_image.h"
#include "graphics/raw_picture.h"
#include "graphics/zip_image.h"
#include "host/config_block.h"
#include "host/flash_image.h"
#include "pages/language_strings.h"
#include "store/language.h"
#include "store/variable_store.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/media.h"
#include "widgets/display/needle_meter.h"
#include "widgets/touch/pinyin_table.h"

#include <algorithm>
#include <string_view>

namespace check {
namespace {

using namespace panel;

std::string_view textAt(std::uint32_t address, std::size_t length) {
    const auto bytes = FlashBytes(address, length);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::uint32_t bigEndian(std::uint32_t address, int bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < bytes; ++i) value = value << 8 | ReadU8(address + static_cast<std::uint32_t>(i));
    return value;
}

/// Whether a PNG file has its last chunk within that length.
bool isWholePng(std::uint32_t address, std::uint32_t length) {
    constexpr std::uint32_t signature = 8, chunkFrame = 12; // length, name and checksum of a chunk
    std::uint64_t at = signature;
    while (at + chunkFrame <= length) {
        const auto chunk = static_cast<std::uint32_t>(address + at);
        at += chunkFrame + std::uint64_t{bigEndian(chunk, 4)};
        if (textAt(chunk + 4, 4) == "IEND") return at <= length;
    }
    return false;
}

/// The letters that a font of a known encoding begins with.
constexpr std::string_view FontKinds[] = {"GB", "GK", "BG", "AS", "un", "SS"};

Place rowAt(const char* subject, int number, std::uint32_t offset, int language = 0) {
    return {.subject = subject, .number = number, .language = language, .offset = offset};
}

template <std::size_t Count, class Visit>
void forEachMarked(const std::bitset<Count>& marked, Visit visit) {
    for (std::size_t index = 0; index < Count; ++index)
        if (marked.test(index)) visit(static_cast<std::uint32_t>(index));
}

} // namespace

bool DataCheck::checkRange(const Place& place, std::uint32_t address, std::uint64_t bytes) {
    if (address + bytes <= static_cast<std::uint64_t>(FlashImage.size)) return true;
    findings_.error(place, "%llu bytes at 0x%08x end beyond the image",
                    static_cast<unsigned long long>(bytes), address);
    return false;
}

void DataCheck::check() {
    checkPictures(usage_.pictures, 0);
    checkPictures(usage_.needles, NeedleHeadBytes);
    checkSequences();
    checkStrings(); // before the fonts, which they use
    checkFonts();
    checkSounds();
    if (usage_.pinyin) checkPinyin();
    checkLanguagePresets();
}

// Pictures.

void DataCheck::checkPageImage(std::uint16_t page) {
    const ImageRow row = PageImageRow(page);
    const Place place{.subject = "page",
                      .number = page,
                      .part = "background",
                      .offset = Sections.PageImageTable + ImageRowBytes * page};
    if (row.Format != format::None && row.Format != format::SolidColour) checkPicture(place, row);
}

void DataCheck::checkPictures(const MarkedRuns& used, std::uint32_t dataHead) {
    for (int language = 0; language < LanguageBlocks(); ++language)
        used.forEach([&](std::uint16_t index) { checkPictureRow(index, language, dataHead); });
    Language = 0;
}

/// A row that is the same in all languages is told once.
void DataCheck::checkPictureRow(std::uint16_t index, int language, std::uint32_t dataHead) {
    Language = 0;
    const ImageRow first = TableImageRow(index);
    Language = static_cast<std::uint8_t>(language);
    ImageRow row = TableImageRow(index);
    if ((language > 0 && row == first) || row.Format == format::None) return;
    const std::uint32_t rows = Sections.ImageCount * static_cast<std::uint32_t>(language) + index;
    const Place place = rowAt(dataHead == 0 ? "picture" : "needle picture", index,
                              Sections.ImageTable + ImageRowBytes * rows, language);
    row.Address += dataHead;
    if (row.hasPicture())
        checkPicture(place, row);
    else if (row.Width != 0 && row.Height != 0)
        findings_.warning(place, "no widget shows it, since its length is 0");
}

void DataCheck::checkPicture(const Place& place, const ImageRow& row) {
    if (++pictures_ == MostPictures) findings_.warning(place, "the pictures from here on were not looked at");
    if (pictures_ >= MostPictures) return;
    if (row.Width == 0 || row.Height == 0)
        findings_.warning(place, "it is %u x %u pixels large", unsigned{row.Width}, unsigned{row.Height});
    else if (row.Format == format::PngOpaque || row.Format == format::PngAlpha)
        checkPng(place, row);
    else if (row.Format >= format::ZipImage && row.Format <= format::ZipImageLast)
        checkZip(place, row);
    else
        checkRaw(place, row);
}

void DataCheck::checkPng(const Place& place, const ImageRow& row) {
    if (!checkRange(place, row.Address, row.Extra)) return;
    const QSize size = PngSize(row.Address, row.Extra);
    if (size.isEmpty() || !isWholePng(row.Address, row.Extra))
        findings_.error(place, "its %u bytes at 0x%08x are no whole PNG file", row.Extra, row.Address);
    else if (size != QSize(row.Width, row.Height))
        findings_.warning(place, "it tells %u x %u pixels, and its PNG file has %d x %d", unsigned{row.Width},
                          unsigned{row.Height}, size.width(), size.height());
}

void DataCheck::checkZip(const Place& place, const ImageRow& row) {
    const auto head = ReadZipHead(row.Address);
    if (!head || head->Mode < zip_mode::Opaque || head->Mode > zip_mode::Alpha)
        findings_.error(place, "there is no compressed picture at 0x%08x", row.Address);
    else if (!checkRange(place, row.Address, ZipPictureBytes(row.Address, *head)))
        return;
    else if (head->Width != row.Width || head->Height != row.Height)
        findings_.warning(place, "it tells %u x %u pixels, and its data %u x %u", unsigned{row.Width},
                          unsigned{row.Height}, unsigned{head->Width}, unsigned{head->Height});
}

void DataCheck::checkRaw(const Place& place, const ImageRow& row) {
    if (ColourMode > 1) return; // the head is to blame
    const std::uint64_t bytes = RawPictureBytes(row.Width, row.Height, row.Format);
    if (bytes == 0)
        findings_.error(place, "the panel draws no picture of format %u here", unsigned{row.Format});
    else
        checkRange(place, row.Address, bytes);
}

void DataCheck::checkSequences() {
    forEachMarked(usage_.sequences, [this](std::uint32_t id) {
        const ImageSequence sequence = ReadSequence(static_cast<std::uint16_t>(id));
        const Place place =
            rowAt("sequence", static_cast<int>(id), Sections.ImageSequenceTable + SequenceRowBytes * id);
        if (sequence.FrameCount == 0) findings_.error(place, "it has no frames");
        if (checkRange(place, sequence.FrameAddress, std::uint64_t{FrameRecordBytes} * sequence.FrameCount))
            checkFrames(place, sequence.FrameAddress, sequence.FrameCount);
    });
}

void DataCheck::checkFrames(const Place& place, std::uint32_t address, std::uint32_t count) {
    for (std::uint32_t i = 0; i < count && pictures_ < MostPictures; ++i, address += FrameRecordBytes) {
        const ImageRow frame = ReadFrame(address);
        Place at = place;
        at.part = "frame";
        at.offset = address;
        if (CanBeFrame(frame.Format))
            checkPicture(at, frame);
        else
            findings_.error(at, "no animation shows a picture of format %u", unsigned{frame.Format});
    }
}

// Texts.

void DataCheck::checkStrings() {
    for (int language = 0; language < LanguageBlocks(); ++language)
        forEachMarked(usage_.strings,
                      [&](std::uint32_t index) { checkString(static_cast<std::uint16_t>(index), language); });
    Language = 0;
}

void DataCheck::checkString(std::uint16_t index, int language) {
    Language = static_cast<std::uint8_t>(language);
    const std::uint32_t address = StringAddress(index);
    if (address == NoString) return; // the label shows its variable
    const Place place = rowAt("string", index, address, language);
    if (!checkRange(place, address, StringHeadBytes)) return;
    const LanguageString string = ReadString(address);
    if (!checkRange(place, address, StringHeadBytes + string.length)) return;
    if (string.length > LongestString)
        findings_.warning(place, "of its %u bytes the panel shows %u", unsigned{string.length},
                          unsigned{LongestString});
    if (string.font < FontCount())
        usage_.fonts.set(string.font);
    else
        findings_.error(place, "font %u does not exist (the image has %u)", unsigned{string.font},
                        FontCount());
}

void DataCheck::checkFonts() {
    forEachMarked(usage_.fonts, [this](std::uint32_t index) { checkFont(static_cast<std::uint8_t>(index)); });
}

void DataCheck::checkFont(std::uint8_t index) {
    const TextFont font = TableFont(index);
    const Place place = rowAt("font", index, font.address);
    if (!checkRange(place, font.address, FontBytes(font))) return;
    if (std::ranges::find(FontKinds, textAt(font.address, 2)) == std::end(FontKinds))
        findings_.error(place, "there is no font at this place");
    else if (font.width == 0 || font.height == 0)
        findings_.error(place, "its glyphs are %u x %u pixels large", unsigned{font.width},
                        unsigned{font.height});
}

void DataCheck::checkPinyin() {
    constexpr std::uint32_t codeBytes = 2;
    const std::uint32_t table = Sections.PinyinTable;
    const Place place{.subject = "pinyin table", .offset = table};
    if (table < ConfigBlockAddress)
        return findings_.error(place, "the image has none, and a widget needs it");
    if (!checkRange(place, table, PinyinIndexRows * PinyinRowBytes)) return;
    for (std::uint32_t row = 0; row < PinyinIndexRows; ++row) {
        const std::uint32_t address = table + PinyinRowBytes * row;
        if (ReadU8(address) < 'a' || ReadU8(address) > 'z') continue; // not in use
        const PinyinCandidates candidates = ReadPinyinRow(address);
        checkRange(rowAt("pinyin row", static_cast<int>(row), address), table + candidates.offset,
                   codeBytes * candidates.count);
    }
}

// The rest.

void DataCheck::checkSounds() {
    forEachMarked(usage_.sounds, [this](std::uint32_t number) {
        const std::uint32_t row = Sections.AudioTable + AudioRowBytes * (number - 1);
        const std::uint32_t address = ReadU32(row), bytes = ReadU32(row + 4);
        const Place place = rowAt("sound", static_cast<int>(number), row);
        if (!checkRange(place, address, bytes)) return;
        if (bytes == 0) findings_.error(place, "it has no samples");
        if (textAt(address, 4) == "RIFF")
            findings_.warning(place, "it holds a sound file, of which the panel plays the head as samples");
    });
}

void DataCheck::checkLanguagePresets() {
    constexpr std::uint32_t head = 4; // u16 word address, u16 bytes
    const std::uint32_t languages = std::min(Sections.LanguagePresetCount, 0x100u);
    for (std::uint32_t language = 0; language < languages; ++language) {
        const std::uint32_t row = Sections.LanguagePresetTable + LanguagePresetRowBytes * language;
        const std::uint32_t address = ReadU32(row), length = ReadU32(row + 4);
        Place place = rowAt("presets of language", static_cast<int>(language), address);
        if (length == 0 || !checkRange(place, address, length)) continue;
        std::uint32_t at = 0;
        for (; at < length; at += head + ReadU16(address + at + 2)) {
            place.offset = address + at;
            const std::uint32_t word = ReadU16(place.offset), bytes = ReadU16(place.offset + 2);
            if (2 * word + bytes > StoreByteCount)
                findings_.error(place, "%u bytes from word 0x%04x on reach beyond the last word", bytes,
                                word);
        }
        if (at != length) findings_.error(place, "the presets end inside a record");
    }
}

} // namespace check
