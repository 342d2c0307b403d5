#include "clerk/Fills.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

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
    if (c_.grid.Row() < 0 || c_.grid.Col() < 0) return;
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
            return writeBelow([&]() -> std::optional<TextAndTag> { return TextAndTag{text, tag}; });
    }
}

std::int32_t Fills::lastRow(std::int32_t first) const {
    return c_.options.FillsToLastLine() ? rows::lastRowInUse(c_, c_.defaulted, first) : NoEnd;
}

/// Writes what `next` answers into each cell below the current one, until it has no answer or the fill ends.
/// After a failure the values go on without being written: those are the cells that are left.
template <class Next>
void Fills::writeBelow(Next next) {
    const std::int32_t col = c_.grid.Col();
    std::int32_t left = 0;
    std::int32_t row = c_.grid.Row() + 1;
    const std::int32_t last = lastRow(row);
    for (; row <= last && row < c_.grid.Rows(); ++row) {
        const std::optional<TextAndTag> value = next();
        if (!value) break;
        if (left == 0 && write(row, col, *value)) continue;
        ++left;
    }
    if (left > 0) tellOfCellsLeft(left);
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
void Fills::tellOfCellsLeft(std::int32_t cells) const {
    if (!c_.host.there() || c_.grid.Row() < 0 || c_.grid.Col() < 0) return;
    c_.platform.showTip("填充中断，还有 " + std::to_string(cells) + " 个单元格未填充。",
                        c_.owner.onScreen(c_.grid.CellRect(c_.grid.Row(), c_.grid.Col())));
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
    return row > c_.grid.FixedRows() ? c_.grid.DisplayText(row - 1, c_.grid.Col()) : text;
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

void Fills::numberSeries() {
    const std::int32_t row = c_.grid.Row();
    const std::int32_t col = c_.grid.Col();
    double value = c_.grid.CellNumber(row, col);
    const double before = row > c_.grid.FixedRows() ? c_.grid.CellNumber(row - 1, col) : value;
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
