// The mouse as the display server sees it, beyond the events that windows get.
#pragma once

/// Whether no event tells of a release on a title bar: on X11, where the window manager keeps it to itself.
bool TitleBarReleaseIsHidden();

/// Whether the left button is down, in whichever window. Asks the X server, so only where
/// TitleBarReleaseIsHidden(). Main thread.
bool LeftButtonIsDown();
