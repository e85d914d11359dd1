// The looks of keys, cut out of the painted pages, and the pictures of switches, sliders, marks and drums.
#pragma once

#include "demo/project.h"

#include "imagekit/touch_controls.h"

#include <QByteArray>
#include <QImage>
#include <QRect>

#include <cstdint>
#include <map>
#include <vector>

namespace demo {

/// A coordinate on the panel as records hold it.
inline std::uint16_t U16(int value) { return static_cast<std::uint16_t>(value); }
inline imagekit::Area AreaOf(const QRect& rect) {
    return {U16(rect.left()), U16(rect.top()), U16(rect.right()), U16(rect.bottom())};
}

struct KeyLooks {
    std::uint16_t normal = 0, pressed = 0; // pictures of the image
};

/// Puts pictures into the image, equal ones once.
class KeyArt {
public:
    KeyArt(imagekit::ImageBuilder& image, const std::vector<PaintedPage>& pages)
        : image_(image), pages_(pages) {}

    /// A piece of a page, and the same piece with `lit` (on the page) under a finger.
    KeyLooks cut(PageId page, const QRect& piece, const QRect& lit, int radius);
    std::uint16_t opaque(const QImage& picture) { return add(picture, imagekit::format::PngOpaque); }
    std::uint16_t withAlpha(const QImage& picture) { return add(picture, imagekit::format::aRGB8888); }

private:
    std::uint16_t add(const QImage& picture, std::uint8_t format);

    imagekit::ImageBuilder& image_;
    const std::vector<PaintedPage>& pages_;
    std::map<QByteArray, std::uint16_t> known_; // by pixels and format
};

enum class SwitchLook { Off, Pressed, On };
QImage SwitchPicture(QSize size, SwitchLook look);

/// The part of a slider's track below its value, from one colour to the other.
QImage SliderFill(QSize size, const QColor& from, const QColor& to);
QImage SliderThumb(int diameter);

/// A tick on a disc, on what is chosen.
QImage ChosenMark(int diameter, const QColor& colour);
QImage Dot(int diameter, const QColor& colour);

/// The cells of a drum, one under the other. The selected look is that of its middle.
QImage DrumStrip(const std::vector<QString>& cells, QSize cell, bool selected);

/// A switch that flips bit 0 of a word.
void AddSwitch(imagekit::Page& page, KeyArt& art, const QRect& area, std::uint16_t word, const QString& name);

struct SliderScale {
    int lowest, highest;
    QColor from, to;
};
/// A slider over a painted track.
void AddSlider(imagekit::Page& page, KeyArt& art, const QRect& track, std::uint16_t word,
               const SliderScale& scale, const QString& name);

} // namespace demo
