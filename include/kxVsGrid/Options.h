// Switches by which a host asks for more than the control does of itself. Each begins as the control has
// always behaved; none is stored with the settings of a grid.
//
//     grid.Options().EscRestores(true);
#pragma once

#include <algorithm>
#include <cstdint>

#include "kxVsGrid/Event.h"

namespace kxVsGrid {

class GridOptions {
  public:
    /// Esc gives a number cell back the number that a refused expression has emptied, and its tag, unless
    /// code has written another text there since. False at first: the cell stays empty.
    bool EscRestores() const { return escRestores_; }
    void EscRestores(bool restores) { escRestores_ = restores; }

    /// Fills of the menu end at the last row in use, so that a sheet with empty rows below its lines keeps
    /// them empty; empty rows between lines are filled. False at first: fills go down to the last row.
    bool FillsToLastLine() const { return fillsToLastLine_; }
    void FillsToLastLine(bool ends) { fillsToLastLine_ = ends; }
    /// Is the row in use? Preset to whether some cell that can be edited has a text that default filling has
    /// not put there; the host may answer otherwise. Asked before a fill, from the last row up to the first
    /// one in use or to the current row.
    Event<std::int32_t, bool&> RowInUse;

    /// Is the cell locked? Preset to False. A locked cell is to the clerk like one of a read-only column, for
    /// this row alone: nothing opens or toggles it, and Enter and Tab pass over it. Code writes there as
    /// anywhere, default texts and fills of the menu among it; ReadOnlyShade goes by columns and does not
    /// show it. Asked at every key that would open or pass the cell, once more when the host has heard of
    /// BeforeTextEdit, and not at the commit: what is being typed when a cell becomes locked is still
    /// written. Enter asks for one cell after the other until one is free, so the answer should be at hand.
    Event<std::int32_t, std::int32_t, bool&> CellLocked;

    /// All rows are about to be looked through, for a text: a host that brings the texts of rows as they are needed
    /// brings them all. Raised when a search begins.
    Event<> AllRowsNeeded;

    /// Enter on a cell that is not editable goes to the next editable one, as it does on those that are;
    /// where none follows it stays. False at first: Enter does nothing there.
    bool EnterPassesReadOnly() const { return enterPassesReadOnly_; }
    void EnterPassesReadOnly(bool passes) { enterPassesReadOnly_ = passes; }

    /// A press of the left button on the drawn box of a Boolean cell turns it over, once the press has made
    /// the cell the current one and the host has not cancelled it (`MouseDown`); the last row asks for
    /// another one first. A double click that begins with such a press turns it over once in all. False at
    /// first: a press only moves there.
    bool PressToggles() const { return pressToggles_; }
    void PressToggles(bool toggles) { pressToggles_ = toggles; }

    /// The plain Delete key empties the selected cells (Command::ClearCells) instead of asking to delete the
    /// current row, for which the menu's item and the key of Command::DeleteRows remain. False at first.
    bool DeleteClears() const { return deleteClears_; }
    void DeleteClears(bool clears) { deleteClears_ = clears; }

    /// Column headers have a menu, which a right press on one opens, and Command::HeaderMenu: sorting and
    /// filtering where the column allows it, its width, hidden and frozen columns. False at first: a right
    /// press there opens the grid's menu, as it does on a cell.
    bool HeaderMenu() const { return headerMenu_; }
    void HeaderMenu(bool has) { headerMenu_ = has; }

    /// How a clerk is told that a text was refused: with a message box, or beside the editor with the same
    /// text, which takes neither a key nor the keyboard and goes with the next change. Box at first.
    enum class RefusalStyle { Box, Beside };
    RefusalStyle Refusals() const { return refusals_; }
    void Refusals(RefusalStyle style) { refusals_ = style; }

    /// How much darker than others (lighter on a dark ground) cells are drawn that cannot be edited, in
    /// hundredths, at most 50: those of read-only columns, and all of them while the grid is not Editable.
    /// Cells with a colour of their own keep it. 0 at first: they look like the others. What a column's
    /// definition says is read as a picture is made: after changing it, ReDraw.
    std::int32_t ReadOnlyShade() const { return readOnlyShade_; }
    void ReadOnlyShade(std::int32_t hundredths) {
        readOnlyShade_ = std::clamp(hundredths, 0, 50);
        LookChanged();
    }
    /// A switch that the picture depends on was put.
    Event<> LookChanged;

  private:
    bool escRestores_ = false;
    bool fillsToLastLine_ = false;
    bool enterPassesReadOnly_ = false;
    bool pressToggles_ = false;
    bool deleteClears_ = false;
    bool headerMenu_ = false;
    RefusalStyle refusals_ = RefusalStyle::Box;
    std::int32_t readOnlyShade_ = 0;
};
}  // namespace kxVsGrid
