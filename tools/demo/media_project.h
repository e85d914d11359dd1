// The second demo: a panel with the file-media chip, which plays numbered files that lie beside its image.
#pragma once

#include <QDir>

namespace demo {

/// Writes media.bin and the folders "Music" and "Video" with their files. Throws ImageError.
void WriteMediaProject(const QDir& directory);

} // namespace demo
