// A text that is looked for in others, beside plain searches.
#include "support/TextPattern.h"

#include <gtest/gtest.h>

#include "kit/Dice.h"

namespace kxVsGrid::support {
namespace {

std::string plainLower(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

TEST(TextPattern, FoldsLettersOfAsciiAlone) {
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            const std::string a(1, static_cast<char>(first));
            const std::string b = "0123456789" + std::string(1, static_cast<char>(second)) + "0123456789";
            const bool expected = plainLower(b).find(plainLower(a)) != std::string::npos;
            ASSERT_EQ(TextPattern(a, false, false).in(b), expected) << first << ' ' << second;
        }
    EXPECT_FALSE(TextPattern("É", false, false).in("é"));
}

TEST(TextPattern, NothingIsInNothingAndNothingInAnything) {
    EXPECT_FALSE(TextPattern("", false, true).in("a"));
    EXPECT_FALSE(TextPattern("", true, true).in(""));
    EXPECT_FALSE(TextPattern("a", false, true).in(""));
}

TEST(TextPattern, ReplacesMatchesThatDoNotOverlap) {
    const TextPattern pattern("aa", false, true);
    EXPECT_EQ(pattern.occurrences("aaaaa"), 2U);
    EXPECT_EQ(pattern.replaced("aaaaa", "b"), "bba");
    EXPECT_EQ(pattern.replaced("xaaxaax", ""), "xxx");
    EXPECT_EQ(TextPattern("Ab", false, false).replaced("abABaB", "-"), "---");
    EXPECT_EQ(TextPattern("ab", true, false).replaced("AB", "-"), "-");
    EXPECT_EQ(TextPattern("ab", true, false).replaced("ABx", "-"), "ABx");
}

TEST(TextPattern, FindsWhatAPlainSearchFinds) {
    kit::Dice dice;
    const auto textOf = [&](int longest) {
        std::string text;
        const int size = dice.between(0, longest);
        for (int i = 0; i < size; ++i) text += dice.anyOf("abAB@`");
        return text;
    };
    for (int i = 0; i < 20'000; ++i) {
        const std::string wanted = textOf(dice.oneIn(4) ? 12 : 3);
        const std::string text = textOf(40);
        const bool matchCase = dice.oneIn(2);
        const TextPattern pattern(wanted, false, matchCase);
        const std::string in = matchCase ? text : plainLower(text);
        const std::string what = matchCase ? wanted : plainLower(wanted);
        const auto from = static_cast<std::size_t>(dice.between(0, 10));
        const std::size_t expected =
            wanted.empty() || from > in.size() ? std::string::npos : in.find(what, from);
        ASSERT_EQ(pattern.find(text, from), expected) << wanted << " in " << text;
        const bool whole = TextPattern(wanted, true, matchCase).in(text);
        ASSERT_EQ(whole, !wanted.empty() && in == what);
    }
}
}  // namespace
}  // namespace kxVsGrid::support
