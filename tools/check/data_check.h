// What the rows of the tables lead to: pictures, fonts, strings, sounds, sequences, presets of languages.
#pragma once

#include "check/findings.h"
#include "check/usage.h"
#include "graphics/image_row.h"

#include <cstdint>

namespace check {

class DataCheck {
public:
    DataCheck(Findings& findings, Usage& usage) : findings_(findings), usage_(usage) {}

    /// The background of a page; the findings are the page's.
    void checkPageImage(std::uint16_t page);
    /// All that the pages use. The language in force is 0 afterwards.
    void check();

private:
    /// In every language.
    void checkStrings();
    void checkPictures(const MarkedRuns& used, std::uint32_t dataHead);
    void checkPictureRow(std::uint16_t index, int language, std::uint32_t dataHead);
    void checkString(std::uint16_t index, int language);
    void checkFonts();
    void checkFont(std::uint8_t index);
    void checkSounds();
    void checkSequences();
    void checkFrames(const Place& place, std::uint32_t address, std::uint32_t count);
    void checkPinyin();
    void checkLanguagePresets();

    // The data of a picture, by its format.
    void checkPicture(const Place& place, const panel::ImageRow& row);
    void checkPng(const Place& place, const panel::ImageRow& row);
    void checkZip(const Place& place, const panel::ImageRow& row);
    void checkRaw(const Place& place, const panel::ImageRow& row);

    /// Whether `bytes` from an address on are in the image; tells when they are not.
    bool checkRange(const Place& place, std::uint32_t address, std::uint64_t bytes);

    /// Pictures looked at, so that a hostile image with tables in each other comes to an end.
    static constexpr int MostPictures = 1 << 17;

    Findings& findings_;
    Usage& usage_;
    int pictures_ = 0;
};

} // namespace check
