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

/// A watcher that does not await the column goes on not to, as nobody acts meanwhile.
bool CellGrid::Impl::fillsUnheard(std::int32_t col) const {
    return (listening & ~Watched) == 0 && (!watcher || !watcher->awaits(col));
}

void CellGrid::Impl::fillUnheard(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) {
    const std::size_t count = std::min(texts.size(), static_cast<std::size_t>(rows() - firstRow));
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t row = firstRow + static_cast<std::int32_t>(i);
        const Effect effect = store.setCell(row, col, texts[i], tags.empty() ? std::string_view{} : tags[i]);
        if (effect != Effect::Nothing && !damage.all()) damageCell(row, col);
    }
}

void CellGrid::Fill(std::int32_t col, std::int32_t firstRow, std::span<const std::string_view> texts,
                    std::span<const std::string_view> tags) {
    impl_->requireFill(col, firstRow, texts, tags);
    held()->fill(col, firstRow, texts, tags);
}
}  // namespace kxVsGrid
