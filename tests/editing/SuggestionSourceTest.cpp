// Sources that answer when it suits them, that fail, and that work with the control while they are asked.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "editing/SuggestionTest.h"
#include "kit/Life.h"
#include "kit/PrintTo.h"

namespace kxVsGrid::testing {
namespace {

// --- Late answers

class LateAnswer : public SuggestionTest {
  protected:
    LateAnswer() { suggestLater(); }
    /// The text `a` is asked about, and the editor is open.
    void typeA() {
        desk.type("a");
        ASSERT_EQ(asked, Texts{"a"});
    }
    void expectDropped() {
        heard();
        answers[0]({{"late"}});
        EXPECT_EQ(shown(), Texts{});
        EXPECT_EQ(heard(), Lines{});
    }
};

TEST_F(LateAnswer, IsShownWhileItsTextStandsThere) {
    typeA();
    EXPECT_EQ(shown(), Texts{});
    answers[0]({{"ab"}});
    EXPECT_EQ(shown(), Texts{"ab"});
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "ab");
}

TEST_F(LateAnswer, TakesThePlaceOfTheEarlierOneOfItsText) {
    typeA();
    answers[0]({{"ab"}});
    answers[0]({{"ac"}, {"ad"}});
    EXPECT_EQ(shown(), (Texts{"ac", "ad"}));
    desk.press(Key::Down);
    answers[0]({{"ae"}});
    EXPECT_EQ(shown(), (Texts{"ac", "ad"}));
}

TEST_F(LateAnswer, InAnotherOrderIsThatToThePresentText) {
    desk.type("abc");
    answers[2]({{"3"}});
    answers[0]({{"1"}});
    answers[1]({{"2"}});
    EXPECT_EQ(shown(), Texts{"3"});
}

TEST_F(LateAnswer, LeavesWhatStandsThereToTheClerkWhoMovesIntoIt) {
    typeA();
    answers[0]({{"ab"}, {"abc"}});
    desk.type("b");
    EXPECT_EQ(shown(), (Texts{"ab", "abc"}));
    desk.press(Key::Down);
    answers[1]({{"other"}});
    desk.press(Key::Down).press(Key::Enter);
    EXPECT_EQ(text(1, 1), "abc");
}

TEST_F(LateAnswer, OfThePresentTextAloneGivesEnterItsOnlyOne) {
    typeA();
    answers[0]({{"ab"}});
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "ax");
}

TEST_F(LateAnswer, DoesNothingOnceTheTextIsAnother) {
    typeA();
    desk.type("b");
    expectDropped();
}

TEST_F(LateAnswer, DoesNothingOnceTheTextIsBlank) {
    typeA();
    desk.press(Key::Back);
    expectDropped();
}

TEST_F(LateAnswer, DoesNothingOnceCodeHasSetTheText) {
    typeA();
    grid.Text("b");
    expectDropped();
}

TEST_F(LateAnswer, DoesNothingOnceTheCellIsLeft) {
    typeA();
    desk.press(Key::Enter);
    expectDropped();
    at(1, 1);
    expectDropped();
}

TEST_F(LateAnswer, DoesNothingOnceTheEditorIsOpenInAnotherRowOrAnew) {
    typeA();
    desk.press(Key::Down);
    desk.type("a");
    expectDropped();
    desk.press(Key::Escape);
    desk.type("a");
    expectDropped();
}

TEST_F(LateAnswer, DoesNothingOnceTheListWasClosedForGood) {
    typeA();
    answers[0]({{"ab"}});
    desk.press(Key::Escape);
    expectDropped();
}

TEST_F(LateAnswer, DoesNothingOnceTheTextWasRefused) {
    grid.Options(1).accepts([](std::int32_t, std::string_view) { return std::string("不可。"); });
    typeA();
    desk.press(Key::Enter);
    EXPECT_TRUE(desk.editor().refused);
    expectDropped();
}

TEST_F(LateAnswer, DoesNothingDuringTheCheckOfItsText) {
    typeA();
    grid.Options(1).accepts([this](std::int32_t, std::string_view) {
        answers[0]({{"late"}});
        EXPECT_EQ(shown(), Texts{});
        return std::string();
    });
    desk.press(Key::Tab);
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(LateAnswer, DoesNothingOnceTheGridIsGone) {
    typeA();
    kxGrid& stays = desk.place();
    desk.remove(grid);
    answers[0]({{"late"}});
    kit::expectKeyedAsEver(desk, stays);
}

TEST_F(LateAnswer, StaysWithItsRowWhereverThatGoes) {
    at(3, 1);
    typeA();
    grid.Grid().InsertRow(1);
    EXPECT_TRUE(open());
    answers[0]({{"ab"}});
    EXPECT_EQ(shown(), Texts{"ab"});
    desk.press(Key::Enter);
    EXPECT_EQ(text(4, 1), "ab");
}

TEST_F(LateAnswer, StillCountsWhereAnotherSourceIsAskedFromTheNextTextOn) {
    typeA();
    suggestAlways({{"other"}});
    answers[0]({{"ab"}});
    EXPECT_EQ(shown(), Texts{"ab"});
    desk.type("b");
    EXPECT_EQ(shown(), Texts{"other"});
    suggest(nullptr);
    desk.type("c");
    EXPECT_EQ(shown(), Texts{});
}

TEST_F(LateAnswer, MayBeLong) {
    typeA();
    answers[0](std::vector<Suggestion>(1'000'000, {"candidate", "tag", "note"}));
    EXPECT_EQ(shown().size(), 1'000'000U);
    desk.press(Key::PageDown).press(Key::PageDown).press(Key::Enter);
    EXPECT_EQ(text(1, 1), "candidate");
}

// --- Sources that work with the control

using Desk = headless::Desk;

/// What a source does before it answers.
struct SourceAct {
    const char* name;
    std::function<void(Desk&, kxGrid&)> act;
    bool stays;  ///< its answer is shown
    friend std::ostream& operator<<(std::ostream& out, const SourceAct& act) { return out << act.name; }
};

const SourceAct SourceActs[] = {
    {"Nothing", [](Desk&, kxGrid&) {}, true},
    {"WriteElsewhere", [](Desk&, kxGrid& g) { g.Grid().Text(3, 3, "x"); }, true},
    {"WriteTheCell", [](Desk&, kxGrid& g) { g.Grid().Text(2, 1, "x"); }, true},
    {"SetCell", [](Desk&, kxGrid& g) { g.SetCell(4, 2, "x", "y"); }, false},
    {"ReadCell", [](Desk&, kxGrid& g) { EXPECT_EQ(g.ReadCell(2, 1, true), "a"); }, false},
    {"Row", [](Desk&, kxGrid& g) { g.Row(4); }, false},
    {"Col", [](Desk&, kxGrid& g) { g.Col(3); }, false},
    {"Clear", [](Desk&, kxGrid& g) { g.Clear(); }, false},
    {"RemoveRow", [](Desk&, kxGrid& g) { g.Grid().RemoveRow(2); }, false},
    {"FewerRows", [](Desk&, kxGrid& g) { g.Rows(2); }, false},
    {"NoCols", [](Desk&, kxGrid& g) { g.Grid().Cols(0); }, false},
    {"InsertRowAbove", [](Desk&, kxGrid& g) { g.Grid().InsertRow(1); }, true},
    {"HiddenCol", [](Desk&, kxGrid& g) { g.ColHidden(1, true); }, false},
    {"Text", [](Desk&, kxGrid& g) { g.Text("other"); }, false},
    {"AnotherSource", [](Desk&, kxGrid& g) { g.Options(1).suggest(nullptr); }, true},
    {"ReDraw", [](Desk&, kxGrid& g) { g.ReDraw(true); }, true},
    {"Type", [](Desk& d, kxGrid& g) { g.Options(1).suggest(nullptr), d.type("b"); }, false},
    {"Enter", [](Desk& d, kxGrid&) { d.press(Key::Enter); }, false},
    {"Escape", [](Desk& d, kxGrid&) { d.press(Key::Escape); }, false},
    {"Click", [](Desk& d, kxGrid&) { d.click(4, 3); }, false},
    {"Elsewhere", [](Desk& d, kxGrid&) { d.focusElsewhere(); }, false},
};

class ActingSource : public SuggestionTestAt<Desk>, public ::testing::WithParamInterface<SourceAct> {};
INSTANTIATE_TEST_SUITE_P(, ActingSource, ::testing::ValuesIn(SourceActs),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(ActingSource, LeavesTheControlUsable) {
    at(2, 1);
    suggest([this, times = 0](const SuggestionRequest& request) mutable {
        if (times++ > 0) return;
        GetParam().act(desk, grid);
        request.answer({{"ab"}});
    });
    desk.type("a");
    EXPECT_EQ(shown(), GetParam().stays ? Texts{"ab"} : Texts{});
    if (GetParam().stays) {
        EXPECT_TRUE(open());
        desk.press(Key::Enter);
        EXPECT_FALSE(open());
    }
    EXPECT_EQ(shown(), Texts{});
    if (grid.Cols() > 0) grid.Clear();
    kit::expectKeyedAsEver(desk, desk.place());
}

TEST_P(ActingSource, ThatThenFailsLeavesTheControlUsable) {
    at(2, 1);
    openAt(2, 1);
    suggest([this, times = 0](const SuggestionRequest& request) mutable {
        if (times++ > 0) return;
        request.answer({{"ab"}});
        GetParam().act(desk, grid);
        throw HostFailure();
    });
    EXPECT_THROW(desk.type("a"), HostFailure);
    EXPECT_EQ(shown(), Texts{});
    if (grid.Cols() > 0) grid.Clear();
    kit::expectKeyedAsEver(desk, desk.place());
}

class FailingSource : public SuggestionTest {
  protected:
    FailingSource() {
        suggest([](const SuggestionRequest& request) {
            if (request.text == "ab") throw HostFailure();
            request.answer({{"ab1"}, {"ac1"}});
        });
    }
};

TEST_F(FailingSource, ReachesWhoeverTypesAndLeavesTheTextWithoutAList) {
    desk.type("a");
    EXPECT_EQ(shown().size(), 2U);
    EXPECT_THROW(desk.type("b"), HostFailure);
    EXPECT_EQ(shown(), Texts{});
    EXPECT_EQ(desk.editor().text, "ab");
    EXPECT_TRUE(open());
    desk.type("c");
    EXPECT_EQ(shown().size(), 2U);
}

TEST_F(FailingSource, KeepsTheTextThatOpensTheEditor) {
    suggest([](const SuggestionRequest&) { throw HostFailure(); });
    EXPECT_THROW(desk.type("x"), HostFailure);
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "x");
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "x");
}

class EndingSource : public SuggestionTest {};

TEST_F(EndingSource, MayDestroyTheControl) {
    for (const bool answersFirst : {false, true})
        for (const bool opened : {false, true}) {
            kxGrid& stays = desk.place();
            kxGrid& goes = desk.place();
            SuggestionAnswer kept;
            goes.Options(1).suggest([&](const SuggestionRequest& request) {
                kept = request.answer;
                if (answersFirst) request.answer({{"ab"}});
                desk.remove(goes);
                request.answer({{"abc"}});
            });
            desk.focusGrid();
            if (opened) desk.press(Key::Space);
            desk.type("a");
            kept({{"late"}});
            kit::expectKeyedAsEver(desk, stays);
        }
}

TEST_F(EndingSource, MayDestroyTheControlAndFail) {
    kxGrid& stays = desk.place();
    kxGrid& goes = desk.place();
    goes.Options(1).suggest([&](const SuggestionRequest&) {
        desk.remove(goes);
        throw HostFailure();
    });
    desk.focusGrid();
    EXPECT_THROW(desk.type("a"), HostFailure);
    kit::expectKeyedAsEver(desk, stays);
}

TEST_F(EndingSource, IsNotCopiedAtEachKey) {
    struct Counting {
        std::shared_ptr<int> copies = std::make_shared<int>(0);
        Counting() = default;
        Counting(const Counting& other) : copies(other.copies) { ++*copies; }
        void operator()(const SuggestionRequest& request) const { request.answer({{"ab"}}); }
    };
    const Counting source;
    suggest(source);
    const int before = *source.copies;
    desk.type("abcdef");
    EXPECT_EQ(*source.copies, before);
}
}  // namespace
}  // namespace kxVsGrid::testing
