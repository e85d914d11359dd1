// What the records of the streams name: that it exists, and that what they place lies on the panel.
#pragma once

#include "check/findings.h"
#include "check/media_check.h"
#include "check/references.h"
#include "check/usage.h"
#include "pages/parameters.h"

#include <QRect>
#include <QSize>

#include <cstddef>
#include <cstdint>
#include <set>

namespace check {

/// What the records of a page may name of it.
struct PageFacts {
    std::uint16_t number = 0;
    QSize list{}; // of the picture of the sliding list; empty: the page has none
    std::set<std::uint16_t> groups{};
    std::set<std::uint16_t> presets{};
};

struct Record {
    const Place& place;
    const PageFacts& page;
    std::uint16_t code;         // as in Reference
    const panel::Parameters& p; // its fields
    std::size_t end;            // the record offset behind the last field that it has
    bool inGroup = false;
};

class RecordCheck {
public:
    /// `usage` takes down what the records use.
    RecordCheck(Findings& findings, Usage& usage, MediaFiles& media)
        : findings_(findings), usage_(usage), media_(media) {}

    void check(const Record& record);
    /// A word that something of the page writes.
    void checkWrite(const Place& place, const PageFacts& page, const char* role, std::uint16_t address,
                    std::uint16_t value);

private:
    void checkReference(const Record& record, const Reference& row, std::size_t at);
    void checkName(const Record& record, const Reference& row, std::uint16_t value);
    void checkWord(const Place& place, const Reference& row, std::uint32_t address, std::uint32_t words);
    void checkPage(const Place& place, const char* role, std::uint32_t page);
    void checkGroup(const Record& record, std::uint16_t group);
    void checkPresets(const Record& record, std::uint32_t first, std::uint32_t count);
    void checkString(const Place& place, std::uint16_t index);
    void checkSound(const Place& place, std::uint16_t code);
    void checkVideo(const Place& place, std::uint16_t number);
    void checkSpot(const Record& record, QPoint at);
    void checkRect(const Record& record, What what, QRect rect);

    /// `count` rows of a table of `have` from `first` on. False when it does not have all of them.
    bool checkRows(const Place& place, const char* role, const char* noun, std::uint32_t first,
                   std::uint32_t count, std::uint32_t have);
    void checkPictures(const Place& place, const Reference& row, std::uint32_t first, std::uint32_t count,
                       MarkedRuns& used);
    /// One row, which is marked when there is one.
    template <std::size_t Count>
    void markRow(const Place& place, const Reference& row, const char* noun, std::uint32_t index,
                 std::uint32_t have, std::bitset<Count>& used);

    Findings& findings_;
    Usage& usage_;
    MediaFiles& media_;
};

} // namespace check
