// The one message box of the program.
#pragma once

#include <QString>

/// Shows `text` in a modal box with an OK button and returns when it is closed. Main thread.
void ShowMessage(const QString& text);
