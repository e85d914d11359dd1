// Writes a panel image: settings, pages with their streams, pictures, presets and initial values, in the byte
// layout that the panel loads. What the format cannot hold is refused with an ImageError that names the
// place.
#pragma once

#include "imagekit/font.h"
#include "imagekit/page.h"
#include "imagekit/panel_config.h"
#include "imagekit/picture.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <deque>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace imagekit {

/// Words of the section table at the start of an image, by their number. Pairs of address and count; the
/// count of a table per language is that of one language.
enum class SectionWord : std::uint8_t {
    InitialVariablesAddress = 0,
    InitialVariablesLength = 1,
    PageTable = 2,
    PageTableCount = 3,
    FontTable = 4,
    FontTableCount = 5,
    AudioTable = 6,
    AudioTableCount = 7,
    PageImageTable = 8,
    PageCount = 9,
    ImageSequenceTable = 10,
    ImageSequenceCount = 11,
    ImageTable = 12,
    ImageCount = 13,
    PinyinTable = 16,
    PinyinTableCount = 17,
    LanguagePresetTable = 20,
    LanguagePresetCount = 21,
    GroupStreamTable = 22,
    GroupStreamCount = 23,
    StringTable = 24,
    StringCount = 25,
    PagePresetTable = 28,
    PagePresetCount = 29,
};
inline constexpr std::size_t SectionWordCount = 30;

/// A text of the string table, in the encoding of its font.
struct LanguageText {
    QString Text{}; // 1024 bytes at most
    std::uint8_t Font = 0;
    QColor Colour{Qt::black};
};

class ImageLayout;

class ImageBuilder {
public:
    explicit ImageBuilder(PanelConfig config = {});

    const PanelConfig& config() const { return config_; }

    /// Appends a page. The reference stays valid as long as the builder.
    Page& addPage(const Picture& background = {});
    std::uint16_t pageCount() const { return static_cast<std::uint16_t>(pages_.size()); }
    Page& page(std::uint16_t index) { return pages_.at(index); }
    const Page& page(std::uint16_t index) const { return pages_.at(index); }

    /// Appends a picture to the image table, the same one in all languages, and gives its index.
    std::uint16_t addPicture(const Picture& picture);
    /// Another picture at an index in one language.
    void setPicture(std::uint16_t index, std::uint8_t language, const Picture& picture);

    /// Appends a font to the font table and gives its index.
    std::uint8_t addFont(StoredFont font);
    /// Throws when there is no such font; `where` begins the message.
    const StoredFont& font(std::uint8_t index, const std::string& where) const;

    /// Appends a text to the string table, the same one in all languages, and gives its index, from 1 on. Its
    /// font must have been added.
    std::uint16_t addString(const LanguageText& text);
    /// Another text at an index in one language; nullopt: no text in this language.
    void setString(std::uint16_t index, std::uint8_t language, const std::optional<LanguageText>& text);

    /// Appends a sequence of pictures for animations and gives its id. Frames are drawn in the size of the
    /// widget, which should be theirs.
    std::uint16_t addSequence(const std::vector<Picture>& frames);
    /// The table of pinyin: syllables in lower case, with the characters that they stand for. Sorted here.
    void setPinyin(const std::map<std::string, QString>& syllables);
    /// Appends a sound, one channel of 22050 samples a second, and gives its number, from 1.
    std::uint16_t addSound(const std::vector<std::int16_t>& samples);

    /// The word of an opaque colour in this image.
    std::uint32_t colour(const QColor& colour) const { return OpaqueColourWord(colour, config_.ColourMode); }

    // What the user words 0..0x6FFF hold at start, if the settings have InitVar; 0 at first. Text and bytes
    // begin with the high byte of their first word.
    void setWord(std::uint16_t address, std::uint16_t value);
    void setWords(std::uint16_t address, std::initializer_list<std::uint16_t> values);
    void setBytes(std::uint16_t address, std::span<const std::uint8_t> bytes);
    /// A text in the encoding of a font.
    void setText(std::uint16_t address, const QString& text, std::uint8_t font);

    /// Bytes that a change to the language copies to the store from a word on.
    void addLanguagePreset(std::uint8_t language, std::uint16_t address, std::span<const std::uint8_t> bytes);

    /// Overwrites bytes of the finished image, and lengthens it when they lie beyond its end. Check words are
    /// not renewed. For images that no tool would write.
    void patch(std::uint32_t offset, Bytes bytes);
    void patch(SectionWord word, std::uint32_t value);

    QByteArray build() const;
    /// Throws ImageError when the file cannot be written.
    void write(const QString& path) const;

private:
    struct Patch {
        std::uint32_t offset;
        Bytes bytes;
    };

    /// A picture of the image table: the same one in all languages but those that have their own.
    struct LanguagePictures {
        StoredPicture common;
        std::map<std::uint8_t, StoredPicture> ofLanguage;
    };

    /// A string record: nothing for a language that has none.
    using StoredString = std::optional<Bytes>;
    struct LanguageStrings {
        StoredString common;
        std::map<std::uint8_t, StoredString> ofLanguage;
    };

    std::size_t languageCount() const;
    Bytes encodeString(const LanguageText& text, const std::string& where) const;
    void placeFonts(ImageLayout& layout) const;
    void placeStrings(ImageLayout& layout) const;
    void placeSounds(ImageLayout& layout) const;
    void placePinyin(ImageLayout& layout) const;
    void checkLanguage(std::uint8_t language, const std::string& where) const;
    void placePictures(ImageLayout& layout) const;
    void applyPatches(Bytes& image) const;

    PanelConfig config_;
    PixelLayout layout_;
    std::deque<Page> pages_;
    std::vector<LanguagePictures> pictures_;
    std::vector<StoredFont> fonts_;
    std::vector<LanguageStrings> strings_;
    std::vector<Bytes> sounds_; // as stored
    Bytes pinyin_;              // the whole table
    std::vector<std::vector<StoredPicture>> sequences_;
    Bytes variables_;                    // empty as long as all words are zero
    std::vector<Bytes> languagePresets_; // by language; empty when no language has any
    std::vector<Patch> patches_;
};

} // namespace imagekit
