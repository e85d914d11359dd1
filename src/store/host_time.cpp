#include "store/host_time.h"

namespace panel {
namespace {

QDateTime FixedTime; // invalid: the computer's own

} // namespace

QDateTime HostTime() { return FixedTime.isValid() ? FixedTime : QDateTime::currentDateTime(); }
void SetHostTime(const QDateTime& time) { FixedTime = time; }

} // namespace panel
