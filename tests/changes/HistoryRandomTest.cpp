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

/// Cells as they were written, one after the other.
using Written = std::vector<std::pair<RowId, std::int32_t>>;

/// The grid beside a step, and what the step wrote.
struct SeenStep {
    SeenGrid grid;
    Written written;
};

constexpr int Acts = 100'000;  // with single writes heard, and as many without

class RandomHistory : public RandomClerk, public ChangeListener {
  protected:
    RandomHistory() {
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = consent || stepOpen; });
        vs().AddListener(*this);
        grid.Changes().After.connect([this](const StepChanges& changes) {
            ASSERT_TRUE(changes.known);
            if (changes.cause == Cause::Undo) return;
            undone.clear();
            done.push_back({std::move(before), written_});
        });
    }
    ~RandomHistory() override { vs().RemoveListener(*this); }

    void stepOpened(std::string_view, Cause) noexcept override {
        stepOpen = true;
        before = seen();
        written_.clear();
        back_ = RowId::None;
    }
    void stepClosed(std::string_view, Cause) noexcept override { stepOpen = false; }

    bool hearsFilled() const noexcept override { return !GetParam(); }
    void written(std::int32_t row, std::int32_t col, CellPart, std::string_view,
                 std::string_view) noexcept override {
        written_.emplace_back(vs().IdOf(row), col);
    }
    void filled(std::int32_t row, std::int32_t col, std::uint32_t texts, std::uint32_t) noexcept override {
        for (std::int32_t i = 0; i < 32; ++i)
            if ((texts >> i & 1) != 0) written_.emplace_back(vs().IdOf(row), col + i);
    }
    void cleared(std::int32_t first, std::int32_t last) noexcept override {
        vs().ForEachCell(first, last, [this](auto row, auto col, auto, auto) {
            written_.emplace_back(vs().IdOf(row), col);
        });
    }
    void added(std::int32_t at, std::int32_t) noexcept override {
        if (back_ == RowId::None) back_ = vs().IdOf(at);
    }

    SeenGrid seen() {
        SeenGrid now;
        for (std::int32_t r = 0; r < vs().Rows(); ++r) {
            SeenRow row{{}, vs().RowHeight(r), vs().RowHidden(r), vs().MergeRow(r)};
            for (std::int32_t c = 1; c < vs().Cols(); ++c)  // row numbers follow the rows by themselves
                row.cells.push_back(
                    {{}, {}, vs().CellForeColor(r, c), vs().CellBackColor(r, c), vs().CellAlignment(r, c)});
            now.rows.push_back(std::move(row));
        }
        vs().ForEachCell(0, vs().Rows() - 1, [&](auto r, auto c, auto text, auto tag) {
            if (c == 0) return;
            SeenCell& cell = now.rows[static_cast<std::size_t>(r)].cells[static_cast<std::size_t>(c - 1)];
            cell.text = text;
            cell.tag = tag;
        });
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
        written_.clear();
        write();
        vs().TellFilled();
        if (!done.empty())
            done.back().written.insert(done.back().written.end(), written_.begin(), written_.end());
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
        ASSERT_EQ(grid.History().CanUndo(), !done.empty());
        if (done.empty()) return;
        goBack(done, undone, [this] { return grid.History().Undo(); });
        ++undos;
    }
    void redo() {
        ASSERT_EQ(grid.History().CanRedo(), !undone.empty());
        if (undone.empty()) return;
        goBack(undone, done, [this] { return grid.History().Redo(); });
    }
    template <class Go>
    void goBack(std::vector<SeenStep>& from, std::vector<SeenStep>& to, Go go) {
        const SeenStep expected = std::move(from.back());
        from.pop_back();
        SeenGrid now = seen();
        ASSERT_TRUE(go());
        to.push_back({std::move(now), written_});
        compare(expected.grid);
        comparePlace(expected.written);
    }
    /// The first cell that the step wrote and that is there, or the first row that came back.
    void comparePlace(const Written& written) {
        for (const auto& [id, col] : written) {
            const std::int32_t row = vs().RowOf(id);
            if (row < vs().FixedRows() || col < vs().FixedCols()) continue;
            ASSERT_EQ(vs().Row(), row);
            ASSERT_EQ(vs().Col(), col);
            ++places;
            return;
        }
        if (vs().RowOf(back_) < 0) return;
        ASSERT_EQ(vs().Row(), vs().RowOf(back_));
        ++places;
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

    std::vector<SeenStep> done;    ///< with the grid before each step that stands
    std::vector<SeenStep> undone;  ///< and after each that was undone
    SeenGrid before;
    Written written_;           ///< since the last step began
    RowId back_ = RowId::None;  ///< the first row that has come since then
    bool stepOpen = false;
    int undos = 0;
    int places = 0;
};

TEST_P(RandomHistory, AgreesWithOneThatKeepsWholeGrids) {
    for (int n = 0; n < Acts; ++n) {
        act();
        if (HasFailure()) {
            ADD_FAILURE() << "act " << n;
            return;
        }
    }
    EXPECT_GT(undos, Acts / 20);
    EXPECT_GT(places, Acts / 20);
}
INSTANTIATE_TEST_SUITE_P(HeardOrNot, RandomHistory, ::testing::Bool());
}  // namespace
}  // namespace kxVsGrid::testing
