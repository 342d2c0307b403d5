#include "clerk/FilterCommands.h"

#include <algorithm>
#include <utility>

#include "clerk/ColumnKind.h"
#include "clerk/ColumnTexts.h"
#include "clerk/Filters.h"

namespace kxVsGrid::clerk {

bool FilterCommands::canChoose(std::int32_t col) const {
    const CellGrid& grid = c_.grid;
    if (grid.Rows() <= grid.FixedRows() || col < grid.FixedCols() || col >= grid.Cols()) return false;
    const std::shared_ptr<const ColumnOptions> rules = c_.columns.rules(col);
    return rules && rules->filterable();
}

/// Rows that the host hides offer nothing: the clerk knows nothing of them.
std::vector<dialogs::FilterChoice> FilterCommands::choicesOf(std::int32_t col) const {
    const CellGrid& grid = c_.grid;
    ColumnTexts texts(grid, col);
    std::vector<std::int64_t> rows(1);
    std::int64_t filled = 0;
    texts.read([&](std::int32_t row, std::uint32_t number) {
        if (grid.RowHidden(row)) return;
        if (rows.size() <= number) rows.resize(number + std::size_t{1});
        ++rows[number];
        ++filled;
    });
    rows.resize(texts.count());
    std::int64_t all = 0;
    for (std::int32_t row = grid.FixedRows(); row < grid.Rows(); ++row)
        if (!grid.RowHidden(row)) ++all;
    rows[ColumnTexts::Nothing] += all - filled;

    std::vector<SortedText> sorted;
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t number = 0; number < texts.count(); ++number) {
        if (rows[number] == 0) continue;
        sorted.push_back({texts.text(number), texts.stored(number)});
        numbers.push_back(number);
    }
    std::vector<dialogs::FilterChoice> choices;
    choices.reserve(sorted.size());
    for (const std::uint32_t i : sortedTexts(sorted, kindOf(c_.columns.at(col)), c_.platform)) {
        const std::string& text = texts.text(numbers[i]);
        choices.push_back({text, rows[numbers[i]], c_.filters.lets(col, text)});
    }
    return choices;
}

bool FilterCommands::choose(std::int32_t col) {
    CellGrid& grid = c_.grid;
    dialogs::FilterForm form(c_.platform.textMetrics(), c_.clerkColumns.nameOf(col), choicesOf(col),
                             c_.filters.on(col));
    const std::int32_t header = std::max(grid.FixedRows() - 1, 0);
    c_.platform.showForm(form, c_.owner.onScreen(grid.CellRect(header, col)));
    if (!c_.host.there() || col >= grid.Cols()) return false;
    switch (form.outcome()) {
        case dialogs::FilterForm::Outcome::Chosen:
            return c_.filters.show(col, form.texts());
        case dialogs::FilterForm::Outcome::Ended:
            return c_.filters.end(col);
        default:
            return false;
    }
}
}  // namespace kxVsGrid::clerk
