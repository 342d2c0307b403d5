// Random numbers under random patterns, compared with a twin that is written for being evident: long
// arithmetic on digit vectors, and the result built from what the pattern was built from.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "cellgrid/format/CellFormat.h"
#include "kit/Random.h"

namespace kxVsGrid::cellgrid {
namespace {

/// What a pattern of one section is built from.
struct Shape {
    std::string prefix;
    int marks = 0;      // '#' before the point
    int zeros = 0;      // '0' before the point
    int decimals = 0;   // '0' behind it
    int optionals = 0;  // '#' behind those
    bool grouped = false;
    int percents = 0;
    std::string suffix;

    std::string pattern() const {
        std::string whole = std::string(marks, '#') + std::string(zeros, '0');
        if (grouped) whole.insert(1, ",");
        std::string result = prefix + whole;
        if (decimals + optionals > 0) result += '.';
        result += std::string(decimals, '0') + std::string(optionals, '#');
        return result + std::string(percents, '%') + suffix;
    }
};

/// sign * whole number * 10^-scale
struct Number {
    bool negative = false;
    std::vector<int> digits;  // most significant first
    int scale = 0;

    void addFive(std::size_t index) {
        int carry = 5;
        for (auto i = static_cast<int>(index); carry > 0; --i) {
            if (i < 0) {
                digits.insert(digits.begin(), carry);
                return;
            }
            carry += digits[static_cast<std::size_t>(i)];
            digits[static_cast<std::size_t>(i)] = carry % 10;
            carry /= 10;
        }
    }

    /// Half away from zero: add half a unit of the last place, then cut.
    void keep(int places) {
        while (scale < places) {
            digits.push_back(0);
            ++scale;
        }
        while (static_cast<int>(digits.size()) <= scale) digits.insert(digits.begin(), 0);
        if (scale > places) addFive(digits.size() - static_cast<std::size_t>(scale - places));
        while (scale > places) {
            digits.pop_back();
            --scale;
        }
    }

    bool zero() const {
        return std::all_of(digits.begin(), digits.end(), [](int d) { return d == 0; });
    }
};

std::string grouped(const std::string& whole) {
    std::string result;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0) result += ',';
        result += whole[i];
    }
    return result;
}

std::string expected(const Shape& shape, Number number) {
    for (int i = 0; i < 2 * shape.percents; ++i) {
        if (number.scale > 0)
            --number.scale;
        else
            number.digits.push_back(0);
    }
    const auto places = static_cast<std::size_t>(shape.decimals + shape.optionals);
    number.keep(static_cast<int>(places));
    std::string text;
    for (const int digit : number.digits) text += static_cast<char>('0' + digit);
    while (text.size() < places) text.insert(0, "0");
    std::string whole = text.substr(0, text.size() - places);
    std::string fraction = text.substr(text.size() - places);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    while (static_cast<int>(whole.size()) < shape.zeros) whole.insert(0, "0");
    while (static_cast<int>(fraction.size()) > shape.decimals && fraction.back() == '0') fraction.pop_back();
    const std::string sign = number.negative && !number.zero() ? "-" : "";
    return sign + shape.prefix + (shape.grouped ? grouped(whole) : whole) + (fraction.empty() ? "" : ".") +
           fraction + std::string(shape.percents, '%') + shape.suffix;
}

class RandomFormats {
  public:
    int upTo(int largest) { return static_cast<int>(random_.between(0, largest)); }

    Shape shape() {
        static const std::vector<std::string> literals{"", "", "¥", "元", "(", " kg", "合计: "};
        Shape shape;
        shape.prefix = literals[static_cast<std::size_t>(upTo(6))];
        shape.suffix = literals[static_cast<std::size_t>(upTo(6))];
        shape.marks = upTo(4);
        shape.zeros = upTo(5);
        shape.decimals = upTo(6);
        shape.optionals = upTo(2) == 0 ? upTo(4) : 0;
        shape.percents = upTo(4) == 0 ? upTo(2) : 0;
        if (shape.marks + shape.zeros == 0) shape.zeros = 1;
        shape.grouped = shape.marks + shape.zeros > 1 && upTo(1) == 0;
        return shape;
    }

    /// Digits with many nines, fives and zeros, where rounding goes wrong if it does.
    Number number() {
        Number number;
        number.negative = upTo(1) == 0;
        const int count = 1 + (upTo(9) == 0 ? upTo(60) : upTo(12));
        for (int i = 0; i < count; ++i) {
            static const int likely[] = {0, 0, 4, 5, 5, 9, 9, 9};
            number.digits.push_back(upTo(1) == 0 ? upTo(9) : likely[upTo(7)]);
        }
        number.scale = upTo(count + 3);
        return number;
    }

    std::string text(const Number& number) {
        std::string digits;
        for (const int digit : number.digits) digits += static_cast<char>('0' + digit);
        const std::string sign = number.negative ? "-" : upTo(9) == 0 ? "+" : "";
        if (upTo(4) == 0) return sign + digits + "e-" + std::to_string(number.scale);
        while (static_cast<int>(digits.size()) < number.scale) digits.insert(0, "0");
        if (number.scale > 0 || upTo(9) == 0)
            digits.insert(digits.size() - static_cast<std::size_t>(number.scale), ".");
        return sign + digits;
    }

  private:
    kit::Random random_;
};

TEST(NumberFormat, AgreesWithLongArithmeticOnRandomNumbersAndPatterns) {
    RandomFormats random;
    std::string shown;
    for (int round = 0; round < 20'000; ++round) {
        const Shape shape = random.shape();
        const CellFormat format(shape.pattern());
        for (int i = 0; i < 10; ++i) {
            const Number number = random.number();
            const std::string text = random.text(number);
            ASSERT_TRUE(format.apply(text, shown)) << text;
            ASSERT_EQ(shown, expected(shape, number)) << text << " as " << shape.pattern();
        }
    }
}
}  // namespace
}  // namespace kxVsGrid::cellgrid
