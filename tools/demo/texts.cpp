#include "demo/texts.h"

#include "demo/translations.h"
#include "demo/words.h"

#include <QFontMetrics>

#include <algorithm>

namespace demo {
namespace {

/// As the panel sets it: glyph by glyph, without kerning.
int lineWidth(const QFontMetrics& metrics, const QString& line) {
    int width = 0;
    for (const QChar character : line) width += metrics.horizontalAdvance(character) + 1;
    return width;
}

int textWidth(const TextStyle& style, const QString& text) {
    const QFontMetrics metrics(ThemeFont(style));
    int widest = 0;
    for (const QString& line : text.split('\n')) widest = std::max(widest, lineWidth(metrics, line));
    return widest;
}

/// The box of a text that stands in `area` and may be wider than that.
QRect boxOf(const QRect& area, QSize text, Qt::Alignment alignment) {
    QRect box(area.topLeft(), QSize(std::max(area.width(), text.width()), text.height()));
    if (alignment & Qt::AlignRight) box.moveRight(area.right());
    if (alignment & Qt::AlignHCenter) box.moveLeft(area.x() + (area.width() - box.width()) / 2);
    if (alignment & Qt::AlignVCenter) box.moveTop(area.y() + (area.height() - box.height()) / 2);
    return box;
}

/// Of the panel's anchors those in the vertical middle.
std::uint8_t anchorOf(Qt::Alignment alignment) {
    if (alignment & Qt::AlignRight) return 2;
    return alignment & Qt::AlignHCenter ? 1 : 0;
}

} // namespace

int LineHeight(const TextStyle& style) { return QFontMetrics(ThemeFont(style)).height(); }

void Texts::need(const TextStyle& style, const QString& characters) {
    fonts_[faceOf(style)].characters += characters;
}

void Texts::addFonts() {
    for (auto& [face, font] : fonts_) {
        const auto& [size, weight] = face;
        const TextStyle style{size, static_cast<QFont::Weight>(weight), {}};
        font.index = image_.addFont(imagekit::SparseRasterFont(
            {.Width = static_cast<std::uint8_t>(size + 3),
             .Height = static_cast<std::uint8_t>(LineHeight(style)),
             .Depth = 4},
            {.Family = ThemeFaces(), .PixelSize = size, .Weight = weight}, font.characters));
    }
}

imagekit::Label Texts::caption(const Caption& caption) {
    const QString chinese = Chinese(caption.words);
    const int width = std::max(textWidth(caption.style, caption.words), textWidth(caption.style, chinese));
    const int height = LineHeight(caption.style) * (caption.words.count('\n') + 1);
    imagekit::Label shown =
        label(boxOf(caption.area, QSize(width, height), caption.alignment), caption.style, caption.alignment);
    shown.String = string(caption);
    return shown;
}

imagekit::Label Texts::variableText(const QRect& area, std::uint16_t address, const TextStyle& style,
                                    Qt::Alignment alignment) {
    const QRect box = boxOf(area, QSize(0, LineHeight(style)), alignment);
    imagekit::Label shown = label(box, style, alignment);
    shown.TextAddress = address;
    shown.TextLength = words::TextWords;
    return shown;
}

std::uint16_t Texts::string(const Caption& caption) {
    const std::uint8_t index = font(caption.style);
    const auto [known, isNew] = strings_.try_emplace({caption.words, index, caption.style.colour.rgb()});
    if (!isNew) return known->second;
    const std::uint16_t string = image_.addString({caption.words, index, caption.style.colour});
    image_.setString(string, ChineseLanguage,
                     imagekit::LanguageText{Chinese(caption.words), index, caption.style.colour});
    return known->second = string;
}

imagekit::Label Texts::label(const QRect& box, const TextStyle& style, Qt::Alignment alignment) const {
    return {.X1 = static_cast<std::uint16_t>(box.left()),
            .Y1 = static_cast<std::uint16_t>(box.top()),
            .X2 = static_cast<std::uint16_t>(box.right()),
            .Y2 = static_cast<std::uint16_t>(box.bottom()),
            .Colour = image_.colour(style.colour),
            .Font = font(style),
            .Anchor = anchorOf(alignment)};
}

} // namespace demo
