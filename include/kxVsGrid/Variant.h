// A value of any of the types that settings and help tables are made of, with the conversions between them.
//
//     Variant v = "12";
//     assert(v.toInt32() == 12 && v.toBoolean());
//     Variant t = Table(0, 3, 0, 2);
//     t.table()->at(1, 2) = "A001";
//
// Conversions: "True" and "False" in any letter case, or a complete number, become Boolean (every number but
// 0 is True); complete numbers become integers, halves rounded to even, range-checked; True is -1; empty is
// 0, False or no text. Anything else (null included) throws ConversionError.
//
// Whole numbers of every width are taken, enumerations by their numbers; one beyond 32 bits throws
// ConversionError. Of pointers only C strings are taken, and no characters: what would silently become True
// or a number does not compile.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace kxVsGrid {

/// Thrown by conversions that have no answer; the text names the value and the wanted type.
class ConversionError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class Variant;

/// The types of whole numbers that are kept as Int32: neither Boolean nor the characters.
template <class T>
concept WholeNumber = std::integral<T> && !std::same_as<T, std::int16_t> && !std::same_as<T, bool> &&
                      !std::same_as<T, char> && !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> &&
                      !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

template <class T>
concept RealNumber = std::same_as<T, float> || std::same_as<T, double>;

/// Enumerations that stand for their numbers (unscoped ones).
template <class T>
concept NumberName = std::is_enum_v<T> && std::is_convertible_v<T, std::underlying_type_t<T>>;

/// A one- or two-dimensional array that knows its bounds.
class Table {
  public:
    Table();  ///< one element in one dimension, bounds 0 to 0
    /// std::out_of_range when an upper bound is smaller than its lower bound less 1; less 1 is a table
    /// without elements.
    Table(std::int32_t lower, std::int32_t upper);
    Table(std::int32_t lower1, std::int32_t upper1, std::int32_t lower2, std::int32_t upper2);

    int dimensions() const { return dimensions_; }
    /// Bounds of dimension 1 or 2; std::out_of_range for any other.
    std::int32_t lower(int dimension = 1) const;
    std::int32_t upper(int dimension = 1) const;

    /// Elements; std::out_of_range outside the bounds or with the wrong number of dimensions.
    const Variant& at(std::int32_t i) const;
    Variant& at(std::int32_t i);
    const Variant& at(std::int32_t i, std::int32_t j) const;
    Variant& at(std::int32_t i, std::int32_t j);

    friend bool operator==(const Table&, const Table&);

  private:
    std::size_t position(std::int32_t i, std::int32_t j, int dimensions) const;

    int dimensions_ = 1;
    std::int32_t lower_[2] = {0, 0};
    std::int32_t upper_[2] = {0, 0};
    std::vector<Variant> elements_;
};

class Variant {
  public:
    enum class Type { Empty, Null, Boolean, Int16, Int32, Double, Text, Array };
    struct NullValue {
        friend bool operator==(NullValue, NullValue) { return true; }
    };

    Variant() = default;
    /// Not the default: libstdc++ 12 destroys what was never made when memory runs out in a variant's own
    /// copy constructor; its assignment copies first.
    Variant(const Variant& other) { value_ = other.value_; }
    Variant(Variant&&) = default;
    Variant& operator=(const Variant&) = default;
    Variant& operator=(Variant&&) = default;
    ~Variant() = default;
    Variant(NullValue) : value_(NullValue{}) {}
    // Templates: what is merely convertible to one of these types (a pointer to bool) is not taken.
    template <std::same_as<bool> Boolean>
    Variant(Boolean value) : value_(value) {}
    /// ConversionError beyond 32 bits.
    template <WholeNumber Number>
    Variant(Number value) : value_(inRange(value)) {}
    template <std::same_as<std::int16_t> Number>
    Variant(Number value) : value_(value) {}
    template <NumberName Name>
    Variant(Name value) : Variant(static_cast<std::underlying_type_t<Name>>(value)) {}
    template <RealNumber Number>
    Variant(Number value) : value_(static_cast<double>(value)) {}
    Variant(std::string value) : value_(std::move(value)) {}
    Variant(std::string_view value) : value_(std::string(value)) {}
    Variant(const char* value) : value_(std::string(value)) {}
    Variant(std::nullptr_t) = delete;
    Variant(Table table);
    static Variant null() { return Variant(NullValue{}); }

    Type type() const { return static_cast<Type>(value_.index()); }
    bool isEmpty() const { return type() == Type::Empty; }
    bool isNull() const { return type() == Type::Null; }
    bool isArray() const { return type() == Type::Array; }

    bool toBoolean() const;
    std::int16_t toInt16() const;
    std::int32_t toInt32() const;
    double toDouble() const;
    std::string toText() const;
    /// Converted to Boolean, Int16, Int32, Double or Text; as it is for every other type.
    Variant as(Type type) const;

    /// The array, or nullptr when the value is none. The mutable one separates this value from its copies
    /// first.
    const Table* table() const;
    Table* table();

    friend bool operator==(const Variant& a, const Variant& b);

  private:
    template <class Number>
    static std::int32_t inRange(Number value) {
        if (!std::in_range<std::int32_t>(value)) refuseNumber(std::to_string(value));
        return static_cast<std::int32_t>(value);
    }
    [[noreturn]] static void refuseNumber(const std::string& number);
    std::variant<std::monostate, NullValue, bool, std::int16_t, std::int32_t, double, std::string,
                 std::shared_ptr<Table>>
        value_;
};
}  // namespace kxVsGrid
