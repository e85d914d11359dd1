#include "imagekit/image_builder.h"

#include "imagekit/image_error.h"
#include "imagekit/image_layout.h"

#include "store/variable_store.h"

#include <QSaveFile>

#include <algorithm>

namespace imagekit {
namespace {

constexpr std::size_t PinyinIndexRows = 420;

constexpr std::size_t LargestCount = 0xFFFF;    // 0xFFFF as an index means none
constexpr std::size_t LargestFontCount = 0x100; // records name a font in one byte
constexpr std::size_t LargestString = 1024;     // bytes
constexpr std::uint32_t NoString = 0xFFFFFFFF;
constexpr std::size_t VariableBytes = panel::UserByteCount;

/// Stores a picture's data and gives the address that its row is to name.
std::uint32_t placeData(const StoredPicture& picture, ImageLayout& layout) {
    const std::uint32_t address = picture.Data.empty() ? 0 : layout.place(picture.Data);
    return picture.Address.value_or(address);
}

/// Stores a picture's data and gives its row.
Bytes placePicture(const StoredPicture& picture, ImageLayout& layout) {
    ByteWriter row;
    row.u32(placeData(picture, layout));
    return row.u16(picture.Width).u16(picture.Height).u24(picture.Extra).u8(picture.Format).take();
}

/// The row of a stream: where it lies, and its length.
void putStreamRow(ByteWriter& table, const Page& page, Stream stream, ImageLayout& layout) {
    const Bytes& bytes = page.bytes(stream);
    table.u32(bytes.empty() ? 0 : layout.place(bytes)).u16(page.claimedLength(stream));
}

void placePages(const std::deque<Page>& pages, ImageLayout& layout) {
    ByteWriter streams;
    ByteWriter groups;
    ByteWriter backgrounds;
    ByteWriter presets;
    for (const Page& page : pages) {
        putStreamRow(streams, page, Stream::Display, layout);
        putStreamRow(streams, page, Stream::Touch, layout);
        putStreamRow(groups, page, Stream::Group, layout);
        putStreamRow(presets, page, Stream::Presets, layout);
        presets.zeros(2);
        backgrounds.bytes(placePicture(page.background(), layout));
    }
    layout.placeTable(SectionWord::PageTable, streams.data(), pages.size());
    layout.placeTable(SectionWord::GroupStreamTable, groups.data(), pages.size());
    layout.placeTable(SectionWord::PagePresetTable, presets.data(), pages.size());
    layout.placeTable(SectionWord::PageImageTable, backgrounds.data(), pages.size());
}

/// A sequence is a run of frame records; its row tells where they lie and how many there are.
void placeSequences(const std::vector<std::vector<StoredPicture>>& sequences, ImageLayout& layout) {
    ByteWriter table;
    for (const auto& frames : sequences) {
        ByteWriter records;
        for (const StoredPicture& frame : frames) {
            records.u32(placeData(frame, layout)).u16(frame.Width).u16(frame.Height).zeros(4);
            records.u24(frame.Extra).u8(frame.Format);
        }
        table.u32(layout.place(records.data())).u24(static_cast<std::uint32_t>(frames.size())).u8(0);
    }
    layout.placeTable(SectionWord::ImageSequenceTable, table.data(), sequences.size());
}

void placeLanguagePresets(const std::vector<Bytes>& presets, ImageLayout& layout) {
    if (presets.empty()) return;
    ByteWriter table;
    for (const Bytes& stream : presets) {
        table.u32(stream.empty() ? 0 : layout.place(stream));
        table.u32(static_cast<std::uint32_t>(stream.size()));
    }
    layout.placeTable(SectionWord::LanguagePresetTable, table.data(), presets.size());
}

std::string stringName(std::size_t index) { return "string " + std::to_string(index); }
std::string pictureName(std::size_t index) { return "picture " + std::to_string(index); }

} // namespace

ImageBuilder::ImageBuilder(PanelConfig config) : config_(std::move(config)), layout_(config_) {}

Page& ImageBuilder::addPage(const Picture& background) {
    const std::string where = "page " + std::to_string(pages_.size());
    if (pages_.size() == LargestCount)
        throw ImageError(where, AtMost(pages_.size() + 1, "pages", LargestCount));
    return pages_.emplace_back(pageCount(), EncodePicture(background, layout_, where + ", background"));
}

std::uint16_t ImageBuilder::addPicture(const Picture& picture) {
    const std::size_t index = pictures_.size();
    if (index == LargestCount)
        throw ImageError(pictureName(index), AtMost(index + 1, "pictures", LargestCount));
    pictures_.push_back({.common = EncodePicture(picture, layout_, pictureName(index)), .ofLanguage = {}});
    return static_cast<std::uint16_t>(index);
}

void ImageBuilder::setPicture(std::uint16_t index, std::uint8_t language, const Picture& picture) {
    const std::string where = pictureName(index) + " in language " + std::to_string(language);
    if (index >= pictures_.size()) throw ImageError(where, "there is no such picture");
    checkLanguage(language, where);
    pictures_[index].ofLanguage[language] = EncodePicture(picture, layout_, where);
}

std::uint8_t ImageBuilder::addFont(StoredFont font) {
    if (fonts_.size() == LargestFontCount)
        throw ImageError("font table", AtMost(fonts_.size() + 1, "fonts", LargestFontCount));
    fonts_.push_back(std::move(font));
    return static_cast<std::uint8_t>(fonts_.size() - 1);
}

const StoredFont& ImageBuilder::font(std::uint8_t index, const std::string& where) const {
    if (index >= fonts_.size()) throw ImageError(where, "there is no font " + std::to_string(index));
    return fonts_[index];
}

Bytes ImageBuilder::encodeString(const LanguageText& text, const std::string& where) const {
    const Bytes bytes = EncodeText(text.Text, font(text.Font, where).Kind);
    if (bytes.size() > LargestString) throw ImageError(where, AtMost(bytes.size(), "bytes", LargestString));
    ByteWriter record;
    record.u24(OpaqueColourWord(text.Colour, config_.ColourMode)).u8(text.Font);
    return record.u16(static_cast<std::uint32_t>(bytes.size())).bytes(bytes).take();
}

/// The index has a fixed number of rows; those that are not used sort behind all letters.
void ImageBuilder::setPinyin(const std::map<std::string, QString>& syllables) {
    constexpr std::size_t rowBytes = 16, mostLetters = 6;
    if (syllables.size() > PinyinIndexRows)
        throw ImageError("pinyin table", AtMost(syllables.size(), "syllables", PinyinIndexRows));
    ByteWriter index, candidates;
    for (const auto& [letters, characters] : syllables) {
        if (letters.size() > mostLetters)
            throw ImageError("pinyin " + letters, AtMost(letters.size(), "letters", mostLetters));
        const Bytes codes = EncodeText(characters, FontKind::Gbk);
        const std::size_t offset = (PinyinIndexRows * rowBytes + candidates.size()) / 2;
        const std::size_t count = codes.size() / 2;
        index.text(letters).zerosUpTo(index.size() - letters.size() + 7);
        index.u8(offset >> 8 & 0xFF).u8(offset & 0xFF).u8(count >> 8 & 0xFF).u8(count & 0xFF).zeros(5);
        candidates.bytes(codes);
    }
    const Bytes behindAllLetters(rowBytes, 0xFF);
    for (std::size_t row = syllables.size(); row < PinyinIndexRows; ++row) index.bytes(behindAllLetters);
    pinyin_ = index.bytes(candidates.data()).take();
}

/// The panel takes samples whose zero is shifted.
std::uint16_t ImageBuilder::addSound(const std::vector<std::int16_t>& samples) {
    constexpr std::size_t mostSounds = 0x7FFF;
    if (sounds_.size() == mostSounds)
        throw ImageError("audio table", AtMost(sounds_.size() + 1, "sounds", mostSounds));
    ByteWriter stored;
    for (const std::int16_t sample : samples) stored.u16(static_cast<std::uint16_t>(sample + 0x7FFF));
    sounds_.push_back(stored.take());
    return static_cast<std::uint16_t>(sounds_.size());
}

std::uint16_t ImageBuilder::addString(const LanguageText& text) {
    const std::size_t index = strings_.size() + 1;
    if (index > LargestCount) throw ImageError(stringName(index), AtMost(index, "strings", LargestCount));
    strings_.push_back({.common = encodeString(text, stringName(index)), .ofLanguage = {}});
    return static_cast<std::uint16_t>(index);
}

void ImageBuilder::setString(std::uint16_t index, std::uint8_t language,
                             const std::optional<LanguageText>& text) {
    const std::string where = stringName(index) + " in language " + std::to_string(language);
    if (index == 0 || index > strings_.size()) throw ImageError(where, "there is no such string");
    checkLanguage(language, where);
    StoredString stored;
    if (text) stored = encodeString(*text, where);
    strings_[index - 1u].ofLanguage[language] = std::move(stored);
}

void ImageBuilder::setText(std::uint16_t address, const QString& text, std::uint8_t fontIndex) {
    const auto where = "initial word " + std::to_string(address);
    setBytes(address, EncodeText(text, font(fontIndex, where).Kind));
}

std::uint16_t ImageBuilder::addSequence(const std::vector<Picture>& frames) {
    const std::size_t index = sequences_.size();
    const std::string where = "sequence " + std::to_string(index);
    if (index == LargestCount) throw ImageError(where, AtMost(index + 1, "sequences", LargestCount));
    std::vector<StoredPicture> stored;
    for (const Picture& frame : frames)
        stored.push_back(EncodePicture(frame, layout_, where + ", frame " + std::to_string(stored.size())));
    sequences_.push_back(std::move(stored));
    return static_cast<std::uint16_t>(index);
}

void ImageBuilder::setWord(std::uint16_t address, std::uint16_t value) { setWords(address, {value}); }

void ImageBuilder::setWords(std::uint16_t address, std::initializer_list<std::uint16_t> values) {
    Bytes bytes;
    for (const std::uint16_t value : values) {
        bytes.push_back(static_cast<std::uint8_t>(value >> 8));
        bytes.push_back(static_cast<std::uint8_t>(value));
    }
    setBytes(address, bytes);
}

void ImageBuilder::setBytes(std::uint16_t address, std::span<const std::uint8_t> bytes) {
    const std::size_t offset = 2 * std::size_t{address};
    if (offset + bytes.size() > VariableBytes)
        throw ImageError("initial word " + std::to_string(address),
                         AtMost(offset + bytes.size(), "bytes of user words", VariableBytes));
    variables_.resize(VariableBytes);
    std::ranges::copy(bytes, variables_.begin() + static_cast<std::ptrdiff_t>(offset));
}

void ImageBuilder::addLanguagePreset(std::uint8_t language, std::uint16_t address,
                                     std::span<const std::uint8_t> bytes) {
    const std::string where = "preset of language " + std::to_string(language);
    checkLanguage(language, where);
    const std::size_t end = 2 * std::size_t{address} + bytes.size();
    if (end > panel::StoreByteCount)
        throw ImageError(where, AtMost(end, "bytes of words", panel::StoreByteCount));
    ByteWriter record;
    record.u16(address).u16(static_cast<std::uint32_t>(bytes.size())).bytes(bytes);
    languagePresets_.resize(languageCount());
    Bytes& stream = languagePresets_[language];
    stream.insert(stream.end(), record.data().begin(), record.data().end());
}

void ImageBuilder::patch(std::uint32_t offset, Bytes bytes) {
    if (offset + bytes.size() > LargestImage)
        throw ImageError("patch at " + std::to_string(offset), "ends beyond the largest image");
    patches_.push_back({offset, std::move(bytes)});
}

void ImageBuilder::patch(SectionWord word, std::uint32_t value) {
    patch(4 * static_cast<std::uint32_t>(word), ByteWriter().u32(value).take());
}

std::size_t ImageBuilder::languageCount() const { return std::max<std::size_t>(config_.LangueNum, 1); }

void ImageBuilder::checkLanguage(std::uint8_t language, const std::string& where) const {
    if (language >= languageCount())
        throw ImageError(where, "the panel has " + std::to_string(languageCount()));
}

void ImageBuilder::placePictures(ImageLayout& layout) const {
    std::vector<Bytes> commonRows;
    for (const LanguagePictures& picture : pictures_)
        commonRows.push_back(placePicture(picture.common, layout));
    ByteWriter table;
    for (std::size_t language = 0; language < languageCount(); ++language) {
        for (std::size_t index = 0; index < pictures_.size(); ++index) {
            const auto& own = pictures_[index].ofLanguage;
            const auto found = own.find(static_cast<std::uint8_t>(language));
            table.bytes(found == own.end() ? commonRows[index] : placePicture(found->second, layout));
        }
    }
    layout.placeTable(SectionWord::ImageTable, table.data(), pictures_.size());
}

void ImageBuilder::placeFonts(ImageLayout& layout) const {
    ByteWriter table;
    for (const StoredFont& stored : fonts_) table.u32(layout.place(stored.Data)).zeros(4);
    layout.placeTable(SectionWord::FontTable, table.data(), fonts_.size());
}

void ImageBuilder::placeSounds(ImageLayout& layout) const {
    ByteWriter table;
    for (const Bytes& sound : sounds_)
        table.u32(layout.place(sound)).u32(static_cast<std::uint32_t>(sound.size()));
    layout.placeTable(SectionWord::AudioTable, table.data(), sounds_.size());
}

void ImageBuilder::placePinyin(ImageLayout& layout) const {
    if (!pinyin_.empty()) layout.placeTable(SectionWord::PinyinTable, pinyin_, PinyinIndexRows);
}

void ImageBuilder::placeStrings(ImageLayout& layout) const {
    const auto place = [&](const StoredString& text) { return text ? layout.place(*text) : NoString; };
    std::vector<std::uint32_t> common;
    for (const LanguageStrings& strings : strings_) common.push_back(place(strings.common));
    ByteWriter table;
    for (std::size_t language = 0; language < languageCount(); ++language) {
        for (std::size_t i = 0; i < strings_.size(); ++i) {
            const auto& own = strings_[i].ofLanguage;
            const auto found = own.find(static_cast<std::uint8_t>(language));
            table.u32(found == own.end() ? common[i] : place(found->second));
        }
    }
    layout.placeTable(SectionWord::StringTable, table.data(), strings_.size());
}

void ImageBuilder::applyPatches(Bytes& image) const {
    for (const Patch& patch : patches_) {
        const std::size_t end = patch.offset + patch.bytes.size();
        if (end > image.size()) image.resize(end);
        std::ranges::copy(patch.bytes, image.begin() + patch.offset);
    }
}

QByteArray ImageBuilder::build() const {
    ImageLayout layout;
    if (config_.InitVar) {
        Bytes variables = variables_;
        variables.resize(VariableBytes);
        layout.placeTable(SectionWord::InitialVariablesAddress, variables, VariableBytes);
    }
    placePages(pages_, layout);
    placePictures(layout);
    placeFonts(layout);
    placeStrings(layout);
    placeSounds(layout);
    placePinyin(layout);
    placeSequences(sequences_, layout);
    placeLanguagePresets(languagePresets_, layout);
    Bytes image = layout.finish(EncodeConfig(config_));
    applyPatches(image);
    return {reinterpret_cast<const char*>(image.data()), static_cast<int>(image.size())};
}

void ImageBuilder::write(const QString& path) const {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(build()) < 0 || !file.commit())
        throw ImageError(path.toStdString(), file.errorString().toStdString());
}

} // namespace imagekit
