// The index behind the search, against a twin that looks at every text.
#include "dialogs/PrefixIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "kit/Random.h"

namespace kxVsGrid::dialogs {
namespace {

using Texts = std::vector<std::string>;

PrefixIndex indexOf(const Texts& texts) {
    return {static_cast<std::int32_t>(texts.size()),
            [&texts](std::int32_t row) { return texts[static_cast<std::size_t>(row)]; }};
}
std::optional<std::int32_t> slowly(const Texts& texts, std::string_view prefix) {
    for (std::size_t row = 0; row < texts.size(); ++row)
        if (texts[row].starts_with(prefix)) return static_cast<std::int32_t>(row);
    return std::nullopt;
}
/// All of them before the index is built, after each slice of building, and when it stands.
void expectFound(const Texts& texts, const Texts& prefixes) {
    PrefixIndex index = indexOf(texts);
    EXPECT_EQ(index.built(), texts.empty());
    bool working = true;
    for (int slice = 0; working; ++slice) {
        for (const std::string& prefix : prefixes)
            EXPECT_EQ(index.find(prefix), slowly(texts, prefix)) << '"' << prefix << "\", slice " << slice;
        working = index.build();
    }
    EXPECT_TRUE(index.built());
    for (const std::string& prefix : prefixes)
        EXPECT_EQ(index.find(prefix), slowly(texts, prefix)) << '"' << prefix << "\", built";
}

TEST(PrefixIndex, OfNoRowsFindsNothing) {
    expectFound({}, {"", "a", std::string(1, '\0')});
}

TEST(PrefixIndex, OfOneRow) {
    expectFound({"abc"}, {"", "a", "abc", "abcd", "b", "ab\xff"});
    expectFound({""}, {"", "a", std::string(1, '\0')});
}

TEST(PrefixIndex, FindsTheFirstRowNotTheFirstInTheOrder) {
    expectFound({"b2", "b1", "a", "b0", "a"}, {"b", "a", "b0", "", "b1", "c"});
}

TEST(PrefixIndex, TellsTextsApartWhoseFirstEightBytesAreTheSame) {
    expectFound({"12345678z", "12345678", "12345678a", "123456789", "1234567"},
                {"1234567", "12345678", "123456789", "12345678a", "12345678b", "12345678z9", "1234567\xff"});
}

TEST(PrefixIndex, TellsTextsApartWhoseFirstSixteenBytesAreTheSame) {
    const std::string half = "12345678";
    const std::string both = half + half;
    expectFound(
        {both + "z", both, both + "a", both + "9", half, half + "1234567", half + std::string(8, '\0')},
        {half, both, both + "9", both + "a", both + "b", both + "z9", half + "1234567\xff", half + "2",
         half + "1", half + std::string(1, '\0'), half + std::string(8, '\0'), half + std::string(9, '\0')});
}

TEST(PrefixIndex, NeedNotLookAtRowsFromTheStopOn) {
    const Texts texts = {"b", "a", "ab", "c"};
    PrefixIndex index = indexOf(texts);
    EXPECT_EQ(index.find("a", 2), 1);
    EXPECT_EQ(index.find("c", 3), std::nullopt);
    EXPECT_EQ(index.find("b", 1), 0);
    while (index.build()) {
    }
    EXPECT_EQ(index.find("a", 2), 1);
}

TEST(PrefixIndex, TellsAShortTextFromOneThatGoesOnWithZeroBytes) {
    const auto zeros = [](std::size_t n) { return "ab" + std::string(n, '\0'); };
    Texts texts;
    for (const std::size_t n : {3U, 0U, 5U, 6U, 1U, 9U, 7U}) texts.push_back(zeros(n));
    texts.push_back("ab" + std::string(6, '\0') + "c");
    Texts prefixes = texts;
    for (std::size_t n = 0; n < 12; ++n) prefixes.push_back(zeros(n));
    prefixes.push_back(std::string(1, '\0'));
    expectFound(texts, prefixes);
}

TEST(PrefixIndex, ComparesBytesAsUnsigned) {
    expectFound({"\xff", "\x7f", "\x80", "货", "\xff\xff\xff\xff\xff\xff\xff\xff\xff", "z"},
                {"\x7f", "\x80", "\xff", "\xff\xff", "货", "\xe8", "z", "\xff\xff\xff\xff\xff\xff\xff\xff",
                 "\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff"});
}

TEST(PrefixIndex, FindsTheLastTextOfTheOrderToo) {
    Texts texts(1000, "same");
    texts.push_back("zz");
    expectFound(texts, {"s", "same", "same!", "z", "zz", "zzz"});
}

/// Texts in which much is alike.
class RandomTexts {
  public:
    explicit RandomTexts(kit::Random& random) : random_(random) {
        static const auto alphabets = std::to_array<Texts>({{"a", "b"},
                                                            {"a", "A", "1", " "},
                                                            {"货", "物", "a"},
                                                            {std::string(1, '\0'), "a"},
                                                            {"\xff", "a", "\x80"},
                                                            {"x"},
                                                            {"q", "w", "e", "r", "t", "y", "0", "1", "2"}});
        alphabet_ = &alphabets[static_cast<std::size_t>(random.between(0, std::ssize(alphabets) - 1))];
        if (random.oneIn(3)) common_ = piece(5, 20);
    }
    std::string next() { return (random_.oneIn(4) ? "" : common_) + piece(0, random_.oneIn(10) ? 30 : 5); }

  private:
    std::string piece(int least, int most) {
        std::string text;
        for (auto length = random_.between(least, most); length > 0; --length)
            text += (*alphabet_)[static_cast<std::size_t>(random_.between(0, std::ssize(*alphabet_) - 1))];
        return text;
    }
    kit::Random& random_;
    const Texts* alphabet_;
    std::string common_;
};

void findAll(const PrefixIndex& index, const Texts& texts, RandomTexts& source, int count) {
    for (int i = 0; i < count; ++i) {
        const std::string prefix = source.next();
        ASSERT_EQ(index.find(prefix), slowly(texts, prefix))
            << '"' << prefix << "\" of " << texts.size() << ", " << (index.built() ? "built" : "not built");
    }
}

TEST(PrefixIndex, FindsWhatLookingAtEveryTextFindsInRandomTables) {
    constexpr int Tables = 3000;
    kit::Random random;
    for (int i = 0; i < Tables && !::testing::Test::HasFatalFailure(); ++i) {
        RandomTexts source(random);
        Texts texts(static_cast<std::size_t>(random.between(0, random.oneIn(20) ? 500 : 40)));
        std::generate(texts.begin(), texts.end(), [&] { return source.next(); });
        PrefixIndex index = indexOf(texts);
        findAll(index, texts, source, 15);
        while (index.build()) findAll(index, texts, source, 5);
        findAll(index, texts, source, 15);
    }
}

TEST(PrefixIndex, FindsTheSameBetweenTheSlicesOfALongBuild) {
    constexpr int Rows = 60'000;
    kit::Random random;
    for (int i = 0; i < 3 && !::testing::Test::HasFatalFailure(); ++i) {
        RandomTexts source(random);
        Texts texts(Rows);
        std::generate(texts.begin(), texts.end(), [&] { return source.next(); });
        for (int row = 0; row < Rows; row += 7) texts[static_cast<std::size_t>(row)] += std::to_string(row);
        PrefixIndex index = indexOf(texts);
        int slices = 0;
        do findAll(index, texts, source, 10);
        while (++slices, index.build());
        EXPECT_GT(slices, 2) << "the work is cut into slices";
        findAll(index, texts, source, 50);
    }
}
}  // namespace
}  // namespace kxVsGrid::dialogs
