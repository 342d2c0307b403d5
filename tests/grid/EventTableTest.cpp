// The 24 events: their numbers, the arguments that the host may change, and those that the main grid's own
// events are passed on as.
#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

template <class... Args, class Want>
constexpr bool takes(const Event<Args...>&, Want*) {
    return std::is_same_v<void(Args...), Want>;
}
template <class Want>
constexpr Want* arguments = nullptr;

using Row = std::int32_t;
using Text = const std::string&;

class EventTable : public PlacedGrid {};

TEST_F(EventTable, NumbersTheEventsFromOneToTwentyFour) {
    const std::vector<int> numbers = {
        grid.ValidData.number(),        grid.BeforeTextEdit.number(),     grid.DeleteVsRow.number(),
        grid.AfterDeleteVsRow.number(), grid.AddVsRow.number(),           grid.TxtValidBmS.number(),
        grid.GetHelpCodeInfo.number(),  grid.UserHelpEvent.number(),      grid.AfterEdit.number(),
        grid.RowColChange.number(),     grid.GetHelpEdit.number(),        grid.Click.number(),
        grid.MouseDown.number(),        grid.BeforeRowColChange.number(), grid.AfterRowColChange.number(),
        grid.SelChange.number(),        grid.CellChanged.number(),        grid.KeyUp.number(),
        grid.keyDown.number(),          grid.KeyPress.number(),           grid.EnterCell.number(),
        grid.DblClick.number(),         grid.MouseMove.number(),          grid.AfterAddRow.number()};
    ASSERT_EQ(numbers.size(), 24u);
    for (int i = 0; i < 24; ++i) EXPECT_EQ(numbers[static_cast<std::size_t>(i)], i + 1);
}

TEST_F(EventTable, LetsTheHostChangeExactlyTheArgumentsByReference) {
    EXPECT_TRUE(takes(grid.ValidData, arguments<void(std::int16_t&)>));
    EXPECT_TRUE(takes(grid.BeforeTextEdit, arguments<void()>));
    EXPECT_TRUE(takes(grid.DeleteVsRow, arguments<void(Row, bool&)>));
    EXPECT_TRUE(takes(grid.AfterDeleteVsRow, arguments<void()>));
    EXPECT_TRUE(takes(grid.AddVsRow, arguments<void(Row, bool&)>));
    EXPECT_TRUE(takes(grid.TxtValidBmS, arguments<void(Text, Text, Text, Text, std::string&, std::string&)>));
    EXPECT_TRUE(takes(grid.GetHelpCodeInfo, arguments<void(const Variant&, Variant&, Variant&, Variant&)>));
    EXPECT_TRUE(takes(grid.UserHelpEvent, arguments<void(Row, Row, std::string&, Variant&)>));
    EXPECT_TRUE(takes(grid.AfterEdit, arguments<void(Row, Row)>));
    EXPECT_TRUE(takes(grid.RowColChange, arguments<void()>));
    EXPECT_TRUE(takes(grid.GetHelpEdit, arguments<void(Text, Variant&)>));
    EXPECT_TRUE(takes(grid.Click, arguments<void()>));
    EXPECT_TRUE(takes(grid.MouseDown, arguments<void(std::int16_t, std::int16_t, float, float, bool&)>));
    EXPECT_TRUE(takes(grid.BeforeRowColChange, arguments<void(Row, Row, Row, Row, bool&)>));
    EXPECT_TRUE(takes(grid.AfterRowColChange, arguments<void(Row, Row, Row, Row)>));
    EXPECT_TRUE(takes(grid.SelChange, arguments<void()>));
    EXPECT_TRUE(takes(grid.CellChanged, arguments<void(Row, Row)>));
    EXPECT_TRUE(takes(grid.KeyUp, arguments<void(std::int16_t&, std::int16_t&)>));
    EXPECT_TRUE(takes(grid.keyDown, arguments<void(std::int16_t&, std::int16_t&)>));
    EXPECT_TRUE(takes(grid.KeyPress, arguments<void(std::int16_t&)>));
    EXPECT_TRUE(takes(grid.EnterCell, arguments<void()>));
    EXPECT_TRUE(takes(grid.DblClick, arguments<void()>));
    EXPECT_TRUE(takes(grid.MouseMove, arguments<void(std::int16_t&, std::int16_t&, float&, float&)>));
    EXPECT_TRUE(takes(grid.AfterAddRow, arguments<void(bool&, Row, bool, Row)>));
}

TEST_F(EventTable, PassesOnTheEndOfAnEditOfTheGridsOwn) {
    vs().AfterEdit(3, 4);
    EXPECT_EQ(heard(), edited(3, 4));
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(EventTable, PassesOnClickSelectionAndCellChangesOfTheGrid) {
    vs().Click();
    vs().SelChange();
    vs().CellChanged(3, 4);
    EXPECT_EQ(heard(), (Lines{line("Click"), line("SelChange"), line("CellChanged", 3, 4)}));
}

TEST_F(EventTable, PassesOnWhatTheHostWritesThroughTheGrid) {
    vs().Text(2, 3, "text");
    vs().Data(2, 3, "tag");
    vs().Data(2, 3, "tag");
    vs().CellBackColor(2, 3, 0xFF);
    vs().ColFormat(3, "0.00");
    EXPECT_EQ(heard(), changed(2, 3) + changed(2, 3));
}

TEST_F(EventTable, PassesOnNothingOfTheTotalRow) {
    setUp();
    sum().Text(0, 3, "text");
    sum().Click();
    sum().AfterEdit(0, 1);
    sum().CellChanged(0, 3);
    sum().SelChange();
    EXPECT_EQ(heard(), Nothing);
}

TEST_F(EventTable, AnswersTheClerksKeysOnTheSurfaceOnly) {
    desk.focusSurface();
    heard();
    desk.type("a");
    EXPECT_EQ(heard(), (Lines{line("keyDown", 65, 0), line("KeyPress", 97), line("KeyUp", 65, 0)}));
    desk.press(Key::F2, ShiftKey);
    EXPECT_EQ(heard(), (Lines{line("keyDown", 113, 1), line("KeyUp", 113, 1)}));
    desk.focusGrid();
    heard();
    desk.press(Key::F2);
    for (const char* name : {"keyDown", "KeyPress", "KeyUp"}) EXPECT_EQ(named(heard(), name), Nothing);
}

TEST_F(EventTable, AnswersTheMouseOverTheSurface) {
    desk.surfaceMouseMove(LeftButton, CtrlKey, 12.5F, 30.25F);
    EXPECT_EQ(heard(),
              Lines{line("MouseMove", std::int32_t{LeftButton}, std::int32_t{CtrlKey}, 12.5F, 30.25F)});
}

TEST_F(EventTable, CallsListenersInOrderAndShowsThemEachOthersAnswers) {
    std::vector<bool> seen;
    grid.AddVsRow.connect([&](std::int32_t, bool& consent) {
        seen.push_back(consent);
        consent = true;
    });
    auto second = grid.AddVsRow.connect([&](std::int32_t, bool& consent) {
        seen.push_back(consent);
        consent = false;
    });
    desk.focusGrid();
    desk.press(Key::Insert);
    EXPECT_EQ(seen, (std::vector<bool>{false, true}));
    EXPECT_EQ(grid.Rows(), 6);
    second.disconnect();
    desk.press(Key::Insert);
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(EventTable, KeepsTwoControlsOfOneDeskApart) {
    kxGrid& other = desk.place();
    HostLog theirs(other);
    other.Row(3);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(theirs.lines(), moves(1, 1, 3, 1));
    theirs.clear();
    grid.SetCell(1, 1, "text");
    EXPECT_EQ(theirs.lines(), Nothing);
    EXPECT_EQ(other.ReadCell(1, 1, true), "");
    EXPECT_EQ(heard(), changed(1, 1));
}
}  // namespace
}  // namespace kxVsGrid::testing
