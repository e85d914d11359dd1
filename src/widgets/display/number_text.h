// Numbers as text: the digits that a record's digit counts select, its sign, point, zeros and unit. Engine
// thread.
#pragma once

#include "store/typed_value.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace panel {

/// How a record wants its number written.
struct NumberFormat {
    std::uint8_t integerDigits = 0;
    std::uint8_t decimalDigits = 0;
    bool leadingZeros = false;

    int digits() const { return integerDigits + decimalDigits; }
};

/// A text of up to 100 single-byte characters; what is beyond is dropped.
class NumberText {
public:
    static constexpr std::size_t Capacity = 100;

    void put(char character) {
        if (count_ < Capacity) text_[count_++] = character;
    }
    void put(std::string_view characters) {
        for (const char character : characters) put(character);
    }
    void put(std::span<const std::uint8_t> characters) {
        for (const std::uint8_t character : characters) put(static_cast<char>(character));
    }
    void putZeros(int count) {
        for (; count > 0; --count) put('0');
    }

    std::string_view view() const { return {text_.data(), count_}; }
    std::span<const std::uint8_t> bytes() const {
        return {reinterpret_cast<const std::uint8_t*>(text_.data()), count_};
    }

private:
    std::array<char, Capacity> text_{};
    std::size_t count_ = 0;
};

// Digits above the format's count are dropped. A negative number keeps its sign even if the rest is 0. The
// forms differ in leading zeros, and where a number has no integer digits.

/// The number as a widget of the page shows it.
NumberText PageNumberText(NumericValue value, const NumberFormat& format, std::span<const std::uint8_t> unit);
/// The number as a widget in a group shows it.
NumberText GroupNumberText(NumericValue value, const NumberFormat& format,
                           std::span<const std::uint8_t> unit);
/// The number as a widget shows it that has pictures for the characters: as in a group, but never without a
/// digit.
NumberText PictureNumberText(NumericValue value, const NumberFormat& format);

} // namespace panel
