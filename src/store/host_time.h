// The computer's date and time, from which the panel's clock starts.
#pragma once

#include <QDateTime>

namespace panel {

/// Local date and time of the computer, or what SetHostTime() fixed.
QDateTime HostTime();

/// Fixes the host time, so that two runs show the same; an invalid time frees it. Before the engine starts.
void SetHostTime(const QDateTime& time);

} // namespace panel
