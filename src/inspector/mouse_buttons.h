// The mouse as the display server sees it, beyond the events that windows get.
#pragma once

/// Whether the left button is down, in whichever window. Asks the X server; always false on other platforms,
/// which tell of a release on a title bar by an event. Main thread.
bool LeftButtonIsDown();
