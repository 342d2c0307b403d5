// A host whose handler fails: the routine ends at that step, what it did before stays, and the control goes
// on working. Every scenario is played once to learn what the host hears, and then once for each of these
// events with a host that fails there.
#include <functional>
#include <iostream>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

/// A control with a column of each kind, and a host that agrees to everything.
struct Shop {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    HostLog log{grid};

    Shop() {
        grid.Cols(6);
        column(2).iType(flexDTDouble);
        column(2).b是否合计数据(true);
        column(3).sDefaultText_Name("件");
        column(3).sDefaultText_Code("01");
        column(4).iType(flexDTBoolean);
        column(5).sCellInput("r");
        grid.SumRow(true);
        grid.ReDraw(true);
        grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.SetCell(1, 2, "5", "tag");
        grid.SetCell(2, 2, "7");
        desk.focusGrid();
        grid.Grid().Select(2, 2);
    }
    cVsControl& column(std::int32_t col) { return *grid.VsCtrl(static_cast<std::int16_t>(col)); }
    void at(std::int32_t row, std::int32_t col) { grid.Grid().Select(row, col); }
    void openAt(std::int32_t row, std::int32_t col, std::string_view typed) {
        at(row, col);
        desk.type(typed);
    }
};

struct Scenario {
    std::string name;
    std::function<void(Shop&)> prepare;
    std::function<void(Shop&)> act;
};
std::ostream& operator<<(std::ostream& out, const Scenario& scenario) {
    return out << scenario.name;
}

class FailingHost : public ::testing::TestWithParam<Scenario> {
  protected:
    static double sumOf(const kxGrid& grid, std::int32_t col) {
        double sum = 0;
        for (int r = grid.FixedRows(); r < grid.Rows(); ++r) {
            const std::string content = grid.Grid().Text(r, col);
            if (!content.empty()) sum += std::stod(content);
        }
        return sum;
    }
    static void expectEditingWorks(Shop& shop) {
        kxGrid& grid = shop.grid;
        grid.Grid().Text(1, 2, "");
        grid.Grid().Data(1, 2, "");
        shop.at(1, 2);
        shop.log.clear();
        shop.desk.type("3*3");
        EXPECT_TRUE(shop.desk.editor().visible);
        shop.desk.press(Key::Enter);
        EXPECT_EQ(shop.log.lines(), opens() + changed(1, 2) + edited(1, 2) + moves(1, 2, 1, 3));
        EXPECT_EQ(grid.Grid().Text(1, 2), "9");
        EXPECT_FALSE(shop.desk.editor().visible);
        EXPECT_TRUE(grid.bIsDirty());
        EXPECT_DOUBLE_EQ(std::stod(grid.ReadSum(2)), sumOf(grid, 2));
        shop.desk.type("open");
        grid.SetCell(1, 1, "host");
        EXPECT_FALSE(shop.desk.editor().visible);
        EXPECT_EQ(grid.ReadCell(1, 3, true), "open");
        shop.at(1, 4);
        const bool was = grid.Grid().Text(1, 4) == "-1";
        shop.desk.type(" ");
        EXPECT_EQ(grid.Grid().Text(1, 4), was ? "0" : "-1");
    }
    static void expectRowsWork(Shop& shop) {
        kxGrid& grid = shop.grid;
        shop.at(1, 1);
        const std::int32_t rows = grid.Rows();
        shop.desk.press(Key::Insert);
        EXPECT_EQ(grid.Rows(), rows + 1);
        EXPECT_EQ(grid.Row(), rows);
        EXPECT_EQ(grid.Grid().Text(rows, 3), "件");
        EXPECT_EQ(grid.Grid().Data(rows, 3), "01");
        EXPECT_EQ(grid.Grid().Text(rows, 0), std::to_string(rows));
        shop.desk.press(Key::Delete);
        EXPECT_EQ(grid.Rows(), rows);
        grid.AddRow(grid.Rows(), false, false);
        EXPECT_EQ(grid.Grid().Text(rows, 3), "");
        grid.Rows(60);
        shop.at(1, 1);
        shop.desk.scrollTo(20, 1);
        EXPECT_EQ(grid.Grid().TopRow(), 20);
    }
    static void expectUsable(Shop& shop) {
        shop.log.failAt(-1);
        shop.desk.focusElsewhere();
        shop.desk.focusGrid();
        // An editor that lost the focus in a failed commit is still there.
        EXPECT_TRUE(shop.grid.ValidTextData());
        EXPECT_FALSE(shop.desk.editor().visible);
        EXPECT_EQ(shop.desk.focusOwner(), FocusPlace::Grid);
        EXPECT_TRUE(shop.grid.IsActive());
        shop.grid.Editable(true);
        expectEditingWorks(shop);
        expectRowsWork(shop);
        EXPECT_TRUE(shop.desk.messages().empty());
    }
};

TEST_P(FailingHost, EndsTheRoutineAtThatStepAndLeavesTheControlUsable) {
    const Scenario& scenario = GetParam();
    Lines expected;
    {
        Shop shop;
        scenario.prepare(shop);
        shop.log.clear();
        scenario.act(shop);
        expected = shop.log.lines();
        ASSERT_FALSE(expected.empty());
    }
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE("the host fails in event " + std::to_string(i) + ", " + expected[i]);
        Shop shop;
        scenario.prepare(shop);
        shop.log.clear();
        shop.log.failAt(static_cast<std::ptrdiff_t>(i));
        EXPECT_THROW(scenario.act(shop), HostFailure);
        EXPECT_EQ(shop.log.lines(),
                  Lines(expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(i) + 1));
        expectUsable(shop);
        if (HasFailure()) {
            std::cout << shop.desk.ascii();
            break;
        }
    }
}

void nothing(Shop&) {}
void typeFive(Shop& shop) {
    shop.openAt(2, 2, "5");
    shop.grid.TextTag("new");
}

INSTANTIATE_TEST_SUITE_P(
    Keys, FailingHost,
    ::testing::Values(Scenario{"an arrow key", nothing, [](Shop& s) { s.desk.press(Key::Down); }},
                      Scenario{"Enter on the grid", nothing, [](Shop& s) { s.desk.press(Key::Enter); }},
                      Scenario{"Insert", nothing, [](Shop& s) { s.desk.press(Key::Insert); }},
                      Scenario{"Delete", nothing, [](Shop& s) { s.desk.press(Key::Delete); }},
                      Scenario{"a character", nothing, [](Shop& s) { s.desk.type("5"); }},
                      Scenario{"a character on the last row", [](Shop& s) { s.at(5, 2); },
                               [](Shop& s) { s.desk.type("5"); }},
                      Scenario{"a blank in a Boolean cell", [](Shop& s) { s.at(5, 4); },
                               [](Shop& s) { s.desk.type(" "); }},
                      Scenario{"Tab with an open editor", typeFive, [](Shop& s) { s.desk.press(Key::Tab); }},
                      Scenario{"Shift+Tab with an open editor", typeFive,
                               [](Shop& s) { s.desk.press(Key::Tab, ShiftKey); }},
                      Scenario{"keys on the surface", [](Shop& s) { s.desk.focusSurface(); },
                               [](Shop& s) { s.desk.type("a"); }}));

INSTANTIATE_TEST_SUITE_P(
    Commits, FailingHost,
    ::testing::Values(
        Scenario{"Enter in the editor", typeFive, [](Shop& s) { s.desk.press(Key::Enter); }},
        Scenario{"Enter in the editor on the last row", [](Shop& s) { s.openAt(5, 5, "x"); },
                 [](Shop& s) { s.desk.press(Key::Enter); }},
        Scenario{"Down in the editor", typeFive, [](Shop& s) { s.desk.press(Key::Down); }},
        Scenario{"Up in the editor", typeFive, [](Shop& s) { s.desk.press(Key::Up); }},
        Scenario{"Right in the editor", typeFive, [](Shop& s) { s.desk.press(Key::Right); }},
        Scenario{"the focus going elsewhere", typeFive, [](Shop& s) { s.desk.focusElsewhere(); }},
        Scenario{"ValidTextData", typeFive, [](Shop& s) { s.grid.ValidTextData(); }},
        Scenario{"Editable off", typeFive, [](Shop& s) { s.grid.Editable(false); }},
        Scenario{"a move by code", typeFive, [](Shop& s) { s.at(4, 1); }},
        Scenario{"a press in another cell", typeFive, [](Shop& s) { s.desk.click(4, 1); }},
        Scenario{"a composition on the last row", [](Shop& s) { s.at(5, 1); },
                 [](Shop& s) { s.desk.compose("pin").commitComposition("品").press(Key::Enter); }}));

INSTANTIATE_TEST_SUITE_P(
    Mouse, FailingHost,
    ::testing::Values(Scenario{"a press", nothing, [](Shop& s) { s.desk.click(4, 1); }},
                      Scenario{"a double click", nothing, [](Shop& s) { s.desk.doubleClick(4, 1); }},
                      Scenario{"a double click in a Boolean cell", nothing,
                               [](Shop& s) { s.desk.doubleClick(5, 4); }},
                      Scenario{"a mouse move", nothing, [](Shop& s) { s.desk.mouseMove(0, 0, 2000, 1000); }},
                      Scenario{"the focus coming to a fixed cell",
                               [](Shop& s) {
                                   s.desk.focusElsewhere();
                                   s.at(0, 0);
                               },
                               [](Shop& s) { s.desk.focusGrid(); }}));

INSTANTIATE_TEST_SUITE_P(
    Rows, FailingHost,
    ::testing::Values(Scenario{"a row at the end", nothing, [](Shop& s) { s.grid.AddRow(6, true, false); }},
                      Scenario{"an inserted row", nothing, [](Shop& s) { s.grid.AddRow(2, true, false); }},
                      Scenario{"an empty row", nothing, [](Shop& s) { s.grid.AddRow(6, false, false); }},
                      Scenario{"a discarded copy", [](Shop& s) { s.grid.SetCell(2, 1, "x", "y"); },
                               [](Shop& s) { s.grid.AddRow(6, false, true); }},
                      Scenario{"a confirmed copy",
                               [](Shop& s) {
                                   s.grid.AfterAddRow.connect(
                                       [](bool& keep, std::int32_t, bool, std::int32_t) { keep = true; });
                                   s.at(1, 1);
                               },
                               [](Shop& s) { s.grid.AddRow(1, false, true); }},
                      Scenario{"a row with an open editor", typeFive,
                               [](Shop& s) { s.grid.AddRow(2, true, false); }},
                      Scenario{"fewer rows",
                               [](Shop& s) {
                                   s.grid.Rows(20);
                                   s.at(15, 1);
                               },
                               [](Shop& s) { s.grid.Rows(6); }}));

TEST(FailingHosts, LeaveTheCommittedCellWritten) {
    Shop shop;
    typeFive(shop);
    shop.grid.AfterEdit.connect([](std::int32_t, std::int32_t) { throw HostFailure(); });
    EXPECT_THROW(shop.desk.press(Key::Enter), HostFailure);
    EXPECT_EQ(shop.grid.Grid().Text(2, 2), "5");
    EXPECT_EQ(shop.grid.Grid().Data(2, 2), "new");
    EXPECT_TRUE(shop.grid.bIsDirty());
    EXPECT_EQ(shop.grid.ReadSum(2), "10");
    EXPECT_TRUE(shop.desk.editor().visible);
    EXPECT_EQ(shop.grid.Row(), 2);
    EXPECT_EQ(shop.grid.Col(), 2);
}

TEST(FailingHosts, LeaveTheRowThatWasAddedBefore) {
    Shop shop;
    shop.grid.AfterAddRow.connect([](bool&, std::int32_t, bool, std::int32_t) { throw HostFailure(); });
    EXPECT_THROW(shop.grid.AddRow(6, false, true), HostFailure);
    EXPECT_EQ(shop.grid.Rows(), 7);
    EXPECT_EQ(shop.grid.Row(), 6);
    EXPECT_EQ(shop.grid.Grid().Text(6, 2), "7");
}

TEST(FailingHosts, GetDefaultTextsAgainAfterAnEmptyRowHasFailed) {
    Shop shop;
    Connection failing =
        shop.grid.AfterAddRow.connect([](bool&, std::int32_t, bool, std::int32_t) { throw HostFailure(); });
    EXPECT_THROW(shop.grid.AddRow(6, false, false), HostFailure);
    EXPECT_EQ(shop.grid.Grid().Text(6, 3), "");
    failing.disconnect();
    shop.at(4, 1);
    EXPECT_EQ(shop.grid.Grid().Text(4, 3), "件");
}

}  // namespace
}  // namespace kxVsGrid::testing
