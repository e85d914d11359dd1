// Tells when the design tool has written the image anew.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>

/// Looks at the file by its path, so a file that is replaced, or that is away for a while, is seen as well as
/// one that is overwritten, on every kind of file system. Main thread.
class ImageWatcher : public QObject {
    Q_OBJECT

public:
    explicit ImageWatcher(QObject* parent = nullptr);

    /// From now on this file, as it is now.
    void watch(const QString& path);

signals:
    /// The file has changed and is whole: it has not grown for a while.
    void changed(const QString& path);

private:
    struct State {
        bool exists = false;
        qint64 size = 0;
        QDateTime written;
        bool operator==(const State&) const = default;
    };
    State look() const;
    void compare();

    QString path_;
    State told_; // what was told of last
    State seen_; // at the last look
    QTimer timer_;
};
