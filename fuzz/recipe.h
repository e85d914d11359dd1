// A fuzz input read as a recipe: which sound image to start from, what to change in it, and what a user and a
// host then do. So every input starts a panel, and a few bytes reach any field of any record.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <span>
#include <vector>

namespace fuzz {

using Input = std::span<const std::uint8_t>;

/// Takes the first byte off an input; 0 when none is left.
std::uint8_t TakeByte(Input& input);

/// The sound images, and where their records lie.
class RecipeBook {
public:
    RecipeBook();

    /// Takes the recipe off the front of the input and makes its image the panel's: a byte that names the
    /// base image, a byte with the count of edits, then the edits, six bytes each.
    void load(Input& input) const;

private:
    /// A record, in bytes from the start of its image.
    struct Record {
        std::size_t offset, length;
    };
    struct Base {
        QByteArray image;
        std::vector<Record> records;
    };
    static Base index(const QByteArray& image);
    static void edit(QByteArray& image, const std::vector<Record>& records, Input edit);

    std::vector<Base> bases_;
};

/// Starts the panel on the image that was loaded, whatever its check words say; false when it does not run.
bool Start();

/// Input from outside before one cycle: the user's hand, a host's write, a write in the inspector. Takes two
/// bytes.
void Act(Input& script);

/// One cycle with the ticks before it.
void RunCycle();

} // namespace fuzz
