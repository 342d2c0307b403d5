#include "cellgrid/CellMarks.h"

namespace kxVsGrid::cellgrid {

const CellMark* CellMarks::find(RowId row, std::int32_t col) const {
    const auto found = marks_.find({row, col});
    return found == marks_.end() ? nullptr : &found->second;
}

bool CellMarks::put(RowId row, std::int32_t col, CellMark mark) {
    const auto [place, fresh] = marks_.try_emplace({row, col});
    if (!fresh && place->second == mark) return false;
    place->second = std::move(mark);
    return true;
}

bool CellMarks::erase(RowId row, std::int32_t col) {
    return marks_.erase({row, col}) > 0;
}

bool CellMarks::clear(std::optional<CellMark::Kind> kind) {
    return std::erase_if(marks_, [&](const auto& entry) { return !kind || entry.second.kind == *kind; }) > 0;
}

void CellMarks::colsLimited(std::int32_t count) noexcept {
    std::erase_if(marks_, [&](const auto& entry) { return entry.first.second >= count; });
}
}  // namespace kxVsGrid::cellgrid
