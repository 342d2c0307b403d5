// The bag in memory: exact types, the order of the first writing, and finding things among many.
#include "kxVsGrid/MemoryBag.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kxVsGrid {
namespace {

using Names = std::vector<std::string>;

Names namesOf(const MemoryBag& bag) {
    Names names;
    for (const auto& entry : bag.entries()) names.push_back(entry.name);
    return names;
}

TEST(MemoryBag, IsEmptyAtFirstAndAnswersTheDefaultAsItIs) {
    MemoryBag bag;
    EXPECT_EQ(bag.size(), 0u);
    EXPECT_EQ(bag.find("name"), nullptr);
    EXPECT_EQ(bag.Read("name", std::int16_t{7}).type(), Variant::Type::Int16);
    EXPECT_EQ(bag.Read("name", "text"), Variant("text"));
    EXPECT_TRUE(bag.Read("name", Variant()).isEmpty());
    EXPECT_TRUE(bag.Read("name", Variant::null()).isNull());
    EXPECT_EQ(bag.size(), 0u) << "reading stores nothing";
}

TEST(MemoryBag, KeepsEveryTypeExactly) {
    MemoryBag bag;
    const std::vector<Variant> values = {Variant(), Variant::null(), true,       std::int16_t{-1}, 1,
                                         1.5,       "text",          Table(0, 3)};
    for (std::size_t i = 0; i < values.size(); ++i) bag.Write("name" + std::to_string(i), values[i]);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Variant read = bag.Read("name" + std::to_string(i), "default");
        EXPECT_EQ(read.type(), values[i].type()) << i;
        EXPECT_EQ(read, values[i]) << i;
    }
}

TEST(MemoryBag, KeepsAValueThatEqualsItsDefaultAndTheDefaultWithIt) {
    MemoryBag bag;
    bag.Write("Appearance", 1, 1);
    bag.Write("Rows", 6);
    ASSERT_EQ(bag.size(), 2u);
    EXPECT_EQ(*bag.find("Appearance"), Variant(1));
    EXPECT_EQ(bag.entries()[0].fallback, std::optional<Variant>(Variant(1)));
    EXPECT_EQ(bag.entries()[1].fallback, std::nullopt);
    EXPECT_EQ(bag.Read("Appearance", 9), Variant(1));
}

TEST(MemoryBag, KeepsTheOrderOfTheFirstWritingAndTheLastValue) {
    MemoryBag bag;
    bag.Write("b", 1);
    bag.Write("a", 2, 0);
    bag.Write("c", 3);
    bag.Write("b", "again", "default");
    bag.Write("a", 5);
    EXPECT_EQ(namesOf(bag), (Names{"b", "a", "c"}));
    EXPECT_EQ(*bag.find("b"), Variant("again"));
    EXPECT_EQ(bag.entries()[0].fallback, std::optional<Variant>(Variant("default")));
    EXPECT_EQ(bag.entries()[1].fallback, std::nullopt);
    EXPECT_EQ(bag.size(), 3u);
}

TEST(MemoryBag, TellsNamesApartByEveryByte) {
    MemoryBag bag;
    const Names names = {
        "",    " ", "a", "A", "a ", "ab", std::string("a\0b", 3), std::string("a\0c", 3), "b是否提供帮助",
        "\xFF"};
    for (std::size_t i = 0; i < names.size(); ++i) bag.Write(names[i], static_cast<std::int32_t>(i));
    EXPECT_EQ(namesOf(bag), names);
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(bag.Read(names[i], -1), Variant(static_cast<std::int32_t>(i))) << i;
}

TEST(MemoryBag, ErasesOneNameAndFindsTheOthersAsBefore) {
    MemoryBag bag;
    for (int i = 0; i < 10; ++i) bag.Write("name" + std::to_string(i), i);
    EXPECT_TRUE(bag.erase("name3"));
    EXPECT_FALSE(bag.erase("name3"));
    EXPECT_FALSE(bag.erase("other"));
    EXPECT_TRUE(bag.erase("name9"));
    EXPECT_TRUE(bag.erase("name0"));
    EXPECT_EQ(namesOf(bag), (Names{"name1", "name2", "name4", "name5", "name6", "name7", "name8"}));
    for (const int i : {1, 2, 4, 5, 6, 7, 8}) {
        ASSERT_TRUE(bag.find("name" + std::to_string(i))) << i;
        EXPECT_EQ(*bag.find("name" + std::to_string(i)), Variant(i));
    }
    for (const int i : {0, 3, 9}) EXPECT_FALSE(bag.find("name" + std::to_string(i))) << i;
    bag.Write("name3", "back");
    EXPECT_EQ(bag.entries().back().name, "name3");
    EXPECT_EQ(*bag.find("name3"), Variant("back"));
}

TEST(MemoryBag, ClearsToAnEmptyOne) {
    MemoryBag bag;
    bag.Write("a", 1);
    bag.Write("b", 2);
    bag.clear();
    EXPECT_EQ(bag.size(), 0u);
    EXPECT_FALSE(bag.find("a"));
    EXPECT_EQ(bag.Read("b", 9), Variant(9));
    bag.Write("b", 3);
    EXPECT_EQ(*bag.find("b"), Variant(3));
    EXPECT_EQ(bag.size(), 1u);
}

TEST(MemoryBag, CopiesAreIndependent) {
    MemoryBag bag;
    bag.Write("a", 1);
    MemoryBag copy = bag;
    copy.Write("a", 2);
    copy.Write("b", 3);
    EXPECT_EQ(*bag.find("a"), Variant(1));
    EXPECT_EQ(bag.size(), 1u);
    EXPECT_EQ(*copy.find("b"), Variant(3));
}

TEST(MemoryBag, HoldsManyNamesAndTenMegabytes) {
    constexpr std::int32_t Many = 200'000;
    MemoryBag bag;
    for (std::int32_t i = 0; i < Many; ++i) bag.Write("SetVsControl" + std::to_string(i), i);
    const std::string large(10'000'000, 'x');
    bag.Write("large", large);
    EXPECT_EQ(bag.size(), Many + 1u);
    for (const std::int32_t i : {0, 1, 99'999, Many - 1})
        EXPECT_EQ(bag.Read("SetVsControl" + std::to_string(i), -1), Variant(i));
    EXPECT_EQ(bag.Read("large", ""), Variant(large));
    EXPECT_EQ(bag.Read("SetVsControl200000", -1), Variant(-1));
}
}  // namespace
}  // namespace kxVsGrid
