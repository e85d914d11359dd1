// The texts of the demo in its image: sparse fonts that hold just the characters in use, strings in all
// languages, and the labels that show them.
#pragma once

#include "demo/canvas.h"

#include "imagekit/image_builder.h"
#include "imagekit/value_widgets.h"

#include <cstdint>
#include <map>
#include <tuple>
#include <utility>

namespace demo {

enum LanguageId : std::uint8_t { English, ChineseLanguage };
inline constexpr std::uint8_t LanguageIds = 2;

class Texts {
public:
    explicit Texts(imagekit::ImageBuilder& image) : image_(image) {}

    /// Notes what a font is to hold: first all characters, then addFonts(), then labels.
    void need(const TextStyle& style, const QString& characters);
    void addFonts();

    imagekit::Label caption(const Caption& caption);
    /// A text of the store at `address`, on one line.
    imagekit::Label variableText(const QRect& area, std::uint16_t address, const TextStyle& style,
                                 Qt::Alignment alignment);
    std::uint8_t font(const TextStyle& style) const { return fonts_.at(faceOf(style)).index; }

private:
    using FaceKey = std::pair<int, int>; // size and weight
    struct Font {
        QString characters;
        std::uint8_t index = 0;
    };

    static FaceKey faceOf(const TextStyle& style) { return {style.size, style.weight}; }
    std::uint16_t string(const Caption& caption);
    imagekit::Label label(const QRect& box, const TextStyle& style, Qt::Alignment alignment) const;

    imagekit::ImageBuilder& image_;
    std::map<FaceKey, Font> fonts_;
    std::map<std::tuple<QString, std::uint8_t, QRgb>, std::uint16_t> strings_; // texts that pages share
};

/// Height of a line of that style, px.
int LineHeight(const TextStyle& style);

} // namespace demo
