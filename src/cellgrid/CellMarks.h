// The marks on the cells of a grid, by row id: they go where their rows go, and wait for those that were
// removed and may come back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "kxVsGrid/CellMark.h"
#include "kxVsGrid/RowId.h"

namespace kxVsGrid::cellgrid {

class CellMarks {
  public:
    bool empty() const { return marks_.empty(); }
    /// nullptr for none; good until the marks change.
    const CellMark* find(RowId row, std::int32_t col) const;
    /// Answers whether that changed anything. When it fails, nothing has changed.
    bool put(RowId row, std::int32_t col, CellMark mark);
    bool erase(RowId row, std::int32_t col);
    /// Takes away all marks of a kind, or all there are. Answers whether there was one.
    bool clear(std::optional<CellMark::Kind> kind);
    /// The columns from `count` on have gone.
    void colsLimited(std::int32_t count) noexcept;
    /// visit(row id, col, mark), in the order in which the ids were given.
    template <class Visit>
    void forEach(Visit visit) const {
        for (const auto& [place, mark] : marks_) visit(place.first, place.second, mark);
    }

  private:
    std::map<std::pair<RowId, std::int32_t>, CellMark> marks_;
};
}  // namespace kxVsGrid::cellgrid
