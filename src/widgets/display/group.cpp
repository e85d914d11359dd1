#include "widgets/display/group.h"

#include "pages/display_kinds.h"
#include "pages/page_table.h"
#include "pages/stream_walker.h"

namespace panel {

void DrawGroupInRect(std::uint16_t page, std::uint16_t group, QRect host) {
    if (group == NoGroup || !GroupStreamPlace(page).valid()) return;
    StreamWalker walker(GroupStream.bytes(), Framing::Group);
    while (const auto record = walker.next()) {
        if (record->groupId != group) continue;
        const DisplayKind* kind = FindDisplayKind(record->kind());
        if (kind && kind->inGroups && kind->displayInGroup)
            kind->displayInGroup(Parameters(record->bytes), host);
    }
}

} // namespace panel
