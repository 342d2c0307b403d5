// Marks on the control's cells: what ends them, and what leaves them.
#include <stdexcept>

#include "kit/ClerkTest.h"
#include "kit/Life.h"
#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {

using MarkKind = CellMark::Kind;

class Marks : public ClerkTest {
  protected:
    void mark(std::int32_t row, std::int32_t col, MarkKind kind = MarkKind::Problem) {
        grid.Mark(row, col, CellMark{kind, "库存不足。"});
    }
    bool marked(std::int32_t row, std::int32_t col) const { return grid.Mark(row, col) != nullptr; }
};

TEST_F(Marks, AreThoseOfTheEngine) {
    mark(2, 3);
    EXPECT_EQ(grid.Grid().Mark(2, 3), grid.Mark(2, 3));
    EXPECT_EQ(grid.NextMark(1, 1, MarkKind::Problem), (MarkedCell{2, 3}));
    grid.ClearMarks(MarkKind::Note);
    EXPECT_TRUE(marked(2, 3));
    grid.ClearMarks();
    EXPECT_FALSE(marked(2, 3));
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_FALSE(grid.CanRun(Command::Undo));
}

TEST_F(Marks, OfAProblemEndWithTheCommit) {
    mark(1, 1);
    mark(1, 2);
    desk.type("x").press(Key::Enter);
    EXPECT_FALSE(marked(1, 1));
    EXPECT_TRUE(marked(1, 2));
    grid.Run(Command::Undo);
    EXPECT_FALSE(marked(1, 1)) << "a mark is no step";
}

TEST_F(Marks, OfAProblemEndWhenTheCellIsTurnedOver) {
    typed(2, flexDTBoolean);
    mark(1, 2);
    at(1, 2);
    desk.press(Key::Space);
    EXPECT_FALSE(marked(1, 2));
}

TEST_F(Marks, OfOtherKindsStay) {
    mark(1, 1, MarkKind::Warning);
    mark(1, 2, MarkKind::Note);
    desk.type("x").press(Key::Enter).type("y").press(Key::Enter);
    EXPECT_TRUE(marked(1, 1));
    EXPECT_TRUE(marked(1, 2));
}

TEST_F(Marks, StayOverARefusedTextAndWhatCodeWrites) {
    grid.Options(1).pattern("\\d+");
    typed(2, flexDTDouble);
    mark(1, 1);
    mark(1, 2);
    desk.type("x").press(Key::Enter);
    EXPECT_TRUE(marked(1, 1));
    desk.press(Key::Escape);
    at(1, 2);
    desk.type("1+").press(Key::Enter).press(Key::Escape);
    EXPECT_TRUE(marked(1, 2));
    grid.SetCell(1, 1, "5");
    EXPECT_TRUE(marked(1, 1));
}

TEST_F(Marks, GoAlongWithTheirRowsAndComeBackWithAnUndo) {
    grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    content(3);
    mark(3, 2);
    grid.AddRow(1, false, false);
    EXPECT_TRUE(marked(4, 2));
    at(4, 2);
    desk.press(Key::Delete);
    EXPECT_EQ(grid.NextMark(0, 0), std::nullopt);
    ASSERT_TRUE(grid.Run(Command::Undo));
    EXPECT_TRUE(marked(4, 2));
    expectContent(4, 3);
}

TEST_F(Marks, EndWithTheDocumentAndWithTheSettings) {
    mark(1, 1, MarkKind::Note);
    grid.Clear();
    EXPECT_FALSE(marked(1, 1));
    mark(1, 1, MarkKind::Note);
    MemoryBag bag;
    grid.WriteProperties(bag);
    grid.ReadProperties(bag);
    EXPECT_FALSE(marked(1, 1));
}

TEST_F(Marks, CanBePutByAHostThatHearsOfTheCommit) {
    grid.AfterEdit.connect([this](std::int32_t row, std::int32_t col) { mark(row, col); });
    desk.type("x").press(Key::Enter);
    EXPECT_TRUE(marked(1, 1));
}

TEST_F(Marks, AreSeenOnTheDesk) {
    fill(2, 2, "abc");
    mark(2, 2);
    mark(2, 3, MarkKind::Note);
    EXPECT_NE(desk.ascii().find("abc!"), std::string::npos) << desk.ascii();
    EXPECT_EQ(desk.ascii().find('!'), desk.ascii().rfind('!'));
}

TEST_F(Marks, MayBeToldToAHostThatFails) {
    mark(1, 1);
    Connection failing = grid.Grid().MarksChanged.connect([] { throw std::runtime_error("no"); });
    desk.type("x");
    EXPECT_THROW(desk.press(Key::Enter), std::runtime_error);
    EXPECT_FALSE(marked(1, 1));
    EXPECT_EQ(text(1, 1), "x");
    failing.disconnect();
    desk.press(Key::Enter);
    EXPECT_FALSE(open());
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST(ControlThatGoesAsItTellsOfMarks, LeavesTheDeskInOrder) {
    const std::function<void(kxGrid&, headless::Desk&)> acts[] = {
        [](kxGrid& g, headless::Desk&) { g.Mark(2, 2, CellMark{}); },
        [](kxGrid& g, headless::Desk&) { g.ClearMarks(); },
        [](kxGrid& g, headless::Desk&) { g.Clear(); },
        [](kxGrid& g, headless::Desk&) { g.ValidTextData(); },
        [](kxGrid&, headless::Desk& d) { d.press(Key::Enter); },
    };
    for (const auto& act : acts) {
        headless::Desk desk;
        kxGrid& stays = desk.place();
        kxGrid& goes = desk.place();
        goes.Mark(1, 1, CellMark{});
        desk.focusGrid();
        desk.type("x");
        bool gone = false;
        goes.Grid().MarksChanged.connect([&] {
            gone = true;
            desk.remove(goes);
        });
        act(goes, desk);
        EXPECT_TRUE(gone);
        EXPECT_TRUE(desk.messages().empty());
        kit::expectKeyedAsEver(desk, stays);
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
