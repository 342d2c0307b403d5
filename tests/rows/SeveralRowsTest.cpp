// The commands that add several rows: how many is asked in an input box, and then each row like one alone.
#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

/// A command, where it adds and with what.
struct Several {
    const char* command;
    bool insert;
    bool defaults;
};
constexpr Several Commands[] = {{caption::AddRows, false, true},
                                {caption::InsertRows, true, true},
                                {caption::AddEmptyRows, false, false},
                                {caption::InsertEmptyRows, true, false}};

class SeveralRows : public MenuTest {
  protected:
    /// Default texts bring the commands for empty rows up; this one fills nothing, because it refers to a
    /// cell that is empty.
    SeveralRows() { column(5).sDefaultText_Name("[-1,]"); }
    /// How many rows the answer adds.
    std::int32_t added(std::string answer, const char* command = caption::AddRows) {
        const std::int32_t before = grid.Rows();
        desk.answerInputBox(std::move(answer));
        run(command, CtrlKey);
        return grid.Rows() - before;
    }
    /// What the host hears of one of the rows that it agrees to, added from a cell.
    static Lines oneRow(const Several& several, Cell from, std::int32_t rows) {
        const std::int32_t made = several.insert ? from.row : rows;
        const std::int32_t source = several.insert ? from.row + 1 : from.row;
        Lines lines = asksTheHost(from.row) + moves(source, from.col, made, from.col);
        if (several.defaults) lines = lines + fillsInPlace(made, from.col);
        return lines + tellsTheHost(made, false, source);
    }
};

TEST_F(SeveralRows, AskHowManyWithFiveAsTheAnswerGiven) {
    for (const Several& several : Commands) {
        desk.clear();
        run(several.command, CtrlKey);
        ASSERT_EQ(desk.inputBoxes().size(), 1U) << several.command;
        EXPECT_EQ(desk.inputBoxes()[0].prompt, "录入需要新增的行数");
        EXPECT_EQ(desk.inputBoxes()[0].title, "新增行");
        EXPECT_EQ(desk.inputBoxes()[0].preset, "5");
    }
    EXPECT_EQ(grid.Rows(), 6) << "a box that is left adds nothing";
}

TEST_F(SeveralRows, AreEachAskedForMadeAndToldLikeOneAlone) {
    for (const Several& several : Commands) {
        SCOPED_TRACE(several.command);
        rows(6);
        at(2, 3);
        Lines expected;
        Cell from{2, 3};
        for (std::int32_t made = 6; made < 9; ++made) {
            expected = expected + oneRow(several, from, made);
            if (!several.insert) from.row = made;
        }
        desk.answerInputBox("3");
        run(several.command, CtrlKey);
        EXPECT_EQ(told(), expected);
        EXPECT_EQ(grid.Rows(), 9);
        EXPECT_EQ(current(), from);
        for (int r = 1; r < 9; ++r) EXPECT_EQ(text(r, 0), std::to_string(r));
    }
}

TEST_F(SeveralRows, GoOnAfterARefusalAndAskForEachOfThem) {
    for (const Several& several : Commands)
        for (int refused = 0; refused < 4; ++refused) {
            SCOPED_TRACE(std::string(several.command) + ", refused " + std::to_string(refused));
            rows(6);
            at(2, 3);
            int asked = 0;
            Connection host =
                grid.AddVsRow.connect([&](std::int32_t, bool& consent) { consent = asked++ != refused; });
            Lines expected;
            Cell from{2, 3};
            std::int32_t count = 6;
            for (int i = 0; i < 4; ++i) {
                if (i == refused) {
                    expected = expected + asksTheHost(from.row);
                    continue;
                }
                expected = expected + oneRow(several, from, count);
                if (!several.insert) from.row = count;
                ++count;
            }
            desk.answerInputBox("4");
            run(several.command, CtrlKey);
            host.disconnect();
            EXPECT_EQ(told(), expected);
            EXPECT_EQ(grid.Rows(), 9);
        }
}

TEST_F(SeveralRows, ThatAreAllRefusedChangeNothing) {
    grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = false; });
    at(2, 3);
    desk.answerInputBox("7");
    run(caption::InsertRows, CtrlKey);
    EXPECT_EQ(told(), Lines(7, asksTheHost(2)[0]));
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Grid().Redraw(), 2);
}

TEST_F(SeveralRows, AreCountedInWholeNumbersHalvesToEven) {
    for (const char* command :
         {caption::AddRows, caption::InsertRows, caption::AddEmptyRows, caption::InsertEmptyRows}) {
        SCOPED_TRACE(command);
        EXPECT_EQ(added("2.5", command), 2);
        EXPECT_EQ(added("3.5", command), 4);
    }
    EXPECT_EQ(added("0.5"), 0);
    EXPECT_EQ(added("1.5"), 2);
    EXPECT_EQ(added("2.49"), 2);
    EXPECT_EQ(added("2.51"), 3);
    EXPECT_EQ(added("4.5"), 4);
    EXPECT_EQ(added("1"), 1);
    EXPECT_EQ(added("  3 "), 3);
    EXPECT_EQ(added("+2"), 2);
    EXPECT_EQ(added("2e0"), 2);
    EXPECT_EQ(added("007"), 7);
}

TEST_F(SeveralRows, AreAtMostFiveHundred) {
    for (const char* answer : {"500", "500.5", "501", "1000", "99999999999", "1e99"}) {
        rows(6);
        EXPECT_EQ(added(answer), 500) << answer;
    }
    rows(6);
    EXPECT_EQ(added("499"), 499);
    rows(6);
    EXPECT_EQ(added("1000", caption::InsertEmptyRows), 500);
}

TEST_F(SeveralRows, AreNoneForAnAnswerThatIsNoNumberAboveZero) {
    for (const char* answer :
         {"",    " ",   "abc",  "5行", "五", "5 6", "1,5",  "1,000", "0x10", "--5",  "5-",
          "nan", "inf", "１２", "0",   "-0", "-1",  "-3.5", "-1000", "0.4",  "-1e99"}) {
        EXPECT_EQ(added(answer), 0) << '"' << answer << '"';
    }
    desk.cancelInputBox();
    run(caption::AddRows, CtrlKey);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(told(), Lines{});
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(SeveralRows, AreMadeWithDrawingOffWhichIsThenOnAndBuffered) {
    for (const Several& several : Commands)
        for (const std::int32_t drawing : {0, 1, 2}) {
            SCOPED_TRACE(std::string(several.command) + ", drawing " + std::to_string(drawing));
            rows(6);
            grid.Grid().Redraw(drawing);
            desk.whenAsked = [&] { EXPECT_EQ(grid.Grid().Redraw(), drawing) << "while the clerk is asked"; };
            int seen = 0;
            Connection host = grid.AddVsRow.connect([&](std::int32_t, bool&) {
                EXPECT_EQ(grid.Grid().Redraw(), 0);
                ++seen;
            });
            Connection later = grid.AfterAddRow.connect([&](bool&, std::int32_t, bool, std::int32_t) {
                EXPECT_EQ(grid.Grid().Redraw(), 0);
                const CellGrid::Damage damage = grid.Grid().takeDamage();
                EXPECT_FALSE(damage.all);
                EXPECT_TRUE(damage.rects.empty());
            });
            EXPECT_EQ(added("4", several.command), 4);
            host.disconnect();
            later.disconnect();
            EXPECT_EQ(seen, 4);
            EXPECT_EQ(grid.Grid().Redraw(), 2);
        }
}

TEST_F(SeveralRows, SwitchDrawingToBufferedAlsoWhenThereAreNone) {
    for (const char* answer : {"0", "", "abc", "-5"}) {
        for (const std::int32_t drawing : {0, 1, 2}) {
            grid.Grid().Redraw(drawing);
            EXPECT_EQ(added(answer), 0);
            EXPECT_EQ(grid.Grid().Redraw(), 2) << answer;
        }
    }
    grid.Grid().Redraw(1);
    desk.cancelInputBox();
    run(caption::InsertRows, CtrlKey);
    EXPECT_EQ(grid.Grid().Redraw(), 2);
}

TEST_F(SeveralRows, LeaveTheLastRowInViewAndThePictureToBePaintedOnce) {
    grid.Grid().takeDamage();
    int asked = 0;
    grid.Grid().onDamage([&] { ++asked; });
    EXPECT_EQ(added("100"), 100);
    EXPECT_EQ(current(), (Cell{105, 1}));
    EXPECT_TRUE(grid.Grid().RowIsVisible(105)) << desk.ascii();
    EXPECT_EQ(asked, 1);
}

TEST_F(SeveralRows, ShowThatTheMachineWorksAndLetNoInputIn) {
    bool askedWhileWorking = false;
    desk.whenAsked = [&] { askedWhileWorking = desk.working(); };
    int working = 0;
    grid.AddVsRow.connect([&](std::int32_t, bool&) { working += desk.working() ? 1 : 0; });
    EXPECT_EQ(added("500"), 500);
    EXPECT_FALSE(askedWhileWorking);
    EXPECT_EQ(working, 500);
    EXPECT_EQ(desk.waits(), 1);
    EXPECT_TRUE(desk.idle());
    EXPECT_EQ(desk.looksForInput(), 0);
}

TEST_F(SeveralRows, FillTheDefaultTextsOfEachRowOrOfNone) {
    column(4).sDefaultText_Name("件");
    at(2, 1);
    EXPECT_EQ(added("3"), 3);
    for (int r = 6; r < 9; ++r) EXPECT_EQ(text(r, 4), "件");
    EXPECT_EQ(added("3", caption::AddEmptyRows), 3);
    for (int r = 9; r < 12; ++r) EXPECT_EQ(text(r, 4), "");
    at(3, 1);
    grid.Grid().Text(3, 4, "own");
    EXPECT_EQ(added("2", caption::InsertRows), 2);
    EXPECT_EQ(text(3, 4), "件");
    EXPECT_EQ(text(4, 4), "件");
    EXPECT_EQ(text(5, 4), "own");
    EXPECT_EQ(added("2", caption::InsertEmptyRows), 2);
    EXPECT_EQ(text(3, 4), "");
    EXPECT_EQ(text(4, 4), "");
    EXPECT_EQ(text(7, 4), "own");
}

TEST_F(SeveralRows, ReferToTheRowAboveEachOfThem) {
    fill(5, 5, "A001");
    at(5, 1);
    EXPECT_EQ(added("3"), 3);
    EXPECT_EQ(texts(5, 5), (Lines{"A001", "A001", "A001", "A001"}));
}

TEST_F(SeveralRows, FollowTheCurrentCellThatTheHostMoves) {
    at(2, 1);
    std::vector<std::int32_t> made;
    grid.AfterAddRow.connect([&](bool&, std::int32_t row, bool, std::int32_t) {
        made.push_back(row);
        if (made.size() == 1) grid.Row(5);
    });
    EXPECT_EQ(added("3", caption::InsertEmptyRows), 3);
    EXPECT_EQ(made, (std::vector<std::int32_t>{2, 5, 5}));
}

TEST_F(SeveralRows, FollowTheRowsThatTheHostRemoves) {
    std::vector<std::int32_t> made;
    grid.AfterAddRow.connect([&](bool&, std::int32_t row, bool, std::int32_t) {
        made.push_back(row);
        if (made.size() == 1) grid.Grid().RemoveRow(1);
        if (made.size() == 2) grid.Rows(6);
    });
    desk.answerInputBox("3");
    run(caption::AddRows, CtrlKey);
    EXPECT_EQ(made, (std::vector<std::int32_t>{6, 6, 6}));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(SeveralRows, ThatAHostRemovesAtOnceAreStillAskedForAsOften) {
    grid.Grid().Rows(1);
    int asked = 0;
    grid.AddVsRow.connect([&](std::int32_t, bool&) { ++asked; });
    grid.AfterAddRow.connect([&](bool&, std::int32_t, bool, std::int32_t) { grid.Grid().Rows(1); });
    desk.answerInputBox("4");
    run(caption::AddRows, CtrlKey);
    EXPECT_EQ(asked, 4);
    EXPECT_EQ(grid.Rows(), 1);
}

TEST_F(SeveralRows, StopWhereTheHostFailsAndDrawAgain) {
    int asked = 0;
    Connection host = grid.AddVsRow.connect([&](std::int32_t, bool&) {
        if (++asked == 3) throw HostFailure();
    });
    desk.answerInputBox("5");
    EXPECT_THROW(run(caption::AddRows, CtrlKey), HostFailure);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(grid.Rows(), 8);
    EXPECT_EQ(grid.Grid().Redraw(), 2);
    EXPECT_TRUE(desk.idle());
    host.disconnect();
    EXPECT_EQ(added("2"), 2);
}

TEST_F(SeveralRows, KeepTheTotalsFresh) {
    summed(3);
    column(3).sDefaultText_Name("10");
    EXPECT_EQ(added("3"), 3);
    EXPECT_EQ(grid.ReadSum(3), "30");
}

}  // namespace
}  // namespace kxVsGrid::testing
