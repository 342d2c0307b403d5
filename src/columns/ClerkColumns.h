// What the clerk has made of the columns: widths of his own, columns that he has hidden, up to where they are frozen;
// and what all this was before.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/ColumnLayout.h"

namespace kxVsGrid::columns {

/// The control above them.
class LayoutOwner {
  public:
    virtual ~LayoutOwner() = default;
    /// Kept for as long as something is going on whose listeners may destroy the control.
    virtual std::shared_ptr<void> keep() = 0;
    /// Commits what is being typed; a refused text stays.
    virtual void commitOpenText() = 0;
    virtual void freeze(std::int32_t cols) = 0;
    /// Columns have other places: so has what stands on them and below them.
    virtual void columnsPlaced() = 0;
};

class ClerkColumns {
  public:
    ClerkColumns(CellGrid& grid, CellGrid& sums, ColumnArray& columns, LayoutOwner& owner)
        : grid_(grid), sums_(sums), columns_(columns), owner_(owner) {}
    ClerkColumns(const ClerkColumns&) = delete;
    ClerkColumns& operator=(const ClerkColumns&) = delete;

    // --- What the clerk does; each tells of it (ColumnLayout::Changed).
    /// False when the current cell could not leave the columns; nothing has changed then.
    bool hide(const std::vector<std::int32_t>& cols);
    /// Those that he has hidden. False when there is none among them.
    bool show(const std::vector<std::int32_t>& cols);
    void freeze(std::int32_t cols);
    void resetByClerk();
    /// He is about to give the column another width; he is done with it.
    void widthWillChange(std::int32_t col);
    void widthChanged(std::int32_t col);

    // --- What is so.
    /// He has hidden the column, which the host would show.
    bool hides(std::int32_t col) const;
    std::vector<std::int32_t> hidden() const;
    /// A data column is left to be seen without these.
    bool leavesSome(const std::vector<std::int32_t>& hidden) const;
    bool isShown(std::int32_t col) const;
    /// Something is not as it was designed.
    bool isChanged() const;
    /// As the clerk knows it: its definition's name, else its caption; may be empty.
    std::string nameOf(std::int32_t col) const;
    /// The same for all columns; empty for one whose name another one has before it.
    std::vector<std::string> names() const;
    /// His width of the column; 0 where it is the designed one.
    std::int32_t width(std::int32_t col) const;
    /// How many columns he has frozen; nothing where it is as designed.
    std::optional<std::int32_t> frozen() const;

    /// As wide as its widest text (FittedWidth.h), the total among them where it is shown.
    std::int32_t fittedWidth(std::int32_t col, std::int32_t boxSide, bool total) const;

    // --- The host.
    void hostHid(std::int32_t col);
    void colsLimited(std::int32_t cols);
    void reset();

    // --- A layout that was kept, nobody being told.
    /// 0: the designed one.
    void applyWidth(std::int32_t col, std::int32_t twips);
    /// Nothing where they would leave no column.
    void applyHidden(const std::vector<std::int32_t>& hide, const std::vector<std::int32_t>& show);
    /// Nothing: as many as designed.
    void applyFrozen(std::optional<std::int32_t> cols);
    LayoutOwner& owner() { return owner_; }
    std::int32_t fixed() const { return grid_.FixedCols(); }

    ColumnLayout face{*this};

  private:
    struct Width {
        std::int32_t twips;
        std::string sample;
    };
    struct Resized {
        Width designed;
        std::int32_t clerks;
    };
    struct Frozen {
        std::int32_t designed;
        std::int32_t clerks;
    };
    bool isThere(std::int32_t col) const { return col >= 0 && col < grid_.Cols(); }
    const Resized* resized(std::int32_t col) const;
    const Frozen* clerksFrozen() const;
    Width present(std::int32_t col) const { return {grid_.ColWidth(col), grid_.ColSample(col)}; }
    void noteWidth(std::int32_t col, const Width& before);
    std::vector<std::int32_t> hiddenOf(std::vector<std::int32_t> cols) const;
    bool leave(const std::vector<std::int32_t>& cols);
    std::int32_t shownBeside(std::int32_t col, const std::vector<std::int32_t>& but) const;
    void putHidden(const std::vector<std::int32_t>& cols, bool hidden);
    void putFrozen(std::int32_t cols);

    CellGrid& grid_;
    CellGrid& sums_;
    ColumnArray& columns_;
    LayoutOwner& owner_;
    std::vector<bool> hidden_;                     ///< as many as were ever needed
    std::vector<std::optional<Resized>> resized_;  ///< the same
    std::optional<Frozen> frozen_;
    std::int32_t grabbed_ = -1;  ///< the column whose width is about to change
    Width grabbedWidth_{};
};
}  // namespace kxVsGrid::columns
