// Writing the cells of a column in one go: without looking at what each write might bring about, as far as
// none can bring anything about.
#include <algorithm>
#include <string>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

using Effect = cellgrid::CellStore::Effect;

void CellGrid::Impl::requireFill(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) const {
    requireCol("Fill", col);
    if (!tags.empty() && tags.size() != texts.size())
        cellgrid::misuse("Fill", static_cast<std::int64_t>(tags.size()),
                         "tags are not one for each of " + std::to_string(texts.size()) + " texts");
    if (texts.empty()) return;
    requireRow("Fill", firstRow);
    if (texts.size() > static_cast<std::size_t>(rows() - firstRow))
        cellgrid::misuse("Fill", static_cast<std::int64_t>(texts.size()),
                         "texts are more than there are rows from " + std::to_string(firstRow) + " on");
}

/// Listeners may do anything: whether the next cell is there, and whether somebody hears of it, is found out
/// for each one then.
void CellGrid::Impl::fill(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) {
    for (std::size_t i = 0; i < texts.size() && there; ++i) {
        const std::int32_t row = firstRow + static_cast<std::int32_t>(i);
        if (!holds(row, col)) return;
        if (fillsUnheard(col))
            return fillUnheard(col, row, texts.subspan(i), tags.empty() ? tags : tags.subspan(i));
        grid.Cell(row, col, texts[i], tags.empty() ? std::string_view{} : tags[i]);
    }
}

/// Cells that the picture shows are damaged one by one, by what becomes of each.
void CellGrid::Impl::fillUnheard(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) {
    const std::int32_t stop = firstRow + static_cast<std::int32_t>(std::min(
                                             texts.size(), static_cast<std::size_t>(rows() - firstRow)));
    for (std::int32_t row = firstRow; row < stop;) {
        const auto from = static_cast<std::size_t>(row - firstRow);
        const std::int32_t unseen = std::min(stop, unseenEnd(row, col));
        const auto n = static_cast<std::size_t>(std::max(unseen - row, 1));
        const Texts some = texts.subspan(from, n);
        const Texts theirTags = tags.empty() ? tags : tags.subspan(from, n);
        if (unseen > row)
            store.fill(col, row, some, theirTags);
        else if (store.setCell(row, col, some[0], tags.empty() ? std::string_view{} : theirTags[0]) !=
                 Effect::Nothing)
            damageCell(row, col);
        row += static_cast<std::int32_t>(n);
    }
}

void CellGrid::Fill(std::int32_t col, std::int32_t firstRow, std::span<const std::string_view> texts,
                    std::span<const std::string_view> tags) {
    impl_->requireFill(col, firstRow, texts, tags);
    held()->fill(col, firstRow, texts, tags);
}
}  // namespace kxVsGrid
