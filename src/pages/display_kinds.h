// The kinds of display widgets: one row a kind tells how the page display, the refreshes and the groups treat
// its records. Engine thread.
#pragma once

#include "pages/parameters.h"
#include "pages/value_runs.h"

#include <QRect>

#include <cstdint>
#include <span>

namespace panel {

/// How a refresh treats the records of a kind.
enum class Refresh : std::uint8_t {
    None,
    ByValue, // drawn anew when something that the record depends on has changed
    ByRow    // the kind looks after its table row itself; of the record only the block is brought in line
};

struct DisplayKind {
    std::uint16_t code; // the type word under KindMask
    const char* name;
    /// The bytes of the store that a record depends on; null: none.
    StoreRuns (*dependsOn)(const Parameters&) = nullptr;
    /// Draws the widget from nothing, and sets up its table row where the kind has one; null: draws nothing.
    void (*display)(const Parameters&) = nullptr;
    /// Draws the widget on the WorkSurface, whose (0, 0) stands for the top left corner of `host`.
    void (*displayInGroup)(const Parameters&, QRect host) = nullptr;
    /// Forgets what the kind holds of the page before.
    void (*forget)() = nullptr;
    /// Counts the records of the kind that a walk has passed; 0 outside of walks. For kinds that tell their
    /// records apart by this number.
    std::size_t* cursor = nullptr;
    /// Records of the kind that a page may hold; 0: as many as fit in its stream.
    std::size_t capacity = 0;

    // Where the kind takes part beside the plain display pass.
    bool hasBlock = true;                 // its parameters may lie in the store
    std::size_t blockAt = FirstParameter; // record offset that the first byte of the block stands for
    bool inGroups = false;                // lives in group streams too
    bool onTop = false;                   // drawn a second time, over the rest of the page
    bool onNeighbours = false;            // shown on the pages beside a sliding one
    bool background = false; // the page's background widget, before all others and never in the plain pass

    Refresh refresh = Refresh::None;
    bool afterTouch = false; // RefreshAfterTouch() sees to it too
    std::size_t groupAt = 0; // record offset of the id of the group drawn over the widget; 0: it has none
    /// Tells a change more finely than the comparison of what the record depends on. Null: by that
    /// comparison.
    bool (*valueChanged)(const Parameters&) = nullptr;
    /// The whole test of a record in a group, where it is another than on a page.
    bool (*changedInGroup)(const Parameters&) = nullptr;
    /// Refresh::ByRow: looks after the row of this record, by the cursor. `blockChanged`: the row is to be
    /// read again.
    void (*refreshRow)(std::uint16_t page, const Parameters&, bool blockChanged) = nullptr;
    /// Refresh::ByRow: what is brought in line besides the block.
    StoreRuns (*refreshedWords)(const Parameters&) = nullptr;
};

/// Ascending by code.
std::span<const DisplayKind> DisplayKinds();
/// The row of a masked type word, or nullptr for one that nobody knows.
const DisplayKind* FindDisplayKind(std::uint16_t code);

/// The fields of a record of that kind.
Parameters ReadParameters(const DisplayKind& kind, std::span<const std::uint8_t> record);

/// Every kind forgets the page before.
void ForgetDisplayKinds();
/// Ends a walk: all cursors stand before the first record again.
void ResetCursors();

/// Which pass draws the icons on top: 0 none, they are drawn as all others; 1 of a page display; 2 of a
/// refresh after a touch. The passes set it before each icon, which sets it back.
inline std::uint8_t IconPass = 0;

} // namespace panel
