// What a sheet makes of a member of a record: which texts stand for its values. A host's own type gets a
// specialisation, and its members can be columns then.
//
//     template <>
//     struct kxVsGrid::FieldText<Grade> {  // a host's enum class
//         static constexpr kxVsGrid::FieldKind Kind = kxVsGrid::FieldKind::Text;
//         static void append(std::string& text, Grade value) { text += value == Grade::First ? "一等" : "二等"; }
//         static bool read(std::string_view text, Grade& value) {
//             if (text != "一等" && text != "二等") return false;
//             value = text == "一等" ? Grade::First : Grade::Second;
//             return true;
//         }
//     };
//
// read() answers False, and leaves the value, for a text that stands for none. It is not asked about the empty text:
// that is no value where the member is optional, else 0, False, the empty text, whatever a type begins as; only where
// the type has a text for that too, it is what a new record has.
#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "kxVsGrid/DateTime.h"
#include "kxVsGrid/support/Date.h"
#include "kxVsGrid/support/Decimal.h"

namespace kxVsGrid {

enum class FieldKind { Text, Number, Date, Moment, Flag };

template <class T>
struct FieldText;

template <class T>
concept KnownField = requires(std::string& text, T& value) {
    FieldText<T>::Kind;
    FieldText<T>::append(text, value);
    { FieldText<T>::read(std::string_view(), value) } -> std::same_as<bool>;
};

template <>
struct FieldText<std::string> {
    static constexpr FieldKind Kind = FieldKind::Text;
    static void append(std::string& text, const std::string& value) { text += value; }
    static bool read(std::string_view text, std::string& value) {
        value = text;
        return true;
    }
};

template <>
struct FieldText<Decimal> {
    static constexpr FieldKind Kind = FieldKind::Number;
    static void append(std::string& text, const Decimal& value) { value.appendTo(text); }
    static bool read(std::string_view text, Decimal& value) {
        const std::optional<Decimal> known = Decimal::read(text);
        if (known) value = *known;
        return known.has_value();
    }
};

/// Whole numbers. What does not fit into the type is none of its values.
template <std::integral T>
struct FieldText<T> {
    static constexpr FieldKind Kind = FieldKind::Number;
    static void append(std::string& text, T value) { text += std::to_string(value); }
    static bool read(std::string_view text, T& value) {
        T number{};
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc() || end != text.data() + text.size()) return false;
        value = number;
        return true;
    }
};

/// -1 is True, as in a column of check boxes; False is empty.
template <>
struct FieldText<bool> {
    static constexpr FieldKind Kind = FieldKind::Flag;
    static void append(std::string& text, bool value) {
        if (value) text += "-1";
    }
    static bool read(std::string_view text, bool& value) {
        value = text != "0";
        return true;
    }
};

/// Days and moments. One that the calendar does not have is shown as empty.
template <class T>
requires std::same_as<T, Date> || std::same_as<T, DateTime>
struct FieldText<T> {
    static constexpr FieldKind Kind = std::same_as<T, Date> ? FieldKind::Date : FieldKind::Moment;
    static void append(std::string& text, const T& value) {
        if (value.valid()) text += value.text();
    }
    static bool read(std::string_view text, T& value) {
        const std::optional<T> known = T::read(text);
        if (known) value = *known;
        if constexpr (std::same_as<T, DateTime>)
            if (!known) return readDay(text, value);
        return known.has_value();
    }

  private:
    /// A day alone, as fills of the menu write it, begins at midnight.
    static bool readDay(std::string_view text, DateTime& value) {
        const std::optional<Date> day = Date::read(text);
        if (day) value = {day->year, day->month, day->day, 0, 0, 0};
        return day.has_value();
    }
};

template <class T>
struct FieldText<std::optional<T>> {
    static constexpr FieldKind Kind = FieldText<T>::Kind;
    static void append(std::string& text, const std::optional<T>& value) {
        if (value) FieldText<T>::append(text, *value);
    }
    static bool read(std::string_view text, std::optional<T>& value) {
        T known{};
        if (!FieldText<T>::read(text, known)) return false;
        value = std::move(known);
        return true;
    }
};

template <class T>
inline constexpr bool IsOptionalField = false;
template <class T>
inline constexpr bool IsOptionalField<std::optional<T>> = true;
}  // namespace kxVsGrid
