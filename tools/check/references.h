// What the fields of the records refer to: pages, pictures, fonts, words of the store, places on the panel. A
// row a field; the check of a record is a walk over the rows of its kind.
#pragma once

#include <cstdint>
#include <span>

namespace check {

/// What a field names, and so what must hold of it. Fields have 16 bits where nothing else is told.
enum class What : std::uint8_t {
    Word,        // a word address; the extent tells how many words are in use
    Write,       // a word address, to which the value at the extent's offset is written
    Page,        // a page to show
    PagePicture, // a page of which only the background picture is used
    Picture,     // an index of the picture table; the extent tells how many from there on
    Needle,      // the same, of pictures with the head of an image needle
    Sequence,
    Font, // 8 bits
    String,
    Group,
    Preset, // an id of a preset; the extent tells how many from there on
    Sound,
    Video,
    Channel, // of curves, in the low 7 bits of 8
    Pinyin,  // no field: the widget needs the pinyin table
    // Places.
    Box,       // x0, y0, x1, y1, all inside
    Area,      // x, y, width, height
    Rows,      // the first row of a band as wide as the panel, and the row behind its last
    Spot,      // x, y of something whose size nobody knows
    PictureAt, // x, y of the picture whose index stands at the extent's offset
    PageAt,    // x, y of the background picture of the page at the extent's offset
    CodeAt,    // x, y of a QR code, its size at the extent's offset
};

/// How many rows or words from the named one on are in use.
struct Extent {
    enum class Count : std::uint8_t {
        One,
        Byte,      // as many as the byte at `at` tells
        Number,    // the same of 16 bits
        Values,    // for each value from that at `at` to that 2 bytes behind, `each`
        Steps,     // for each step (4 bytes behind) from the value at `at` to that 2 bytes behind
        DataType,  // the words of the data type at `at`
        Digits,    // a run of digit pictures, with a point if there are decimals at `at`
        ClockRun,  // the pictures of the clock format at `at`
        TimerRun,  // the pictures of the timer format at `at`
        OtherField // one; `at` is that of the field that belongs to it
    };
    Count count = Count::One;
    std::uint8_t at = 0;
    std::uint8_t each = 1;
};

/// Whether a field counts: it does when (the 16 bits at `at` & mask) == value, or the contrary.
struct When {
    std::uint8_t at = 0;
    std::uint16_t mask = 0; // 0: always
    std::uint16_t value = 0;
    bool equal = true;
};

/// No value of a field means that there is nothing.
inline constexpr std::uint32_t Never = 0x10000;

struct Reference {
    std::uint16_t code; // display kind, touch family, or MenuEntryCode() of an entry
    std::uint8_t at;    // record offset of the field
    What what;
    const char* role = "";      // which of several fields of the same sort it is, for people
    std::uint32_t none = Never; // this value and higher ones mean that there is nothing
    Extent extent{};
    When when{};
    std::uint8_t lengthAt = 0; // the field lies as many bytes behind `at` as the byte there tells; 0: at `at`
};

/// The code of the entries of an encoder menu, by their sort.
constexpr std::uint16_t MenuEntryCode(std::uint8_t sort) { return static_cast<std::uint16_t>(0x4000 + sort); }

/// The fields of the records of a kind; none for a kind that refers to nothing or that nobody knows.
std::span<const Reference> ReferencesOf(std::uint16_t code);

} // namespace check
