// What a run says: answers on one stream, diagnostics with their place in the script on the other.
#pragma once

#include <QString>

#include <ostream>
#include <utility>

namespace replay {

class Report {
public:
    /// `script` is the name in front of every diagnostic. The streams outlive the report.
    Report(QString script, std::ostream& answers, std::ostream& diagnostics)
        : script_(std::move(script)), answers_(&answers), diagnostics_(&diagnostics) {}

    /// The line that is carried out now: its number, from 1, and its text.
    void setLine(int line, QString source) {
        line_ = line;
        source_ = std::move(source);
    }
    int line() const { return line_; }
    const QString& source() const { return source_; }
    const QString& script() const { return script_; }

    void answer(const QString& line);
    void diagnose(const QString& message);
    /// A diagnostic that makes the run a failed one.
    void fail(const QString& message);
    bool failed() const { return failed_; }

private:
    QString script_;
    std::ostream* answers_;
    std::ostream* diagnostics_;
    int line_ = 0;
    QString source_;
    bool failed_ = false;
};

} // namespace replay
