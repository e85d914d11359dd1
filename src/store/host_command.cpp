#include "store/host_command.h"

#include "host/config_block.h"
#include "host/flash_image.h"
#include "pages/page_switch.h"
#include "store/backlight.h"
#include "store/clock.h"
#include "store/curve_samples.h"
#include "store/system_words.h"
#include "store/variable_store.h"

#include <algorithm>
#include <array>

namespace panel {
namespace {

constexpr std::uint8_t ReadCommand = 0x03;
constexpr std::uint8_t WriteCommand = 0x10;
constexpr std::size_t DataOffset = 4;

// Addresses beyond the store speak of curves. Their low twelve bits are a mask of channels, never empty.
constexpr std::uint16_t CurveDataBase = 0xC000;
constexpr std::uint16_t CurveClearBase = 0xE000;
constexpr std::uint16_t ChannelMask = 0x0FFF;

std::uint16_t bigEndianWord(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint16_t>(bytes[at] << 8 | bytes[at + 1]);
}

void limitLowByte(std::uint16_t address, std::uint8_t highest) {
    StoreLowByte(address, std::min(ReadLowByte(address), highest));
}

void setClock() {
    limitLowByte(word::Year, 99);
    limitLowByte(word::Month, 12);
    limitLowByte(word::Day, 31);
    limitLowByte(word::Hour, 23);
    limitLowByte(word::Minute, 59);
    limitLowByte(word::Second, 59);
    SetClock(static_cast<std::uint16_t>(2000 + ReadLowByte(word::Year)), ReadLowByte(word::Month),
             ReadLowByte(word::Day), ReadLowByte(word::Hour), ReadLowByte(word::Minute),
             ReadLowByte(word::Second));
}

void redrawPage() {
    if (ReadLowByte(word::Redraw) != 0x5A) return;
    StoreLowByte(word::Redraw, 0);
    const std::uint16_t page = ReadWord(word::Page);
    if (page < Sections.PageCount) ShowPageUnchecked(page);
}

void changeDimmedBrightness() {
    if (!ScreenBright && ReadLowByte(word::AutoDimming) == 1)
        DimValue = DimValueOf(ReadLowByte(word::DimmedBrightness));
}

/// Acts on a word that the host wrote. Gives the number of words that this took.
unsigned applyWrittenWord(std::uint16_t address) {
    switch (address) {
    case word::Page:
    case word::Brightness:
    case word::Music:
    case word::Volume:
    case word::VirtualKey:
    case word::AutoDimming: ApplySystemWord(address); return 1;
    case word::Year: setClock(); return 6;
    case word::Redraw: redrawPage(); return 1;
    case word::DimmedBrightness: changeDimmedBrightness(); return 1;
    default: return 1;
    }
}

void writeWords(std::uint16_t first, std::span<const std::uint8_t> data) {
    for (std::size_t i = 0; i + 1 < data.size(); i += 2)
        StoreWord(static_cast<std::uint16_t>(first + i / 2), bigEndianWord(data, i));
    if (!SystemRange(first)) return;
    const std::size_t end = first + data.size() / 2;
    for (std::size_t address = first; address < end && address < StoreWordCount;)
        address += applyWrittenWord(static_cast<std::uint16_t>(address));
}

bool namesChannels(std::uint16_t address, std::uint16_t base) {
    return (address & ~ChannelMask) == base && (address & ChannelMask) != 0;
}

void appendCurveData(std::uint16_t mask, std::span<const std::uint8_t> data) {
    std::array<std::uint16_t, 128> samples{}; // the length byte allows no more
    const std::size_t count = data.size() / 2;
    for (std::size_t i = 0; i < count; ++i) samples[i] = bigEndianWord(data, 2 * i);
    AppendCurveSamples(mask, std::span(samples).first(count));
}

void writeCommand(std::uint16_t address, std::span<const std::uint8_t> data) {
    if (data.empty()) return;
    if (address < FirstSystemWord || SystemRange(address))
        writeWords(address, data);
    else if (namesChannels(address, CurveDataBase))
        appendCurveData(address & ChannelMask, data);
    else if (namesChannels(address, CurveClearBase))
        ClearCurveChannels(address & ChannelMask);
}

void readCommand(std::uint16_t address, std::uint16_t count) {
    if (SystemRange(address) && (address + count >= word::Year || address <= word::Second)) CopyTimeToWords();
}

/// The data of a write, by the length byte and by what the frame holds.
std::span<const std::uint8_t> writeData(std::span<const std::uint8_t> frame) {
    const int overhead = CrcEnabled ? 5 : 3;
    const int words = (frame[0] - overhead) / 2;
    if (words <= 0) return {};
    return frame.subspan(DataOffset,
                         std::min<std::size_t>(2u * static_cast<unsigned>(words), frame.size() - DataOffset));
}

} // namespace

void HostCommand(std::span<const std::uint8_t> frame) {
    if (frame.size() < DataOffset) return;
    const std::uint16_t address = bigEndianWord(frame, 2);
    switch (frame[1]) {
    case ReadCommand:
        if (frame.size() >= DataOffset + 2) readCommand(address, bigEndianWord(frame, DataOffset));
        break;
    case WriteCommand: writeCommand(address, writeData(frame)); break;
    default: break;
    }
}

} // namespace panel
