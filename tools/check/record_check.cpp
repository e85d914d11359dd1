#include "check/record_check.h"

#include "check/head_check.h"
#include "graphics/image_row.h"
#include "host/config_block.h"
#include "host/flash_image.h"
#include "store/curve_samples.h"
#include "store/system_words.h"
#include "store/typed_value.h"
#include "store/variable_store.h"
#include "widgets/display/clock_glyphs.h"
#include "widgets/display/media_files.h"
#include "widgets/display/qr_code.h"
#include "widgets/display/uitimer.h"

#include <algorithm>
#include <string_view>

namespace check {
namespace {

using namespace panel;

constexpr std::uint32_t DigitPictures = 10;
constexpr std::uint16_t KeyboardKeyFamily = 0x8005;

/// Bytes of a field.
std::size_t widthOf(What what) {
    switch (what) {
    case What::Font:
    case What::Channel: return 1;
    case What::Box:
    case What::Area: return 8;
    case What::Rows:
    case What::Spot:
    case What::PictureAt:
    case What::PageAt:
    case What::CodeAt: return 4;
    case What::Pinyin: return 0;
    default: return 2;
    }
}

bool counts(const When& when, const Parameters& p) {
    return when.mask == 0 || ((p.u16(when.at) & when.mask) == when.value) == when.equal;
}

std::uint32_t wordsOfType(std::uint8_t typeCode) {
    const unsigned size = typeCode & TypeSizeMask;
    return size == 2 ? 2 : size == 3 ? 4 : 1;
}

std::uint32_t valuesBetween(std::uint16_t lowest, std::uint16_t highest) {
    return highest < lowest ? 0u : highest - lowest + 1u;
}

/// A run of rows, counted from the one that a field names.
struct Run {
    std::uint32_t skipped = 0;
    std::uint32_t count = 1;
};

/// The glyphs that a clock format uses of its run of pictures.
Run clockRun(std::uint8_t clockFormat) {
    constexpr Run weekdays{14, 7};
    const ClockLayout* layout = FindClockLayout(clockFormat);
    if (!layout) return {0, 0};
    if (layout->isWeekday()) return weekdays;
    const auto has = [layout](char mark) {
        return layout->text.find(mark) != std::string_view::npos
               || layout->timeText.find(mark) != std::string_view::npos;
    };
    constexpr std::string_view marks = ":.-|"; // in their order behind the digits
    std::uint32_t count = DigitPictures;
    for (std::uint32_t i = 0; i < marks.size(); ++i)
        if (has(marks[i])) count = DigitPictures + i + 1;
    return {0, count};
}

std::uint32_t timerCount(TimerFormat timerFormat) {
    switch (timerFormat) {
    case TimerFormat::HoursMinutesSeconds:
    case TimerFormat::HoursMinutes:
    case TimerFormat::MinutesSeconds: return DigitPictures + 1;
    case TimerFormat::Plain: return DigitPictures;
    default: return 0;
    }
}

Run runOf(const Extent& extent, const Parameters& p) {
    using Count = Extent::Count;
    const std::size_t at = extent.at;
    switch (extent.count) {
    case Count::Byte: return {0, p.u8(at)};
    case Count::Number: return {0, p.u16(at)};
    case Count::Values: return {0, valuesBetween(p.u16(at), p.u16(at + 2)) * extent.each};
    case Count::Steps: {
        const std::uint16_t step = p.u16(at + 4);
        const std::uint32_t values = valuesBetween(p.u16(at), p.u16(at + 2));
        return {0, step == 0 || values == 0 ? 1 : (values - 1) / step + 1};
    }
    case Count::DataType: return {0, wordsOfType(p.u8(at))};
    case Count::Digits: return {0, DigitPictures + (p.u8(at) > 0 ? 1 : 0)};
    case Count::ClockRun: return clockRun(p.u8(at));
    case Count::TimerRun: return {0, timerCount(static_cast<TimerFormat>(p.u8(at)))};
    default: return {};
    }
}

QSize sizeOf(const ImageRow& row) { return {row.Width, row.Height}; }

/// What a rectangle is to lie in.
struct Bounds {
    QSize size; // empty: nothing is known
    const char* name;
};

/// Pop-ups and keyboards stand on the panel, whatever their key lies on.
Bounds boundsOf(const Record& record, What what) {
    const QSize screen(DisplayWidth, DisplayHeight);
    if (screen.width() > LargestPanelSide || screen.height() > LargestPanelSide) return {{}, ""};
    if (record.code == KeyboardKeyFamily) return {sizeOf(PageImageRow(record.page.number)), "keyboard"};
    if (record.inGroup) return {screen.expandedTo(record.page.list), "panel"}; // the host may lie on the list
    if (record.p.inList() == 0 || what == What::PageAt) return {screen, "panel"};
    return {record.page.list, "list"};
}

/// Between two words, where there is a first one.
const char* blankBehind(const char* text) { return *text ? " " : ""; }

QRect boxAt(const Parameters& p, std::size_t at) {
    return QRect(QPoint(p.u16(at), p.u16(at + 2)), QPoint(p.u16(at + 4), p.u16(at + 6)));
}
QPoint pointAt(const Parameters& p, std::size_t at) { return {p.u16(at), p.u16(at + 2)}; }

QRect pictureAt(QPoint at, const ImageRow& picture) {
    return picture.Format == format::None || picture.Width == 0 ? QRect() : QRect(at, sizeOf(picture));
}

/// The rectangle that a record places; null when it is that of a picture that does not exist.
QRect rectOf(const Reference& row, const Parameters& p, std::size_t at) {
    const std::size_t other = row.extent.at;
    switch (row.what) {
    case What::Area: return {pointAt(p, at), QSize(p.u16(at + 4), p.u16(at + 6))};
    case What::Rows: return {QPoint(0, p.u16(at)), QPoint(DisplayWidth - 1, p.u16(at + 2) - 1)};
    case What::PictureAt: return pictureAt(pointAt(p, at), TableImageRow(p.u16(other)));
    case What::PageAt: return pictureAt(pointAt(p, at), PageImageRow(p.u16(other)));
    case What::CodeAt: return {pointAt(p, at), QSize(1, 1) * (p.u8(other) * QrUnitPixels)};
    default: return boxAt(p, at);
    }
}

} // namespace

void RecordCheck::check(const Record& record) {
    bool tooShort = false;
    for (const Reference& row : ReferencesOf(record.code)) {
        if (!counts(row.when, record.p) || (record.inGroup && row.what == What::Group)) continue;
        const std::size_t at = row.at + (row.lengthAt == 0 ? 0u : record.p.u8(row.lengthAt));
        if (at + widthOf(row.what) > record.end) {
            if (!tooShort)
                findings_.error(record.place, "the record ends at %zu, before its field at %zu", record.end,
                                at);
            tooShort = true;
        } else {
            checkReference(record, row, at);
        }
    }
}

void RecordCheck::checkReference(const Record& record, const Reference& row, std::size_t at) {
    if (row.what == What::Spot)
        checkSpot(record, pointAt(record.p, at));
    else if (row.what >= What::Box)
        checkRect(record, row.what, rectOf(row, record.p, at));
    else if (record.p.u16(at) < row.none)
        checkName(record, row, record.p.u16(at));
}

void RecordCheck::checkName(const Record& record, const Reference& row, std::uint16_t value) {
    const Place& place = record.place;
    const Run run = runOf(row.extent, record.p);
    switch (row.what) {
    case What::Word: return checkWord(place, row, value, std::max(run.count, 1u));
    case What::Write: return checkWrite(place, record.page, row.role, value, record.p.u16(row.extent.at));
    case What::Page:
    case What::PagePicture: return checkPage(place, row.role, value);
    case What::Picture: return checkPictures(place, row, value + run.skipped, run.count, usage_.pictures);
    case What::Needle: return checkPictures(place, row, value, run.count, usage_.needles);
    case What::Sequence: return markRow(place, row, "sequence", value, SequenceCount(), usage_.sequences);
    case What::Font: return markRow(place, row, "font", value & 0xFFu, FontCount(), usage_.fonts);
    case What::String: return checkString(place, value);
    case What::Group: return checkGroup(record, value);
    case What::Preset: return checkPresets(record, value, run.count);
    case What::Sound: return checkSound(place, value);
    case What::Video: return checkVideo(place, value);
    case What::Channel: checkRows(place, "", "channel", value & 0x7Fu, 1, CurveChannelCount); return;
    case What::Pinyin: usage_.pinyin = true; return;
    default: return; // places
    }
}

void RecordCheck::checkGroup(const Record& record, std::uint16_t group) {
    if (!record.page.groups.contains(group))
        findings_.error(record.place, "the page has no group %u", unsigned{group});
}

template <std::size_t Count>
void RecordCheck::markRow(const Place& place, const Reference& row, const char* noun, std::uint32_t index,
                          std::uint32_t have, std::bitset<Count>& used) {
    if (checkRows(place, row.role, noun, index, 1, have)) used.set(index);
}

void RecordCheck::checkWord(const Place& place, const Reference& row, std::uint32_t address,
                            std::uint32_t words) {
    if (address >= StoreWordCount)
        findings_.error(place, "%s word 0x%04x does not exist", row.role, address);
    else if (address + words > StoreWordCount)
        findings_.error(place, "the %u %s words from 0x%04x on reach beyond the last word", words, row.role,
                        address);
}

void RecordCheck::checkWrite(const Place& place, const PageFacts& page, const char* role,
                             std::uint16_t address, std::uint16_t value) {
    if (!IsStoreWord(address))
        findings_.error(place, "%s word 0x%04x does not exist", role, unsigned{address});
    else if (address == word::Page)
        checkPage(place, role, value);
    else if (address == word::Music)
        checkSound(place, value);
    else if (address == word::PagePreset && !page.presets.contains(value))
        findings_.warning(place, "the page has no preset %u", unsigned{value});
    else if (address == word::Language)
        checkRows(place, role, "language", value & 0xFFu, 1, static_cast<std::uint32_t>(LanguageBlocks()));
}

void RecordCheck::checkPage(const Place& place, const char* role, std::uint32_t page) {
    checkRows(place, role, "page", page, 1, Sections.PageCount);
}

bool RecordCheck::checkRows(const Place& place, const char* role, const char* noun, std::uint32_t first,
                            std::uint32_t count, std::uint32_t have) {
    if (count == 0 || (first < have && count <= have - first)) return true;
    if (first >= have)
        findings_.error(place, "%s%s%s %u does not exist (the image has %u)", role, blankBehind(role), noun,
                        first, have);
    else
        findings_.error(place, "%s%s%ss %u to %u do not all exist (the image has %u)", role,
                        blankBehind(role), noun, first, first + count - 1, have);
    return false;
}

void RecordCheck::checkPictures(const Place& place, const Reference& row, std::uint32_t first,
                                std::uint32_t count, MarkedRuns& used) {
    checkRows(place, row.role, "picture", first, count, Sections.ImageCount);
    if (first < Sections.ImageCount) used.mark(first, std::min(count, Sections.ImageCount - first));
}

void RecordCheck::checkPresets(const Record& record, std::uint32_t first, std::uint32_t count) {
    for (std::uint32_t id = first; id < first + count && id < 0x10000; ++id) {
        if (record.page.presets.contains(static_cast<std::uint16_t>(id))) continue;
        findings_.warning(record.place, "the page has no preset %u", id);
        return; // the others that it lacks are no news
    }
}

void RecordCheck::checkString(const Place& place, std::uint16_t index) {
    if (index == 0) return;
    if (index <= Sections.StringCount)
        usage_.strings.set(index);
    else
        findings_.error(place, "string %u does not exist (the image has %u)", unsigned{index},
                        Sections.StringCount);
}

void RecordCheck::checkSound(const Place& place, std::uint16_t code) {
    const unsigned number = code & 0x7FFFu;
    if (number == 0) return;
    if (FileMediaChip()) {
        const int file = static_cast<int>(number) - 1;
        if (!media_.has(MusicFolder, file))
            findings_.error(place, "sound %u has no file %s in the folder %s", number,
                            qPrintable(MediaNumber(file)), MusicFolder);
    } else if (number <= Sections.AudioTableCount) {
        usage_.sounds.set(number);
    } else {
        findings_.error(place, "sound %u does not exist (the image has %u)", number,
                        Sections.AudioTableCount);
    }
}

void RecordCheck::checkVideo(const Place& place, std::uint16_t number) {
    if (!FileMediaChip())
        findings_.warning(place, "this chip plays no video");
    else if (!media_.has(VideoFolder, number))
        findings_.error(place, "video %u has no file %s in the folder %s", unsigned{number},
                        qPrintable(MediaNumber(number)), VideoFolder);
}

/// A number that ends at the edge has its place behind it.
void RecordCheck::checkSpot(const Record& record, QPoint at) {
    const auto [size, name] = boundsOf(record, What::Spot);
    if (!size.isEmpty() && (at.x() > size.width() || at.y() > size.height()))
        findings_.error(record.place, "(%d, %d) lies off the %s of %d x %d", at.x(), at.y(), name,
                        size.width(), size.height());
}

void RecordCheck::checkRect(const Record& record, What what, QRect rect) {
    if (rect.isNull()) return; // of a picture that is not there
    const auto [size, name] = boundsOf(record, what);
    const QRect whole(QPoint(), size);
    const QString text =
        QString::asprintf("(%d, %d) to (%d, %d)", rect.left(), rect.top(), rect.right(), rect.bottom());
    if (rect.isEmpty())
        findings_.error(record.place, "its rectangle from %s is empty", qPrintable(text));
    else if (size.isEmpty() || whole.contains(rect))
        return;
    else if (rect.intersects(whole))
        findings_.warning(record.place, "%s lies partly off the %s of %d x %d", qPrintable(text), name,
                          size.width(), size.height());
    else
        findings_.error(record.place, "%s lies off the %s of %d x %d", qPrintable(text), name, size.width(),
                        size.height());
}

} // namespace check
