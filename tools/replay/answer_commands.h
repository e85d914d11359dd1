// The commands that tell something about the panel. Each function is one row of the command table.
#pragma once

#include "replay/bench.h"

namespace replay {

Action PrepareRead(Arguments&);
Action PrepareSent(Arguments&);
Action PrepareMedia(Arguments&);
Action PrepareState(Arguments&);
Action PreparePixel(Arguments&);
Action PrepareFrame(Arguments&);
Action PrepareView(Arguments&);
Action PrepareHash(Arguments&);

} // namespace replay
