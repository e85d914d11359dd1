#include "check/page_check.h"

#include "graphics/image_row.h"
#include "host/config_block.h"
#include "host/flash_image.h"
#include "pages/display_kinds.h"
#include "pages/page_presets.h"
#include "store/variable_store.h"
#include "widgets/touch/encoder.h"
#include "widgets/touch/touch_families.h"
#include "widgets/touch/touch_row.h"

#include <algorithm>

namespace check {

using namespace panel;

namespace {

constexpr std::uint16_t KeyboardKeyFamily = 0x8005, SlidingListFamily = 0x800F; // neither lies on a list
constexpr std::uint16_t AnyBackground = 0x0E; // stands for all background kinds where they are counted

std::span<const std::uint8_t> bytesOf(StreamPlace place, std::size_t capacity) {
    if (!place.valid()) return {};
    return FlashBytes(place.address, std::min<std::size_t>(place.length, capacity));
}

/// Bytes of a record in its stream.
std::size_t lengthOf(const StreamRecord& record, Framing framing) {
    constexpr std::size_t groupId = 2;
    return record.bytes.size() + (framing == Framing::Group ? groupId : 0);
}

/// The sets of words of a page, with their ids.
struct PresetRecord {
    std::uint16_t id;
    std::span<const std::uint8_t> items;
    std::size_t offset;
};
template <class Visit>
std::size_t forEachPreset(std::span<const std::uint8_t> bytes, Visit visit) {
    constexpr std::size_t head = 3; // u16 id, u8 length
    std::size_t at = 0;
    while (bytes.size() - at >= head && bytes.size() - at - head >= bytes[at + 2]) {
        const auto id = static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
        visit(PresetRecord{id, bytes.subspan(at + head, bytes[at + 2]), at});
        at += head + bytes[at + 2];
    }
    return at;
}

StreamPlace presetPlace(std::uint16_t page) {
    const std::uint32_t row = Sections.PagePresetTable + PagePresetRowBytes * page;
    return {ReadU32(row), ReadU16(row + 4)};
}

/// The record offset behind the last parameter, and whether the parameters are known at all: those in the
/// store are when the image brings them; words that are all zero are left to the host.
struct Reach {
    std::size_t end;
    bool known;
};
Reach reachOf(const Parameters& p, std::size_t recordBytes) {
    if (!p.inStore()) return {recordBytes, true};
    const std::size_t first = p.blockOffset(), end = first + p.blockLength();
    bool known = false;
    if (ReadConfigBlock().InitVar && end <= UserByteCount)
        for (std::size_t at = first; at < end; ++at) known = known || ReadByte(at) != 0;
    return {FirstParameter + p.blockLength(), known};
}

} // namespace

const PageCheck::Stream PageCheck::Display{"display stream", Framing::DisplayByKind, DisplayStreamCapacity};
const PageCheck::Stream PageCheck::Group{"group stream", Framing::Group, GroupStreamCapacity};
const PageCheck::Stream PageCheck::Touch{"touch stream", Framing::Touch, TouchStreamCapacity};

PageCheck::PageCheck(Findings& findings, RecordCheck& records, std::uint16_t page)
    : findings_(findings), records_(records), facts_{.number = page} {
    takeFacts();
}

Place PageCheck::placeOf(const char* part, std::uint32_t offset) const {
    return {.subject = "page", .number = facts_.number, .part = part, .offset = offset};
}

void PageCheck::takeFacts() {
    constexpr std::size_t listPage = 14; // field of the list
    StreamWalker groups(bytesOf(GroupStreamPlace(facts_.number), Group.capacity), Group.framing);
    while (const auto record = groups.next()) facts_.groups.insert(record->groupId);
    StreamWalker touch(bytesOf(TouchStreamPlace(facts_.number), Touch.capacity), Touch.framing);
    while (const auto record = touch.next()) {
        if ((record->typeWord & FamilyMask) != SlidingListFamily) continue;
        const ImageRow list = PageImageRow(Parameters(record->bytes, WithoutBlock).u16(listPage));
        facts_.list = QSize(list.Width, list.Height);
    }
    forEachPreset(bytesOf(presetPlace(facts_.number), PagePresetCapacity),
                  [this](const PresetRecord& preset) { facts_.presets.insert(preset.id); });
}

void PageCheck::check() {
    checkStream(Display, DisplayStreamPlace(facts_.number), &PageCheck::checkDisplayRecord);
    checkStream(Group, GroupStreamPlace(facts_.number), &PageCheck::checkGroupRecord);
    checkStream(Touch, TouchStreamPlace(facts_.number), &PageCheck::checkTouchRecord);
    checkPresets();
}

void PageCheck::checkStream(const Stream& stream, StreamPlace place, CheckRecordOf checkRecord) {
    if (!place.valid()) return;
    const auto bytes = bytesOf(place, stream.capacity);
    if (place.length > stream.capacity)
        findings_.error(placeOf(stream.name, place.address), "of its %u bytes the panel takes %zu",
                        unsigned{place.length}, stream.capacity);
    else if (bytes.size() < place.length)
        findings_.error(placeOf(stream.name, place.address), "its %u bytes end beyond the image",
                        unsigned{place.length});
    std::size_t end = 0;
    for (StreamWalker walker(bytes, stream.framing); const auto record = walker.next();) {
        end = record->offset + lengthOf(*record, stream.framing);
        (this->*checkRecord)(placeOf(nullptr, place.address + static_cast<std::uint32_t>(record->offset)),
                             *record);
    }
    if (end < bytes.size() && bytes.size() == place.length)
        findings_.error(placeOf(stream.name, place.address + static_cast<std::uint32_t>(end)),
                        "the stream ends inside a record");
}

void PageCheck::checkDisplayRecord(const Place& place, const StreamRecord& record) {
    const DisplayKind* kind = FindDisplayKind(record.kind());
    if (!kind)
        return findings_.warning(place, "the panel knows no widget kind 0x%04x", unsigned{record.kind()});
    Place at = place;
    at.part = kind->name;
    countRow(at, kind->background ? AnyBackground : kind->code, kind->background ? 1 : kind->capacity);
    checkParameters(at, record, false);
    if (kind->code == EncoderMenuKind) checkMenu(at, record);
}

void PageCheck::checkGroupRecord(const Place& place, const StreamRecord& record) {
    const DisplayKind* kind = FindDisplayKind(record.kind());
    if (!kind || !kind->inGroups)
        return findings_.warning(place, "no group shows the widget kind 0x%04x", unsigned{record.kind()});
    Place at = place;
    at.part = kind->name;
    checkParameters(at, record, true);
}

void PageCheck::checkTouchRecord(const Place& place, const StreamRecord& record) {
    const auto code = static_cast<std::uint16_t>(record.typeWord & FamilyMask);
    const TouchFamily* family = FindTouchFamily(code);
    if (!family) return findings_.warning(place, "the panel knows no touch family 0x%04x", unsigned{code});
    Place at = place;
    at.part = family->name;
    countRow(at, code, family->capacity);
    const Parameters p(record.bytes, WithoutBlock);
    if (code != SlidingListFamily && code != KeyboardKeyFamily) checkList(at, p);
    records_.check({.place = at, .page = facts_, .code = code, .p = p, .end = record.bytes.size()});
}

void PageCheck::checkList(const Place& place, const Parameters& p) {
    if (p.inList() != 0 && facts_.list.isEmpty())
        findings_.warning(place, "it lies on a sliding list, and the page shows none");
}

void PageCheck::countRow(const Place& place, std::uint16_t code, std::size_t capacity) {
    if (++rows_[code] == capacity + 1 && capacity != 0)
        findings_.error(place, "a page holds %zu of these, and this is one more", capacity);
}

void PageCheck::checkParameters(const Place& place, const StreamRecord& record, bool inGroup) {
    const Parameters p = ReadParameters(*FindDisplayKind(record.kind()), record.bytes);
    if (p.inStore() && p.blockOffset() + p.blockLength() > StoreByteCount)
        return findings_.error(place, "its parameters at word 0x%04zx lie beyond the last word",
                               p.blockOffset() / 2);
    if (!inGroup) checkList(place, p);
    const Reach reach = reachOf(p, record.bytes.size());
    if (!reach.known) return;
    records_.check({.place = place,
                    .page = facts_,
                    .code = record.kind(),
                    .p = p,
                    .end = reach.end,
                    .inGroup = inGroup});
}

void PageCheck::checkMenu(const Place& place, const StreamRecord& record) {
    constexpr std::size_t firstEntry = 8, entryHead = 2; // u8 kind, u8 length
    constexpr std::uint8_t sortMask = 0x1F;
    auto rest = record.bytes.subspan(std::min(firstEntry, record.bytes.size()));
    std::size_t count = 0;
    while (!rest.empty()) {
        const std::size_t length = rest.size() < entryHead ? entryHead : entryHead + rest[1];
        if (length > rest.size()) return findings_.error(place, "the menu ends inside an entry");
        const Parameters p(rest.first(length), WithoutBlock);
        const std::uint16_t code = MenuEntryCode(rest[0] & sortMask);
        if (ReferencesOf(code).empty())
            findings_.warning(place, "the panel knows no menu entry of sort %d", rest[0] & sortMask);
        records_.check({.place = place, .page = facts_, .code = code, .p = p, .end = length});
        rest = rest.subspan(length);
        if (++count == MostMenuEntries + 1)
            findings_.error(place, "a menu holds %zu entries, and this one more", MostMenuEntries);
    }
}

void PageCheck::checkPresets() {
    constexpr std::size_t itemBytes = 4;
    const StreamPlace stream = presetPlace(facts_.number);
    const Place place = placeOf("presets", stream.address);
    const auto bytes = bytesOf(stream, PagePresetCapacity);
    const std::size_t end = forEachPreset(bytes, [&](const PresetRecord& preset) {
        const Place at = placeOf("preset", stream.address + static_cast<std::uint32_t>(preset.offset));
        for (auto items = preset.items; items.size() >= itemBytes; items = items.subspan(itemBytes))
            records_.checkWrite(at, facts_, "preset", static_cast<std::uint16_t>(items[0] | items[1] << 8),
                                static_cast<std::uint16_t>(items[2] | items[3] << 8));
    });
    if (stream.length > PagePresetCapacity)
        findings_.error(place, "of their %u bytes the panel takes %zu", unsigned{stream.length},
                        PagePresetCapacity);
    else if (bytes.size() < stream.length)
        findings_.error(place, "their %u bytes end beyond the image", unsigned{stream.length});
    else if (end < bytes.size())
        findings_.error(place, "they end inside a record");
}

} // namespace check
