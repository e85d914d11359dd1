// The two small files in which a path is left for the next run: that of the last image's directory, written
// here, and that of the image to start with, written by the design tool.
#pragma once

#include <QString>

/// The path up to and including its last "/". Empty for a path without one, and for a directory part of more
/// than 1024 characters.
QString DirectoryOf(const QString& path);

/// The text of bytes of unknown origin: UTF-8 where they are sound UTF-8, otherwise GBK. A byte-order mark is
/// no part of it.
QString DecodeText(const QByteArray& bytes);

/// The path files of one directory. A file that cannot be read counts as empty.
class PathFiles {
public:
    /// By default the program's directory, or the user's configuration directory where that cannot be
    /// written.
    explicit PathFiles(QString directory = defaultDirectory());

    /// Directory of the last image that was read, with its "/".
    QString lastDirectory() const;
    /// The image that the design tool asks for.
    QString startImage() const;
    /// Keeps `directory` as lastDirectory(). A file that cannot be written is left as it is.
    void SaveLastPath(const QString& directory) const;

private:
    static QString defaultDirectory();

    QString directory_;
};
