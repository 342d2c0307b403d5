// A host that works with the control while it is asked about a code, or while the box of a refusal is in
// front of the clerk: what was typed goes where it belongs or nowhere, and the control goes on working.
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "editing/CheckTest.h"
#include "kit/Life.h"

namespace kxVsGrid::testing {
namespace {

constexpr Cell Typed{8, 2};

/// What a host does, and what becomes of the editor that was open.
struct Act {
    const char* name;
    std::function<void(WatchedDesk&, kxGrid&)> act;
    bool stays;              ///< the editor is still the one that the clerk typed in
    std::int32_t shift = 0;  ///< how far the row that it stands over has moved
    friend std::ostream& operator<<(std::ostream& out, const Act& act) { return out << act.name; }
};

const Act Acts[] = {
    {"Nothing", [](WatchedDesk&, kxGrid&) {}, true},
    // Moving the cell.
    {"Row", [](WatchedDesk&, kxGrid& g) { g.Row(4); }, false},
    {"Col", [](WatchedDesk&, kxGrid& g) { g.Col(1); }, false},
    {"Select", [](WatchedDesk&, kxGrid& g) { g.Grid().Select(3, 4); }, false},
    {"RowAndBack", [](WatchedDesk&, kxGrid& g) { g.Row(4), g.Row(8); }, false},
    {"RowAndTyping", [](WatchedDesk& d, kxGrid& g) { g.Col(1), d.type("q"); }, false},
    {"Escape", [](WatchedDesk& d, kxGrid&) { d.focusGrid().clickEditor().press(Key::Escape); }, false},
    // Taking the cell away.
    {"RemoveRow", [](WatchedDesk&, kxGrid& g) { g.Grid().RemoveRow(8); }, false},
    {"FewerRows", [](WatchedDesk&, kxGrid& g) { g.Rows(6); }, false},
    {"FewerCols", [](WatchedDesk&, kxGrid& g) { g.Cols(2); }, false},
    {"NoCols", [](WatchedDesk&, kxGrid& g) { g.Grid().Cols(0); }, false},
    {"NoCellsAtAll",
     [](WatchedDesk&, kxGrid& g) { g.Grid().FixedCols(0), g.Grid().LeftCol(0), g.Grid().Cols(0); }, false},
    {"Clear", [](WatchedDesk&, kxGrid& g) { g.Clear(); }, false},
    {"AddRow", [](WatchedDesk&, kxGrid& g) { g.AddRow(8, false, false); }, false},
    // Moving its row.
    {"InsertRowAbove", [](WatchedDesk&, kxGrid& g) { g.Grid().InsertRow(1); }, true, 1},
    {"RemoveRowAbove", [](WatchedDesk&, kxGrid& g) { g.Grid().RemoveRow(1); }, true, -1},
    {"InsertRowBelow", [](WatchedDesk&, kxGrid& g) { g.Grid().InsertRow(9); }, true},
    // Working with cells.
    {"SetCell", [](WatchedDesk&, kxGrid& g) { g.SetCell(3, 1, "other", "tag"); }, true},
    {"SetTheCell", [](WatchedDesk&, kxGrid& g) { g.SetCell(8, 2, "", ""); }, true},
    {"ReadCell", [](WatchedDesk&, kxGrid& g) { EXPECT_EQ(g.ReadCell(8, 2, true), ""); }, true},
    {"ValidTextData", [](WatchedDesk&, kxGrid& g) { EXPECT_TRUE(g.ValidTextData()); }, true},
    {"IsValid", [](WatchedDesk&, kxGrid& g) { EXPECT_TRUE(g.IsValid()); }, true},
    // Working with the control.
    {"ReDraw", [](WatchedDesk&, kxGrid& g) { g.ReDraw(true); }, true},
    {"NoReDraw", [](WatchedDesk&, kxGrid& g) { g.ReDraw(false); }, true},
    {"SumRow", [](WatchedDesk&, kxGrid& g) { g.SumRow(true), g.ReDraw(true); }, true},
    {"NotEditable", [](WatchedDesk&, kxGrid& g) { g.Editable(false); }, true},
    {"MoreRows", [](WatchedDesk&, kxGrid& g) { g.Rows(40); }, true},
    {"MoreCols", [](WatchedDesk&, kxGrid& g) { g.Cols(9); }, true},
    {"HiddenCol", [](WatchedDesk&, kxGrid& g) { g.ColHidden(2, true); }, true},
    {"FormatString", [](WatchedDesk&, kxGrid& g) { g.FormatString("行|甲|货号|丙|丁|戊"); }, true},
    {"TheSameDefinition", [](WatchedDesk&, kxGrid& g) { g.SetVsControl(g.SetVsControl()); }, true},
    {"Resize", [](WatchedDesk& d, kxGrid&) { d.resize(12000, 8000); }, true},
    // The clerk goes on meanwhile, as in a box of the host's own.
    {"Enter", [](WatchedDesk& d, kxGrid&) { d.press(Key::Enter); }, true},
    {"Tab", [](WatchedDesk& d, kxGrid&) { d.press(Key::Tab); }, true},
    {"Down", [](WatchedDesk& d, kxGrid&) { d.press(Key::Down); }, true},
    {"Click", [](WatchedDesk& d, kxGrid&) { d.click(2, 1); }, true},
    {"Wheel", [](WatchedDesk& d, kxGrid&) { d.wheel(1); }, true},
    {"Elsewhere", [](WatchedDesk& d, kxGrid&) { d.focusElsewhere(); }, true},
    {"ElsewhereAndBack", [](WatchedDesk& d, kxGrid&) { d.focusElsewhere().focusGrid(); }, true},
};

/// What leads to the check.
struct Ask {
    const char* name;
    std::function<void(WatchedDesk&, kxGrid&)> ask;
    friend std::ostream& operator<<(std::ostream& out, const Ask& ask) { return out << ask.name; }
};

const Ask Asks[] = {
    {"OnEnter", [](WatchedDesk& d, kxGrid&) { d.press(Key::Enter); }},
    {"OnTab", [](WatchedDesk& d, kxGrid&) { d.press(Key::Tab); }},
    {"OnDown", [](WatchedDesk& d, kxGrid&) { d.press(Key::Down); }},
    {"OnLeft", [](WatchedDesk& d, kxGrid&) { d.press(Key::Left); }},
    {"OnRight", [](WatchedDesk& d, kxGrid&) { d.press(Key::Right); }},
    {"OnClick", [](WatchedDesk& d, kxGrid&) { d.click(3, 1); }},
    {"OnDoubleClick",
     [](WatchedDesk& d, kxGrid& g) {
         try {
             d.doubleClick(3, 1);
         } catch (const GridError&) {
             EXPECT_EQ(g.Cols(), 0) << "nothing is left to press a second time";
         }
     }},
    {"OnFocusLoss", [](WatchedDesk& d, kxGrid&) { d.focusElsewhere(); }},
    {"OnValidTextData", [](WatchedDesk&, kxGrid& g) { g.ValidTextData(); }},
    {"OnReadCell", [](WatchedDesk&, kxGrid& g) { g.ReadCell(1, 1); }},
    {"OnSetCell", [](WatchedDesk&, kxGrid& g) { g.SetCell(1, 5, ""); }},
    {"OnNotEditable", [](WatchedDesk&, kxGrid& g) { g.Editable(false), g.Editable(true); }},
};

class HostInTheCheck : public CheckTest, public ::testing::WithParamInterface<std::tuple<Act, Ask>> {
  protected:
    HostInTheCheck() { rows(12); }

    void act() { std::get<Act>(GetParam()).act(desk, grid); }
    void ask() { std::get<Ask>(GetParam()).ask(desk, grid); }
    bool stays() const { return std::get<Act>(GetParam()).stays; }
    Cell target() const { return {Typed.row + std::get<Act>(GetParam()).shift, Typed.col}; }

    /// The host does it once, when it is asked, and then answers.
    Connection hostile(std::string code, std::string name) {
        return grid.TxtValidBmS.connect(
            [this, code, name, done = false](const std::string&, const std::string&, const std::string&,
                                             const std::string&, std::string& returnedCode,
                                             std::string& returnedName) mutable {
                if (!std::exchange(done, true)) act();
                returnedCode = code;
                returnedName = name;
            });
    }
    void typeCode(std::string_view typed) {
        put(Typed.row, Typed.col, typed);
        desk.select(0, typed.size());
        forget();
    }
    /// Cells that hold something of what was typed or answered.
    std::vector<Cell> traces() const {
        std::vector<Cell> found;
        for (std::int32_t row = 0; row < grid.Rows(); ++row)
            for (std::int32_t col = 1; col < grid.Cols(); ++col)
                for (const std::string& stored : {text(row, col), tag(row, col)})
                    if (stored.find_first_of("AX") != std::string::npos ||
                        stored.find("螺栓") != std::string::npos)
                        found.push_back({row, col});
        return found;
    }
    /// A clerk at the same control: a good code, a bad one, a plain text.
    void expectToWork() {
        grid.Editable(true);
        desk.press(Key::Escape);
        desk.resize(9000, 6000);
        if (grid.Cols() < 6) grid.Cols(6);
        grid.ColHidden(Typed.col, false);
        judge(1, gEmJudgeType{});
        judge(CodeCol, ij编码型);
        column(CodeCol).s错误提示信息("没有此货号");
        knowCodes();
        desk.focusGrid();
        put(2, CodeCol, "A9");
        desk.press(Key::Enter);
        EXPECT_EQ(text(2, CodeCol), "A9");
        EXPECT_EQ(tag(2, CodeCol), "货 A9");
        EXPECT_EQ(current(), (Cell{2, CodeCol + 1}));
        EXPECT_EQ(boxes(), Boxes{});
        put(3, CodeCol, "X9");
        desk.press(Key::Enter).press(Key::Enter);
        EXPECT_EQ(boxes(), codeBox());
        expectRefused(3, CodeCol, "X9");
        desk.press(Key::Escape);
        put(3, 1, "plain");
        desk.press(Key::Down);
        EXPECT_EQ(text(3, 1), "plain");
        EXPECT_EQ(current(), (Cell{4, 1}));
        EXPECT_FALSE(open());
    }
};

INSTANTIATE_TEST_SUITE_P(Does, HostInTheCheck,
                         ::testing::Combine(::testing::ValuesIn(Acts), ::testing::ValuesIn(Asks)),
                         [](const auto& tested) {
                             return std::string(std::get<Act>(tested.param).name) +
                                    std::get<Ask>(tested.param).name;
                         });

TEST_P(HostInTheCheck, AndKnowsTheCode) {
    Connection host = hostile("A1", "螺栓");
    typeCode("A1");
    ask();
    host.disconnect();
    EXPECT_EQ(boxes(), Boxes{});
    const Lines lines = heard();
    EXPECT_EQ(named(lines, "TxtValidBmS"), asked("A1"));
    if (stays()) {
        EXPECT_EQ(traces(), (std::vector<Cell>{target(), target()}));
        EXPECT_EQ(text(target().row, target().col), "A1");
        EXPECT_EQ(tag(target().row, target().col), "螺栓");
        EXPECT_EQ(named(lines, "AfterEdit"), edited(target().row, target().col));
        EXPECT_FALSE(open() && current() == target());
    } else {
        EXPECT_EQ(traces(), std::vector<Cell>{});
        EXPECT_EQ(named(lines, "AfterEdit"), Lines{});
    }
    expectToWork();
}

TEST_P(HostInTheCheck, AndDoesNotKnowTheCode) {
    Connection host = hostile("X1", "");
    typeCode("X1");
    ask();
    host.disconnect();
    EXPECT_EQ(boxes(), codeBox());
    const Lines lines = heard();
    EXPECT_EQ(named(lines, "TxtValidBmS"), asked("X1"));
    EXPECT_EQ(named(lines, "AfterEdit"), Lines{});
    EXPECT_EQ(traces(), std::vector<Cell>{});
    EXPECT_FALSE(grid.bIsDirty());
    if (stays())
        expectRefused(target().row, target().col, "X1");
    else
        EXPECT_FALSE(desk.editor().refused);
    expectToWork();
}

class HostBehindTheBox : public HostInTheCheck {};

INSTANTIATE_TEST_SUITE_P(Does, HostBehindTheBox,
                         ::testing::Combine(::testing::ValuesIn(Acts), ::testing::ValuesIn(Asks)),
                         [](const auto& tested) {
                             return std::string(std::get<Act>(tested.param).name) +
                                    std::get<Ask>(tested.param).name;
                         });

TEST_P(HostBehindTheBox, OfARefusedCode) {
    typeCode("X1");
    desk.whileTheBoxIsOpen = [this] { act(); };
    ask();
    EXPECT_EQ(boxes(), codeBox());
    const Lines lines = heard();
    EXPECT_EQ(named(lines, "TxtValidBmS"), asked("X1"));
    EXPECT_EQ(named(lines, "AfterEdit"), Lines{});
    EXPECT_EQ(traces(), std::vector<Cell>{});
    if (stays())
        expectRefused(target().row, target().col, "X1");
    else
        EXPECT_FALSE(desk.editor().refused);
    expectToWork();
}

// --- A host that throws.

class FailingCheck : public HostInTheCheck {
  protected:
    /// The question fails after the host has answered it.
    Connection failing() {
        return grid.TxtValidBmS.connect([](const std::string&, const std::string&, const std::string&,
                                           const std::string&, std::string& code, std::string& name) {
            code = name = "A1";
            throw std::runtime_error("no connection");
        });
    }
    void expectStillTyped(const std::string& typed) {
        EXPECT_TRUE(open());
        EXPECT_FALSE(desk.editor().refused);
        EXPECT_EQ(desk.editor().text, typed);
        EXPECT_EQ(current(), Typed);
        EXPECT_EQ(traces(), std::vector<Cell>{});
        EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
        EXPECT_FALSE(grid.bIsDirty());
    }
};

INSTANTIATE_TEST_SUITE_P(A, FailingCheck,
                         ::testing::Combine(::testing::Values(Acts[0]), ::testing::ValuesIn(Asks)),
                         [](const auto& tested) { return std::string(std::get<Ask>(tested.param).name); });

TEST_P(FailingCheck, KeepsWhatWasTypedAndAsksAgainNextTime) {
    Connection host = failing();
    typeCode("A1");
    std::string caught;
    try {
        ask();
    } catch (const std::runtime_error& error) {
        caught = error.what();
    }
    const std::string way = std::get<Ask>(GetParam()).name;
    if (way == "OnReadCell")
        EXPECT_EQ(boxes(), box("CellErrorno connection", 16, "错误："));
    else if (way == "OnSetCell")
        EXPECT_EQ(boxes(), box("SetCell Error::no connection", 16, "错误"));
    else
        EXPECT_EQ(caught, "no connection");
    EXPECT_EQ(caught.empty(), !boxes().empty());
    expectStillTyped("A1");
    host.disconnect();
    forget();
    knowCodes();
    desk.clickEditor();
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked("A1"));
    EXPECT_EQ(text(Typed.row, Typed.col), "A1");
    EXPECT_EQ(tag(Typed.row, Typed.col), "货 A1");
    expectToWork();
}

TEST_P(FailingCheck, OfABoxThatCannotBeShownKeepsWhatWasTypedToo) {
    typeCode("X1");
    desk.whileTheBoxIsOpen = [] { throw std::runtime_error("no display"); };
    try {
        ask();
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), std::string("no display"));
    }
    expectStillTyped("X1");
    desk.clickEditor();
    forget();
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), codeBox());
    expectToWork();
}

TEST_P(FailingCheck, InTheCellThatTheHostWentToFirst) {
    Connection host = whenAsked([&] {
        grid.Row(4);
        throw std::runtime_error("no connection");
    });
    typeCode("A1");
    try {
        ask();
    } catch (const std::runtime_error&) {
    }
    host.disconnect();
    EXPECT_EQ(traces(), std::vector<Cell>{});
    EXPECT_EQ(current(), (Cell{4, CodeCol}));
    EXPECT_FALSE(open());
    expectToWork();
}

// --- A host that changes what is asked about.

class ChangedQuestion : public CheckTest {};

TEST_F(ChangedQuestion, LeavesTheTextThatTheHostPutInItsPlaceRefused) {
    whenAsked([&] { grid.Text("B\r\n2"), grid.TextTag("by the host"); });
    put(2, CodeCol, "X1");
    desk.press(Key::Enter).press(Key::Enter);
    EXPECT_EQ(boxes(), codeBox());
    expectRefused(2, CodeCol, "B2");
    EXPECT_EQ(desk.editor().tag, "by the host");
    EXPECT_EQ(tag(2, CodeCol), "");
}

TEST_F(ChangedQuestion, StoresTheAnswerAndNotTheTextOfTheHost) {
    whenAsked([&] { grid.Text("B2"), grid.TextTag("by the host"); });
    answer("A1", "螺栓");
    put(2, CodeCol, "X1");
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, CodeCol), "A1");
    EXPECT_EQ(tag(2, CodeCol), "螺栓");
}

TEST_F(ChangedQuestion, IsDecidedByTheAnswerThoughTheCheckIsSwitchedOff) {
    whenAsked([&] { column(CodeCol).i有效性判断(0); });
    put(2, CodeCol, "X1");
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), codeBox());
    desk.press(Key::Enter);
    EXPECT_TRUE(open()) << "refused as long as it is not changed";
    desk.type("X2").press(Key::Enter);
    EXPECT_EQ(text(2, CodeCol), "X2");
    EXPECT_EQ(boxes(), codeBox());
}

TEST_F(ChangedQuestion, OfAColumnWithoutADefinitionTakesTheDefaults) {
    answer("A1", " 螺栓 ");
    whenAsked([&] { grid.SetVsControl(nullptr); });
    put(2, CodeCol, "X1");
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, CodeCol), "A1");
    EXPECT_EQ(tag(2, CodeCol), " 螺栓 ");
    EXPECT_EQ(column(CodeCol).i有效性判断(), 0);
}

TEST_F(ChangedQuestion, ChecksTheRulesOfTheColumnWithoutAnotherCommit) {
    column(CodeCol).sName("货号");
    column(CodeCol).i是否允许为空(i字段不能为空);
    bool valid = true;
    answer("A1", "螺栓");
    whenAsked([&] { valid = grid.ValidTextData(); });
    put(2, CodeCol, "A1");
    desk.press(Key::Enter);
    EXPECT_FALSE(valid) << "the tag is still empty";
    EXPECT_EQ(boxes(), box("货号不能为空!", 64, "提示："));
    EXPECT_EQ(text(2, CodeCol), "A1");
}

TEST_F(ChangedQuestion, IsAskedOnceByAListenerThatEndsItself) {
    Connection self;
    self = whenAsked([&] { self.disconnect(); });
    put(2, CodeCol, "X1");
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), codeBox());
    desk.type("X2").press(Key::Enter);
    EXPECT_EQ(boxes(), (Boxes{codeBox()[0], codeBox()[0]}));
}

TEST_F(ChangedQuestion, DoesNotHinderAControlThatIsPlacedAnewMeanwhile) {
    for (const char* name : {"", "螺栓"}) {
        judge(CodeCol, ij编码型);
        Connection host = whenAsked([&] { grid.InitProperties(); });
        Connection answering = answer("A1", name);
        put(2, CodeCol, "A1");
        desk.press(Key::Enter);
        host.disconnect();
        answering.disconnect();
        desk.press(Key::Escape);
        forget();
        put(3, 1, "plain");
        desk.press(Key::Enter);
        EXPECT_EQ(text(3, 1), "plain");
        EXPECT_EQ(boxes(), Boxes{});
    }
}

// --- A document that is closed.

class ClosedDocument : public ::testing::TestWithParam<std::tuple<Ask, bool>> {
  protected:
    /// Closes the control on the desk at a moment of the check, and works with another one.
    void closeWhen(const std::function<void(kxGrid&, std::function<void()>)>& arrange) {
        kxGrid& stays = desk.place();
        kxGrid& goes = desk.place();
        goes.Rows(12);
        goes.VsCtrl(Typed.col)->i有效性判断(1);
        goes.VsCtrl(Typed.col)->i字段有效性判断类型(ij编码型);
        goes.ReDraw(true);
        int closed = 0;
        arrange(goes, [&] {
            ++closed;
            desk.remove(goes);
        });
        desk.focusGrid();
        goes.Grid().Select(Typed.row, Typed.col);
        desk.type("X1").select(0, 2);
        std::get<Ask>(GetParam()).ask(desk, goes);
        EXPECT_EQ(closed, 1);
        kit::expectKeyedAsEver(desk, stays);
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    }

    WatchedDesk desk;
};

// Calls that the desk carries out: a control that is closed in them goes when they have returned.
INSTANTIATE_TEST_SUITE_P(A, ClosedDocument,
                         ::testing::Combine(::testing::ValuesIn(Asks, Asks + 8), ::testing::Bool()),
                         [](const auto& tested) {
                             return std::string(std::get<bool>(tested.param) ? "Known" : "Unknown") +
                                    std::get<Ask>(tested.param).name;
                         });

TEST_P(ClosedDocument, WhileTheHostIsAskedTakesNothingAlong) {
    closeWhen([](kxGrid& grid, std::function<void()> close) {
        grid.TxtValidBmS.connect([close](const std::string&, const std::string&, const std::string&,
                                         const std::string&, std::string&, std::string& name) {
            close();
            if (std::get<bool>(GetParam())) name = "螺栓";
        });
    });
}

TEST_P(ClosedDocument, WhileTheBoxIsOpenTakesNothingAlong) {
    closeWhen([this](kxGrid&, std::function<void()> close) { desk.whileTheBoxIsOpen = std::move(close); });
}

}  // namespace
}  // namespace kxVsGrid::testing
