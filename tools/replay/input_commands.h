// The commands that pass time, touch the panel and write to it. Each function is one row of the command
// table.
#pragma once

#include "replay/bench.h"

namespace replay {

Action PrepareRun(Arguments&);
Action PrepareTick(Arguments&);
Action PrepareCycle(Arguments&);
Action PreparePress(Arguments&);
Action PrepareMove(Arguments&);
Action PrepareRelease(Arguments&);
Action PrepareTap(Arguments&);
Action PrepareDrag(Arguments&);
Action PrepareKey(Arguments&);
Action PrepareWrite(Arguments&);
Action PrepareSet(Arguments&);
Action PrepareText(Arguments&);
Action PrepareHost(Arguments&);
Action PrepareLoad(Arguments&);

} // namespace replay
