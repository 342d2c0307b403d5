// What a clerk, a menu or a toolbar can ask the control to do, and the keys that ask for it.
//
//     const auto command = grid.Commands().Of('Z', kxVsGrid::CtrlKey, kxVsGrid::CommandKey::Where::ClosedCell);
//     if (command && grid.CanRun(*command)) grid.Run(*command);
//
// The keys of one control, which its host may change, are those of its Commands (Commands.h).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kxVsGrid {

enum class Command : std::uint8_t {
    Undo,
    Redo,
    Copy,             ///< the selection: as text, as a table, and as the control's own form
    CopyWithHeaders,  ///< the same, with the captions of the columns above it
    Cut,
    Paste,
    ClearCells,
    SelectAll,
    SelectRow,
    SelectColumn,
    FillDown,       ///< the first row of the selection into the others; of one row, the row above into it
    FillRight,      ///< the same with columns
    CopyFromAbove,  ///< the cell above, its tag too, into the current one
    Find,           ///< opens the machine's find bar
    FindNext,       ///< of what was looked for last; a key of it is no command's as long as that is nothing
    FindPrevious,
    Replace,  ///< the same bar, with replacing
    InsertRow,
    AppendRow,
    DuplicateRow,
    DeleteRows,  ///< those that are selected whole; without them the current one
    MoveRowUp,
    MoveRowDown,
    GoToRow,
    SortUp,  ///< the rows by the current column, which its host allows (ColumnOptions::sortable)
    SortDown,
    Unsort,  ///< back into the order from before the rows were sorted
    Filter,  ///< asks which texts of the current column are shown, where its host allows it (ColumnOptions::filterable)
    Unfilter,     ///< of all columns
    Freeze,       ///< the columns up to the current one; where just these are frozen, none any more
    HideColumn,   ///< those that are selected whole; without them the current one
    ShowColumns,  ///< those that the clerk has hidden
    FitColumn,    ///< as wide as its widest text
    HeaderMenu,   ///< of the current column, where the host has one (Options::HeaderMenu)
    Today,
    Now,
    Help,  ///< of the current cell, as F2 opens it
    Menu,
    NextProblem,
};

/// A key that gives a command.
struct CommandKey {
    enum class Where : std::uint8_t {
        ClosedCell,  ///< in an open editor the key is the text box's own
        EditorToo,   ///< an open editor is committed first; Undo and Redo are the text box's before
    };
    Command command;
    std::int16_t code;   ///< of the key, never the character that it types
    std::int16_t shift;  ///< a sum of ShiftMask; no other combination gives the command
    Where where = Where::EditorToo;
    friend bool operator==(const CommandKey&, const CommandKey&) = default;
};

/// Every command, in the order above.
std::span<const Command> allCommands();
/// The keys that a control begins with; the first key of a command is the one that menus show.
std::span<const CommandKey> defaultKeys();
/// As a menu names it, without what it would act on.
std::string_view captionOf(Command command);
/// As programs name it, for keys that are kept in settings: "FillDown".
std::string_view nameOf(Command command);
/// The command of such a name, if there is one.
std::optional<Command> commandNamed(std::string_view name);
/// The name of its icon in the icon themes of desktops (freedesktop.org, Icon Naming Specification); empty
/// where they have none for it.
std::string_view iconNameOf(Command command);
/// The key as people write it: "Ctrl+Shift+Z".
std::string keyText(const CommandKey& key);
}  // namespace kxVsGrid
