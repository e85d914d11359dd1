// Records of a page's streams, and how each stream frames them.
#pragma once

#include "imagekit/byte_writer.h"

#include <cstdint>
#include <string>

namespace imagekit {

/// In place of a word address: the parameters stand in the record itself.
inline constexpr std::uint16_t Inline = 0xFFFF;

/// A record of a display stream. A widget's own struct becomes one by an overload of
/// `DisplayRecord Encode(const Widget&)` beside it; Page::add() and Page::addToGroup() find it there.
struct DisplayRecord {
    std::uint16_t Kind = 0;  // widget kind, bits 0 to 7 and 12 to 15 of the type word
    std::uint16_t Flags = 0; // bits 8 to 11 of the type word, 0x0F00
    std::uint16_t ParameterAddress =
        Inline;              // or where in the store the parameters are read instead of the record
    Bytes Block{};           // the parameters: up to 127 bytes, kind 0xE up to the stream's capacity
    bool LengthFlag = false; // bit 7 of the length byte
};

/// The flag bits of a widget that lies on the page's sliding list, or not.
constexpr std::uint16_t ListFlag(bool inList) { return inList ? 0x0100 : 0; }

/// A record of a touch stream. A touch widget's own struct becomes one by `TouchRecord Encode(const
/// Widget&)`.
struct TouchRecord {
    std::uint16_t Family = 0; // 0x8000..0x800F
    bool Notify = false;      // sends frames to the host
    std::uint8_t InList = 0;  // 0..15; not 0: lies on the page's sliding list
    Bytes Body{};             // what follows the three bytes of the head, up to 255 bytes
};

/// A widget that others draw on request. Its parameters are those of the display record, up to 125 bytes.
struct GroupRecord {
    std::uint16_t Group = 0;
    DisplayRecord Record{};
};

/// An item of a preset: `Value` is written to the word at `Address`.
struct PresetItem {
    std::uint16_t Address = 0;
    std::uint16_t Value = 0;
};

/// A set of words that the panel writes when the preset's id is written to word 0x7014. Up to 63 items.
struct PagePreset {
    std::uint16_t Id = 0;
    std::vector<PresetItem> Items{};
};

// The framed bytes. They throw when a field cannot be held; `where` begins the message.

Bytes EncodeRecord(const DisplayRecord& record, const std::string& where);
Bytes EncodeRecord(const TouchRecord& record, const std::string& where);
Bytes EncodeRecord(const GroupRecord& record, const std::string& where);
Bytes EncodeRecord(const PagePreset& preset, const std::string& where);

} // namespace imagekit
