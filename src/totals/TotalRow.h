// The total row: a one-row grid under the main grid with the sums of the summed columns.
//
// A recalculation only notes that a column's total has to be made anew; it is added up when somebody looks.
// Before a change of the main grid's content that no recalculation follows, what was noted is added up first,
// so that the old total stands. The effect is that of adding up at once, without adding up a column for each
// of a million writes.
//
// While a cell of a summed column is written its total stays put off, and counts that cell as it was before:
// whoever hears of the write sees the total without it. A write that fails leaves it so, to be added up
// later.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::totals {

class TotalRow : private CellGrid::Watcher {
  public:
    static constexpr std::uint32_t LightGrey = 0xE0E0E0;
    static constexpr std::int32_t StandardHeight = 300;
    static constexpr std::int32_t BorderHeight = 30;

    TotalRow(CellGrid& main, CellGrid& sums, columns::ColumnArray& columns);
    ~TotalRow() override;
    TotalRow(const TotalRow&) = delete;
    TotalRow& operator=(const TotalRow&) = delete;

    /// Empties the row and prepares it anew: caption, light grey cells, widths, hidden states, alignments,
    /// formats.
    void setUp();
    /// The main grid's fixed columns have changed: empties, paints and captions the row again.
    void followFixedCols();
    /// Copies the main grid's column widths.
    void copyWidths();
    /// Stands under the main grid's columns as they are scrolled.
    void followScroll();
    /// As many columns stand still as in the main grid now, which may limit those that are frozen.
    void followStillCols();
    bool followsStillCols() const {
        return sums_.StillCols() - sums_.FixedCols() == main_.StillCols() - main_.FixedCols();
    }
    /// Stores the host's colour of the row's cells and paints them, until the next set-up. The light grey of
    /// a set-up is nobody's choice, and fits itself to a dark palette.
    void setColor(std::uint32_t color);
    /// Height of the row itself; the grid around it is 30 twips higher.
    std::int32_t rowHeight() const;
    void setRowHeight(std::int32_t twips);
    std::int32_t gridHeight() const;

    /// Makes the total of one column anew, or with -1 of every column from the first non-fixed one on.
    /// A column that is not summed keeps what it shows.
    void recalculate(std::int32_t col);

    /// The main grid has another number of columns; so has the total row from now on.
    void followCols();

    /// For rows that are inserted empty, which change no total, when a recalculation of all columns follows:
    /// keeps the watcher from adding up before it.
    class EmptyRows {
      public:
        explicit EmptyRows(TotalRow& totals) : span_(totals.emptyRows_, true, totals.emptyRows_) {}

      private:
        support::FlagSpan span_;
    };
    static constexpr std::int32_t AllColumns = -1;

    /// Writes one cell of a column whose total is made anew afterwards, when `recalculates` then still says
    /// so. Whoever hears of the write sees the total without it, and it stays so when the write fails or
    /// nothing is recalculated.
    template <class Write, class Recalculates>
    void around(std::int32_t row, std::int32_t col, bool heard, Write write, Recalculates recalculates) {
        const bool summed = recalculates() && isSummed(col);
        if (summed && isWritten(col)) settle(col);
        PutOff putOff(*this, row, summed && isPending(col) ? col : NoColumn, heard);
        write();
        if (!recalculates() || !isSummed(col)) return;
        if (isPending(col))
            putOff.recalculated();
        else
            recalculate(col);
    }

  private:
    static constexpr std::int32_t NoRow = -1;
    static constexpr std::int32_t NoColumn = -1;
    struct Total {
        bool pending = false;
        bool shown = false;   ///< the cell of the total row asks for the value
        bool putOff = false;  ///< a cell is being written: not added up before the write
        double value = 0;
        std::int32_t writtenRow = NoRow;  ///< a cell that counts as it was before it was written
        double numberBefore = 0;
    };
    /// The write of one cell before which a pending total was not added up; of NoColumn where none is
    /// pending. Ending it adds nothing up: that asks the texts of other cells, which a host computes and may
    /// fail to.
    class PutOff {
      public:
        PutOff(TotalRow& totals, std::int32_t row, std::int32_t col, bool heard);
        /// Not made anew after all, when the cell still counts as it was before.
        ~PutOff() {
            if (totals_.isPending(col_)) totals_.totals_[static_cast<std::size_t>(col_)].putOff = false;
        }
        PutOff(const PutOff&) = delete;
        PutOff& operator=(const PutOff&) = delete;
        /// The write is done, and the total counts it from now on.
        void recalculated() {
            if (totals_.isPending(col_)) totals_.totals_[static_cast<std::size_t>(col_)].writtenRow = NoRow;
        }

      private:
        TotalRow& totals_;
        std::int32_t col_;
    };
    /// Hears what code does to the cells of the total row.
    class OwnCells : public CellGrid::Watcher {
      public:
        explicit OwnCells(TotalRow& totals) : totals_(totals) {}
        void contentWillChange(std::int32_t col) override { totals_.overwritten(col); }

      private:
        TotalRow& totals_;
    };

    void contentWillChange(std::int32_t col) override;
    bool awaits(std::int32_t col) const override {
        return isPending(col) && !totals_[static_cast<std::size_t>(col)].putOff;
    }
    void overwritten(std::int32_t col);
    void pending(std::int32_t totals);
    bool isPending(std::int32_t col) const {
        return static_cast<std::size_t>(col) < totals_.size() &&
               totals_[static_cast<std::size_t>(col)].pending;
    }
    /// It counts a cell as that was before a write that is under way, or that failed.
    bool isWritten(std::int32_t col) const {
        return isPending(col) && totals_[static_cast<std::size_t>(col)].writtenRow >= 0;
    }
    bool isSummed(std::int32_t col) { return col <= columns_.upper() && columns_.at(col).b是否合计数据(); }
    double sumBeforeWrite(std::int32_t col, Total total) const;
    void settle(std::int32_t col);
    void forget(std::int32_t col);
    void note(std::int32_t col);
    std::string valueText(std::int32_t col);
    void paint();
    void paintAndCaption();

    CellGrid& main_;
    CellGrid& sums_;
    columns::ColumnArray& columns_;
    std::uint32_t color_ = LightGrey;
    std::vector<Total> totals_;
    std::int32_t pending_ = 0;  ///< how many totals are still to be added up
    bool emptyRows_ = false;
    OwnCells ownCells_{*this};
};
}  // namespace kxVsGrid::totals
