#include "imagekit/records.h"

#include "imagekit/image_error.h"

namespace imagekit {
namespace {

constexpr std::uint16_t FlagBits = 0x0F00; // of a display type word
constexpr std::uint16_t LongRecordKind = 0x0E;
constexpr std::size_t LongestBlock = 0x7F;
constexpr std::size_t GroupIdBytes = 2; // counted by the length of a group record
constexpr std::size_t LongestBody = 0xFF;
constexpr std::uint16_t NotifyBit = 0x4000;
constexpr std::size_t PresetItemBytes = 4;
constexpr std::size_t LargestPreset = 0xFF / PresetItemBytes;

std::uint32_t typeWord(const DisplayRecord& record, const std::string& where) {
    if ((record.Kind & FlagBits) != 0) throw ImageError(where, "the kind has bits that belong to the flags");
    if ((record.Flags & ~FlagBits) != 0)
        throw ImageError(where, "the flags have bits that belong to the kind");
    return record.Kind | record.Flags;
}

std::uint32_t lengthByte(const DisplayRecord& record, std::size_t extraBytes, const std::string& where) {
    const std::size_t largest = LongestBlock - extraBytes;
    if (record.Block.size() > largest) throw ImageError(where, AtMost(record.Block.size(), "bytes", largest));
    return static_cast<std::uint32_t>(record.Block.size() + extraBytes) | (record.LengthFlag ? 0x80u : 0u);
}

} // namespace

Bytes EncodeRecord(const DisplayRecord& record, const std::string& where) {
    ByteWriter out;
    out.u16(typeWord(record, where)).u16(record.ParameterAddress);
    if (record.Kind == LongRecordKind)
        out.u16(static_cast<std::uint32_t>(record.Block.size()));
    else
        out.u8(lengthByte(record, 0, where));
    return out.bytes(record.Block).take();
}

Bytes EncodeRecord(const TouchRecord& record, const std::string& where) {
    if ((record.Family & ~0xB0FF) != 0)
        throw ImageError(where, "the family has bits that belong to the flags");
    if (record.InList > 0x0F)
        throw ImageError(where, "InList is " + std::to_string(record.InList) + ", at most 15");
    if (record.Body.size() > LongestBody)
        throw ImageError(where, AtMost(record.Body.size(), "bytes", LongestBody));
    const std::uint32_t type = record.Family | (record.Notify ? NotifyBit : 0u) | record.InList * 0x100u;
    return ByteWriter()
        .u16(type)
        .u8(static_cast<std::uint32_t>(record.Body.size()))
        .bytes(record.Body)
        .take();
}

Bytes EncodeRecord(const GroupRecord& group, const std::string& where) {
    const DisplayRecord& record = group.Record;
    ByteWriter out;
    out.u16(group.Group).u16(typeWord(record, where)).u16(record.ParameterAddress);
    return out.u8(lengthByte(record, GroupIdBytes, where)).bytes(record.Block).take();
}

Bytes EncodeRecord(const PagePreset& preset, const std::string& where) {
    if (preset.Items.size() > LargestPreset)
        throw ImageError(where, AtMost(preset.Items.size(), "items", LargestPreset));
    ByteWriter out;
    out.u16(preset.Id).u8(static_cast<std::uint32_t>(preset.Items.size() * PresetItemBytes));
    for (const PresetItem& item : preset.Items) out.u16(item.Address).u16(item.Value);
    return out.take();
}

} // namespace imagekit
