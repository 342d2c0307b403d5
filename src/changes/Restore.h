// Puts a grid back to what it was before a record was made.
//
// From the last change to the first: rows that were added go, rows that were removed come back where their
// neighbours stand now, rows that changed places take their old order again. Then each cell gets the first of
// the texts that the record has of it, once, and once more where handlers hear of it, which may have written
// another one meanwhile.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "changes/Record.h"
#include "support/FirstFault.h"

namespace kxVsGrid::changes {

class Restore {
  public:
    /// Both must outlive it.
    Restore(CellGrid& grid, const Record& record) : grid_(grid), record_(record) {}

    /// Handlers that throw end nothing; the first fault is kept in `fault`.
    void run(support::FirstFault& fault);
    /// Whether it has written this text or tag.
    bool restores(RowId row, std::int32_t col, CellPart part) const;
    /// Where the eye should go: the cell that was written first, or the first row that came back, or one that
    /// took its old place, the current one before others. Column -1: any one.
    std::optional<std::pair<std::int32_t, std::int32_t>> place() const;

  private:
    struct Target {
        RowId row;
        std::int32_t col;
        CellPart part;
        std::string_view text;

        friend bool sameSlot(const Target& a, const Target& b) {
            return a.row == b.row && a.col == b.col && a.part == b.part;
        }
    };
    static bool earlier(const Target& a, const Target& b);

    void findPassing();
    void takeAway(const AddedRows& rows, support::FirstFault& fault);
    void bringBack(const RemovedRows& removed, support::FirstFault& fault);
    void putInOrder(const ReorderedRows& rows, support::FirstFault& fault);
    void sharePlaces(const std::vector<std::int32_t>& there, support::FirstFault& fault);
    void putAt(std::int32_t place, const std::vector<std::int32_t>& there, support::FirstFault& fault);
    std::int32_t placeOf(const ReorderedRows& rows) const;
    std::int32_t placeOf(const RemovedRows& removed) const;
    void bringRowBack(const KeptRow& kept, std::int32_t position, support::FirstFault& fault);
    void dress(std::int32_t row, const KeptCell& cell);
    std::int32_t reorderedRow() const;
    void keepFirst();
    void writeText(std::int32_t row, const Target& target);
    void write(bool again, bool heard, support::FirstFault& fault);
    bool passing(RowId id) const { return passing_.contains(id); }

    CellGrid& grid_;
    const Record& record_;
    std::unordered_set<RowId> passing_;  ///< rows that came and went within the record
    std::vector<Target> targets_;
    RowId broughtBack_ = RowId::None;
};
}  // namespace kxVsGrid::changes
