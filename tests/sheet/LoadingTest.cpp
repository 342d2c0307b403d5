// Lines that are loaded, in every state of the grid, and loads that fail.
#include <stdexcept>

#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

/// A range that throws at one of its lines.
struct ThrowingLines {
    struct iterator {
        const ThrowingLines* lines;
        std::size_t at;
        OrderLine operator*() const {
            if (at == lines->thrownAt) throw std::runtime_error("the cursor broke");
            OrderLine line;
            line.code = "line " + std::to_string(at);
            return line;
        }
        iterator& operator++() {
            ++at;
            return *this;
        }
        bool operator!=(const iterator& other) const { return at != other.at; }
    };
    std::size_t count;
    std::size_t thrownAt;
    iterator begin() const { return {this, 0}; }
    iterator end() const { return {this, count}; }
};

class SheetLoading : public OrderSheet {
  protected:
    void expectAsItWas(const std::vector<OrderLine>& lines) {
        EXPECT_EQ(text(1, Price), "7");
        EXPECT_TRUE(sheet.modified());
        EXPECT_EQ(grid.Rows(), rows);
        EXPECT_TRUE(grid.History().CanUndo());
        grid.History().Undo();
        EXPECT_EQ(sheet.records(), lines);
        EXPECT_FALSE(sheet.modified());
        grid.History().Redo();
    }
    std::vector<OrderLine> loadedAndTyped() {
        auto lines = loaded();
        type(1, Price, "7");
        rows = grid.Rows();
        return lines;
    }
    std::int32_t rows = 0;
};

TEST_F(SheetLoading, IsAsItWasWhereverTheRangeThrows) {
    const auto lines = loadedAndTyped();
    for (const std::size_t at : {0u, 5000u, 9999u}) {
        EXPECT_THROW(sheet.load(ThrowingLines{10000, at}), std::runtime_error);
        expectAsItWas(lines);
    }
}

TEST_F(SheetLoading, ThrowingAtTheFirstLoadLeavesASheetThatCanBeLoaded) {
    EXPECT_THROW(sheet.load(ThrowingLines{10, 5}), std::runtime_error);
    EXPECT_FALSE(sheet.modified());
    const auto lines = loaded();
    EXPECT_EQ(sheet.records(), lines);
}

TEST_F(SheetLoading, IsAsItWasWhenItsProgressThrowsOrEndsIt) {
    const auto lines = loadedAndTyped();
    const std::vector<OrderLine> many(10000, line(1, "x", "1", "1"));
    EXPECT_FALSE(sheet.load(many, [](std::size_t, std::size_t) { return false; }));
    expectAsItWas(lines);
    EXPECT_THROW(sheet.load(many,
                            [](std::size_t done, std::size_t) -> bool {
                                if (done > 5000) throw std::runtime_error("the window has gone");
                                return true;
                            }),
                 std::runtime_error);
    expectAsItWas(lines);
}

TEST_F(SheetLoading, TellsItsProgressInOrderAndToTheEnd) {
    const std::vector<OrderLine> many(10000, line(1, "x", "1", "1"));
    std::size_t last = 0;
    int told = 0;
    EXPECT_TRUE(sheet.load(many, [&](std::size_t done, std::size_t total) {
        EXPECT_EQ(total, 10000u);
        EXPECT_GE(done, last);
        EXPECT_LE(done, total);
        last = done;
        ++told;
        return true;
    }));
    EXPECT_GT(told, 1);
    EXPECT_LT(told, 1000);
    EXPECT_EQ(sheet.records().size(), 10000u);
}

TEST_F(SheetLoading, ALoadInsideTheProgressOfAnotherIsRefused) {
    const auto lines = loadedAndTyped();
    const std::vector<OrderLine> many(10000, line(1, "x", "1", "1"));
    bool tried = false;
    EXPECT_TRUE(sheet.load(many, [&](std::size_t, std::size_t) {
        if (tried) return true;
        tried = true;
        EXPECT_THROW(sheet.load(lines), GridError);
        EXPECT_EQ(text(1, Price), "7");
        return true;
    }));
    EXPECT_TRUE(tried);
    EXPECT_EQ(sheet.records().size(), 10000u);
}

TEST_F(SheetLoading, NoLinesLeaveFiveEmptyRows) {
    loaded();
    EXPECT_TRUE(sheet.load(std::vector<OrderLine>{}));
    EXPECT_EQ(grid.Rows() - grid.FixedRows(), 5);
    EXPECT_TRUE(sheet.records().empty());
    EXPECT_TRUE(sheet.changes().empty());
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(text(1, Code), "");
    EXPECT_EQ(sheet.sum("amount"), 0);
}

TEST_F(SheetLoading, OneLineAndThenTheSameAgainStandOnce) {
    const std::vector<OrderLine> one{line(11, "A1", "2", "1.5")};
    for (int n = 0; n < 3; ++n) {
        EXPECT_TRUE(sheet.load(one));
        EXPECT_EQ(sheet.records(), one);
        EXPECT_EQ(grid.Rows() - grid.FixedRows(), 5);
        EXPECT_EQ(grid.ReadSum(Amount), "3.00");
    }
}

TEST_F(SheetLoading, FewerLinesThanBeforeLeaveNothingOfThose) {
    sheet.load(std::vector<OrderLine>(50, line(1, "x", "1", "1")));
    grid.Grid().Select(40, Code);
    const auto lines = loaded();
    EXPECT_EQ(sheet.records(), lines);
    EXPECT_LT(grid.Row(), grid.Rows());
    EXPECT_EQ(grid.ReadSum(Amount), "3.00");
    EXPECT_FALSE(sheet.modified());
}

TEST_F(SheetLoading, DropsWhatIsBeingTyped) {
    for (const char* const typed : {"7", "99999999999999999999"}) {
        loaded();
        grid.Options().Refusals(GridOptions::RefusalStyle::Beside);
        grid.Grid().Select(1, Price);
        desk.type(typed);
        if (typed[1]) desk.press(Key::Enter);
        ASSERT_TRUE(desk.editor().visible);
        const std::vector<OrderLine> one{line(21, "N", "1", "2")};
        EXPECT_TRUE(sheet.load(one));
        EXPECT_FALSE(desk.editor().visible);
        EXPECT_EQ(sheet.records(), one);
        EXPECT_FALSE(sheet.modified());
        EXPECT_FALSE(grid.History().CanUndo());
        desk.press(Key::Escape);
        EXPECT_EQ(sheet.records(), one);
    }
}

TEST_F(SheetLoading, AFailedLoadLeavesWhatIsBeingTypedInTheEditor) {
    loaded();
    grid.Grid().Select(1, Price);
    desk.type("7");
    EXPECT_THROW(sheet.load(ThrowingLines{10000, 5000}), std::runtime_error);
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "7");
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, Price), "7");
    EXPECT_EQ(text(1, Amount), "14");
}

TEST_F(SheetLoading, TellsThatNothingIsToBeSavedAnyMore) {
    loadedAndTyped();
    std::vector<bool> told;
    sheet.onModified([&](bool modified) { told.push_back(modified); });
    loaded();
    EXPECT_EQ(told, (std::vector<bool>{false}));
}

TEST_F(SheetLoading, NothingOfItIsKeptAsAChange) {
    loadedAndTyped();
    int written = 0;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) {
        ++written;
        EXPECT_TRUE(grid.Changes().Unknown());
        EXPECT_TRUE(grid.Changes().Removed().empty());
    });
    const auto lines = loaded();
    EXPECT_GT(written, 0);
    EXPECT_FALSE(grid.Changes().Unknown());
    EXPECT_TRUE(grid.Changes().empty());
    EXPECT_EQ(sheet.records(), lines);
}

TEST_F(SheetLoading, WhatCannotBePutIntoTheGridLeavesNoLines) {
    sheet.rule(
        "price", [](const OrderLine& line) { return line.price != 4; }, "4 is no price");
    loadedAndTyped();
    EXPECT_EQ(sheet.markFaults(), 1);
    ASSERT_TRUE(grid.Mark(2, Price));
    std::vector<bool> told;
    sheet.onModified([&](bool modified) { told.push_back(modified); });
    ScopedConnection breaking = grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        if (row == 2 && col == Price) throw std::runtime_error("the host's total broke");
    });
    EXPECT_THROW(sheet.load(std::vector<OrderLine>(9, line(1, "x", "1", "1"))), GridError);
    EXPECT_TRUE(sheet.records().empty());
    EXPECT_TRUE(sheet.changes().empty());
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(told, (std::vector<bool>{false}));
    EXPECT_EQ(sheet.markFaults(), 0);

    breaking = {};
    const auto lines = loaded();
    EXPECT_EQ(sheet.records(), lines);
    EXPECT_FALSE(grid.Mark(2, Price));
    type(2, Code, "other");
    EXPECT_FALSE(grid.Mark(2, Price));  // marks go with what was there
    EXPECT_EQ(sheet.changes().changed.size(), 1u);
}

TEST_F(SheetLoading, RefusesAColumnAndARuleAfterwards) {
    loaded();
    EXPECT_THROW(sheet.text("more", "更多", &OrderLine::name), GridError);
    EXPECT_EQ(sheet.records().size(), 3u);
}

TEST_F(SheetLoading, WhatIsComputedAnewCountsAsLoaded) {
    OrderLine wrong = line(11, "A1", "2", "1.5");
    wrong.amount = 99;
    sheet.load(std::vector<OrderLine>{wrong});
    EXPECT_EQ(text(1, Amount), "3");
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
    desk.focusGrid();
    type(1, Price, "2");
    const auto changes = sheet.changes();
    ASSERT_EQ(changes.changed.size(), 1u);
    EXPECT_EQ(changes.changed[0].before.amount, 3);
}

TEST_F(SheetLoading, LoadsIntoAGridThatIsNotEditable) {
    grid.Editable(false);
    const auto lines = loaded();
    EXPECT_EQ(sheet.records(), lines);
    EXPECT_FALSE(sheet.modified());
    desk.focusGrid();
    grid.Grid().Select(1, Price);
    desk.type("9").press(Key::Enter);
    EXPECT_EQ(sheet.records(), lines);
}

/// Members that begin as something, a preset, and lines that are none.
struct BegunSheet : ::testing::Test {
    struct Line {
        std::int64_t id = 0;
        std::string name;
        std::string unit = "只";
        Decimal price = 1;
        int count = 7;
        bool active = true;
        int number = 0;
        friend bool operator==(const Line&, const Line&) = default;
    };
    BegunSheet() {
        sheet.identity(&Line::id);
        sheet.text("name", "名称", &Line::name);
        sheet.text("unit", "单位", &Line::unit).preset("箱");
        sheet.number("price", "单价", &Line::price);
        sheet.number("count", "数目", &Line::count);
        sheet.flag("active", "有效", &Line::active);
    }
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Line> sheet{grid};
};

TEST_F(BegunSheet, ReadsWhatWasLoadedAndNotWhatANewRecordBeginsAs) {
    const std::vector<Line> lines{{11, "a", "", 0, 0, false, 0}, {12, "b", "袋", 2, 3, true, 0}};
    sheet.load(lines);
    EXPECT_EQ(sheet.records(), lines);
    EXPECT_EQ(grid.Grid().Text(1, 2), "");  // the clerk has not come there
    EXPECT_FALSE(sheet.modified());
    grid.Grid().Select(2, 1);
    desk.focusGrid();
    desk.type("c").press(Key::Enter);
    ASSERT_EQ(sheet.changes().changed.size(), 1u);
}

TEST_F(BegunSheet, ALineThatIsNoneByWhatTheHostSaysIsNotRemoved) {
    sheet.inUse([](const Line& line) { return !line.name.empty() && line.name != "none"; });
    sheet.position(&Line::number);
    sheet.load(std::vector<Line>{
        {11, "a", "x", 1, 1, true, 1}, {12, "none", "x", 1, 1, true, 2}, {13, "b", "x", 1, 1, true, 2}});
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
    ASSERT_EQ(sheet.records().front().id, 11);
    {
        auto step = grid.Step("by the host");
        grid.SetCell(2, sheet.col("price"), "5");
    }
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
    {
        auto step = grid.Step("by the host");
        grid.SetCell(2, sheet.col("name"), "some");
    }
    const auto changes = sheet.changes();
    EXPECT_TRUE(changes.added.empty());
    EXPECT_TRUE(changes.removed.empty());
    ASSERT_EQ(changes.changed.size(), 2u);  // it, and the one behind it by its number
    EXPECT_EQ(changes.changed[0].before.id, 12);
    EXPECT_EQ(changes.changed[0].after.price, 5);
}

TEST_F(BegunSheet, LinesCanBeAppendedBeforeAnyWereLoaded) {
    const auto rows = sheet.append(std::vector<Line>{{5, "a", "x", 2, 3, true, 0}});
    EXPECT_EQ(rows, (std::vector<std::int32_t>{1}));
    ASSERT_EQ(sheet.changes().added.size(), 1u);
    EXPECT_EQ(sheet.changes().added[0].record.id, 0);
    EXPECT_TRUE(sheet.modified());
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_FALSE(sheet.modified());
}

TEST_F(BegunSheet, SumsItsLinesAlone) {
    sheet.inUse([](const Line& line) { return !line.name.empty(); });
    sheet.load(std::vector<Line>{{11, "a", "x", 2, 1, true, 0}, {12, "", "x", 4, 1, true, 0}});
    EXPECT_EQ(sheet.sum("price"), 2);
}
}  // namespace
}  // namespace kxVsGrid::testing
