#include "replay/report.h"

namespace replay {

// Whoever drives the panel through pipes waits for each line, so each is flushed.

void Report::answer(const QString& line) { *answers_ << line.toStdString() << '\n' << std::flush; }

void Report::diagnose(const QString& message) {
    *diagnostics_ << script_.toStdString() << ':' << line_ << ": " << message.toStdString() << '\n'
                  << std::flush;
}

void Report::fail(const QString& message) {
    failed_ = true;
    diagnose(message);
}

} // namespace replay
