// The pages of an image: their streams, the records in them, their presets.
#pragma once

#include "check/findings.h"
#include "check/record_check.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"

#include <cstdint>
#include <map>

namespace check {

/// One page.
class PageCheck {
public:
    PageCheck(Findings& findings, RecordCheck& records, std::uint16_t page);

    void check();

private:
    struct Stream {
        const char* name;
        panel::Framing framing;
        std::size_t capacity; // bytes
    };
    static const Stream Display, Group, Touch;

    Place placeOf(const char* part, std::uint32_t offset) const;
    void takeFacts();
    using CheckRecordOf = void (PageCheck::*)(const Place&, const panel::StreamRecord&);
    void checkStream(const Stream& stream, panel::StreamPlace place, CheckRecordOf checkRecord);
    void checkDisplayRecord(const Place& place, const panel::StreamRecord& record);
    void checkGroupRecord(const Place& place, const panel::StreamRecord& record);
    void checkTouchRecord(const Place& place, const panel::StreamRecord& record);
    void checkList(const Place& place, const panel::Parameters& p);
    /// Counts a record of a kind of which a page holds so many (0: any number).
    void countRow(const Place& place, std::uint16_t code, std::size_t capacity);
    void checkParameters(const Place& place, const panel::StreamRecord& record, bool inGroup);
    void checkMenu(const Place& place, const panel::StreamRecord& record);
    void checkPresets();

    Findings& findings_;
    RecordCheck& records_;
    PageFacts facts_;
    std::map<std::uint16_t, std::size_t> rows_; // by kind or family
};

} // namespace check
