// Which bytes of the store a widget's record depends on. The copy to the ShadowStore and the comparison with
// it both go by these runs, so that they cannot come apart. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace panel {

/// What ends a text before its full length. The mark itself still counts.
enum class TextEnd : std::uint8_t {
    None,
    ZeroWord, // the first word that is 0
    ZeroPair  // the first byte that is 0 and has another 0 behind it, wherever it lies
};

/// A run of bytes of the store. What lies outside the store takes no part.
struct StoreRun {
    std::size_t offset = 0;
    std::size_t count = 0;
    TextEnd end = TextEnd::None;
    bool copiedWhole = false; // copied beyond its end, though not compared there
};

/// The runs of one record, in the order in which they were added.
class StoreRuns {
public:
    static constexpr std::size_t Capacity = 3;

    StoreRuns& add(StoreRun run) {
        runs_[count_++] = run;
        return *this;
    }
    StoreRuns& addWord(std::uint16_t address) {
        return add({.offset = 2 * std::size_t{address}, .count = 2});
    }
    std::span<const StoreRun> runs() const { return std::span(runs_).first(count_); }

private:
    std::array<StoreRun, Capacity> runs_{};
    std::size_t count_ = 0;
};

/// Copies the runs to the ShadowStore, a text up to its end in the VariableStore: what is shown is no longer
/// a change.
void SyncRuns(const StoreRuns& runs);
/// Whether the stores differ in a run, a text up to its end in the ShadowStore, which is what is on show.
bool RunsDiffer(const StoreRuns& runs);

/// The parameter block of a record in the pointer form. Of an inline record nothing is copied, and nothing
/// differs.
void SyncBlock(const Parameters& p);
bool BlockChanged(const Parameters& p);

// The runs of each kind.

StoreRuns ValueWord(const Parameters& p); // the word whose address stands at offset 5
StoreRuns LabelText(const Parameters& p);
StoreRuns NumberValue(const Parameters& p); // value by its data type, and hide word
StoreRuns PngNumberValue(const Parameters& p);
StoreRuns QrText(const Parameters& p);
StoreRuns TextrollText(const Parameters& p);
StoreRuns UiTimerWords(const Parameters& p); // its preset, its count and its control word

} // namespace panel
