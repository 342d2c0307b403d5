#include "kxVsGrid/Variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace kxVsGrid {
namespace {

using Type = Variant::Type;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Variant, KeepsTheTypeItWasMadeFrom) {
    EXPECT_EQ(Variant().type(), Type::Empty);
    EXPECT_EQ(Variant::null().type(), Type::Null);
    EXPECT_EQ(Variant(true).type(), Type::Boolean);
    EXPECT_EQ(Variant(std::int16_t{1}).type(), Type::Int16);
    EXPECT_EQ(Variant(1).type(), Type::Int32);
    EXPECT_EQ(Variant(1.0).type(), Type::Double);
    EXPECT_EQ(Variant("a").type(), Type::Text);
    EXPECT_EQ(Variant(std::string("a")).type(), Type::Text);
    EXPECT_EQ(Variant(std::string_view("a")).type(), Type::Text);
    EXPECT_EQ(Variant(Table()).type(), Type::Array);
    EXPECT_TRUE(Variant().isEmpty());
    EXPECT_TRUE(Variant::null().isNull());
    EXPECT_TRUE(Variant(Table()).isArray());
    EXPECT_FALSE(Variant("").isEmpty());
}

TEST(VariantToBoolean, ReadsTrueAndFalseInAnyLetterCase) {
    for (const char* text : {"True", "true", "TRUE", "tRuE", " True "})
        EXPECT_TRUE(Variant(text).toBoolean()) << text;
    for (const char* text : {"False", "false", "FALSE"}) EXPECT_FALSE(Variant(text).toBoolean()) << text;
}

TEST(VariantToBoolean, TakesEveryNumberButZeroAsTrue) {
    EXPECT_TRUE(Variant("1").toBoolean());
    EXPECT_TRUE(Variant("-1").toBoolean());
    EXPECT_TRUE(Variant("0.4").toBoolean());
    EXPECT_FALSE(Variant("0").toBoolean());
    EXPECT_FALSE(Variant("-0.0").toBoolean());
    EXPECT_TRUE(Variant(-1).toBoolean());
    EXPECT_TRUE(Variant(std::int16_t{2}).toBoolean());
    EXPECT_TRUE(Variant(0.1).toBoolean());
    EXPECT_FALSE(Variant(0).toBoolean());
    EXPECT_FALSE(Variant(0.0).toBoolean());
    EXPECT_TRUE(Variant(true).toBoolean());
    EXPECT_FALSE(Variant(false).toBoolean());
    EXPECT_FALSE(Variant().toBoolean());
}

TEST(VariantToBoolean, RefusesEverythingElse) {
    for (const char* text : {"", "yes", "1a", "True1", "-", "真"})
        EXPECT_THROW(Variant(text).toBoolean(), ConversionError) << text;
    EXPECT_THROW(Variant::null().toBoolean(), ConversionError);
    EXPECT_THROW(Variant(Table()).toBoolean(), ConversionError);
}

TEST(VariantToInteger, RoundsHalvesToEven) {
    EXPECT_EQ(Variant("2.5").toInt32(), 2);
    EXPECT_EQ(Variant("3.5").toInt32(), 4);
    EXPECT_EQ(Variant("-2.5").toInt32(), -2);
    EXPECT_EQ(Variant(0.5).toInt16(), 0);
    EXPECT_EQ(Variant(1.5).toInt16(), 2);
    EXPECT_EQ(Variant("2.6").toInt16(), 3);
}

TEST(VariantToInteger, ReadsCompleteNumbers) {
    EXPECT_EQ(Variant(" 12 ").toInt32(), 12);
    EXPECT_EQ(Variant("1e3").toInt16(), 1000);
    EXPECT_EQ(Variant(std::int16_t{7}).toInt32(), 7);
    EXPECT_EQ(Variant(7).toInt16(), 7);
}

TEST(VariantToInteger, TakesTrueAsMinusOneAndEmptyAsZero) {
    EXPECT_EQ(Variant(true).toInt16(), -1);
    EXPECT_EQ(Variant(true).toInt32(), -1);
    EXPECT_EQ(Variant(false).toInt32(), 0);
    EXPECT_EQ(Variant("True").toInt32(), -1);
    EXPECT_EQ(Variant("false").toInt16(), 0);
    EXPECT_EQ(Variant().toInt16(), 0);
    EXPECT_EQ(Variant().toInt32(), 0);
}

TEST(VariantToInteger, ChecksTheRange) {
    EXPECT_EQ(Variant(32767).toInt16(), 32767);
    EXPECT_EQ(Variant(-32768).toInt16(), -32768);
    EXPECT_EQ(Variant("32767.4").toInt16(), 32767);
    EXPECT_THROW(Variant("32767.5").toInt16(), ConversionError);
    EXPECT_THROW(Variant(32768).toInt16(), ConversionError);
    EXPECT_THROW(Variant(-32769).toInt16(), ConversionError);
    EXPECT_EQ(Variant(2147483647.0).toInt32(), 2147483647);
    EXPECT_EQ(Variant("-2147483648").toInt32(), std::numeric_limits<std::int32_t>::min());
    EXPECT_THROW(Variant(2147483648.0).toInt32(), ConversionError);
    EXPECT_THROW(Variant("-2147483649").toInt32(), ConversionError);
    EXPECT_THROW(Variant(1e300).toInt32(), ConversionError);
    EXPECT_THROW(Variant(kInfinity).toInt32(), ConversionError);
    EXPECT_THROW(Variant(std::nan("")).toInt32(), ConversionError);
}

TEST(VariantToInteger, RefusesEverythingElse) {
    for (const char* text : {"", "12a", "1,5", "abc"}) {
        EXPECT_THROW(Variant(text).toInt16(), ConversionError) << text;
        EXPECT_THROW(Variant(text).toInt32(), ConversionError) << text;
    }
    EXPECT_THROW(Variant::null().toInt16(), ConversionError);
    EXPECT_THROW(Variant(Table()).toInt32(), ConversionError);
}

TEST(VariantToDouble, ConvertsNumbersTextsAndBooleans) {
    EXPECT_EQ(Variant("1.25").toDouble(), 1.25);
    EXPECT_EQ(Variant(3).toDouble(), 3);
    EXPECT_EQ(Variant(std::int16_t{3}).toDouble(), 3);
    EXPECT_EQ(Variant(0.1).toDouble(), 0.1);
    EXPECT_EQ(Variant(true).toDouble(), -1);
    EXPECT_EQ(Variant("TRUE").toDouble(), -1);
    EXPECT_EQ(Variant().toDouble(), 0);
    EXPECT_THROW(Variant("").toDouble(), ConversionError);
    EXPECT_THROW(Variant("x").toDouble(), ConversionError);
    EXPECT_THROW(Variant("1e999").toDouble(), ConversionError);
    EXPECT_THROW(Variant::null().toDouble(), ConversionError);
    EXPECT_THROW(Variant(Table()).toDouble(), ConversionError);
}

TEST(VariantToText, WritesEveryPlainType) {
    EXPECT_EQ(Variant(" a ").toText(), " a ");
    EXPECT_EQ(Variant().toText(), "");
    EXPECT_EQ(Variant(true).toText(), "True");
    EXPECT_EQ(Variant(false).toText(), "False");
    EXPECT_EQ(Variant(std::int16_t{-5}).toText(), "-5");
    EXPECT_EQ(Variant(2147483647).toText(), "2147483647");
    EXPECT_EQ(Variant(0.1 + 0.2).toText(), "0.3");
    EXPECT_EQ(Variant(-0.0).toText(), "0");
    EXPECT_THROW(Variant::null().toText(), ConversionError);
    EXPECT_THROW(Variant(Table()).toText(), ConversionError);
}

TEST(ConversionErrors, NameTheValueAndTheWantedType) {
    try {
        Variant("12a").toInt16();
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_NE(std::string(error.what()).find("12a"), std::string::npos) << error.what();
        EXPECT_NE(std::string(error.what()).find("16-bit"), std::string::npos) << error.what();
    }
}

TEST(Variant, EqualsOnlyTheSameTypeWithTheSameValue) {
    EXPECT_EQ(Variant("a"), Variant(std::string("a")));
    EXPECT_NE(Variant("1"), Variant(1));
    EXPECT_NE(Variant(1), Variant(std::int16_t{1}));
    EXPECT_NE(Variant(1), Variant(2));
    EXPECT_EQ(Variant(), Variant());
    EXPECT_EQ(Variant::null(), Variant::null());
    EXPECT_NE(Variant(), Variant::null());
}

TEST(Variant, EqualsArraysByTheirContent) {
    Table a(1, 2);
    a.at(1) = "x";
    Table b(1, 2);
    EXPECT_NE(Variant(a), Variant(b));
    b.at(1) = "x";
    EXPECT_EQ(Variant(a), Variant(b));
    EXPECT_NE(Variant(Table(1, 2)), Variant(Table(0, 1)));
    EXPECT_NE(Variant(Table(0, 0)), Variant(Table(0, 0, 0, 0)));
    EXPECT_NE(Variant(a), Variant("x"));
}

TEST(Table, HasOneElementToBeginWith) {
    Table table;
    EXPECT_EQ(table.dimensions(), 1);
    EXPECT_EQ(table.lower(), 0);
    EXPECT_EQ(table.upper(), 0);
    EXPECT_TRUE(table.at(0).isEmpty());
    EXPECT_EQ(table, Table(0, 0));
    EXPECT_THROW(table.lower(2), std::out_of_range);
}

TEST(Table, KnowsItsBounds) {
    const Table table(-1, 3, 2, 5);
    EXPECT_EQ(table.dimensions(), 2);
    EXPECT_EQ(table.lower(1), -1);
    EXPECT_EQ(table.upper(1), 3);
    EXPECT_EQ(table.lower(2), 2);
    EXPECT_EQ(table.upper(2), 5);
    EXPECT_THROW(table.upper(0), std::out_of_range);
    EXPECT_THROW(table.upper(3), std::out_of_range);
}

TEST(Table, KeepsEveryElementApart) {
    Table table(1, 3, -2, 2);
    for (int i = 1; i <= 3; ++i)
        for (int j = -2; j <= 2; ++j) table.at(i, j) = i * 100 + j;
    for (int i = 1; i <= 3; ++i)
        for (int j = -2; j <= 2; ++j) EXPECT_EQ(table.at(i, j), Variant(i * 100 + j));
}

TEST(Table, RefusesElementsOutsideItsBounds) {
    Table table(0, 2, 1, 3);
    EXPECT_THROW(table.at(-1, 1), std::out_of_range);
    EXPECT_THROW(table.at(3, 1), std::out_of_range);
    EXPECT_THROW(table.at(0, 0), std::out_of_range);
    EXPECT_THROW(table.at(0, 4), std::out_of_range);
    EXPECT_THROW(table.at(0), std::out_of_range);
    const Table row(5, 6);
    EXPECT_THROW(row.at(4), std::out_of_range);
    EXPECT_THROW(row.at(7), std::out_of_range);
    EXPECT_THROW(row.at(5, 0), std::out_of_range);
}

TEST(Table, MayHaveNoElements) {
    const Table none(0, -1);
    EXPECT_EQ(none.upper(), -1);
    EXPECT_THROW(none.at(0), std::out_of_range);
    const Table noColumns(0, 5, 1, 0);
    EXPECT_THROW(noColumns.at(0, 1), std::out_of_range);
}

TEST(Table, RefusesBoundsThatAreNoRange) {
    EXPECT_THROW(Table(0, -2), std::out_of_range);
    EXPECT_THROW(Table(0, 1, 5, 3), std::out_of_range);
    EXPECT_THROW(Table(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(),
                       std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()),
                 std::length_error);
}

TEST(VariantTable, IsNothingForOtherValues) {
    Variant text("a");
    EXPECT_EQ(text.table(), nullptr);
    EXPECT_EQ(std::as_const(text).table(), nullptr);
}

TEST(VariantTable, IsSeparatedFromItsCopiesBeforeAChange) {
    Variant original = Table(0, 1);
    original.table()->at(0) = "first";
    const Variant copy = original;
    original.table()->at(0) = "changed";
    EXPECT_EQ(copy.table()->at(0), Variant("first"));
    EXPECT_EQ(original.table()->at(0), Variant("changed"));
}

TEST(VariantTable, MayHoldArrays) {
    Variant outer = Table(0, 0);
    outer.table()->at(0) = Table(1, 1);
    outer.table()->at(0).table()->at(1) = 5;
    const Variant copy = outer;
    EXPECT_EQ(copy, outer);
    EXPECT_EQ(copy.table()->at(0).table()->at(1), Variant(5));
}

enum OldName : std::int16_t { Seven = 7 };
enum class NewName { One };

template <class... Types>
constexpr bool noneTaken = !(std::is_constructible_v<Variant, Types> || ...);

TEST(Variant, TakesNoPointersButTextsAndNoCharacters) {
    static_assert(!std::is_constructible_v<Variant, const char8_t*>);
    static_assert(!std::is_constructible_v<Variant, decltype(u8"")>);
    static_assert(!std::is_constructible_v<Variant, std::u8string>);
    static_assert(noneTaken<const wchar_t*, const char16_t*, const void*, int*, Table*, std::nullptr_t>);
    static_assert(noneTaken<void (*)(), int Table::*, decltype([] {})>);
    static_assert(noneTaken<char, wchar_t, char8_t, char16_t, char32_t, NewName, long double>);
    static_assert(std::is_constructible_v<Variant, char*> && std::is_convertible_v<const char*, Variant>);
    static_assert(std::is_convertible_v<bool, Variant> && std::is_convertible_v<OldName, Variant>);
    char text[] = "text";
    EXPECT_EQ(Variant(text).toText(), "text");
}

template <class Integer>
void expectTaken(Type type) {
    const Variant value = static_cast<Integer>(100);
    EXPECT_EQ(value.type(), type);
    EXPECT_EQ(value.toInt32(), 100);
}

TEST(Variant, TakesWholeNumbersOfEveryWidth) {
    expectTaken<std::int8_t>(Type::Int32);
    expectTaken<std::uint8_t>(Type::Int32);
    expectTaken<std::int16_t>(Type::Int16);
    expectTaken<std::uint16_t>(Type::Int32);
    expectTaken<std::int32_t>(Type::Int32);
    expectTaken<std::uint32_t>(Type::Int32);
    expectTaken<long>(Type::Int32);
    expectTaken<unsigned long>(Type::Int32);
    expectTaken<long long>(Type::Int32);
    expectTaken<std::size_t>(Type::Int32);
    EXPECT_EQ(Variant(-2147483648LL).toInt32(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Variant(std::uint16_t{65535}).toInt32(), 65535);
    EXPECT_EQ(Variant(1.5F).type(), Type::Double);
    EXPECT_EQ(Variant(Seven), Variant(std::int16_t{7}));
}

TEST(Variant, NamesAWholeNumberThatDoesNotFit) {
    EXPECT_THROW(Variant(2147483648LL), ConversionError);
    EXPECT_THROW(Variant(std::uint32_t{4294967295U}), ConversionError);
    const std::uint64_t huge = std::numeric_limits<std::uint64_t>::max();
    EXPECT_THROW(static_cast<void>(Variant(huge)), ConversionError);
    try {
        const Variant value(-2147483649LL);
        ADD_FAILURE() << value.toText();
    } catch (const ConversionError& error) {
        EXPECT_NE(std::string(error.what()).find("-2147483649"), std::string::npos) << error.what();
    }
}
}  // namespace
}  // namespace kxVsGrid
