// Random work of a clerk and a host, undone and redone at random, beside a history that keeps the whole grid
// before each step.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kit/PlacedGrid.h"
#include "kit/Random.h"

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

class RandomHistory : public PlacedGrid, public ChangeListener {
  protected:
    static constexpr std::int32_t Number = 2, Defaulted = 4, Toggled = 5;

    RandomHistory() {
        grid.Cols(6);
        summed(Number);
        column(Defaulted).sDefaultText_Name("default");
        column(Defaulted).sDefaultText_Code("code");
        column(Toggled).iType(flexDTBoolean);
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = adds || stepOpen; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.AfterAddRow.connect([this](bool& keep, auto...) { keep = dice.oneIn(2); });
        grid.AfterEdit.connect([this](std::int32_t row, std::int32_t) {
            if (dice.oneIn(3)) grid.SetCell(row, 3, anyText(), anyText());
        });
        setUp();
        vs().NumberRows();
        desk.focusGrid();
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

    std::int32_t roll(std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(dice.between(from, to));
    }
    std::int32_t anyRow() { return roll(1, vs().Rows() - 1); }
    std::int32_t anyCol() { return roll(1, 5); }
    std::string anyText() {
        switch (roll(0, 4)) {
            case 0:
                return "";
            case 1:
                return "a text that is longer than a slot";
            default:
                return std::to_string(roll(1, 300));
        }
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
    void type() {
        vs().Select(anyRow(), anyCol());
        if (vs().Col() == Toggled) return static_cast<void>(desk.type(" "));
        const bool wrong = dice.oneIn(5);
        desk.type(wrong ? "19x5" : std::to_string(roll(1, 300)));
        desk.press(dice.oneIn(6) ? Key::Escape : Key::Enter);
        if (desk.editor().visible) desk.press(Key::Escape);
    }
    void rowKey() {
        adds = true;
        desk.press(vs().Rows() < 12 && dice.oneIn(2) ? Key::Insert : Key::Delete);
        adds = false;
    }
    void choose() {
        static const std::vector<std::string> Items{"新增行", "复制行", "插入行", "复制插入行"};
        vs().Select(anyRow(), roll(1, 4));
        const bool fills = vs().Rows() >= 12 || dice.oneIn(3);
        const std::string item = Items[static_cast<std::size_t>(roll(0, 3))];
        desk.onPopup([&](headless::PoppedMenu& menu) {
            if (!fills) return menu.choose(item);
            menu.choose("填充列", vs().Col() == Number ? "序列方式填充" : "复制单元格");
        });
        adds = true;
        desk.press(Key::Menu);
        adds = false;
    }
    void write() {
        switch (roll(0, 8)) {
            case 0:
                if (vs().Rows() < 12) vs().InsertRow(anyRow());
                return;
            case 1:
                if (vs().Rows() > 6) vs().RemoveRow(anyRow());
                return;
            case 2:
                return grid.Rows(roll(6, 10));
            case 3:
                return vs().ClearText(anyRow(), vs().Rows() - 1);
            default:
                return grid.SetCell(anyRow(), anyCol(), anyText(), anyText());
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

    kit::Random dice;
    std::vector<SeenGrid> done;    ///< the grid before each step that stands
    std::vector<SeenGrid> undone;  ///< and after each that was undone
    SeenGrid before;
    bool adds = false;
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
