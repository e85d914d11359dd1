#include "demo/theme.h"

#include <QFontDatabase>

namespace demo {
namespace {

QString findFace() {
    const QStringList installed = QFontDatabase().families();
    for (const QString& face : {QStringLiteral("Inter"), QStringLiteral("Open Sans")})
        if (installed.contains(face)) return face;
    return QFont().family();
}

} // namespace

QColor Tint(const QColor& colour, int percent) {
    QColor tinted = colour;
    tinted.setAlpha(255 * percent / 100);
    return tinted;
}

QString ThemeFaces() {
    // The second one has the Chinese characters that the first lacks.
    static const QString faces = findFace() + ",WenQuanYi Micro Hei";
    return faces;
}

QFont ThemeFont(const TextStyle& style) {
    QFont font(ThemeFaces());
    font.setPixelSize(style.size);
    font.setWeight(style.weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

} // namespace demo
