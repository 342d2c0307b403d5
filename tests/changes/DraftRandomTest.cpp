// Any acts on a grid while its draft is written, by slices and anew, to a sink that fails and tears: what was kept
// is the state of the grid, and cut anywhere it is a state that the grid was in.
#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "kit/Random.h"
#include "kxVsGrid/Draft.h"
#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::testing {
namespace {

constexpr std::int32_t DraftCols = 4;
constexpr int ActsOnADraft = 120;

using Cells = std::vector<std::vector<std::pair<std::string, std::string>>>;  ///< texts and tags by row

Cells cellsOf(const CellGrid& grid) {
    Cells cells;
    for (std::int32_t row = grid.FixedRows(); row < grid.Rows(); ++row) {
        auto& line = cells.emplace_back();
        for (std::int32_t col = 1; col < DraftCols; ++col)
            line.emplace_back(grid.Text(row, col), grid.Data(row, col));
    }
    return cells;
}

class DraftOfAnything : public ::testing::Test {
  protected:
    DraftOfAnything() {
        grid_.Cols(DraftCols);
        grid_.Rows(9);
        fill();
        begin();
        grid_.Changes().After.connect([this](const StepChanges&) { note(); });
    }
    void fill() {
        for (std::int32_t row = 1; row < grid_.Rows(); ++row) grid_.SetCell(row, 1, word(), word());
    }
    std::string word() {
        return std::string(static_cast<std::size_t>(random_.between(0, 9)), random_.anyOf("ab\t\n\\"));
    }
    std::int32_t anyRow() { return static_cast<std::int32_t>(random_.between(1, grid_.Rows() - 1)); }
    std::int32_t anyCol() { return static_cast<std::int32_t>(random_.between(1, DraftCols - 1)); }
    void begin() {
        keeps_ = true;
        draft_.begin("key", std::to_string(random_.between(1, 9)));
        document_ = cellsOf(grid_.Grid());
        kept_.clear();
        note();
    }
    /// Another file, as a sink has one that grew too long.
    void rewrite() {
        std::string shorter;
        const bool done = draft_.rewrite([&](std::string_view all) {
            shorter = all.substr(0, keeps_ ? all.size() : all.size() / 2);
            return keeps_;
        });
        ASSERT_EQ(done, keeps_);
        if (!done) return;
        bytes_ = shorter;
        kept_.clear();
    }
    void step() {
        const auto step = grid_.Step("几格");
        for (int i = 0; i < 3; ++i) act(random_.between(0, 4));
    }
    void reorder() {
        CellGrid& cells = grid_.Grid();
        const std::int32_t first = anyRow();
        const auto count = static_cast<std::int32_t>(random_.between(1, cells.Rows() - first));
        if (random_.oneIn(2))
            return cells.MoveRows(first, count,
                                  static_cast<std::int32_t>(random_.between(1, cells.Rows() - count)));
        std::vector<std::int32_t> from;
        for (std::int32_t row = first + count - 1; row >= first; --row) from.push_back(row);
        cells.Reorder(first, from);
    }
    void act(std::int64_t what) {
        CellGrid& cells = grid_.Grid();
        switch (what) {
            case 0:
                cells.Text(anyRow(), anyCol(), word());
                break;
            case 1:
                cells.Cell(anyRow(), anyCol(), word(), word());
                break;
            case 2:
                cells.InsertRow(static_cast<std::int32_t>(random_.between(1, cells.Rows())));
                break;
            case 3:
                if (random_.oneIn(2))
                    reorder();
                else if (cells.Rows() > 4)
                    cells.RemoveRow(anyRow());
                break;
            case 4:
                cells.ClearText(anyRow(), cells.Rows() - 1);
                break;
            case 5:
                step();
                break;
            case 6:
                grid_.History().Undo();
                break;
            case 7:
                grid_.History().Redo();
                break;
            case 8:
                draft_.writeSlice();
                break;
            case 9:
                draft_.put("name", word());
                break;
            case 10:
                rewrite();
                break;
            case 11:
                if (random_.oneIn(4)) begin();
                break;
            default:
                keeps_ = !keeps_;
        }
    }
    void note() {
        seen_.push_back(cellsOf(grid_.Grid()));
        if (draft_.kept()) kept_[bytes_.size()] = seen_.size() - 1;
    }
    Cells recovered(std::string_view bytes, bool document) {
        headless::Desk desk;
        kxGrid& other = desk.place();
        other.Cols(DraftCols);
        other.Grid().Rows(static_cast<std::int32_t>(document_.size()) + 1);
        for (std::size_t row = 0; row < document_.size(); ++row)
            for (std::size_t col = 0; col < document_[row].size(); ++col)
                other.Grid().Cell(static_cast<std::int32_t>(row) + 1, static_cast<std::int32_t>(col) + 1,
                                  document_[row][col].first, document_[row][col].second);
        const DraftInfo info = recoverDraft(other.Grid(), bytes, document);
        EXPECT_EQ(info.refusal, "");
        return cellsOf(other.Grid());
    }
    void check() {
        const Cells now = cellsOf(grid_.Grid());
        ASSERT_EQ(recovered(bytes_, true), now);
        const DraftInfo info = lookAtDraft(bytes_);
        ASSERT_EQ(info.damage, "");
        if (info.whole) {
            ASSERT_EQ(recovered(bytes_, false), now);
        }
    }
    void cut() {
        const std::size_t at = static_cast<std::size_t>(random_.between(
            static_cast<std::int64_t>(kept_.begin()->first), static_cast<std::int64_t>(bytes_.size())));
        // a sink that tears may have kept more than it says
        const auto first =
            seen_.begin() + static_cast<std::ptrdiff_t>(std::prev(kept_.upper_bound(at))->second);
        const Cells found = recovered(std::string_view(bytes_).substr(0, at), true);
        ASSERT_NE(std::find(first, seen_.end(), found), seen_.end()) << "cut at " << at;
    }

    kit::Random random_;
    headless::Desk desk_;
    kxGrid& grid_ = desk_.place();
    std::string bytes_;
    bool keeps_ = true;
    Cells document_;
    std::vector<Cells> seen_;                  ///< after each step
    std::map<std::size_t, std::size_t> kept_;  ///< which of them, by how many bytes were kept
    Draft draft_{grid_.Grid(), [this](std::string_view more) {
                     bytes_ += more.substr(0, keeps_ ? more.size() : more.size() / 2);
                     return keeps_;
                 }};
};

TEST_F(DraftOfAnything, IsTheGridAsItWasAfterTheLastOfItsSteps) {
    for (int i = 0; i < ActsOnADraft && !HasFatalFailure(); ++i) {
        act(random_.between(0, 12));
        if (HasFatalFailure()) return;
        draft_.flush();
        note();
        if (!draft_.kept()) continue;
        check();
        if (HasFatalFailure()) return;
        cut();
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
