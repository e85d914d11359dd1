#include "pages/value_runs.h"

#include "store/typed_value.h"
#include "store/variable_store.h"

#include <algorithm>

namespace panel {
namespace {

constexpr std::size_t ValueAddress = 5; // record offset, the same in every kind
constexpr std::uint16_t NoAddress = 0xFFFF;

std::size_t byteOffset(std::uint16_t wordAddress) { return 2 * std::size_t{wordAddress}; }

/// Byte addresses of numbers and labels have 16 bits, so a word address above 0x7FFF stands for one below.
std::size_t wrappedOffset(std::uint16_t wordAddress) { return static_cast<std::uint16_t>(2 * wordAddress); }

/// How many bytes of a run stand before and in its end mark, by the bytes that `byteAt` reads.
std::size_t lengthToEnd(const StoreRun& run, std::uint8_t (*byteAt)(std::size_t)) {
    if (run.end == TextEnd::None || run.offset >= StoreByteCount) return run.count;
    const std::size_t count = std::min(run.count, StoreByteCount - run.offset);
    const std::size_t step = run.end == TextEnd::ZeroWord ? 2 : 1;
    for (std::size_t at = 0; at < count; at += step)
        if (byteAt(run.offset + at) == 0 && byteAt(run.offset + at + 1) == 0) return std::min(at + 2, count);
    return count;
}

StoreRun valueRun(std::uint16_t address, std::uint8_t typeCode) {
    const unsigned log2Bytes = typeCode & TypeSizeMask;
    if (log2Bytes == 0) return {.offset = wrappedOffset(address) + 1, .count = 1};
    return {.offset = wrappedOffset(address), .count = std::size_t{1} << log2Bytes};
}

StoreRuns numberRuns(const Parameters& p, std::size_t dataType, std::size_t hideWord) {
    StoreRuns runs;
    if (const std::uint16_t address = p.u16(hideWord); address != NoAddress) runs.addWord(address);
    return runs.add(valueRun(p.u16(ValueAddress), p.u8(dataType)));
}

} // namespace

void SyncRuns(const StoreRuns& runs) {
    for (const StoreRun& run : runs.runs())
        SyncBytes(run.offset, run.copiedWhole ? run.count : lengthToEnd(run, ReadByte));
}

bool RunsDiffer(const StoreRuns& runs) {
    return std::ranges::any_of(runs.runs(), [](const StoreRun& run) {
        return BytesDiffer(run.offset, lengthToEnd(run, ShadowByte));
    });
}

void SyncBlock(const Parameters& p) {
    if (p.inStore()) SyncBytes(p.blockOffset(), p.blockLength());
}

bool BlockChanged(const Parameters& p) {
    return p.inStore() && BytesDiffer(p.blockOffset(), p.blockLength());
}

StoreRuns ValueWord(const Parameters& p) { return StoreRuns().addWord(p.u16(ValueAddress)); }

StoreRuns LabelText(const Parameters& p) {
    constexpr std::size_t textLength = 0x19; // words
    return StoreRuns().add({.offset = wrappedOffset(p.u16(ValueAddress)),
                            .count = 2 * std::size_t{p.u16(textLength)},
                            .end = TextEnd::ZeroWord});
}

StoreRuns NumberValue(const Parameters& p) {
    constexpr std::size_t dataType = 0x14;
    constexpr std::size_t unitLength = 0x15; // bytes of the unit, which stands before the hide word
    constexpr std::size_t unit = 0x16;
    return numberRuns(p, dataType, unit + p.u8(unitLength));
}

StoreRuns PngNumberValue(const Parameters& p) {
    constexpr std::size_t dataType = 0x0F;
    constexpr std::size_t hideWord = 0x13;
    return numberRuns(p, dataType, hideWord);
}

StoreRuns QrText(const Parameters& p) {
    constexpr std::size_t textLength = 7; // words
    return StoreRuns().add({.offset = byteOffset(p.u16(ValueAddress)),
                            .count = 2 * std::size_t{p.u16(textLength)},
                            .end = TextEnd::ZeroPair});
}

StoreRuns TextrollText(const Parameters& p) {
    constexpr std::size_t wordCount = 0x0F; // a byte in the inline form, a word in the block
    const std::size_t count = p.inStore() ? p.u16(wordCount) : p.u8(wordCount);
    return StoreRuns().add({.offset = byteOffset(p.u16(ValueAddress)),
                            .count = 2 * count,
                            .end = TextEnd::ZeroPair,
                            .copiedWhole = true});
}

StoreRuns UiTimerWords(const Parameters& p) {
    constexpr std::size_t timer = 7;
    constexpr std::size_t control = 9;
    return StoreRuns().addWord(p.u16(ValueAddress)).addWord(p.u16(timer)).addWord(p.u16(control));
}

} // namespace panel
