// The refusal of everything in this library: what was asked for does not fit into the format.
#pragma once

#include <stdexcept>
#include <string>

namespace imagekit {

/// The text names the page and the record, or the picture, and the limit that was passed.
class ImageError : public std::invalid_argument {
public:
    ImageError(const std::string& where, const std::string& what)
        : std::invalid_argument(where + ": " + what) {}
};

/// "12 items, at most 10", the usual form of a refusal.
inline std::string AtMost(std::size_t count, const char* what, std::size_t limit) {
    return std::to_string(count) + ' ' + what + ", at most " + std::to_string(limit);
}

} // namespace imagekit
