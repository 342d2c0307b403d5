// Fills the rest of the current column, from the current cell down: with a series, with dates, with copies.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "grid/events/Context.h"

namespace kxVsGrid::events {

/// Cells as hosts read and write them.
class CellAccess {
  public:
    virtual ~CellAccess() = default;
    virtual std::string readCell(std::int32_t row, std::int32_t col, bool text) = 0;
    /// False when it failed and a box told of it.
    virtual bool setCell(std::int32_t row, std::int32_t col, std::string_view text, std::string_view tag) = 0;
};

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

    Fills(const Context& context, CellAccess& cells) : c_(context), cells_(cells) {}

    /// Where the cell's text does not fit the way, nothing happens. A cell that cannot be written ends it
    /// and keeps its tag with its text: one box tells of it, and a tip of how many cells were left.
    void fill(Way way);

  private:
    using TextAndTag = std::pair<std::string, std::string>;
    static constexpr std::int32_t NoEnd = CellGrid::MaxRows;

    template <class Next>
    void writeBelow(Next next);
    bool write(std::int32_t row, std::int32_t col, const TextAndTag& value);
    void tellOfCellsLeft(std::int32_t cells) const;
    template <class Next>
    void writeDates(DateTime date, Next next);
    void dates(Way way, const std::string& text);
    void series(const std::string& text);
    void dateSeries(const std::string& above, const std::string& text);
    void numberSeries();
    /// NoEnd where a fill goes on into rows that the host appends meanwhile.
    std::int32_t lastRow(std::int32_t first) const;
    std::string textAbove(const std::string& text) const;

    Context c_;
    CellAccess& cells_;
};
}  // namespace kxVsGrid::events
