#include "kxVsGrid/headless/BagRules.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <limits>
#include <utility>

namespace kxVsGrid::headless {
namespace {

using Bag = std::unique_ptr<PropertyBag>;

std::string typeName(const Variant& value) {
    switch (value.type()) {
        case Variant::Type::Empty:
            return "empty";
        case Variant::Type::Null:
            return "null";
        case Variant::Type::Boolean:
            return "Boolean";
        case Variant::Type::Int16:
            return "16-bit";
        case Variant::Type::Int32:
            return "32-bit";
        case Variant::Type::Double:
            return "double";
        case Variant::Type::Text:
            return "text";
        case Variant::Type::Array:
            break;
    }
    return "array";
}

/// For a message: long texts by their length.
std::string shown(const Variant& value) {
    constexpr std::size_t Long = 60;
    if (value.isEmpty() || value.isNull() || value.isArray()) return typeName(value);
    const std::string text = value.toText();
    if (text.size() > Long) return typeName(value) + " of " + std::to_string(text.size()) + " bytes";
    return typeName(value) + " \"" + text + "\"";
}

/// Values that lose something on their way through a store that was not made for them.
std::vector<std::pair<std::string, Variant>> difficultValues() {
    const double precise = 0.1 + 0.2;
    std::vector<std::pair<std::string, Variant>> values{
        {"Boolean", true},
        {"BooleanNo", false},
        {"Int16", std::numeric_limits<std::int16_t>::min()},
        {"Int32", std::numeric_limits<std::int32_t>::min()},
        {"Int32Small", std::int32_t{1}},
        {"Int16Zero", std::int16_t{0}},
        {"Int32Zero", std::int32_t{0}},
        {"DoubleZero", 0.0},
        {"Double", precise},
        {"DoubleWhole", 1.0},
        {"DoubleLarge", std::numeric_limits<double>::max()},
        {"DoubleSmall", std::numeric_limits<double>::denorm_min()},
        {"Nothing", Variant()},
        {"Null", Variant::null()},
        {"NoText", ""},
        {"Blanks", "  both sides  "},
        {"Lines", "one\ntwo\r\nthree\ttab"},
        {"LastLineEnd", "line\n"},
        {"Control", "\x01 \x07 \x1B \x7F"},
        {"At", "@Invalid()"},
        {"Marks", "\"quoted\" \\ ; # = % [x] , @Invalid() a:b"},
        {"LooksLikeANumber", "007"},
        {"LooksLikeABoolean", "True"},
        {"SetVsControl3b是否提供帮助", "货号|名称；品"},
        {"SetVsControl1", "column one"},
        {"SetVsControl10", "column ten"},
        {"a name = with; marks", "value"},
        {"Outside", "\xF0\x9F\x98\x80 outside the basic plane"},
        {"Bytes", std::string("not UTF-8: \xFF\xFE \x80 \0 zero", 22)}};
    values.emplace_back("Long", std::string(100000, 'x') + "品");
    return values;
}

class Check {
  public:
    explicit Check(BagStore& store) : store_(store) {}

    void rule(const char* sentence, void (Check::*work)()) {
        rule_ = sentence;
        try {
            (this->*work)();
        } catch (const std::exception& error) {
            broken(std::string("it threw: ") + error.what());
        } catch (...) {
            broken("it threw");
        }
    }

    void absentGivesDefault() {
        const Bag bag = store_.fresh();
        for (const auto& [name, value] : difficultValues()) expect(*bag, name, value, value);
    }
    void keepsAtOnce() {
        const Bag bag = store_.fresh();
        for (const auto& [name, value] : difficultValues()) bag->Write(name, value);
        for (const auto& [name, value] : difficultValues()) expect(*bag, name, "other", value);
    }
    void keepsWhenReopened() {
        Bag bag = store_.fresh();
        for (const auto& [name, value] : difficultValues()) bag->Write(name, value);
        bag = store_.reopened(std::move(bag));
        for (const auto& [name, value] : difficultValues()) expect(*bag, name, "other", value);
        expect(*bag, "Absent", std::int32_t{7}, std::int32_t{7});
    }
    void keepsWithADefault() {
        Bag bag = store_.fresh();
        bag->Write("Other", std::int32_t{5}, std::int32_t{4});
        bag->Write("Equal", std::int32_t{4}, std::int32_t{4});
        bag->Write("EqualButForItsType", false, "0");
        bag = store_.reopened(std::move(bag));
        expect(*bag, "Other", std::int32_t{4}, std::int32_t{5});
        expect(*bag, "Equal", std::int32_t{4}, std::int32_t{4});
        expect(*bag, "EqualButForItsType", "0", false);
    }
    void lastWritingCounts() {
        Bag bag = store_.fresh();
        for (const std::int32_t value : {1, 2, 3}) bag->Write("Twice", value);
        bag->Write("TypeToo", std::int32_t{1});
        bag->Write("TypeToo", "1");
        expect(*bag, "Twice", Variant(), std::int32_t{3});
        bag = store_.reopened(std::move(bag));
        expect(*bag, "Twice", Variant(), std::int32_t{3});
        expect(*bag, "TypeToo", Variant(), "1");
        bag->Write("Twice", std::int32_t{4});
        bag = store_.reopened(std::move(bag));
        expect(*bag, "Twice", Variant(), std::int32_t{4});
    }
    void defaultReplaces() {
        Bag bag = store_.fresh();
        bag->Write("Value", std::int32_t{5}, std::int32_t{4});
        bag = store_.reopened(std::move(bag));
        bag->Write("Value", std::int32_t{4}, std::int32_t{4});
        expect(*bag, "Value", std::int32_t{4}, std::int32_t{4});
        bag = store_.reopened(std::move(bag));
        expect(*bag, "Value", std::int32_t{4}, std::int32_t{4});
    }
    void namesAreExact() {
        Bag bag = store_.fresh();
        bag->Write("Name", "capital");
        bag->Write("name", "small");
        bag->Write("Na", "start");
        bag = store_.reopened(std::move(bag));
        expect(*bag, "Name", "", "capital");
        expect(*bag, "name", "", "small");
        expect(*bag, "Na", "", "start");
        expect(*bag, "NAME", "none", "none");
    }
    void chineseNamesAreExact() {
        Bag bag = store_.fresh();
        bag->Write("SetVsControl1i帮助类型", std::int32_t{1});
        bag->Write("SetVsControl1i是否允许为空", std::int32_t{2});
        bag->Write("SetVsControl1i帮助", std::int32_t{3});
        bag = store_.reopened(std::move(bag));
        expect(*bag, "SetVsControl1i帮助类型", Variant(), std::int32_t{1});
        expect(*bag, "SetVsControl1i是否允许为空", Variant(), std::int32_t{2});
        expect(*bag, "SetVsControl1i帮助", Variant(), std::int32_t{3});
        expect(*bag, "SetVsControl1i", Variant(), Variant());
    }
    void namesKeepTheirMarks() {
        Bag bag = store_.fresh();
        bag->Write("a b", "blank");
        bag->Write("ab", "none");
        bag->Write("a/b", "slash");
        bag->Write("a", "start");
        bag = store_.reopened(std::move(bag));
        expect(*bag, "a b", "", "blank");
        expect(*bag, "ab", "", "none");
        expect(*bag, "a/b", "", "slash");
        expect(*bag, "a", "", "start");
    }
    /// As many as a grid of a hundred columns has.
    void holdsMany() {
        constexpr std::int32_t Many = 2000;
        Bag bag = store_.fresh();
        for (std::int32_t i = 0; i < Many; ++i) bag->Write("Value" + std::to_string(i), i);
        bag = store_.reopened(std::move(bag));
        for (std::int32_t i = 0; i < Many; ++i) expect(*bag, "Value" + std::to_string(i), -1, i);
    }
    void readingKeepsNothing() {
        Bag bag = store_.fresh();
        expect(*bag, "Absent", "first", "first");
        expect(*bag, "Absent", "second", "second");
        bag = store_.reopened(std::move(bag));
        expect(*bag, "Absent", "third", "third");
    }
    void freshIsEmpty() {
        Bag bag = store_.fresh();
        bag->Write("Left", "over");
        bag = store_.reopened(std::move(bag));
        bag.reset();
        bag = store_.fresh();
        expect(*bag, "Left", "nothing", "nothing");
    }

    std::vector<std::string> faults;

  private:
    void expect(PropertyBag& bag, const std::string& name, const Variant& fallback, const Variant& expected) {
        const Variant value = bag.Read(name, fallback);
        if (value == expected) return;
        broken("\"" + name + "\" came back as " + shown(value) + " instead of " + shown(expected));
    }
    void broken(const std::string& how) { faults.push_back(std::string(rule_) + ": " + how); }

    BagStore& store_;
    const char* rule_ = "";
};
}  // namespace

std::vector<std::string> brokenBagRules(BagStore& store) {
    Check check(store);
    check.rule("What was never written reads as the default, of any type", &Check::absentGivesDefault);
    check.rule("What was written is read back with its exact type", &Check::keepsAtOnce);
    check.rule("What was written is still there when the bag is opened again", &Check::keepsWhenReopened);
    check.rule("A value written with a default reads back with that default", &Check::keepsWithADefault);
    check.rule("The last value written under a name counts", &Check::lastWritingCounts);
    check.rule("A value that equals its default replaces what was stored before", &Check::defaultReplaces);
    check.rule("Names are told apart exactly, capitals and beginnings included", &Check::namesAreExact);
    check.rule("Names are told apart by their Chinese letters too", &Check::chineseNamesAreExact);
    check.rule("Names keep their blanks and marks", &Check::namesKeepTheirMarks);
    check.rule("A bag holds the settings of a hundred columns", &Check::holdsMany);
    check.rule("Reading stores nothing", &Check::readingKeepsNothing);
    check.rule("A fresh bag holds nothing of an earlier one", &Check::freshIsEmpty);
    return std::move(check.faults);
}
}  // namespace kxVsGrid::headless
