// One page of an image: its background, its streams of records and its presets.
#pragma once

#include "imagekit/picture.h"
#include "imagekit/records.h"
#include "imagekit/widget_description.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace imagekit {

/// What a page carries besides its background, and how many bytes of each the panel can take in.
enum class Stream : std::uint8_t { Display, Touch, Group, Presets };
inline constexpr std::size_t StreamCount = 4;
inline constexpr std::size_t DisplayStreamCapacity = 3072;
inline constexpr std::size_t TouchStreamCapacity = 4096;
inline constexpr std::size_t GroupStreamCapacity = 3072;
inline constexpr std::size_t PresetStreamCapacity = 1024;

/// Made by ImageBuilder::addPage(). Records keep the order in which they are added, which is the order of
/// drawing.
class Page {
public:
    Page(std::uint16_t index, StoredPicture background);

    std::uint16_t index() const { return index_; }

    /// Appends a record to its stream. Throws when it does not fit, and the page stays as it was.
    void add(const DisplayRecord& record) { append(Stream::Display, record); }
    void add(const TouchRecord& record) { append(Stream::Touch, record); }
    void add(const GroupRecord& record) { append(Stream::Group, record); }
    void add(const PagePreset& preset) { append(Stream::Presets, preset); }
    /// The same for a widget that has its own struct.
    template <class Widget>
    void add(const Widget& widget) {
        add(Encode(widget));
    }
    /// And with a text for the variable inspector, which lists the widget by its kind and a running number.
    template <class Widget>
    void add(const Widget& widget, const QString& text) {
        add(widget);
        WidgetDescription row = Describe(widget);
        row.Name += '_' + QString::number(descriptions_.size());
        row.Text = text;
        describe(row);
    }
    template <class Widget>
    void addToGroup(std::uint16_t group, const Widget& widget) {
        add(GroupRecord{group, Encode(widget)});
    }

    /// Lists a widget for the variable inspector; add() with a text does it for those that have their own
    /// struct.
    void describe(const WidgetDescription& widget) { descriptions_.push_back(widget); }
    const std::vector<WidgetDescription>& descriptions() const { return descriptions_; }

    /// Replaces a whole stream, unchecked but for the 16-bit length: for images that no tool would write.
    /// `length` is what the page's row claims instead of the true length.
    void setRawStream(Stream stream, Bytes bytes, std::optional<std::uint16_t> length = {});

    const StoredPicture& background() const { return background_; }
    const Bytes& bytes(Stream stream) const { return at(stream).bytes; }
    std::uint16_t claimedLength(Stream stream) const;

private:
    struct StreamBytes {
        Bytes bytes;
        int recordCount = 0;
        std::optional<std::uint16_t> claimedLength;
    };

    StreamBytes& at(Stream stream) { return streams_[static_cast<std::size_t>(stream)]; }
    const StreamBytes& at(Stream stream) const { return streams_[static_cast<std::size_t>(stream)]; }
    template <class Record>
    void append(Stream stream, const Record& record);

    std::uint16_t index_;
    StoredPicture background_;
    std::vector<WidgetDescription> descriptions_;
    std::array<StreamBytes, StreamCount> streams_;
    std::map<std::uint16_t, std::size_t> kindCounts_; // of kinds that a page can hold only so many of
};

/// A plain record is its own encoding, so that records and widgets can be added in the same ways.
inline const DisplayRecord& Encode(const DisplayRecord& record) { return record; }

} // namespace imagekit
