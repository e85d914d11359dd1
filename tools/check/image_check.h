// Lists what is wrong with a panel image. Nothing of it runs, and any bytes will do.
#pragma once

#include "check/findings.h"

#include <QString>

#include <optional>

namespace check {

/// Checks the FlashImage. `mediaDirectory` is that of the music and video files; without one they are not
/// looked for. While no engine runs: settings, user words, language, media directory and IllegalImage are
/// those of the image afterwards.
Report CheckImage(const std::optional<QString>& mediaDirectory);

} // namespace check
