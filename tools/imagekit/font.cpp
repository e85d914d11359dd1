#include "imagekit/font.h"

#include "imagekit/image_error.h"

#include "store/variable_text.h"

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QTextCodec>

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>

namespace imagekit {
namespace {

constexpr std::uint16_t AsciiFirst = 0x20, AsciiLast = 0x7E;
constexpr std::size_t LargestCodeCount = 0xFFFF;
constexpr std::size_t GlyphsOffset = 0x68;

struct KindTraits {
    FontKind kind;
    const char* letters;   // of the head
    const char* codecName; // of the double-byte kinds
};
constexpr KindTraits Kinds[] = {
    {FontKind::Gb2312, "GB", "GBK"}, {FontKind::Gbk, "GK", "GBK"}, {FontKind::Big5, "BG", "Big5"},
    {FontKind::Ascii, "AS", ""},     {FontKind::Wide, "--", ""},   {FontKind::Proportional, "un", ""},
    {FontKind::Sparse, "SS", ""},
};
const KindTraits& traitsOf(FontKind kind) { return *std::ranges::find(Kinds, kind, &KindTraits::kind); }

bool isDoubleByte(FontKind kind) {
    return kind == FontKind::Gb2312 || kind == FontKind::Gbk || kind == FontKind::Big5;
}
bool hasRange(FontKind kind) { return kind == FontKind::Wide || kind == FontKind::Proportional; }

std::string nameOf(const FontShape& shape) {
    return std::string("font \"") + traitsOf(shape.Kind).letters + "\" of " + std::to_string(shape.Width)
           + " x " + std::to_string(shape.Height);
}

void check(const FontShape& shape) {
    const auto refuse = [&](const std::string& what) { throw ImageError(nameOf(shape), what); };
    if (shape.Width == 0 || shape.Height == 0) refuse("a cell without pixels");
    if (shape.Depth != 1 && shape.Depth != 2 && shape.Depth != 4)
        refuse(std::to_string(shape.Depth) + " bits a pixel, only 1, 2 or 4");
    if (hasRange(shape.Kind) && shape.FirstCode > shape.LastCode) refuse("the last code is below the first");
    if (shape.Kind != FontKind::Sparse) return;
    if (shape.Codes.size() > LargestCodeCount) refuse(AtMost(shape.Codes.size(), "codes", LargestCodeCount));
    const std::set<std::uint16_t> different(shape.Codes.begin(), shape.Codes.end());
    if (different.size() != shape.Codes.size()) refuse("a code stands twice in the list");
    if (different.contains(0) || different.contains('\n')) refuse("codes 0 and 10 end texts and lines");
}

std::vector<std::uint16_t> pairs(int firstLead, int lastLead,
                                 std::initializer_list<std::pair<int, int>> seconds) {
    std::vector<std::uint16_t> codes;
    for (int lead = firstLead; lead <= lastLead; ++lead)
        for (const auto& [first, last] : seconds)
            for (int second = first; second <= last; ++second)
                codes.push_back(static_cast<std::uint16_t>(lead << 8 | second));
    return codes;
}

/// The codes behind the ASCII characters, in the order of their glyphs.
std::vector<std::uint16_t> codesOf(const FontShape& shape) {
    switch (shape.Kind) {
    case FontKind::Gb2312: return pairs(0xA1, 0xFE, {{0xA1, 0xFE}});
    case FontKind::Gbk: return pairs(0x81, 0xFE, {{0x40, 0x7E}, {0x80, 0xFE}});
    case FontKind::Big5: return pairs(0xA1, 0xFF, {{0x40, 0x7F}, {0xA0, 0xFF}});
    case FontKind::Sparse: return shape.Codes;
    case FontKind::Ascii: return {};
    case FontKind::Wide:
    case FontKind::Proportional: break;
    }
    std::vector<std::uint16_t> codes;
    for (int code = shape.FirstCode; code <= shape.LastCode; ++code)
        codes.push_back(static_cast<std::uint16_t>(code));
    return codes;
}

class FontWriter {
public:
    FontWriter(const FontShape& shape, const GlyphSource& glyphs) : shape_(shape), glyphs_(glyphs) {}

    Bytes write() {
        const auto codes = codesOf(shape_);
        putHead(codes.size());
        if (shape_.Kind == FontKind::Sparse)
            for (const std::uint16_t code : codes) out_.u16(code);
        else
            putAscii();
        const bool hasWidths = shape_.Kind == FontKind::Sparse || shape_.Kind == FontKind::Proportional;
        for (const std::uint16_t code : codes) {
            const Glyph glyph = glyphs_(code);
            if (hasWidths) out_.u8(glyph.Advance);
            putPixels(glyph);
        }
        return out_.take();
    }

private:
    void putHead(std::size_t codeCount) {
        const bool sparse = shape_.Kind == FontKind::Sparse;
        out_.text(traitsOf(shape_.Kind).letters).u8(shape_.Width).u8(shape_.Height);
        out_.u16(sparse ? static_cast<std::uint32_t>(codeCount) : shape_.FirstCode).u16(shape_.LastCode);
        out_.u8(shape_.Depth / 2u); // 1, 2, 4 bits are 0, 1, 2
    }

    void putAscii() {
        std::vector<Glyph> ascii;
        for (std::uint16_t code = AsciiFirst; code <= AsciiLast; ++code) ascii.push_back(glyphs_(code));
        for (const Glyph& glyph : ascii) out_.u8(glyph.Advance);
        out_.zerosUpTo(GlyphsOffset);
        for (const Glyph& glyph : ascii) putPixels(glyph);
    }

    void putPixels(const Glyph& glyph) {
        const std::size_t width = shape_.Width, rowBytes = (shape_.Depth * width + 7) / 8;
        if (glyph.Values.empty()) {
            out_.zeros(rowBytes * shape_.Height);
            return;
        }
        if (glyph.Values.size() != width * shape_.Height)
            throw ImageError(nameOf(shape_), std::to_string(glyph.Values.size()) + " pixels in a glyph");
        for (auto row = glyph.Values.begin(); row != glyph.Values.end(); row += shape_.Width)
            putRow(row, rowBytes);
    }

    void putRow(std::vector<std::uint8_t>::const_iterator values, std::size_t rowBytes) {
        Bytes row(rowBytes);
        for (std::size_t x = 0; x < shape_.Width; ++x) {
            const std::size_t bit = x * shape_.Depth;
            const unsigned value = values[static_cast<std::ptrdiff_t>(x)] & ((1u << shape_.Depth) - 1);
            row[bit / 8] = static_cast<std::uint8_t>(row[bit / 8] | value << (8 - shape_.Depth - bit % 8));
        }
        out_.bytes(row);
    }

    const FontShape& shape_;
    const GlyphSource& glyphs_;
    ByteWriter out_;
};

/// The character of a code; empty where the code names none.
QString characterOf(FontKind kind, std::uint16_t code) {
    if (code >= AsciiFirst && code <= AsciiLast) return QChar(code);
    if (!isDoubleByte(kind)) return QChar(code).isPrint() ? QString(QChar(code)) : QString();
    const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code)};
    QTextCodec::ConverterState state;
    const QString text = QTextCodec::codecForName(traitsOf(kind).codecName)->toUnicode(bytes, 2, &state);
    return state.invalidChars == 0 && text.size() == 1 && text[0].isPrint() ? text : QString();
}

/// Draws the glyphs of a face, one at a time, in a picture of the size of the cell.
class FacePainter {
public:
    FacePainter(const FontShape& shape, const Face& face)
        : shape_(shape), face_(face), font_(face.Family),
          cell_(shape.Width, shape.Height, QImage::Format_Grayscale8) {
        font_.setPixelSize(face.PixelSize > 0 ? face.PixelSize : shape.Height);
        font_.setWeight(face.Weight);
        font_.setStyleStrategy(shape.Depth == 1 ? QFont::NoAntialias : QFont::PreferAntialias);
    }

    Glyph glyph(std::uint16_t code) {
        const QString character = characterOf(shape_.Kind, code);
        if (character.isEmpty()) return {};
        const QFontMetrics metrics(font_);
        const int advance = std::clamp(metrics.horizontalAdvance(character), 1, int{shape_.Width});
        Glyph glyph{.Advance = static_cast<std::uint8_t>(advance)};
        if (!face_.Characters.isEmpty() && !face_.Characters.contains(character)) return glyph;
        draw(character, metrics);
        const int full = (1 << shape_.Depth) - 1;
        for (int y = 0; y < cell_.height(); ++y)
            for (int x = 0; x < cell_.width(); ++x)
                glyph.Values.push_back(
                    static_cast<std::uint8_t>((cell_.constScanLine(y)[x] * full + 127) / 255));
        return glyph;
    }

private:
    void draw(const QString& character, const QFontMetrics& metrics) {
        // The line of the text lies where ascent and descent share the cell as they share the face's height.
        const int baseline = static_cast<int>(
            std::lround(double(shape_.Height) * metrics.ascent() / std::max(1, metrics.height())));
        cell_.fill(Qt::black);
        QPainter painter(&cell_);
        painter.setFont(font_);
        painter.setPen(Qt::white);
        painter.drawText(0, baseline, character);
    }

    const FontShape& shape_;
    const Face& face_;
    QFont font_;
    QImage cell_;
};

std::uint32_t scrambled(std::uint32_t number) {
    number = (number ^ number >> 16) * 0x45D9F3Bu;
    number = (number ^ number >> 16) * 0x45D9F3Bu;
    return number ^ number >> 16;
}

panel::TextEncoding encodingOf(FontKind kind) {
    switch (kind) {
    case FontKind::Gb2312: return panel::TextEncoding::GB2312;
    case FontKind::Big5: return panel::TextEncoding::Big5;
    case FontKind::Wide:
    case FontKind::Proportional:
    case FontKind::Sparse: return panel::TextEncoding::Unicode;
    default: return panel::TextEncoding::GBK;
    }
}

} // namespace

StoredFont EncodeFont(const FontShape& shape, const GlyphSource& glyphs) {
    check(shape);
    return {shape.Kind, FontWriter(shape, glyphs).write()};
}

StoredFont RasterFont(const FontShape& shape, const Face& face) {
    const auto painter = std::make_shared<FacePainter>(shape, face);
    return EncodeFont(shape, [painter](std::uint16_t code) { return painter->glyph(code); });
}

StoredFont SparseRasterFont(FontShape shape, Face face, const QString& characters) {
    shape.Kind = FontKind::Sparse;
    shape.Codes.clear();
    for (const QChar character : characters)
        if (character.isPrint() && std::ranges::count(shape.Codes, character.unicode()) == 0)
            shape.Codes.push_back(character.unicode());
    face.Characters.clear();
    return RasterFont(shape, face);
}

StoredFont SyntheticFont(const FontShape& shape) {
    return EncodeFont(shape, [&shape](std::uint16_t code) {
        Glyph glyph{.Advance = SyntheticAdvance(shape, code)};
        for (int y = 0; y < shape.Height; ++y)
            for (int x = 0; x < shape.Width; ++x) glyph.Values.push_back(SyntheticPixel(shape, code, x, y));
        return glyph;
    });
}

std::uint8_t SyntheticPixel(const FontShape& shape, std::uint16_t code, int x, int y) {
    const auto place = static_cast<std::uint32_t>(y << 8 | x);
    return static_cast<std::uint8_t>(scrambled(std::uint32_t{code} << 16 | place)
                                     & ((1u << shape.Depth) - 1));
}

std::uint8_t SyntheticAdvance(const FontShape& shape, std::uint16_t code) {
    return static_cast<std::uint8_t>(std::min(255u, 1 + scrambled(code) % (shape.Width + 2u)));
}

Bytes EncodeText(const QString& text, FontKind kind) {
    const auto where = "text \"" + text.toStdString() + '"';
    const panel::TextEncoding encoding = encodingOf(kind);
    const panel::EncodedText encoded = panel::EncodeText(text, encoding);
    const int endBytes = encoding == panel::TextEncoding::Unicode ? 2 : 1;
    Bytes bytes(encoded.bytes.begin(), encoded.bytes.end() - endBytes);
    const bool outside = kind == FontKind::Ascii
                         && std::ranges::any_of(bytes, [](std::uint8_t byte) { return byte > AsciiLast; });
    if (encoded.replaced > 0 || outside)
        throw ImageError(where, std::string("has characters that \"") + traitsOf(kind).letters + "\" lacks");
    return bytes;
}

} // namespace imagekit
