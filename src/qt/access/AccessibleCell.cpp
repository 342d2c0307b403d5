#include "qt/access/AccessibleCell.h"

#include "qt/Stage.h"
#include "qt/access/AccessibleGrid.h"
#include "qt/text/Encoding.h"
#include "support/Numbers.h"

namespace kxVsGrid::qt {
namespace {

/// Empty when it is a host's to compute and that fails, which is told where it is painted.
std::string textOf(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    std::string text;
    Stage::failureOf([&] { text = grid.Text(row, col); });
    return text;
}

std::string displayTextOf(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    std::string text;
    Stage::failureOf([&] { text = grid.DisplayText(row, col); });
    return text;
}
}  // namespace

void* AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

const CellGrid& AccessibleCell::grid() const {
    return view_->stage().grid().Grid();
}

bool AccessibleCell::isValid() const {
    return view_ && row_ < grid().Rows() && col_ < grid().Cols();
}

QAccessibleInterface* AccessibleCell::parent() const {
    return QAccessible::queryAccessibleInterface(view_);
}

bool AccessibleCell::isHeader() const {
    return row_ < grid().FixedRows() || col_ < grid().FixedCols();
}

/// The host is asked, who may throw or destroy the widget.
bool AccessibleCell::isEditable() const {
    bool editable = false;
    const QPointer<GridView> view = view_;
    view->stage().attempt([&] { editable = view->stage().grid().cellEditable(row_, col_); });
    return editable;
}

bool AccessibleCell::isCheckBox() const {
    return !isHeader() && grid().ColDataType(col_) == flexDTBoolean;
}

QString AccessibleCell::text(QAccessible::Text kind) const {
    if (isValid() && kind == QAccessible::Description) {
        const CellMark* const mark = grid().Mark(row_, col_);
        return mark ? toQt(mark->text) : QString();
    }
    if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Value)) return {};
    if (isCheckBox() && kind == QAccessible::Name)
        return grid().FixedRows() > 0 ? toQt(textOf(grid(), 0, col_)) : QString();
    return toQt(displayTextOf(grid(), row_, col_));
}

QRect AccessibleCell::rect() const {
    if (!isValid()) return {};
    const QRect inView = view_->stage().scale().pixels(grid().CellRect(row_, col_));
    return {view_->mapToGlobal(inView.topLeft()), inView.size()};
}

QAccessible::Role AccessibleCell::role() const {
    if (!isValid()) return QAccessible::Cell;
    if (row_ < grid().FixedRows()) return QAccessible::ColumnHeader;
    if (col_ < grid().FixedCols()) return QAccessible::RowHeader;
    return isCheckBox() ? QAccessible::CheckBox : QAccessible::Cell;
}

QAccessible::State AccessibleCell::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid) return state;
    state.disabled = !view_->isEnabled();
    state.focusable = state.selectable = !isHeader();
    state.selected = isSelected();
    state.focused = isCurrent() && view_->hasFocus();
    state.invisible = !grid().RowShown(row_) || grid().ColHidden(col_);
    state.offscreen = !grid().RowIsVisible(row_) || !grid().ColIsVisible(col_);
    state.checkable = isCheckBox();
    state.checked = state.checkable && support::leadingNumber(textOf(grid(), row_, col_)) != 0;
    state.readOnly = !isEditable();
    return state;
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const {
    auto* owner = static_cast<AccessibleGrid*>(parent());
    if (owner == nullptr || !isValid() || grid().FixedRows() == 0) return {};
    return {owner->cellAt(0, col_)};
}

QList<QAccessibleInterface*> AccessibleCell::rowHeaderCells() const {
    auto* owner = static_cast<AccessibleGrid*>(parent());
    if (owner == nullptr || !isValid() || grid().FixedCols() == 0) return {};
    return {owner->cellAt(row_, 0)};
}

bool AccessibleCell::isCurrent() const {
    return isValid() && row_ == grid().Row() && col_ == grid().Col();
}

bool AccessibleCell::isSelected() const {
    return isCurrent() || (isValid() && grid().Selected().contains(row_, col_));
}

QStringList AccessibleCell::actionNames() const {
    return isValid() && !isHeader() ? QStringList{setFocusAction()} : QStringList{};
}

/// As a press on it would do: an open editor is committed first, and keeps its cell when it is refused.
void AccessibleCell::doAction(const QString& name) {
    if (name != setFocusAction() || !isValid() || isHeader()) return;
    const QPointer<GridView> view = view_;  // each step may destroy the widget, and this with it
    view->stage().guarded([view, row = row_, col = col_](Input&) {
        kxGrid& control = view->stage().grid();
        if (control.editorView().visible && !control.ValidTextData()) return;
        if (view) view->stage().grid().Grid().Select(row, col);
        if (view) view->stage().giveFocus(FocusPlace::Grid);
    });
}
}  // namespace kxVsGrid::qt
