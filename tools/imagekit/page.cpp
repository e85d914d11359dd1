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

/// Kinds of which the panel keeps something for each widget of a page, in tables of fixed size.
struct KindLimit {
    std::uint16_t kind;
    const char* widgets;
    std::size_t limit;
};
constexpr KindLimit KindLimits[] = {
    {0x02, "numbers", 30},       {0x04, "picture numbers", 30}, {0x05, "animations", 15},
    {0x06, "picture clocks", 6}, {0x08, "analog clocks", 2},    {0x10, "timers", 10},
};

/// Counts a record in; throws when the panel has no room for one more of its kind.
void countKind(const DisplayRecord& record, std::map<std::uint16_t, std::size_t>& counts,
               const std::string& where) {
    const auto* found = std::ranges::find(KindLimits, record.Kind, &KindLimit::kind);
    if (found == std::end(KindLimits)) return;
    if (counts[record.Kind] == found->limit)
        throw ImageError(where, AtMost(found->limit + 1, found->widgets, found->limit));
    ++counts[record.Kind];
}
template <class OtherRecord>
void countKind(const OtherRecord&, std::map<std::uint16_t, std::size_t>&, const std::string&) {}

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
