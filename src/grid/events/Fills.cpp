#include "grid/events/Fills.h"

#include <functional>
#include <optional>
#include <utility>

#include "support/Dates.h"
#include "support/Numbers.h"

namespace kxVsGrid::events {
namespace {

using TextAndTag = std::pair<std::string, std::string>;

/// A number as its text says it: what a series adds up never drifts away from what it shows.
double asShown(double value) {
    return support::leadingNumber(support::numberText(value));
}
}  // namespace

void Fills::fill(Way way) {
    const std::int32_t row = c_.grid.Row();
    const std::int32_t col = c_.grid.Col();
    if (row < 0 || col < 0) return;
    const WaitCursor wait(c_.platform);
    const std::string tag = cells_.readCell(row, col, false);
    const std::string text = cells_.readCell(row, col, true);
    switch (way) {
        case Series:
            return series(text);
        case Days:
        case Years:
        case Months:
            return dates(way, text);
        case CopyCell:
            return writeBelow([&]() -> std::optional<TextAndTag> { return TextAndTag{text, tag}; });
    }
}

/// Writes what `next` answers into each cell below the current one, until it has no answer.
template <class Next>
void Fills::writeBelow(Next next) {
    const std::int32_t col = c_.grid.Col();
    for (std::int32_t row = c_.grid.Row() + 1; row < c_.grid.Rows(); ++row) {
        const std::optional<TextAndTag> value = next();
        if (!value) return;
        cells_.setCell(row, col, value->first, value->second);
    }
}

void Fills::dates(Way way, const std::string& text) {
    std::optional<DateTime> date = support::parseDate(text);
    if (!date) return;
    writeBelow([&]() -> std::optional<TextAndTag> {
        date = way == Days    ? support::addDays(*date, 1)
               : way == Years ? support::addYears(*date, 1)
                              : support::addMonths(*date, 1);
        if (!date) return std::nullopt;
        const std::string shown = support::shortDateText(*date);
        return TextAndTag{shown, shown};
    });
}

/// The displayed text of the cell above; in the first data row the cell's own.
std::string Fills::textAbove(const std::string& text) const {
    const std::int32_t row = c_.grid.Row();
    return row > c_.grid.FixedRows() ? c_.grid.DisplayText(row - 1, c_.grid.Col()) : text;
}

void Fills::series(const std::string& text) {
    const mEmDataType type = c_.columns.at(c_.grid.Col()).iType();
    if (type == flexDTDate) dateSeries(textAbove(text), text);
    if (type == flexDTDouble) numberSeries(textAbove(text), text);
}

void Fills::dateSeries(const std::string& above, const std::string& text) {
    std::optional<DateTime> date = support::parseDate(text);
    if (!date) return;
    const std::optional<DateTime> before = support::parseDate(above);
    std::int64_t step = before ? support::dayNumber(*date) - support::dayNumber(*before) : 1;
    if (step == 0) step = 1;
    writeBelow([&]() -> std::optional<TextAndTag> {
        date = support::addDays(*date, step);
        if (!date) return std::nullopt;
        const std::string shown = support::shortDateText(*date);
        return TextAndTag{shown, shown};
    });
}

void Fills::numberSeries(const std::string& above, const std::string& text) {
    double value = support::leadingNumberOfDisplayed(text);
    double step = asShown(value - support::leadingNumberOfDisplayed(above));
    if (step == 0) step = 1;
    writeBelow([&]() -> std::optional<TextAndTag> {
        value = asShown(value + step);
        return TextAndTag{support::numberText(value), "-1"};
    });
}
}  // namespace kxVsGrid::events
