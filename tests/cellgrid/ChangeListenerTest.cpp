// The stream of changes: a copy that is kept by it alone is the grid, whatever is done to the grid.
#include "kxVsGrid/ChangeListener.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "kit/AnyOrder.h"
#include "kit/Dice.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

struct CopiedCell {
    std::string text;
    std::string tag;
    friend bool operator==(const CopiedCell&, const CopiedCell&) = default;
};

/// What is stored in a grid, as the stream tells it.
class Copy : public ChangeListener {
  public:
    Copy(CellGrid& grid, bool filledAtOnce)
        : grid_(grid),
          filledAtOnce_(filledAtOnce),
          rows(static_cast<std::size_t>(grid.Rows()),
               std::vector<CopiedCell>(static_cast<std::size_t>(grid.Cols()))) {
        grid.AddListener(*this);
    }
    ~Copy() override { grid_.RemoveListener(*this); }

    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override {
        CopiedCell& cell = rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(col));
        std::string& held = part == CellPart::Text ? cell.text : cell.tag;
        right = right && held == before && before != after;
        held = after;
    }
    bool hearsFilled() const noexcept override { return filledAtOnce_; }
    void filled(std::int32_t row, std::int32_t col, std::uint32_t texts,
                std::uint32_t tags) noexcept override {
        right = right && (texts | tags) != 0;
        for (std::int32_t i = 0; i < 32; ++i) {
            if (((texts | tags) >> i & 1) == 0) continue;
            CopiedCell& cell = rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(col + i));
            right = right && cell == CopiedCell{};
            cell = {grid_.Text(row, col + i), grid_.Data(row, col + i)};
            right = right && cell.text.empty() == ((texts >> i & 1) == 0);
            right = right && cell.tag.empty() == ((tags >> i & 1) == 0);
        }
    }
    void added(std::int32_t at, std::int32_t count) noexcept override {
        rows.insert(rows.begin() + at, static_cast<std::size_t>(count), std::vector<CopiedCell>(cols()));
        right = right && rows.size() == static_cast<std::size_t>(grid_.Rows());
    }
    void removing(std::int32_t at, std::int32_t count) noexcept override {
        right = right && rows.size() == static_cast<std::size_t>(grid_.Rows());
        rows.erase(rows.begin() + at, rows.begin() + at + count);
    }
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override {
        const auto old = rows;
        for (std::size_t i = 0; i < from.size(); ++i)
            rows[static_cast<std::size_t>(first) + i] = old[static_cast<std::size_t>(from[i])];
    }
    void cleared(std::int32_t first, std::int32_t last) noexcept override {
        for (std::int32_t r = first; r <= last; ++r)
            rows[static_cast<std::size_t>(r)].assign(cols(), CopiedCell{});
    }
    void columnsChanged() noexcept override {
        for (auto& row : rows) row.resize(cols());
    }

    bool right = true;  ///< every text before was the one that was held

  private:
    std::size_t cols() const { return static_cast<std::size_t>(grid_.Cols()); }
    CellGrid& grid_;
    bool filledAtOnce_;

  public:
    std::vector<std::vector<CopiedCell>> rows;
};

enum class Hearing { Alone, WithTheEvent, FilledAtOnce };

class RandomChanges : public ::testing::TestWithParam<Hearing> {
  protected:
    void SetUp() override {
        grid.Resize(6000, 3000);
        if (GetParam() == Hearing::WithTheEvent)
            grid.CellChanged.connect([this](std::int32_t r, std::int32_t c) { compareHeard(r, c); });
    }
    std::int32_t anyRow() { return dice.index(grid.Rows()); }
    std::int32_t anyCol() { return dice.between(0, grid.Cols() - 1); }
    std::string anyText() { return dice.oneIn(4) ? std::string() : dice.text(); }
    const CopiedCell& held(std::int32_t r, std::int32_t c) const {
        return copy->rows.at(static_cast<std::size_t>(r)).at(static_cast<std::size_t>(c));
    }
    /// Who hears of the event finds the copy up to date.
    void compareHeard(std::int32_t r, std::int32_t c) {
        if (r < grid.Rows() && c > 0 && !computed) {
            EXPECT_EQ(grid.Text(r, c), held(r, c).text);
            EXPECT_EQ(grid.Data(r, c), held(r, c).tag);
        }
    }

    void operate() {
        if (grid.Rows() == 0) return grid.Rows(5);
        const std::int32_t r = anyRow();
        const std::int32_t c = anyCol();
        const int choice = dice.between(0, 199);
        if (choice < 60) return grid.Text(r, c, anyText());
        if (choice < 90) return grid.Data(r, c, anyText());
        if (choice < 130) {
            for (std::int32_t at = c; at < grid.Cols() && dice.between(0, 3) > 0; ++at)
                grid.Cell(r, at, anyText(), anyText());
            return;
        }
        if (choice < 140) return grid.RestoreData(r, c, anyText());
        if (choice < 160) return grid.InsertRow(r);
        if (choice < 183) return removeRow(r);
        if (choice < 187) return static_cast<void>(grid.IdOf(r));
        if (choice < 190) {
            const kit::AnyOrder order(dice, grid.FixedRows(), grid.Rows());
            return grid.Reorder(order.first, order.from);
        }
        rare(r, c);
    }
    void removeRow(std::int32_t r) {
        if (grid.Rows() <= grid.FixedRows()) return;
        const RowId id = dice.oneIn(3) ? grid.IdOf(r) : grid.KnownId(r);
        grid.RemoveRow(r);
        if (id == RowId::None || dice.oneIn(2)) return;
        const std::int32_t back = dice.between(0, grid.Rows());
        grid.BringRowBack(back, id);
        ASSERT_EQ(grid.RowOf(id), back);
        ASSERT_EQ(grid.KnownId(back), id);
    }
    void rare(std::int32_t r, std::int32_t c) {
        switch (dice.between(0, 30)) {
            case 0:
                return grid.Cols(std::max(grid.FixedCols(), dice.between(1, 9)));
            case 1:
                return grid.FixedRows(dice.between(0, std::min(3, grid.Rows())));
            case 2:
                return grid.FixedCols(dice.between(0, std::min(2, grid.Cols())));
            case 3:
                computed = true;
                return grid.ComputedText(r, c, [] { return "computed"; });
            case 4:
                return grid.ColFormat(c, dice.oneIn(2) ? "#,##0.00" : "");
            case 5:
                return grid.FormatString("a|<b|c;row|<other");
            case 6:
            case 7:
                return grid.NumberRows();
            case 8:
            case 9:
                return grid.ClearText(r, std::min(r + dice.between(0, 20), grid.Rows() - 1));
            default:
                return grid.Rows(std::max(grid.FixedRows(), dice.between(1, dice.oneIn(10) ? 300 : 40)));
        }
    }
    void compareEverything() {
        grid.TellFilled();
        ASSERT_TRUE(copy->right);
        ASSERT_EQ(copy->rows.size(), static_cast<std::size_t>(grid.Rows()));
        std::vector<std::vector<CopiedCell>> stored(
            static_cast<std::size_t>(grid.Rows()),
            std::vector<CopiedCell>(static_cast<std::size_t>(grid.Cols())));
        grid.ForEachCell(0, grid.Rows() - 1, [&](auto r, auto c, auto text, auto tag) {
            stored[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] = {std::string(text),
                                                                                std::string(tag)};
        });
        ASSERT_TRUE(stored == copy->rows);
        for (std::int32_t r = 0; r < grid.Rows() && !computed; ++r) {
            for (std::int32_t c = 1; c < grid.Cols(); ++c) {
                ASSERT_EQ(grid.Text(r, c), held(r, c).text);
                ASSERT_EQ(grid.Data(r, c), held(r, c).tag);
            }
        }
    }

    kit::Dice dice;
    CellGrid grid;
    std::unique_ptr<Copy> copy = std::make_unique<Copy>(grid, GetParam() == Hearing::FilledAtOnce);
    bool computed = false;  ///< some cells show what is not stored
};

TEST_P(RandomChanges, KeepACopyThatIsTheGrid) {
    for (int operation = 0; operation < 500'000; ++operation) {
        operate();
        if (operation % 2'000 == 0) compareEverything();
        if (HasFailure()) {
            ADD_FAILURE() << "operation " << operation;
            return;
        }
    }
    compareEverything();
}
INSTANTIATE_TEST_SUITE_P(Listening, RandomChanges,
                         ::testing::Values(Hearing::Alone, Hearing::WithTheEvent, Hearing::FilledAtOnce));

class Counting : public ChangeListener {
  public:
    void written(std::int32_t, std::int32_t, CellPart, std::string_view, std::string_view) noexcept override {
        ++writes;
        if (whenWritten) whenWritten();
    }
    int writes = 0;
    std::function<void()> whenWritten;
};

TEST(ChangeListeners, MayBeDestroyedWhileTheyAreTold) {
    CellGrid grid;
    auto first = std::make_unique<Counting>();
    Counting second;
    Counting late;
    grid.AddListener(*first);
    grid.AddListener(second);
    first->whenWritten = [&] {
        grid.AddListener(late);
        grid.RemoveListener(*first);
        const auto ended = std::move(first);
    };
    grid.Text(1, 1, "a");
    EXPECT_EQ(second.writes, 1);
    EXPECT_EQ(late.writes, 0);
    grid.Cell(1, 1, "b", "tag");
    EXPECT_EQ(second.writes, 3);
    EXPECT_EQ(late.writes, 2);
    grid.RemoveListener(second);
    grid.RemoveListener(late);
    grid.RemoveListener(late);
    grid.Text(1, 1, "c");
    EXPECT_EQ(second.writes, 3);
}

TEST(ChangeListeners, HearOnlyOfWhatHasChanged) {
    CellGrid grid;
    Counting listener;
    grid.Text(1, 1, "a");
    grid.AddListener(listener);
    grid.Text(1, 1, "a");
    grid.Data(1, 1, "");
    grid.ComputedText(2, 1, [] { return "x"; });
    grid.Text(2, 1, "");
    EXPECT_EQ(listener.writes, 0);
    grid.RemoveListener(listener);
}

TEST(RowsThatComeBack, AreTheirOwnAgain) {
    CellGrid grid;
    const RowId id = grid.IdOf(3);
    grid.RemoveRow(3);
    EXPECT_THROW(grid.BringRowBack(1, RowId{999}), GridError) << "never was one";
    grid.BringRowBack(2, id);
    EXPECT_EQ(grid.RowOf(id), 2);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_THROW(grid.BringRowBack(2, id), GridError) << "it is there";
}
}  // namespace
}  // namespace kxVsGrid
