// The properties of a class as rows of one table: name, type, how it is read and put, and how it is stored.
// Whatever treats properties alike (members by name, settings, pages, forms, the manual's tables) is a loop
// over the rows.
//
// A row is made from one function that serves both ways: without a value it reads, with one it puts, as in
// [](auto& column, auto... value) { return column.iType(value...); }
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "kxVsGrid/Members.h"

namespace kxVsGrid::support {

/// How a value of C++ stands in a Variant: enumerations and colours as the 16 or 32 bits beneath them.
template <class T>
struct InVariant {
    using Beneath =
        typename std::conditional_t<std::is_enum_v<T>, std::underlying_type<T>, std::type_identity<T>>::type;
    using Kept = std::conditional_t<std::is_same_v<Beneath, std::uint32_t>, std::int32_t, Beneath>;

    static constexpr Variant::Type type() {
        if constexpr (std::is_same_v<Kept, bool>) return Variant::Type::Boolean;
        if constexpr (std::is_same_v<Kept, std::int16_t>) return Variant::Type::Int16;
        if constexpr (std::is_same_v<Kept, std::int32_t>) return Variant::Type::Int32;
        if constexpr (std::is_same_v<Kept, double>) return Variant::Type::Double;
        return Variant::Type::Text;
    }
    static Variant to(T value) { return Variant(static_cast<Kept>(std::move(value))); }
    /// ConversionError for what is no such value.
    static T from(const Variant& value) {
        if constexpr (type() == Variant::Type::Boolean)
            return value.toBoolean();
        else if constexpr (type() == Variant::Type::Int16)
            return static_cast<T>(value.toInt16());
        else if constexpr (type() == Variant::Type::Int32)
            return static_cast<T>(value.toInt32());
        else if constexpr (type() == Variant::Type::Double)
            return value.toDouble();
        else
            return value.toText();
    }
};

/// The two ways of a row's function.
template <class T, class Function, class Reader>
Variant getBy(Reader& owner) {
    return InVariant<T>::to(Function{}(owner));
}
template <class T, class Function, class Owner>
void putBy(Owner& owner, const Variant& value) {
    Function{}(owner, InVariant<T>::from(value));
}

/// One reading of a stored value: its place in the order of reading, and where the value goes.
template <class Loaded>
struct Loading {
    int place;
    void (*into)(Loaded&, const Variant&);
};

/// How a property is stored. Places count from 1 and run through all rows of a table.
template <class Loaded>
struct Storage {
    std::string_view name;   ///< what is written
    std::string_view asked;  ///< what is asked for: the same, but for one name of files in use
    Variant::Type type;      ///< the type that is written
    Variant fallback;        ///< the default when reading
    bool fallbackWritten;    ///< written with its default, so that a bag may leave it out
    int writtenPlace;
    std::vector<Loading<Loaded>> loadings;
};

/// One row. Reading by name needs a `Reader`, loading a `Loaded`; what cannot be read or put by name has no
/// function for it.
template <class Owner, class Reader = const Owner, class Loaded = Owner>
struct Property {
    std::string_view name;
    Member::Access access{};
    Variant::Type type{};
    int arguments = 0;
    Variant (*get)(Reader&) = nullptr;
    void (*put)(Owner&, const Variant&) = nullptr;
    std::optional<Storage<Loaded>> storage{};

    using Load = Loading<Loaded>;
};

/// The row of a name, or nullptr.
template <class Rows>
const typename Rows::value_type* find(const Rows& rows, std::string_view name) {
    const auto row = std::find_if(rows.begin(), rows.end(), [name](const auto& r) { return r.name == name; });
    return row != rows.end() ? &*row : nullptr;
}

/// A stored row and one of the places where it is read.
template <class Row>
struct Reading {
    const Row* row;
    typename Row::Load loading;
};

/// The stored rows in the order of reading; one that is asked for twice stands there twice.
template <class Row>
std::vector<Reading<Row>> inOrderOfReading(const std::vector<Row>& rows) {
    std::vector<Reading<Row>> readings;
    for (const Row& row : rows)
        if (row.storage)
            for (const auto& loading : row.storage->loadings) readings.push_back({&row, loading});
    std::ranges::sort(readings, {}, [](const Reading<Row>& reading) { return reading.loading.place; });
    return readings;
}

/// The stored rows in the order of writing.
template <class Row>
std::vector<const Row*> inOrderOfWriting(const std::vector<Row>& rows) {
    std::vector<const Row*> stored;
    for (const Row& row : rows)
        if (row.storage) stored.push_back(&row);
    std::ranges::sort(stored, {}, [](const Row* row) { return row->storage->writtenPlace; });
    return stored;
}

/// The rows as a class describes itself; a property's number is its place in the table.
template <class Rows>
std::vector<Member> membersOf(const Rows& rows) {
    std::vector<Member> members;
    members.reserve(rows.size());
    for (const auto& row : rows)
        members.push_back(
            {row.name, row.access, row.type, static_cast<int>(members.size()) + 1, row.arguments});
    return members;
}
}  // namespace kxVsGrid::support
