// Cells that the host locks: to the clerk they are like those of a read-only column, to code like any other.
#include <stdexcept>

#include "kit/ClerkTest.h"
#include "kit/Life.h"

namespace kxVsGrid::testing {
namespace {

class LockedCell : public ClerkTest {
  protected:
    void lock(std::int32_t row, std::int32_t col) {
        grid.Options().CellLocked.connect([=](std::int32_t r, std::int32_t c, bool& locked) {
            if (r == row && c == col) locked = true;
        });
    }
    void lockRow(std::int32_t row) {
        grid.Options().CellLocked.connect([=](std::int32_t r, std::int32_t, bool& locked) {
            if (r == row) locked = true;
        });
    }
};

TEST_F(LockedCell, IsNotEditable) {
    lock(2, 3);
    EXPECT_FALSE(grid.cellEditable(2, 3));
    EXPECT_TRUE(grid.cellEditable(3, 3));
    EXPECT_TRUE(grid.cellEditable(2, 2));
}

TEST_F(LockedCell, IsAskedForDataCellsAlone) {
    grid.Options().CellLocked.connect([](std::int32_t, std::int32_t, bool&) { FAIL(); });
    EXPECT_FALSE(grid.cellEditable(0, 1));
    EXPECT_FALSE(grid.cellEditable(1, 0));
    EXPECT_FALSE(grid.cellEditable(-1, 1));
    EXPECT_FALSE(grid.cellEditable(1, 99));
    readOnly(2);
    EXPECT_FALSE(grid.cellEditable(1, 2));
}

TEST_F(LockedCell, IsNotOpenedByAnyKeyOrMouse) {
    consentToRows();
    lock(5, 2);
    at(5, 2);
    desk.type("x").press(Key::F2).press(Key::Space).press(Key::Enter);
    EXPECT_FALSE(open());
    EXPECT_EQ(heard(), Lines{}) << "no row is asked for, and nothing is about to be edited";
    EXPECT_EQ(current(), (Cell{5, 2}));
    desk.doubleClick(5, 2);
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "BeforeTextEdit"), Lines{});
    EXPECT_EQ(grid.Rows(), 6);
    desk.type("y");
    desk.click(5, 3).type("y");
    EXPECT_TRUE(open());
}

TEST_F(LockedCell, IsNotOpenedByAnInputMethodNorByPasting) {
    lock(1, 1);
    desk.compose("ni").commitComposition("你");
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "");
    EXPECT_FALSE(grid.input()->openForTyping());
    desk.clipboard("abc").press(static_cast<std::int16_t>('V'), CtrlKey);
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(LockedCell, IsNotTurnedOver) {
    typed(2, flexDTBoolean);
    lock(1, 2);
    at(1, 2);
    desk.press(Key::Space).type("1").press(Key::F2);
    desk.doubleClick(1, 2);
    EXPECT_EQ(text(1, 2), "");
    at(2, 2);
    desk.press(Key::Space);
    EXPECT_EQ(text(2, 2), "-1");
}

TEST_F(LockedCell, IsNotTurnedOverByAPressOnItsBox) {
    grid.Options().PressToggles(true);
    typed(2, flexDTBoolean);
    lock(1, 2);
    desk.click(1, 2);
    EXPECT_EQ(text(1, 2), "");
    desk.click(2, 2);
    EXPECT_EQ(text(2, 2), "-1");
}

TEST_F(LockedCell, IsPassedOverByEnterAndTab) {
    lock(1, 2);
    desk.type("a").press(Key::Enter);
    EXPECT_EQ(current(), (Cell{1, 3}));
    desk.press(Key::Tab, ShiftKey);
    EXPECT_EQ(current(), (Cell{1, 1}));
    desk.press(Key::Tab);
    EXPECT_EQ(current(), (Cell{1, 3}));
    desk.press(Key::Space).press(Key::Home).press(Key::Left);
    EXPECT_EQ(current(), (Cell{1, 1}));
    desk.press(Key::Space).press(Key::End).press(Key::Right);
    EXPECT_EQ(current(), (Cell{1, 3}));
}

TEST_F(LockedCell, HasItsWholeRowPassedOver) {
    lockRow(2);
    lockRow(3);
    at(1, 5);
    desk.press(Key::Tab);
    EXPECT_EQ(current(), (Cell{4, 1}));
    desk.press(Key::Tab, ShiftKey);
    EXPECT_EQ(current(), (Cell{1, 5}));
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(current(), (Cell{4, 1}));
}

TEST_F(LockedCell, KeepsTheCursorWhereNothingFollows) {
    lockRow(4);
    lockRow(5);
    at(3, 5);
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(current(), (Cell{3, 5}));
    desk.press(Key::Tab);
    EXPECT_EQ(desk.leftControl(), 1);
}

TEST_F(LockedCell, IsLeftByEnterWhereReadOnlyOnesAre) {
    lock(1, 1);
    desk.press(Key::Enter);
    EXPECT_EQ(current(), (Cell{1, 1}));
    grid.Options().EnterPassesReadOnly(true);
    desk.press(Key::Enter);
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(LockedCell, IsWrittenByCode) {
    lock(1, 1);
    grid.SetCell(1, 1, "x", "y");
    EXPECT_EQ(text(1, 1), "x");
    EXPECT_EQ(tag(1, 1), "y");
}

TEST_F(LockedCell, StillTakesWhatWasBeingTypedAsItWasLocked) {
    desk.type("abc");
    lock(1, 1);
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "abc");
    EXPECT_FALSE(open());
}

TEST_F(LockedCell, CanBeLockedAsTheHostHearsThatItIsOpened) {
    grid.BeforeTextEdit.connect([&] { lock(1, 1); });
    desk.type("x");
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(LockedCell, MayBeAskedByAHostThatTakesRowsAndColumnsAway) {
    rows(9);
    grid.Options().CellLocked.connect([&](std::int32_t, std::int32_t, bool& locked) {
        locked = true;
        if (grid.Rows() > 7) grid.Rows(grid.Rows() - 1);
        if (grid.Cols() > 3) grid.Grid().Cols(grid.Cols() - 1);
    });
    desk.press(Key::Tab);
    EXPECT_EQ(desk.leftControl(), 1);
    desk.focusGrid();
    desk.press(Key::Tab, ShiftKey).type("x").press(Key::Enter);
    EXPECT_FALSE(open());
}

TEST_F(LockedCell, MayBeAskedByAHostThatFails) {
    Connection failing = grid.Options().CellLocked.connect(
        [](std::int32_t, std::int32_t, bool&) { throw std::runtime_error("no"); });
    EXPECT_THROW(desk.type("x"), std::runtime_error);
    EXPECT_THROW(desk.press(Key::Tab), std::runtime_error);
    EXPECT_THROW(static_cast<void>(grid.cellEditable(1, 1)), std::runtime_error);
    failing.disconnect();
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "x");
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST(ControlThatGoesAsALockIsAsked, IsAskedNoMore) {
    using headless::Desk;
    const std::function<void(kxGrid&)> acts[] = {
        [](kxGrid& g) {
            g.input()->key({'A', 0, "a"});
        },
        [](kxGrid& g) {
            g.input()->key({static_cast<std::int16_t>(Key::F2), 0, ""});
        },
        [](kxGrid& g) {
            g.input()->key({static_cast<std::int16_t>(Key::Space), 0, " "});
        },
        [](kxGrid& g) {
            g.input()->key({static_cast<std::int16_t>(Key::Enter), 0, "\r"});
        },
        [](kxGrid& g) {
            g.input()->key({static_cast<std::int16_t>(Key::Tab), 0, ""});
        },
        [](kxGrid& g) {
            g.input()->key({static_cast<std::int16_t>(Key::Tab), ShiftKey, ""});
        },
        [](kxGrid& g) { g.input()->openForTyping(); },
        [](kxGrid& g) { g.Grid().DblClick(); },
        [](kxGrid& g) { static_cast<void>(g.cellEditable(1, 1)); },
    };
    for (const auto& act : acts) {
        Desk desk;
        kxGrid& stays = desk.place();
        kxGrid& goes = desk.place();
        goes.Grid().Select(2, 2);
        desk.focusGrid();
        int asked = 0;
        goes.Options().CellLocked.connect([&](std::int32_t, std::int32_t, bool&) {
            ++asked;
            desk.remove(goes);
        });
        act(goes);
        EXPECT_EQ(asked, 1);
        EXPECT_TRUE(desk.messages().empty());
        kit::expectKeyedAsEver(desk, stays);
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
