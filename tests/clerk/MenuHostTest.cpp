// Hosts that fail, close the control or bring up another menu while a command of the menu is carried out.
#include "kit/MenuTest.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::testing {
namespace {

/// What the clerk chooses; of the second caption, an item under the first.
struct Chosen {
    const char* name;
    std::int16_t shift;
    const char* caption;
    const char* under;
};
constexpr Chosen AllCommands[] = {{"AddRow", 0, caption::AddRow, nullptr},
                                  {"CopyRow", 0, caption::CopyRow, nullptr},
                                  {"InsertRow", 0, caption::InsertRow, nullptr},
                                  {"InsertCopy", 0, caption::InsertCopy, nullptr},
                                  {"AddEmptyRow", 0, caption::AddEmptyRow, nullptr},
                                  {"InsertEmptyRow", 0, caption::InsertEmptyRow, nullptr},
                                  {"AddRows", CtrlKey, caption::AddRows, nullptr},
                                  {"InsertRows", CtrlKey, caption::InsertRows, nullptr},
                                  {"AddEmptyRows", CtrlKey, caption::AddEmptyRows, nullptr},
                                  {"InsertEmptyRows", CtrlKey, caption::InsertEmptyRows, nullptr},
                                  {"DeleteRow", 0, caption::DeleteRow, nullptr},
                                  {"Series", 0, caption::Fill, caption::Series},
                                  {"Days", 0, caption::Fill, caption::Days},
                                  {"Years", 0, caption::Fill, caption::Years},
                                  {"Months", 0, caption::Fill, caption::Months},
                                  {"Copies", 0, caption::Fill, caption::Copies}};

/// A date column with two dates, default texts, a total, a host that agrees to everything.
struct Office {
    WatchfulDesk desk;
    kxGrid& stays = desk.place();
    kxGrid& grid = desk.place();
    HostLog log{grid};

    Office() {
        grid.Cols(6);
        column(2).iType(flexDTDate);
        column(3).iType(flexDTDouble);
        column(3).b是否合计数据(true);
        column(4).sDefaultText_Name("件");
        column(4).sDefaultText_Code("01");
        grid.SumRow(true);
        grid.ReDraw(true);
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.SetCell(1, 2, "2010-01-30");
        grid.SetCell(2, 2, "2010-01-31");
        grid.SetCell(2, 3, "7");
        desk.focusGrid();
        grid.Grid().Select(2, 2);
        log.clear();
    }
    cVsControl& column(std::int32_t col) { return *grid.VsCtrl(static_cast<std::int16_t>(col)); }
    void choose(const Chosen& chosen) {
        desk.onPopup([chosen](headless::PoppedMenu& menu) {
            if (chosen.under)
                menu.choose(chosen.caption, chosen.under);
            else
                menu.choose(chosen.caption);
        });
        if (chosen.shift == CtrlKey) desk.answerInputBox("2");
    }
    /// As a machine that destroys a removed control at once; on a header, which moves nothing.
    void press(const Chosen& chosen) { grid.input()->mouseDown(RightButton, chosen.shift, 1500, 100); }
    void play(const Chosen& chosen) {
        choose(chosen);
        press(chosen);
    }
};

class MenuCommand : public ::testing::TestWithParam<Chosen> {
  protected:
    /// What the host hears of the command when nothing goes wrong.
    static Lines whole() {
        Office office;
        office.play(GetParam());
        return office.log.lines();
    }
    /// SetCell shows a box for what fails in it, and goes on.
    static bool trapped(const std::string& event) {
        return GetParam().under != nullptr && nameOf(event) == "CellChanged";
    }
    static void expectUsable(Office& office) {
        kxGrid& grid = office.grid;
        EXPECT_TRUE(office.desk.idle());
        EXPECT_NE(grid.Grid().Redraw(), 0);
        grid.Grid().Select(1, 1);
        const std::int32_t rows = grid.Rows();
        office.play(AllCommands[0]);
        EXPECT_EQ(grid.Rows(), rows + 1);
        EXPECT_EQ(grid.Row(), rows);
        EXPECT_EQ(grid.Grid().Text(rows, 4), "件");
        EXPECT_EQ(grid.Grid().Text(rows, 0), std::to_string(rows));
        office.desk.type("abc").press(Key::Enter);
        EXPECT_FALSE(office.desk.editor().visible);
    }
};

TEST_P(MenuCommand, EndsWhereTheHostFailsAndLeavesTheControlUsable) {
    const Lines expected = whole();
    ASSERT_GE(expected.size(), 2U);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE("the host fails in event " + std::to_string(i) + ", " + expected[i]);
        Office office;
        office.choose(GetParam());
        office.log.failAt(static_cast<std::ptrdiff_t>(i));
        if (trapped(expected[i])) {
            EXPECT_NO_THROW(office.press(GetParam()));
            EXPECT_EQ(office.desk.messages().size(), 1U);
        } else {
            EXPECT_THROW(office.press(GetParam()), HostFailure);
            EXPECT_EQ(office.log.lines(),
                      Lines(expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(i) + 1));
            EXPECT_TRUE(office.desk.messages().empty());
        }
        office.log.failAt(-1);
        if (GetParam().shift == CtrlKey && i > 0) {
            EXPECT_EQ(office.grid.Grid().Redraw(), 2);
        }
        expectUsable(office);
    }
}

TEST_P(MenuCommand, EndsWhereTheHostClosesTheControl) {
    const Lines expected = whole();
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE("the host closes the control in event " + std::to_string(i) + ", " + expected[i]);
        Office office;
        std::size_t count = 0;
        bool gone = false;
        const auto closes = [&](auto&&...) {
            if (count++ == i) {
                gone = true;
                office.desk.remove(office.grid);
            }
        };
        office.grid.MouseDown.connect(closes);
        office.grid.AddVsRow.connect(closes);
        office.grid.AfterAddRow.connect(closes);
        office.grid.DeleteVsRow.connect(closes);
        office.grid.AfterDeleteVsRow.connect(closes);
        office.grid.BeforeRowColChange.connect(closes);
        office.grid.EnterCell.connect(closes);
        office.grid.ValidData.connect(closes);
        office.grid.RowColChange.connect(closes);
        office.grid.AfterRowColChange.connect(closes);
        office.grid.SelChange.connect(closes);
        office.grid.CellChanged.connect(closes);
        office.play(GetParam());
        EXPECT_TRUE(gone);
        EXPECT_EQ(count, i + 1) << "nothing is raised afterwards";
        EXPECT_TRUE(office.desk.idle());
        EXPECT_TRUE(office.desk.messages().empty());
        office.desk.use(office.stays);
        office.desk.focusGrid();
        office.desk.type("x").press(Key::Enter);
        EXPECT_EQ(office.stays.Grid().Text(1, 1), "x");
    }
}

TEST_P(MenuCommand, IsForgottenWhenTheControlIsClosedWhileTheMenuIsUp) {
    Office office;
    const Chosen chosen = GetParam();
    office.desk.onPopup([&](headless::PoppedMenu& menu) {
        if (chosen.under)
            menu.choose(chosen.caption, chosen.under);
        else
            menu.choose(chosen.caption);
        office.desk.remove(office.grid);
    });
    office.press(chosen);
    EXPECT_EQ(office.desk.inputBoxes().size(), 0U);
    EXPECT_TRUE(office.desk.idle());
}

TEST_P(MenuCommand, IsForgottenWhenTheControlIsClosedWhileTheBoxIsUp) {
    if (GetParam().shift != CtrlKey) return;
    Office office;
    office.choose(GetParam());
    office.desk.whenAsked = [&] { office.desk.remove(office.grid); };
    office.press(GetParam());
    EXPECT_EQ(office.desk.inputBoxes().size(), 1U);
    EXPECT_TRUE(office.desk.idle());
}

TEST_P(MenuCommand, IsCarriedOutByItsIndexToo) {
    if (GetParam().under) return;
    const Lines expected = whole();
    Office office;
    if (GetParam().shift == CtrlKey) office.desk.answerInputBox("2");
    office.desk.onPopup([](headless::PoppedMenu& menu) {
        for (const MenuItem& item : menu.menu().items)
            if (item.caption == GetParam().caption) menu.choose(item.index);
    });
    office.press(GetParam());
    EXPECT_EQ(office.log.lines(), expected);
}

INSTANTIATE_TEST_SUITE_P(Of, MenuCommand, ::testing::ValuesIn(AllCommands),
                         [](const auto& tested) { return std::string(tested.param.name); });

using MenuHost = MenuTest;

TEST_F(MenuHost, ThatBringsAnotherMenuUpFromTheFirstGetsBothCommands) {
    at(2, 2);
    bool outer = true;
    desk.onPopup([&](headless::PoppedMenu& menu) {
        if (std::exchange(outer, false)) {
            desk.rightClick(0, 1);
            EXPECT_EQ(grid.Rows(), 7);
            menu.choose(caption::AddEmptyRow);
        } else {
            menu.choose(caption::AddRow);
        }
    });
    column(4).sDefaultText_Name("件");
    desk.rightClick(0, 1);
    EXPECT_EQ(grid.Rows(), 8);
    EXPECT_EQ(texts(5, 4), (Lines{"", "件", ""}));
}

TEST_F(MenuHost, ThatDeletesTheRowItWasToldOfKeepsTheOthers) {
    consentToDeletes();
    fill(2, 1, "A001");
    grid.AfterAddRow.connect(
        [&](bool&, std::int32_t row, bool, std::int32_t) { grid.Grid().RemoveRow(row); });
    at(2, 1);
    for (const char* command : {caption::AddRow, caption::CopyRow, caption::InsertRow, caption::InsertCopy}) {
        run(command);
        EXPECT_EQ(grid.Rows(), 6) << command;
        EXPECT_EQ(texts(1, 1), (Lines{"", "A001", "", "", ""})) << command;
        at(2, 1);
    }
}

TEST_F(MenuHost, ThatInsertsRowsAboveTheNewOneLosesNoneOfItsTexts) {
    fill(3, 1, "A001");
    grid.AfterAddRow.connect([&](bool&, std::int32_t row, bool, std::int32_t source) {
        EXPECT_EQ(text(row, 1), text(source, 1));
        grid.Grid().InsertRow(1);
        grid.Grid().Text(row, 1, "above");
    });
    at(3, 1);
    run(caption::InsertCopy);
    EXPECT_EQ(texts(1, 1), (Lines{"", "", "above", "", "A001", "", ""}));
}

TEST_F(MenuHost, ThatMovesRowsWhileTheCellMovesIsToldOfTheRowThatWasMade) {
    fill(3, 1, "A001");
    confirmCopies();
    bool once = true;
    grid.BeforeRowColChange.connect([&](auto, auto, auto, auto, bool&) {
        if (std::exchange(once, false)) grid.Grid().InsertRow(1);
    });
    at(3, 1);
    once = true;
    log.clear();
    run(caption::InsertCopy);
    EXPECT_EQ(named(told(), "AfterAddRow"), tellsTheHost(5, true, 6));
    EXPECT_EQ(texts(1, 1), (Lines{"", "", "", "", "A001", "A001", "", ""}));
}

TEST_F(MenuHost, ThatLoadsOtherRowsWhenItHearsOfACopyKeepsThem) {
    fill(2, 1, "A001");
    grid.AfterAddRow.connect([&](bool&, std::int32_t, bool, std::int32_t) {
        grid.Clear();
        grid.Rows(11);
        for (int r = 1; r < 11; ++r) grid.SetCell(r, 1, "B" + std::to_string(r));
    });
    at(2, 1);
    run(caption::CopyRow);
    EXPECT_EQ(texts(5, 1), (Lines{"B5", "B6", "B7", "B8", "B9", "B10"}));
}

TEST_F(MenuHost, ThatMovesTheCellWhileARowIsAddedKeepsItsPlace) {
    grid.AfterAddRow.connect([&](bool&, std::int32_t, bool, std::int32_t) { grid.Grid().Select(1, 4); });
    at(2, 2);
    run(caption::AddRow);
    EXPECT_EQ(current(), (Cell{1, 4}));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(MenuHost, ThatRemovesRowsWhenItIsAskedGetsItsRowAtTheEndOfWhatIsLeft) {
    rows(20);
    Connection host = grid.AddVsRow.connect([&](std::int32_t, bool&) { grid.Rows(8); });
    at(2, 2);
    run(caption::AddRow);
    EXPECT_EQ(grid.Rows(), 9);
    host.disconnect();
    run(caption::AddRow);
    EXPECT_EQ(grid.Rows(), 10);
}

}  // namespace
}  // namespace kxVsGrid::testing
