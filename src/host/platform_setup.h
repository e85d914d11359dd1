// How the toolkit is to run the window.
#pragma once

/// Main thread, before the QApplication is made.
void SetUpPlatform();
