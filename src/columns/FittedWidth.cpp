#include "columns/FittedWidth.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>

#include "kxVsGrid/ColumnLayout.h"
#include "support/Text.h"

namespace kxVsGrid::columns {
namespace {

constexpr std::int32_t LeastOfSmallView = 3000;
constexpr std::int32_t Pixel = 15;  ///< of fonts whose glyphs reach beyond what they are measured as
/// No text of so many characters fits into the widest column.
constexpr std::size_t MostCharacters = 300;

/// Distinct texts by their length, a few of each length when there are many.
class Candidates {
  public:
    void add(std::string&& text) {
        if (text.empty()) return;
        auto& alike = byLength_[text.size()];
        if (count_ >= Many && alike.size() >= OfEachLength) return;
        if (alike.insert(std::move(text)).second) ++count_;
    }
    std::int32_t widest(const TextMetrics& metrics) const {
        if (byLength_.empty()) return 0;
        const std::size_t least = count_ < Many ? 0 : byLength_.rbegin()->first / 2;
        std::int32_t width = 0;
        for (auto length = byLength_.lower_bound(least); length != byLength_.end(); ++length)
            for (const std::string& text : length->second)
                width = std::max(width, metrics.textWidth(support::left(text, MostCharacters)));
        return width;
    }

  private:
    static constexpr std::size_t Many = 1000;
    static constexpr std::size_t OfEachLength = 64;
    std::map<std::size_t, std::unordered_set<std::string>> byLength_;
    std::size_t count_ = 0;
};
}  // namespace

std::int32_t fittedWidth(const CellGrid& grid, std::int32_t col, std::int32_t boxSide, const CellGrid* sums) {
    const bool boxes = grid.ColDataType(col) == flexDTBoolean;
    Candidates texts;
    for (std::int32_t row = grid.ShownRowAfter(-1); row >= 0 && row < grid.Rows() && col < grid.Cols();) {
        if (row < grid.FixedRows())
            texts.add(grid.Text(row, col));
        else if (!boxes)
            texts.add(grid.DisplayText(row, col));
        const std::int32_t next = grid.ShownRowAfter(row);
        if (next <= row) break;  // the last one
        row = next;
    }
    if (sums && col < sums->Cols() && sums->Rows() > 0) texts.add(sums->DisplayText(0, col));
    const TextMetrics& metrics = grid.Metrics();
    const std::int32_t content = std::max(texts.widest(metrics), boxes ? boxSide : 0);
    const std::int32_t most =
        std::min(std::max(grid.ClientWidth() / 2, LeastOfSmallView), ColumnLayout::Widest);
    return std::clamp(content + metrics.padding() + Pixel, NarrowestFit, most);
}
}  // namespace kxVsGrid::columns
