// One cell of the grid as screen readers and test tools see it.
#pragma once

#include <QAccessible>
#include <QPointer>

#include "qt/view/GridView.h"

namespace kxVsGrid::qt {

class AccessibleCell : public QAccessibleInterface,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface {
  public:
    AccessibleCell(GridView& view, std::int32_t row, std::int32_t col) : view_(&view), row_(row), col_(col) {}

    void* interface_cast(QAccessible::InterfaceType type) override;
    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}  // texts go through the editor and its checks
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    int columnIndex() const override { return col_; }
    int rowIndex() const override { return row_; }
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    bool isSelected() const override;
    bool isCurrent() const;
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    const CellGrid& grid() const;
    bool isHeader() const;
    bool isCheckBox() const;
    bool isEditable() const;

    QPointer<GridView> view_;
    std::int32_t row_;
    std::int32_t col_;
};
}  // namespace kxVsGrid::qt
