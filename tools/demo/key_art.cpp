#include "demo/key_art.h"

#include "demo/canvas.h"

#include "imagekit/icon_widgets.h"

#include <QLinearGradient>

#include <functional>

namespace demo {
namespace {

QImage underFinger(QImage picture, const QRectF& lit, int radius) {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Tint(colour::Text, 55), 1.5));
    painter.setBrush(Tint(colour::Text, 22));
    painter.drawRoundedRect(lit.adjusted(0.75, 0.75, -0.75, -0.75), radius, radius);
    return picture;
}

QImage transparentPicture(QSize size, const std::function<void(Canvas&)>& paint) {
    Canvas canvas(size, Qt::transparent);
    paint(canvas);
    return canvas.take().image;
}

} // namespace

KeyLooks KeyArt::cut(PageId page, const QRect& piece, const QRect& lit, int radius) {
    const QImage normal = pages_[page].image.copy(piece);
    return {opaque(normal), opaque(underFinger(normal, lit.translated(-piece.topLeft()), radius))};
}

std::uint16_t KeyArt::add(const QImage& picture, std::uint8_t format) {
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    QByteArray key(reinterpret_cast<const char*>(pixels.constBits()), static_cast<int>(pixels.sizeInBytes()));
    key.append(static_cast<char>(format)).append(QByteArray::number(pixels.width()));
    const auto known = known_.find(key);
    if (known != known_.end()) return known->second;
    return known_[key] = image_.addPicture(imagekit::Pixels{pixels, format});
}

QImage SwitchPicture(QSize size, SwitchLook look) {
    return transparentPicture(size, [&](Canvas& canvas) {
        const QRectF area({0, 0}, size);
        const qreal knob = area.height() - 8;
        const qreal room = area.width() - 8 - knob;
        canvas.painter().fillRect(area, colour::Card);
        canvas.switchTrack(area.toRect());
        if (look == SwitchLook::On) canvas.rounded(area, area.height() / 2, colour::Eco);
        if (look == SwitchLook::Pressed) canvas.rounded(area, area.height() / 2, colour::Track);
        const qreal moved = look == SwitchLook::Off ? 0 : look == SwitchLook::On ? room : room / 2;
        const qreal wider = look == SwitchLook::Pressed ? 4 : 0;
        canvas.rounded(QRectF(4 + moved - wider, 4, knob + 2 * wider, knob), knob / 2,
                       look == SwitchLook::Off ? colour::Muted : colour::Text);
    });
}

QImage SliderFill(QSize size, const QColor& from, const QColor& to) {
    return transparentPicture(size, [&](Canvas& canvas) {
        const QRectF area({0, 0}, size);
        QLinearGradient range(area.topLeft(), area.topRight());
        range.setColorAt(0, from);
        range.setColorAt(1, to);
        canvas.rounded(area, area.height() / 2, range);
    });
}

QImage SliderThumb(int diameter) {
    return transparentPicture({diameter, diameter}, [&](Canvas& canvas) {
        canvas.rounded(QRectF(0, 0, diameter, diameter), diameter / 2.0, Tint(Qt::black, 30));
        canvas.rounded(QRectF(2, 2, diameter - 4, diameter - 4), diameter / 2.0 - 2, colour::Text);
        canvas.rounded(QRectF(8, 8, diameter - 16, diameter - 16), diameter / 2.0 - 8, colour::Track);
    });
}

QImage ChosenMark(int diameter, const QColor& colour) {
    return transparentPicture({diameter, diameter}, [&](Canvas& canvas) {
        canvas.rounded(QRectF(0, 0, diameter, diameter), diameter / 2.0, colour);
        const qreal unit = diameter / 16.0;
        canvas.line({4.5 * unit, 8.2 * unit}, {7 * unit, 10.8 * unit}, colour::Rail, 1.8);
        canvas.line({7 * unit, 10.8 * unit}, {11.5 * unit, 5.6 * unit}, colour::Rail, 1.8);
    });
}

QImage Dot(int diameter, const QColor& colour) {
    return transparentPicture({diameter, diameter}, [&](Canvas& canvas) {
        canvas.rounded(QRectF(0, 0, diameter, diameter), diameter / 2.0, colour);
    });
}

QImage DrumStrip(const std::vector<QString>& cells, QSize cell, bool selected) {
    const TextStyle look =
        selected ? TextStyle{22, QFont::DemiBold, colour::Text} : TextStyle{17, QFont::Normal, colour::Faint};
    Canvas canvas({cell.width(), cell.height() * static_cast<int>(cells.size())},
                  selected ? colour::Raised : colour::Well);
    QRect place({0, 0}, cell);
    for (const QString& text : cells) {
        canvas.text(place, text, look, Qt::AlignCenter);
        place.translate(0, cell.height());
    }
    return canvas.take().image;
}

void AddSwitch(imagekit::Page& page, KeyArt& art, const QRect& area, std::uint16_t word,
               const QString& name) {
    const auto picture = [&](SwitchLook look) { return art.opaque(SwitchPicture(area.size(), look)); };
    page.add(imagekit::StepKey{.Where = AreaOf(area),
                               .Address = word,
                               .Type = imagekit::BitOfWord(0),
                               .PressImage = picture(SwitchLook::Pressed)});
    page.add(imagekit::BitIcon{.ValueAddress = word,
                               .X = U16(area.x()),
                               .Y = U16(area.y()),
                               .ClearImage = picture(SwitchLook::Off),
                               .SetImage = picture(SwitchLook::On)},
             name);
}

void AddSlider(imagekit::Page& page, KeyArt& art, const QRect& track, std::uint16_t word,
               const SliderScale& scale, const QString& name) {
    constexpr int reach = 18; // px beside the track that a finger may miss it by
    page.add(imagekit::Slider{.FillX = U16(track.x()),
                              .FillY = U16(track.y()),
                              .FillImage = art.withAlpha(SliderFill(track.size(), scale.from, scale.to)),
                              .Address = word,
                              .Where = AreaOf(track.adjusted(0, -reach, 1, reach)),
                              .ThumbImage = art.withAlpha(SliderThumb(26)),
                              .Highest = static_cast<std::int16_t>(scale.highest),
                              .Lowest = static_cast<std::int16_t>(scale.lowest)},
             name);
}

} // namespace demo
