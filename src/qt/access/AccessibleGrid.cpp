#include "qt/access/AccessibleGrid.h"

#include <algorithm>
#include <limits>

#include "kxVsGrid/qt/kxGridWidget.h"
#include "qt/Stage.h"
#include "qt/Wording.h"
#include "qt/access/AccessibleCell.h"
#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    auto* view = dynamic_cast<GridView*>(object);
    return view != nullptr ? new AccessibleGrid(*view) : nullptr;
}
/// As many cells of a selection are handed out: it may have a hundred million rows.
constexpr qsizetype MostSelected = 1000;

/// Row after row; cells whose index does not fit have the highest one.
int indexOf(std::int64_t row, std::int64_t col, std::int64_t cols) {
    return static_cast<int>(std::min<std::int64_t>(row * cols + col, std::numeric_limits<int>::max()));
}
}  // namespace

AccessibleGrid::AccessibleGrid(GridView& view) : QAccessibleWidget(&view, QAccessible::Table) {}

AccessibleGrid::~AccessibleGrid() {
    for (const QAccessible::Id id : std::as_const(cells_)) QAccessible::deleteAccessibleInterface(id);
}

void AccessibleGrid::install() {
    static const bool installed = [] {
        QAccessible::installFactory(interfaceOf);
        return true;
    }();
    Q_UNUSED(installed)
}

void AccessibleGrid::tellCurrentCell(GridView& view) {
    if (!QAccessible::isActive() || !view.hasFocus()) return;
    const CellGrid& grid = view.stage().grid().Grid();
    if (grid.Row() < 0 || grid.Col() < 0) return;
    QAccessibleEvent event(&view, QAccessible::Focus);
    event.setChild(indexOf(grid.Row(), grid.Col(), grid.Cols()));
    QAccessible::updateAccessibility(&event);
}

GridView* AccessibleGrid::view() const {
    return static_cast<GridView*>(widget());
}

void* AccessibleGrid::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleGrid::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Name && view() != nullptr) {
        const QString hosts = view()->stage().widget().accessibleName();
        return hosts.isEmpty() ? wording::Grid : hosts;
    }
    return QAccessibleWidget::text(kind);
}

int AccessibleGrid::rowCount() const {
    return view() != nullptr ? view()->stage().grid().Grid().Rows() : 0;
}

int AccessibleGrid::columnCount() const {
    return view() != nullptr ? view()->stage().grid().Grid().Cols() : 0;
}

int AccessibleGrid::childCount() const {
    const std::int64_t count = std::int64_t{rowCount()} * columnCount();
    return static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
}

QAccessibleInterface* AccessibleGrid::child(int index) const {
    const int cols = columnCount();
    return index < 0 || cols == 0 ? nullptr : cellAt(index / cols, index % cols);
}

QAccessibleInterface* AccessibleGrid::cellAt(int row, int column) const {
    if (row < 0 || column < 0 || row >= rowCount() || column >= columnCount()) return nullptr;
    const quint64 key = (static_cast<quint64>(row) << 16) | static_cast<quint64>(column);
    if (const auto known = cells_.constFind(key); known != cells_.constEnd())
        return QAccessible::accessibleInterface(*known);
    auto* cell = new AccessibleCell(*view(), row, column);
    cells_.insert(key, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

QAccessibleInterface* AccessibleGrid::childAt(int x, int y) const {
    if (view() == nullptr) return nullptr;
    const QPoint at = view()->mapFromGlobal(QPoint(x, y));
    const Scale scale = view()->stage().scale();
    const GridHit hit =
        view()->stage().grid().Grid().HitTest(scale.twips(at.x() + 0.5), scale.twips(at.y() + 0.5));
    return cellAt(hit.row, hit.col);
}

QAccessibleInterface* AccessibleGrid::focusChild() const {
    if (view() == nullptr || !view()->hasFocus()) return QAccessibleWidget::focusChild();
    const CellGrid& grid = view()->stage().grid().Grid();
    return cellAt(grid.Row(), grid.Col());
}

int AccessibleGrid::indexOfChild(const QAccessibleInterface* child) const {
    const auto* cell = dynamic_cast<const AccessibleCell*>(child);
    return cell != nullptr ? indexOf(cell->rowIndex(), cell->columnIndex(), columnCount()) : -1;
}

int AccessibleGrid::selectedCellCount() const {
    const CellRange range = selected();
    const std::int64_t count = std::int64_t{range.rows()} * range.cols();
    return static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
}

/// The selected cells, or the current one where it is a fixed one.
CellRange AccessibleGrid::selected() const {
    if (view() == nullptr) return {};
    const CellGrid& grid = view()->stage().grid().Grid();
    const CellRange range = grid.Selected();
    if (!range.empty() || grid.Row() < 0 || grid.Col() < 0) return range;
    return {grid.Row(), grid.Col(), grid.Row(), grid.Col()};
}

QList<QAccessibleInterface*> AccessibleGrid::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    const CellRange range = selected();
    for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row)
        for (std::int32_t col = range.firstCol; col <= range.lastCol; ++col) {
            if (cells.size() == MostSelected) return cells;
            cells.append(cellAt(row, col));
        }
    return cells;
}

QString AccessibleGrid::columnDescription(int column) const {
    QAccessibleInterface* header = cellAt(0, column);
    return header != nullptr ? header->text(QAccessible::Name) : QString();
}

QString AccessibleGrid::rowDescription(int row) const {
    QAccessibleInterface* header = cellAt(row, 0);
    return header != nullptr ? header->text(QAccessible::Name) : QString();
}
}  // namespace kxVsGrid::qt
