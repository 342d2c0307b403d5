#include "editing/EditorKeys.h"

#include "editing/EnterRule.h"
#include "editing/NextCell.h"
#include "support/Span.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

bool EditorKeys::keyDown(Key key) {
    switch (key) {
        case Key::F2:
            editor_.help();
            return true;
        case Key::Escape:
            escape();
            return true;
        case Key::Enter:
            if (multiLine()) return false;
            enter();
            return true;
        case Key::Up:
            if (multiLine()) return false;
            up();
            return true;
        case Key::Down:
            if (multiLine()) return false;
            down();
            return true;
        case Key::Left:
            return left();
        case Key::Right:
            return right();
        default:
            return false;
    }
}

bool EditorKeys::multiLine() const {
    return editor_.columns_.at(editor_.grid_.Col()).b是否编辑多行();
}

bool EditorKeys::commitOnKey() {
    if (editor_.commit()) return true;
    if (editor_.visible()) editor_.seat_.giveFocus(FocusPlace::Editor);
    return false;
}

void EditorKeys::focusToGrid() {
    editor_.seat_.giveFocus(FocusPlace::Grid);
}

void EditorKeys::escape() {
    support::Span hiding(editor_.hiding_);
    editor_.giveUp();
    focusToGrid();
}

void EditorKeys::enter() {
    {
        support::Span validating(editor_.validating_);
        editor_.text(support::withoutLineBreaks(editor_.box_.text()));
    }
    if (editor_.validLock_ > 0) return;
    if (!commitOnKey()) return;
    moveByEnterRule(editor_.grid_, editor_.columns_, editor_.owner_);
    focusToGrid();
}

void EditorKeys::up() {
    if (!commitOnKey()) return;
    CellGrid& grid = editor_.grid_;
    const std::int32_t row = grid.ShownRowBefore(grid.Row());
    if (row >= grid.FixedRows()) grid.Row(row);
    focusToGrid();
}

void EditorKeys::down() {
    if (!commitOnKey()) return;
    CellGrid& grid = editor_.grid_;
    const std::int32_t row = grid.ShownRowAfter(grid.Row());
    if (row >= 0) grid.Row(row);
    focusToGrid();
}

bool EditorKeys::left() {
    CellGrid& grid = editor_.grid_;
    const std::int32_t first = grid.FixedCols();
    if (editor_.box_.selStart() != 0 || grid.Col() <= first) return false;
    if (grid.Col() - 1 == first && !editableColumnToTheLeft(grid, editor_.columns_)) return false;
    if (!commitOnKey()) return true;
    if (const auto col = editableColumnToTheLeft(grid, editor_.columns_)) grid.Col(*col);
    focusToGrid();
    return true;
}

bool EditorKeys::right() {
    const TextBox& box = editor_.box_;
    if (!box.caretAtEnd() && !box.allSelected()) return false;
    if (!commitOnKey()) return true;
    if (const auto next = nextEditableCell(editor_.grid_, editor_.columns_))
        editor_.grid_.Select(next->row, next->col);
    focusToGrid();
    return true;
}
}  // namespace kxVsGrid::editing
