// Fill: SetCell for the cells of a column, one after the other.
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "changes/GridState.h"
#include "kit/Dice.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

using FillTexts = std::vector<std::string_view>;

class FillCells : public PlacedGrid {};

TEST_F(FillCells, WritesTextsAndTagsFromARowDown) {
    grid.Fill(3, 2, FillTexts{"品名", "单价"}, FillTexts{"A01", "A02"});
    EXPECT_EQ(text(2, 3), "品名");
    EXPECT_EQ(tag(2, 3), "A01");
    EXPECT_EQ(text(3, 3), "单价");
    EXPECT_EQ(tag(3, 3), "A02");
}

TEST_F(FillCells, TellsOfEachHalfAsSingleWritesDo) {
    grid.Fill(3, 2, FillTexts{"a", "b"}, FillTexts{"x", ""});
    EXPECT_EQ(heard(), changed(2, 3) + changed(2, 3) + changed(3, 3));
}

TEST_F(FillCells, LeavesOutCellsOutsideTheGrid) {
    grid.Fill(3, -1, FillTexts{"above", "caption", "first"});
    EXPECT_EQ(text(0, 3), "caption");
    EXPECT_EQ(text(1, 3), "first");
    grid.Fill(3, 5, FillTexts{"last", "below"});
    EXPECT_EQ(text(5, 3), "last");
    heard();
    constexpr auto Far = std::numeric_limits<std::int32_t>::max();
    constexpr auto Low = std::numeric_limits<std::int32_t>::min();
    for (const std::int32_t out : {-1, 10, Far, Low}) grid.Fill(out, 1, FillTexts{"x", "y"});
    for (const std::int32_t out : {-2, 6, Far, Low}) grid.Fill(1, out, FillTexts{"x", "y"});
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(FillCells, RefusesTagsThatAreNotOneForEachText) {
    EXPECT_THROW(grid.Fill(3, 1, FillTexts{"a", "b"}, FillTexts{"x"}), GridError);
    EXPECT_EQ(text(1, 3), "");
}

TEST_F(FillCells, BlanksZerosAndWhatIsNoDate) {
    column(2).iType(flexDTDouble);
    column(3).iType(flexDTDate);
    grid.Fill(2, 0, FillTexts{"0", "0.00", "12"});
    EXPECT_EQ(text(0, 2), "0");
    EXPECT_EQ(text(1, 2), "");
    EXPECT_EQ(text(2, 2), "12");
    grid.Fill(3, 1, FillTexts{"1900-01-01", "2026-01-02", "soon"}, FillTexts{"a", "b", "c"});
    EXPECT_EQ(text(1, 3), "");
    EXPECT_EQ(tag(1, 3), "a");
    EXPECT_EQ(text(2, 3), "2026-01-02");
    EXPECT_EQ(text(3, 3), "");
}

TEST_F(FillCells, CommitsAnOpenEditorOnceAndFirst) {
    typeInto(2, 3, "typed");
    grid.Fill(3, 2, FillTexts{"filled"});
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(text(2, 3), "filled");
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(FillCells, FollowsWithItsTotal) {
    summed(2);
    setUp();
    grid.Fill(2, 1, FillTexts{"1", "2", "3.5"});
    EXPECT_EQ(grid.ReadSum(2), "6.5");
}

TEST_F(FillCells, IsOneStepThatIsUndoneAtOnce) {
    {
        auto step = grid.Step("填入");
        grid.Fill(3, 1, FillTexts{"a", "b", "c"}, FillTexts{"x", "y", "z"});
    }
    grid.History().Undo();
    for (std::int32_t row = 1; row < 4; ++row) EXPECT_EQ(text(row, 3) + tag(row, 3), "");
    grid.History().Redo();
    EXPECT_EQ(text(3, 3) + tag(3, 3), "cz");
}

TEST_F(FillCells, EndsWithOneBoxWhereAListenerThrows) {
    grid.CellChanged.connect(Boom{});
    grid.Fill(3, 1, FillTexts{"a", "b", "c"});
    EXPECT_EQ(desk.messages().size(), 1U);
    EXPECT_EQ(text(1, 3), "a");
    EXPECT_EQ(text(2, 3), "");
}

TEST_F(FillCells, EndsWhereAListenerDestroysTheControl) {
    int told = 0;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        ++told;
        if (row == 2) desk.remove(grid);
    });
    grid.Fill(3, 1, FillTexts{"a", "b", "c"});
    EXPECT_EQ(told, 2);
}

TEST_F(FillCells, TellsItsTotalWithoutTheCellThatIsBeingWritten) {
    summed(2);
    setUp();
    Lines totals;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) { totals.push_back(grid.ReadSum(2)); });
    grid.Fill(2, 1, FillTexts{"1", "2", "4"});
    EXPECT_EQ(totals, (Lines{"0", "1", "3"}));
    EXPECT_EQ(grid.ReadSum(2), "7");
}

/// Two controls of which one is filled and the other written cell by cell.
struct FillMode {
    bool redraw;
    bool heard;
    bool history;
};

class RandomFillCells : public ::testing::TestWithParam<FillMode> {
  protected:
    struct Control {
        headless::Desk desk;
        kxGrid& grid = desk.place();
        std::unique_ptr<HostLog> log;
        void prepare(const FillMode& mode) {
            grid.Cols(7);
            grid.Rows(60);
            for (const std::int32_t col : {2, 3})
                grid.VsCtrl(static_cast<std::int16_t>(col))->iType(flexDTDouble);
            grid.VsCtrl(4)->iType(flexDTDate);
            grid.VsCtrl(2)->b是否合计数据(true);
            grid.VsCtrl(3)->b是否合计数据(true);
            grid.VsCtrl(5)->b是否合计数据(true);
            grid.VsCtrl(5)->sDefaultText_Name("7");
            grid.SumRow(true);
            grid.ReDraw(true);
            grid.ReDraw(mode.redraw);
            grid.History().Enabled(mode.history);
            if (mode.heard) log = std::make_unique<HostLog>(grid);
        }
    };
    Control filled;
    Control twin;
    kit::Dice dice;

    void SetUp() override {
        filled.prepare(GetParam());
        twin.prepare(GetParam());
    }
    void both(auto act) {
        act(filled.grid);
        act(twin.grid);
    }
    std::string anyText() {
        static const char* const Known[] = {"0",  "0.00", "12",   "1e-400",     "-3.25",      "1900-01-01",
                                            "e5", "1,5",  "soon", "2026-02-03", "2026-02-31", ""};
        return dice.oneIn(3) ? dice.text() : Known[dice.between(0, 11)];
    }
    void fill() {
        const std::int32_t col = dice.between(0, 7);
        const std::int32_t first = dice.between(-2, 61);
        const std::int32_t count = dice.between(0, dice.oneIn(3) ? 70 : 4);
        std::vector<std::string> texts;
        std::vector<std::string> tags;
        for (std::int32_t i = 0; i < count; ++i) {
            texts.push_back(anyText());
            tags.push_back(anyText());
        }
        const bool tagged = dice.oneIn(2);
        filled.grid.Fill(col, first, FillTexts(texts.begin(), texts.end()),
                         tagged ? FillTexts(tags.begin(), tags.end()) : FillTexts());
        for (std::int32_t i = 0; i < count; ++i) {
            const auto at = static_cast<std::size_t>(i);
            twin.grid.SetCell(first + i, col, texts[at], tagged ? tags[at] : "");
        }
    }
    void disturb() {
        const auto col = static_cast<std::int16_t>(dice.between(1, 6));
        const std::int32_t row = dice.between(1, 59);
        switch (dice.between(0, 6)) {
            case 0:
                return both([&](kxGrid& grid) { grid.bIsShowZero(row % 2 == 0); });
            case 1:
                return both([&](kxGrid& grid) { grid.RecalculateTotals(); });
            case 2:
                return both([&](kxGrid& grid) { grid.VsCtrl(col)->b是否合计数据(row % 2 == 0); });
            case 3:
                return both([&](kxGrid& grid) { grid.History().Undo(); });
            case 4:
                return both([&](kxGrid& grid) { grid.Grid().ColFormat(col, row % 2 ? "#,##0.00" : ""); });
            case 5:
                return both([&](kxGrid& grid) { grid.Grid().Select(row, col); });
            default:
                return both([&](kxGrid& grid) { grid.SetCell(row, col, "5", "single"); });
        }
    }
    void compare() {
        ASSERT_EQ(stateOf(filled.grid), stateOf(twin.grid));
        ASSERT_EQ(filled.grid.bIsDirty(), twin.grid.bIsDirty());
        ASSERT_EQ(filled.desk.messages().size(), twin.desk.messages().size());
        if (filled.log) {
            ASSERT_EQ(filled.log->lines(), twin.log->lines());
            filled.log->clear();
            twin.log->clear();
        }
    }
};

TEST_P(RandomFillCells, IsSetCellAfterSetCell) {
    for (int act = 0; act < 150; ++act) {
        if (dice.oneIn(2)) {
            auto step = filled.grid.Step("填入");
            auto other = twin.grid.Step("填入");
            fill();
        } else {
            fill();
        }
        compare();
        if (HasFatalFailure()) return;
        disturb();
        compare();
        if (HasFatalFailure()) return;
    }
}
INSTANTIATE_TEST_SUITE_P(Control, RandomFillCells,
                         ::testing::Values(FillMode{true, false, true}, FillMode{true, true, true},
                                           FillMode{false, false, true}, FillMode{false, true, false},
                                           FillMode{true, false, false}, FillMode{false, false, false}));
}  // namespace
}  // namespace kxVsGrid::testing
