#include "check/findings.h"

#include <QString>

#include <cstdarg>
#include <string_view>
#include <utility>

namespace check {
namespace {

constexpr std::string_view Page = "page";

std::string counted(int count, const char* noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string subjectText(const char* name, int number) {
    return number < 0 ? name : name + (' ' + std::to_string(number));
}

std::string placeText(const Place& place) {
    std::string text = subjectText(place.subject, place.number);
    if (place.language > 0) text += " of language " + std::to_string(place.language);
    if (place.part) text += ' ' + std::string(place.part);
    return text + QString::asprintf(" at 0x%08x", place.offset).toStdString();
}

const char* severityText(Severity severity) { return severity == Severity::Error ? "error: " : "warning: "; }

} // namespace

std::string Summary(const Report& report) {
    const std::string errors = report.errors == 0 ? "no errors" : counted(report.errors, "error");
    return report.warnings == 0 ? errors : errors + ", " + counted(report.warnings, "warning");
}

void Findings::error(const Place& place, const char* format, ...) {
    if (!count(Severity::Error, place)) return;
    va_list arguments;
    va_start(arguments, format);
    list(Severity::Error, place, QString::vasprintf(format, arguments).toStdString());
    va_end(arguments);
}

void Findings::warning(const Place& place, const char* format, ...) {
    if (!count(Severity::Warning, place)) return;
    va_list arguments;
    va_start(arguments, format);
    list(Severity::Warning, place, QString::vasprintf(format, arguments).toStdString());
    va_end(arguments);
}

bool Findings::count(Severity severity, const Place& place) {
    const Subject subject{place.subject, place.subject == Page ? place.number : -1};
    if (subject != subject_) {
        closeSubject();
        subject_ = subject;
    }
    ++(severity == Severity::Error ? report_.errors : report_.warnings);
    if (listed_ < MostOfSubject) {
        ++listed_;
        return true;
    }
    ++(severity == Severity::Error ? moreErrors_ : moreWarnings_);
    return false;
}

void Findings::list(Severity severity, const Place& place, const std::string& message) {
    report_.findings.push_back({severity, severityText(severity) + placeText(place) + ": " + message});
}

void Findings::closeSubject() {
    listed_ = 0;
    const int errors = std::exchange(moreErrors_, 0), warnings = std::exchange(moreWarnings_, 0);
    if (errors + warnings == 0) return;
    const Severity severity = errors != 0 ? Severity::Error : Severity::Warning;
    report_.findings.push_back({severity, severityText(severity) + subjectText(subject_.name, subject_.page)
                                              + ": not listed here: " + counted(errors, "error") + ", "
                                              + counted(warnings, "warning")});
}

Report Findings::finish() {
    closeSubject();
    return std::move(report_);
}

} // namespace check
