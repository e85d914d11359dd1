// The traces that a picture leaves behind which was not as expected.
#pragma once

#include "replay/report.h"

#include <QImage>
#include <QString>

namespace replay {

/// Writes into `directory`, which is made when needed, SCRIPT.LINE.actual.png, .difference.png (unless null),
/// .words.txt with all words of the store, and .line.txt with the line of the script. Throws CommandError
/// when a file cannot be written.
void KeepEvidence(const QString& directory, const Report& report, const QImage& actual,
                  const QImage& difference);

} // namespace replay
