// The in-cell editor: a text box and a small help button laid over the grid's current cell.
//
// It is hidden, or shown over the current cell. A commit writes its text and tag into the cell; a refused one
// leaves it shown, until Esc, code that moves the current cell, or the end of its cell. Its text and tag
// mirror the current cell also while it is hidden.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editing/EditorOwner.h"
#include "editing/EnteredCell.h"
#include "editing/FollowedCell.h"
#include "editing/MirroredCell.h"
#include "editing/TextBox.h"
#include "grid/columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Platform.h"

namespace kxVsGrid::editing {

class Editor {
  public:
    enum class Focus { Take, LeaveWithGrid };

    Editor(CellGrid& grid, columns::ColumnArray& columns, EditorOwner& owner, Seat& seat);

    const EditorView& view() const { return shown_; }
    /// Text and tag; of a hidden editor those of the current cell, unless code has set others since.
    const TextBox& box() {
        mirror();
        return box_;
    }
    /// Shown over a cell. A grid that has lost all its cells has nothing to show it over.
    bool visible() const { return visible_ && grid_.Row() >= 0 && grid_.Col() >= 0; }
    bool committing() const { return committing_; }
    /// Shown over a text that the last commit has refused, and that has not changed since.
    bool refused() const { return visible() && refused_; }
    /// How often the field check has refused the present text.
    std::int16_t validLock() const { return validLock_; }
    const EnteredCell& entered() const { return entered_; }

    /// Sets text or tag from code.
    void text(std::string_view text);
    void tag(std::string_view tag);

    // --- Life.
    /// Opens over the current cell, or toggles a Boolean one. Does nothing, and raises nothing, when the cell
    /// cannot be edited; keeps text and caret when it is open there already.
    void open(Focus focus = Focus::Take);
    /// Writes the editor into the current cell; a read-only grid drops the text instead, unless it has been
    /// refused. False when the text is refused, or when a commit is under way. A host may move the current
    /// cell meanwhile: text and tag go into the one that was edited, which is then reported.
    bool commit();
    /// Applies the current column's rules on empty and zero values to the editor's tag, then commits an open
    /// editor. While a commit is under way only the rules are applied.
    bool validate();
    /// Commits an open editor whose text has not been refused, unless a commit is under way.
    void commitForHost();
    /// Hides without writing.
    void hide();
    /// The same, and shows the cell's text again: what was typed is lost.
    void drop();
    /// The clerk gives up: the same, and an emptied number comes back where the host wants that.
    void giveUp();

    // --- What the grid reports.
    /// The cursor has entered a cell: captures it and loads it.
    void enterCell();
    /// The cursor leaves the cell.
    void leaveCell();
    /// Loads the current cell into the hidden editor.
    void load();
    /// The current cell counts as entered anew, after the current row was removed or default texts came into
    /// the cell. A hidden editor loads it.
    void captureAndLoad();
    void rowInserted(std::int32_t position);
    void rowRemoved(std::int32_t position);
    /// Puts an open editor over its cell again, or hides it when the cell is gone. Over a hidden column it
    /// commits and hides; a refused text goes.
    void place();
    /// The same after a change that may have moved nothing.
    void placesChanged();

    // --- What the clerk does.
    /// True when the key was used up.
    bool keyDown(std::int16_t code);
    bool keyPress(std::int16_t ascii) const;
    void edited(std::string_view text, std::size_t selStart, std::size_t selLength);
    void selected(std::size_t selStart, std::size_t selLength);
    void focusLost();
    /// Opens the column's help over an open editor, and takes what was chosen there.
    void help();

  private:
    friend class EditorKeys;
    void commitUnlessRefused();
    void textChanged();
    bool opensHere() const;
    /// The cell that an open editor stands over is the one entered last; it may be gone.
    bool editedCellIsCurrent() const { return entered_.is(grid_.Row(), grid_.Col()); }
    bool attempt();
    void mirror();
    bool overHiddenColumn() const;
    void leaveHiddenColumn();
    void tellAfterEdit(const FollowedCell& cell);
    void giveBack(const EnteredCell& emptied);
    void toggle();
    void show(Focus focus);
    bool checkChangedText();
    void rewrite(const std::string& text, const std::string& tag);
    void refuse(const MessageBox& message);
    bool passesRule();
    void emptyRefused(std::int32_t row, std::int32_t col);
    bool refuseByRule(const std::string& message);
    bool writeText();
    bool writeNumber(std::int32_t row, std::int32_t col);
    void takeChosen(const cVsControl& column);
    void placeWithButton(EditorView& view);
    bool buttonInTheWay() const;
    void publish();

    CellGrid& grid_;
    columns::ColumnArray& columns_;
    EditorOwner& owner_;
    Seat& seat_;

    TextBox box_;
    EnteredCell entered_;
    MirroredCell mirrored_;
    std::optional<EnteredCell>
        emptied_;  ///< the edited cell as it was before a refused expression emptied it
    bool visible_ = false;
    bool committing_ = false;
    bool hiding_ = false;   ///< being hidden, or help is running, or the text has become empty
    bool refused_ = false;  ///< by the check, or an expression that could not be evaluated
    bool validating_ = false;
    std::int16_t validLock_ = 0;
    std::string tip_;  ///< why the expression was refused, while the clerk shall see it
    EditorView shown_;
    Rect placedOver_;             ///< the cell, as it was when the editor was placed last
    bool buttonOutside_ = false;  ///< the help button has been put beside the cell
};
}  // namespace kxVsGrid::editing
