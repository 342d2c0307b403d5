// Fills that end where the lines of a sheet end.
#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

class FillsToTheLastLine : public MenuTest {
  protected:
    static constexpr std::int32_t Col = 2;
    FillsToTheLastLine() {
        grid.Options().FillsToLastLine(true);
        rows(10);
        fill(1, Col, "x");
        at(1, Col);
    }
    /// The column after the current cell was copied down it.
    Lines filled() {
        fillBy(caption::Copies);
        return texts(1, Col);
    }
    static Lines column9(std::int32_t count) {
        return Lines(static_cast<std::size_t>(count), "x") + Lines(static_cast<std::size_t>(9 - count), "");
    }
};

TEST_F(FillsToTheLastLine, IsOffAtFirst) {
    headless::Desk another;
    EXPECT_FALSE(another.place().Options().FillsToLastLine());
    grid.Options().FillsToLastLine(false);
    grid.Options().RowInUse.connect([](std::int32_t, bool&) { FAIL() << "nobody wants to know"; });
    EXPECT_EQ(filled(), column9(9));
}

TEST_F(FillsToTheLastLine, FillsTheGapsBeforeTheLastLine) {
    fill(3, 4, "line");
    fill(6, 1, "line");
    EXPECT_EQ(filled(), column9(6));
}

TEST_F(FillsToTheLastLine, WritesNothingWhereNoLineFollows) {
    fillBy(caption::Copies);
    EXPECT_EQ(texts(1, Col), column9(1));
    EXPECT_EQ(told(), Lines{});
}

TEST_F(FillsToTheLastLine, EndsSeriesAndDatesToo) {
    typed(Col, flexDTDouble);
    fill(1, Col, "1");
    fill(3, 4, "line");
    fillBy(caption::Series);
    EXPECT_EQ(texts(1, Col), (Lines{"1", "2", "3", "", "", "", "", "", ""}));
    typed(3, flexDTDate);
    fill(1, 3, "2010-01-31");
    at(1, 3);
    fillBy(caption::Months);
    EXPECT_EQ(texts(1, 3), (Lines{"2010-01-31", "2010-02-28", "2010-03-28", "", "", "", "", "", ""}));
}

TEST_F(FillsToTheLastLine, CountsNoTextThatCannotBeEdited) {
    readOnly(3);
    fill(5, 3, "shown");
    fill(6, 0, "*");
    EXPECT_EQ(filled(), column9(1));
}

TEST_F(FillsToTheLastLine, CountsNoRowThatTheClerkHasOnlyPassed) {
    column(3).sDefaultText_Name("件");
    column(4).sDefaultText_Name("[-1,]");
    fill(2, 4, "主仓库");
    at(1, 1);
    for (int i = 0; i < 6; ++i) desk.press(Key::Down);
    ASSERT_EQ(text(7, 3), "件");
    ASSERT_EQ(text(7, 4), "主仓库");
    at(1, Col);
    EXPECT_EQ(filled(), column9(2));
}

TEST_F(FillsToTheLastLine, CountsADefaultThatTheClerkHasReplaced) {
    column(3).sDefaultText_Name("件");
    at(4, 3);
    at(5, 1);
    at(4, 3);
    desk.type("箱").press(Key::Enter);
    at(1, Col);
    EXPECT_EQ(filled(), column9(4));
}

TEST_F(FillsToTheLastLine, CountsADefaultThatTheClerkHasTypedAnew) {
    column(3).sDefaultText_Name("件");
    at(4, 3);
    at(5, 1);
    at(4, 3);
    desk.type("件").press(Key::Enter);
    at(1, Col);
    EXPECT_EQ(filled(), column9(4));
}

TEST_F(FillsToTheLastLine, CountsLoadedTextsThatReadLikeDefaults) {
    column(3).sDefaultText_Name("件");
    at(4, 1);
    ASSERT_EQ(text(4, 3), "件");
    grid.SetCell(4, 3, "件");
    grid.SetCell(5, 3, "件");
    at(1, Col);
    EXPECT_EQ(filled(), column9(5));
}

TEST_F(FillsToTheLastLine, KnowsDefaultsInRowsThatHaveMoved) {
    column(3).sDefaultText_Name("件");
    at(4, 1);
    at(6, 1);
    grid.Grid().InsertRow(2);
    grid.Grid().InsertRow(6);
    grid.Grid().RemoveRow(3);
    ASSERT_EQ(text(4, 3), "件");
    ASSERT_EQ(text(7, 3), "件");
    at(1, Col);
    fillBy(caption::Copies);
    EXPECT_EQ(text(2, Col), "");
    grid.Grid().Text(7, 3, "");
    grid.Grid().Text(8, 3, "件");
    fillBy(caption::Copies);
    EXPECT_EQ(text(8, Col), "x");
    EXPECT_EQ(text(9, Col), "");
}

TEST_F(FillsToTheLastLine, KnowsNoDefaultsOfRowsThatAreGone) {
    column(3).sDefaultText_Name("件");
    at(8, 1);
    grid.Clear();
    grid.Rows(10);
    column(3).sDefaultText_Name("");
    grid.Grid().Text(8, 3, "件");
    grid.Grid().Text(1, Col, "x");
    at(1, Col);
    EXPECT_EQ(filled(), column9(8));
}

TEST_F(FillsToTheLastLine, AsksTheHostFromTheLastRowUpAndStopsAtALine) {
    fill(7, 1, "note");
    Lines asked;
    grid.Options().RowInUse.connect([&](std::int32_t row, bool& inUse) {
        asked.push_back(line("RowInUse", row, inUse));
        inUse = row == 4;
    });
    EXPECT_EQ(filled(), column9(4));
    EXPECT_EQ(asked,
              (Lines{line("RowInUse", 9, false), line("RowInUse", 8, false), line("RowInUse", 7, true),
                     line("RowInUse", 6, false), line("RowInUse", 5, false), line("RowInUse", 4, false)}));
}

TEST_F(FillsToTheLastLine, AsksNoHostWhereThereIsNothingToFill) {
    grid.Options().RowInUse.connect([](std::int32_t, bool&) { FAIL(); });
    at(9, Col);
    fillBy(caption::Copies);
    typed(3, flexDTDate);
    fill(1, 3, "no date");
    at(1, 3);
    fillBy(caption::Days);
}

TEST_F(FillsToTheLastLine, SurvivesAHostThatTakesRowsAwayAsItIsAsked) {
    bool once = true;
    grid.Options().RowInUse.connect([&](std::int32_t, bool& inUse) {
        const bool first = std::exchange(once, false);
        if (first) grid.Grid().Rows(4);
        inUse = !first;
    });
    fillBy(caption::Copies);
    EXPECT_EQ(texts(1, Col), (Lines{"x", "x", "x"}));
}

TEST_F(FillsToTheLastLine, SurvivesAHostThatClosesItsFormAsItIsAsked) {
    int asked = 0;
    grid.Options().RowInUse.connect([&](std::int32_t, bool&) {
        ++asked;
        desk.remove(grid);
    });
    fillBy(caption::Copies);
    EXPECT_GE(asked, 1);
}

}  // namespace
}  // namespace kxVsGrid::testing
