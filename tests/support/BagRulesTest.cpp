// The rules of a property bag: our own bags keep them, and so does one that leaves out defaults; bags that
// break one are found out.
#include "kxVsGrid/headless/BagRules.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/TextBag.h"

namespace kxVsGrid {
namespace {

using Rules = std::vector<std::string>;
using headless::BagStore;
using headless::brokenBagRules;
using Type = Variant::Type;

class MemoryStore : public BagStore {
  public:
    std::unique_ptr<PropertyBag> fresh() override { return std::make_unique<MemoryBag>(); }
    std::unique_ptr<PropertyBag> reopened(std::unique_ptr<PropertyBag> bag) override {
        return std::make_unique<MemoryBag>(dynamic_cast<MemoryBag&>(*bag));
    }
};

class TextStore : public BagStore {
  public:
    std::unique_ptr<PropertyBag> fresh() override { return std::make_unique<TextBag>(); }
    std::unique_ptr<PropertyBag> reopened(std::unique_ptr<PropertyBag> bag) override {
        return std::make_unique<TextBag>(dynamic_cast<TextBag&>(*bag).text());
    }
};

TEST(BagRules, AreKeptByTheBagInMemory) {
    MemoryStore store;
    EXPECT_EQ(brokenBagRules(store), Rules{});
}

TEST(BagRules, AreKeptByTheBagAsText) {
    TextStore store;
    EXPECT_EQ(brokenBagRules(store), Rules{});
}

/// A bag whose ways can be bent, one at a time.
struct Ways {
    std::string what;
    std::function<std::string(std::string_view)> nameKept = [](std::string_view given) {
        return std::string(given);
    };
    std::function<Variant(const Variant&)> kept = [](const Variant& value) { return value; };
    std::function<Variant(const Variant&)> fallback = [](const Variant& value) { return value; };
    std::optional<Variant> takenForNothing{};
    std::size_t room = 100'000'000;
    bool leavesOutDefaults = false;
    bool forgetsWhatItLeavesOut = true;
    bool firstWriteWins = false;
    bool storesDefaultsWhenRead = false;
    bool keepsOnlyWhatHasADefault = false;
    bool reopensEmpty = false;
    bool freshIsNot = false;
    bool answersDefaultsOnly = false;
    std::function<void(const Variant&)> beforeWrite = [](const Variant&) {};
    friend std::ostream& operator<<(std::ostream& out, const Ways& ways) { return out << ways.what; }
};

using Values = std::map<std::string, Variant>;

class BentBag : public PropertyBag {
  public:
    BentBag(const Ways& ways, Values values) : ways_(ways), values_(std::move(values)) {}
    Variant Read(std::string_view name, const Variant& fallback) override {
        const auto found = values_.find(ways_.nameKept(name));
        if (found != values_.end() && !ways_.answersDefaultsOnly) return found->second;
        if (ways_.storesDefaultsWhenRead) values_[ways_.nameKept(name)] = fallback;
        return ways_.fallback(fallback);
    }
    void Write(std::string_view name, const Variant& value, const Variant& fallback) override {
        if (ways_.leavesOutDefaults && value == fallback) {
            if (ways_.forgetsWhatItLeavesOut) values_.erase(ways_.nameKept(name));
            return;
        }
        keep(name, value);
    }
    void Write(std::string_view name, const Variant& value) override {
        if (!ways_.keepsOnlyWhatHasADefault) keep(name, value);
    }
    const Values& values() const { return values_; }

  private:
    void keep(std::string_view name, const Variant& value) {
        ways_.beforeWrite(value);
        if (ways_.firstWriteWins && values_.contains(ways_.nameKept(name))) return;
        if (ways_.takenForNothing && value.type() == ways_.takenForNothing->type() &&
            value == *ways_.takenForNothing)
            return void(values_.erase(ways_.nameKept(name)));
        if (values_.size() < ways_.room) values_[ways_.nameKept(name)] = ways_.kept(value);
    }
    const Ways& ways_;
    Values values_;
};

class BentStore : public BagStore {
  public:
    explicit BentStore(const Ways& ways) : ways_(ways) {}
    std::unique_ptr<PropertyBag> fresh() override {
        return std::make_unique<BentBag>(ways_, ways_.freshIsNot ? left_ : Values{});
    }
    std::unique_ptr<PropertyBag> reopened(std::unique_ptr<PropertyBag> bag) override {
        left_ = dynamic_cast<BentBag&>(*bag).values();
        return std::make_unique<BentBag>(ways_, ways_.reopensEmpty ? Values{} : left_);
    }

  private:
    const Ways& ways_;
    Values left_;
};

TEST(BagRules, AreKeptByABagThatKeepsEverything) {
    const Ways straight;
    BentStore store(straight);
    EXPECT_EQ(brokenBagRules(store), Rules{});
}

TEST(BagRules, LetABagLeaveOutWhatEqualsItsDefault) {
    Ways ways;
    ways.leavesOutDefaults = true;
    BentStore store(ways);
    EXPECT_EQ(brokenBagRules(store), Rules{});
}

Ways bent(std::string what, const std::function<void(Ways&)>& bend) {
    Ways ways;
    ways.what = std::move(what);
    bend(ways);
    return ways;
}
/// Values of one type come back as something else.
Ways turning(std::string what, Type from, const std::function<Variant(const Variant&)>& into) {
    return bent(std::move(what), [&](Ways& ways) {
        ways.kept = [from, into](const Variant& value) { return value.type() == from ? into(value) : value; };
    });
}
Ways textsBent(std::string what, const std::function<std::string(std::string)>& into) {
    return turning(std::move(what), Type::Text,
                   [into](const Variant& value) { return into(value.toText()); });
}
Ways namesBent(std::string what, const std::function<std::string(std::string)>& into) {
    return bent(std::move(what), [&](Ways& ways) {
        ways.nameKept = [into](std::string_view name) { return into(std::string(name)); };
    });
}

std::string without(std::string text, const std::function<bool(unsigned char)>& drop) {
    std::erase_if(text, [&](char c) { return drop(static_cast<unsigned char>(c)); });
    return text;
}

class BrokenBag : public ::testing::TestWithParam<Ways> {};

TEST_P(BrokenBag, IsFoundOut) {
    BentStore store(GetParam());
    const Rules broken = brokenBagRules(store);
    EXPECT_NE(broken, Rules{});
    for (const auto& rule : broken) EXPECT_FALSE(rule.empty());
}

const Ways Bent[] = {
    bent("AnswersDefaultsOnly", [](Ways& w) { w.answersDefaultsOnly = true; }),
    bent("ForgetsOnReopening", [](Ways& w) { w.reopensEmpty = true; }),
    bent("StartsWithLeftovers", [](Ways& w) { w.freshIsNot = true; }),
    bent("AnswersNothingForWhatIsMissing",
         [](Ways& w) { w.fallback = [](const Variant&) { return Variant(); }; }),
    bent("AnswersTextsForWhatIsMissing",
         [](Ways& w) {
             w.fallback = [](const Variant& v) {
                 return v.isNull() || v.isArray() ? v : Variant(v.toText());
             };
         }),
    bent("KeepsTheFirstValue", [](Ways& w) { w.firstWriteWins = true; }),
    bent("KeepsAnOldValueWhenTheDefaultIsWritten",
         [](Ways& w) {
             w.leavesOutDefaults = true;
             w.forgetsWhatItLeavesOut = false;
         }),
    bent("StoresDefaultsWhenRead", [](Ways& w) { w.storesDefaultsWhenRead = true; }),
    bent("DropsWhatHasNoDefault", [](Ways& w) { w.keepsOnlyWhatHasADefault = true; }),
    bent("RefusesNull",
         [](Ways& w) {
             w.beforeWrite = [](const Variant& v) {
                 if (v.isNull()) throw std::runtime_error("null");
             };
         }),
    turning("MakesIntegersWider", Type::Int16, [](const Variant& v) { return Variant(v.toInt32()); }),
    turning("MakesIntegersTexts", Type::Int32, [](const Variant& v) { return Variant(v.toText()); }),
    turning("MakesIntegersDoubles", Type::Int32, [](const Variant& v) { return Variant(v.toDouble()); }),
    turning("CutsIntegersToTwentyFourBits", Type::Int32,
            [](const Variant& v) {
                return Variant(static_cast<std::int32_t>(static_cast<float>(v.toInt32() / 2)) * 2);
            }),
    turning("DropsTheSign", Type::Int32, [](const Variant& v) { return Variant(v.toInt32() & INT32_MAX); }),
    turning("MakesBooleansNumbers", Type::Boolean, [](const Variant& v) { return Variant(v.toInt16()); }),
    turning("MakesBooleansTexts", Type::Boolean, [](const Variant& v) { return Variant(v.toText()); }),
    turning("MakesDoublesTexts", Type::Double, [](const Variant& v) { return Variant(v.toText()); }),
    turning("ShortensDoubles", Type::Double,
            [](const Variant& v) { return Variant(static_cast<double>(static_cast<float>(v.toDouble()))); }),
    turning("MakesNullEmpty", Type::Null, [](const Variant&) { return Variant(); }),
    turning("MakesEmptyAText", Type::Empty, [](const Variant&) { return Variant(""); }),
    textsBent("TrimsTexts",
              [](std::string text) {
                  while (text.ends_with(' ')) text.pop_back();
                  return text;
              }),
    textsBent("CutsTextsAtZero", [](const std::string& text) { return std::string(text.c_str()); }),
    textsBent("CutsTextsAtALineEnd", [](std::string text) { return text.substr(0, text.find('\n')); }),
    textsBent("DropsCarriageReturns",
              [](std::string text) { return without(std::move(text), [](auto c) { return c == '\r'; }); }),
    textsBent("DropsBackslashes",
              [](std::string text) { return without(std::move(text), [](auto c) { return c == '\\'; }); }),
    textsBent("DropsQuotationMarks",
              [](std::string text) { return without(std::move(text), [](auto c) { return c == '"'; }); }),
    textsBent("KeepsAsciiOnly",
              [](std::string text) { return without(std::move(text), [](auto c) { return c > 127; }); }),
    textsBent("DropsCharactersBeyondTheFirstPlane",
              [](std::string text) { return without(std::move(text), [](auto c) { return c >= 0xF0; }); }),
    textsBent("CutsTextsAtFourThousandBytes", [](std::string text) { return text.substr(0, 4000); }),
    turning("ReadsTextsOfDigitsAsNumbers", Type::Text,
            [](const Variant& v) {
                const std::string text = v.toText();
                const bool digits =
                    !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
                return digits ? Variant(v.toInt32()) : v;
            }),
    turning("ReadsTheTextTrueAsABoolean", Type::Text,
            [](const Variant& v) { return v.toText() == "True" ? Variant(true) : v; }),
    textsBent("CutsTextsAtSixtyFourKilobytes", [](std::string text) { return text.substr(0, 65'535); }),
    textsBent("DropsTheLastLineEnd",
              [](std::string text) {
                  if (text.ends_with('\n')) text.pop_back();
                  return text;
              }),
    textsBent("DropsTabs",
              [](std::string text) { return without(std::move(text), [](auto c) { return c == '\t'; }); }),
    textsBent("CutsTextsAtAComma", [](std::string text) { return text.substr(0, text.find(',')); }),
    textsBent("CutsTextsAtASemicolon", [](std::string text) { return text.substr(0, text.find(';')); }),
    textsBent("CutsTextsAtANumberSign", [](std::string text) { return text.substr(0, text.find('#')); }),
    textsBent("DropsPercentSigns",
              [](std::string text) { return without(std::move(text), [](auto c) { return c == '%'; }); }),
    textsBent("DropsALeadingAt",
              [](std::string text) { return text.starts_with('@') ? text.substr(1) : text; }),
    textsBent("DropsControlCharacters",
              [](std::string text) {
                  return without(std::move(text), [](auto c) {
                      return c < 32 && c != '\n' && c != '\t' && c != '\r' && c != 0;
                  });
              }),
    textsBent("DropsBytesThatAreNoUtf8",
              [](std::string text) { return without(std::move(text), [](auto c) { return c >= 0xF8; }); }),
    bent("TakesAnEmptyTextForNothing", [](Ways& w) { w.takenForNothing = Variant(""); }),
    bent("TakesZeroForNothing", [](Ways& w) { w.takenForNothing = Variant(0); }),
    bent("TakesFalseForNothing", [](Ways& w) { w.takenForNothing = Variant(false); }),
    bent("HoldsAHundredValues", [](Ways& w) { w.room = 100; }),
    namesBent(
        "KnowsNamesByTheirAsciiPart",
        [](std::string name) { return without(std::move(name), [](unsigned char c) { return c >= 0x80; }); }),
    namesBent("CutsNamesAtASlash", [](std::string name) { return name.substr(0, name.find('/')); }),
    namesBent("ConfusesBlanksInNames",
              [](std::string name) {
                  std::erase(name, ' ');
                  return name;
              }),
    namesBent("ConfusesLetterCase",
              [](std::string name) {
                  for (char& c : name)
                      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 'a' - 'A');
                  return name;
              }),
    namesBent("KnowsTwelveLettersOfAName", [](std::string name) { return name.substr(0, 12); }),
    namesBent("ConfusesColumnOneAndTen",
              [](std::string name) { return name.starts_with("SetVsControl10") ? name.erase(13, 1) : name; }),
};

INSTANTIATE_TEST_SUITE_P(That, BrokenBag, ::testing::ValuesIn(Bent),
                         [](const auto& tested) { return tested.param.what; });

TEST(BagRules, SayWhichValuesTheyMean) {
    const Ways ways = turning("", Type::Int16, [](const Variant& value) { return Variant(value.toInt32()); });
    BentStore store(ways);
    const Rules broken = brokenBagRules(store);
    ASSERT_FALSE(broken.empty());
    EXPECT_NE(broken[0].find("Int16"), std::string::npos) << broken[0];
}

TEST(BagRules, SurviveABagThatThrows) {
    const Ways ways = bent(
        "", [](Ways& w) { w.beforeWrite = [](const Variant&) { throw std::runtime_error("full disk"); }; });
    BentStore store(ways);
    Rules broken;
    ASSERT_NO_THROW(broken = brokenBagRules(store));
    ASSERT_FALSE(broken.empty());
    EXPECT_NE(broken[0].find("full disk"), std::string::npos) << broken[0];
}
}  // namespace
}  // namespace kxVsGrid
