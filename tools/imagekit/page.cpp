#include "imagekit/page.h"

#include "imagekit/image_error.h"

#include <algorithm>

namespace imagekit {
namespace {

struct StreamTraits {
    const char* recordName;
    std::size_t capacity;
};

constexpr std::array<StreamTraits, StreamCount> Traits{{
    {"display record", DisplayStreamCapacity},
    {"touch record", TouchStreamCapacity},
    {"group record", GroupStreamCapacity},
    {"preset", PresetStreamCapacity},
}};

constexpr std::size_t LongestStream = 0xFFFF;

/// Kinds and families of which the panel keeps something for each widget of a page, in tables of fixed size.
struct KindLimit {
    std::uint16_t kind;
    const char* widgets;
    std::size_t limit;
};
constexpr KindLimit KindLimits[] = {
    {0x02, "numbers", 30},
    {0x04, "picture numbers", 30},
    {0x05, "animations", 15},
    {0x06, "picture clocks", 6},
    {0x08, "analog clocks", 2},
    {0x09, "rolling texts", 5},
    {0x0D, "curves", 12},
    {0x10, "timers", 10},
    {0x11, "auto steps", 20},
    {0x12, "needle meters", 4},
    {0x8000, "swipe gestures", 1},
    {0x8001, "page keys", 128},
    {0x8002, "number entries", 128},
    {0x8003, "step keys", 255},
    {0x8004, "sliders", 32},
    {0x8005, "keyboard keys", 200},
    {0x8006, "roller pickers", 64},
    {0x8007, "ring sliders", 32},
    {0x8008, "pop-up keys", 64},
    {0x8009, "text entries", 128},
    {0x800A, "pinyin entries", 128},
    {0x800B, "multi keys", 128},
    {0x800C, "sliding pages", 1},
    {0x800D, "state keys", 20},
    {0x800E, "copy keys", 20},
    {0x800F, "sliding lists", 1},
};

std::uint16_t kindOf(const DisplayRecord& record) { return record.Kind; }
std::uint16_t kindOf(const TouchRecord& record) { return record.Family; }

/// Counts a record in; throws when the panel has no room for one more of its kind.
template <class Record>
void countKind(const Record& record, std::map<std::uint16_t, std::size_t>& counts, const std::string& where) {
    const auto* found = std::ranges::find(KindLimits, kindOf(record), &KindLimit::kind);
    if (found == std::end(KindLimits)) return;
    std::size_t& count = counts[found->kind];
    if (count == found->limit)
        throw ImageError(where, AtMost(found->limit + 1, found->widgets, found->limit));
    ++count;
}
void countKind(const GroupRecord&, std::map<std::uint16_t, std::size_t>&, const std::string&) {}
void countKind(const PagePreset&, std::map<std::uint16_t, std::size_t>&, const std::string&) {}

} // namespace

Page::Page(std::uint16_t index, StoredPicture background)
    : index_(index), background_(std::move(background)) {}

template <class Record>
void Page::append(Stream stream, const Record& record) {
    StreamBytes& target = at(stream);
    const StreamTraits& traits = Traits[static_cast<std::size_t>(stream)];
    const std::string where = "page " + std::to_string(index_) + ", " + traits.recordName + ' '
                              + std::to_string(target.recordCount);
    const Bytes encoded = EncodeRecord(record, where);
    const std::size_t size = target.bytes.size() + encoded.size();
    if (size > traits.capacity)
        throw ImageError(where, "makes the stream " + AtMost(size, "bytes", traits.capacity));
    countKind(record, kindCounts_, where);
    target.bytes.insert(target.bytes.end(), encoded.begin(), encoded.end());
    ++target.recordCount;
}

template void Page::append(Stream, const DisplayRecord&);
template void Page::append(Stream, const TouchRecord&);
template void Page::append(Stream, const GroupRecord&);
template void Page::append(Stream, const PagePreset&);

void Page::setRawStream(Stream stream, Bytes bytes, std::optional<std::uint16_t> length) {
    if (bytes.size() > LongestStream)
        throw ImageError("page " + std::to_string(index_),
                         AtMost(bytes.size(), "bytes in a stream", LongestStream));
    at(stream) = {.bytes = std::move(bytes), .recordCount = 0, .claimedLength = length};
}

std::uint16_t Page::claimedLength(Stream stream) const {
    const StreamBytes& source = at(stream);
    return source.claimedLength.value_or(static_cast<std::uint16_t>(source.bytes.size()));
}

} // namespace imagekit
