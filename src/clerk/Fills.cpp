#include "clerk/Fills.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

#include "clerk/Filters.h"
#include "clerk/PassedRows.h"
#include "kxVsGrid/support/Decimal.h"
#include "rows/PairWrite.h"
#include "rows/RowsInUse.h"
#include "support/Dates.h"
#include "support/Numbers.h"

namespace kxVsGrid::clerk {
namespace {

/// How many decimal places the number's text has.
int decimalPlaces(double value) {
    const std::string text = support::numberText(value);
    const std::size_t point = text.find('.');
    return point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1);
}

/// The number of so many decimal places that is nearest. A series adds up numbers of as many places as its
/// first two have: it never drifts, also where large numbers give way to small ones.
double toPlaces(double value, int places) {
    std::array<char, 1024> text;  // the largest number has 309 digits, the smallest 324 places
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, places);
    if (error != std::errc{}) return value;
    return support::leadingNumber({text.data(), static_cast<std::size_t>(end - text.data())});
}

/// As the clerk reads what was done.
std::string_view nameOf(Fills::Way way) {
    switch (way) {
        case Fills::Series:
            return "序列填充";
        case Fills::Days:
            return "以天数填充";
        case Fills::Years:
            return "以年填充";
        case Fills::Months:
            return "以月填充";
        default:
            return "复制填充";
    }
}
}  // namespace

void Fills::fill(Way way) {
    if (c_.grid.Row() < 0 || c_.grid.Col() < 0 || c_.grid.RowFiltered(c_.grid.Row())) return;
    const WaitCursor wait(c_.platform);
    c_.steps.during(nameOf(way), Cause::Fill, [&] { fillBelow(way); });
}

void Fills::fillBelow(Way way) {
    const std::int32_t row = c_.grid.Row();
    const std::int32_t col = c_.grid.Col();
    const std::string tag = c_.owner.readCell(row, col, false);
    const std::string text = c_.owner.readCell(row, col, true);
    switch (way) {
        case Series:
            return series(text);
        case Days:
        case Years:
        case Months:
            return dates(way, text);
        case CopyCell:
            return writeBelow([copied = copiedText(row, col, text), &tag]() -> std::optional<TextAndTag> {
                return TextAndTag{copied, tag};
            });
    }
}

/// As it is displayed; what an exact column holds is a number without the signs between its groups.
std::string Fills::copiedText(std::int32_t row, std::int32_t col, const std::string& shown) const {
    const auto rules = c_.columns.rules(col);
    return rules && rules->exact() ? c_.grid.Text(row, col) : shown;
}

std::int32_t Fills::lastRow(std::int32_t first) const {
    return c_.options.FillsToLastLine() ? rows::lastRowInUse(c_, c_.defaulted, first) : NoEnd;
}

/// Writes what `next` answers into each cell below the current one, until it has no answer or the fill ends.
/// After a failure the values go on without being written: those are the cells that are left. While a filter is on,
/// rows that are not seen get no value.
template <class Next>
void Fills::writeBelow(Next next) {
    const std::int32_t col = c_.grid.Col();
    std::int32_t left = 0;
    std::int32_t filtered = 0;
    std::int32_t row = c_.grid.Row() + 1;
    const std::int32_t last = lastRow(row);
    for (; row <= last && row < c_.grid.Rows(); ++row) {
        if (c_.filters.on() && !c_.grid.RowShown(row)) {
            if (c_.grid.RowFiltered(row)) ++filtered;
            continue;
        }
        const std::optional<TextAndTag> value = next();
        if (!value) break;
        if (left == 0 && write(row, col, *value)) continue;
        ++left;
    }
    tellOfCellsLeft(left, filtered);
}

/// Where the text could not follow its tag, since a listener has failed, the cell is left as it was.
bool Fills::write(std::int32_t row, std::int32_t col, const TextAndTag& value) {
    if (!c_.grid.CellChanged.heard()) return c_.owner.setCell(row, col, value.first, value.second);
    const rows::PairWrite pair(c_.grid, c_.rows.follower(), row, col);
    if (c_.owner.setCell(row, col, value.first, value.second)) return true;
    pair.putBack(value.second);
    return false;
}

/// Beside the current cell, without a box: one has told of the failure.
void Fills::tellOfCellsLeft(std::int32_t cells, std::int32_t filtered) const {
    std::string told;
    if (cells > 0) told = "填充中断，还有 " + std::to_string(cells) + " 个单元格未填充。";
    tellAtCell(c_, told + passedOverText(filtered));
}

/// Each date as text and as tag, until there is no next one.
template <class Next>
void Fills::writeDates(DateTime date, Next next) {
    writeBelow([&]() -> std::optional<TextAndTag> {
        const std::optional<DateTime> following = next(date);
        if (!following) return std::nullopt;
        date = *following;
        const std::string shown = support::shortDateText(date);
        return TextAndTag{shown, shown};
    });
}

void Fills::dates(Way way, const std::string& text) {
    const std::optional<DateTime> date = support::parseDate(text);
    if (!date) return;
    writeDates(*date, [way](const DateTime& from) {
        return way == Days    ? support::addDays(from, 1)
               : way == Years ? support::addYears(from, 1)
                              : support::addMonths(from, 1);
    });
}

/// The displayed text of the cell above; in the first data row the cell's own.
std::string Fills::textAbove(const std::string& text) const {
    const std::int32_t row = c_.grid.Row();
    const std::int32_t above = rowAbove(row);
    return above < 0 ? text : c_.grid.DisplayText(above, c_.grid.Col());
}

/// The one that the clerk sees there, while a filter is on; -1 for none.
std::int32_t Fills::rowAbove(std::int32_t row) const {
    const std::int32_t above = c_.filters.on() ? c_.grid.ShownRowBefore(row) : row - 1;
    return above < c_.grid.FixedRows() ? -1 : above;
}

void Fills::series(const std::string& text) {
    const mEmDataType type = c_.columns.at(c_.grid.Col()).iType();
    if (type == flexDTDate) dateSeries(textAbove(text), text);
    if (type == flexDTDouble) numberSeries();
}

void Fills::dateSeries(const std::string& above, const std::string& text) {
    const std::optional<DateTime> date = support::parseDate(text);
    if (!date) return;
    const std::optional<DateTime> before = support::parseDate(above);
    std::int64_t step = before ? support::dayNumber(*date) - support::dayNumber(*before) : 1;
    if (step == 0) step = 1;
    writeDates(*date, [step](const DateTime& from) { return support::addDays(from, step); });
}

/// In an exact column to the last digit; it ends where a number would have more than a decimal can. False where the
/// cells hold other numbers than decimals.
bool Fills::exactSeries() {
    const std::int32_t col = c_.grid.Col();
    const std::shared_ptr<const ColumnOptions> rules = c_.columns.rules(col);
    if (!rules || !rules->exact()) return false;
    const auto decimalAt = [&](std::int32_t row) {
        const std::string text = c_.grid.Text(row, col);
        return text.empty() ? std::optional(Decimal(0)) : Decimal::read(text);
    };
    std::optional<Decimal> value = decimalAt(c_.grid.Row());
    const std::int32_t above = rowAbove(c_.grid.Row());
    const std::optional<Decimal> before = above < 0 ? value : decimalAt(above);
    if (!value || !before) return false;
    Decimal step = 1;
    try {
        if (*value != *before) step = *value - *before;
    } catch (const DecimalError&) {
        return false;
    }
    writeBelow([&]() -> std::optional<TextAndTag> {
        try {
            *value += step;
        } catch (const DecimalError&) {
            return std::nullopt;
        }
        return TextAndTag{value->text(), "-1"};
    });
    return true;
}

void Fills::numberSeries() {
    if (exactSeries()) return;
    const std::int32_t row = c_.grid.Row();
    const std::int32_t col = c_.grid.Col();
    double value = c_.grid.CellNumber(row, col);
    const std::int32_t above = rowAbove(row);
    const double before = above < 0 ? value : c_.grid.CellNumber(above, col);
    const int places = std::max(decimalPlaces(value), decimalPlaces(before));
    double step = toPlaces(value - before, places);
    if (step == 0) step = 1;
    writeBelow([&]() -> std::optional<TextAndTag> {
        if (!std::isfinite(value + step)) return std::nullopt;
        value = toPlaces(value + step, places);
        return TextAndTag{support::numberText(value), "-1"};
    });
}
}  // namespace kxVsGrid::clerk
