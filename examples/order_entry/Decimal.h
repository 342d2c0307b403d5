// Exact decimal amounts: whole numbers of a fixed fraction (cents, thousandths), read from and written as
// text. A double would lose cents in long columns; the grid's cells hold texts, the database whole numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kxVsGrid/sheet/FieldText.h"

/// A whole number of a decimal fraction: a type of its own, so that a sheet knows where the point is.
template <int Decimals>
struct Scaled {
    std::int64_t units = 0;

    constexpr Scaled() = default;
    constexpr Scaled(std::int64_t count) : units(count) {}
    constexpr operator std::int64_t() const { return units; }
    constexpr Scaled& operator+=(std::int64_t more) {
        units += more;
        return *this;
    }
};

inline constexpr int PriceDecimals = 2;
inline constexpr int QuantityDecimals = 3;

using Cents = Scaled<PriceDecimals>;
using Thousandths = Scaled<QuantityDecimals>;

/// "12.345" with two decimals is 1235: halves are rounded away from zero. Nothing for a text that is no plain
/// decimal number or is too large.
std::optional<std::int64_t> scaledNumber(std::string_view text, int decimals);

/// 1230 with two decimals is "12.3": no group separators, no trailing zeros, never "-0".
std::string plainText(std::int64_t scaled, int decimals);

/// 123456 is "1,234.56", for status lines and lists.
std::string moneyText(Cents amount);

/// 1234500 is "1,234.5": grouped, without trailing zeros.
std::string quantityText(Thousandths quantity);

/// Quantity times price, rounded to the cent, halves away from zero. Nothing when it is too large.
std::optional<Cents> amountOf(Thousandths quantity, Cents price);

/// As a member of a sheet's records.
template <int Decimals>
struct kxVsGrid::FieldText<Scaled<Decimals>> {
    static constexpr FieldKind Kind = FieldKind::Number;
    static void append(std::string& text, Scaled<Decimals> value) { text += plainText(value, Decimals); }
    static bool read(std::string_view text, Scaled<Decimals>& value) {
        const std::optional<std::int64_t> known = scaledNumber(text, Decimals);
        if (known) value = *known;
        return known.has_value();
    }
};
