// Strip charts and rolling texts. Places are px of the panel.
#pragma once

#include "imagekit/records.h"
#include "imagekit/value_widgets.h"

#include <cstdint>

namespace imagekit {

/// The newest samples of a channel as a line. A host sends the samples.
struct Curve {
    std::uint16_t ParameterAddress = Inline;
    std::uint16_t X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // all inside
    std::uint16_t BaseOffset = 0;                 // px from the top to where BaseValue lies
    std::uint16_t BaseValue = 0;
    std::uint16_t Scale = 256;  // 1/256 px per unit
    std::uint32_t Colour = 0;   // 24 bits
    std::uint8_t Channel = 0;   // 0..11
    bool LeftToRight = false;   // the newest sample is at the left end
    std::uint8_t StepX = 2;     // px between two samples
    std::uint8_t Thickness = 1; // px
};

/// A text that rolls through its box when it does not fit.
struct Textroll {
    std::uint16_t ParameterAddress = Inline;
    bool InList = false;
    std::uint16_t TextAddress = 0;
    std::uint16_t X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // all inside
    std::uint16_t TextWords = 0;
    std::uint8_t Font = 0, GlyphWidth = 8, GlyphHeight = 16;
    std::uint8_t Encoding = 4;         // as a font of that kind has it; 4: single bytes
    Alignment Align = Alignment::Left; // of a text that stands still
    bool RollAlways = false;
    std::uint32_t Colour = 0; // 24 bits, and so is the next
    std::uint8_t Speed = 2;   // ticks of 10 ms per px
    std::uint32_t BackColour = 0;
    std::uint16_t Gap = 40; // px between the end of the text and its repetition
    bool Opaque = false;
};

DisplayRecord Encode(const Curve& curve);
DisplayRecord Encode(const Textroll& text);

WidgetDescription Describe(const Curve& curve);
WidgetDescription Describe(const Textroll& text);

} // namespace imagekit
