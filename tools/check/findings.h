// What a check of an image has found: one line a finding, in the order of the check.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace check {

/// An error is something that the image names and that is not there, or that does not fit. A warning shows on
/// the panel otherwise than it looks in the image, and may be meant.
enum class Severity : std::uint8_t { Error, Warning };

struct Finding {
    Severity severity;
    std::string line; // "error: page 3 ringGauge at 0x0001a2c4: font 12 does not exist (the image has 4)"
};

struct Report {
    std::vector<Finding> findings;
    // Of all findings, also of those that are not listed.
    int errors = 0;
    int warnings = 0;
};
/// "2 errors, 1 warning", "no errors, 1 warning", or "no errors".
std::string Summary(const Report& report);

/// What a finding is about.
struct Place {
    const char* subject;        // "head", "page", "picture"
    int number = -1;            // of the page or table row; -1: the subject has none
    int language = 0;           // of a table row; 0 is not told
    const char* part = nullptr; // of a page: the kind of the widget, or the stream
    std::uint32_t offset = 0;   // in the image
};

/// Takes findings. So that a broken image cannot flood anybody, a page lists so many of them and then tells
/// how many there are beside, and so do all rows of a table together. A check of many pages gives up when
/// there are too many in all.
class Findings {
public:
    static constexpr int MostOfSubject = 40;
    static constexpr int MostInAll = 20000;

    // The message is made as by printf().
    [[gnu::format(printf, 3, 4)]] void error(const Place& place, const char* format, ...);
    [[gnu::format(printf, 3, 4)]] void warning(const Place& place, const char* format, ...);

    bool areTooMany() const { return report_.errors + report_.warnings >= MostInAll; }

    /// Everything so far; nothing may be added afterwards.
    Report finish();

private:
    struct Subject {
        const char* name = nullptr;
        int page = -1;
        bool operator==(const Subject&) const = default;
    };

    /// Counts a finding. False when it is one too many to be listed.
    bool count(Severity severity, const Place& place);
    void list(Severity severity, const Place& place, const std::string& message);
    void closeSubject();

    Report report_;
    Subject subject_;
    int listed_ = 0;
    int moreErrors_ = 0, moreWarnings_ = 0;
};

} // namespace check
