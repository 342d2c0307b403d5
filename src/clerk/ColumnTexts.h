// What the clerk sees of the cells of a column, each text once: what filters go by, and what he chooses among.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/CellGrid.h"
#include "support/DistinctTexts.h"
#include "support/Text.h"

namespace kxVsGrid::clerk {

/// The displayed text of a cell without blanks around it; of a tick 是 or 否.
std::string seenText(const CellGrid& grid, std::int32_t row, std::int32_t col);

class ColumnTexts {
  public:
    /// The text with this number is that of the cells that hold nothing.
    static constexpr std::uint32_t Nothing = 0;

    ColumnTexts(const CellGrid& grid, std::int32_t col);

    /// visit(row, number of the text) for the data rows that hold something in the column. Once.
    template <class Visit>
    void read(Visit visit) {
        const std::int32_t first = grid_.FixedRows();
        if (col_ == 0)  // row numbers are no texts that somebody wrote
            for (std::int32_t row = first; row < grid_.Rows(); ++row) visit(row, add(row));
        else
            grid_.ForEachText(col_, first, grid_.Rows() - 1, [&](std::int32_t row, std::string_view stored) {
                const std::uint32_t number = stored_.add(stored);
                if (number == seen_.size()) seen_.push_back(add(row));
                visit(row, seen_[number]);
            });
    }

    /// By number.
    std::size_t count() const { return texts_.size(); }
    const std::string& text(std::uint32_t number) const { return texts_[number]; }
    /// As it is stored in one of the cells that show it.
    const std::string& stored(std::uint32_t number) const { return samples_[number]; }

  private:
    std::uint32_t add(std::int32_t row);
    std::uint32_t add(std::string text, std::string stored);

    const CellGrid& grid_;
    std::int32_t col_;
    support::DistinctTexts stored_;
    std::vector<std::uint32_t> seen_;  ///< the number of what is seen of each stored text
    support::DistinctTexts numbers_;
    std::vector<std::string> texts_;
    std::vector<std::string> samples_;
};
}  // namespace kxVsGrid::clerk
