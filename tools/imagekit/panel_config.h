// The settings of a panel as they go into the image: chip, colours, size, start values.
#pragma once

#include "imagekit/byte_writer.h"

#include <array>
#include <cstdint>
#include <string>

namespace imagekit {

/// Written as it stands: nothing but the lengths of the texts is checked, so that an image may also hold
/// settings that no panel has.
struct PanelConfig {
    std::uint16_t Width = 800; // px, before rotation
    std::uint16_t Height = 480;
    std::uint8_t ColourMode = 0; // 0: 16-bit colours, 1: 24-bit; the format knows no other
    std::uint8_t ICType = 4;     // chip; below 3 has little memory, 5 plays numbered media files
    std::uint8_t Rotate = 0;     // quarter turns, 0..3
    bool AutoBL = false;         // dims when idle, see BLSP and KPTM
    bool KeyBeep = false;
    bool InitVar = true; // the user words of the image replace those of the panel
    bool ModbusM = false;
    bool NoFB = false;
    bool NoCRC = false;
    std::uint8_t EOCheck = 0; // parity: 1 even, 2 odd, else none
    std::uint8_t BAUD = 4;    // index of the rate, 4 = 115200
    std::array<std::uint8_t, 2> StartBytes{0x5A, 0xA5};
    std::uint8_t FlhSize = 3; // index of the flash size, 3 = 16 MB
    bool NandFlash = false;   // rows of raw pictures are padded to multiples of 4 pixels
    bool PCLK = false;
    bool HSYNC = false;
    bool VSYNC = false;
    bool DE = true;
    bool BGR = false;
    std::uint16_t VBPD = 23, VFPD = 22, VSPW = 1; // lines
    std::uint16_t HBPD = 46, HFPD = 210, HSPW = 1;
    std::string EditorVersion = "V1.20"; // up to 8 bytes
    std::uint32_t USER_KEY = 0;
    std::string UserVER = "V1.00"; // up to 8 bytes
    std::uint16_t StartPage = 0;
    std::uint8_t GeData = 0;
    std::uint8_t BLON = 63;  // brightness, 0..63
    std::uint8_t BLSP = 10;  // brightness when dimmed
    std::uint16_t KPTM = 60; // idle time before dimming, half seconds
    std::uint8_t Volume = 8; // 0..16
    std::uint8_t DevAddr = 0;
    std::uint8_t LangueNum = 1; // languages; an image holds one block of pictures for each
    bool WithCheck = true; // carries a valid check; without, the check words are zero and nothing is tested
};

inline constexpr std::size_t ConfigBlockBytes = 0x100;

/// The settings block, ConfigBlockBytes long.
Bytes EncodeConfig(const PanelConfig& config);

} // namespace imagekit
