// Rows of an order that go, and lines that change places.
#include <QPointer>
#include <algorithm>

#include "OrderGrid.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
/// Puts a value, and the one of before at the end of a block.
template <class Value>
class During {
  public:
    During(Value& place, Value value) : place_(place), before_(place) { place_ = value; }
    ~During() { place_ = before_; }
    During(const During&) = delete;
    During& operator=(const During&) = delete;

  private:
    Value& place_;
    Value before_;
};
}  // namespace

/// Those that are selected whole and can be seen, when there are several.
std::vector<std::int32_t> OrderGrid::selectedRows() const {
    const CellGrid& cells = grid_.Grid();
    std::vector<std::int32_t> rows;
    if (cells.SelectedAs() != SelectionKind::Rows && cells.SelectedAs() != SelectionKind::All) return rows;
    const CellRange range = cells.Selected();
    for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row)
        if (cells.RowShown(row)) rows.push_back(row);
    if (rows.size() < 2) rows.clear();
    return rows;
}

// The control asks about one row after the other, and does not say whether more of them follow. Of several
// selected rows it is therefore told No; then the clerk is asked once about all of them, and all go in one step,
// whether it was Ctrl+-, Delete or the menu.
bool OrderGrid::mayDeleteRow(std::int32_t row) {
    if (deletion_ == Deletion::Agreed) return true;
    const std::vector<std::int32_t> several = selectedRows();
    if (std::ranges::find(several, row) == several.end())
        return read(row).isEmpty() || !mayDelete_ ||
               mayDelete_(u"第 %1 行 %2 %3"_s.arg(QString::number(row - grid_.FixedRows() + 1),
                                                  text(row, Code), text(row, Name)));
    if (deletion_ == Deletion::Asked) return false;
    deletion_ = Deletion::Asked;
    QMetaObject::invokeMethod(this, &OrderGrid::deleteSelectedRows, Qt::QueuedConnection);
    return false;
}

void OrderGrid::deleteSelectedRows() {
    deletion_ = Deletion::Single;
    const std::vector<std::int32_t> rows = selectedRows();
    if (rows.empty() || !grid_.Editable()) return;
    const auto filled =
        std::ranges::count_if(rows, [this](std::int32_t row) { return !read(row).isEmpty(); });
    QString what = u"选中的 %1 行"_s.arg(rows.size());
    if (filled < std::ssize(rows)) what += u"(其中 %1 行有内容)"_s.arg(filled);
    const QPointer<OrderGrid> self(this);
    if (filled > 0 && mayDelete_ && !mayDelete_(what)) return;
    if (!self || selectedRows() != rows) return;
    const During agreed(deletion_, Deletion::Agreed);
    grid_.Run(Command::DeleteRows);
}

// To the control's log a row that only moved has not changed. Rows that say nothing have no place among the
// lines.
bool OrderGrid::hasMovedLines() const {
    std::vector<std::int32_t> rows;
    for (const RowId id : savedOrder_)
        if (const std::int32_t row = grid_.Grid().RowOf(id); row >= 0) rows.push_back(row);
    if (std::ranges::is_sorted(rows)) return false;
    std::erase_if(rows, [this](std::int32_t row) { return read(row).isEmpty(); });
    return !std::ranges::is_sorted(rows);
}
