#include "editing/EditorKeys.h"

#include "editing/EnterTarget.h"
#include "editing/NextCell.h"
#include "support/Text.h"

namespace kxVsGrid::editing {
namespace {

constexpr std::ptrdiff_t SuggestionsPerPage = 10;
}  // namespace

bool EditorKeys::keyDown(Key key) {
    switch (key) {
        case Key::F2:
            session_.help();
            return true;
        case Key::Escape:
            escape();
            return true;
        case Key::Enter:
            if (isTheTexts(key)) return false;
            enter();
            return true;
        case Key::Up:
            if (isTheTexts(key)) return false;
            up();
            return true;
        case Key::Down:
            if (isTheTexts(key)) return false;
            down();
            return true;
        case Key::PageUp:
            return page(-SuggestionsPerPage);
        case Key::PageDown:
            return page(SuggestionsPerPage);
        case Key::Left:
            return left();
        case Key::Right:
            return right();
        default:
            return false;
    }
}

bool EditorKeys::multiLine() const {
    return c_.columns.at(c_.grid.Col()).b是否编辑多行();
}

/// At the end of the text Down has nowhere to go in it.
bool EditorKeys::isTheTexts(Key key) const {
    if (!multiLine() || session_.suggestions().entered()) return false;
    return key != Key::Down || !session_.suggestions().shown() || !session_.box().caretAtEnd();
}

bool EditorKeys::page(std::ptrdiff_t suggestions) {
    session_.suggestions().move(suggestions);
    return session_.suggestions().shown();
}

void EditorKeys::escape() {
    if (session_.suggestions().dismiss()) return;
    session_.giveUp();
    focusToGrid();
}

void EditorKeys::enter() {
    session_.takeSuggestion(suggest::SuggestionChoice::By::Enter);
    if (!multiLine()) session_.setText(support::withoutLineBreaks(session_.box().text()));
    if (session_.locked() || !session_.commitOrStay()) return;
    moveByEnterRule(c_);
    focusToGrid();
}

void EditorKeys::up() {
    if (session_.suggestions().move(-1)) return;
    if (!session_.commitOrStay()) return;
    CellGrid& grid = c_.grid;
    const std::int32_t row = grid.ShownRowBefore(grid.Row());
    if (row >= grid.FixedRows()) grid.Row(row);
    focusToGrid();
}

void EditorKeys::down() {
    if (session_.suggestions().move(1)) return;
    if (!session_.commitOrStay()) return;
    CellGrid& grid = c_.grid;
    const std::int32_t row = grid.ShownRowAfter(grid.Row());
    if (row >= 0) grid.Row(row);
    focusToGrid();
}

bool EditorKeys::left() {
    CellGrid& grid = c_.grid;
    const std::int32_t first = grid.FixedCols();
    if (session_.box().selStart() != 0 || grid.Col() <= first) return false;
    if (grid.Col() - 1 == first && !editableColumnToTheLeft(c_)) return false;
    if (!session_.commitOrStay()) return true;
    if (const auto col = editableColumnToTheLeft(c_)) grid.Col(*col);
    focusToGrid();
    return true;
}

bool EditorKeys::right() {
    const TextBox& box = session_.box();
    if (!box.caretAtEnd() && !box.allSelected()) return false;
    if (!session_.commitOrStay()) return true;
    if (const auto next = nextEditableCell(c_)) c_.grid.Select(next->row, next->col);
    focusToGrid();
    return true;
}
}  // namespace kxVsGrid::editing
