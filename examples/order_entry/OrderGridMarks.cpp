// The marks on cells that keep an order from being saved.
#include <algorithm>

#include "OrderGrid.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

/// The clerk who comes to the row gets the preset text there.
bool OrderGrid::getsPreset(std::int32_t row, Column col) const {
    return row != grid_.Row() && text(row, col).isEmpty() &&
           !grid_.VsCtrl(static_cast<std::int16_t>(col))->sDefaultText_Name().empty();
}

/// As the clerk reads it at the cell; empty: nothing is wrong there.
QString OrderGrid::problemOf(std::int32_t row, const OrderLine& line, Column col, ListedTexts& listed) {
    QString why = faultOf(row, line, col, listed);
    if (why.isEmpty() && breaksRule(line, col) && !getsPreset(row, col)) why = ruleBroken(col);
    return why.isEmpty() ? why : caption(col) + why;
}

int OrderGrid::markProblems() {
    for (const auto& [cell, why] : std::exchange(marks_, {})) {
        const std::int32_t row = grid_.Grid().RowOf(cell.first);
        const CellMark* const mark = row < 0 ? nullptr : grid_.Mark(row, cell.second);
        if (mark && mark->text == why) grid_.Mark(row, cell.second, std::nullopt);
    }
    int count = 0;
    ListedTexts listed;
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
        const OrderLine line = read(row);
        for (std::int32_t col = grid_.FixedCols(); col < ColumnCount; ++col) {
            const QString why = problemOf(row, line, static_cast<Column>(col), listed);
            if (why.isEmpty()) continue;
            mark(row, col, why);
            ++count;
        }
    }
    return count;
}

/// What was refused there says more: it stays.
void OrderGrid::mark(std::int32_t row, std::int32_t col, const QString& why) {
    const CellMark* const there = grid_.Mark(row, col);
    if (there && there->kind == CellMark::Kind::Problem) return;
    const std::string text = why.toStdString();
    grid_.Mark(row, col, CellMark{CellMark::Kind::Problem, text});
    marks_[{grid_.Grid().IdOf(row), col}] = text;
}

void OrderGrid::clearMarks() {
    marks_.clear();
    grid_.ClearMarks();
}

// The control takes a mark away with the commit into its cell. What is wrong may depend on the rest of the
// line, and may be as wrong afterwards.
void OrderGrid::judgeMarks(const StepChanges& step) {
    if (marks_.empty()) return;
    ListedTexts listed;
    for (const std::int32_t row : rowsOf(step)) {
        const OrderLine line = read(row);
        const RowId id = grid_.Grid().KnownId(row);
        for (auto one = marks_.lower_bound({id, 0}); one != marks_.end() && one->first.first == id;) {
            const std::int32_t col = one->first.second;
            const CellMark* const there = grid_.Mark(row, col);
            const bool ours = !there || there->text == one->second;
            const QString why = ours ? problemOf(row, line, static_cast<Column>(col), listed) : QString();
            if (ours && why.toStdString() != (there ? there->text : std::string()))
                grid_.Mark(row, col,
                           why.isEmpty()
                               ? std::nullopt
                               : std::optional(CellMark{CellMark::Kind::Problem, why.toStdString()}));
            one->second = why.toStdString();
            one = why.isEmpty() ? marks_.erase(one) : std::next(one);
        }
    }
}
