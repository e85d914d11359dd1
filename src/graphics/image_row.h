// The 12-byte row that describes every picture of an image, and the rows that tell what lies behind the
// widgets.
#pragma once

#include <cstdint>

namespace panel {

/// Pixel formats of a picture; other values draw nothing.
namespace format {
inline constexpr std::uint8_t RGB565 = 0;    // opaque; three or four bytes a pixel in colour mode 1
inline constexpr std::uint8_t RGB565Key = 1; // as RGB565, pure black is transparent
inline constexpr std::uint8_t aRGB4444 = 2;
inline constexpr std::uint8_t ZipImage = 3; // 3, 4 and 5: palette-compressed, the mode stands in the data
inline constexpr std::uint8_t ZipImageLast = 5;
inline constexpr std::uint8_t aRGB8888 = 6;
inline constexpr std::uint8_t PngOpaque = 7;
inline constexpr std::uint8_t RGB565A8 = 8; // colour mode 0 only
inline constexpr std::uint8_t PngAlpha = 10;
inline constexpr std::uint8_t ScratchAlpha = 11; // no data: the ImageScratchSurface
inline constexpr std::uint8_t SolidColour = 16;  // no data: Extra is the colour word
inline constexpr std::uint8_t None = 0xFF;
} // namespace format

struct ImageRow {
    std::uint32_t Address = 0; // of the data in the image
    std::uint16_t Width = 0;   // px
    std::uint16_t Height = 0;  // px
    std::uint32_t Extra = 0;   // 24 bits: bytes of a PNG, or the colour word of a SolidColour
    std::uint8_t Format = format::None;

    /// Whether widgets take the row for a picture at all.
    bool hasPicture() const { return Format != format::None && Extra != 0; }
    /// Whether pixels of the picture let through what a widget has put behind it.
    bool showsWhatIsBehind() const {
        return Format == format::RGB565Key || Format == format::aRGB4444 || Format == format::aRGB8888
               || Format == format::PngAlpha;
    }
    bool operator==(const ImageRow&) const = default;
};

inline constexpr std::uint32_t ImageRowBytes = 12;

/// In a record in place of an index of the image table.
inline constexpr std::uint16_t NoImage = 0xFFFF;

/// The row at a byte address of the image.
ImageRow ReadImageRow(std::uint32_t address);
/// The background picture of a page below PageCount; no picture for any other.
ImageRow PageImageRow(std::uint16_t page);
/// A picture of the image table in the language in force; no picture for an index at or above ImageCount.
ImageRow TableImageRow(std::uint16_t index);

// All below: engine thread.

/// The picture of the page on show. While a pop-up is open, both rows are the pop-up's.
inline ImageRow PageImage;
inline ImageRow PopupImage;
/// Scratch row of the widget that draws. The compressed path of BlitImage() leaves a decoded height in it.
inline ImageRow CurrentImage;

/// The picture behind the widget being drawn, and where its top left corner lies on the panel.
struct PlacedImageRow : ImageRow {
    std::uint16_t OriginX = 0; // px
    std::uint16_t OriginY = 0;
};
inline PlacedImageRow BackdropRow;

/// Whether a pop-up window is open, and where its top left corner lies on the panel.
inline std::uint8_t PopupActive = 0;
inline std::uint16_t PopupOriginX = 0; // px
inline std::uint16_t PopupOriginY = 0;

} // namespace panel
