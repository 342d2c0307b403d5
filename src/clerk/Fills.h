// Fills the rest of the current column, from the current cell down: with a series, with dates, with copies.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "clerk/ClerkContext.h"

namespace kxVsGrid::clerk {

/// The machine shows that it works, for as long as this lives.
class WaitCursor {
  public:
    explicit WaitCursor(Platform& platform) : platform_(platform) { platform.waitCursor(true); }
    ~WaitCursor() { platform_.waitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

  private:
    Platform& platform_;
};

class Fills {
  public:
    /// The numbers are those of the menu's items.
    enum Way : std::int32_t { Series = 1, Days = 2, Years = 3, Months = 4, CopyCell = 5 };

    explicit Fills(const ClerkContext& context) : c_(context) {}

    /// Where the cell's text does not fit the way, nothing happens. A cell that cannot be written ends it
    /// and keeps its tag with its text: one box tells of it, and a tip of how many cells were left. Rows that a
    /// filter hides are passed over, which the tip tells, too.
    void fill(Way way);

  private:
    void fillBelow(Way way);
    using TextAndTag = std::pair<std::string, std::string>;
    static constexpr std::int32_t NoEnd = CellGrid::MaxRows;

    template <class Next>
    void writeBelow(Next next);
    bool write(std::int32_t row, std::int32_t col, const TextAndTag& value);
    void tellOfCellsLeft(std::int32_t cells, std::int32_t filtered) const;
    std::int32_t rowAbove(std::int32_t row) const;
    template <class Next>
    void writeDates(DateTime date, Next next);
    void dates(Way way, const std::string& text);
    void series(const std::string& text);
    void dateSeries(const std::string& above, const std::string& text);
    void numberSeries();
    bool exactSeries();
    /// NoEnd where a fill goes on into rows that the host appends meanwhile.
    std::int32_t lastRow(std::int32_t first) const;
    std::string copiedText(std::int32_t row, std::int32_t col, const std::string& shown) const;
    std::string textAbove(const std::string& text) const;

    ClerkContext c_;
};
}  // namespace kxVsGrid::clerk
