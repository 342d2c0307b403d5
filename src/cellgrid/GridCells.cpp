// Writing cells: the watcher hears first, the picture and CellChanged afterwards, and only of real changes.
#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

using Effect = cellgrid::CellStore::Effect;

void CellGrid::Impl::setText(std::int32_t row, std::int32_t col, std::string_view text) {
    if (watcher) [[unlikely]] {
        if (store.effectOfText(row, col, text) == Effect::Nothing) return;
        watcher->contentWillChange(col);
    }
    const Effect effect = store.setText(row, col, text);
    if (effect == Effect::Nothing) return;
    if (!damage.all()) damageCell(row, col);
    if (effect == Effect::Changed) grid.CellChanged(row, col);
}

void CellGrid::Text(std::int32_t row, std::int32_t col, std::string_view text) {
    impl_->requireCell("Text", row, col);
    impl_->setText(row, col, text);
}

void CellGrid::Data(std::int32_t row, std::int32_t col, std::string_view data) {
    impl_->requireCell("Data", row, col);
    if (impl_->store.setTag(row, col, data)) CellChanged(row, col);
}

void CellGrid::DataUntold(std::int32_t row, std::int32_t col, std::string_view data) {
    impl_->requireCell("Data", row, col);
    impl_->store.setTag(row, col, data);
}

bool CellGrid::Cell(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& data) {
    Impl& impl = *impl_;
    const auto holds = [&] {
        return static_cast<std::uint32_t>(row) < static_cast<std::uint32_t>(impl.rows()) &&
               static_cast<std::uint32_t>(col) < static_cast<std::uint32_t>(impl.cols());
    };
    if (!holds()) return false;
    if (impl.watcher || CellChanged.heard()) [[unlikely]] {
        if (impl.store.setTag(row, col, data)) {
            const auto kept = held();
            CellChanged(row, col);
            if (!kept->there || !holds()) return false;
        }
        impl.setText(row, col, text);
        return true;
    }
    const Effect effect = impl.store.setCell(row, col, text, data);
    if (!impl.damage.all() && effect != Effect::Nothing) impl.damageCell(row, col);
    return true;
}
}  // namespace kxVsGrid
