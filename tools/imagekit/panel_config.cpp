#include "imagekit/panel_config.h"

#include "imagekit/image_error.h"

#include "host/flash_image.h"

#include <algorithm>
#include <span>

namespace imagekit {
namespace {

constexpr std::size_t TextBytes = 8;
constexpr std::size_t CheckWordsOffset = 0xEC;

std::uint32_t bits(std::initializer_list<bool> lowestFirst) {
    std::uint32_t value = 0;
    int number = 0;
    for (const bool bit : lowestFirst) value |= static_cast<std::uint32_t>(bit) << number++;
    return value;
}

void putText(ByteWriter& out, const std::string& text, const char* name) {
    if (text.size() > TextBytes) throw ImageError(name, AtMost(text.size(), "bytes", TextBytes));
    out.text(text).zeros(TextBytes - text.size());
}

Bytes checkWords(const Bytes& block) {
    const auto checked = std::span(block).first<panel::CheckedBytes>();
    const std::uint32_t value = panel::ImageCheckValue(checked);
    return ByteWriter().u32(~value).u32(value).take();
}

} // namespace

Bytes EncodeConfig(const PanelConfig& config) {
    ByteWriter out;
    out.zeros(6);
    out.u8(config.ICType).u8(config.ColourMode).u8(config.Rotate);
    out.u8(bits({config.AutoBL, config.KeyBeep, config.InitVar}));
    out.u8(bits({config.ModbusM, config.NoFB, config.NoCRC}) | (config.EOCheck & 3u) << 3);
    out.u8(config.BAUD).bytes(config.StartBytes);
    out.u8((config.FlhSize & 0x7Fu) | bits({config.NandFlash}) << 7);
    out.u8(bits({config.PCLK, config.HSYNC, config.VSYNC, config.DE, config.BGR}));
    out.u16(config.Width).u16(config.Height);
    out.u16(config.VBPD).u16(config.VFPD).u16(config.VSPW);
    out.u16(config.HBPD).u16(config.HFPD).u16(config.HSPW);
    out.zeros(4);
    putText(out, config.EditorVersion, "EditorVersion");
    out.u32(config.USER_KEY);
    putText(out, config.UserVER, "UserVER");
    out.u16(config.StartPage).u8(config.GeData).u8(config.BLON).u8(config.BLSP).u16(config.KPTM);
    out.u8(config.Volume).u8(config.DevAddr).u8(config.LangueNum);
    out.zerosUpTo(ConfigBlockBytes);

    Bytes block = out.take();
    if (config.WithCheck) std::ranges::copy(checkWords(block), block.begin() + CheckWordsOffset);
    return block;
}

} // namespace imagekit
