// A listener that destroys the control: what was going on ends there, and nobody else is told.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "kit/Life.h"
#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::testing {
namespace {

using headless::Desk;
using kit::consenting;
using kit::to;
using kit::toEngine;
using End = kit::End<kxGrid, kxGrid, Desk>;

void openTyped(kxGrid&, Desk& desk) {
    desk.focusGrid();
    desk.type("abc");
}
void openCode(kxGrid& grid, Desk& desk) {
    grid.VsCtrl(1)->i有效性判断(1);
    grid.VsCtrl(1)->i字段有效性判断类型(ij编码型);
    openTyped(grid, desk);
}
void openOnTheLastRow(kxGrid& grid, Desk& desk) {
    grid.Row(5);
    openTyped(grid, desk);
}
void row(kxGrid& grid, Desk&) {
    grid.Row(3);
}
void rows(kxGrid& grid, Desk&) {
    grid.Rows(9);
}
void commit(kxGrid& grid, Desk&) {
    grid.ValidTextData();
}
void addRow(kxGrid& grid, Desk&) {
    grid.AddRow(2, true, true);
}

const End DirectCalls[] = {
    {"BeforeRowColChange", to(&GridEvents::BeforeRowColChange), row},
    {"EnterCell", to(&GridEvents::EnterCell), row},
    {"ValidData", to(&GridEvents::ValidData), row},
    {"RowColChange", to(&GridEvents::RowColChange), row},
    {"AfterRowColChange", to(&GridEvents::AfterRowColChange), row},
    {"SelChange", to(&GridEvents::SelChange), row},
    {"MoveByCol", to(&GridEvents::EnterCell), [](kxGrid& g, Desk&) { g.Col(3); }},
    {"MoveBySelect", to(&GridEvents::EnterCell), [](kxGrid& g, Desk&) { g.Grid().Select(2, 2); }},
    {"ForcedMoveByRows", to(&GridEvents::EnterCell), [](kxGrid& g, Desk&) { g.Rows(6); },
     [](kxGrid& g, Desk&) {
         g.Rows(30);
         g.Row(20);
     }},
    {"ForcedMoveByCols", to(&GridEvents::SelChange), [](kxGrid& g, Desk&) { g.Cols(4); },
     [](kxGrid& g, Desk&) { g.Col(8); }},
    {"MoveByClear", to(&GridEvents::RowColChange), [](kxGrid& g, Desk&) { g.Clear(); },
     [](kxGrid& g, Desk&) { g.Row(4); }},
    {"CellChangedByText", to(&GridEvents::CellChanged), [](kxGrid& g, Desk&) { g.Grid().Text(1, 1, "x"); }},
    {"CellChangedByData", to(&GridEvents::CellChanged), [](kxGrid& g, Desk&) { g.Grid().Data(1, 1, "x"); }},
    {"CellChangedByFormat", to(&GridEvents::CellChanged), [](kxGrid& g, Desk&) { g.FormatString("a|b"); }},
    {"CellChangedByCommit", to(&GridEvents::CellChanged), commit, openTyped},
    {"CellChangedByCopy", to(&GridEvents::CellChanged), addRow,
     [](kxGrid& g, Desk&) { g.SetCell(1, 2, "x", "y"); }},
    {"AfterEdit", to(&GridEvents::AfterEdit), commit, openTyped},
    {"AfterEditByEditable", to(&GridEvents::AfterEdit), [](kxGrid& g, Desk&) { g.Editable(false); },
     openTyped},
    {"AfterEditByLeaving", to(&GridEvents::AfterEdit), row, openTyped},
    {"TxtValidBmS", to(&GridEvents::TxtValidBmS), commit, openCode},
    {"AddVsRowByCommit", consenting(&GridEvents::AddVsRow), commit, openOnTheLastRow},
    {"AddVsRow", consenting(&GridEvents::AddVsRow), addRow},
    {"AfterAddRow", to(&GridEvents::AfterAddRow), addRow},
    {"BeforeTextEdit", to(&GridEvents::BeforeTextEdit), [](kxGrid& g, Desk&) { g.Grid().keyPress('x'); }},
    {"DblClick", to(&GridEvents::DblClick), [](kxGrid& g, Desk&) { g.Grid().DblClick(); }},
    {"Click", to(&GridEvents::Click), [](kxGrid& g, Desk&) { g.Grid().Click(); }},
    {"MouseDown", to(&GridEvents::MouseDown), [](kxGrid& g, Desk&) { g.Grid().mouseDown(1, 0, 10, 10); }},
    {"MouseMove", to(&GridEvents::MouseMove), [](kxGrid& g, Desk&) { g.Grid().mouseMove(0, 0, 10, 10); }},
    {"AddVsRowByKey", consenting(&GridEvents::AddVsRow), [](kxGrid& g, Desk&) { g.Grid().keyDown(45, 0); }},
    {"DeleteVsRow", consenting(&GridEvents::DeleteVsRow), [](kxGrid& g, Desk&) { g.Grid().keyDown(46, 0); }},
    {"AfterDeleteVsRow", to(&GridEvents::AfterDeleteVsRow), [](kxGrid& g, Desk&) { g.Grid().keyDown(46, 0); },
     [](kxGrid& g, Desk&) { g.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; }); }},
    {"KeyByInput", to(&GridEvents::EnterCell),
     [](kxGrid& g, Desk&) {
         g.input()->key({40, 0, ""});
     },
     [](kxGrid&, Desk& d) { d.focusGrid(); }},
    {"EnterByInput", to(&GridEvents::AfterEdit),
     [](kxGrid& g, Desk&) {
         g.input()->key({13, 0, "\r"});
     },
     openTyped},
    {"TabByInput", to(&GridEvents::AfterEdit),
     [](kxGrid& g, Desk&) {
         g.input()->key({9, 0, ""});
     },
     openTyped},
    {"TypingByInput", to(&GridEvents::BeforeTextEdit),
     [](kxGrid& g, Desk&) {
         g.input()->key({65, 0, "a"});
     },
     [](kxGrid&, Desk& d) { d.focusGrid(); }},
    {"FocusLossByInput", to(&GridEvents::AfterEdit),
     [](kxGrid& g, Desk&) { g.input()->focusMoved(FocusPlace::Elsewhere); }, openTyped},
    {"KeyDownOfTheSurface", to(&GridEvents::keyDown),
     [](kxGrid& g, Desk&) {
         g.input()->key({65, 0, "a"});
     },
     [](kxGrid&, Desk& d) { d.focusSurface(); }},
    {"KeyPressOfTheSurface", to(&GridEvents::KeyPress),
     [](kxGrid& g, Desk&) {
         g.input()->key({65, 0, "a"});
     },
     [](kxGrid&, Desk& d) { d.focusSurface(); }},
    {"KeyUpOfTheSurface", to(&GridEvents::KeyUp), [](kxGrid& g, Desk&) { g.input()->keyUp(65, 0); },
     [](kxGrid&, Desk& d) { d.focusSurface(); }},
    {"EngineEnterCell", toEngine(&CellGrid::EnterCell), row},
    {"EngineSizeChanged", toEngine(&CellGrid::SizeChanged), rows},
    {"EngineRowMoved", toEngine(&CellGrid::RowMoved), addRow},
    {"EngineRowsReordered", toEngine(&CellGrid::RowsReordered),
     [](kxGrid& g, Desk&) { g.Grid().MoveRows(1, 2, 3); }},
    {"EngineSelChange", toEngine(&CellGrid::SelChange), addRow},
    {"EngineAfterScroll", toEngine(&CellGrid::AfterScroll), [](kxGrid& g, Desk&) { g.Row(50); },
     [](kxGrid& g, Desk&) { g.Rows(60); }},
    {"EngineKeyDown", toEngine(&CellGrid::KeyDown), [](kxGrid& g, Desk&) { g.Grid().keyDown(45, 0); }},
    {"EngineAfterScrollByFormat", toEngine(&CellGrid::AfterScroll), [](kxGrid& g, Desk&) { g.FixedRows(2); }},
};

class ControlThatGoesInADirectCall : public ::testing::TestWithParam<End> {};

TEST_P(ControlThatGoesInADirectCall, TellsNobodyElse) {
    Desk desk;
    kxGrid& stays = desk.place();
    kxGrid& goes = desk.place();
    GetParam().prepare(goes, desk);
    desk.clear();
    bool gone = false;
    int later = 0;
    GetParam().listen(goes, [&] {
        gone = true;
        desk.remove(goes);
    });
    GetParam().listen(goes, [&] { ++later; });
    GetParam().act(goes, desk);
    EXPECT_TRUE(gone);
    EXPECT_EQ(later, 0);
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_TRUE(desk.reports().empty());
    kit::expectKeyedAsEver(desk, stays);
}

INSTANTIATE_TEST_SUITE_P(In, ControlThatGoesInADirectCall, ::testing::ValuesIn(DirectCalls),
                         [](const auto& tested) { return std::string(tested.param.name); });

void down(kxGrid&, Desk& desk) {
    desk.press(Key::Down);
}
void enter(kxGrid&, Desk& desk) {
    desk.press(Key::Enter);
}
void focus(kxGrid&, Desk& desk) {
    desk.focusGrid();
}

const End DeskCalls[] = {
    {"BeforeRowColChange", to(&GridEvents::BeforeRowColChange), down, focus},
    {"EnterCell", to(&GridEvents::EnterCell), down, focus},
    {"ValidData", to(&GridEvents::ValidData), down, focus},
    {"RowColChange", to(&GridEvents::RowColChange), down, focus},
    {"AfterRowColChange", to(&GridEvents::AfterRowColChange), down, focus},
    {"SelChange", to(&GridEvents::SelChange), down, focus},
    {"CellChanged", to(&GridEvents::CellChanged), enter, openTyped},
    {"AfterEdit", to(&GridEvents::AfterEdit), enter, openTyped},
    {"TxtValidBmS", to(&GridEvents::TxtValidBmS), enter, openCode},
    {"AddVsRow", consenting(&GridEvents::AddVsRow), enter, openOnTheLastRow},
    {"BeforeTextEdit", to(&GridEvents::BeforeTextEdit), [](kxGrid&, Desk& d) { d.type("x"); }, focus},
    {"Click", to(&GridEvents::Click), [](kxGrid&, Desk& d) { d.click(2, 2); }},
    {"MouseDown", to(&GridEvents::MouseDown), [](kxGrid&, Desk& d) { d.click(2, 2); }},
    {"DblClick", to(&GridEvents::DblClick), [](kxGrid&, Desk& d) { d.doubleClick(2, 2); }},
    {"MouseMove", to(&GridEvents::MouseMove), [](kxGrid&, Desk& d) { d.mouseMove(0, 0, 900, 900); }},
    {"DeleteVsRow", consenting(&GridEvents::DeleteVsRow), [](kxGrid&, Desk& d) { d.press(Key::Delete); },
     focus},
    {"Insert", consenting(&GridEvents::AddVsRow), [](kxGrid&, Desk& d) { d.press(Key::Insert); }, focus},
    {"LeavingByTab", to(&GridEvents::AfterEdit), [](kxGrid&, Desk& d) { d.press(Key::Tab); }, openTyped},
    {"LosingTheFocus", to(&GridEvents::AfterEdit), [](kxGrid&, Desk& d) { d.focusElsewhere(); }, openTyped},
    {"AfterScroll", toEngine(&CellGrid::AfterScroll), [](kxGrid&, Desk& d) { d.wheel(2); },
     [](kxGrid& g, Desk&) { g.Rows(60); }},
    {"AfterScrollByTouch", toEngine(&CellGrid::AfterScroll), [](kxGrid&, Desk& d) { d.scrollBy(0, 900); },
     [](kxGrid& g, Desk&) { g.Rows(60); }},
    {"OffsetChanged", toEngine(&CellGrid::OffsetChanged), [](kxGrid&, Desk& d) { d.scrollBy(0, 90); },
     [](kxGrid& g, Desk&) { g.Rows(60); }},
    {"AfterUserResize", toEngine(&CellGrid::AfterUserResize),
     [](kxGrid&, Desk& d) { d.dragColumn(2, 2000); }},
};

class ControlThatGoesInACallOfTheDesk : public ::testing::TestWithParam<End> {};

TEST_P(ControlThatGoesInACallOfTheDesk, LeavesTheDeskInOrder) {
    Desk desk;
    kxGrid& stays = desk.place();
    kxGrid& goes = desk.place();
    GetParam().prepare(goes, desk);
    bool gone = false;
    GetParam().listen(goes, [&] {
        gone = true;
        desk.remove(goes);
    });
    GetParam().act(goes, desk);
    EXPECT_TRUE(gone);
    EXPECT_THROW(desk.press(Key::Down), std::logic_error);
    kit::expectKeyedAsEver(desk, stays);
}

INSTANTIATE_TEST_SUITE_P(In, ControlThatGoesInACallOfTheDesk, ::testing::ValuesIn(DeskCalls),
                         [](const auto& tested) { return std::string(tested.param.name); });
}  // namespace
}  // namespace kxVsGrid::testing
