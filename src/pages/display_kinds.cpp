#include "pages/display_kinds.h"

#include "pages/value_copy.h"

#include <algorithm>

namespace panel {
namespace {

constexpr DisplayKind Kinds[] = {
    {.code = 0x01, .name = "label", .syncValue = SyncLabel, .inGroups = true},
    {.code = 0x02, .name = "number", .syncValue = SyncNumber, .inGroups = true},
    {.code = 0x03, .name = "valueIcon", .syncValue = SyncValueWord, .inGroups = true, .onTop = true},
    {.code = 0x04, .name = "pngNumber", .syncValue = SyncPngNumber, .inGroups = true},
    {.code = 0x05, .name = "imageAnimation", .syncValue = SyncValueWord},
    {.code = 0x06, .name = "pngClock"},
    {.code = 0x07, .name = "qrcode", .syncValue = SyncQrText},
    {.code = 0x08, .name = "AnalogClock"},
    {.code = 0x09, .name = "textroll", .syncValue = SyncTextroll},
    {.code = 0x0A, .name = "musicPlayer", .hasBlock = false},
    {.code = 0x0B, .name = "imageBar", .syncValue = SyncValueWord},
    {.code = 0x0C, .name = "ringGauge", .syncValue = SyncValueWord},
    {.code = 0x0D, .name = "curve"},
    {.code = 0x0E, .name = "encoderMenu", .hasBlock = false, .background = true},
    {.code = 0x0F, .name = "bitIcon", .syncValue = SyncValueWord, .inGroups = true},
    {.code = 0x10, .name = "uitimer", .syncValue = SyncValueWord},
    {.code = 0x11, .name = "autoStep", .syncValue = SyncValueWord},
    {.code = 0x12, .name = "needleMeter", .syncValue = SyncValueWord},
    {.code = 0x13, .name = "encoderEntry", .hasBlock = false, .background = true},
    {.code = 0x14, .name = "encoderPages", .hasBlock = false, .background = true},
    {.code = 0x20, .name = "cameraView", .hasBlock = false},
    {.code = 0x22, .name = "videoPlayer", .hasBlock = false},
};
static_assert(std::ranges::adjacent_find(Kinds, std::ranges::greater_equal{}, &DisplayKind::code)
              == std::end(Kinds));

} // namespace

std::span<const DisplayKind> DisplayKinds() { return Kinds; }

const DisplayKind* FindDisplayKind(std::uint16_t code) {
    const auto* found = std::ranges::lower_bound(Kinds, code, {}, &DisplayKind::code);
    return found != std::end(Kinds) && found->code == code ? found : nullptr;
}

} // namespace panel
