#include "cellgrid/frame/RunOver.h"

#include <string>

namespace kxVsGrid::cellgrid {
namespace {

/// What a painter's own measure may differ by.
constexpr std::int32_t Slack = 30;

class Finder {
  public:
    Finder(const CellGrid& grid, std::int32_t row, std::span<const Band> cols)
        : grid_(grid), row_(row), cols_(cols) {
        for (const Band& col : cols) {
            texts_.push_back(grid.DisplayText(row, col.index));
            found_.push_back({found_.size(), found_.size()});
        }
    }

    std::vector<Stretch> find() {
        std::size_t free = 0;  // cells before it are taken
        for (std::size_t col = 0; col < cols_.size(); ++col) {
            if (texts_[col].empty()) continue;
            found_[col] = stretchOf(col, free);
            free = found_[col].lastCol + 1;
        }
        return std::move(found_);
    }

  private:
    Stretch stretchOf(std::size_t col, std::size_t free) const {
        const Stretch own{col, col};
        const std::int64_t needed =
            std::int64_t{grid_.Metrics().textWidth(texts_[col])} + std::int64_t{2} * TextMargin + Slack;
        if (needed <= cols_[col].size) return own;
        const int side = grid_.EffectiveAlignment(row_, cols_[col].index) / 3;
        const bool toLeft = side != 0;
        const bool toRight = side != 2;
        const std::int64_t beside = (needed - cols_[col].size) / (toLeft && toRight ? 2 : 1);
        Stretch stretch = own;
        std::int64_t left = toLeft ? beside : 0;
        std::int64_t right = toRight ? beside : 0;
        for (; left > 0 && stretch.firstCol > free; left -= cols_[stretch.firstCol].size) --stretch.firstCol;
        while (right > 0 && stretch.lastCol + 1 < cols_.size() && texts_[stretch.lastCol + 1].empty())
            right -= cols_[++stretch.lastCol].size;
        return stretch;
    }

    const CellGrid& grid_;
    std::int32_t row_;
    std::span<const Band> cols_;
    std::vector<std::string> texts_;
    std::vector<Stretch> found_;
};
}  // namespace

std::vector<Stretch> stretches(const CellGrid& grid, std::int32_t row, std::span<const Band> cols) {
    return Finder(grid, row, cols).find();
}
}  // namespace kxVsGrid::cellgrid
