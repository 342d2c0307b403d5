// Records and the rows in which they stand.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sheet/Saved.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

class Lines {
  public:
    Lines(const SheetContext& context, const Saved& saved) : c_(context), saved_(saved) {}

    /// The text that the cell is to hold for the member. A 0 is blank, as the grid has it, but where the member can
    /// be without a value. What is computed is rounded to the decimals of its column.
    std::string text(const void* record, std::int32_t column) const;
    /// The same in place of what `text` holds, whose memory serves again.
    void putText(const void* record, std::int32_t column, std::string& text) const;
    /// The text is a 0 of a column that blanks it.
    bool isBlanked(std::int32_t column, const std::string& text) const;
    /// The same text for what is no number.
    static std::string rounded(const std::string& text, int decimals);
    /// The record of the row; where a text is no value, the first such cell goes into `fault`, and the record has
    /// there what a new one has.
    AnyRecord read(std::int32_t row, std::optional<Fault>& fault) const;
    /// The same without the computed columns: for whoever makes them anew.
    AnyRecord readTyped(std::int32_t row, std::optional<Fault>& fault) const;
    /// UnreadableCell instead.
    AnyRecord readWhole(std::int32_t row) const;
    /// The same of a line; none for a row that is none.
    AnyRecord lineAt(std::int32_t row) const;
    bool isInUse(std::int32_t row) const;
    /// The same of the record that was read there.
    bool isInUse(std::int32_t row, const void* record) const;
    /// Of a record that stands in no row: it is a line as soon as it does.
    bool isInUse(const void* record) const;
    /// A text makes a line of the row where the host does not say which rows are some.
    bool makesLine(std::int32_t column) const;
    /// The row behind the last line.
    std::int32_t end() const;
    /// Writes what differs. Computed columns are not looked at.
    void write(std::int32_t row, const void* record) const;
    Decimal sum(std::int32_t column) const;

  private:
    AnyRecord read(std::int32_t row, std::optional<Fault>& fault, bool computedToo) const;
    bool holdsText(std::int32_t row) const;

    const SheetContext& c_;
    const Saved& saved_;
};
}  // namespace kxVsGrid::sheet
