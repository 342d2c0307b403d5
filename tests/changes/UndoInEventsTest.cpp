// Undo and redo asked for from inside the events of the control, controls that go inside the events of an undo,
// and listeners that throw there.
#include <functional>
#include <stdexcept>
#include <string>

#include "changes/GridState.h"
#include "kit/Life.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

using headless::Desk;
using kit::consenting;
using kit::to;
using kit::toEngine;
using kit::Work;
using Scene = kit::End<kxGrid, kxGrid, Desk>;

void keyed(kxGrid& grid, Desk& desk, std::int32_t row, std::int32_t col, std::string_view typed) {
    grid.Grid().Select(row, col);
    desk.type(typed).press(Key::Enter);
}
void offersHelp(kxGrid& grid, gEmHelpType type) {
    grid.VsCtrl(3)->b是否提供帮助(true);
    grid.VsCtrl(3)->i帮助类型(type);
    grid.VsCtrl(3)->sHelp_Code("goods");
}
void asksForHelp(kxGrid& grid, Desk& desk) {
    grid.Grid().Select(2, 3);
    desk.press(Key::F2);
    desk.press(Key::Enter);
    desk.press(Key::Escape);
}
/// A clerk who has typed two texts, deleted a row and undone one more.
void worked(kxGrid& grid, Desk& desk) {
    grid.Cols(6);
    grid.VsCtrl(2)->iType(flexDTDouble);
    grid.VsCtrl(2)->b是否合计数据(true);
    grid.SumRow(true);
    grid.ReDraw(true);
    const Connection consents = grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    desk.focusGrid();
    grid.SetCell(1, 1, "loaded");
    keyed(grid, desk, 1, 1, "a");
    keyed(grid, desk, 2, 2, "7");
    grid.Grid().Select(3, 1);
    desk.press(Key::Delete);
    keyed(grid, desk, 4, 1, "undone");
    grid.History().Undo();
    grid.Grid().Select(2, 3);
    Connection(consents).disconnect();
}
void typesACode(kxGrid& grid, Desk& desk) {
    grid.VsCtrl(3)->i有效性判断(1);
    grid.VsCtrl(3)->i字段有效性判断类型(ij编码型);
    keyed(grid, desk, 2, 3, "code");
    desk.press(Key::Escape);
}
void down(kxGrid&, Desk& desk) {
    desk.press(Key::Down);
}
void enters(kxGrid& grid, Desk& desk) {
    keyed(grid, desk, 1, 3, "typed");
}
void clicks(kxGrid&, Desk& desk) {
    desk.click(3, 4);
}
void choosesACopy(kxGrid&, Desk& desk) {
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("复制插入行"); });
    desk.rightClick(0, 1);
}
void deletes(kxGrid&, Desk& desk) {
    desk.press(Key::Delete);
}
void deletesWithConsent(kxGrid& grid, Desk& desk) {
    grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    grid.Grid().Select(grid.Rows() - 1, 3);
    desk.press(Key::Delete);
}
void keyOnTheSurface(kxGrid&, Desk& desk) {
    desk.focusSurface();
    desk.type("a");
    desk.focusGrid();
}
void fillsDown(kxGrid& grid, Desk& desk) {
    grid.Options().FillsToLastLine(true);
    keyed(grid, desk, 4, 1, "last");
    grid.Grid().Select(1, 1);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("填充列", "复制单元格"); });
    desk.rightClick(0, 1);
}

const Scene Scenes[] = {
    {"BeforeRowColChange", to(&GridEvents::BeforeRowColChange), down},
    {"EnterCell", to(&GridEvents::EnterCell), down},
    {"ValidData", to(&GridEvents::ValidData), down},
    {"RowColChange", to(&GridEvents::RowColChange), down},
    {"AfterRowColChange", to(&GridEvents::AfterRowColChange), down},
    {"SelChange", to(&GridEvents::SelChange), down},
    {"ValidDataOfACommit", to(&GridEvents::ValidData), enters},
    {"CellChanged", to(&GridEvents::CellChanged), enters},
    {"AfterEdit", to(&GridEvents::AfterEdit), enters},
    {"BeforeTextEdit", to(&GridEvents::BeforeTextEdit), enters},
    {"TxtValidBmS", to(&GridEvents::TxtValidBmS), typesACode},
    {"AddVsRow", consenting(&GridEvents::AddVsRow), [](kxGrid&, Desk& d) { d.press(Key::Insert); }},
    {"AddVsRowWhileTyping", consenting(&GridEvents::AddVsRow),
     [](kxGrid& g, Desk& d) { keyed(g, d, 5, 1, "x"); }},
    {"AfterAddRow", to(&GridEvents::AfterAddRow), choosesACopy},
    {"CellChangedOfACopy", to(&GridEvents::CellChanged), choosesACopy},
    {"MoveInACopy", to(&GridEvents::RowColChange), choosesACopy},
    {"DeleteVsRow", consenting(&GridEvents::DeleteVsRow), deletes},
    {"AfterDeleteVsRow", to(&GridEvents::AfterDeleteVsRow), deletesWithConsent},
    {"MoveAfterADeletion", to(&GridEvents::SelChange), deletesWithConsent},
    {"Click", to(&GridEvents::Click), clicks},
    {"MouseDown", to(&GridEvents::MouseDown), clicks},
    {"DblClick", to(&GridEvents::DblClick), [](kxGrid&, Desk& d) { d.doubleClick(3, 4); }},
    {"MouseMove", to(&GridEvents::MouseMove), [](kxGrid&, Desk& d) { d.mouseMove(0, 0, 900, 900); }},
    {"KeyDown", to(&GridEvents::keyDown), keyOnTheSurface},
    {"KeyPress", to(&GridEvents::KeyPress), keyOnTheSurface},
    {"KeyUp", to(&GridEvents::KeyUp), keyOnTheSurface},
    {"GetHelpCodeInfo", to(&GridEvents::GetHelpCodeInfo), asksForHelp,
     [](kxGrid& g, Desk&) { offersHelp(g, ih通用型); }},
    {"UserHelpEvent", to(&GridEvents::UserHelpEvent), asksForHelp,
     [](kxGrid& g, Desk&) { offersHelp(g, ih特殊型); }},
    {"CellChangedOfAFill", to(&GridEvents::CellChanged), fillsDown},
    {"RowInUse",
     [](kxGrid& g, Work work) { g.Options().RowInUse.connect([work](std::int32_t, bool&) { work(); }); },
     fillsDown},
    {"CellLocked",
     [](kxGrid& g, Work work) {
         g.Options().CellLocked.connect([work](std::int32_t, std::int32_t, bool&) { work(); });
     },
     enters},
    {"RuleOfTheHosts",
     [](kxGrid& g, Work work) {
         g.Options(3).accepts([work](std::int32_t, std::string_view) {
             work();
             return std::string();
         });
     },
     enters},
    {"EngineMarksChanged", toEngine(&CellGrid::MarksChanged), enters,
     [](kxGrid& g, Desk&) { g.Mark(1, 3, CellMark{}); }},
    {"After", [](kxGrid& g, Work work) { g.Changes().After.connect([work](const StepChanges&) { work(); }); },
     enters},
    {"AfterAnUndo",
     [](kxGrid& g, Work work) { g.Changes().After.connect([work](const StepChanges&) { work(); }); },
     [](kxGrid&, Desk& d) { d.press('Z', CtrlKey); }},
    {"Settler", [](kxGrid& g, Work work) { g.Changes().AddSettler([work](const StepChanges&) { work(); }); },
     enters},
    {"CommandsChanged", [](kxGrid& g, Work work) { g.Commands().Changed.connect(work); }, enters},
    {"CommandsChangedByAnUndo", [](kxGrid& g, Work work) { g.Commands().Changed.connect(work); },
     [](kxGrid&, Desk& d) { d.press('Y', CtrlKey); }},
    {"Forgot", [](kxGrid& g, Work work) { g.History().Forgot.connect(work); },
     [](kxGrid& g, Desk& d) {
         g.History().Limit(10);
         enters(g, d);
         g.History().Limit(1 << 20);
     }},
    {"EngineRowMoved", toEngine(&CellGrid::RowMoved), choosesACopy},
    {"EngineRowsReordered", toEngine(&CellGrid::RowsReordered),
     [](kxGrid& g, Desk&) {
         const auto step = g.Step("moved");
         g.Grid().MoveRows(1, 1, 3);
     }},
    {"EngineSizeChanged", toEngine(&CellGrid::SizeChanged), [](kxGrid& g, Desk&) { g.Rows(9); }},
    {"EngineKeyDown", toEngine(&CellGrid::KeyDown), down},
};

struct AskedIn : ::testing::TestWithParam<std::tuple<Scene, Command>> {};

/// What comes of it may differ, but the history goes on to lead from the beginning to the end and back.
TEST_P(AskedIn, AnEventLeavesAHistoryThatIsWhole) {
    const auto& [scene, command] = GetParam();
    Desk desk;
    kxGrid& grid = desk.place();
    worked(grid, desk);
    scene.prepare(grid, desk);
    int asked = 0;
    scene.listen(grid, [&, wanted = command] {
        if (++asked > 3) return;
        grid.Run(wanted);
        if (wanted == Command::Undo)
            grid.History().Undo();
        else
            grid.History().Redo();
    });
    scene.act(grid, desk);
    EXPECT_GT(asked, 0);
    asked = 99;
    if (desk.editor().visible) desk.press(Key::Escape);
    desk.onPopup({});
    while (grid.History().Redo()) {
    }
    const Lines end = stateOf(grid);
    while (grid.History().Undo()) {
    }
    const Lines beginning = stateOf(grid);
    while (grid.History().Redo()) {
    }
    EXPECT_EQ(stateOf(grid), end);
    while (grid.History().Undo()) {
    }
    EXPECT_EQ(stateOf(grid), beginning);
    if (scene.name != std::string("Forgot")) {
        EXPECT_EQ(grid.Grid().Text(1, 1), "loaded");
    }
    keyed(grid, desk, 1, 1, "goes on");
    EXPECT_EQ(grid.Grid().Text(1, 1), "goes on");
    EXPECT_EQ(grid.History().UndoName(), "录入");
}

INSTANTIATE_TEST_SUITE_P(Undo, AskedIn,
                         ::testing::Combine(::testing::ValuesIn(Scenes),
                                            ::testing::Values(Command::Undo, Command::Redo)),
                         [](const auto& tested) {
                             return std::string(std::get<0>(tested.param).name) +
                                    (std::get<1>(tested.param) == Command::Undo ? "Undone" : "Redone");
                         });

/// A step that touches all there is: texts, tags, rows that come and rows that go; the clerk is elsewhere.
void largeStep(kxGrid& grid, Desk& desk) {
    worked(grid, desk);
    grid.Rows(60);
    {
        const auto step = grid.Step("large");
        for (std::int32_t row = 1; row < 5; ++row) grid.SetCell(row, 1, "text", "tag");
        grid.Grid().RemoveRow(2);
        grid.Grid().InsertRow(3);
        grid.SetCell(3, 2, "5");
    }
    grid.Grid().Select(58, 5);
    desk.clear();
}
void undo(kxGrid& grid, Desk&) {
    grid.History().Undo();
}
void run(kxGrid& grid, Desk&) {
    grid.Run(Command::Undo);
}
void presses(kxGrid&, Desk& desk) {
    desk.press('Z', CtrlKey);
}
/// The clerk presses the key in an editor as it was opened.
void pressesInTheEditor(kxGrid&, Desk& desk) {
    desk.press(Key::F2);
    desk.press('Z', CtrlKey);
}
void redo(kxGrid& grid, Desk&) {
    grid.History().Redo();
}
void undone(kxGrid& grid, Desk&) {
    grid.History().Undo();
    grid.Grid().Select(58, 5);
}

struct Way {
    const char* name;
    void (*go)(kxGrid&, Desk&);
    bool byTheDesk = false;  ///< a control that goes meanwhile is destroyed when the desk is done
    void (*before)(kxGrid&, Desk&) = [](kxGrid&, Desk&) {};
    friend std::ostream& operator<<(std::ostream& out, const Way& way) { return out << way.name; }
};
const Way Ways[] = {{"Call", undo},
                    {"Command", run},
                    {"Key", presses, true},
                    {"KeyInTheEditor", pressesInTheEditor, true},
                    {"Redo", redo, false, undone}};

const Scene EventsOfAnUndo[] = {
    {"BeforeRowColChange", to(&GridEvents::BeforeRowColChange), {}},
    {"EnterCell", to(&GridEvents::EnterCell), {}},
    {"ValidData", to(&GridEvents::ValidData), {}},
    {"RowColChange", to(&GridEvents::RowColChange), {}},
    {"AfterRowColChange", to(&GridEvents::AfterRowColChange), {}},
    {"SelChange", to(&GridEvents::SelChange), {}},
    {"CellChanged", to(&GridEvents::CellChanged), {}},
    {"EngineBeforeRowColChange", toEngine(&CellGrid::BeforeRowColChange), {}},
    {"EngineLeaveCell", toEngine(&CellGrid::LeaveCell), {}},
    {"EngineEnterCell", toEngine(&CellGrid::EnterCell), {}},
    {"EngineRowColChange", toEngine(&CellGrid::RowColChange), {}},
    {"EngineAfterRowColChange", toEngine(&CellGrid::AfterRowColChange), {}},
    {"EngineSelChange", toEngine(&CellGrid::SelChange), {}},
    {"EngineCellChanged", toEngine(&CellGrid::CellChanged), {}},
    {"EngineAfterScroll", toEngine(&CellGrid::AfterScroll), {}},
    {"EngineRowMoved", toEngine(&CellGrid::RowMoved), {}},
    {"After",
     [](kxGrid& g, Work work) { g.Changes().After.connect([work](const StepChanges&) { work(); }); },
     {}},
    {"CommandsChanged", [](kxGrid& g, Work work) { g.Commands().Changed.connect(work); }, {}},
};

struct ControlInAnUndo : ::testing::TestWithParam<std::tuple<Scene, Way>> {};

TEST_P(ControlInAnUndo, MayGoInItsEvents) {
    const auto& [scene, way] = GetParam();
    Desk desk;
    kxGrid& stays = desk.place();
    kxGrid& goes = desk.place();
    largeStep(goes, desk);
    way.before(goes, desk);
    bool gone = false;
    int later = 0;
    scene.listen(goes, [&] {
        if (gone) return;
        gone = true;
        desk.remove(goes);
    });
    scene.listen(goes, [&] { ++later; });
    way.go(goes, desk);
    EXPECT_TRUE(gone);
    if (!way.byTheDesk) {
        EXPECT_EQ(later, 0);
    }
    EXPECT_TRUE(desk.messages().empty());
    kit::expectKeyedAsEver(desk, stays);
}

TEST_P(ControlInAnUndo, HasUndoneAllWhenAListenerThrows) {
    const auto& [scene, way] = GetParam();
    Desk desk;
    kxGrid& grid = desk.place();
    largeStep(grid, desk);
    const Lines after = stateOf(grid);
    grid.History().Undo();
    const Lines before = stateOf(grid);
    grid.History().Redo();
    grid.Grid().Select(58, 5);
    way.before(grid, desk);
    bool fails = true, failed = false;
    scene.listen(grid, [&] {
        if (!fails) return;
        failed = true;
        throw std::runtime_error("boom");
    });
    try {
        way.go(grid, desk);
    } catch (const std::runtime_error&) {
    }
    fails = false;
    ASSERT_TRUE(failed);
    if (std::string(way.name) == "Redo") {
        EXPECT_TRUE(grid.History().Undo());
    }
    if (std::string(way.name) == "KeyInTheEditor" && !grid.History().CanRedo()) {
        // What threw kept the editor from opening or closing: nothing was undone.
        EXPECT_EQ(stateOf(grid), after);
        if (desk.editor().visible) desk.press(Key::Escape);
        grid.History().Undo();
    }
    if (!grid.History().CanRedo() || grid.History().RedoName() != "large") grid.History().Undo();
    EXPECT_EQ(stateOf(grid), before);
    EXPECT_TRUE(grid.History().Redo());
    EXPECT_EQ(stateOf(grid), after);
}

INSTANTIATE_TEST_SUITE_P(In, ControlInAnUndo,
                         ::testing::Combine(::testing::ValuesIn(EventsOfAnUndo), ::testing::ValuesIn(Ways)),
                         [](const auto& tested) {
                             return std::string(std::get<0>(tested.param).name) + "By" +
                                    std::get<1>(tested.param).name;
                         });

/// A step of the host's, ended in each way while its control goes.
TEST(StepOfAHost, MayOutliveItsControl) {
    for (const bool closes : {true, false}) {
        Desk desk;
        kxGrid& grid = desk.place();
        grid.ReDraw(true);
        int settled = 0;
        grid.Changes().AddSettler([&](const StepChanges&) {
            ++settled;
            desk.remove(grid);
        });
        {
            auto outer = grid.Step("outer");
            auto step = grid.Step("inner");
            grid.SetCell(1, 1, "x");
            const auto span = grid.Unrecorded();
            step.close();
            EXPECT_EQ(settled, 0);
            if (closes) {
                outer.close();
                EXPECT_EQ(settled, 1);
                EXPECT_FALSE(outer.takeBack());
            }
        }
        EXPECT_EQ(settled, 1);
    }
    for (int what = 0; what < 3; ++what) {
        Desk desk;
        kxGrid& grid = desk.place();
        grid.ReDraw(true);
        auto outer = grid.Step("outer");
        grid.SetCell(1, 1, "x");
        const auto span = grid.Unrecorded();
        desk.remove(grid);
        if (what == 0) outer.close();
        if (what == 1) {
            EXPECT_FALSE(outer.takeBack());
        }
    }
}

TEST(StepOfAHost, EndsWhenItsControlGoesInATakeBack) {
    Desk desk;
    kxGrid& grid = desk.place();
    grid.ReDraw(true);
    auto step = grid.Step("step");
    grid.SetCell(1, 1, "x");
    grid.SetCell(2, 1, "y");
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) { desk.remove(grid); });
    step.takeBack();
    step.close();
    SUCCEED();
}
}  // namespace
}  // namespace kxVsGrid::testing
