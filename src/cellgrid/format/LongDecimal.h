// A decimal number of any length, as its text writes it: formats round what the clerk sees, not the nearest
// binary fraction of it (1.005 is 1.01 with two decimals).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kxVsGrid::cellgrid {

class LongDecimal {
  public:
    /// Takes the number when the whole text (blanks around it aside) is one: sign, digits with one '.',
    /// exponent. Numbers written with an exponent must be in the range of a double. False leaves no usable
    /// value.
    bool read(std::string_view text);
    /// Multiplies by ten to the power of `places`.
    void shift(std::int64_t places);
    /// Keeps `decimals` digits behind the point, rounding half away from zero.
    void round(std::int64_t decimals);

    bool zero() const { return digits_.empty(); }
    bool negative() const { return negative_; }
    /// How many digits stand before the point (none for a number below 1) and behind it, superfluous zeros
    /// aside.
    std::int64_t wholeDigits() const { return point_ > 0 ? point_ : 0; }
    std::int64_t decimals() const {
        const std::int64_t behind = static_cast<std::int64_t>(digits_.size()) - point_;
        return behind > 0 ? behind : 0;
    }
    /// The digit worth ten to the power of `place`; '0' where the number has none.
    char digit(std::int64_t place) const {
        const std::int64_t at = point_ - 1 - place;
        return at >= 0 && at < static_cast<std::int64_t>(digits_.size())
                   ? digits_[static_cast<std::size_t>(at)]
                   : '0';
    }

  private:
    bool readExponent(std::string_view text, std::size_t at);
    void dropTrailingZeros();

    std::string digits_;      // neither begins nor ends with '0'; empty for zero
    std::int64_t point_ = 0;  // the point stands before digits_[point_]; may lie outside of the digits
    bool negative_ = false;
};
}  // namespace kxVsGrid::cellgrid
