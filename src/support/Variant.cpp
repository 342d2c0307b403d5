#include "kxVsGrid/Variant.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid {
namespace {

std::size_t countOf(std::int32_t lower, std::int32_t upper) {
    const std::int64_t count = std::int64_t{upper} - lower + 1;
    if (count < 0) throw std::out_of_range("Table: an upper bound lies below its lower bound");
    return static_cast<std::size_t>(count);
}

// For messages, which nobody reads beyond a few lines; never fails.
std::string described(const Variant& value) {
    constexpr std::size_t Longest = 100;
    switch (value.type()) {
        case Variant::Type::Empty:
            return "an empty value";
        case Variant::Type::Null:
            return "null";
        case Variant::Type::Array:
            return "an array";
        default:
            break;
    }
    const std::string text = value.toText();
    const std::string_view start = support::left(text, Longest);
    return "\"" + std::string(start) + (start.size() < text.size() ? "...\"" : "\"");
}

[[noreturn]] void refuse(const Variant& value, const char* wanted) {
    throw ConversionError("No " + std::string(wanted) + ": " + described(value));
}

std::optional<bool> wordOf(std::string_view text) {
    text = support::trim(text);
    if (support::equalsIgnoringCase(text, "True")) return true;
    if (support::equalsIgnoringCase(text, "False")) return false;
    return {};
}

// `stored` is what the value holds; `wanted` names the type of the conversion that asks.
template <typename Stored>
double numberOf(const Variant& value, const Stored& stored, const char* wanted) {
    switch (value.type()) {
        case Variant::Type::Empty:
            return 0;
        case Variant::Type::Boolean:
            return std::get<bool>(stored) ? -1 : 0;
        case Variant::Type::Int16:
            return std::get<std::int16_t>(stored);
        case Variant::Type::Int32:
            return std::get<std::int32_t>(stored);
        case Variant::Type::Double:
            return std::get<double>(stored);
        case Variant::Type::Text: {
            const auto& text = std::get<std::string>(stored);
            if (const auto number = support::completeNumber(text)) return *number;
            if (const auto word = wordOf(text)) return *word ? -1 : 0;
            break;
        }
        case Variant::Type::Null:
        case Variant::Type::Array:
            break;
    }
    refuse(value, wanted);
}

template <typename Integer, typename Stored>
Integer integerOf(const Variant& value, const Stored& stored, const char* wanted) {
    const double number = support::roundHalfEven(numberOf(value, stored, wanted));
    if (!(number >= std::numeric_limits<Integer>::min() && number <= std::numeric_limits<Integer>::max()))
        refuse(value, wanted);
    return static_cast<Integer>(number);
}

}  // namespace

Table::Table() : elements_(1) {}

Table::Table(std::int32_t lower, std::int32_t upper)
    : lower_{lower, 0}, upper_{upper, 0}, elements_(countOf(lower, upper)) {}

Table::Table(std::int32_t lower1, std::int32_t upper1, std::int32_t lower2, std::int32_t upper2)
    : dimensions_(2), lower_{lower1, lower2}, upper_{upper1, upper2} {
    const std::size_t rows = countOf(lower1, upper1);
    const std::size_t columns = countOf(lower2, upper2);
    if (columns != 0 && rows > elements_.max_size() / columns) throw std::length_error("Table: too large");
    elements_.resize(rows * columns);
}

std::int32_t Table::lower(int dimension) const {
    if (dimension < 1 || dimension > dimensions_) throw std::out_of_range("Table: no such dimension");
    return lower_[dimension - 1];
}

std::int32_t Table::upper(int dimension) const {
    if (dimension < 1 || dimension > dimensions_) throw std::out_of_range("Table: no such dimension");
    return upper_[dimension - 1];
}

std::size_t Table::position(std::int32_t i, std::int32_t j, int dimensions) const {
    if (dimensions != dimensions_ || i < lower_[0] || i > upper_[0] || j < lower_[1] || j > upper_[1])
        throw std::out_of_range("Table: no such element");
    const auto row = static_cast<std::size_t>(std::int64_t{i} - lower_[0]);
    const auto column = static_cast<std::size_t>(std::int64_t{j} - lower_[1]);
    return row * countOf(lower_[1], upper_[1]) + column;
}

const Variant& Table::at(std::int32_t i) const {
    return elements_[position(i, 0, 1)];
}
Variant& Table::at(std::int32_t i) {
    return elements_[position(i, 0, 1)];
}
const Variant& Table::at(std::int32_t i, std::int32_t j) const {
    return elements_[position(i, j, 2)];
}
Variant& Table::at(std::int32_t i, std::int32_t j) {
    return elements_[position(i, j, 2)];
}

bool operator==(const Table& a, const Table& b) {
    for (int d = 0; d < 2; ++d)
        if (a.lower_[d] != b.lower_[d] || a.upper_[d] != b.upper_[d]) return false;
    return a.dimensions_ == b.dimensions_ && a.elements_ == b.elements_;
}

void Variant::refuseNumber(const std::string& number) {
    throw ConversionError("Variant: " + number + " does not fit into 32 bits");
}

Variant::Variant(Table table) : value_(std::make_shared<Table>(std::move(table))) {}

bool Variant::toBoolean() const {
    if (const auto* text = std::get_if<std::string>(&value_))
        if (const auto word = wordOf(*text)) return *word;
    return numberOf(*this, value_, "Boolean") != 0;
}

std::int16_t Variant::toInt16() const {
    return integerOf<std::int16_t>(*this, value_, "16-bit integer");
}

std::int32_t Variant::toInt32() const {
    return integerOf<std::int32_t>(*this, value_, "32-bit integer");
}

double Variant::toDouble() const {
    return numberOf(*this, value_, "number");
}

std::string Variant::toText() const {
    switch (type()) {
        case Type::Empty:
            return {};
        case Type::Boolean:
            return std::get<bool>(value_) ? "True" : "False";
        case Type::Int16:
            return std::to_string(std::get<std::int16_t>(value_));
        case Type::Int32:
            return std::to_string(std::get<std::int32_t>(value_));
        case Type::Double:
            return support::numberText(std::get<double>(value_));
        case Type::Text:
            return std::get<std::string>(value_);
        case Type::Null:
        case Type::Array:
            break;
    }
    refuse(*this, "text");
}

Variant Variant::as(Type type) const {
    switch (type) {
        case Type::Boolean:
            return toBoolean();
        case Type::Int16:
            return toInt16();
        case Type::Int32:
            return toInt32();
        case Type::Double:
            return toDouble();
        case Type::Text:
            return toText();
        case Type::Empty:
        case Type::Null:
        case Type::Array:
            break;
    }
    return *this;
}

const Table* Variant::table() const {
    return isArray() ? std::get<std::shared_ptr<Table>>(value_).get() : nullptr;
}

Table* Variant::table() {
    if (!isArray()) return nullptr;
    auto& shared = std::get<std::shared_ptr<Table>>(value_);
    if (shared.use_count() > 1) shared = std::make_shared<Table>(*shared);
    return shared.get();
}

bool operator==(const Variant& a, const Variant& b) {
    if (a.isArray() && b.isArray()) return a.table() == b.table() || *a.table() == *b.table();
    return a.value_ == b.value_;
}
}  // namespace kxVsGrid
