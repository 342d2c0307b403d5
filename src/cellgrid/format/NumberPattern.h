// A number pattern, read once: "#,##0.00", "0%", "0.00;(0.00);-".
//
// A '0' always shows a digit, a '#' only a significant one; a ',' among the digits before the point groups
// thousands; each '%' multiplies by 100 and is shown; everything else is shown as it is. Sections are
// separated by ';' and stand for positive, negative and zero; a missing or empty one is the first, with a minus
// before it for negative numbers. The point is shown when a decimal follows it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cellgrid/format/LongDecimal.h"

namespace kxVsGrid::cellgrid {

class NumberPattern {
  public:
    /// True when the pattern has a '0' or '#' that is no literal.
    static bool hasDigit(std::string_view pattern);
    /// Nothing when the pattern has no digit, or asks for an exponent (0.0E+00), which is not shown.
    static std::optional<NumberPattern> read(std::string_view pattern);

    /// Writes into `shown` what the pattern makes of a complete number and returns true; any other text
    /// leaves `shown` untouched and returns false.
    bool apply(std::string_view text, std::string& shown) const;
    /// One of the sections separates groups of thousands.
    bool groups() const { return sections_[0].grouped || sections_[1].grouped || sections_[2].grouped; }
    /// One of the sections multiplies by 100 and shows the sign for that.
    bool percent() const { return sections_[0].shift + sections_[1].shift + sections_[2].shift > 0; }

  private:
    struct Step {
        enum class Kind : std::uint8_t { Literal, Whole, Point, Fraction };
        Kind kind = Kind::Literal;
        std::string literal;
        std::int64_t first = 0;  // places of digits, from the left: of the whole part counted down to the
        std::int64_t last = 0;   // units (0), of the fraction counted up from the tenths (0)
    };
    struct Section {
        bool empty() const { return steps.empty(); }
        bool hasPlaces() const { return wholePlaces + fractionPlaces > 0; }
        void addLiteral(char c);
        void addPlace(Step::Kind kind);
        void numberPlaces();
        void write(const LongDecimal& number, std::string& shown) const;
        void writeWhole(const LongDecimal& number, std::int64_t from, std::int64_t to,
                        std::string& shown) const;

        std::vector<Step> steps;
        std::int64_t wholePlaces = 0;
        std::int64_t wholeNeeded = 0;  // from the leftmost '0' to the units
        std::int64_t fractionPlaces = 0;
        std::int64_t fractionNeeded = 0;  // from the tenths to the rightmost '0'
        std::int64_t shift = 0;
        bool grouped = false;
    };

    static Section readSection(std::string_view pattern);
    const Section& sectionFor(std::size_t number) const;

    Section sections_[3];
    mutable LongDecimal number_;  // kept for its memory
};
}  // namespace kxVsGrid::cellgrid
