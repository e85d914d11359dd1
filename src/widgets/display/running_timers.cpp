#include "widgets/display/running_timers.h"

#include "host/reply_frame.h"
#include "store/pending_writes.h"
#include "store/variable_store.h"

#include <algorithm>

namespace panel {
namespace {

bool counts(const TimerCount& timer) {
    return ReadWord(timer.Control) == static_cast<std::uint16_t>(TimerControl::Counting);
}

void addToTimer(const TimerCount& timer, int step) {
    StoreWord(timer.Timer, static_cast<std::uint16_t>(ReadWord(timer.Timer) + step));
}

bool atUpperEnd(const TimerCount& timer) { return ReadWord(timer.Preset) <= ReadWord(timer.Timer); }

/// The engine applies a system word; here, on the main thread, it is only queued.
void endCount(const TimerCount& timer) {
    if (IsStoreWord(timer.TargetAddress)) {
        StoreWord(timer.TargetAddress, timer.TargetValue);
        if (SystemRange(timer.TargetAddress)) PendingSystemWrites.append(timer.TargetAddress);
    }
    if (timer.Notify == 1) SendNotification(timer.TargetAddress, timer.TargetValue);
}

void endPageCount(const TimerCount& timer) {
    StoreWord(timer.Control, static_cast<std::uint16_t>(TimerControl::Stopped));
    endCount(timer);
}

/// Counts a background timer on; true when this ended the count.
bool countDownEnds(const TimerCount& timer) {
    if (ReadWord(timer.Timer) != 0) addToTimer(timer, -1);
    return ReadWord(timer.Timer) == 0;
}
bool countUpEnds(const TimerCount& timer) {
    addToTimer(timer, 1);
    return atUpperEnd(timer);
}
bool countEnds(const TimerCount& timer) {
    if (!counts(timer)) return false;
    if (timer.Direction == CountsDown) return countDownEnds(timer);
    return timer.Direction == CountsUp && countUpEnds(timer);
}

} // namespace

void RemoveRunningTimer(std::uint16_t preset) {
    for (std::size_t i = 0; i < RunningTimers.size();) {
        if (RunningTimers.at(i)->Preset == preset)
            RunningTimers.remove(i);
        else
            ++i;
    }
}

void AddRunningTimer(const TimerCount& timer) {
    const auto rows = RunningTimers.rows();
    if (std::ranges::find(rows, timer.Preset, &TimerCount::Preset) != rows.end()) return;
    if (TimerCount* row = RunningTimers.append()) *row = timer;
}

void CountPageTimer(const TimerCount& timer) {
    if (!counts(timer)) return;
    if (timer.Direction == CountsDown) {
        if (ReadWord(timer.Timer) == 0)
            endPageCount(timer);
        else
            addToTimer(timer, -1);
    } else if (timer.Direction == CountsUp) {
        if (atUpperEnd(timer)) endPageCount(timer);
        // A timer whose target is its own control word goes on, in this very second.
        if (ReadWord(timer.Control) != static_cast<std::uint16_t>(TimerControl::Stopped))
            addToTimer(timer, 1);
    }
}

void CountRunningTimers() {
    for (std::size_t i = 0; TimerCount* timer = RunningTimers.at(i);) {
        if (!countEnds(*timer)) {
            ++i;
            continue;
        }
        endCount(*timer);
        RunningTimers.remove(i); // the last row takes its place and is counted next
    }
}

} // namespace panel
