// A clerk who runs commands at random, and a host who does whatever comes to his mind in the middle of them: the
// control stays whole.
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "kit/HostLog.h"
#include "kit/Random.h"
#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::testing {
namespace {

constexpr int ActsOfTheReckless = 6'000;

class RecklessOffice : public ::testing::Test {
  protected:
    RecklessOffice() {
        setUp();
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) {
            consent = grid.Rows() < 40;
            meddle();
        });
        grid.DeleteVsRow.connect([this](std::int32_t, bool& consent) {
            consent = true;
            meddle();
        });
        grid.AfterAddRow.connect([this](bool& keep, auto...) { keep = dice.oneIn(2); });
        grid.TxtValidBmS.connect([this](const std::string&, const std::string&, const std::string&,
                                        const std::string& typed, std::string& code, std::string& name) {
            if (typed.starts_with("A")) code = name = typed;
            meddle();
        });
        grid.Options().CellLocked.connect([this](std::int32_t row, std::int32_t col, bool& locked) {
            locked = (row + col) % 7 == 0;
            if (dice.oneIn(20)) meddle();
        });
        grid.CellChanged.connect([this](auto...) { meddle(); });
        grid.AfterEdit.connect([this](auto...) { meddle(); });
        grid.SelChange.connect([this] { meddle(); });
        grid.RowColChange.connect([this] { meddle(); });
        grid.Commands().Changed.connect([this] { meddle(); });
        grid.Commands().Reported.connect([this](const PasteReport& report) {
            EXPECT_GE(report.written, 0);
            EXPECT_LE(report.refusals.size(), PasteReport::MostListed);
            meddle();
        });
        desk.onProgress([this](std::int64_t, std::int64_t) {
            meddle();
            return !dice.oneIn(6);
        });
        desk.focusGrid();
    }
    void TearDown() override {
        if (HasFailure()) std::cout << desk.ascii();
    }
    void setUp() {
        grid.Editable(true);
        if (grid.Cols() < 6) grid.Cols(6);
        grid.FixedRows(1);
        grid.FixedCols(1);
        grid.Rows(std::max(grid.Rows(), 12));
        for (std::int32_t col = 1; col < grid.Cols(); ++col) grid.ColHidden(col, col == 5);
        for (std::int32_t row = 1; row < grid.Rows(); ++row) grid.Grid().RowHidden(row, row == 7);
        column(2).iType(flexDTDouble);
        column(2).b是否合计数据(true);
        column(3).i有效性判断(1);
        column(3).i字段有效性判断类型(ij编码型);
        column(4).iType(flexDTBoolean);
        grid.SumRow(true);
        grid.ReDraw(true);
    }
    cVsControl& column(std::int32_t col) { return *grid.VsCtrl(static_cast<std::int16_t>(col)); }
    std::int32_t roll(std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(dice.between(from, std::max(from, to)));
    }
    Command anyCommand() { return allCommands()[static_cast<std::size_t>(roll(0, 24))]; }
    std::string anyBlock() {
        static const std::vector<std::string> Cells{"", "1", "2*3", "x", "A1", "B1", "-1", "\"q\tq\"", "货"};
        std::string block;
        const int lines = dice.oneIn(6) ? 30 : roll(1, 4), width = roll(1, 8);
        for (int i = 0; i < lines * width; ++i) {
            block += Cells[static_cast<std::size_t>(roll(0, 8))];
            if (lines * width > 1) block += (i + 1) % width == 0 ? "\n" : "\t";
        }
        return block;
    }
    void select() {
        if (grid.Rows() <= grid.FixedRows() || grid.Cols() <= grid.FixedCols()) return;
        const std::int32_t row = roll(grid.FixedRows(), grid.Rows() - 1),
                           col = roll(grid.FixedCols(), grid.Cols() - 1);
        grid.Grid().Select(row, col);
        if (!dice.oneIn(3) || row >= grid.Rows() || col >= grid.Cols()) return;
        if (row < grid.FixedRows() || col < grid.FixedCols()) return;
        if (dice.oneIn(2))
            grid.Grid().SelectRange(row, col, grid.Rows() - 1, grid.Cols() - 1);
        else
            grid.Grid().SelectRows(row, grid.Rows() - 1);
    }
    /// Once in a while, and not without end.
    void meddle() {
        if (calm || depth >= 3 || !dice.oneIn(40)) return;
        ++depth;
        const Leaving leaving(*this);
        ++deeds;
        const std::int32_t row = roll(grid.FixedRows(), grid.Rows() - 1);
        const bool there = row < grid.Rows();
        switch (roll(0, 19)) {
            case 0:
                return grid.Cols() > 0 ? grid.Clear() : void();
            case 1:
                return there ? grid.Grid().RemoveRow(row) : void();
            case 2:
                return grid.Grid().InsertRow(std::min(row, grid.Rows()));
            case 3:
                return grid.Rows(roll(2, 20));
            case 4:
                return grid.Cols(roll(0, 8));
            case 5:
                return grid.Grid().FixedRows(std::min(roll(0, 3), grid.Rows()));
            case 6:
                return grid.Editable(dice.oneIn(2));
            case 7:
                return there ? grid.Grid().RowHidden(row, true) : void();
            case 8:
                return grid.Cols() > 2 ? grid.ColHidden(roll(1, grid.Cols() - 1), true) : void();
            case 9:
                return select();
            case 10:
                return static_cast<void>(desk.type("7"));
            case 11:
                return static_cast<void>(desk.press(dice.oneIn(2) ? Key::Escape : Key::Enter));
            case 12:
                return grid.History().Forget();
            case 13:
                return static_cast<void>(desk.clipboard(anyBlock()));
            case 14:
                return grid.ClearMarks();
            case 15:
                throw HostFailure();
            case 16:
                return grid.SetCell(row, 1, "host", "host's");
            default:
                return static_cast<void>(grid.Run(anyCommand()));
        }
    }
    struct Leaving {
        explicit Leaving(RecklessOffice& office) : office_(office) {}
        ~Leaving() { --office_.depth; }
        Leaving(const Leaving&) = delete;
        Leaving& operator=(const Leaving&) = delete;
        RecklessOffice& office_;
    };
    void act() {
        switch (roll(0, 7)) {
            case 0:
                return select();
            case 1:
                desk.clipboard(anyBlock());
                return static_cast<void>(desk.run(Command::Paste));
            case 2:
                return static_cast<void>(desk.type("5").press(Key::Enter));
            case 3:
                return static_cast<void>(desk.press('V', CtrlKey));
            case 4:
                return static_cast<void>(desk.press(Key::Escape));
            default:
                return static_cast<void>(desk.run(anyCommand()));
        }
    }

    kit::Random dice;
    headless::Desk desk;
    kxGrid& grid = desk.place();
    bool calm = false;
    int depth = 0;
    int deeds = 0;
};

TEST_F(RecklessOffice, KeepsTheControlWhole) {
    for (int n = 0; n < ActsOfTheReckless; ++n) {
        desk.answerInputBox(std::to_string(roll(-1, 20)));
        try {
            act();
        } catch (const HostFailure&) {
        }
        ASSERT_FALSE(grid.Grid().StepOpen()) << "act " << n;
        ASSERT_EQ(depth, 0);
        if (n % 20 != 19) continue;
        calm = true;
        setUp();
        desk.press(Key::Escape).press(Key::Escape);
        grid.Grid().Select(1, 1);
        grid.Grid().Unselect();
        desk.focusGrid();
        grid.History().Forget();
        const std::string before = grid.Grid().Text(1, 1);
        desk.clipboard("p\tq\nr\ts");
        desk.onProgress({});
        ASSERT_TRUE(desk.run(Command::Paste)) << "act " << n;
        ASSERT_EQ(grid.Grid().Text(1, 1), "p") << "act " << n;
        while (grid.CanRun(Command::Undo)) ASSERT_TRUE(grid.Run(Command::Undo));
        ASSERT_EQ(grid.Grid().Text(1, 1), before) << "act " << n;
        desk.onProgress([this](std::int64_t, std::int64_t) {
            meddle();
            return !dice.oneIn(6);
        });
        desk.clear();
        calm = false;
    }
    EXPECT_GT(deeds, ActsOfTheReckless / 20);
}
}  // namespace
}  // namespace kxVsGrid::testing
