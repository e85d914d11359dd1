#include "check/head_check.h"

#include "graphics/font.h"
#include "graphics/image_row.h"
#include "host/config_block.h"
#include "host/flash_image.h"
#include "pages/language_strings.h"
#include "pages/page_presets.h"
#include "pages/page_table.h"
#include "store/language.h"
#include "store/variable_store.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/media.h"

#include <algorithm>

namespace check {
namespace {

using namespace panel;

// Numbers of words of the section table.
constexpr std::uint32_t PageTableCountWord = 3, PageCountWord = 9;
constexpr std::uint32_t FontCountWord = 5, SequenceCountWord = 11, LanguagePresetCountWord = 21;

// Offsets of settings in their block.
constexpr std::uint32_t ColourFormatSetting = 7, RotationSetting = 8, SizeSetting = 16, StartPageSetting = 56,
                        CheckWordSetting = 0xEC;

/// A table that the head names by its address, in one word, and by the number of its rows, in another.
struct Table {
    const char* name;
    std::uint32_t addressWord, countWord;
    std::uint32_t rowBytes;
    bool perLanguage = false; // the rows of all languages, one language after the other
};
constexpr Table Tables[] = {
    {"page table", 2, PageCountWord, PageRowBytes},
    {"font table", 4, FontCountWord, FontRowBytes},
    {"audio table", 6, 7, AudioRowBytes},
    {"table of page pictures", 8, PageCountWord, ImageRowBytes},
    {"sequence table", 10, SequenceCountWord, SequenceRowBytes},
    {"picture table", 12, 13, ImageRowBytes, true},
    {"table of language presets", 20, LanguagePresetCountWord, LanguagePresetRowBytes},
    {"group stream table", 22, PageCountWord, GroupRowBytes},
    {"string table", 24, 25, StringRowBytes, true},
    {"table of page presets", 28, PageCountWord, PagePresetRowBytes},
};

std::uint32_t sectionWord(std::uint32_t number) { return ReadU32(4 * number); }
Place headAt(std::uint32_t offset) { return {.subject = "head", .offset = offset}; }
Place settingAt(std::uint32_t offset) { return headAt(ConfigBlockAddress + offset); }

std::uint64_t imageBytes() { return static_cast<std::uint64_t>(FlashImage.size); }

void checkTable(Findings& findings, const Table& table) {
    const std::uint32_t address = sectionWord(table.addressWord), count = sectionWord(table.countWord);
    const Place place = headAt(4 * table.addressWord);
    const std::uint64_t bytes =
        std::uint64_t{count} * table.rowBytes * (table.perLanguage ? LanguageBlocks() : 1);
    if (bytes == 0) return;
    if (address < ConfigBlockAddress)
        findings.error(place, "the %s of %u rows lies in the head, at 0x%08x", table.name, count, address);
    else if (address + bytes > imageBytes())
        findings.error(place, "the %s of %u rows at 0x%08x ends beyond the image", table.name, count,
                       address);
}

void checkInitialVariables(Findings& findings) {
    if (!ReadConfigBlock().InitVar) return;
    if (Sections.InitialVariablesAddress + std::uint64_t{UserByteCount} > imageBytes())
        findings.error(headAt(0), "the initial variables at 0x%08x end beyond the image",
                       Sections.InitialVariablesAddress);
}

void checkPageCounts(Findings& findings) {
    constexpr std::uint32_t mostPages = 0xFFFF; // the number behind them means none
    if (Sections.PageCount == 0) findings.error(headAt(4 * PageCountWord), "the image has no pages");
    if (Sections.PageCount > mostPages)
        findings.error(headAt(4 * PageCountWord), "%u pages are more than records can name",
                       Sections.PageCount);
    if (Sections.PageTableCount != Sections.PageCount)
        findings.warning(headAt(4 * PageTableCountWord), "the page table counts %u pages, the head %u",
                         Sections.PageTableCount, Sections.PageCount);
    if (StartPage >= Sections.PageCount && Sections.PageCount != 0)
        findings.error(settingAt(StartPageSetting), "start page %u does not exist (the image has %u)",
                       unsigned{StartPage}, Sections.PageCount);
}

void checkSettings(Findings& findings) {
    const ConfigBlock config = ReadConfigBlock();
    const auto isSide = [](int pixels) { return pixels > 0 && pixels <= LargestPanelSide; };
    if (!isSide(config.XSIZE) || !isSide(config.YSIZE))
        findings.error(settingAt(SizeSetting), "there is no panel of %u x %u pixels", unsigned{config.XSIZE},
                       unsigned{config.YSIZE});
    if (config.RGBIF > 1)
        findings.error(settingAt(ColourFormatSetting), "the panel knows no colour format %u",
                       unsigned{config.RGBIF});
    if (config.Rotate > 3)
        findings.warning(settingAt(RotationSetting), "a rotation of %u quarter turns is not one of 0 to 3",
                         unsigned{config.Rotate});
    if (Sections.LanguagePresetCount != 0
        && Sections.LanguagePresetCount < static_cast<std::uint32_t>(LanguageBlocks()))
        findings.error(headAt(4 * LanguagePresetCountWord),
                       "the image has presets of %u languages, and %d languages",
                       Sections.LanguagePresetCount, LanguageBlocks());
}

} // namespace

std::uint32_t FontCount() { return sectionWord(FontCountWord); }
std::uint32_t SequenceCount() { return sectionWord(SequenceCountWord); }
int LanguageBlocks() { return std::max<int>(LanguageCount, 1); }

std::uint32_t WholePageRows() {
    const std::uint64_t bytes = imageBytes() > Sections.PageTable ? imageBytes() - Sections.PageTable : 0;
    constexpr std::uint32_t mostPages = 0xFFFF;
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>({bytes / PageRowBytes, Sections.PageCount, mostPages}));
}

void CheckHead(Findings& findings) {
    if (imageBytes() < ConfigBlockAddress + CheckedBytes)
        findings.error(headAt(0), "the image has only %u bytes, fewer than its head",
                       static_cast<unsigned>(imageBytes()));
    IllegalImage = 0;
    CheckImageIntegrity();
    if (IllegalImage)
        findings.error(settingAt(CheckWordSetting), "the check words are wrong, the panel refuses the image");
    checkSettings(findings);
    checkPageCounts(findings);
    checkInitialVariables(findings);
    for (const Table& table : Tables) checkTable(findings, table);
}

} // namespace check
