// The grid as screen readers and test tools see it: a table whose cells have a name, a value and a place.
#pragma once

#include <QAccessibleWidget>
#include <QHash>

#include "qt/view/GridView.h"

namespace kxVsGrid::qt {

class AccessibleGrid : public QAccessibleWidget, public QAccessibleTableInterface {
  public:
    explicit AccessibleGrid(GridView& view);
    ~AccessibleGrid() override;

    /// Makes Qt answer with this class for every GridView.
    static void install();
    /// Tells that the current cell of a view that has the keyboard has changed.
    static void tellCurrentCell(GridView& view);

    GridView* view() const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

  private:
    CellRange selected() const;

    mutable QHash<quint64, QAccessible::Id> cells_;  // those that somebody has asked for
};
}  // namespace kxVsGrid::qt
