// How a column shows its texts: a number or date pattern, read once and applied to many cells.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kxVsGrid::cellgrid {

class CellFormat {
  public:
    explicit CellFormat(std::string_view pattern);
    ~CellFormat();
    CellFormat(const CellFormat&) = delete;
    CellFormat& operator=(const CellFormat&) = delete;

    const std::string& pattern() const;
    /// The pattern is a number's or a date's; any other shows every text unchanged.
    bool changesTexts() const;
    /// Writes into `shown` what the pattern makes of the cell text and returns true; returns false, `shown`
    /// untouched, when the text is shown unchanged.
    bool apply(std::string_view text, std::string& shown) const;
    /// It is a number pattern that separates groups of thousands.
    bool groups() const;
    /// It is a number pattern that shows percent.
    bool percent() const;
    /// It is a date pattern.
    bool ofDates() const;

  private:
    struct Pattern;
    std::unique_ptr<Pattern> pattern_;
};
}  // namespace kxVsGrid::cellgrid
