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

QFont ThemeFont(const TextStyle& style) {
    static const QString face = findFace();
    QFont font(face);
    font.setPixelSize(style.size);
    font.setWeight(style.weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

} // namespace demo
