// The message boxes of the program.
#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>

/// Shows `text` in a modal box with an OK button and returns when it is closed. Main thread.
void ShowMessage(const QString& text);

/// Puts a warning with a choice of buttons, of which the last argument is the default, and gives the answer.
using AskUser = std::function<QMessageBox::StandardButton(const QString&, QMessageBox::StandardButtons,
                                                          QMessageBox::StandardButton)>;

/// Asks in a modal box. Main thread.
QMessageBox::StandardButton ShowWarning(const QString& text, QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton byDefault);
