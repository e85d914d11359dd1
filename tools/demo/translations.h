// The demo's texts in Chinese. English is the language that the pages are written in.
#pragma once

#include <QString>

namespace demo {

bool IsTranslated(const QString& english);
/// Empty for a text without a translation.
QString Chinese(const QString& english);

} // namespace demo
