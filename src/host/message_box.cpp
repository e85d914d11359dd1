#include "host/message_box.h"

void ShowMessage(const QString& text) {
    const QString markup = QStringLiteral("<font color='blue'>%1    </font>").arg(text);
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Message"), markup, QMessageBox::Ok, nullptr,
                    Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    box.setStyleSheet(QStringLiteral("font: 18px"));
    box.exec();
}

QMessageBox::StandardButton ShowWarning(const QString& text, QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton byDefault) {
    return QMessageBox::warning(nullptr, QStringLiteral("Warning"), text, buttons, byDefault);
}
