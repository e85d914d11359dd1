#include "widgets/display/number_text.h"

#include <charconv>

namespace panel {
namespace {

constexpr int MostDigits = 20; // of 64 bits

/// 10 to the power of `exponent`, 0 up to 19.
std::uint64_t powerOfTen(int exponent) {
    std::uint64_t power = 1;
    for (; exponent > 0; --exponent) power *= 10;
    return power;
}

std::uint64_t lowDigits(std::uint64_t value, int count) {
    return count < MostDigits ? value % powerOfTen(count) : value;
}

/// The digit of the value with `place` digits behind it.
char digitAt(std::uint64_t value, int place) {
    if (place >= MostDigits) return '0';
    return static_cast<char>('0' + value / powerOfTen(place) % 10);
}

/// Decimal digits of a value, at least one.
class Digits {
public:
    explicit Digits(std::uint64_t value)
        : count_(static_cast<std::size_t>(
            std::to_chars(digits_.data(), digits_.data() + digits_.size(), value).ptr - digits_.data())) {}

    std::string_view all() const { return {digits_.data(), count_}; }
    int count() const { return static_cast<int>(count_); }

private:
    std::array<char, MostDigits> digits_{};
    std::size_t count_;
};

} // namespace

NumberText PageNumberText(NumericValue value, const NumberFormat& format,
                          std::span<const std::uint8_t> unit) {
    const Digits digits(lowDigits(value.magnitude, format.digits()));
    const int decimals = format.decimalDigits;
    NumberText text;
    if (value.negative) text.put('-');
    if (decimals < digits.count()) {
        const auto split = static_cast<std::size_t>(digits.count() - decimals);
        if (format.leadingZeros) text.putZeros(format.digits() - digits.count());
        text.put(digits.all().substr(0, split));
        if (decimals > 0) text.put('.');
        text.put(digits.all().substr(split));
    } else {
        text.putZeros(format.leadingZeros ? format.integerDigits : 1);
        text.put('.');
        text.putZeros(decimals - digits.count());
        text.put(digits.all());
    }
    text.put(unit);
    return text;
}

NumberText GroupNumberText(NumericValue value, const NumberFormat& format,
                           std::span<const std::uint8_t> unit) {
    NumberText text;
    if (value.negative) text.put('-');
    bool significant = format.leadingZeros;
    for (int place = format.digits() - 1; place >= format.decimalDigits; --place) {
        const char digit = digitAt(value.magnitude, place);
        significant = significant || digit != '0' || place == format.decimalDigits;
        if (significant) text.put(digit);
    }
    if (format.decimalDigits > 0) {
        if (format.integerDigits == 0) text.put('0');
        text.put('.');
    }
    for (int place = format.decimalDigits - 1; place >= 0; --place) text.put(digitAt(value.magnitude, place));
    text.put(unit);
    return text;
}

NumberText PictureNumberText(NumericValue value, const NumberFormat& format) {
    NumberText text = GroupNumberText(value, format, {});
    if (format.digits() == 0) text.put('0');
    return text;
}

} // namespace panel
