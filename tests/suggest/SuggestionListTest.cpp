// A source in memory: what it finds for a text, and in which order.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "kit/Dice.h"
#include "kxVsGrid/Suggestions.h"
#include "support/Text.h"

namespace kxVsGrid::testing {
namespace {

using Texts = std::vector<std::string>;

Texts textsOf(const std::vector<Suggestion>& suggestions) {
    Texts texts;
    for (const Suggestion& one : suggestions) texts.push_back(one.text);
    return texts;
}
Texts found(const SuggestionList& list, std::string_view typed,
            std::size_t most = SuggestionList::MostAnswered) {
    return textsOf(list.match(typed, most));
}

TEST(SuggestionListOrder, IsTheExactTextThenBeginningsOfTextsThenOfNamesThenWhatHoldsIt) {
    SuggestionList list;
    list.add({"xab"});
    list.add({"one"}, {"xx", "able"});
    list.add({"abc"});
    list.add({"two"}, {"xab"});
    list.add({"ab"});
    list.add({"aba"});
    list.add({"three"}, {"ab"});
    EXPECT_EQ(found(list, "ab"), (Texts{"ab", "abc", "aba", "one", "three", "xab", "two"}));
    for (std::size_t most = 0; most < 8; ++most) {
        Texts best{"ab", "abc", "aba", "one", "three", "xab", "two"};
        best.resize(std::min(most, best.size()));
        EXPECT_EQ(found(list, "ab", most), best) << most;
    }
}

TEST(SuggestionListOrder, IsThatOfAddingWhereNothingElseTellsThemApart) {
    SuggestionList list;
    for (const char* text : {"b2", "b1", "b3", "b1"}) list.add({text});
    EXPECT_EQ(found(list, "b"), (Texts{"b2", "b1", "b3", "b1"}));
    EXPECT_EQ(found(list, "b1"), (Texts{"b1", "b1"}));
}

TEST(SuggestionListMatch, AnswersTextTagAndNoteAsTheyWereGiven) {
    SuggestionList list;
    list.add({"Ab", "Tag", "Note"}, {"Name"});
    list.add({"", "empty", ""});
    EXPECT_EQ(list.match("nA"), (std::vector<Suggestion>{{"Ab", "Tag", "Note"}}));
    EXPECT_EQ(list.match(""), (std::vector<Suggestion>{{"", "empty", ""}, {"Ab", "Tag", "Note"}}));
}

TEST(SuggestionListMatch, IsByTextsAndNamesNotByTagsNotesOrWhatLiesBetween) {
    SuggestionList list;
    list.add({"abc", "tag", "note"}, {"def", "ghi"});
    list.add({"jkl"});
    for (const char* typed : {"tag", "note", "cd", "cdef", "fg", "ij", "abcd", "\xFF",
                              "c\xFF"
                              "d"})
        EXPECT_EQ(found(list, typed), Texts{}) << typed;
    for (const char* typed : {"abc", "bc", "DEF", "h", "ghi"})
        EXPECT_EQ(found(list, typed), Texts{"abc"}) << typed;
}

TEST(SuggestionListMatch, IsOfLatinLettersInBothCasesAndOfCharactersAsTheyAre) {
    SuggestionList list;
    list.add({"M8螺栓"}, {"LuoShuan"});
    EXPECT_EQ(found(list, "m8螺"), Texts{"M8螺栓"});
    EXPECT_EQ(found(list, "lUOS"), Texts{"M8螺栓"});
    EXPECT_EQ(found(list, "栓"), Texts{"M8螺栓"});
    EXPECT_EQ(found(list, "母"), Texts{});
}

TEST(SuggestionListMatch, FindsWhatWasAddedAfterAnotherMatch) {
    SuggestionList list;
    list.add({"ab1"});
    EXPECT_EQ(found(list, "b"), Texts{"ab1"});
    list.add({"xb"});
    list.add({"b9"});
    EXPECT_EQ(found(list, "b"), (Texts{"b9", "ab1", "xb"}));
    list.clear();
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(found(list, "b"), Texts{});
    list.add({"b"});
    EXPECT_EQ(found(list, "b"), Texts{"b"});
}

TEST(SuggestionListMatch, IsTheSameForACopyWhichSharesTheCandidates) {
    SuggestionList list;
    const SuggestionList copy = list;
    list.add({"ab"});
    EXPECT_EQ(copy.size(), 1U);
    EXPECT_EQ(found(copy, "a"), Texts{"ab"});
}

TEST(SuggestionListMatch, TellsLongTextsApartThatBeginAlike) {
    SuggestionList list;
    const std::string begin = "the same long beginning of all ";
    for (int i = 0; i < 300; ++i)
        list.add({begin + std::to_string(i)}, {"name of " + begin + std::to_string(i)});
    EXPECT_EQ(found(list, begin + "29"),
              (Texts{begin + "29", begin + "290", begin + "291", begin + "292", begin + "293", begin + "294",
                     begin + "295", begin + "296", begin + "297", begin + "298", begin + "299"}));
    EXPECT_EQ(found(list, "name of " + begin + "299"), Texts{begin + "299"});
    EXPECT_EQ(found(list, begin).size(), SuggestionList::MostAnswered);
}

/// The slow, obvious twin: every candidate is looked at for every text.
class TwinList {
  public:
    void add(const Suggestion& candidate, const Texts& names) {
        Texts all{support::lowerCase(candidate.text)};
        for (const std::string& name : names) all.push_back(support::lowerCase(name));
        candidates_.push_back({candidate, all});
    }
    void clear() { candidates_.clear(); }
    std::vector<Suggestion> match(std::string_view typed, std::size_t most) const {
        std::vector<Suggestion> answer;
        for (int group = 0; group < 4; ++group)
            for (const auto& [candidate, fields] : candidates_)
                if (groupOf(fields, support::lowerCase(typed)) == group && answer.size() < most)
                    answer.push_back(candidate);
        return answer;
    }

  private:
    static int groupOf(const Texts& fields, const std::string& typed) {
        if (fields[0] == typed) return 0;
        if (fields[0].starts_with(typed)) return 1;
        const auto begins = [&](const std::string& name) { return name.starts_with(typed); };
        if (std::any_of(fields.begin() + 1, fields.end(), begins)) return 2;
        const auto holds = [&](const std::string& field) { return field.find(typed) != std::string::npos; };
        return std::any_of(fields.begin(), fields.end(), holds) ? 3 : 4;
    }
    struct Candidate {
        Suggestion suggestion;
        Texts fields;
    };
    std::vector<Candidate> candidates_;
};

std::string randomText(kit::Dice& dice, int longest) {
    static const Texts Parts{"a", "A", "b", "B", "1", "2", "-", "货", "号", std::string(1, '\0')};
    std::string text;
    if (dice.oneIn(3)) text = "SKU-24-00";
    const int size = dice.between(0, longest);
    for (int i = 0; i < size; ++i)
        text += Parts[static_cast<std::size_t>(dice.between(0, dice.oneIn(10) ? 9 : 5))];
    return text;
}

TEST(SuggestionListRandom, AnswersAsItsSlowTwinWhateverIsTypedAndAdded) {
    kit::Dice dice;
    for (int round = 0; round < 8; ++round) {
        SuggestionList list;
        TwinList twin;
        std::string typed;
        const int candidates = dice.oneIn(3) ? 700 : 60;
        for (int step = 0; step < 150; ++step) {
            const int added = step == 0 ? candidates : dice.oneIn(4) ? dice.between(1, 70) : 0;
            for (int i = 0; i < added; ++i) {
                const Suggestion candidate{randomText(dice, 8), std::to_string(step), std::to_string(i)};
                Texts names;
                for (int name = dice.between(0, 3); name > 0; --name) names.push_back(randomText(dice, 14));
                list.add(candidate, std::vector<std::string_view>(names.begin(), names.end()));
                twin.add(candidate, names);
            }
            if (dice.oneIn(400)) list.clear(), twin.clear();
            if (dice.oneIn(4))
                typed = randomText(dice, 3);
            else if (dice.oneIn(5))
                typed = support::left(typed, support::characters(typed) / 2);
            else
                typed += randomText(dice, 1);
            static constexpr std::size_t Mosts[] = {1, 2, 5, 20, 100, 100, 5000};
            const std::size_t most = Mosts[dice.between(0, 6)];
            ASSERT_EQ(list.match(typed, most), twin.match(typed, most)) << typed << ", at most " << most;
        }
    }
}

TEST(SuggestionListSource, AnswersAtOnce) {
    SuggestionList list;
    list.add({"ab"});
    const SuggestionSource source = list;
    Texts answered;
    source({-1, "A", [&](std::vector<Suggestion> suggestions) { answered = textsOf(suggestions); }});
    EXPECT_EQ(answered, Texts{"ab"});
}
}  // namespace
}  // namespace kxVsGrid::testing
