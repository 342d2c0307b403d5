// What commands do while rows are filtered: they act on what is seen, and say what they have passed over.
#include "clerk/FilterTest.h"

namespace kxVsGrid::testing {
namespace {
namespace filtered_commands {

class FilteredRowsCommands : public FilteredGrid {
  protected:
    void select(std::int32_t row, std::int32_t col, std::int32_t lastRow, std::int32_t lastCol) {
        cells.Select(row, col);
        cells.SelectRange(row, col, lastRow, lastCol);
    }
    Texts column(Column col) const {
        Texts texts;
        for (std::int32_t row = 1; row < grid.Rows(); ++row) texts.push_back(text(row, col));
        return texts;
    }
    void fill(const char* way) {
        desk.onPopup([way](headless::PoppedMenu& menu) { menu.choose("填充列", way); });
        desk.press(Key::Menu);
        desk.onPopup({});
    }
};

TEST_F(FilteredRowsCommands, FillDownPassesOverUnseenRows) {
    show({"北京"});
    select(1, Quantity, 6, Quantity);
    EXPECT_TRUE(desk.run(Command::FillDown));
    EXPECT_EQ(column(Quantity), (Texts{"1", "2", "1", "4", "5", "1", "7", "8"}));
    EXPECT_EQ(lastTip(), passedOver(3));
}

TEST_F(FilteredRowsCommands, PasteGoesIntoSeenRowsAndReportsTheOthers) {
    PasteReport report;
    grid.Commands().Reported.connect([&](const PasteReport& told) { report = told; });
    show({"北京"});
    at(1, Quantity);
    desk.clipboard("10\n20\n30");
    desk.run(Command::Paste);
    EXPECT_EQ(column(Quantity), (Texts{"10", "2", "20", "4", "5", "30", "7", "8"}));
    EXPECT_EQ(report.written, 3);
    EXPECT_EQ(report.filteredRows, 3);
    EXPECT_EQ(report.summary(), passedOver(3));
    EXPECT_EQ(lastTip(), passedOver(3));
    EXPECT_EQ(grid.ReadSum(Quantity), "86");
}

TEST_F(FilteredRowsCommands, OneValuePastedIntoASelectionLeavesUnseenRows) {
    show({"北京"});
    select(1, Quantity, 8, Quantity);
    desk.clipboard("9");
    desk.run(Command::Paste);
    EXPECT_EQ(column(Quantity), (Texts{"9", "2", "9", "4", "5", "9", "7", "8"}));
    EXPECT_EQ(lastTip(), passedOver(5));
}

TEST_F(FilteredRowsCommands, CutAndClearLeaveUnseenRows) {
    show({"北京"});
    select(1, Quantity, 6, Quantity);
    desk.run(Command::ClearCells);
    EXPECT_EQ(column(Quantity), (Texts{"", "2", "", "4", "5", "", "7", "8"}));
    EXPECT_EQ(lastTip(), passedOver(3));
    desk.run(Command::Undo);
    desk.clear();
    select(1, Quantity, 6, Quantity);
    desk.run(Command::Cut);
    EXPECT_EQ(desk.clipboard(), "1\n3\n6");
    EXPECT_EQ(desk.tips(), (Texts{passedOver(3)}));
}

TEST_F(FilteredRowsCommands, CopyTakesSeenRowsAlone) {
    show({"北京"});
    select(1, Quantity, 6, Quantity);
    desk.run(Command::Copy);
    EXPECT_EQ(desk.clipboard(), "1\n3\n6");
    EXPECT_EQ(lastTip(), passedOver(3));
}

TEST_F(FilteredRowsCommands, NothingIsSaidWhereNothingWasPassedOver) {
    show({"北京"});
    at(1, Quantity);
    desk.run(Command::Copy);
    desk.clipboard("4");
    desk.run(Command::Paste);
    EXPECT_TRUE(desk.tips().empty());
}

TEST_F(FilteredRowsCommands, DeleteRowsTakesSeenRowsAlone) {
    show({"北京"});
    at(1);
    cells.SelectRows(1, 6);
    desk.run(Command::DeleteRows);
    EXPECT_EQ(column(City), (Texts{"上海", "广州", "上海", "", "广州"}));
    EXPECT_EQ(lastTip(), passedOver(3));
}

TEST_F(FilteredRowsCommands, MovedRowsGoPastUnseenOnes) {
    show({"北京"});
    at(1);
    EXPECT_FALSE(grid.CanRun(Command::MoveRowUp));
    EXPECT_TRUE(desk.run(Command::MoveRowDown));
    EXPECT_EQ(column(Quantity), (Texts{"3", "1", "2", "4", "5", "6", "7", "8"}));
    EXPECT_EQ(shownRows(), (Places{1, 2, 6}));
    EXPECT_EQ(grid.Row(), 2);
}

TEST_F(FilteredRowsCommands, CopyFromAboveTakesTheSeenRowAbove) {
    show({"北京"});
    at(6, Quantity);
    desk.run(Command::CopyFromAbove);
    EXPECT_EQ(text(6, Quantity), "3");
}

TEST_F(FilteredRowsCommands, InsertedAndDuplicatedRowsAreSeen) {
    show({"北京"});
    at(3);
    desk.run(Command::InsertRow);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_TRUE(cells.RowShown(3));
    at(4);
    EXPECT_FALSE(cells.RowShown(3));
    grid.AfterAddRow.connect([](bool& keep, auto, auto, auto) { keep = true; });
    desk.run(Command::DuplicateRow);
    EXPECT_EQ(grid.Row(), 10);
    EXPECT_EQ(text(10), "北京");
    EXPECT_TRUE(cells.RowShown(10));
}

TEST_F(FilteredRowsCommands, FillsOfTheMenuPassOverUnseenRows) {
    show({"北京"});
    at(1, Quantity);
    fill("复制单元格");
    EXPECT_EQ(column(Quantity), (Texts{"1", "2", "1", "4", "5", "1", "7", "8"}));
    EXPECT_EQ(lastTip(), passedOver(5));
}

TEST_F(FilteredRowsCommands, ASeriesGoesOnFromTheSeenRowAbove) {
    grid.SetCell(1, Quantity, "10");
    grid.SetCell(3, Quantity, "15");
    show({"北京"});
    at(3, Quantity);
    fill("序列方式填充");
    EXPECT_EQ(column(Quantity), (Texts{"10", "2", "15", "4", "5", "20", "7", "8"}));
}

TEST_F(FilteredRowsCommands, FillsOfTheMenuFillRowsThatTheHostHidesWithoutAFilter) {
    cells.RowHidden(2, true);
    at(1, Quantity);
    fill("复制单元格");
    EXPECT_EQ(column(Quantity), Texts(8, "1"));
    EXPECT_TRUE(desk.tips().empty());
}

TEST_F(FilteredRowsCommands, NextProblemPassesOverUnseenRows) {
    for (const std::int32_t row : {2, 6}) cells.Mark(row, City, CellMark{CellMark::Kind::Problem, "p"});
    show({"北京"});
    EXPECT_TRUE(desk.run(Command::NextProblem));
    EXPECT_EQ(grid.Row(), 6);
    show({"广州"});
    EXPECT_FALSE(grid.CanRun(Command::NextProblem));
}

TEST_F(FilteredRowsCommands, UnseenCellsDoNotCountInTheSummary) {
    show({"北京"});
    EXPECT_EQ(cells.Summary({1, Quantity, 8, Quantity}).sum, 10);
}

TEST_F(FilteredRowsCommands, EnterAndTabGoPastUnseenRows) {
    show({"北京"});
    at(1, Paid);
    desk.press(Key::Tab);
    EXPECT_EQ(grid.Row(), 3);
    desk.press(Key::Tab, ShiftKey);
    EXPECT_EQ(grid.Row(), 1);
    at(1, Paid);
    desk.press(Key::Enter);
    EXPECT_EQ(grid.Row(), 3);
}

// --- The list

class FilterList : public FilteredRowsCommands {
  protected:
    using Script = std::function<void(headless::FormDialog&)>;
    void choose(const Script& script, std::int32_t col = City) {
        cells.Select(grid.Row(), col);
        desk.onDialog(Script(script));
        desk.press(static_cast<std::int16_t>('L'), CtrlKey + ShiftKey);
        desk.onDialog(Script());
    }
    static Texts lines(headless::FormDialog& dialog) {
        const CellGrid& list = dialog.grid("TextsGrid");
        Texts found;
        for (std::int32_t row = 1; row < list.Rows(); ++row)
            if (list.RowShown(row))
                found.push_back((list.Text(row, 0) == "-1" ? "+" : "-") + list.Text(row, 1) + " " +
                                list.Text(row, 2));
        return found;
    }
};

TEST_F(FilterList, ListsTheTextsOfTheColumnInItsOrderWithTheirRows) {
    choose([](headless::FormDialog& d) {
        EXPECT_EQ(d.form().caption(), "筛选：城市");
        EXPECT_EQ(d.focused(), "SearchText");
        EXPECT_EQ(lines(d), (Texts{"+上海 2", "+北京 3", "+广州 2", "+（空） 1"}));
    });
    grid.SetCell(1, Quantity, "10");
    cells.Text(2, Quantity, "x");
    choose(
        [](headless::FormDialog& d) {
            EXPECT_EQ(lines(d), (Texts{"+3 1", "+4 1", "+5 1", "+6 1", "+7 1", "+8 1", "+10 1", "+x 1"}));
        },
        Quantity);
    EXPECT_FALSE(grid.Filters().On());
}

TEST_F(FilterList, ShowsWhatWasSearchedWithEnter) {
    choose([](headless::FormDialog& d) {
        d.type("广");
        EXPECT_EQ(lines(d), (Texts{"+广州 2"}));
        d.press(Key::Enter);
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(shownRows(), (Places{4, 8}));
    EXPECT_EQ(grid.Row(), 4);
}

TEST_F(FilterList, TicksWhatIsFoundAlsoWhereTheColumnFilters) {
    show({"北京"});
    choose([](headless::FormDialog& d) {
        d.type("州");
        EXPECT_EQ(lines(d), (Texts{"+广州 2"}));
        d.press(Key::Enter);
    });
    EXPECT_EQ(grid.Filters().Shown(City), (Texts{"广州"}));
    EXPECT_EQ(shownRows(), (Places{4, 8}));
}

TEST_F(FilterList, TicksWhatEachFurtherLetterFinds) {
    choose([](headless::FormDialog& d) {
        d.text("SearchText", "州");
        d.text("SearchText", "京");
        EXPECT_EQ(lines(d), (Texts{"+北京 3"}));
        d.press(Key::Enter);
    });
    EXPECT_EQ(shownRows(), (Places{1, 3, 6}));
}

TEST_F(FilterList, GivesTheTicksBackWhenTheSearchIsEmptied) {
    const Texts before{"-上海 2", "+北京 3", "-广州 2", "-（空） 1"};
    show({"北京"});
    choose([&](headless::FormDialog& d) {
        d.type("州");
        d.text("SearchText", "nowhere");
        d.text("SearchText", " ");
        EXPECT_EQ(lines(d), before);
        d.click("QdCommand");
    });
    EXPECT_EQ(grid.Filters().Shown(City), (Texts{"北京"}));
}

TEST_F(FilterList, KeepsWhatWasTickedByHandInASearch) {
    show({"北京"});
    choose([](headless::FormDialog& d) {
        d.text("SearchText", "海");
        d.press(Key::Down);
        d.press(Key::Space);
        EXPECT_EQ(lines(d), (Texts{"-上海 2"}));
        d.press(Key::Space);
        d.text("SearchText", "");
        EXPECT_EQ(lines(d), (Texts{"+上海 2", "+北京 3", "-广州 2", "-（空） 1"}));
        d.click("QdCommand");
    });
    EXPECT_EQ(shownRows(), (Places{1, 2, 3, 5, 6}));
}

TEST_F(FilterList, SearchesWithoutRegardToCase) {
    grid.SetCell(2, City, "ABC-1");
    choose([](headless::FormDialog& d) {
        d.type("bc");
        EXPECT_EQ(lines(d), (Texts{"+ABC-1 1"}));
        d.text("SearchText", "nowhere");
        EXPECT_TRUE(lines(d).empty());
        EXPECT_EQ(d.control("Message").caption, "没有找到");
    });
}

TEST_F(FilterList, IsWorkedByKeysFromTheSearchBox) {
    choose([](headless::FormDialog& d) {
        d.press(Key::Down);
        d.press(Key::Down);
        d.press(Key::Space);
        EXPECT_EQ(lines(d)[1], "-北京 3");
        d.press(Key::Up);
        d.press(Key::Space);
        d.press(Key::Space);
        EXPECT_EQ(lines(d)[0], "+上海 2");
        EXPECT_EQ(d.text("SearchText"), "");
        d.press(Key::Enter);
    });
    EXPECT_EQ(shownRows(), (Places{2, 4, 5, 7, 8}));
}

TEST_F(FilterList, IsTickedByPresses) {
    choose([](headless::FormDialog& d) {
        d.clickRow("TextsGrid", 1);
        d.clickRow("TextsGrid", 4);
        EXPECT_EQ(lines(d), (Texts{"-上海 2", "+北京 3", "+广州 2", "-（空） 1"}));
        d.click("QdCommand");
    });
    EXPECT_EQ(shownRows(), (Places{1, 3, 4, 6, 8}));
}

TEST_F(FilterList, TicksWhatIsListedAllOrNone) {
    choose([](headless::FormDialog& d) {
        d.click("NoneCommand");
        d.text("SearchText", "州");
        d.click("AllCommand");
        d.text("SearchText", "");
        EXPECT_EQ(lines(d), (Texts{"-上海 2", "-北京 3", "+广州 2", "-（空） 1"}));
        d.click("QdCommand");
    });
    EXPECT_EQ(shownRows(), (Places{4, 8}));
}

TEST_F(FilterList, RefusesToLeaveNothing) {
    choose([](headless::FormDialog& d) {
        d.click("NoneCommand");
        d.press(Key::Enter);
        EXPECT_TRUE(d.open());
        EXPECT_EQ(d.control("Message").caption, "没有勾选任何内容：至少勾选一项。");
        d.press(Key::Escape);
    });
    EXPECT_FALSE(grid.Filters().On());
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(FilterList, WithAllTickedIsNoFilter) {
    show({"北京"});
    choose([](headless::FormDialog& d) {
        EXPECT_EQ(lines(d), (Texts{"-上海 2", "+北京 3", "-广州 2", "-（空） 1"}));
        d.click("AllCommand");
        d.click("QdCommand");
    });
    EXPECT_FALSE(grid.Filters().On());
}

TEST_F(FilterList, EndsTheFilterOfItsColumn) {
    show({"1", "2"}, Quantity);
    show({"北京"});
    choose([](headless::FormDialog& d) { d.click("EndCommand"); });
    EXPECT_EQ(shownRows(), (Places{1, 2}));
    choose([](headless::FormDialog& d) { EXPECT_FALSE(d.control("EndCommand").enabled); });
}

TEST_F(FilterList, OffersNothingOfRowsThatTheHostHides) {
    cells.RowHidden(4, true);
    cells.RowHidden(8, true);
    cells.RowHidden(7, true);
    choose([](headless::FormDialog& d) { EXPECT_EQ(lines(d), (Texts{"+上海 2", "+北京 3"})); });
}

TEST_F(FilterList, OpensFromAnOpenEditorWhoseTextIsStoredFirst) {
    desk.type("天津");
    choose([this](headless::FormDialog& d) {
        EXPECT_FALSE(open());
        EXPECT_EQ(lines(d).size(), 5U);
        d.text("SearchText", "天");
        d.press(Key::Enter);
    });
    EXPECT_EQ(shownRows(), (Places{1}));
}

TEST_F(FilterList, IsThereWhereTheHostAllowsIt) {
    EXPECT_TRUE(grid.CanRun(Command::Filter));
    EXPECT_FALSE(grid.CanRun(Command::Unfilter));
    grid.Editable(false);
    EXPECT_TRUE(grid.CanRun(Command::Filter));
    grid.Options(City).filterable(false);
    EXPECT_FALSE(grid.CanRun(Command::Filter));
    EXPECT_FALSE(desk.run(Command::Filter));
    show({"北京"});
    EXPECT_TRUE(grid.CanRun(Command::Unfilter));
    EXPECT_TRUE(desk.run(Command::Unfilter));
    EXPECT_EQ(shownRows().size(), 8U);
}

TEST_F(FilterList, LeavesWhatAHostHasEndedMeanwhile) {
    choose([this](headless::FormDialog& d) {
        d.text("SearchText", "广");
        grid.Cols(1);
        d.press(Key::Enter);
    });
    EXPECT_FALSE(grid.Filters().On());
    grid.Cols(4);
    grid.Options(City).filterable(true);
    cells.Select(1, City);
    choose([this](headless::FormDialog& d) {
        desk.remove(grid);
        d.press(Key::Enter);
    });
}

TEST_F(FilterList, SignsTheHeaderOfItsColumn) {
    show({"北京"});
    const auto funnels = [this] {
        Places cols;
        for (const FrameItem& item : makeFrame(cells).items)
            if (item.kind == FrameItem::Kind::Funnel) cols.push_back(item.col);
        return cols;
    };
    EXPECT_EQ(funnels(), (Places{City}));
    show({"否"}, Paid);
    EXPECT_EQ(funnels(), (Places{City, Paid}));
    grid.Filters().ShowAll();
    EXPECT_EQ(funnels(), (Places{}));
}
}  // namespace filtered_commands
}  // namespace
}  // namespace kxVsGrid::testing
