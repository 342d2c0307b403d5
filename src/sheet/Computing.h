// Computed columns: what they are for a record, and in the cells of a row.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "sheet/Lines.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

class Computing {
  public:
    Computing(const SheetContext& context, const Lines& lines) : c_(context), lines_(lines) {}

    /// A column that could not be computed, and why.
    struct Failure {
        std::int32_t column;
        std::string reason;
    };
    /// Puts the computed members of a record. Where one cannot be computed, and in a record that is no line, it is
    /// as an empty cell has it.
    std::vector<Failure> fill(void* record) const;
    /// Makes the computed cells of a row anew, and says in a mark why one cannot be made.
    void settle(std::int32_t row);
    /// The mark of a line that was loaded.
    void mark(std::int32_t row, const Failure& failure);
    /// Why the cell is empty that could not be computed; empty where nothing is wrong with it.
    std::string reason(const void* record, std::int32_t column) const;
    void forgetMarks() { marks_.clear(); }

  private:
    void readOwn(void* record, std::int32_t row) const;
    /// What the cell is to hold, or why it cannot.
    struct Outcome {
        std::string text;
        std::string reason;
    };
    Outcome compute(void* record, std::int32_t column) const;
    Outcome failed(void* record, std::int32_t column, std::string reason) const;
    /// Takes what becomes of each computed column, with the column.
    template <class Take>
    void computeAll(void* record, Take take) const;
    void put(RowId id, std::int32_t column, const Outcome& outcome);
    void putMark(std::int32_t row, std::int32_t col, const std::string& reason);
    void requireSettled(const void* record) const;

    const SheetContext& c_;
    const Lines& lines_;
    std::map<std::pair<RowId, std::int32_t>, std::string> marks_;  ///< that stand here for what went wrong
};
}  // namespace kxVsGrid::sheet
