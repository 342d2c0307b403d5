// What the editor asks of the control that it belongs to.
#pragma once

#include <cstdint>
#include <string>

#include "kxVsGrid/DateTime.h"
#include "kxVsGrid/Platform.h"
#include "kxVsGrid/Variant.h"
#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid::editing {

class EditorOwner {
  public:
    virtual ~EditorOwner() = default;
    virtual bool editable() const = 0;
    /// The clerk has changed a cell.
    virtual void markChanged() = 0;
    /// A changed text lifts a refusal of all moves.
    virtual void allowMoves() = 0;
    /// Recalculates the total of one column, or of all with -1.
    virtual void recalculate(std::int32_t col) = 0;
    /// Asks the host for another row when `row` is the last one.
    virtual void appendIfLast(std::int32_t row) = 0;
    /// One more row through the control's public row count.
    virtual void addRowAtEnd() = 0;
    virtual void bringCurrentCellIntoView() = 0;
    /// Esc brings back the number that a refused expression has emptied.
    virtual bool escRestores() const = 0;
    /// The editor is hidden. The keyboard goes to the grid, if the editor had it.
    virtual void editorHidden() = 0;
    virtual void raiseBeforeTextEdit() = 0;
    virtual void raiseAfterEdit(std::int32_t row, std::int32_t col) = 0;
    /// Asks the host for the record that matches a typed code.
    virtual void raiseTxtValidBmS(const cVsControl& column, const std::string& text, std::string& code,
                                  std::string& name) = 0;
    /// Asks the host for the tables of a code lookup.
    virtual void raiseGetHelpCodeInfo(const std::string& code, Variant& Grid_code, Variant& GridInfo,
                                      Variant& GridData) = 0;
    /// The host shows its own help at a place on the screen (twips).
    virtual void raiseUserHelpEvent(std::int32_t x, std::int32_t y, std::string& text, Variant& value) = 0;
    /// The host edits the list of a code lookup.
    virtual void raiseGetHelpEdit(const std::string& component, Variant& GridData) = 0;
    virtual void showMessage(const MessageBox& box) = 0;
    virtual void showForm(Form& form, const Rect& anchor) = 0;
    /// Where a place in the control's grid lies on the screen.
    virtual Rect onScreen(const Rect& place) const = 0;
    virtual const TextMetrics& textMetrics() const = 0;
    virtual DateTime now() const = 0;
};
}  // namespace kxVsGrid::editing
