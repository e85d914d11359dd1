#include "widgets/display/group.h"

#include "pages/display_kinds.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"

namespace panel {

void DrawGroupInRect(std::uint16_t page, std::uint16_t group, QRect host) {
    ForEachInGroup(page, group, [host](const DisplayKind& kind, const Parameters& p) {
        if (kind.displayInGroup) kind.displayInGroup(p, host);
    });
}

void ForEachInGroup(std::uint16_t page, std::uint16_t group,
                    const std::function<void(const DisplayKind&, const Parameters&)>& visit) {
    if (group == NoGroup || !GroupStreamPlace(page).valid()) return;
    StreamWalker walker(GroupStream.bytes(), Framing::Group);
    while (const auto record = walker.next()) {
        if (record->groupId != group) continue;
        const DisplayKind* kind = FindDisplayKind(record->kind());
        if (kind && kind->inGroups) visit(*kind, ReadParameters(*kind, record->bytes));
    }
}

} // namespace panel
