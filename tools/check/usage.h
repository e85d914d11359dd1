// Which rows of the image's tables the pages use: only these are looked at.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>

namespace check {

/// Runs of indices of 16 bits, marked in the same time whatever their length.
class MarkedRuns {
public:
    /// What lies beyond the last index is left out.
    void mark(std::uint32_t first, std::uint32_t count) {
        if (count == 0 || first >= Indices) return;
        ++steps_[first];
        --steps_[first + count < Indices ? first + count : Indices];
    }
    /// Calls visit(index) for every marked index, in order.
    template <class Visit>
    void forEach(Visit visit) const {
        int open = 0;
        for (std::uint32_t index = 0; index < Indices; ++index)
            if ((open += steps_[index]) > 0) visit(static_cast<std::uint16_t>(index));
    }

private:
    static constexpr std::uint32_t Indices = 0x10000;
    std::array<int, Indices + 1> steps_{};
};

using MarkedRows = std::bitset<0x10000>;

struct Usage {
    MarkedRuns pictures, needles;
    MarkedRows strings, sequences, sounds;
    std::bitset<0x100> fonts;
    bool pinyin = false;
};

} // namespace check
