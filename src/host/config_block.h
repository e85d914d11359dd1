// The settings that the design tool stores in the image, and the values that the engine derives from them at
// start.
#pragma once

#include "store/shared.h"

#include <array>
#include <cstdint>
#include <string>

namespace panel {

/// The settings as they stand in the image; nothing is clamped here.
struct ConfigBlock {
    std::uint8_t ICType = 0;
    std::uint8_t RGBIF = 0;
    std::uint8_t Rotate = 0; // quarter turns, 0..3 when sound
    bool AutoBL = false;
    bool KeyBeep = false;
    bool InitVar = false;
    bool ModbusM = false;
    bool NoFB = false;
    bool NoCRC = false;
    std::uint8_t EOCheck = 0; // 1 even, 2 odd, else none
    std::uint8_t BAUD = 0;    // index, see BaudRate()
    std::array<std::uint8_t, 2> StartBytes{0x5A, 0xA5};
    std::uint8_t FlhSize = 0; // index, 0..8 when sound
    bool NandFlash = false;
    std::uint8_t Polarity = 0;          // bit 0 PCLK, 1 HSYNC, 2 VSYNC, 3 DE, 4 BGR
    std::uint16_t XSIZE = 0, YSIZE = 0; // px, before rotation
    std::uint16_t VBPD = 0, VFPD = 0, VSPW = 0;
    std::uint16_t HBPD = 0, HFPD = 0, HSPW = 0;
    std::string EditorVersion; // up to 8 bytes
    std::uint32_t USER_KEY = 0;
    std::string UserVER; // up to 8 bytes
    std::uint16_t SPage = 0;
    std::uint8_t GeData = 0;
    std::uint8_t BLON = 0, BLSP = 0; // brightness levels, 0..63 when sound
    std::uint16_t KPTM = 0;          // half seconds
    std::uint8_t Volume = 0;         // 0..16 when sound
    std::uint8_t DevAddr = 0;
    std::uint8_t LangueNum = 0;
};

/// Reads the block of the loaded image. Any thread while an image is loaded; of a short image the rest is
/// zero.
ConfigBlock ReadConfigBlock();

/// Baud rate of an index 0..10, or 0 for any other.
std::uint32_t BaudRate(std::uint8_t index);

/// A panel with a side of 0 or of more than this many pixels does not exist and is not started.
inline constexpr int LargestPanelSide = 4096;

// Values in force, set by LoadConfigBlock() on the engine thread and constant until the next load.
inline Shared<std::uint16_t> DisplayWidth{0}; // px, after rotation
inline Shared<std::uint16_t> DisplayHeight{0};
inline Shared<std::uint8_t> ICType{0};
inline Shared<std::uint8_t> ColourMode{0}; // the image's RGBIF
inline Shared<std::uint8_t> Rotation{0};
inline bool NandFlash = false; // rows of raw pictures are padded to multiples of 4 pixels
inline Shared<std::uint8_t> LanguageCount{0};
inline std::uint16_t StartPage = 0;
inline std::uint32_t SerialBaudRate = 115200;
inline bool KeyBeepEnabled = false;
inline bool ReplyEnabled = true;
inline bool CrcEnabled = true;
inline std::array<std::uint8_t, 2> FrameHeader{0x5A, 0xA5};

/// Chips 0, 1 and 2 have little memory: large pictures are cut, and some effects do not exist.
inline bool SmallChip() { return ICType < 3; }
/// The chip that plays numbered media files and stores 32-bit pixels.
inline bool FileMediaChip() { return ICType == 5; }

/// Reads head and settings, sets the values above, the system words and the initial user words. Engine
/// thread.
void LoadConfigBlock();

} // namespace panel
