#include "cellgrid/format/CellFormat.h"

#include <optional>
#include <utility>

#include "cellgrid/format/DatePattern.h"
#include "cellgrid/format/NumberPattern.h"

namespace kxVsGrid::cellgrid {

/// A pattern with a '0' or '#' is a number's, one of date letters alone a date's, any other changes nothing.
struct CellFormat::Pattern {
    explicit Pattern(std::string_view pattern) : text(pattern), number(NumberPattern::read(pattern)) {
        if (!NumberPattern::hasDigit(pattern)) date = DatePattern::read(pattern);
    }

    std::string text;
    std::optional<NumberPattern> number;
    std::optional<DatePattern> date;
};

CellFormat::CellFormat(std::string_view pattern)
    : pattern_(pattern.empty() ? nullptr : std::make_unique<Pattern>(pattern)) {}
CellFormat::~CellFormat() = default;

const std::string& CellFormat::pattern() const {
    static const std::string none;
    return pattern_ ? pattern_->text : none;
}

bool CellFormat::changesTexts() const {
    return pattern_ && (pattern_->number || pattern_->date);
}

bool CellFormat::apply(std::string_view text, std::string& shown) const {
    if (!pattern_ || text.empty()) return false;
    if (pattern_->number) return pattern_->number->apply(text, shown);
    return pattern_->date && pattern_->date->apply(text, shown);
}

bool CellFormat::ofDates() const {
    return pattern_ && pattern_->date;
}

bool CellFormat::groups() const {
    return pattern_ && pattern_->number && pattern_->number->groups();
}

bool CellFormat::percent() const {
    return pattern_ && pattern_->number && pattern_->number->percent();
}
}  // namespace kxVsGrid::cellgrid
