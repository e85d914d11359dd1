#include "host/config_block.h"

#include "host/flash_image.h"
#include "store/backlight.h"
#include "store/language.h"
#include "store/system_words.h"
#include "store/variable_store.h"

#include <QDebug>

#include <algorithm>

namespace panel {
namespace {

constexpr std::array<std::uint32_t, 11> BaudRates{9600,   19200,  38400,  57600,   115200, 230400,
                                                  256000, 460800, 921600, 1382400, 3000000};

/// Fields of the block, by their offset from its start.
class BlockReader {
public:
    std::uint8_t u8(std::size_t at) const { return bytes_[at]; }
    std::uint16_t u16(std::size_t at) const {
        return static_cast<std::uint16_t>(bytes_[at] | bytes_[at + 1] << 8);
    }
    std::uint32_t u32(std::size_t at) const {
        return u16(at) | static_cast<std::uint32_t>(u16(at + 2)) << 16;
    }
    bool bit(std::size_t at, int number) const { return bytes_[at] >> number & 1; }
    std::string text(std::size_t at, std::size_t length) const {
        const auto first = bytes_.begin() + static_cast<std::ptrdiff_t>(at);
        return {first, std::find(first, first + static_cast<std::ptrdiff_t>(length), std::uint8_t{0})};
    }

    BlockReader() { FlashRead(bytes_.data(), ConfigBlockAddress, bytes_.size()); }

private:
    std::array<std::uint8_t, 0x42> bytes_{};
};

void loadInitialVariables(bool fromImage) {
    if (fromImage) {
        const auto words = FlashBytes(Sections.InitialVariablesAddress, UserByteCount);
        StoreBytes(0, words);
        for (std::size_t at = words.size(); at < UserByteCount; ++at) StoreByte(at, 0);
    }
    SyncBytes(0, UserByteCount);
}

void setSystemWords(const ConfigBlock& config) {
    StoreLowByte(word::Brightness, config.BLON);
    StoreLowByte(word::AutoDimming, config.AutoBL ? 1 : 0);
    StoreLowByte(word::DimmedBrightness, config.AutoBL ? config.BLSP : 10);
    StoreWord(word::SleepTime, config.AutoBL ? config.KPTM : 60);
    StoreLowByte(word::Volume, config.Volume);
}

} // namespace

std::uint32_t BaudRate(std::uint8_t index) { return index < BaudRates.size() ? BaudRates[index] : 0; }

ConfigBlock ReadConfigBlock() {
    const BlockReader block;
    return {.ICType = block.u8(6),
            .RGBIF = block.u8(7),
            .Rotate = block.u8(8),
            .AutoBL = block.bit(9, 0),
            .KeyBeep = block.bit(9, 1),
            .InitVar = block.bit(9, 2),
            .ModbusM = block.bit(10, 0),
            .NoFB = block.bit(10, 1),
            .NoCRC = block.bit(10, 2),
            .EOCheck = static_cast<std::uint8_t>(block.u8(10) >> 3 & 3),
            .BAUD = block.u8(11),
            .StartBytes = {block.u8(12), block.u8(13)},
            .FlhSize = static_cast<std::uint8_t>(block.u8(14) & 0x7F),
            .NandFlash = block.bit(14, 7),
            .Polarity = block.u8(15),
            .XSIZE = block.u16(16),
            .YSIZE = block.u16(18),
            .VBPD = block.u16(20),
            .VFPD = block.u16(22),
            .VSPW = block.u16(24),
            .HBPD = block.u16(26),
            .HFPD = block.u16(28),
            .HSPW = block.u16(30),
            .EditorVersion = block.text(36, 8),
            .USER_KEY = block.u32(44),
            .UserVER = block.text(48, 8),
            .SPage = block.u16(56),
            .GeData = block.u8(58),
            .BLON = block.u8(59),
            .BLSP = block.u8(60),
            .KPTM = block.u16(61),
            .Volume = block.u8(63),
            .DevAddr = block.u8(64),
            .LangueNum = block.u8(65)};
}

void LoadConfigBlock() {
    LoadSectionTable();
    const ConfigBlock config = ReadConfigBlock();
    const bool turned = config.Rotate == 1 || config.Rotate == 3;
    DisplayWidth = turned ? config.YSIZE : config.XSIZE;
    DisplayHeight = turned ? config.XSIZE : config.YSIZE;
    ICType = config.ICType;
    ColourMode = config.RGBIF;
    Rotation = config.Rotate;
    NandFlash = config.NandFlash;
    Language = 0;
    LanguageCount = config.LangueNum;
    StartPage = config.SPage;
    if (BaudRate(config.BAUD) != 0) SerialBaudRate = BaudRate(config.BAUD);
    if (config.KeyBeep) KeyBeepEnabled = true; // set and never taken back, as on the panel
    ReplyEnabled = !config.NoFB;
    CrcEnabled = !config.NoCRC;
    FrameHeader = config.StartBytes;

    loadInitialVariables(config.InitVar);
    setSystemWords(config);
    ScreenBright = config.AutoBL ? 1 : 0;
    Volume = std::min<std::uint8_t>(config.Volume, LargestVolume);
    VolumeApplied = Volume;
    qDebug("ZR_IC_Index %d \r\n", static_cast<int>(ICType));
}

} // namespace panel
