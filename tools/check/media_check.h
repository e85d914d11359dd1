// The numbered files beside an image.
#pragma once

#include <QString>

#include <map>
#include <optional>

namespace check {

class MediaFiles {
public:
    /// Files of that directory; without one every file counts as there.
    explicit MediaFiles(const std::optional<QString>& directory);

    /// Whether the panel finds a file of that number in a folder of the directory.
    bool has(const char* folder, int number);

private:
    bool known_;
    std::map<QString, bool> found_; // by folder and number: a directory is read once for each
};

} // namespace check
