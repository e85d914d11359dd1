#include "imagekit/encoder_widgets.h"

#include "imagekit/image_error.h"

namespace imagekit {
namespace {

constexpr std::uint8_t NotifyBit = 0x80;

std::uint8_t enabledKeys(const EncoderKeys& keys) {
    std::uint8_t bits = 0;
    for (std::size_t key = 0; key < keys.size(); ++key) bits |= keys[key] ? 1 << key : 0;
    return bits;
}

void put(ByteWriter& body, const EncoderAction& action) {
    body.u16(action.Page).u16(action.Address).u16(action.Value).u8(0);
}

void put(ByteWriter& body, const EncoderKeys& keys) {
    for (const auto& action : keys) put(body, action.value_or(EncoderAction{}));
}

std::uint32_t bits(int value) { return static_cast<std::uint32_t>(value); }

/// From the variable's address on.
void put(ByteWriter& body, const EncoderValue& value) {
    body.u16(value.Address).u8(static_cast<std::uint8_t>(value.Type));
    body.u16(bits(value.Highest)).u16(0).u16(bits(value.Lowest)).u16(0);
    body.u16(value.Step).u16(value.Step).u16(value.Step).u8(value.Wrap ? 1 : 0);
}

void putEntry(ByteWriter& body, std::uint8_t kind, const Bytes& fields) {
    body.u8(kind).u8(static_cast<std::uint32_t>(fields.size())).bytes(fields);
}

void putEntry(ByteWriter& body, const EncoderStep& step) {
    ByteWriter fields;
    fields.u16(step.Address).u8(static_cast<std::uint8_t>(step.Type));
    fields.u32(bits(step.Highest)).u32(bits(step.Lowest));
    fields.u16(step.Step).u8(step.Up ? 1 : 0).u8(step.Wrap ? 1 : 0);
    putEntry(body, 1, fields.data());
}

void putEntry(ByteWriter& body, const EncoderValue& value) {
    ByteWriter fields;
    put(fields, value);
    putEntry(body, 2 | (value.Notify ? NotifyBit : 0), fields.data());
}

void putEntry(ByteWriter& body, const EncoderActions& actions) {
    ByteWriter fields;
    fields.u8(enabledKeys(actions.Keys));
    put(fields, actions.Keys);
    putEntry(body, 3 | (actions.Notify ? NotifyBit : 0), fields.data());
}

} // namespace

DisplayRecord Encode(const EncoderMenu& menu) {
    constexpr std::size_t mostEntries = 48;
    if (menu.Entries.empty() || menu.Entries.size() > mostEntries)
        throw ImageError("encoder menu", "a menu has 1 to 48 entries");
    ByteWriter body;
    body.u16(menu.SelectorAddress);
    for (const auto& entry : menu.Entries)
        std::visit([&body](const auto& one) { putEntry(body, one); }, entry);
    return {.Kind = 0x0E, .Block = body.take()};
}

/// The fields of the value begin where the unread byte of the last action stands.
DisplayRecord Encode(const EncoderEntry& entry) {
    ByteWriter block;
    std::uint8_t enabled = enabledKeys(entry.Keys), notify = 0;
    for (std::size_t key = 0; key < entry.NotifyKeys.size(); ++key)
        notify |= entry.NotifyKeys[key] ? 1 << key : 0;
    if (entry.Value) enabled |= 0x08;
    if (entry.NotifyClockwise) notify |= 0x08;
    if (entry.NotifyCounterClockwise) notify |= NotifyBit;
    block.u8(enabled).u8(notify);
    put(block, entry.Keys);
    Bytes bytes = block.take();
    ByteWriter value;
    if (entry.Value) put(value, *entry.Value);
    bytes.resize(22); // up to the address of the value
    bytes.insert(bytes.end(), value.data().begin(), value.data().end());
    return {.Kind = 0x13, .Block = bytes};
}

DisplayRecord Encode(const EncoderPages& pages) {
    ByteWriter block;
    block.u8(pages.Notify ? 1 : 0).u16(pages.CounterClockwise).u16(pages.Clockwise);
    return {.Kind = 0x14, .Block = block.take()};
}

WidgetDescription Describe(const EncoderMenu& menu) {
    return {.Name = "encoderMenu", .Address = menu.SelectorAddress};
}

} // namespace imagekit
