// An exact decimal number: prices, quantities and amounts that add up to the last digit.
//
//     using kxVsGrid::Decimal;
//     Decimal price("19.90");
//     const Decimal amount = (3 * price).rounded(2);
//     std::string text = amount.text();                  // "59.7", as a cell keeps it
//     text = amount.text(2);                             // "59.70"
//     text = Decimal(10).divided(3, 2).text();           // "3.33"
//     const std::optional<Decimal> typed = Decimal::read("12,5");  // nothing: it is no number
//
// Up to 18 digits in all, up to 9 of them behind the point: every such number, and no other. What does not fit
// throws DecimalError and is never cut without being asked for. Zeros at the end of the decimals are not
// kept: 1.50 is 1.5, with one decimal. There is no negative zero. A double becomes one by of() alone, which
// says to how many decimals, and never on the way.
//
// Rounding is always half away from zero: 0.125 to two decimals is 0.13, -0.125 is -0.13.
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace kxVsGrid {

/// A number that does not fit, a text that is none, a division by zero; the text says which, and names it.
class DecimalError : public std::range_error {
  public:
    using std::range_error::range_error;
};

class Decimal {
  public:
    /// How many digits a number may have in all, and how many of them behind the point.
    static constexpr int MostDigits = 18;
    static constexpr int MostDecimals = 9;

    constexpr Decimal() = default;
    /// Any whole number but a truth value or a character. DecimalError for one of 19 digits.
    template <std::integral Whole>
    requires(!std::same_as<std::remove_cv_t<Whole>, bool> && !std::same_as<std::remove_cv_t<Whole>, char> &&
             !std::same_as<std::remove_cv_t<Whole>, wchar_t> &&
             !std::same_as<std::remove_cv_t<Whole>, char8_t> &&
             !std::same_as<std::remove_cv_t<Whole>, char16_t> &&
             !std::same_as<std::remove_cv_t<Whole>,
                           char32_t>) constexpr Decimal(Whole number) {  // implicit: 3 * price
        if (std::cmp_greater_equal(number, End) || std::cmp_less_equal(number, -End))
            failTooLarge(number < 0, static_cast<std::uint64_t>(number));
        digits_ = static_cast<std::int64_t>(number);
    }
    /// As read() takes it. DecimalError for any other text.
    explicit Decimal(std::string_view text);

    /// An optional sign, digits, and perhaps a point with digits behind it: "12", "-0.50", "+3", ".5", "5.". No
    /// blanks, separators of groups or exponent, and no digits but 0 to 9. Nothing for any other text, and for
    /// a number that does not fit: more than nine digits behind the point do not, also where they are zeros.
    static std::optional<Decimal> read(std::string_view text) noexcept;

    /// `digits` with a point before the last `decimals` (0 to 9) of them: 1235 with 2 is 12.35. DecimalError for
    /// what does not fit.
    static Decimal scaled(std::int64_t digits, int decimals);
    /// The inverse, rounded where it has more decimals: 12.35 to 2 is 1235, to 3 is 12350. DecimalError for what
    /// 64 bits do not hold.
    std::int64_t scaledTo(int decimals) const;

    /// A double as its shortest text says it, rounded to so many decimals (0 to 9): 1.005 to 2 is 1.01, although
    /// the double is a little less. DecimalError for what is no number and for what does not fit.
    static Decimal of(double value, int decimals);
    /// The nearest double.
    double toDouble() const;

    /// Without superfluous zeros: "12.5", "-0.05", "0".
    std::string text() const;
    /// With exactly so many decimals (0 to 9), rounded: "12.50". Never "-0.00".
    std::string text(int decimals) const;
    /// Appends text() to `text`, which is cheaper where many are written.
    void appendTo(std::string& text) const;

    /// How many digits stand behind the point: 1 for 1.50, 0 for 100.
    constexpr int decimals() const { return decimals_; }
    /// With no more than so many decimals (0 to 9).
    Decimal rounded(int decimals) const;

    /// Exact. DecimalError where the sum has more digits than a number may have.
    friend Decimal operator+(const Decimal& a, const Decimal& b) { return plus(a, b.digits_, b.decimals_); }
    friend Decimal operator-(const Decimal& a, const Decimal& b) { return plus(a, -b.digits_, b.decimals_); }
    /// Rounded once, from the exact result, to nine decimals, or to as many fewer as its 18 digits leave room
    /// for. DecimalError where not even its whole part fits, and for a division by zero.
    friend Decimal operator*(const Decimal& a, const Decimal& b) { return times(a, b); }
    friend Decimal operator/(const Decimal& a, const Decimal& b) { return over(a, b); }
    /// The quotient rounded once to so many decimals (0 to 9). DecimalError where it does not fit with them.
    Decimal divided(const Decimal& by, int decimals) const;

    constexpr Decimal operator+() const { return *this; }
    constexpr Decimal operator-() const { return Decimal(-digits_, decimals_); }
    friend constexpr Decimal abs(const Decimal& number) { return number.digits_ < 0 ? -number : number; }

    Decimal& operator+=(const Decimal& other) { return *this = *this + other; }
    Decimal& operator-=(const Decimal& other) { return *this = *this - other; }
    Decimal& operator*=(const Decimal& other) { return *this = *this * other; }
    Decimal& operator/=(const Decimal& other) { return *this = *this / other; }

    /// By value.
    friend constexpr bool operator==(const Decimal&, const Decimal&) = default;
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) { return compare(a, b); }

  private:
    friend struct std::hash<Decimal>;
    static constexpr std::int64_t End = 1'000'000'000'000'000'000;  // the first number of 19 digits

    constexpr Decimal(std::int64_t digits, int decimals) : digits_(digits), decimals_(decimals) {}
    [[noreturn]] static void failTooLarge(bool negative, std::uint64_t bits);
    static Decimal plus(const Decimal& a, std::int64_t digits, int decimals);
    static Decimal times(const Decimal& a, const Decimal& b);
    static Decimal over(const Decimal& a, const Decimal& b);
    static std::strong_ordering compare(const Decimal& a, const Decimal& b);

    std::int64_t digits_ = 0;    // below End, and above -End
    std::int32_t decimals_ = 0;  // no more than are needed: digits_ ends in no 0 where there are some
};
}  // namespace kxVsGrid

template <>
struct std::hash<kxVsGrid::Decimal> {
    std::size_t operator()(const kxVsGrid::Decimal& number) const noexcept {
        return std::hash<std::int64_t>()(number.digits_) * 31U + static_cast<std::size_t>(number.decimals_);
    }
};
