// What a page full of text costs, per pixel of its glyphs.
#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "graphics/text.h"
#include "host/config_block.h"
#include "host/memory_image.h"
#include "imagekit/font.h"

#include <QPainter>

#include <benchmark/benchmark.h>
#include <vector>

namespace panel {
namespace {

constexpr int Width = 800, Height = 480;
constexpr int GlyphWidth = 16, GlyphHeight = 24;
constexpr int Columns = Width / GlyphWidth, Rows = Height / GlyphHeight;
constexpr std::uint32_t TextColour = 0x20C0FF, BackColour = 0x102030;

imagekit::FontShape shapeOf(int depth) {
    return {.Width = GlyphWidth, .Height = GlyphHeight, .Depth = static_cast<std::uint8_t>(depth)};
}

/// Strokes as letters have them: slanting, with an edge on either side, and room above and below.
std::uint8_t strokePixel(int depth, std::uint16_t code, int x, int y) {
    if (y < GlyphHeight / 6 || y >= GlyphHeight - GlyphHeight / 6) return 0;
    const int full = (1 << depth) - 1, distance = (x + y / 4 + code) % 8;
    return static_cast<std::uint8_t>(distance < 2 ? full : distance == 2 || distance == 7 ? full / 2 : 0);
}

/// A panel with a page of one colour and a font that fills the page in Columns x Rows characters.
class Page {
public:
    Page(int depth, bool opaque) : depth_(depth), text_(Columns * Rows) {
        const auto font = imagekit::EncodeFont(shapeOf(depth), [depth](std::uint16_t code) {
            imagekit::Glyph glyph{.Advance = GlyphWidth};
            for (int y = 0; y < GlyphHeight; ++y)
                for (int x = 0; x < GlyphWidth; ++x) glyph.Values.push_back(strokePixel(depth, code, x, y));
            return glyph;
        });
        TakeImage(font.Data);
        ColourMode = 1;
        ICType = 4;
        DisplayWidth = Width;
        DisplayHeight = Height;
        MakeSurfaces({Width, Height});
        PageImage = {.Address = 0, .Width = Width, .Height = Height, .Extra = 1, .Format = format::ZipImage};
        PageBackground.fill(Qt::darkGreen);
        style_ = {
            .font = FontAt(0), .anchor = 3, .colour = TextColour, .backColour = BackColour, .opaque = opaque};
        for (std::size_t i = 0; i < text_.size(); ++i) text_[i] = static_cast<std::uint8_t>(0x21 + i % 90);
    }

    void drawText() const { DrawTextFrame(style_, {}, {0, 0, Width - 1, Height - 1}, text_); }

    /// The same picture, a pixel at a time: what lies behind, then what the glyph lays over it.
    void drawPlainly() const {
        forEachCell([&](QPoint at, std::uint16_t code) {
            for (int y = 0; y < GlyphHeight; ++y)
                for (int x = 0; x < GlyphWidth; ++x)
                    setPlainly(at + QPoint(x, y), strokePixel(depth_, code, x, y));
        });
    }

    /// Pictures of the glyphs, ready to be laid over a page.
    std::vector<QImage> glyphPictures() const {
        std::vector<QImage> pictures;
        for (std::uint16_t code = 0; code < 0x80; ++code) {
            QImage picture(GlyphWidth, GlyphHeight, QImage::Format_ARGB32_Premultiplied);
            for (int y = 0; y < GlyphHeight; ++y)
                for (int x = 0; x < GlyphWidth; ++x) {
                    QColor colour(TextColour);
                    colour.setAlpha(strokePixel(depth_, code, x, y) * 255 / ((1 << depth_) - 1));
                    picture.setPixelColor(x, y, colour);
                }
            pictures.push_back(picture);
        }
        return pictures;
    }

    /// The background in one piece and the ready glyphs over it.
    void drawPictures(const std::vector<QImage>& glyphs) const {
        QPainter painter(&FrameSurface);
        if (style_.opaque)
            painter.fillRect(0, 0, Width, Height, QColor(BackColour));
        else
            painter.drawImage(0, 0, PageBackground);
        forEachCell([&](QPoint at, std::uint16_t code) { painter.drawImage(at, glyphs[code]); });
    }

private:
    template <class Draw>
    void forEachCell(const Draw& draw) const {
        for (int row = 0; row < Rows; ++row)
            for (int column = 0; column < Columns; ++column)
                draw(QPoint(column * GlyphWidth, row * GlyphHeight),
                     text_[static_cast<std::size_t>(row * Columns + column)]);
    }

    void setPlainly(QPoint at, int value) const {
        const int full = (1 << depth_) - 1;
        QColor colour(TextColour);
        const QColor back(BackColour);
        const auto mix = [&](int low, int high) { return (low * (full - value) + high * value) / full; };
        if (value == full)
            FrameSurface.setPixelColor(at, colour);
        else if (style_.opaque)
            FrameSurface.setPixelColor(at, QColor(mix(back.red(), colour.red()),
                                                  mix(back.green(), colour.green()),
                                                  mix(back.blue(), colour.blue())));
        else
            FrameSurface.setPixelColor(at, PageBackground.pixelColor(at));
        if (value == full || value == 0 || style_.opaque) return;
        colour.setAlpha(value * 0x12);
        QPainter painter(&FrameSurface);
        painter.setPen(colour);
        painter.drawPoint(at);
    }

    int depth_;
    std::vector<std::uint8_t> text_;
    TextStyle style_;
};

enum class Way { Text, Plain, Pictures };

void drawPage(benchmark::State& state, Way way, int depth, bool opaque) {
    const Page page(depth, opaque);
    const auto pictures = page.glyphPictures();
    for (auto _ : state) {
        if (way == Way::Text) page.drawText();
        if (way == Way::Plain) page.drawPlainly();
        if (way == Way::Pictures) page.drawPictures(pictures);
        benchmark::DoNotOptimize(FrameSurface.constBits());
    }
    state.counters["s/pixel"] = benchmark::Counter(
        double(Width) * Height, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

#define TEXT_PAGE(name, depth, opaque)                                                                       \
    BENCHMARK_CAPTURE(drawPage, name##_text, Way::Text, depth, opaque)->Unit(benchmark::kMicrosecond);       \
    BENCHMARK_CAPTURE(drawPage, name##_plain, Way::Plain, depth, opaque)->Unit(benchmark::kMicrosecond);     \
    BENCHMARK_CAPTURE(drawPage, name##_pictures, Way::Pictures, depth, opaque)->Unit(benchmark::kMicrosecond)
TEXT_PAGE(oneBit, 1, false);
TEXT_PAGE(oneBitOpaque, 1, true);
TEXT_PAGE(fourBit, 4, false);
TEXT_PAGE(fourBitOpaque, 4, true);

} // namespace
} // namespace panel
