// The list at one text box: what stands in it, where the clerk is, and what a key takes.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "suggest/SuggestionChoice.h"

namespace kxVsGrid::testing {
namespace {

using suggest::SuggestionChoice;
using By = SuggestionChoice::By;

class Choice : public ::testing::Test {
  protected:
    /// Answers when it is told to, the questions by their number.
    SuggestionSource later = [this](const SuggestionRequest& request) {
        asked.push_back(request.text);
        answers.push_back(request.answer);
    };
    static SuggestionSource atOnce(std::vector<Suggestion> suggestions) {
        return [suggestions](const SuggestionRequest& request) { request.answer(suggestions); };
    }
    void show(std::vector<Suggestion> suggestions, std::string_view text = "a") {
        choice->typed(atOnce(std::move(suggestions)), 1, text);
    }
    std::vector<std::string> shown() const {
        std::vector<std::string> texts;
        for (const Suggestion& one : choice->view().candidates) texts.push_back(one.text);
        return texts;
    }
    using Shown = std::vector<std::string>;
    std::string chosen(By key, std::string_view text = "a") const {
        const auto one = choice->chosen(key, text);
        return one ? one->text : "(as typed)";
    }

    std::vector<std::string> asked;
    std::vector<SuggestionAnswer> answers;
    int changes = 0;
    std::unique_ptr<SuggestionChoice> choice = std::make_unique<SuggestionChoice>([this] { ++changes; });
};

TEST_F(Choice, AsksForTheTrimmedTextAndNotForABlankOne) {
    choice->typed(later, 1, "  ab ");
    choice->typed(later, 1, "   ");
    choice->typed(later, 1, "");
    EXPECT_EQ(asked, (Shown{"ab"}));
}

TEST_F(Choice, ClosesForABlankTextAndDropsTheAnswerToTheOneBefore) {
    show({{"ab"}});
    choice->typed(later, 1, "abc");
    choice->typed(later, 1, "");
    EXPECT_EQ(shown(), Shown{});
    answers[0]({{"late"}});
    EXPECT_EQ(shown(), Shown{});
}

TEST_F(Choice, MovesBetweenTheFirstAndTheLastAndOutOfTheListAgain) {
    EXPECT_FALSE(choice->move(1));
    show({{"a1"}, {"a2"}, {"a3"}});
    EXPECT_FALSE(choice->move(-1));
    EXPECT_FALSE(choice->move(-10));
    const auto at = [this](std::ptrdiff_t steps) {
        EXPECT_TRUE(choice->move(steps));
        return choice->view().current;
    };
    EXPECT_EQ(at(1), 0);
    EXPECT_EQ(at(1), 1);
    EXPECT_EQ(at(10), 2);
    EXPECT_EQ(at(1), 2);
    EXPECT_EQ(at(-10), 0);
    EXPECT_EQ(at(-1), -1);
    EXPECT_FALSE(choice->move(-1));
    EXPECT_TRUE(choice->shown());
    EXPECT_EQ(at(10), 0);
}

TEST_F(Choice, TellsOfEachChangeOnceAndOfNothingElse) {
    choice->close();
    choice->begin();
    choice->typed(later, 1, "a");
    answers[0]({});
    EXPECT_EQ(changes, 0);
    answers[0]({{"a1"}, {"a2"}});
    EXPECT_EQ(changes, 1);
    choice->move(1);
    choice->move(1);
    EXPECT_EQ(changes, 3);
    choice->move(1);
    EXPECT_EQ(changes, 3);
    choice->close();
    choice->close();
    EXPECT_EQ(changes, 4);
}

TEST_F(Choice, IsTheOneMovedToForBothKeys) {
    show({{"a"}, {"a2"}});
    choice->move(1);
    choice->move(1);
    EXPECT_EQ(chosen(By::Enter), "a2");
    EXPECT_EQ(chosen(By::Tab), "a2");
}

TEST_F(Choice, IsTheOnlyOneForEnterAlone) {
    show({{"a1"}});
    EXPECT_EQ(chosen(By::Enter), "a1");
    EXPECT_EQ(chosen(By::Tab), "(as typed)");
    show({{"a1"}, {"a2"}});
    EXPECT_EQ(chosen(By::Enter), "(as typed)");
}

TEST_F(Choice, IsTheTextAsTypedWhereACandidateHasIt) {
    show({{"a2"}, {"a", "tag"}});
    EXPECT_EQ(chosen(By::Enter), "(as typed)");
    EXPECT_EQ(choice->same(" a ")->tag, "tag");
    EXPECT_FALSE(choice->same("A"));
    show({{"a"}});
    EXPECT_EQ(chosen(By::Enter, " a "), "(as typed)");
}

TEST_F(Choice, IsNotTheOnlyOneOfAnEarlierText) {
    show({{"ab"}}, "a");
    choice->typed(later, 1, "ax");
    EXPECT_EQ(shown(), Shown{"ab"});
    EXPECT_EQ(chosen(By::Enter, "ax"), "(as typed)");
    choice->move(1);
    EXPECT_EQ(chosen(By::Enter, "ax"), "ab");
}

TEST_F(Choice, IsNotTheOnlyOneOnceTheClerkHasBeenThereAndLeftIt) {
    show({{"ab"}});
    choice->move(1);
    choice->move(-1);
    EXPECT_EQ(chosen(By::Enter), "(as typed)");
    show({{"ab"}}, "ab1");
    EXPECT_EQ(chosen(By::Enter, "ab1"), "ab");
}

TEST_F(Choice, LeavesTheListWhenTheClerkTypesOn) {
    show({{"ab"}, {"ac"}});
    choice->move(1);
    choice->typed(later, 1, "ab");
    EXPECT_EQ(choice->view().current, -1);
    EXPECT_EQ(shown(), (Shown{"ab", "ac"}));
}

TEST_F(Choice, TakesTheAnswerToTheLastTextAlone) {
    choice->typed(later, 1, "a");
    choice->typed(later, 1, "ab");
    answers[1]({{"second"}});
    answers[0]({{"first"}});
    EXPECT_EQ(shown(), Shown{"second"});
    answers[1]({{"second again"}});
    EXPECT_EQ(shown(), Shown{"second again"});
    choice->move(1);
    answers[1]({{"too late"}});
    EXPECT_EQ(shown(), Shown{"second again"});
}

TEST_F(Choice, ShowsNoBlankCandidates) {
    show({{""}, {"  ", "tag"}, {"ab"}});
    EXPECT_EQ(shown(), Shown{"ab"});
    show({{""}});
    EXPECT_FALSE(choice->shown());
}

TEST_F(Choice, HasNoneOnceItWasDismissedUntilAnotherTextIsBegun) {
    EXPECT_FALSE(choice->dismiss());
    show({{"ab"}});
    EXPECT_TRUE(choice->dismiss());
    choice->typed(later, 1, "b");
    EXPECT_EQ(asked, Shown{});
    EXPECT_FALSE(choice->dismiss());
    choice->begin();
    choice->typed(later, 1, "b");
    EXPECT_EQ(asked, Shown{"b"});
}

TEST_F(Choice, DropsWhatComesAfterItHasGone) {
    choice->typed(later, 1, "a");
    choice.reset();
    answers[0]({{"ab"}});
    EXPECT_EQ(changes, 0);
}

TEST_F(Choice, MayGoAndMayBeAskedAnewFromInsideTheSource) {
    choice->typed(
        [this](const SuggestionRequest& request) {
            choice->typed(atOnce({{"inner"}}), 1, "b");
            request.answer({{"outer"}});
        },
        1, "a");
    EXPECT_EQ(shown(), Shown{"inner"});
    const SuggestionSource fails = [this](const SuggestionRequest&) {
        choice->typed(atOnce({{"inner"}}), 1, "b");
        throw std::runtime_error("outer");
    };
    EXPECT_THROW(choice->typed(fails, 1, "a"), std::runtime_error);
    EXPECT_EQ(shown(), Shown{"inner"});
    choice->typed(
        [this](const SuggestionRequest& request) {
            choice.reset();
            request.answer({{"late"}});
        },
        1, "a");
    EXPECT_FALSE(choice);
}

TEST_F(Choice, PassesOnWhatTheSourceThrowsAndShowsNothing) {
    const SuggestionSource fails = [](const SuggestionRequest& request) {
        request.answer({{"ab"}});
        throw std::runtime_error("failed");
    };
    EXPECT_THROW(choice->typed(fails, 1, "a"), std::runtime_error);
    EXPECT_FALSE(choice->shown());
    show({{"ac"}});
    EXPECT_EQ(shown(), Shown{"ac"});
}

TEST_F(Choice, PointsToWhatIsThere) {
    show({{"a1"}, {"a2"}});
    EXPECT_FALSE(choice->point(2));
    EXPECT_TRUE(choice->point(1));
    EXPECT_EQ(choice->view().current, 1);
    EXPECT_TRUE(choice->entered());
    EXPECT_EQ(choice->at(0)->text, "a1");
    EXPECT_FALSE(choice->at(2));
}
}  // namespace
}  // namespace kxVsGrid::testing
