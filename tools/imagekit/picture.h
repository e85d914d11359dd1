// Pictures on their way into an image: what the maker of the image gives, and what is stored of it.
#pragma once

#include "imagekit/byte_writer.h"
#include "imagekit/panel_config.h"
#include "imagekit/zip_image.h"

#include "graphics/image_row.h"

#include <QColor>
#include <QImage>

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace imagekit {

namespace format = panel::format;

/// A picture from pixels, in any format that has data. Colours are rounded to the nearest that the format
/// has. Formats without alpha drop it. In formats 1 and 4 a pixel of less than half alpha is transparent, and
/// an opaque one that would come out black becomes the darkest colour that is not, for black is what stands
/// for transparent.
struct Pixels {
    QImage Image{}; // 1..65535 px a side
    std::uint8_t Format = format::RGB565;
    ZipCoding Coding = ZipCoding::Shortest; // formats 3 to 5
};

/// A rectangle of one colour. Black is stored as the darkest colour that is not: a colour word of 0 stands
/// for "no picture".
struct Solid {
    std::uint16_t Width = 0; // px
    std::uint16_t Height = 0;
    QColor Colour{};
};

/// A row and its data as they are to be stored; nothing is checked. The default is the row of no picture.
struct StoredPicture {
    std::uint16_t Width = 0; // px
    std::uint16_t Height = 0;
    std::uint32_t Extra = 0; // 24 bits
    std::uint8_t Format = format::None;
    Bytes Data{};
    std::optional<std::uint32_t> Address{}; // instead of that of Data
};

using Picture = std::variant<StoredPicture, Pixels, Solid>;

/// How the panel that will read the pictures expects raw pixels.
struct PixelLayout {
    std::uint8_t ColourMode = 0;
    std::uint8_t ICType = 0;
    bool NandFlash = false;

    explicit PixelLayout(const PanelConfig& config)
        : ColourMode(config.ColourMode), ICType(config.ICType), NandFlash(config.NandFlash) {}
};

/// Throws when the format cannot hold the picture; `where` begins the message.
StoredPicture EncodePicture(const Picture& picture, const PixelLayout& layout, const std::string& where);

/// The colour word of an opaque colour: RGB565 in colour mode 0, else 0x00RRGGBB.
std::uint32_t OpaqueColourWord(const QColor& colour, std::uint8_t colourMode);
/// The colour word with alpha: aRGB4444 in colour mode 0, else 0xAARRGGBB.
std::uint32_t AlphaColourWord(const QColor& colour, std::uint8_t colourMode);

} // namespace imagekit
