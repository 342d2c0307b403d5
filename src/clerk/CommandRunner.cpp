#include "clerk/CommandRunner.h"

#include <utility>

#include "clerk/Filters.h"
#include "clerk/TipAtCell.h"
#include "columns/EditableColumn.h"
#include "editing/BringIntoView.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::clerk {
namespace {

bool isTextBoxs(Command command) {
    return command == Command::Copy || command == Command::Cut || command == Command::Paste ||
           command == Command::SelectAll;
}

/// The current cell has to be one that can be edited, which the host may be asked about.
bool asksForOpenCell(Command command) {
    return command == Command::CopyFromAbove || command == Command::Today || command == Command::Now ||
           command == Command::Help;
}

bool looksOn(Command command) {
    return command == Command::FindNext || command == Command::FindPrevious;
}

bool hasDataCells(const CellGrid& grid) {
    return grid.Rows() > grid.FixedRows() && grid.Cols() > grid.FixedCols();
}

bool goesBack(Command command) {
    return command == Command::Undo || command == Command::Redo;
}
}  // namespace

CommandRunner::CommandRunner(const ClerkContext& context, Menus& menus, Search& search)
    : c_(context),
      menus_(menus),
      search_(search),
      copyPaste_(context),
      cells_(context),
      rows_(context),
      sorts_(context),
      filters_(context),
      columns_(context),
      headers_(context, sorts_, filters_, columns_) {
    menus_.headers(headers_);
}

// --- What can be done

/// On a data cell of a grid that can be edited, in a row that no filter hides.
bool CommandRunner::mayEdit() const {
    const std::int32_t row = c_.grid.Row();
    return c_.flags.Editable && columns::isDataCell(c_.grid, row, c_.grid.Col()) && !c_.grid.RowFiltered(row);
}

bool CommandRunner::can(Command command) const {
    if (!c_.host.there()) return false;
    if (command == Command::Undo) return c_.steps.canUndo();
    if (command == Command::Redo) return c_.steps.canRedo();
    if (c_.editor.visible() && isTextBoxs(command)) return true;
    return canOnClosedCell(command) && (!asksForOpenCell(command) || c_.editor.opensHere());
}

bool CommandRunner::canOnClosedCell(Command command) const {
    const CellGrid& grid = c_.grid;
    switch (command) {
        case Command::Copy:
        case Command::CopyWithHeaders:
        case Command::SelectAll:
        case Command::SelectRow:
        case Command::SelectColumn:
            return !grid.Selected().empty();
        case Command::Cut:
        case Command::ClearCells:
        case Command::Paste:
            return mayEdit() && !grid.Selected().empty();
        case Command::FillDown:
            return mayEdit() && cells_.canFillDown();
        case Command::FillRight:
            return mayEdit() && cells_.canFillRight();
        case Command::CopyFromAbove:
            return mayEdit() && cells_.canCopyFromAbove();
        case Command::Today:
        case Command::Now:
            return mayEdit() && cells_.canTakeMoment();
        case Command::InsertRow:
        case Command::DuplicateRow:
        case Command::DeleteRows:
            return mayEdit();
        case Command::Find:
            return hasDataCells(grid);
        case Command::Replace:
            return c_.flags.Editable && hasDataCells(grid);
        case Command::FindNext:
        case Command::FindPrevious:
            return !search_.rule().text.empty();
        case Command::AppendRow:
            return c_.flags.Editable && grid.Cols() > 0;
        case Command::MoveRowUp:
            return mayEdit() && rows_.canMove(false);
        case Command::MoveRowDown:
            return mayEdit() && rows_.canMove(true);
        case Command::GoToRow:
            return grid.Rows() > grid.FixedRows() && grid.Col() >= 0;
        case Command::SortUp:
        case Command::SortDown:
            return sorts_.canSort(grid.Col());
        case Command::Unsort:
            return sorts_.canUnsort();
        case Command::Filter:
            return filters_.canChoose(grid.Col());
        case Command::Unfilter:
            return c_.filters.on();
        case Command::HideColumn:
            return columns_.canHide(columns_.chosen());
        case Command::ShowColumns:
            return !columns_.hidden().empty();
        case Command::FitColumn:
            return columns_.canFit(columns_.chosen());
        case Command::Freeze:
            return columns_.canFreeze(grid.Col());
        case Command::HeaderMenu:
            return headers_.canOpen();
        case Command::Help:
            return mayEdit();
        case Command::Menu:
            return grid.Row() >= 0 && grid.Col() >= 0;
        case Command::NextProblem:
            return grid.NextMark(grid.Row(), grid.Col(), CellMark::Kind::Problem).has_value();
        default:
            return false;
    }
}

// --- Doing it

bool CommandRunner::run(Command command) {
    if (command == Command::Undo) return c_.steps.undo();
    if (command == Command::Redo) return c_.steps.redo();
    if (c_.editor.visible() && isTextBoxs(command)) {
        c_.seat.editText(command);
        return true;
    }
    if (!c_.editor.commitOrStay() || !can(command)) return false;
    return runOnClosedCell(command);
}

std::string CommandRunner::enter(std::int32_t row, std::int32_t col, std::string_view text) {
    if (!c_.editor.commitOrStay()) return "正在输入的内容没有通过检查。";
    return c_.host.there() ? cells_.enter(row, col, text) : std::string();
}

bool CommandRunner::runOnClosedCell(Command command) {
    switch (command) {
        case Command::Copy:
            return copyPaste_.copy(false);
        case Command::CopyWithHeaders:
            return copyPaste_.copy(true);
        case Command::Cut:
            if (!copyPaste_.copyToCut()) return false;
            cells_.clear(command);
            return true;
        case Command::Paste:
            return copyPaste_.paste();
        case Command::ClearCells:
            cells_.clear(command);
            return true;
        case Command::SelectAll:
        case Command::SelectRow:
        case Command::SelectColumn:
            return select(command);
        case Command::FillDown:
            return cells_.fillDown();
        case Command::FillRight:
            return cells_.fillRight();
        case Command::CopyFromAbove:
            return cells_.copyFromAbove();
        case Command::Today:
        case Command::Now:
            return cells_.moment(command);
        case Command::Find:
        case Command::Replace:
            c_.seat.showFindBar(command == Command::Replace);
            return true;
        case Command::FindNext:
        case Command::FindPrevious:
            return search_.go(command == Command::FindNext);
        case Command::InsertRow:
            rows_.insert();
            return true;
        case Command::AppendRow:
            rows_.append();
            return true;
        case Command::DuplicateRow:
            rows_.duplicate();
            return true;
        case Command::DeleteRows:
            rows_.remove();
            return true;
        case Command::MoveRowUp:
            return rows_.move(false);
        case Command::MoveRowDown:
            return rows_.move(true);
        case Command::GoToRow:
            return rows_.goTo();
        case Command::SortUp:
        case Command::SortDown:
            return sorts_.sort(c_.grid.Col(), command == Command::SortDown);
        case Command::Unsort:
            return sorts_.unsort();
        case Command::Filter:
            return filters_.choose(c_.grid.Col());
        case Command::Unfilter:
            return c_.filters.end();
        case Command::HideColumn:
            return columns_.hide(columns_.chosen());
        case Command::ShowColumns:
            return columns_.show(columns_.hidden());
        case Command::FitColumn:
            return columns_.fit(columns_.chosen());
        case Command::Freeze:
            return columns_.freeze(c_.grid.Col());
        case Command::HeaderMenu:
            headers_.open();
            return true;
        case Command::Help:
            c_.owner.openHelp();
            return true;
        case Command::Menu:
            menus_.open(0);
            return true;
        case Command::NextProblem:
            return goToNextProblem();
        default:
            return false;
    }
}

bool CommandRunner::select(Command command) {
    CellGrid& grid = c_.grid;
    const CellRange range = grid.Selected();
    if (command == Command::SelectAll)
        grid.SelectAll();
    else if (command == Command::SelectRow)
        grid.SelectRows(range.firstRow, range.lastRow);
    else
        grid.SelectCols(range.firstCol, range.lastCol);
    return true;
}

/// The mark says at the cell what is wrong with it.
bool CommandRunner::goToNextProblem() {
    CellGrid& grid = c_.grid;
    const auto cell = grid.NextMark(grid.Row(), grid.Col(), CellMark::Kind::Problem);
    if (!cell || !grid.Select(cell->row, cell->col) || !c_.host.there()) return false;
    editing::bringCurrentCellIntoView(grid);
    if (!c_.host.there() || grid.Row() < 0 || grid.Col() < 0) return false;
    if (const auto mark = grid.Mark(grid.Row(), grid.Col())) tellAtCell(c_, mark->text);
    return true;
}

void CommandRunner::fitColumn(std::int32_t col) {
    columns_.fit({col});
}

// --- By key

std::optional<Command> CommandRunner::commandOf(std::int16_t code, std::int16_t shift) const {
    const bool open = c_.editor.visible();
    if (!open && c_.options.DeleteClears() && code == static_cast<std::int16_t>(Key::Delete) && shift == 0)
        return Command::ClearCells;
    const auto where = open ? CommandKey::Where::EditorToo : CommandKey::Where::ClosedCell;
    const std::optional<Command> command = face.Of(code, shift, where);
    if (command == Command::HeaderMenu && !c_.options.HeaderMenu()) return {};
    if (command && looksOn(*command) && search_.rule().text.empty()) return {};  // the host's yet
    return !open && opensHeaderMenu(command, code, shift) ? Command::HeaderMenu : command;
}

/// Alt+Down moves rows, as it does in lists; where whole columns are selected there is none that it could mean.
bool CommandRunner::opensHeaderMenu(std::optional<Command> command, std::int16_t code,
                                    std::int16_t shift) const {
    return command == Command::MoveRowDown && code == static_cast<std::int16_t>(Key::Down) &&
           shift == AltKey && columns_.wholeSelected() && headers_.canOpen();
}

bool CommandRunner::textBoxHasIt(Command command) const {
    if (!c_.editor.visible()) return false;
    return command == Command::Undo ? !c_.editor.asOpened() : c_.editor.typedInto();
}

bool CommandRunner::runByKey(Command command) {
    if (goesBack(command)) {
        if (textBoxHasIt(command)) return false;
        if (c_.editor.visible() && can(command)) c_.editor.drop();
    }
    run(command);
    return true;
}

// --- What is said of them

std::string CommandRunner::caption(Command command) const {
    std::string step;
    if (command == Command::Undo) step = c_.steps.undoName();
    if (command == Command::Redo) step = c_.steps.redoName();
    if (command == Command::Freeze) return headers_.freezeCaption(c_.grid.Col());
    std::string caption(captionOf(command));
    return step.empty() ? caption : caption + "“" + step + "”";
}

std::string CommandRunner::whyNot(Command command) const {
    switch (command) {
        case Command::SortUp:
        case Command::SortDown:
        case Command::Unsort:
            return sorts_.whyNot(c_.grid.Col());
        default:
            return {};
    }
}

CommandRunner::Told CommandRunner::state(bool opens) const {
    Told now{c_.steps.undoName(),
             c_.steps.redoName(),
             whyNot(Command::SortUp),
             columns_.endsFreezing(c_.grid.Col()),
             {}};
    for (const Command command : allCommands()) {
        const bool possible = asksForOpenCell(command) ? opens && canOnClosedCell(command) : can(command);
        now.can.set(static_cast<std::size_t>(command), possible);
    }
    return now;
}

/// Rows come and go by the thousand while nobody listens: nothing is found out for nobody, and no host asked.
void CommandRunner::look() {
    if (telling_ || face.Changed.heard() || !c_.host.there()) return;
    const CellGrid& grid = c_.grid;
    told_ = state(mayEdit() && columns::isEditableColumn(grid, c_.columns, grid.Col()));
}

/// A host that is asked whether the current cell opens may bring this about once more.
void CommandRunner::tellChanges() {
    if (!face.Changed.heard() || telling_ || !c_.host.there() || c_.steps.underway()) return;
    bool changed = false;
    {
        const support::FlagSpan telling(telling_);
        const bool opens = c_.editor.opensHere();
        if (!c_.host.there()) return;
        Told now = state(opens);
        changed = told_ != now;
        told_ = std::move(now);
    }
    if (changed) face.Changed();
}
}  // namespace kxVsGrid::clerk
