// The editing of one cell after the other: a text box and a small help button laid over the grid's current
// cell.
//
// The session is hidden, open over the current cell, or open with a text that was refused. A commit writes
// text and tag into the cell; a refused text stays, until the clerk changes it or presses Esc, code moves the
// current cell, or the cell is gone. Text and tag mirror the current cell also while the session is hidden.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editing/EditingContext.h"
#include "editing/EditorFace.h"
#include "editing/EnteredCell.h"
#include "editing/FollowedCell.h"
#include "editing/MirroredCell.h"
#include "editing/TextBox.h"
#include "editing/WriteGate.h"
#include "suggest/SuggestionChoice.h"

namespace kxVsGrid::editing {

class EditSession {
  public:
    enum class Focus { Take, LeaveWithGrid };

    explicit EditSession(const EditingContext& context);

    const EditorView& view() const { return face_.view(); }
    /// Text and tag; of a hidden session those of the current cell, unless code has set others since.
    const TextBox& box() {
        mirror();
        return box_;
    }
    bool hidden() const { return state_ == State::Hidden; }
    /// Open over a cell. A grid that has lost all its cells has nothing to show it over.
    bool visible() const { return state_ != State::Hidden && c_.grid.Row() >= 0 && c_.grid.Col() >= 0; }
    bool committing() const { return committing_; }
    /// Open, with the text and tag that the cell has.
    bool unchanged() const;
    /// Open, with the text that it was opened with.
    bool asOpened() const { return visible() && box_.text() == opened_; }
    /// Open, and the clerk has changed its text.
    bool typedInto() const { return visible() && typedInto_; }
    /// Open over a text that the last commit has refused, and that has not changed since.
    bool refused() const { return visible() && state_ == State::Refused; }
    /// The field check has refused the present text: only what asks for it checks it once more. An expression
    /// that could not be evaluated locks nothing, and is tried again by whatever commits.
    bool locked() const { return validLock_ > 0; }
    const WriteGate& gate() const { return gate_; }
    /// The clerk may change the current cell, which is not hidden by a filter.
    bool opensHere() const;
    /// How often the field check has refused the present text.
    std::int16_t validLock() const { return validLock_; }

    /// Sets text or tag from code.
    void setText(std::string_view text);
    void setTag(std::string_view tag);

    // --- Life.
    /// Opens over the current cell, or turns a Boolean one over. Does nothing, and raises nothing, when the
    /// cell cannot be edited; keeps text and caret when it is open there already.
    void open(Focus focus = Focus::Take);
    /// Writes text and tag into the current cell; a read-only grid drops the text instead, unless it has been
    /// refused. False when the text is refused, or when a commit is under way. A host may move the current
    /// cell meanwhile: text and tag go into the one that was edited, which is then reported.
    bool commit();
    /// Commits what is open. False when that is refused; the keyboard is the editor's then.
    bool commitOrStay();
    /// Commits what is open and not locked, unless a commit is under way: for hosts, and for the loss of the
    /// keyboard.
    void commitUnlessLocked();
    /// Applies the current column's rules on empty and zero values to the editor's tag, then commits what is
    /// open. While a commit is under way only the rules are applied.
    bool validate();
    /// Hides without writing.
    void hide();
    /// The same, and shows the cell's text again: what was typed is lost.
    void drop();
    /// The clerk gives up: the same, and an emptied number comes back where the host wants that.
    void giveUp();
    /// Gives the keyboard to the editor, to the grid when it is hidden.
    void giveKeyboard();

    // --- What the grid reports.
    /// The cursor has entered a cell: captures it and loads it.
    void enterCell();
    /// The cursor leaves the cell.
    void leaveCell();
    /// The current cell counts as entered anew, after the current row was removed or default texts came into
    /// the cell. A hidden session loads it.
    void captureAndLoad();
    void rowInserted(std::int32_t position);
    void rowRemoved(std::int32_t position);
    void rowsReordered(std::int32_t first, std::span<const std::int32_t> from);
    /// Puts an open editor over its cell again, or hides it when the cell is gone. Over a cell that cannot be
    /// seen it commits and hides; a refused text goes.
    void place();
    /// The same after a change that may have moved nothing.
    void placesChanged();

    // --- What the clerk does.
    /// True when the key was used up.
    bool keyDown(std::int16_t code);
    bool keyPress(std::int16_t ascii) const;
    /// What was suggested for the text, and where the clerk is in that.
    suggest::SuggestionChoice& suggestions() { return suggestions_; }
    /// Has the editor hold what the key takes of the suggestions, if anything; the list goes.
    void takeSuggestion(suggest::SuggestionChoice::By key);
    /// The same for one that was pressed, as Enter would take it and go on.
    void suggestionPressed(std::size_t index);
    void edited(std::string_view text, std::size_t selStart, std::size_t selLength);
    void selected(std::size_t selStart, std::size_t selLength);
    void focusLost();
    /// Opens the column's help over an open editor, and takes what was chosen there.
    void help();

  private:
    enum class State { Hidden, Open, Refused };

    std::string asTaken(std::string_view text) const;
    void textChanged();
    /// The cell that an open editor stands over is the one entered last; it may be gone.
    bool editedCellIsCurrent() const { return entered_.is(c_.grid.Row(), c_.grid.Col()); }
    void show(Focus focus);
    void toggle();
    bool mayToggle();
    void load();
    void mirror();
    void publish();

    bool attempt();
    bool attemptInStep(std::optional<MessageBox>& refusal);
    bool passesCheck(std::optional<MessageBox>& refusal);
    static MessageBox boxOf(const std::string& reason);
    bool tellsBeside() const;
    void tellAt(const FollowedCell& cell, std::string_view text);
    void tellOfCurrent(const MessageBox& message);
    void refuse(const MessageBox& message, const FollowedCell& cell);
    void refuseExpression();
    void write(const FollowedCell& cell, const std::string& text);
    void writePair(const FollowedCell& cell, const std::string& text, const std::string& tag);
    void written(const FollowedCell& cell);
    void tellAfterEdit(const FollowedCell& cell);
    void handKeyboardOver();
    bool passesRule();
    void giveBack(const EnteredCell& emptied);
    bool overUnseenCell() const;
    void leaveUnseenCell();
    void takeChosen(const cVsControl& column);
    void askForSuggestions();
    void take(const Suggestion& suggestion);
    void takeTag(const std::string& tag);
    void settleSuggestions();
    void publishSuggestions();

    EditingContext c_;
    WriteGate gate_;
    EditorFace face_;

    State state_ = State::Hidden;
    bool committing_ =
        false;  ///< also when the editor has been hidden meanwhile: nothing else commits or opens
    std::int16_t validLock_ = 0;
    bool chosen_ = false;                    ///< the text was chosen in a help
    bool typedInto_ = false;                 ///< the clerk has changed the text since the editor was opened
    std::optional<std::string> tagOfTyped_;  ///< the tag that a suggested one has taken the place of
    std::string opened_;                     ///< the text that it was opened with
    std::string tip_;  ///< why the text was refused, while the clerk shall see it at the editor
    TextBox box_;
    suggest::SuggestionChoice suggestions_{[this] { publishSuggestions(); }};
    EnteredCell entered_;
    MirroredCell mirrored_;
    std::optional<EnteredCell> emptied_;  ///< the cell as it was before a refused expression emptied it
};
}  // namespace kxVsGrid::editing
