// Every act of the clerk is one step: undone it leaves the grid as it was before, redone as it was after, and
// nothing to save once it is undone.
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "changes/GridState.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

/// Columns: numbers of rows, text, summed number, date, text that defaults are filled into, check box.
class StepsOfAClerk : public PlacedGrid {
  public:
    void TestBody() override {}
    StepsOfAClerk() {
        grid.Cols(6);
        summed(2);
        column(3).iType(flexDTDate);
        column(5).iType(flexDTBoolean);
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = adds; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
        grid.AfterEdit.connect(
            [this](std::int32_t row, std::int32_t) { grid.SetCell(row, 4, "seen", "by the host"); });
        grid.Rows(8);
        setUp();
        vs().NumberRows();
        desk.focusGrid();
        for (std::int32_t row = 1; row < 4; ++row) {
            const std::string number = std::to_string(row);
            grid.SetCell(row, 1, "line " + number, "tag " + number);
            grid.SetCell(row, 2, number + "0");
            grid.SetCell(row, 3, "2024-01-0" + number);
        }
        vs().RowHeight(2, 500);
        vs().RowHidden(4, true);
        vs().MergeRow(3, true);
        vs().CellBackColor(2, 1, Yellow);
        vs().CellForeColor(2, 2, Red);
        vs().CellAlignment(2, 3, flexAlignRightTop);
        vs().Select(2, 2);
        grid.Changes().Saved();
    }
    void key(std::int32_t row, std::int32_t col, std::string_view typed) {
        vs().Select(row, col);
        desk.type(typed).press(Key::Enter);
    }
    void choose(std::string_view item, std::int16_t shift = 0) {
        adds = true;
        desk.onPopup([item](headless::PoppedMenu& menu) { menu.choose(item); });
        desk.rightClick(0, 1, shift);
        desk.onPopup({});
    }
    void fillBy(std::string_view item) {
        desk.onPopup([item](headless::PoppedMenu& menu) { menu.choose("填充列", item); });
        desk.rightClick(0, 1);
        desk.onPopup({});
    }
    CellGrid& cells() { return vs(); }
    headless::Desk& at() { return desk; }
    kxGrid& control() { return grid; }
    bool adds = false;  ///< the host consents to another row
};

struct ClerksAct {
    const char* name;
    std::function<void(StepsOfAClerk&)> act;
    const char* step = nullptr;  ///< what it is called; not looked at when there is none
    friend std::ostream& operator<<(std::ostream& out, const ClerksAct& act) { return out << act.name; }
};

const ClerksAct ClerksActs[] = {
    {"TypedText", [](StepsOfAClerk& t) { t.key(2, 1, "x"); }, "录入"},
    {"TypedNumber", [](StepsOfAClerk& t) { t.key(2, 2, "3*4"); }, "录入"},
    {"TypedDate", [](StepsOfAClerk& t) { t.key(3, 3, "2023-05-06"); }, "录入"},
    {"TextEmptied",
     [](StepsOfAClerk& t) {
         t.cells().Select(2, 1);
         t.at().press(Key::F2).press(Key::Back).press(Key::Enter);
     },
     "录入"},
    {"RefusedExpression",
     [](StepsOfAClerk& t) {
         t.key(2, 2, "3*");
         t.at().press(Key::Escape);
         t.control().RecalculateTotals();
     },
     "录入"},
    {"Toggle",
     [](StepsOfAClerk& t) {
         t.cells().Select(3, 5);
         t.at().type(" ");
     },
     "勾选"},
    {"LastRow",
     [](StepsOfAClerk& t) {
         t.adds = true;
         t.cells().Select(7, 1);
         t.at().type("x");
         t.adds = false;
         t.at().press(Key::Enter);
     },
     "录入"},
    {"InsertKey",
     [](StepsOfAClerk& t) {
         t.adds = true;
         t.at().press(Key::Insert);
     },
     nullptr},
    {"DeleteKey", [](StepsOfAClerk& t) { t.at().press(Key::Delete); }, "删除行"},
    {"DeleteItem", [](StepsOfAClerk& t) { t.choose("删除行"); }, "删除行"},
    {"AddRow", [](StepsOfAClerk& t) { t.choose("新增行"); }, "新增行"},
    {"CopyRow", [](StepsOfAClerk& t) { t.choose("复制行"); }, "复制行"},
    {"InsertRow", [](StepsOfAClerk& t) { t.choose("插入行"); }, "插入行"},
    {"InsertCopy", [](StepsOfAClerk& t) { t.choose("复制插入行"); }, nullptr},
    {"AddRows",
     [](StepsOfAClerk& t) {
         t.at().answerInputBox("3");
         t.choose("新增..行", CtrlKey);
     },
     "新增多行"},
    {"InsertRows",
     [](StepsOfAClerk& t) {
         t.at().answerInputBox("3");
         t.choose("插入..行", CtrlKey);
     },
     nullptr},
    {"Series", [](StepsOfAClerk& t) { t.fillBy("序列方式填充"); }, nullptr},
    {"Copies", [](StepsOfAClerk& t) { t.fillBy("复制单元格"); }, nullptr},
    {"Months",
     [](StepsOfAClerk& t) {
         t.cells().Select(2, 3);
         t.fillBy("以月填充");
     },
     nullptr},
    {"HostsStep",
     [](StepsOfAClerk& t) {
         const auto step = t.control().Step("套用价格");
         for (std::int32_t row = 1; row < 5; ++row) t.control().SetCell(row, 2, "9.5", "price");
         t.cells().RemoveRow(1);
         t.cells().InsertRow(3);
         t.control().SetCell(3, 1, "new");
         t.control().RecalculateTotals();
     },
     "套用价格"},
    {"HostsClearing",
     [](StepsOfAClerk& t) {
         const auto step = t.control().Step("清空");
         t.cells().ClearText(2, 3);
         t.cells().NumberRows();
         t.control().RecalculateTotals();
     },
     "清空"},
    {"HostsShrinking",
     [](StepsOfAClerk& t) {
         const auto step = t.control().Step("缩短");
         t.control().SetCell(7, 1, "x", "y");
         t.control().Rows(6);
     },
     "缩短"},
    {"HostsGrowing",
     [](StepsOfAClerk& t) {
         const auto step = t.control().Step("加长");
         t.control().Rows(12);
         t.control().SetCell(11, 1, "x", "y");
     },
     "加长"},
};

class ActOfTheClerk : public ::testing::TestWithParam<ClerksAct> {};

TEST_P(ActOfTheClerk, IsOneStepThatIsUndoneAndRedoneWhole) {
    StepsOfAClerk t;
    const Lines before = stateOf(t.control());
    History& history = t.control().History();
    int told = 0;
    t.control().Changes().After.connect([&](const StepChanges&) { ++told; });
    GetParam().act(t);
    t.adds = false;
    const Lines after = stateOf(t.control());
    ASSERT_TRUE(history.CanUndo());
    if (GetParam().step) {
        EXPECT_EQ(history.UndoName(), GetParam().step);
    }
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round);
        ASSERT_TRUE(history.Undo());
        EXPECT_EQ(stateOf(t.control()), before);
        EXPECT_FALSE(history.CanUndo());
        EXPECT_TRUE(t.control().Changes().empty());
        ASSERT_TRUE(history.Redo());
        EXPECT_EQ(stateOf(t.control()), after);
        EXPECT_FALSE(history.CanRedo());
    }
    EXPECT_GE(told, 5);
    EXPECT_TRUE(t.at().messages().empty() || std::string(GetParam().name) == "RefusedExpression");
}

INSTANTIATE_TEST_SUITE_P(As, ActOfTheClerk, ::testing::ValuesIn(ClerksActs),
                         [](const auto& tested) { return std::string(tested.param.name); });

/// All of them one after the other, undone and redone to the ends.
TEST(ActsOfTheClerk, AreUndoneInTheirOrderToTheBeginning) {
    StepsOfAClerk t;
    std::vector<Lines> states;
    int steps = 0;
    states.push_back(stateOf(t.control()));
    t.control().Changes().After.connect([&](const StepChanges&) {
        t.control().RecalculateTotals();  // the total of a number that a refusal emptied still counts it
        states.push_back(stateOf(t.control()));
        ++steps;
    });
    for (const ClerksAct& act : ClerksActs) {
        t.cells().Select(2, 2);
        act.act(t);
        t.adds = false;
        // The row that was appended for what is typed was a step until that joined it.
        if (std::string(act.name) == "LastRow") {
            states.erase(states.end() - 2);
            --steps;
        }
    }
    const std::vector<Lines> seen = states;
    const int done = steps;
    for (int undone = 1; undone <= done; ++undone) {
        ASSERT_TRUE(t.control().History().Undo()) << undone;
        ASSERT_EQ(stateOf(t.control()), seen[seen.size() - 1 - static_cast<std::size_t>(undone)]) << undone;
    }
    EXPECT_FALSE(t.control().History().Undo());
    EXPECT_EQ(stateOf(t.control()), seen.front());
    EXPECT_TRUE(t.control().Changes().empty());
    while (t.control().History().Redo()) {
    }
    EXPECT_EQ(stateOf(t.control()), seen.back());
}
}  // namespace
}  // namespace kxVsGrid::testing
