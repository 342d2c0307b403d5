// Random work of a clerk and a host, undone and redone at random, beside a history that keeps the whole grid
// before each step.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "changes/RandomClerk.h"

namespace kxVsGrid::testing {
namespace {

struct SeenCell {
    std::string text;
    std::string tag;
    std::optional<std::uint32_t> foreColor;
    std::optional<std::uint32_t> backColor;
    std::optional<mEmflexAlign> alignment;
    friend bool operator==(const SeenCell&, const SeenCell&) = default;
};

struct SeenRow {
    std::vector<SeenCell> cells;
    std::int32_t height = 0;
    bool hidden = false;
    bool merged = false;
    friend bool operator==(const SeenRow&, const SeenRow&) = default;
};

/// All that an undo brings back.
struct SeenGrid {
    std::vector<SeenRow> rows;
    friend bool operator==(const SeenGrid&, const SeenGrid&) = default;
};

class RandomHistory : public RandomClerk, public ChangeListener {
  protected:
    RandomHistory() {
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = consent || stepOpen; });
        vs().AddListener(*this);
        grid.Changes().After.connect([this](const StepChanges& changes) {
            ASSERT_TRUE(changes.known);
            if (changes.cause == Cause::Undo) return;
            undone.clear();
            done.push_back(std::move(before));
        });
    }
    ~RandomHistory() override { vs().RemoveListener(*this); }

    void stepOpened(std::string_view, Cause) noexcept override {
        stepOpen = true;
        before = seen();
    }
    void stepClosed(std::string_view, Cause) noexcept override { stepOpen = false; }

    SeenGrid seen() {
        SeenGrid now;
        for (std::int32_t r = 0; r < vs().Rows(); ++r) {
            SeenRow row{{}, vs().RowHeight(r), vs().RowHidden(r), vs().MergeRow(r)};
            for (std::int32_t c = 1; c < vs().Cols(); ++c)  // row numbers follow the rows by themselves
                row.cells.push_back({vs().Text(r, c), vs().Data(r, c), vs().CellForeColor(r, c),
                                     vs().CellBackColor(r, c), vs().CellAlignment(r, c)});
            now.rows.push_back(std::move(row));
        }
        return now;
    }

    void act() {
        switch (roll(0, 16)) {
            case 0:
            case 1:
            case 2:
                return type();
            case 3:
                return static_cast<void>(vs().Select(anyRow(), anyCol()));
            case 4:
                return rowKey();
            case 5:
                return choose();
            case 6:
                return outside();
            case 7:
                return hostStep();
            case 8:
                if (dice.oneIn(20)) dress();
                return;
            case 9:
            case 10:
            case 11:
            case 12:
                return undo();
            default:
                return redo();
        }
    }
    /// What is written outside of steps joins the newest one, and ends what can be redone.
    void outside() {
        const SeenGrid then = seen();
        write();
        grid.RecalculateTotals();
        if (seen() != then) undone.clear();
        ASSERT_LE(grid.History().CanRedo(), !undone.empty());
        if (!grid.History().CanRedo()) undone.clear();  // a row that came and went
    }
    void hostStep() {
        const SeenGrid then = seen();
        auto step = grid.Step("by the host");
        for (int n = roll(1, 6); n > 0; --n) write();
        grid.RecalculateTotals();
        if (!dice.oneIn(3)) return;
        ASSERT_TRUE(step.takeBack());
        compare(then);
        undone.clear();
    }
    /// The look of rows is no change of its own.
    void dress() {
        const std::int32_t row = anyRow();
        vs().RowHeight(row, 100 * roll(1, 9));
        vs().MergeRow(row, dice.oneIn(2));
        vs().CellBackColor(row, anyCol(), static_cast<std::uint32_t>(roll(0, 9)));
        vs().CellAlignment(row, anyCol(), flexAlignLeftTop);
        grid.History().Forget();
        done.clear();
        undone.clear();
    }
    void undo() {
        const bool possible = !done.empty();
        ASSERT_EQ(grid.History().CanUndo(), possible);
        if (!possible) return;
        undone.push_back(seen());
        const SeenGrid expected = std::move(done.back());
        done.pop_back();
        ASSERT_TRUE(grid.History().Undo());
        compare(expected);
        ++undos;
    }
    void redo() {
        const bool possible = !undone.empty();
        ASSERT_EQ(grid.History().CanRedo(), possible);
        if (!possible) return;
        done.push_back(seen());
        const SeenGrid expected = std::move(undone.back());
        undone.pop_back();
        ASSERT_TRUE(grid.History().Redo());
        compare(expected);
    }
    void compare(const SeenGrid& expected) {
        const SeenGrid now = seen();
        ASSERT_EQ(now.rows.size(), expected.rows.size());
        for (std::size_t r = 0; r < now.rows.size(); ++r) {
            for (std::size_t c = 0; c < now.rows[r].cells.size(); ++c) {
                ASSERT_EQ(now.rows[r].cells[c].text, expected.rows[r].cells[c].text) << r << ", " << c;
                ASSERT_EQ(now.rows[r].cells[c].tag, expected.rows[r].cells[c].tag) << r << ", " << c;
            }
            ASSERT_TRUE(now.rows[r] == expected.rows[r]) << "the look of row " << r;
        }
        ASSERT_EQ(grid.ReadSum(Number), std::to_string(static_cast<int>(vs().ColumnSum(Number))));
    }

    std::vector<SeenGrid> done;    ///< the grid before each step that stands
    std::vector<SeenGrid> undone;  ///< and after each that was undone
    SeenGrid before;
    bool stepOpen = false;
    int undos = 0;
};

TEST_F(RandomHistory, AgreesWithOneThatKeepsWholeGrids) {
    for (int n = 0; n < 20'000; ++n) {
        act();
        if (HasFailure()) {
            ADD_FAILURE() << "act " << n;
            return;
        }
    }
    EXPECT_GT(undos, 1'000);
}
}  // namespace
}  // namespace kxVsGrid::testing
